#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"
#include "Utils/Request/GraphRecords.h"

class UBlueprint;
class UEdGraph;
class UEdGraphNode;

/**
 * What populate runs have made that no save has written. A run that fails at its end leaves its nodes in memory, as an
 * editor does, and its caller tries it again: what a request asks for once more is taken back first, so that it is
 * there once. A save of the package makes everything in it a settled matter.
 */
namespace UnsavedRuns
{
/** One run, as it goes on; Keep hands it over when it ends without a save. */
class FRecorder
{
public:
	/** Before the first change to the graph. */
	void Begin(UEdGraph& InGraph);
	/** Before they are applied: those that are there already are nobody's to take back. */
	void AddLocalVariables(const TArray<FBPLocalVariableModification>& Records);
	/** A node that stood there before the run is nobody's to take back, and is passed over. */
	void AddNode(const FBPNodeModification& Record, UEdGraphNode& Node);
	void Keep();

private:
	struct FMadeNode
	{
		FString Key;
		TWeakObjectPtr<UEdGraphNode> Node;
	};

	TWeakObjectPtr<UEdGraph> Graph;
	/** For membership only; never followed. */
	TSet<const UEdGraphNode*> Before;
	TArray<FMadeNode> Nodes;
	/** Nodes that came along with the others: conversions between two pins. */
	TArray<TWeakObjectPtr<UEdGraphNode>> Companions;
	TArray<FString> LocalVariables;

	friend void TakeBack(UBlueprint& Blueprint, UEdGraph& Graph, const TArray<FBPNodeModification>& Nodes,
		const TArray<FBPLocalVariableModification>& LocalVariables);
	friend struct FTable;
};

/** Removes from the graph what an earlier, unsaved run made for the same request ids and for the same variables. */
void TakeBack(UBlueprint& Blueprint, UEdGraph& Graph, const TArray<FBPNodeModification>& Nodes,
	const TArray<FBPLocalVariableModification>& LocalVariables);
} // namespace UnsavedRuns
