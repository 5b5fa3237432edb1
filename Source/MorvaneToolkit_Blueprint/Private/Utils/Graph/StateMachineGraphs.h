#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;

/** The graphs of state machines, whose names mean something within their machine only. */
namespace StateMachineGraphs
{
/** What a request says of a graph; names ignore case, and empty ones say nothing. */
struct FPlace
{
	bool IsGiven() const { return !Machine.IsEmpty() || !FromState.IsEmpty() || !ToState.IsEmpty(); }

	FString Machine;
	FString FromState;
	FString ToState;
};

/**
 * The graph of the name at that place: the machine's own, that of one of its states, or, where states are named, the
 * rule of the transition between them, whatever its name; of several the one with the name. Null when there is none.
 */
UEdGraph* Find(const UBlueprint& Blueprint, const FString& GraphName, const FPlace& Place);
} // namespace StateMachineGraphs
