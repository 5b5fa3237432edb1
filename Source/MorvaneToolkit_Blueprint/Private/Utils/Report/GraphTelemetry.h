#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}

/**
 * Writers of the "telemetry" object in a result's data. Each makes the object where it is missing, so that any step of
 * a run may be the first to have something to say. Telemetry is only ever added; it is never the reason for a failure.
 */
namespace GraphTelemetry
{
/** The object itself, for a run's own summary keys. */
TSharedRef<FJsonObject> Ensure(Morvane::FToolResult& Result);
/** Null where nothing has been said yet. */
TSharedPtr<FJsonObject> Find(const Morvane::FToolResult& Result);

void SetString(Morvane::FToolResult& Result, const FString& Key, const FString& Value);
void SetNumber(Morvane::FToolResult& Result, const FString& Key, double Value);
/** Raises a number by one, from 0 where it is missing. */
void Increment(Morvane::FToolResult& Result, const FString& Key);
/** Appends to an array, making it where it is missing. Constant time: runs append once a node. */
void Append(Morvane::FToolResult& Result, const FString& Key, const TSharedRef<FJsonObject>& Entry);

/** "spawn_methods": the count of the method goes up. */
void RecordSpawnMethod(Morvane::FToolResult& Result, const FString& Method);
/** "validation_failures": an object with the text as "message". */
void RecordValidationFailure(Morvane::FToolResult& Result, const FString& Text);
/** "node_creation_latency_ms". */
void RecordNodeCreationLatency(
	Morvane::FToolResult& Result, const FString& NodeId, const FString& NodeTitle, double DurationMs);
/** "pin_direction_fallbacks". */
void RecordPinDirectionFallback(Morvane::FToolResult& Result);
/** "connection_failures". */
void RecordConnectionFailure(Morvane::FToolResult& Result, const FString& SourceNode, const FString& SourcePin,
	const FString& TargetNode, const FString& TargetPin, const FString& Reason);
/** "pin_lookup_failures": what was asked of which node, and what could have been. */
void RecordPinLookupFailure(
	Morvane::FToolResult& Result, const FString& Node, const FString& Asked, const TArray<FString>& Available);
/** "match_hints": what the author of a refused request may not know. Nothing is written for an empty hint. */
void RecordMatchHint(Morvane::FToolResult& Result, const FString& Context, const FString& Hint);
/** "half_connected_nodes". */
void RecordHalfConnectedNode(Morvane::FToolResult& Result, const FString& NodeId, const FString& NodeTitle,
	int32 ExpectedConnections, int32 ActualConnections);
} // namespace GraphTelemetry
