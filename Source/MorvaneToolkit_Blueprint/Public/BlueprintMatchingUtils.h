#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;
class UEdGraphNode;

/** Finds nodes and graphs by what requests call them. Silent: null when there is none. */
class FBlueprintMatchingUtils
{
public:
	/**
	 * The first node, in the graph's order, of which the id is the 7-digit short id or the 32-digit guid, ignoring
	 * case. Text that is neither finds nothing.
	 */
	static UEdGraphNode* FindNodeByGuid(const UEdGraph* Graph, const FString& Id);

	/**
	 * The first graph of the name, ignoring case, among all graphs of the Blueprint and those nested in them.
	 * OutTopGraph receives the graph that it is nested in at the top, which is itself for one that is not nested.
	 */
	static UEdGraph* FindGraphByName(
		const UBlueprint* Blueprint, const FString& Name, UEdGraph** OutTopGraph = nullptr);
};
