#pragma once

#include "CoreMinimal.h"
#include "Spawning/CamMatching.h"
#include "Utils/Report/GraphSession.h"
#include "Utils/Request/GraphRecords.h"

class FSpawnLookups;
class UBlueprint;
class UEdGraph;
class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/**
 * Turns one node request into one real node or a reported failure: exactly what it names where it names enough, else
 * the best fit of the action menu. A failed node is a warning and never the end of a run.
 */
class FBlueprintSpawnWaterfall
{
public:
	/**
	 * Null after a report in the result. The menu may be null, which only a request that needs it minds, and so may
	 * CreatedNodes, the nodes that this run made earlier. Lookups is what the run's requests share.
	 */
	static UEdGraphNode* CreateNodeFromRecord(UEdGraph* Graph, const FBPNodeModification& Record, UBlueprint* Blueprint,
		const TSharedPtr<FSharedActionMenu>& SharedCAM, Morvane::FToolResult& Result, FSpawnLookups& Lookups,
		const FBPGraphSession::FNodeByRequestId* CreatedNodes);

	/** The road that a record asks for, for telemetry. Which road it takes is decided without it. */
	static FString GetSpawnMethodLabel(const FBPNodeModification& Record);
	/** The confidence that a menu match needs: the record's own where it gives one from 0 to 1, else 0.6. */
	static float GetMinimumConfidence(const FBPNodeModification& Record);
	/** An event by its class, or by the name that it gives, whatever road then refuses it. */
	static bool IsEventRequest(const FBPNodeModification& Record);
	/** Class and function are both named. */
	static bool IsDeterministicRequest(const FBPNodeModification& Record);
	static bool IsEquivalentNodeClass(
		const FString& Requested, const FString& Spawned, const UEdGraphNode* Node = nullptr);
};
