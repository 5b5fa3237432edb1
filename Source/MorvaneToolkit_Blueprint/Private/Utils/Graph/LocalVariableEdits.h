#pragma once

#include "CoreMinimal.h"
#include "Utils/Request/GraphRecords.h"

class UBlueprint;
class UEdGraph;
class UK2Node_FunctionEntry;

namespace Morvane
{
class FToolResult;
}

/** Changes to the local variables of a function that stands, with the nodes that use them. All failures are warnings.
 */
namespace LocalVariableEdits
{
struct FOutcome
{
	int32 Processed = 0;
	int32 Failed = 0;
	/** The node that keeps the variables, when any was processed; else null. */
	UK2Node_FunctionEntry* Entry = nullptr;
};

/**
 * Applies the records in order. Nodes of a variable that is removed stay, and are named; so are links that do not fit a
 * variable of another type. A graph collapsed in a function stands for the function. The graph may be null.
 */
FOutcome Apply(UBlueprint& Blueprint, UEdGraph* Graph, const TArray<FBPLocalVariableModification>& Records,
	Morvane::FToolResult& Result);
} // namespace LocalVariableEdits
