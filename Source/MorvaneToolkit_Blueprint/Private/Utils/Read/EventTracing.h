#pragma once

#include "CoreMinimal.h"

class UEdGraph;
class UEdGraphNode;

namespace EventTracing
{
bool IsEvent(const UEdGraphNode* Node);
} // namespace EventTracing

/**
 * Which events reach which nodes of a graph. A node belongs to an event when a walk from the event meets it: along
 * output pins of all kinds and against data inputs, never back through an exec input and never through another event.
 * So a pure node that feeds a node of the flow belongs to it, and two events may share nodes. An event belongs to
 * itself alone.
 *
 * All nodes are traced at once, at the cost of the flows together. A run over many nodes makes one trace when its last
 * link stands, and asks it for each node that it touched: links only ever attach nodes to events, so what a node
 * reached at some moment of the run is reached by a touched node at its end. A trace does not follow later changes of
 * the graph.
 */
class FEventTrace
{
public:
	explicit FEventTrace(const UEdGraph& Graph);

	/** In graph order; empty for a floating node. Of the nodes of other graphs only the events have one: themselves. */
	TArray<UEdGraphNode*> EventsOf(UEdGraphNode* Node) const;

private:
	TMap<const UEdGraphNode*, TArray<UEdGraphNode*>> EventsByNode;
};
