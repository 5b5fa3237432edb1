// The seven reads of one item by name. They differ in words alone, which stand in a row each, see
// Utils/Read/ItemKinds.h.

#include "BlueprintReadOperations.h"

#include "AssetOperationBase.h"
#include "BlueprintReadUtils.h"
#include "Operations/Read/ReadStatus.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Read/ItemKinds.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Request/RequiredField.h"

namespace ItemReads
{
using Morvane::FToolResult;
namespace ToolInfo = Morvane::ToolInfo;

static void AddFailure(const FItemKind& Item, const FString& Name, const FString& Path, FToolResult& Result)
{
	if (Item.bFailureNamesBlueprint)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to read %s '%s' from Blueprint: %s"), Item.Word, *Name,
			*FAssetOperationBase::GetAssetNameFromPath(Path)));
		return;
	}
	Result.AddErrorMessage(FString::Printf(TEXT("Failed to read %s '%s' at path: %s"), Item.Word, *Name, *Path));
}

static void Read(const FItemKind& Item, const FJsonObject& Args, FToolResult& Result)
{
	FString Path;
	FString Name;
	if (!RequireStringField(Args, TEXT("path"), Path, Result)
		|| !RequireStringField(Args, Item.NameField, Name, Result))
	{
		return;
	}
	Path = FAssetOperationBase::ResolveBlueprintPath(Path);
	const TSharedPtr<FJsonObject> Command = MakeShared<FJsonObject>();
	Command->SetStringField(TEXT("path"), Path);
	Command->SetArrayField(Item.NameField, {MakeShared<FJsonValueString>(Name)});
	Command->SetStringField(ToolInfo::FieldName_ReadTool, Item.ReadTool);
	ReadDetail::Pass(Args, *Command);
	const FString Text = FBlueprintReadUtils::ReadBlueprint(Command, Result);
	if (Text.IsEmpty() || Text == TEXT("{}"))
	{
		AddFailure(Item, Name, Path, Result);
		return;
	}
	Result.SetData(TEXT("content"), Text);
	if (!Result.WasSuccessful())
	{
		return;
	}
	const FString AssetName = FAssetOperationBase::GetAssetNameFromPath(Path);
	if (ReadStatus::IsFirstMissing(Text, Item.Section))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("'%s' %s does not exist in Blueprint: %s"), *Name, Item.Word, *AssetName));
		return;
	}
	Result.AddSuccessMessage(
		FString::Printf(TEXT("Successfully read %s '%s' from Blueprint: %s"), Item.Word, *Name, *AssetName));
}
} // namespace ItemReads

void FBlueprintVariableReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemKinds::Variable, Args, Result);
}

void FBlueprintComponentReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemKinds::Component, Args, Result);
}

void FBlueprintFunctionReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemKinds::Function, Args, Result);
}

void FBlueprintInterfaceReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemKinds::Interface, Args, Result);
}

void FBlueprintTimelineReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemKinds::Timeline, Args, Result);
}

void FBlueprintDelegateReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemKinds::Delegate, Args, Result);
}

void FBlueprintMacroReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemKinds::Macro, Args, Result);
}
