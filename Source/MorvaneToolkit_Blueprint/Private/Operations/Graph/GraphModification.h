#pragma once

#include "BlueprintNodesCommonOperation.h"
#include "Utils/Request/GraphRecords.h"

/** The whole request of a modify or remove run. */
struct FBlueprintNodesCommonOperation::FBPGraphModification
{
	/** Unset: the graph itself is left alone. */
	TOptional<EBPNodeAction> GraphAction;
	/** Of the asset. */
	FString Path;
	/** The same asset once more: its last name or its path. */
	FString BlueprintName;
	FString GraphName;
	FString StateMachineName;
	FString FromStateName;
	FString ToStateName;
	TOptional<bool> bIsPure;
	/** Nodes to find rather than to spawn. */
	TArray<FBPNodeModification> NodesToSearch;
	TArray<FBPNodeModification> Nodes;
	TArray<FBPConnectionModification> Connections;
	TArray<FBPLocalVariableModification> LocalVariables;
	/** Read from a tool's request, and not made by another operation: such a run makes no graphs. */
	bool bFromTool = false;
};
