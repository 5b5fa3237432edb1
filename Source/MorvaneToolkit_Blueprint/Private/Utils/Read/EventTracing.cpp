#include "Utils/Read/EventTracing.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_EventNodeInterface.h"

namespace EventTracing
{
/** An exec input is the way back. */
static bool IsWayBack(const UEdGraphPin& Pin)
{
	return Pin.Direction == EGPD_Input && Pin.PinType.PinCategory == UEdGraphSchema_K2::PC_Exec;
}

template <typename FVisit>
void ForEachNext(const UEdGraphNode& Node, const FVisit& Visit)
{
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (!Pin || IsWayBack(*Pin))
		{
			continue;
		}
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			if (UEdGraphNode* const Owner = Linked ? Linked->GetOwningNodeUnchecked() : nullptr)
			{
				Visit(Owner);
			}
		}
	}
}

bool IsEvent(const UEdGraphNode* Node)
{
	return Node && Node->GetClass()->ImplementsInterface(UK2Node_EventNodeInterface::StaticClass());
}
} // namespace EventTracing

FEventTrace::FEventTrace(const UEdGraph& Graph)
{
	for (UEdGraphNode* const Event : Graph.Nodes)
	{
		if (!EventTracing::IsEvent(Event))
		{
			continue;
		}
		TSet<const UEdGraphNode*> Visited = {Event};
		TArray<UEdGraphNode*> Queue = {Event};
		for (int32 Head = 0; Head < Queue.Num(); ++Head)
		{
			EventsByNode.FindOrAdd(Queue[Head]).Add(Event);
			EventTracing::ForEachNext(*Queue[Head],
				[&](UEdGraphNode* Next)
				{
					if (!EventTracing::IsEvent(Next) && !Visited.Contains(Next))
					{
						Visited.Add(Next);
						Queue.Add(Next);
					}
				});
		}
	}
}

TArray<UEdGraphNode*> FEventTrace::EventsOf(UEdGraphNode* Node) const
{
	if (const TArray<UEdGraphNode*>* const Events = EventsByNode.Find(Node))
	{
		return *Events;
	}
	// An event that a request was answered with may stand in another graph.
	return EventTracing::IsEvent(Node) ? TArray<UEdGraphNode*>{Node} : TArray<UEdGraphNode*>();
}
