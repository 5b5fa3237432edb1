#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphNode.h"
#include "Templates/SubclassOf.h"
#include "UObject/Object.h"

class UEdGraphSchema;

enum EEdGraphActionType : int
{
	GRAPHACTION_Default = 0,
	GRAPHACTION_AddNode = 1,
	GRAPHACTION_SelectNode = 2,
	GRAPHACTION_RemoveNode = 4,
};

struct FEdGraphEditAction
{
	int32 Action = GRAPHACTION_Default;
	UEdGraph* Graph = nullptr;
	TArray<const UEdGraphNode*> Nodes;
	bool bUserInvoked = false;
};

/** Nodes in order of creation, and the schema that rules them. */
class UEdGraph : public UObject
{
	EDITOR_CLASS(UEdGraph, UObject)

public:
	const UEdGraphSchema* GetSchema() const;
	/** The graph that this one is nested in, directly or inside a node, as collapsed graphs and state machines are. */
	UEdGraph* GetParentGraph() const { return GetTypedOuter<UEdGraph>(); }
	static UEdGraph* GetOuterGraph(UObject* Obj);

	/** Makes a node of the class inside the graph; the caller places it and allocates its pins. */
	UEdGraphNode* CreateNode(const UClass* NewNodeClass, bool bSelectNewNode = true);
	void AddNode(UEdGraphNode* NodeToAdd, bool bUserAction = false, bool bSelectNewNode = true);
	/** Takes the node out. Links are broken unless told otherwise. The node becomes garbage, freed between tool calls.
	 */
	bool RemoveNode(UEdGraphNode* NodeToRemove, bool bBreakAllLinks = true, bool bAlwaysMarkDirty = true);
	/** Right of the node that was made last; the origin in an empty graph. */
	FVector2D GetGoodPlaceForNewNode();
	void NotifyGraphChanged();
	void NotifyGraphChanged(const FEdGraphEditAction& Action);
	void NotifyNodeChanged(const UEdGraphNode* Node);
	void GetAllChildrenGraphs(TArray<UEdGraph*>& Graphs) const;

	template <class T>
	void GetNodesOfClass(TArray<T*>& OutNodes) const
	{
		for (UEdGraphNode* const Node : Nodes)
		{
			if (T* const Typed = Cast<T>(Node))
			{
				OutNodes.Add(Typed);
			}
		}
	}

	void PostLoad() override;
	bool Modify(bool bAlwaysMarkDirty = true) override;

	/** Raised by NotifyGraphChanged. */
	TMulticastDelegate<void(const FEdGraphEditAction&)> OnGraphChanged;

	TSubclassOf<UEdGraphSchema> Schema;
	TArray<TObjectPtr<UEdGraphNode>> Nodes;
	bool bEditable = true;
	bool bAllowDeletion = true;
	bool bAllowRenaming = true;
	TArray<TObjectPtr<UEdGraph>> SubGraphs;
	FGuid GraphGuid;
	FGuid InterfaceGuid;
};

/** Makes one node in three steps: create, set what binds it, finalise (guid, placed, pins). */
template <class NodeType>
struct FGraphNodeCreator
{
	explicit FGraphNodeCreator(UEdGraph& InGraph)
		: Graph(InGraph)
	{
	}
	NodeType* CreateNode(bool bSelectNewNode = true, TSubclassOf<NodeType> InNodeClass = NodeType::StaticClass())
	{
		bPlaced = false;
		Node = static_cast<NodeType*>(Graph.CreateNode(InNodeClass.Get(), bSelectNewNode));
		return Node;
	}
	void Finalize()
	{
		check(!bPlaced);
		Node->CreateNewGuid();
		Node->PostPlacedNewNode();
		if (Node->Pins.Num() == 0)
		{
			Node->AllocateDefaultPins();
		}
		bPlaced = true;
	}

private:
	NodeType* Node = nullptr;
	UEdGraph& Graph;
	bool bPlaced = true;
};
