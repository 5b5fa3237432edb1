#pragma once

#include "CoreMinimal.h"
#include "Utils/Request/GraphRecords.h"

class UBlueprint;
class UEdGraph;
class UK2Node_FunctionEntry;
class UK2Node_FunctionResult;

namespace Morvane
{
class FToolResult;
}

/** What became of a request for a function of some name. */
enum class EFunctionGraphOutcome : uint8
{
	/** The reason stands in the result. */
	Failure,
	/** The parent implements the name as an event, so there is an event now, or was before, and no function. */
	HandledAsEvent,
	GraphCreated,
};

/** Function graphs and delegate signature graphs: found or made, with entry, result and pins. All report their
 * failures. */
class FBlueprintFunctionGraphUtils
{
public:
	/**
	 * The function graph of the name with its entry, and with a result node where one is wanted or stands. It is made,
	 * as a new function or an override, where the Blueprint has none. True with a null graph: an event took its place.
	 */
	static bool EnsureFunctionGraph(UBlueprint* Blueprint, const FString& Name, UEdGraph*& OutGraph,
		UK2Node_FunctionEntry*& OutEntry, UK2Node_FunctionResult*& OutResult, Morvane::FToolResult& Result,
		bool bWantsResultNode);

	/** Decides what a name that no graph has really needs, and makes it. */
	static EFunctionGraphOutcome CreateOrOverride(
		UBlueprint& Blueprint, const FString& Name, UEdGraph*& OutGraph, Morvane::FToolResult& Result);

	/**
	 * Adds the request's parameters and return value to the graph's pins; what is there stays. A pin of the same name
	 * and type counts as done. The signature of an override is its parent's, so pins that such a graph has already are
	 * not added again whatever their type.
	 */
	static bool ConfigureGraphSignature(
		UBlueprint* Blueprint, UEdGraph* Graph, const FBPFunctionModification& Request, Morvane::FToolResult& Result);

	/** How many nodes and pins the graph's ends have: another number after a request than before it tells that it gave
	 * the graph something. */
	static int32 CountEnds(const UEdGraph& Graph);

	/** The delegate signature graph of the name, made where there is none. */
	static bool EnsureDelegateSignature(
		UBlueprint* Blueprint, const FString& Name, UEdGraph*& OutGraph, Morvane::FToolResult& Result);
};
