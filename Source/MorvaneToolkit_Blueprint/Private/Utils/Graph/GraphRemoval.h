#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;
class UK2Node;

namespace Morvane
{
class FToolResult;
}

/** Deletes graphs with all that is nothing without them. */
namespace GraphRemoval
{
/**
 * A collapsed graph, a state machine, a state or a transition goes with its node, a dispatcher's signature with the
 * dispatcher. What still names something that the graph declared stays where it is and is named in a warning. False
 * after a warning: a graph that has to stay, such as that of an interface's function, is not touched.
 */
bool Remove(UBlueprint& Blueprint, UEdGraph& Graph, Morvane::FToolResult& Result);
/** Says which nodes name members that are gone; nothing when there are none. */
void TellUsers(const TArray<UK2Node*>& Users, const FString& What, Morvane::FToolResult& Result);
} // namespace GraphRemoval
