#include "Utils/Graph/NodeRefresh.h"

#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema_K2.h"
#include "K2Node.h"

namespace NodeRefreshImpl
{
/** One end of a link, by what outlives the pin. */
struct FEnd
{
	explicit FEnd(const UEdGraphPin& Pin)
		: Node(Pin.GetOwningNode())
		, PinName(Pin.PinName)
		, Direction(Pin.Direction)
		, bExec(UEdGraphSchema_K2::IsExecPin(Pin))
	{
	}

	/** The pin of now; null for one that is gone or is kept for its links alone. */
	UEdGraphPin* Find() const
	{
		UEdGraphPin* const* const Found = Node->Pins.FindByPredicate([this](const UEdGraphPin* Pin)
			{ return Pin->PinName == PinName && Pin->Direction == Direction && !Pin->bOrphanedPin; });
		return Found ? *Found : nullptr;
	}
	bool IsExecOfPureNode() const
	{
		const UK2Node* const K2Node = Cast<UK2Node>(Node);
		return bExec && K2Node && K2Node->IsNodePure();
	}
	FString Describe() const { return NodeRefresh::Describe(*Node) + TEXT(".") + PinName.ToString(); }

	UEdGraphNode* Node;
	FName PinName;
	EEdGraphPinDirection Direction;
	bool bExec;
};

struct FLink
{
	bool IsLost() const
	{
		const UEdGraphPin* const From = Output.Find();
		UEdGraphPin* const To = Input.Find();
		const bool bStands = From && To && From->LinkedTo.Contains(To);
		return !bStands && !Output.IsExecOfPureNode() && !Input.IsExecOfPureNode();
	}

	FEnd Output;
	FEnd Input;
	/** As it read while it stood. */
	FString Text;
};

static TArray<FLink> CollectLinks(const TArray<UK2Node*>& Nodes)
{
	TArray<FLink> Links;
	for (const UK2Node* const Node : Nodes)
	{
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			for (const UEdGraphPin* const Linked : Pin->LinkedTo)
			{
				// A pin that is kept for its links alone lost them before.
				if (Pin->bOrphanedPin || Linked->bOrphanedPin)
				{
					continue;
				}
				const FEnd Here(*Pin);
				const FEnd There(*Linked);
				const bool bFromHere = Pin->Direction == EGPD_Output;
				const FEnd& Output = bFromHere ? Here : There;
				const FEnd& Input = bFromHere ? There : Here;
				Links.Add({Output, Input, Output.Describe() + TEXT(" -> ") + Input.Describe()});
			}
		}
	}
	return Links;
}
} // namespace NodeRefreshImpl

FString NodeRefresh::Describe(const UEdGraphNode& Node)
{
	const FString Title = Node.GetNodeTitle(ENodeTitleType::ListView).ToString();
	return FString::Printf(TEXT("%s (%s)"), Title.IsEmpty() ? *Node.GetClass()->GetName() : *Title,
		*FBlueprintNodeUtils::GetShortNodeId(&Node));
}

FString NodeRefresh::DescribeAll(const TArray<UK2Node*>& Nodes)
{
	TArray<FString> Texts;
	for (const UK2Node* const Node : Nodes)
	{
		Texts.Add(Describe(*Node));
	}
	return FString::Join(Texts, TEXT(", "));
}

TArray<FString> NodeRefresh::Reconstruct(const TArray<UK2Node*>& Nodes)
{
	const TArray<NodeRefreshImpl::FLink> Links = NodeRefreshImpl::CollectLinks(Nodes);
	for (UK2Node* const Node : Nodes)
	{
		Node->ReconstructNode();
	}
	TArray<FString> Lost;
	TSet<FString> Told;
	for (const NodeRefreshImpl::FLink& Link : Links)
	{
		if (Link.IsLost() && !Told.Contains(Link.Text))
		{
			Told.Add(Link.Text);
			Lost.Add(Link.Text);
		}
	}
	return Lost;
}
