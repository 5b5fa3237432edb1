#pragma once

#include "CoreMinimal.h"
#include "Spawning/CamMatching.h"
#include "Utils/Request/GraphRecords.h"

class UBlueprint;
class UEdGraph;
class UEdGraphNode;
class UK2Node_EditablePinBase;
class UK2Node_Event;

namespace Morvane
{
class FToolResult;
}

/**
 * Looks at a node that was just spawned: completes it with what the request's metadata say, and takes it out of the
 * graph again when it cannot be what was meant. The checks run in a fixed order, since the first to object reports.
 */
class FPostSpawnValidation
{
public:
	FPostSpawnValidation(UEdGraph& InGraph, const FBPNodeModification& InRecord, UBlueprint& InBlueprint,
		const TArray<FCamCandidate>& InCandidates, const FVector2D& InPosition, const FString& InContext,
		Morvane::FToolResult& InResult)
		: Graph(InGraph)
		, Record(InRecord)
		, Blueprint(InBlueprint)
		, Candidates(InCandidates)
		, Position(InPosition)
		, Context(InContext)
		, Result(InResult)
	{
	}

	/** The node, or null after a report; a discarded node leaves nothing behind. */
	UEdGraphNode* Run(UEdGraphNode* InNode);

private:
	// Each check answers whether the node may stay.
	bool HasRequestedClass();
	bool TakesStateName();
	bool HasRequestedFunction();
	bool HasExistingFunction();
	bool HasExistingEvent();
	/** Whether the event answers a delegate that is there, of a component or an actor that is there. */
	bool IsBoundToSomething(const UK2Node_Event& Event) const;
	bool TakesEventName();
	bool HasCastTarget();
	bool TakesPosition();
	bool TakesMathExpression();
	bool TakesFunctionPins();
	bool HasExistingVariable();
	bool TakesBindingFunction();
	bool CountsEnumComparison();

	bool AddFunctionPin(UK2Node_EditablePinBase& Terminator, const FBPPinModification& Pin, bool bParameter);
	void ReportMissingBinding(const FString& FunctionName, const UClass& Scope, const TArray<FString>& Compatible);

	/** Takes the node out, reports, and answers that it may not stay. */
	bool Discard(const FString& Text);
	/** Discards a node in place of which a better request would find another: what was on offer is told as well. */
	bool DiscardWithCandidates(const FString& Text);

	UEdGraph& Graph;
	const FBPNodeModification& Record;
	UBlueprint& Blueprint;
	const TArray<FCamCandidate>& Candidates;
	FVector2D Position;
	FString Context;
	Morvane::FToolResult& Result;
	UEdGraphNode* Node = nullptr;
};
