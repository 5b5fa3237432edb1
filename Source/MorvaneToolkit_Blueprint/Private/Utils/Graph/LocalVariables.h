#pragma once

#include "CoreMinimal.h"
#include "Utils/Request/GraphRecords.h"

class FJsonObject;
class FJsonValue;
class UBlueprint;
class UEdGraph;

namespace Morvane
{
class FToolResult;
}

/** What the apply step did, for telemetry. */
struct FBPLocalVariableOutcome
{
	bool HasAny() const { return Added + Modified + Removed > 0 || !Failures.IsEmpty(); }

	int32 Added = 0;
	int32 Modified = 0;
	int32 Removed = 0;
	/** The texts of the records that failed, in order. */
	TArray<FString> Failures;
};

/** Local variables of function graphs: from JSON to records, and from records onto the entry node. */
class FBlueprintLocalVariableUtils
{
public:
	/**
	 * Reads "local_variables" in either of its shapes: an object keyed by the variables' names, or an array of objects
	 * with a "name". A null value, or one of another type, holds no variables. False after an error in the result, at
	 * the first definition that is none.
	 */
	static bool Parse(const TSharedPtr<FJsonValue>& Value, TArray<FBPLocalVariableModification>& OutRecords,
		Morvane::FToolResult& Result);

	/** As the asset helpers read a pin type, after the legacy float rule. False when no type can be made of it. */
	static bool NormalizeType(const FJsonObject& Type, FEdGraphPinType& OutPinType);

	/**
	 * Applies the records in order; a bad one is reported and the others go on. False only for a null Blueprint or
	 * graph. A graph without an entry node has no local variables: a warning, and nothing is applied.
	 */
	static bool Apply(UBlueprint* Blueprint, UEdGraph* Graph, const TArray<FBPLocalVariableModification>& Records,
		FBPLocalVariableOutcome& OutOutcome, Morvane::FToolResult& Result);

	/** Writes the counts into the telemetry, and the failures where there are any; nothing when nothing was processed.
	 */
	static void WriteTelemetry(const FBPLocalVariableOutcome& Outcome, Morvane::FToolResult& Result);
};
