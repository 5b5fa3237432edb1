#pragma once

#include "CoreMinimal.h"
#include "Templates/Function.h"
#include "UObject/WeakObjectPtr.h"

#include <atomic>

class FJsonObject;
class UBlueprint;
class UEdGraph;
class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/**
 * The run behind the tools that change and remove what a graph holds. One request carries any mix of graph action, node
 * changes, connection removals and local variables.
 */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintNodesCommonOperation
{
public:
	/** A whole request; see Operations/Graph/GraphModification.h. */
	struct FBPGraphModification;
	/** Called once, at the end of a run, however it ended. */
	using FCompletion = TFunction<void(Morvane::FToolResult&)>;

	/** A tool's call. What is wrong with one item is a warning, and the other items go on. */
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
	static void ModifyBlueprintFromJson(const FJsonObject& Args, Morvane::FToolResult& Result);
	/** The run itself, for a request that is read. */
	static void ProcessModification(
		const FBPGraphModification& Modification, Morvane::FToolResult& Result, const FCompletion& OnComplete);
	/** Makes the graph's function as pure as the request says; false after a warning. */
	static bool SetIsPureOnBlueprintFunctionGraph(const UBlueprint* Blueprint, const UEdGraph* Graph,
		const FBPGraphModification& Modification, Morvane::FToolResult& Result);

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
