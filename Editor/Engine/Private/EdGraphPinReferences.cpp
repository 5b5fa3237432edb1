// Pins refer to one another by node name and pin id while they are text. This turns all such references of a set of
// nodes into pointers in one pass.

#include "EdGraph/EdGraphNode.h"

namespace PinReferences
{
/** Pins of the nodes by node name and id. Node names are unique within a graph or a pasted set. */
class FIndex
{
public:
	explicit FIndex(TConstArrayView<UEdGraphNode*> Nodes)
	{
		for (UEdGraphNode* const Node : Nodes)
		{
			for (UEdGraphPin* const Pin : Node->Pins)
			{
				Pins.Add(FKey{Node->GetFName(), Pin->PinId}, Pin);
			}
		}
	}
	UEdGraphPin* Find(const UEdGraphPin::FPendingReference& Reference) const
	{
		UEdGraphPin* const* const Found = Pins.Find(FKey{FName(Reference.NodeName), Reference.PinId});
		return Found ? *Found : nullptr;
	}

private:
	struct FKey
	{
		FName Node;
		FGuid Pin;
		bool operator==(const FKey& Other) const { return Node == Other.Node && Pin == Other.Pin; }
		friend uint32 GetTypeHash(const FKey& Key) { return HashCombine(GetTypeHash(Key.Node), GetTypeHash(Key.Pin)); }
	};
	TMap<FKey, UEdGraphPin*> Pins;
};

/** Text of any origin may claim anything; pins of one node stay a forest. */
static bool CanBeBelow(const UEdGraphPin& SubPin, const UEdGraphPin& Parent)
{
	if (SubPin.GetOwningNode() != Parent.GetOwningNode() || SubPin.ParentPin)
	{
		return false;
	}
	for (const UEdGraphPin* Above = &Parent; Above; Above = Above->ParentPin)
	{
		if (Above == &SubPin)
		{
			return false;
		}
	}
	return true;
}

static void Resolve(UEdGraphPin& Pin, const UEdGraphPin::FPendingReferences& Pending, const FIndex& Index)
{
	for (const UEdGraphPin::FPendingReference& Reference : Pending.LinkedTo)
	{
		// Both ends name each other. The order of each end's own list is kept, since it is the order of execution and
		// of layout; an end that the other side does not confirm is confirmed for it.
		if (UEdGraphPin* const Other = Index.Find(Reference); Other && Other != &Pin)
		{
			Pin.LinkedTo.AddUnique(Other);
		}
	}
	for (const UEdGraphPin::FPendingReference& Reference : Pending.SubPins)
	{
		if (UEdGraphPin* const SubPin = Index.Find(Reference); SubPin && CanBeBelow(*SubPin, Pin))
		{
			Pin.SubPins.AddUnique(SubPin);
			SubPin->ParentPin = &Pin;
		}
	}
	if (UEdGraphPin* const Parent = Pending.ParentPin ? Index.Find(*Pending.ParentPin) : nullptr;
		Parent && CanBeBelow(Pin, *Parent))
	{
		Parent->SubPins.AddUnique(&Pin);
		Pin.ParentPin = Parent;
	}
	if (Pending.PassThrough)
	{
		Pin.ReferencePassThroughConnection = Index.Find(*Pending.PassThrough);
	}
}
} // namespace PinReferences

void UEdGraphNode::ResolvePinReferences(TConstArrayView<UEdGraphNode*> Nodes)
{
	const PinReferences::FIndex Index(Nodes);
	TArray<UEdGraphPin*> Resolved;
	for (UEdGraphNode* const Node : Nodes)
	{
		for (UEdGraphPin* const Pin : Node->Pins)
		{
			if (const TUniquePtr<UEdGraphPin::FPendingReferences> Pending = MoveTemp(Pin->Pending))
			{
				PinReferences::Resolve(*Pin, *Pending, Index);
				Resolved.Add(Pin);
			}
		}
	}
	for (UEdGraphPin* const Pin : Resolved)
	{
		for (UEdGraphPin* const Other : Pin->LinkedTo)
		{
			Other->LinkedTo.AddUnique(Pin);
		}
	}
}
