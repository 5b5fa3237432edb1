#include "Kismet2/RenamedMembers.h"

#include "EdGraph/EdGraph.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"

namespace RenamedMembers
{
namespace
{
/** The Blueprint of another class that the reference names; null for own and native members. */
UBlueprint* FindOwner(const FMemberReference& Reference)
{
	return Reference.GetMemberGuid().IsValid() ? UBlueprint::GetBlueprintFromClass(Reference.GetMemberParentClass())
											   : nullptr;
}

FName FindFunctionName(const UBlueprint& Owner, const FGuid& Guid)
{
	for (const UEdGraph* const Graph : Owner.FunctionGraphs)
	{
		if (Graph && Graph->GraphGuid == Guid)
		{
			return Graph->GetFName();
		}
	}
	return NAME_None;
}

void FollowVariable(UBlueprint& Blueprint, UK2Node_Variable& Node)
{
	UBlueprint* const Owner = FindOwner(Node.VariableReference);
	const FName OldName = Node.GetVarName();
	const FName Name = Owner
		? FBlueprintEditorUtils::FindMemberVariableNameByGuid(Owner, Node.VariableReference.GetMemberGuid())
		: NAME_None;
	if (!Name.IsNone() && Name != OldName)
	{
		Node.HandleVariableRenamed(&Blueprint, Owner->GeneratedClass.Get(), nullptr, OldName, Name);
	}
}

void FollowFunction(UBlueprint& Blueprint, UK2Node_CallFunction& Node)
{
	UBlueprint* const Owner = FindOwner(Node.FunctionReference);
	const FName OldName = Node.FunctionReference.GetMemberName();
	const FName Name = Owner ? FindFunctionName(*Owner, Node.FunctionReference.GetMemberGuid()) : NAME_None;
	if (!Name.IsNone() && Name != OldName)
	{
		Node.HandleFunctionRenamed(&Blueprint, Owner->GeneratedClass.Get(), nullptr, OldName, Name);
	}
}
} // namespace

void Follow(UBlueprint& Blueprint)
{
	TArray<UK2Node*> Nodes;
	FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Nodes);
	for (UK2Node* const Node : Nodes)
	{
		if (UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(Node))
		{
			FollowVariable(Blueprint, *Variable);
		}
		else if (UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Node))
		{
			FollowFunction(Blueprint, *Call);
		}
	}
}
} // namespace RenamedMembers
