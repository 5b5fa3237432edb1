#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

#include <atomic>

class FJsonObject;
class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/**
 * The run behind the tools that change and remove what a graph holds. One request carries any mix of graph action, node
 * changes, connection removals and local variables.
 */
class FBlueprintNodesCommonOperation
{
public:
	/** A whole request; see Utils/Records/GraphModification.h. */
	struct FBPGraphModification;

	/**
	 * Reads a whole request. False when it has to be refused, with the reason in the result. An action word that is not
	 * known is refused at the graph and at every entry; an entry that is not an object is dropped in silence.
	 */
	static bool ParseJsonToModification(
		const FJsonObject& Json, FBPGraphModification& OutModification, Morvane::FToolResult& Result);

	/** Empties all of the below. Every run starts with it. */
	static void ResetRunState();

	// The one mutable state of the module: what the current run has done. It outlives the run, and means nothing
	// afterwards.

	static TMap<FString, TWeakObjectPtr<UEdGraphNode>> CreatedNodes;
	static TSet<FString> ModifiedNodeIds;
	/** Only those whose change was structural: the formatter moves these. */
	static TArray<TWeakObjectPtr<UEdGraphNode>> ModifiedNodes;
	static std::atomic<int32> NodesModified;
	static std::atomic<int32> NodesRemoved;
	static std::atomic<int32> ConnectionsRemoved;
	static std::atomic<int32> LocalVariablesProcessed;
};
