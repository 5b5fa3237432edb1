// Timelines of a Blueprint: one batch. First what is added and modified, then what is removed, a look at all curves,
// then one compile. Each timeline is a template and the node that plays it.

#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_Timeline.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Structure/LostPins.h"
#include "Utils/Structure/MemberNodes.h"
#include "Utils/Structure/StructureBatch.h"
#include "Utils/Structure/StructureNames.h"
#include "Utils/Structure/TimelineCurves.h"

#include <cmath>

namespace BlueprintTimelines
{
using namespace Morvane;

/** Curves that leave a timeline which stays. */
struct FLeavingCurves
{
	FString Timeline;
	TArray<FString> Curves;
};

class FBatch
{
public:
	FBatch(UBlueprint& InBlueprint, FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Result(InResult)
	{
	}

	void Run(const TArray<TSharedPtr<FJsonValue>>& Timelines)
	{
		const FStructureKind Kind{TEXT("timeline"),
			{TEXT("name"), TEXT("action"), TEXT("length"), TEXT("b_loop"), TEXT("b_replicated"), TEXT("b_auto_play"),
				TEXT("curves")},
			TEXT("Timeline entry missing 'name' field.")};
		StructureBatch::Walk(
			Timelines, Kind, Result,
			[this](const FStructureEntry& Entry, bool bAdd) { AddOrModify(Entry.Name, Entry, bAdd); },
			[this](const FString& Name) { Remove(Name); });
		for (const FLeavingCurves& Each : Leaving)
		{
			RemoveCurves(Each);
		}
		Finish();
	}

private:
	UTimelineTemplate* Find(const FString& Name) const
	{
		const FName TemplateName(UTimelineTemplate::TimelineVariableNameToTemplateName(FName(*Name)));
		for (UTimelineTemplate* const Timeline : Blueprint.Timelines)
		{
			if (Timeline && Timeline->GetFName() == TemplateName)
			{
				return Timeline;
			}
		}
		return nullptr;
	}

	/** The curves of a refused entry are not looked at. */
	void AddOrModify(const FString& Name, const FStructureEntry& Entry, bool bAdd)
	{
		UTimelineTemplate* Timeline = Find(Name);
		if (bAdd && Timeline)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Timeline '%s' already exists, cannot add"), *Name));
			return;
		}
		if (!bAdd && !Timeline)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Timeline '%s' not found for modification"), *Name));
			return;
		}
		Timeline = bAdd ? Add(Name) : Timeline;
		if (!Timeline)
		{
			return;
		}
		bool bChanged = ApplySettings(*Timeline, Entry);
		if (const TArray<TSharedPtr<FJsonValue>>* const Curves = Entry.ReadArray(TEXT("curves")))
		{
			FLeavingCurves OfThis{Name, {}};
			bChanged |= TimelineCurves::Apply(*Timeline, Name, *Curves, OfThis.Curves, Result);
			Leaving.Add(MoveTemp(OfThis));
		}
		if (bAdd || bChanged)
		{
			ShowInNode(*Timeline, bAdd, Name);
			Changed.AddUnique(Timeline->GetVariableName().ToString());
		}
		if (!bAdd)
		{
			Result.AddSuccessMessage(bChanged ? FString::Printf(TEXT("Modified timeline: %s"), *Name)
											  : FString::Printf(TEXT("No changes made to timeline: %s"), *Name));
		}
	}

