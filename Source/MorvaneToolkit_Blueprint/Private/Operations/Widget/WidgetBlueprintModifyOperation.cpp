#include "WidgetBlueprintModifyOperation.h"

#include "AssetOperationBase.h"
#include "Blueprint/WidgetTree.h"
#include "BlueprintUtils.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Operations/Frame/OperationFrame.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Widget/WidgetChanges.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintService.h"

namespace WidgetBlueprintModify
{
using namespace Morvane;

/** How much more there is than before, and how much less: one of the two is always 0. */
struct FDifference
{
	int32 Before = 0;
	int32 After = 0;

	int32 GetAdded() const { return FMath::Max(0, After - Before); }
	int32 GetRemoved() const { return FMath::Max(0, Before - After); }
};

/** One call on one Widget Blueprint. */
class FRun
{
public:
	FRun(const FJsonObject& InArgs, FToolResult& InResult)
		: Args(InArgs)
		, Result(InResult)
	{
	}

	void Run()
	{
		if (!Load() || !EditWidgets() || !EditAnimations())
		{
			return; // the step has told why, and nothing is saved
		}
		if (!Changes.bAny)
		{
			Result.AddWarningMessage(TEXT("No modifications were made to the Widget Blueprint"));
			return;
		}
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
		Report();
		SaveAndCompile();
		Track();
		Result.FinalizeModifications();
	}

private:
	bool Load()
	{
		if (!MorvaneJson::TryGetStringField(Args, ToolInfo::FieldName_Path, Path))
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Missing required field '%s'"), ToolInfo::FieldName_Path));
			return false;
		}
		Path = FAssetOperationBase::ResolveBlueprintPath(Path);
		UBlueprint* const Loaded = FBlueprintUtils::LoadBlueprint(Path, Result);
		if (!Loaded)
		{
			return false;
		}
		Blueprint = Cast<UWidgetBlueprint>(Loaded);
		if (!Blueprint)
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Blueprint at '%s' is not a Widget Blueprint"), *Path));
			return false;
		}
		if (!OperationFrame::CheckOut(*Blueprint, Result, true))
		{
			return false;
		}
		if (!Blueprint->WidgetTree)
		{
			Result.AddErrorMessage(TEXT("Widget Blueprint does not have a valid WidgetTree"));
			return false;
		}
		return true;
	}

	int32 CountWidgets() const
	{
		TArray<UWidget*> All;
		Blueprint->WidgetTree->GetAllWidgets(All);
		return All.Num();
	}

	bool EditWidgets()
	{
		const TSharedPtr<FJsonObject>* Request = nullptr;
		if (!Args.TryGetObjectField(TEXT("widget_tree"), Request))
		{
			return true;
		}
		Widgets.Before = CountWidgets();
		const bool bDone = FWidgetBlueprintService::ModifyWidgetTree(Blueprint, *Request, Result, Changes);
		Widgets.After = CountWidgets();
		return bDone;
	}

	bool EditAnimations()
	{
		const TArray<TSharedPtr<FJsonValue>>* Operations = nullptr;
		if (!Args.TryGetArrayField(TEXT("animations"), Operations))
		{
			return true;
		}
		Animations.Before = Blueprint->Animations.Num();
		const bool bDone = FWidgetBlueprintService::ModifyAnimations(Blueprint, *Operations, Result);
		Animations.After = Blueprint->Animations.Num();
		Changes.bAny = Changes.bAny || !Operations->IsEmpty();
		return bDone;
	}

	void Report()
	{
		const TSharedPtr<FJsonObject> Telemetry = MakeShared<FJsonObject>();
		Telemetry->SetNumberField(TEXT("widgets_added"), Widgets.GetAdded());
		Telemetry->SetNumberField(TEXT("widgets_modified"), Changes.NumModified);
		Telemetry->SetNumberField(TEXT("widgets_removed"), Widgets.GetRemoved());
		Telemetry->SetNumberField(TEXT("animations_added"), Animations.GetAdded());
		Telemetry->SetNumberField(TEXT("animations_removed"), Animations.GetRemoved());
		Result.SetData(TEXT("telemetry"), Telemetry);
		Result.AddSuccessMessage(FString::Printf(
			TEXT("Successfully modified Widget Blueprint: %s (Widgets: +%d ~%d -%d, Animations: +%d -%d)"),
			*Blueprint->GetName(), Widgets.GetAdded(), Changes.NumModified, Widgets.GetRemoved(), Animations.GetAdded(),
			Animations.GetRemoved()));
	}

	/** A compile brings nodes up to date with what they stand for; what it changed is saved as well. */
	void SaveAndCompile()
	{
		if (!FAssetOperationBase::SaveAsset(Blueprint, Result))
		{
			return; // the helper has told why
		}
		if (!FBlueprintUtils::CompileBlueprint(Blueprint, false))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Widget Blueprint '%s' was saved and does not compile; the compile tool tells why"),
				*Blueprint->GetName()));
		}
		if (Blueprint->GetOutermost()->IsDirty())
		{
			FAssetOperationBase::SaveAsset(Blueprint, Result);
		}
	}

	void Track()
	{
		TrackNames(ToolInfo::ToolName_ReadBlueprintWidgetTree, Path, ToolInfo::FieldName_WidgetName,
			Changes.Widgets.Array(), Result);
		TrackNames(ToolInfo::ToolName_ReadBlueprintVariable, Path, ToolInfo::FieldName_VariableName,
			Changes.Variables.Array(), Result);
		if (Changes.Events.IsEmpty())
		{
			return;
		}
		TArray<TSharedPtr<FJsonValue>> Events;
		for (const FString& Name : Changes.Events)
		{
			const TSharedRef<FJsonObject> Event = MakeShared<FJsonObject>();
			Event->SetStringField(ToolInfo::FieldName_EventName, Name);
			Events.Add(MakeShared<FJsonValueObject>(Event));
		}
		const TSharedPtr<FJsonObject> Parameters = MakeShared<FJsonObject>();
		Parameters->SetStringField(ToolInfo::FieldName_Path, Path);
		Parameters->SetStringField(ToolInfo::FieldName_GraphName, TEXT("EventGraph"));
		Parameters->SetArrayField(ToolInfo::FieldName_Events, MoveTemp(Events));
		Result.TrackModification(ToolInfo::ToolName_ReadBlueprintEvent, Parameters);
	}

	const FJsonObject& Args;
	FToolResult& Result;
	FString Path;
	/** Not null once it is loaded. */
	UWidgetBlueprint* Blueprint = nullptr;
	FWidgetChanges Changes;
	FDifference Widgets;
	FDifference Animations;
};
} // namespace WidgetBlueprintModify

void FWidgetBlueprintModifyOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	WidgetBlueprintModify::FRun(Args, Result).Run();
}
