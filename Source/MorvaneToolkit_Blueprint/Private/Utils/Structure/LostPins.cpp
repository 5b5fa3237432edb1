#include "Utils/Structure/LostPins.h"

#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "ToolResult.h"

namespace LostPins
{
static FString Describe(const UEdGraphPin& Pin)
{
	const UEdGraphNode* const Node = Pin.GetOwningNode();
	return FString::Printf(TEXT("pin '%s' of '%s' (NodeID: %s)"), *Pin.GetName(),
		*FBlueprintNodeUtils::GetFullTitle(Node), *FBlueprintNodeUtils::GetShortNodeId(Node));
}

static void Tell(const UEdGraphPin& Pin, const FString& Reason, Morvane::FToolResult& Result)
{
	const UEdGraph* const Graph = Pin.GetOwningNode()->GetGraph();
	const FString GraphName = Graph ? Graph->GetName() : FString();
	for (const UEdGraphPin* const Linked : Pin.LinkedTo)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("%s: the link between %s and %s in graph '%s' no longer fits and was removed"),
				*Reason, *Describe(Pin), *Describe(*Linked), *GraphName));
	}
	if (Pin.LinkedTo.IsEmpty() && Pin.SubPins.IsEmpty())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("%s: the value '%s' of %s in graph '%s' no longer fits and was removed"), *Reason,
				*Pin.GetDefaultAsString(), *Describe(Pin), *GraphName));
	}
}
} // namespace LostPins

FLostPins::FLostPins(const TArray<UEdGraphNode*>& InNodes)
	: Nodes(InNodes)
{
	for (const UEdGraphNode* const Node : Nodes)
	{
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			if (Pin->bOrphanedPin)
			{
				KnownOrphans.Add(Pin);
			}
		}
	}
}

void FLostPins::TakeOut(const FString& Reason, Morvane::FToolResult& Result) const
{
	for (UEdGraphNode* const Node : Nodes)
	{
		TArray<UEdGraphPin*> Lost = Node->Pins.FilterByPredicate(
			[this](const UEdGraphPin* Pin) { return Pin->bOrphanedPin && !KnownOrphans.Contains(Pin); });
		for (const UEdGraphPin* const Pin : Lost)
		{
			LostPins::Tell(*Pin, Reason, Result);
		}
		for (UEdGraphPin* const Pin : Lost)
		{
			Node->GetSchema()->BreakPinLinks(*Pin, true);
		}
		Lost.RemoveAll([](const UEdGraphPin* Pin) { return Pin->ParentPin != nullptr; });
		for (UEdGraphPin* const Pin : Lost)
		{
			Node->RemovePin(Pin);
		}
	}
}
