// Timelines of Blueprints.

#include "Kismet2/BlueprintEditorUtils.h"

#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_Timeline.h"

UTimelineTemplate* FBlueprintEditorUtils::AddNewTimeline(UBlueprint* Blueprint, const FName& TimelineVarName)
{
	if (!Blueprint || TimelineVarName.IsNone() || Blueprint->FindTimelineTemplateByVariableName(TimelineVarName))
	{
		return nullptr;
	}
	UObject* const Outer = Blueprint->GeneratedClass.Get();
	const FName TemplateName(UTimelineTemplate::TimelineVariableNameToTemplateName(TimelineVarName));
	if (!Outer || !IsUniqueObjectName(TemplateName, Outer))
	{
		return nullptr;
	}
	Blueprint->Modify();
	UTimelineTemplate* const Timeline = NewObject<UTimelineTemplate>(Outer, TemplateName, RF_Transactional);
	Timeline->TimelineGuid = FGuid::NewGuid();
	Timeline->UpdateCachedNames();
	Blueprint->Timelines.Add(Timeline);
	MarkBlueprintAsStructurallyModified(Blueprint);
	return Timeline;
}

void FBlueprintEditorUtils::RemoveTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline, bool bDontRecompile)
{
	if (!Timeline || Blueprint->Timelines.Remove(Timeline) == 0)
	{
		return;
	}
	Timeline->MarkAsGarbage();
	if (!bDontRecompile)
	{
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

bool FBlueprintEditorUtils::RenameTimeline(UBlueprint* Blueprint, const FName OldVarName, const FName NewVarName)
{
	UTimelineTemplate* const Timeline = Blueprint->FindTimelineTemplateByVariableName(OldVarName);
	const FString TemplateName = UTimelineTemplate::TimelineVariableNameToTemplateName(NewVarName);
	if (!Timeline || Blueprint->FindTimelineTemplateByVariableName(NewVarName) || !Timeline->Rename(*TemplateName))
	{
		return false;
	}
	if (UK2Node_Timeline* const Node = FindNodeForTimeline(Blueprint, Timeline))
	{
		Node->TimelineName = NewVarName;
	}
	Timeline->UpdateCachedNames();
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

FName FBlueprintEditorUtils::FindUniqueTimelineName(const UBlueprint* Blueprint)
{
	return FindUniqueKismetName(Blueprint, TEXT("Timeline"));
}
