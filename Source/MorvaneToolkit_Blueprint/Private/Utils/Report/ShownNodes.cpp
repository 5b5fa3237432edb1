#include "Utils/Report/ShownNodes.h"

#include "EdGraph/EdGraphNode.h"

namespace ShownNodes
{
constexpr int32 MostNeighbors = 50;

TArray<FString> Of(const UEdGraphNode& Node)
{
	TArray<FString> Guids;
	for (const UEdGraphNode* Each = &Node; Each; Each = Each->GetTypedOuter<UEdGraphNode>())
	{
		Guids.Add(Each->NodeGuid.ToString());
	}
	return Guids;
}

TArray<FString> WithNeighbors(const UEdGraphNode& Node)
{
	TArray<FString> Guids = Of(Node);
	int32 NumLinks = 0;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		NumLinks += Pin ? Pin->LinkedTo.Num() : 0;
	}
	for (const UEdGraphPin* const Pin : NumLinks <= MostNeighbors ? Node.Pins : TArray<UEdGraphPin*>())
	{
		for (const UEdGraphPin* const Linked : Pin ? Pin->LinkedTo : TArray<UEdGraphPin*>())
		{
			if (const UEdGraphNode* const Other = Linked ? Linked->GetOwningNodeUnchecked() : nullptr)
			{
				Guids.Add(Other->NodeGuid.ToString());
			}
		}
	}
	return Guids;
}
} // namespace ShownNodes
