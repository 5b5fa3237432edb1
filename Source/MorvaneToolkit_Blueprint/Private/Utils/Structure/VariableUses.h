#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraphNode;
class UK2Node_Variable;

/** The nodes that get and set the Blueprint's own variables, by name; gathered once for a batch. */
class FVariableUses
{
public:
	explicit FVariableUses(const UBlueprint& Blueprint);
	/** Those of the variable that stand in a graph still. */
	TArray<UEdGraphNode*> Find(FName Variable) const;
	/** "Get variable node in graph 'EventGraph' (NodeID: 1a2b3c4)" */
	static FString Describe(const UEdGraphNode& Node);

private:
	TMap<FName, TArray<UEdGraphNode*>> Nodes;
};
