#include "Kismet2/TakenNames.h"

#include "Engine/SimpleConstructionScript.h"
#include "Kismet2/BlueprintEditorUtils.h"

namespace TakenNames
{
void MoveAside(UBlueprint& Blueprint, FName Name)
{
	USimpleConstructionScript* const Script = Blueprint.SimpleConstructionScript;
	USCS_Node* const Node = Script ? Script->FindSCSNode(Name) : nullptr;
	const bool bVariable = FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name) != INDEX_NONE;
	const bool bTimeline = Blueprint.FindTimelineTemplateByVariableName(Name) != nullptr;
	if (!Node && !bVariable && !bTimeline)
	{
		return;
	}
	const FName FreeName = FBlueprintEditorUtils::FindUniqueKismetName(&Blueprint, Name.ToString());
	if (bVariable)
	{
		FBlueprintEditorUtils::RenameMemberVariable(&Blueprint, Name, FreeName);
	}
	else if (bTimeline)
	{
		FBlueprintEditorUtils::RenameTimeline(&Blueprint, Name, FreeName);
	}
	else
	{
		FBlueprintEditorUtils::RenameComponentMemberVariable(&Blueprint, Node, FreeName);
	}
}
} // namespace TakenNames
