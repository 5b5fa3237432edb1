#pragma once

#include "CoreMinimal.h"

class UEdGraphNode;

/** Which nodes, by guid, stand for a change where the whole graph is too long to show. */
namespace ShownNodes
{
/** The node, and what it stands in: a node of a collapsed graph is reached through those around it. */
TArray<FString> Of(const UEdGraphNode& Node);
/** The same with the nodes that it is linked to, unless it is the hub of a great many. */
TArray<FString> WithNeighbors(const UEdGraphNode& Node);
} // namespace ShownNodes
