#include "Operations/Frame/OperationFrame.h"

#include "AssetOperationBase.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "BlueprintUtils.h"
#include "Engine/Blueprint.h"
#include "ToolResult.h"
#include "UObject/Package.h"

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

/** Forgets an asset that has just been made and was never saved. */
static void Discard(UBlueprint& Blueprint)
{
	UPackage* const Package = Blueprint.GetOutermost();
	FAssetRegistryModule::AssetDeleted(&Blueprint);
	Package->MarkAsGarbage();
}

UBlueprint* OperationFrame::LoadOrMake(const FString& Path, Morvane::FToolResult& Result, const FFinish Finish)
{
	if (UBlueprint* const Loaded = FBlueprintUtils::TryLoadBlueprint(Path))
	{
		return CheckOut(*Loaded, Result) ? Loaded : nullptr;
	}
	FString Reason;
	UBlueprint* const Made = FBlueprintUtils::CreateActorBlueprint(Path, Reason);
	if (Made && Finish(*Made, Reason))
	{
		Made->MarkPackageDirty();
		Result.AddSuccessMessage(FString::Printf(TEXT("No Blueprint stood at '%s', so one with parent Actor was begun"),
			*FBlueprintUtils::GetBlueprintPath(Made)));
		return Made;
	}
	if (Made)
	{
		Discard(*Made);
	}
	if (!Reason.IsEmpty())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to auto-create blueprint fixture: %s"), *Reason));
	}
	Result.AddErrorMessage(FString::Printf(TEXT("Blueprint not found: %s"), *Path));
	return nullptr;
}
