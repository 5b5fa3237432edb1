#include "Operations/Frame/OperationFrame.h"

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "Engine/Blueprint.h"
#include "ToolResult.h"

bool OperationFrame::CheckOut(const UBlueprint& Blueprint, Morvane::FToolResult& Result, const bool bWidgetTool)
{
	FString Reason;
	if (FAssetOperationBase::CheckOutAssetForModify(Blueprint.GetPathName(), Reason))
	{
		return true;
	}
	Result.AddErrorMessage(bWidgetTool
			? FString::Printf(TEXT("Cannot modify Widget Blueprint - source control checkout failed:\n%s"), *Reason)
			: FString::Printf(TEXT("Cannot modify Blueprint - source control checkout failed:\n%s"), *Reason));
	return false;
}

UBlueprint* OperationFrame::LoadForEdit(const FString& Path, Morvane::FToolResult& Result)
{
	UBlueprint* const Blueprint = FBlueprintUtils::LoadBlueprint(Path, Result);
	return Blueprint && CheckOut(*Blueprint, Result) ? Blueprint : nullptr;
}
