#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UBlueprint;
class UClass;
class UEdGraph;

/**
 * Checks the ends of a function graph, after the class was rebuilt: one entry, return nodes that agree, parameters and
 * local variables that can be told apart, and that an override is one.
 */
namespace FunctionGraphs
{
/** Where the function of a graph may have been declared before. */
struct FOrigin
{
	/** The parent class, or the interface that the function belongs to. */
	const UClass* Class = nullptr;
	bool bInterface = false;
};

/** The function graphs of a Blueprint, its own and those of its interfaces. */
TMap<const UEdGraph*, FOrigin> Collect(const UBlueprint& Blueprint);
/** False for a function that has no entry, of which nothing can be executed. */
bool Check(const UBlueprint& Blueprint, const UEdGraph& Graph, const FOrigin& Origin, FCompilerResultsLog& Log);
} // namespace FunctionGraphs
