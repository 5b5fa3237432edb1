#include "Utils/Structure/VariableUses.h"

#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"

namespace VariableUses
{
/** A local variable, or a variable of another class, may have the same name. */
static bool IsOfBlueprint(const UK2Node_Variable& Node, const UBlueprint& Blueprint)
{
	if (Node.VariableReference.IsLocalScope())
	{
		return false;
	}
	UClass* const Class = Blueprint.GeneratedClass.Get();
	return Node.VariableReference.IsSelfContext() || Node.VariableReference.GetMemberParentClass(Class) == Class;
}
} // namespace VariableUses

FVariableUses::FVariableUses(const UBlueprint& Blueprint)
{
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			const UK2Node_Variable* const Access = Cast<UK2Node_Variable>(Node);
			const bool bCounts = Access && (Access->IsA<UK2Node_VariableGet>() || Access->IsA<UK2Node_VariableSet>());
			if (bCounts && VariableUses::IsOfBlueprint(*Access, Blueprint))
			{
				Nodes.FindOrAdd(Access->GetVarName()).Add(Node);
			}
		}
	}
}

TArray<UEdGraphNode*> FVariableUses::Find(FName Variable) const
{
	TArray<UEdGraphNode*> Found = Nodes.FindRef(Variable);
	// The graph of a notify function may have gone since.
	Found.RemoveAll([](const UEdGraphNode* Node) { return !IsValid(Node) || !IsValid(Node->GetGraph()); });
	return Found;
}

FString FVariableUses::Describe(const UEdGraphNode& Node)
{
	return FString::Printf(TEXT("%s variable node in graph '%s' (NodeID: %s)"),
		Node.IsA<UK2Node_VariableGet>() ? TEXT("Get") : TEXT("Set"), *Node.GetGraph()->GetName(),
		*FBlueprintNodeUtils::GetShortNodeId(&Node));
}
