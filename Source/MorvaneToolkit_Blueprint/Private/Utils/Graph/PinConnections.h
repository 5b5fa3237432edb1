#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "Utils/Request/GraphRecords.h"

class FBPGraphSession;
class UEdGraph;
class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/** Pins by the names that agents write, links between them, and their default values. Failures are warnings. */
class FBlueprintPinUtils
{
public:
	/**
	 * A visible pin that the name is an alias of goes before the name itself, that before a hidden pin by alias, which
	 * is never a target, and all three before the one visible pin that the editor shows so; a pin of the other
	 * direction comes after them and is counted in the session when there is one, and the one pin whose name ends in
	 * the words asked for is the last resort. Ignores case. Null for a null node and for a direction that is neither
	 * input nor output.
	 */
	static UEdGraphPin* FindPinWithAliases(
		const UEdGraphNode* Node, const FString& PinName, EEdGraphPinDirection Direction, FBPGraphSession* Session);

	/** To the telemetry: the pin that was asked for and those there are, which are answered too. */
	static TArray<FString> RecordLookupFailure(
		const UEdGraphNode& Node, const FString& PinName, EEdGraphPinDirection Direction, Morvane::FToolResult& Result);

	/** True when the link stands. Reports its own failure. */
	static bool ConnectPins(UEdGraph* Graph, UEdGraphNode* SourceNode, const FString& SourcePinName,
		UEdGraphNode* TargetNode, const FString& TargetPinName, Morvane::FToolResult& Result, FBPGraphSession* Session);

	/** True when both pins were found, also where no link stood between them. Reports either way. */
	static bool DisconnectPins(UEdGraph* Graph, UEdGraphNode* SourceNode, const FString& SourcePinName,
		UEdGraphNode* TargetNode, const FString& TargetPinName, Morvane::FToolResult& Result);

	/** True when the pin took the value; otherwise it keeps the one it had. Silent for a null pin, else reports. */
	static bool SetPinDefaultValue(UEdGraphPin* Pin, const FString& Value, Morvane::FToolResult& Result);

	/** Never fails: words that mean nothing give a type that no pin can link with, for the caller to check. */
	static FEdGraphPinType ConvertPinType(const FBPPinType& Record);
};
