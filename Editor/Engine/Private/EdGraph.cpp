#include "EdGraph/EdGraph.h"

#include "EdGraph/EdGraphSchema.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UEdGraph, "/Script/Engine", CLASS_None)

void UEdGraph::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Schema"), &UEdGraph::Schema);
	Class.Property(TEXT("Nodes"), &UEdGraph::Nodes);
	Class.Property(TEXT("bEditable"), &UEdGraph::bEditable);
	Class.Property(TEXT("bAllowDeletion"), &UEdGraph::bAllowDeletion);
	Class.Property(TEXT("bAllowRenaming"), &UEdGraph::bAllowRenaming);
	Class.Property(TEXT("SubGraphs"), &UEdGraph::SubGraphs);
	Class.Property(TEXT("GraphGuid"), &UEdGraph::GraphGuid);
	Class.Property(TEXT("InterfaceGuid"), &UEdGraph::InterfaceGuid);
}

const UEdGraphSchema* UEdGraph::GetSchema() const
{
	UClass* const Class = Schema.Get();
	return Class ? static_cast<const UEdGraphSchema*>(Class->GetDefaultObject()) : nullptr;
}

UEdGraph* UEdGraph::GetOuterGraph(UObject* Obj)
{
	return Obj ? Obj->GetTypedOuter<UEdGraph>() : nullptr;
}

UEdGraphNode* UEdGraph::CreateNode(const UClass* NewNodeClass, bool bSelectNewNode)
{
	UEdGraphNode* const Node = NewObject<UEdGraphNode>(this, NewNodeClass, NAME_None, RF_Transactional);
	AddNode(Node, false, bSelectNewNode);
	return Node;
}

void UEdGraph::AddNode(UEdGraphNode* NodeToAdd, bool bUserAction, bool)
{
	if (NodeToAdd->GetOuter() != this)
	{
		const bool bNameIsFree = IsUniqueObjectName(NodeToAdd->GetFName(), this);
		NodeToAdd->Rename(bNameIsFree ? nullptr : *MakeUniqueObjectName(this, NodeToAdd->GetClass()).ToString(), this);
	}
	Nodes.Add(NodeToAdd);
	FEdGraphEditAction Action;
	Action.Action = GRAPHACTION_AddNode;
	Action.Graph = this;
	Action.bUserInvoked = bUserAction;
	Action.Nodes.Add(NodeToAdd);
	NotifyGraphChanged(Action);
}

bool UEdGraph::RemoveNode(UEdGraphNode* NodeToRemove, bool bBreakAllLinks, bool bAlwaysMarkDirty)
{
	Modify(bAlwaysMarkDirty);
	// From the end: what is thrown away again is mostly what was just made.
	const int32 Index = Nodes.FindLast(NodeToRemove);
	if (Index == INDEX_NONE)
	{
		return false;
	}
	Nodes.RemoveAt(Index);
	if (bBreakAllLinks)
	{
		NodeToRemove->BreakAllNodeLinks();
	}
	FEdGraphEditAction Action;
	Action.Action = GRAPHACTION_RemoveNode;
	Action.Graph = this;
	Action.Nodes.Add(NodeToRemove);
	NotifyGraphChanged(Action);
	NodeToRemove->MarkAsGarbage();
	return true;
}

FVector2D UEdGraph::GetGoodPlaceForNewNode()
{
	// Beside the node that was made last: a run that spawns many asks once for each, so the cost must not grow with the
	// graph. Layout moves the nodes later.
	static constexpr double Gap = 200.0;
	if (Nodes.IsEmpty())
	{
		return FVector2D(0.0, 0.0);
	}
	const UEdGraphNode* const Last = Nodes.Last();
	return FVector2D(Last->NodePosX + Last->NodeWidth + Gap, Last->NodePosY);
}

void UEdGraph::NotifyGraphChanged()
{
	FEdGraphEditAction Action;
	Action.Graph = this;
	NotifyGraphChanged(Action);
}

void UEdGraph::NotifyGraphChanged(const FEdGraphEditAction& Action)
{
	OnGraphChanged.Broadcast(Action);
}

void UEdGraph::NotifyNodeChanged(const UEdGraphNode*)
{
	NotifyGraphChanged();
}

void UEdGraph::GetAllChildrenGraphs(TArray<UEdGraph*>& Graphs) const
{
	for (UEdGraph* const Graph : SubGraphs)
	{
		if (Graph)
		{
			Graphs.Add(Graph);
			Graph->GetAllChildrenGraphs(Graphs);
		}
	}
}

void UEdGraph::PostLoad()
{
	UObject::PostLoad();
	Nodes.RemoveAll([](const TObjectPtr<UEdGraphNode>& Node) { return Node == nullptr; });
	TArray<UEdGraphNode*> Present;
	Present.Reserve(Nodes.Num());
	for (UEdGraphNode* const Node : Nodes)
	{
		Present.Add(Node);
	}
	UEdGraphNode::ResolvePinReferences(Present);
}

bool UEdGraph::Modify(bool bAlwaysMarkDirty)
{
	return UObject::Modify(bAlwaysMarkDirty);
}
