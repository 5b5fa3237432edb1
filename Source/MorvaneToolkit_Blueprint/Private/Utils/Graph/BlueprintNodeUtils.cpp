#include "BlueprintNodeUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"

namespace BlueprintNodeUtils
{
/** Creates, lets the caller bind the node to its variable, places and finalises. */
template <typename TNode, typename FBind>
TNode* Spawn(UEdGraph& Graph, const FVector2D& Position, const FBind& Bind)
{
	FGraphNodeCreator<TNode> Creator(Graph);
	TNode* const Node = Creator.CreateNode(false);
	if (!Node)
	{
		return nullptr;
	}
	Bind(*Node);
	Node->NodePosX = static_cast<int32>(Position.X);
	Node->NodePosY = static_cast<int32>(Position.Y);
	Creator.Finalize();
	return Node;
}

template <typename TNode>
TNode* SpawnForOwnVariable(
	UBlueprint* Blueprint, UEdGraph* Graph, const FString& VariableName, const FVector2D& Position)
{
	if (!Blueprint || !Graph)
	{
		return nullptr;
	}
	const FName Name(*VariableName);
	const FBPVariableDescription* const Local = FBlueprintEditorUtils::FindLocalVariable(Blueprint, Graph, Name);
	FGuid Guid = FBlueprintEditorUtils::FindMemberVariableGuidByName(Blueprint, Name);
	return Spawn<TNode>(*Graph, Position,
		[Name, &Guid, Local, Graph](TNode& Node)
		{
			// Within its function a local variable hides a member of the same name.
			if (Local)
			{
				Node.VariableReference.SetLocalMember(
					Local->VarName, FBlueprintEditorUtils::GetTopLevelGraph(Graph)->GetName(), Local->VarGuid);
				return;
			}
			// An inherited variable has no guid here and is known by its name alone.
			if (Guid.IsValid())
			{
				Node.VariableReference.SetSelfMember(Name, Guid);
			}
			else
			{
				Node.VariableReference.SetSelfMember(Name);
			}
		});
}

static void LinkTarget(const UEdGraph& Graph, UEdGraphPin* OwnerPin, const UEdGraphNode& Node)
{
	UEdGraphPin* const TargetPin = Node.FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input);
	const UEdGraphSchema* const Schema = Graph.GetSchema();
	if (OwnerPin && TargetPin && Schema)
	{
		Schema->TryCreateConnection(OwnerPin, TargetPin);
	}
}

template <typename TNode>
TNode* SpawnForOtherClass(
	UEdGraph* Graph, const FString& VariableName, UClass* SourceClass, UEdGraphPin* OwnerPin, const FVector2D& Position)
{
	const FName Name(*VariableName);
	const UClass* const Known = FBlueprintEditorUtils::GetMostUpToDateClass(SourceClass);
	if (!Graph || !Known || !Known->FindPropertyByName(Name))
	{
		return nullptr;
	}
	TNode* const Node = Spawn<TNode>(*Graph, Position,
		[Name, SourceClass](TNode& Made) { Made.VariableReference.SetExternalMember(Name, SourceClass); });
	if (Node)
	{
		LinkTarget(*Graph, OwnerPin, *Node);
	}
	return Node;
}
} // namespace BlueprintNodeUtils

FString FBlueprintNodeUtils::GetShortNodeId(const UEdGraphNode* Node)
{
	return Node ? Node->NodeGuid.ToString(EGuidFormats::Digits).Left(7) : FString();
}

FString FBlueprintNodeUtils::GetFullTitle(const UEdGraphNode* Node)
{
	if (!Node)
	{
		return TEXT("None");
	}
	const FString Title = Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString();
	return Title.IsEmpty() ? Node->GetClass()->GetName() : Title;
}

UK2Node_VariableGet* FBlueprintNodeUtils::CreateVariableGetNode(
	UBlueprint* Blueprint, UEdGraph* Graph, const FString& VariableName, const FVector2D& Position)
{
	return BlueprintNodeUtils::SpawnForOwnVariable<UK2Node_VariableGet>(Blueprint, Graph, VariableName, Position);
}

UK2Node_VariableSet* FBlueprintNodeUtils::CreateVariableSetNode(
	UBlueprint* Blueprint, UEdGraph* Graph, const FString& VariableName, const FVector2D& Position)
{
	return BlueprintNodeUtils::SpawnForOwnVariable<UK2Node_VariableSet>(Blueprint, Graph, VariableName, Position);
}

UK2Node_VariableGet* FBlueprintNodeUtils::CreateCrossObjectVariableGetNode(
	UEdGraph* Graph, const FString& VariableName, UClass* SourceClass, UEdGraphPin* OwnerPin, const FVector2D& Position)
{
	return BlueprintNodeUtils::SpawnForOtherClass<UK2Node_VariableGet>(
		Graph, VariableName, SourceClass, OwnerPin, Position);
}

UK2Node_VariableSet* FBlueprintNodeUtils::CreateCrossObjectVariableSetNode(
	UEdGraph* Graph, const FString& VariableName, UClass* SourceClass, UEdGraphPin* OwnerPin, const FVector2D& Position)
{
	return BlueprintNodeUtils::SpawnForOtherClass<UK2Node_VariableSet>(
		Graph, VariableName, SourceClass, OwnerPin, Position);
}
