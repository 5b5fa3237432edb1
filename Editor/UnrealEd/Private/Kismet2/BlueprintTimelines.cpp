// Timelines of Blueprints.

#include "Kismet2/BlueprintEditorUtils.h"

#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_Timeline.h"
#include "Kismet2/Kismet2NameValidators.h"

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
	ValidateBlueprintChildVariables(Blueprint, TimelineVarName);
	MarkBlueprintAsStructurallyModified(Blueprint);
	return Timeline;
}

void FBlueprintEditorUtils::RemoveTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline, bool bDontRecompile)
{
	if (!Timeline || !Blueprint->Timelines.Contains(Timeline))
	{
		return;
	}
	Blueprint->Modify();
	Blueprint->Timelines.Remove(Timeline);
	Timeline->MarkAsGarbage();
	if (!bDontRecompile)
	{
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

bool FBlueprintEditorUtils::RenameTimeline(UBlueprint* Blueprint, const FName OldVarName, const FName NewVarName)
{
	const FName OldName = OldVarName;
	UTimelineTemplate* const Timeline = Blueprint->FindTimelineTemplateByVariableName(OldName);
	if (!Timeline || FKismetNameValidator(Blueprint, OldName).IsValid(NewVarName) != EValidatorResult::Ok)
	{
		return false;
	}
	UK2Node_Timeline* const Node = FindNodeForTimeline(Blueprint, Timeline);
	Blueprint->Modify();
	if (!Timeline->Rename(*UTimelineTemplate::TimelineVariableNameToTemplateName(NewVarName)))
	{
		return false;
	}
	if (Node)
	{
		Node->Modify();
		Node->TimelineName = NewVarName;
	}
	Timeline->UpdateCachedNames();
	ValidateBlueprintChildVariables(Blueprint, NewVarName);
	ReplaceVariableReferences(Blueprint, OldName, NewVarName);
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}
