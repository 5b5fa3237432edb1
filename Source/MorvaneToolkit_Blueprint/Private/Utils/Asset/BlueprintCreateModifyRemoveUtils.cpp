#include "BlueprintCreateModifyRemoveUtils.h"

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "Engine/Blueprint.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Request/RequiredField.h"

UBlueprint* FBlueprintCreateModifyRemoveUtils::CreateBlueprint(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FString Path;
	if (!RequireStringField(Args, Morvane::ToolInfo::FieldName_Path, Path, Result))
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject>* ParentClass = nullptr;
	if (!Args.TryGetObjectField(TEXT("blueprint_parent_class"), ParentClass))
	{
		Result.AddErrorMessage(TEXT("Missing field : blueprint_parent_class"));
		return nullptr;
	}
	UBlueprint* const Blueprint = FBlueprintUtils::CreateBlueprint(
		FAssetOperationBase::NormalizeAssetPath(Path), *ParentClass, Result);
	if (!Blueprint)
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject> Created = MakeShared<FJsonObject>();
	Created->SetStringField(Morvane::ToolInfo::FieldName_Path, Blueprint->GetPathName());
	Created->SetStringField(Morvane::ToolInfo::FieldName_ReadTool, Morvane::ToolInfo::ToolName_ReadBlueprintSchema);
	Result.TrackModification(Morvane::ToolInfo::ToolName_ReadBlueprintSchema, Created).FinalizeModifications();
	return Blueprint;
}
