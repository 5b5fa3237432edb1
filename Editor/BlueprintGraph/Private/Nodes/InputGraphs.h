#pragma once

#include "CoreMinimal.h"

class UEdGraph;

/** Where nodes that answer a player's input may stand. */
namespace InputGraphs
{
/** Whether the graph is one of a Blueprint that a player's input reaches: an actor's or a widget's. */
bool IsOfInputTaker(const UEdGraph* Graph);
/** Whether the graph holds the events of such a Blueprint. */
bool TakesInput(const UEdGraph* Graph);
} // namespace InputGraphs
