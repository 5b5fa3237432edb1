#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphSchema.h"

namespace GraphFlow
{
class FGraphUse;
}

class FCompilerResultsLog;
class FMacroUse;
class FProperty;
class FUnresolvedUse;
class UBlueprint;
class UClass;
class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;
class UFunction;
class UK2Node_CallFunction;
class UK2Node_Variable;

/**
 * Checks the nodes and pins of one graph of a Blueprint whose class has just been rebuilt: that each node stands for
 * something and may stand there, that links join types that go together, and that unlinked inputs have a value they can
 * have. Changes nothing.
 */
class FGraphValidator
{
public:
	FGraphValidator(UBlueprint& InBlueprint, UEdGraph& InGraph, FMacroUse& InMacros, FUnresolvedUse& InUnresolved,
		FCompilerResultsLog& InLog);
	/** Passes over what takes no part in the graph; null when that cannot be told. */
	void Validate(const GraphFlow::FGraphUse* Use);
	EGraphType GetGraphType() const { return GraphType; }

private:
	void CheckNode(UEdGraphNode& Node);
	void CheckMissing(UEdGraphNode& Node);
	/** Whether anything that the node refers to is not here without being an error. Such a node is counted and, but for
	 * its links, not judged. */
	bool NoteUnresolved(UEdGraphNode& Node);
	void VisitReferences(UEdGraphNode& Node, TFunctionRef<void(const UObject*)> Visit);
	const TArray<const FProperty*>& ReferenceProperties(const UEdGraphNode& Node);
	void CheckPlacement(const UEdGraphNode& Node);
	void CheckEvent(const UEdGraphNode& Node);
	void CheckMacro(const UEdGraphNode& Node);
	void CheckAccess(const UEdGraphNode& Node);
	void CheckFunctionAccess(const UK2Node_CallFunction& Call);
	void CheckVariableAccess(const UK2Node_Variable& Node);
	void CheckPin(UEdGraphNode& Node, UEdGraphPin& Pin);
	void CheckOrphan(const UEdGraphNode& Node, const UEdGraphPin& Pin);
	void CheckWildcard(const UEdGraphNode& Node, const UEdGraphPin& Pin);
	void CheckParameterType(const UEdGraphNode& Node, const UEdGraphPin& Pin);
	void CheckLinks(UEdGraphPin& Pin);
	void CheckLinkTypes(const UEdGraphPin& Output, const UEdGraphPin& Input);
	void CheckUnlinkedInput(UEdGraphNode& Node, UEdGraphPin& Pin);
	void CheckTarget(const UEdGraphNode& Node, const UEdGraphPin& Self);

	UBlueprint& Blueprint;
	UEdGraph& Graph;
	FMacroUse& Macros;
	FUnresolvedUse& Unresolved;
	FCompilerResultsLog& Log;
	const UEdGraphSchema* Schema;
	/** Asked for once, as the answer takes a look at every graph of the Blueprint. */
	EGraphType GraphType = GT_MAX;
	/** Whether the graph's function promised not to change its object. */
	bool bConstFunction = false;
	TMap<const UClass*, TArray<const FProperty*>> PropertiesByClass;
	/** Whether the node that is being checked told of an error by itself. */
	bool bNodeComplained = false;
};
