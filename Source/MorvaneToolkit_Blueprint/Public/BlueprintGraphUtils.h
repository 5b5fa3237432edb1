#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;
class UK2Node_FunctionEntry;
class UK2Node_FunctionResult;

namespace Morvane
{
class FToolResult;
}

/** What kind of graph a graph is, and the graphs and nodes that a Blueprint must have for an edit. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintGraphUtils
{
public:
	static bool IsUbergraphPage(const UBlueprint* Blueprint, const UEdGraph* Graph);
	static bool IsFunctionGraph(const UBlueprint* Blueprint, const UEdGraph* Graph);
	static bool IsDelegateSignatureGraph(const UBlueprint* Blueprint, const UEdGraph* Graph);

	/** The first of its kind in the graph, or null. */
	static UK2Node_FunctionEntry* FindFunctionEntry(const UEdGraph* Graph);
	static UK2Node_FunctionResult* FindFunctionResult(const UEdGraph* Graph);

	/**
	 * The event graph of the name, ignoring case; an empty name means "EventGraph". It is made where there is none.
	 * Where a graph of another kind has the name, the Blueprint's main event graph takes its place. Null after an error
	 * in the result.
	 */
	static UEdGraph* EnsureEventGraph(UBlueprint* Blueprint, const FString& Name, Morvane::FToolResult& Result);

	/**
	 * Whether the graph is whole: no node, pin or link is missing. Appends every problem that it finds. It judges the
	 * structure alone, not what a compile would say.
	 */
	static bool ValidateGraph(const UEdGraph* Graph, TArray<FString>& OutErrors);
};
