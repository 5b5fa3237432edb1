#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UBlueprint;
class UClass;
class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;
class UEdGraphSchema;

/**
 * Checks one graph of a Blueprint whose class has just been rebuilt: that it starts somewhere, that each node stands
 * for something, that links join types that go together, that unlinked inputs have a value they can have, and that
 * nothing executes in vain. Changes nothing.
 */
class FGraphValidator
{
public:
	FGraphValidator(UBlueprint& InBlueprint, UEdGraph& InGraph, FCompilerResultsLog& InLog);
	void Validate();

private:
	void CheckEntry();
	void CheckNode(UEdGraphNode& Node);
	void CheckPin(UEdGraphNode& Node, UEdGraphPin& Pin);
	void CheckLinks(UEdGraphPin& Pin);
	void CheckUnlinkedInput(UEdGraphNode& Node, UEdGraphPin& Pin);
	void CheckTarget(UEdGraphNode& Node, UEdGraphPin& Self);
	void CheckPlacement(UEdGraphNode& Node);
	/** Impure nodes that no entry's execution comes to, told at the first node of each such chain. */
	void CheckReachability();
	/** Pure nodes that need their own value. */
	void CheckDataCycles();

	UBlueprint& Blueprint;
	UEdGraph& Graph;
	FCompilerResultsLog& Log;
	const UEdGraphSchema* Schema;
	/** Whether the node that is being checked told of an error by itself. */
	bool bNodeComplained = false;
};