	/** Null after a warning. */
	UTimelineTemplate* Add(const FString& Name)
	{
		const EValidatorResult Verdict = FKismetNameValidator(&Blueprint).IsValid(Name);
		FString Reason = INameValidatorInterface::GetErrorString(Name, Verdict);
		if (Verdict != EValidatorResult::Ok || !StructureNames::IsObjectName(Name, Reason))
		{
			Result.AddWarningMessage(FString::Printf(TEXT("%s for name '%s'"), *Reason, *Name));
			return nullptr;
		}
		UTimelineTemplate* const Timeline = FBlueprintEditorUtils::AddNewTimeline(&Blueprint, FName(*Name));
		if (!Timeline)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Failed to create timeline: %s"), *Name));
			return nullptr;
		}
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		Result.AddSuccessMessage(FString::Printf(TEXT("Created new timeline: %s"), *Name));
		return Timeline;
	}

	/** False when the flag is no other than it was. */
	static bool ApplyFlag(bool& bFlag, const FStructureEntry& Entry, const TCHAR* Key)
	{
		const bool bBefore = bFlag;
		bFlag = Entry.ReadBool(Key).Get(bBefore);
		return bFlag != bBefore;
	}

	bool ApplySettings(UTimelineTemplate& Timeline, const FStructureEntry& Entry)
	{
		const float LengthBefore = Timeline.TimelineLength;
		if (const TOptional<double> Length = Entry.ReadNumber(TEXT("length")))
		{
			if (static_cast<float>(*Length) > 0.0f && std::isfinite(static_cast<float>(*Length)))
			{
				Timeline.TimelineLength = static_cast<float>(*Length);
			}
			else
			{
				Entry.WarnOfValue(TEXT("length"), Entry.Json.TryGetField(TEXT("length")), TEXT("a number above 0"));
			}
		}
		bool bChanged = Timeline.TimelineLength != LengthBefore;
		bChanged |= ApplyFlag(Timeline.bLoop, Entry, TEXT("b_loop"));
		bChanged |= ApplyFlag(Timeline.bReplicated, Entry, TEXT("b_replicated"));
		bChanged |= ApplyFlag(Timeline.bAutoPlay, Entry, TEXT("b_auto_play"));
		return bChanged;
	}

	/** A timeline without a node does nothing, so a new one gets its node; a node that stands follows. */
	void ShowInNode(UTimelineTemplate& Timeline, bool bMake, const FString& Name)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		UK2Node_Timeline* const Node = FBlueprintEditorUtils::FindNodeForTimeline(&Blueprint, &Timeline);
		if (Node)
		{
			const FLostPins Lost({Node});
			Node->ReconstructNode();
			Lost.TakeOut(FString::Printf(TEXT("Timeline '%s' changed its curves"), *Name), Result);
			return;
		}
		UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(&Blueprint);
		Graph = !Graph && !Blueprint.UbergraphPages.IsEmpty() ? Blueprint.UbergraphPages[0].Get() : Graph;
		if (!bMake || !Graph)
		{
			return;
		}
		const FVector2D Place = Graph->GetGoodPlaceForNewNode();
		FGraphNodeCreator<UK2Node_Timeline> Creator(*Graph);
		UK2Node_Timeline* const Made = Creator.CreateNode(false);
		Made->TimelineName = Timeline.GetVariableName();
		Made->TimelineGuid = Timeline.TimelineGuid;
		Made->NodePosX = static_cast<int32>(Place.X);
		Made->NodePosY = static_cast<int32>(Place.Y);
		Creator.Finalize();
	}

	void Remove(const FString& Name)
	{
		UTimelineTemplate* const Timeline = Find(Name);
		if (!Timeline)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Timeline '%s' not found for removal"), *Name));
			return;
		}
		const FName Variable = Timeline->GetVariableName();
		UK2Node_Timeline* const Node = FBlueprintEditorUtils::FindNodeForTimeline(&Blueprint, Timeline);
		MemberNodes::Remove(Blueprint, Variable, FString::Printf(TEXT("timeline '%s'"), *Variable.ToString()), Result);
		FBlueprintEditorUtils::RemoveTimeline(&Blueprint, Timeline, false);
		Gone.Add(Variable);
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		Result.AddSuccessMessage(FString::Printf(TEXT("Removed timeline: %s"), *Name));
		if (Node)
		{
			FBlueprintEditorUtils::RemoveNode(&Blueprint, Node, true);
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
			Result.AddSuccessMessage(FString::Printf(TEXT("Removed timeline node for: %s"), *Name));
		}
		Changed.AddUnique(Variable.ToString());
	}

	void RemoveCurves(const FLeavingCurves& Each)
	{
		UTimelineTemplate* const Timeline = Find(Each.Timeline);
		if (Timeline && TimelineCurves::Remove(*Timeline, Each.Timeline, Each.Curves, Result))
		{
			ShowInNode(*Timeline, false, Each.Timeline);
			Changed.AddUnique(Timeline->GetVariableName().ToString());
		}
	}

	void Finish()
	{
		FBlueprintCreateModifyRemoveUtils::ValidateTimelineCurves(&Blueprint, Result);
		MemberNodes::WarnOfNodesElsewhere(Blueprint, Gone, Result);
		FBlueprintUtils::CompileBlueprint(&Blueprint, false);
		TrackNames(ToolInfo::ToolName_ReadBlueprintTimeline, Blueprint.GetPathName(), ToolInfo::FieldName_TimelineName,
			Changed, Result);
	}

	UBlueprint& Blueprint;
	FToolResult& Result;
	TArray<FLeavingCurves> Leaving;
	TSet<FName> Gone;
	TArray<FString> Changed;
};
} // namespace BlueprintTimelines

bool FBlueprintCreateModifyRemoveUtils::CreateModifyRemoveBlueprintTimeline(
	UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Timelines, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint provided."));
		return false;
	}
	if (!FBlueprintEditorUtils::DoesSupportTimelines(Blueprint))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Blueprint '%s' can hold no timelines: only Blueprints of actors with an event graph can"),
			*Blueprint->GetName()));
		return false;
	}
	BlueprintTimelines::FBatch(*Blueprint, Result).Run(Timelines);
	return true;
}
