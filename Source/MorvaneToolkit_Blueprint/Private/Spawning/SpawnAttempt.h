#pragma once

#include "CoreMinimal.h"
#include "Spawning/CamMatching.h"
#include "Utils/Report/GraphSession.h"
#include "Utils/Request/GraphRecords.h"

class FSpawnLookups;
class UBlueprint;
class UClass;
class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;
class UFunction;

namespace Morvane
{
class FToolResult;
}

/** One request on its way down the roads. Each road answers its node, or null after it has reported. */
class FSpawnAttempt
{
public:
	FSpawnAttempt(UEdGraph& InGraph, const FBPNodeModification& InRecord, UBlueprint& InBlueprint,
		const TSharedPtr<FSharedActionMenu>& InMenu, Morvane::FToolResult& InResult, FSpawnLookups& InLookups,
		const FBPGraphSession::FNodeByRequestId* InCreatedNodes);

	UEdGraphNode* Run();

private:
	bool IsVariableRequest() const;
	bool IsParentCallRequest() const;

	// The roads.
	UEdGraphNode* SpawnVariable();
	UEdGraphNode* SpawnEvent();
	UEdGraphNode* SpawnParentCall();
	UEdGraphNode* SpawnDeterministic();
	UEdGraphNode* SpawnFromMenu();

	// The menu road.
	UEdGraphNode* PerformBestAction();
	FString DescribeTopCandidates() const;
	/** Node, or in its place the node of a candidate of the same title that fits the request's pins better. */
	UEdGraphNode* ChooseNamesake(UEdGraphNode* Node);
	/** How many of the asked pins a node has, with the wire fitting where its other end stands already. */
	int32 CountFittingPins(const UEdGraphNode& Node) const;
	bool FitsWire(const UEdGraphPin& Pin, const FBPAskedPin& Asked) const;
	bool FitsVariable(const UEdGraphPin& Pin, const FString& Variable) const;

	// Nodes that are told by their class and one name, without a look at the menu.
	/** One that a graph has once and that stands already: where a function begins and ends, a timeline; else null. */
	UEdGraphNode* FindStandingNode();
	/** The event of an input axis or action that the project's settings name; null for other requests. */
	UEdGraphNode* SpawnInputEvent();

	// The variable road: a variable of the Blueprint itself, or one of another object.
	UEdGraphNode* SpawnOwnVariable();
	UEdGraphNode* SpawnCrossObjectVariable();
	/** A variable of the class that the request names, on the owner that the pin gives (may be null). */
	UEdGraphNode* SpawnVariableOf(UEdGraphPin* OwnerPin);
	UEdGraphNode* FindOwnerNode(FString& OutMethod) const;
	/** Null, silently, when the path names no class; what the loader has to say is a warning of its own. */
	UClass* LoadSourceClass(const FString& Path);
	void ReportMissingSourceClass(const FString& Path);
	/** The node stands all the same; without its target it reads this Blueprint, which is not what was asked for. */
	void WarnOfUnlinkedOwner(const UEdGraphNode& Node, const UEdGraphPin& OwnerPin);
	bool IsGetRequest() const;

	// The parent call road.
	/** False after a report. The name may be one that no function has, even an empty one. */
	bool ReadParentFunctionName(FString& OutName);
	UEdGraphNode* SpawnParentCallOf(UFunction& Function);

	/** The record's own position where it has one; only some roads honour it, since layout moves the others' nodes. */
	FVector2D GetRequestedPosition() const;
	/** What candidates are recorded for. */
	FString GetContext() const;
	UEdGraphNode* Fail(const FString& Text);

	UEdGraph& Graph;
	const FBPNodeModification& Record;
	UBlueprint& Blueprint;
	const TSharedPtr<FSharedActionMenu>& Menu;
	Morvane::FToolResult& Result;
	FSpawnLookups& Lookups;
	const FBPGraphSession::FNodeByRequestId* CreatedNodes;
	float MinimumConfidence;
	/** Best first; filled by the menu road. */
	TArray<FCamCandidate> Candidates;
	/** Where the node goes; set by the roads whose nodes are validated. */
	FVector2D Position = FVector2D(0.0, 0.0);
};

namespace SpawnReport
{
/** A node-level failure: to the telemetry first, then as a warning, so that one bad node fails no run. */
void Report(Morvane::FToolResult& Result, const FString& Text);
} // namespace SpawnReport
