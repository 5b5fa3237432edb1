#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "PopulatePins.h"
#include "Spawning/DeterministicSpawn.h"
#include "Spawning/SpawnWaterfall.h"
#include "UnsavedRuns.h"
#include "Utils/Read/EventTracing.h"
#include "Utils/Report/GraphSession.h"
#include "Utils/Request/GraphRecords.h"

class FNodeIdIndex;
class UBlueprint;
class UEdGraph;
class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/** One populate call, walked once from top to bottom. Steps that can end the run answer false, having reported. */
class FPopulateRun
{
public:
	FPopulateRun(const FJsonObject& InArgs, Morvane::FToolResult& InResult);
	~FPopulateRun();

	bool ReadArguments();
	bool LoadOrCreateBlueprint();
	bool FindGraph();
	void OpenForEdit();
	bool ReadLocalVariables();
	/** What is no node record is dropped in silence and counts nowhere. */
	void ReadNodes();
	/** What an earlier run that was not saved has made for this very request goes, so that it is there once. */
	void TakeBackUnsavedRun();
	bool ApplyLocalVariables();

	void SpawnCustomEvents();
	void SpawnOtherNodes();
	void ConnectPins();
	/** Learns which events, functions or delegates this run touched. */
	void TraceTouchedNodes();
	void ReportHalfConnectedNodes();
	void SummarizeSession();
	void FormatNodes();
	void DescribeCreatedNodes();

	void MarkModified();
	void TrackChanges();
	void ReportCounts();
	void ListCreatedNodes();
	void Save();

private:
	/** False, reported, for a graph of an interface, whose functions have no body. */
	bool CanHoldNodes() const;
	/** A function graph of the graph's name in a new Blueprint; false with a reason. */
	bool CreateFunction(UBlueprint& InBlueprint, FString& OutReason) const;

	/** Once for the whole batch, after all that the run declares and before the first node that is no event. */
	void EnsureMenu(const FBPNodeModification& Record);
	static bool IsCustomEventRequest(const FBPNodeModification& Record);
	/** Spawns and records; null for a node that failed. */
	UEdGraphNode* SpawnNode(const FBPNodeModification& Record);
	void ReadConnections();
	void Connect(const FBPConnectionModification& Connection);
	/** Null after the connection was blocked. */
	UEdGraphNode* ResolveEnd(const TCHAR* Label, const FString& Id, const FBPConnectionModification& Connection);
	void TraceNode(UEdGraphNode& Node);
	/** What a read shows of nodes in a graph that is no event page: the top graph that they stand in. */
	void TouchTopGraph();

	TSharedRef<FJsonObject> DescribeNode(const FBPCreatedNodeRecord& Record) const;
	void TrackEvents(const TCHAR* NameField, const TSet<FString>& Names);
	void TrackNames(const TCHAR* ReadTool, const TCHAR* NameField, const TSet<FString>& Names);

	const FJsonObject& Args;
	Morvane::FToolResult& Result;

	// Valid once the arguments are read.
	/** As given, and the Blueprint's own once it is loaded. */
	FString Path;
	/** Where an event graph of another name took the place of the one asked for, the name of that one. */
	FString GraphName;
	bool bIsEventGraph = false;
	/** Null when there are none. */
	const TArray<TSharedPtr<FJsonValue>>* NodeValues = nullptr;
	const TArray<TSharedPtr<FJsonValue>>* ConnectionValues = nullptr;

	// Valid once found.
	UBlueprint* Blueprint = nullptr;
	UEdGraph* Graph = nullptr;

	/** Null until a node may need it. */
	TSharedPtr<FSharedActionMenu> Menu;
	FSpawnLookups Lookups;
	TArray<FBPLocalVariableModification> LocalVariables;
	TArray<FBPNodeModification> Nodes;
	/** Those that ask for a link. */
	TArray<FBPConnectionModification> Connections;
	/** The graph's nodes by id, made when a connection first names one that this run did not spawn. */
	TUniquePtr<FNodeIdIndex> NodeIds;

	FBPGraphSession Session;
	UnsavedRuns::FRecorder Made;
	bool bSaved = false;
	FPopulatePins Pins;
	/** Made when the last link stands; null in a graph without events. */
	TUniquePtr<FEventTrace> Trace;
	int32 NumConnected = 0;
	UEdGraphNode* LastNode = nullptr;

	// What the caller may want to read again.
	TSet<FString> AvailableEvents;
	TSet<FString> FloatingNodes;
	TSet<FString> TouchedFunctions;
	TSet<FString> TouchedDelegates;
	TSet<FString> TouchedMacros;
};
