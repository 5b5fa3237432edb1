#pragma once

#include "CoreMinimal.h"
#include "Misc/Guid.h"

class UBlueprint;
class UEdGraph;
class UEdGraphNode;

/** Finds nodes and graphs by what requests call them. Silent: null when there is none. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintMatchingUtils
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

/**
 * FBlueprintMatchingUtils::FindNodeByGuid for many ids of one graph: the same answers, in constant time. It knows the
 * nodes that stood when it was made.
 */
class MORVANETOOLKIT_BLUEPRINT_API FNodeIdIndex
{
public:
	explicit FNodeIdIndex(const UEdGraph& Graph);
	UEdGraphNode* Find(const FString& Id) const;

private:
	TMap<FGuid, UEdGraphNode*> NodeByGuid;
	/** By the number that a short id's digits write. */
	TMap<uint32, UEdGraphNode*> NodeByShortId;
};
