#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UBlueprint;
class UEdGraph;

/**
 * Checks the ends of a function graph, after the class was rebuilt: one entry, return nodes that agree, parameters and
 * local variables that can be told apart, and that an override is one.
 */
namespace FunctionGraphs
{
/** False for a function that has no entry, of which nothing can be executed. Graphs of other kinds pass. */
bool Check(const UBlueprint& Blueprint, const UEdGraph& Graph, FCompilerResultsLog& Log);
} // namespace FunctionGraphs
