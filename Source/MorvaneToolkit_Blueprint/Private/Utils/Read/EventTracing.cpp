#include "Utils/Read/EventTracing.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_EventNodeInterface.h"

namespace EventTracing
{
enum class ETraceWay
{
	FromEvent,
	ToEvent,
};

/** Walking from an event, exec inputs are the way back; walking to one, exec outputs are. */
static bool IsWayBack(const UEdGraphPin& Pin, ETraceWay Way)
{
	const EEdGraphPinDirection Closed = Way == ETraceWay::FromEvent ? EGPD_Input : EGPD_Output;
	return Pin.Direction == Closed && Pin.PinType.PinCategory == UEdGraphSchema_K2::PC_Exec;
}

template <typename FVisit>
void ForEachNext(const UEdGraphNode& Node, ETraceWay Way, const FVisit& Visit)
{
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (!Pin || IsWayBack(*Pin, Way))
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

TArray<UEdGraphNode*> FindEventsOf(const UEdGraphNode& Node)
{
	if (IsEvent(&Node))
	{
		return {const_cast<UEdGraphNode*>(&Node)};
	}
	TSet<const UEdGraphNode*> Visited = {&Node};
	TArray<const UEdGraphNode*> Queue = {&Node};
	TSet<const UEdGraphNode*> Found;
	for (int32 Head = 0; Head < Queue.Num(); ++Head)
	{
		ForEachNext(*Queue[Head], ETraceWay::ToEvent,
			[&](UEdGraphNode* Next)
			{
				if (IsEvent(Next))
				{
					Found.Add(Next);
				}
				else if (!Visited.Contains(Next))
				{
					Visited.Add(Next);
					Queue.Add(Next);
				}
			});
	}

	TArray<UEdGraphNode*> Events;
	const UEdGraph* const Graph = Found.IsEmpty() ? nullptr : Node.GetGraph();
	if (Graph)
	{
		for (UEdGraphNode* const Candidate : Graph->Nodes)
		{
			if (Found.Contains(Candidate))
			{
				Events.Add(Candidate);
			}
		}
	}
	return Events;
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
			EventTracing::ForEachNext(*Queue[Head], EventTracing::ETraceWay::FromEvent,
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
