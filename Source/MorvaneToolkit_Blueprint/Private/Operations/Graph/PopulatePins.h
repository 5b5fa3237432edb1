#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"
#include "Utils/Request/GraphRecords.h"

class FBPGraphSession;
class UBlueprint;
class UEdGraphNode;
class UEdGraphPin;

namespace Morvane
{
class FToolResult;
}

/**
 * The pin records of one populate run. Each one does something or is told: pins that are asked for are added, values
 * are set, and what could not be done is a warning with the node, the pin and the reason.
 */
class FPopulatePins
{
public:
	FPopulatePins(FBPGraphSession& InSession, Morvane::FToolResult& InResult)
		: Session(InSession)
		, Result(InResult)
	{
	}

	/** Right after the node stands. A value whose pin is not there may still find it when the links stand. */
	void Apply(UBlueprint& Blueprint, UEdGraphNode& Node, const FBPNodeModification& Record);
	/** When all links stand: sets what has found its pin by now, and tells of values that a link has cost. */
	void Finish();

private:
	struct FValue
	{
		TWeakObjectPtr<UEdGraphNode> Node;
		FString RequestId;
		FString PinName;
		FString Value;
		/** What the pin held when the value had been set. */
		FString Held;
	};

	void AddPin(UBlueprint& Blueprint, UEdGraphNode& Node, const FString& RequestId, const FBPPinModification& Pin);
	/** Adds pins until the one that is asked for is among them; false, with nothing added, when it is none of them. */
	static bool Grow(UEdGraphNode& Node, const FString& PinName);
	void AddEventParameter(
		UBlueprint& Blueprint, UEdGraphNode& Node, const FString& RequestId, const FBPPinModification& Pin);
	/** Pins may come with another's value, as those of a spawned class do, so it goes on while anything is found. */
	void SetValues(TArray<FValue>& Values);
	/** False when the pin is not there. */
	bool SetValue(const FValue& Value);
	void CheckKept(const FValue& Value);
	void TellMissing(const FValue& Value);
	void Warn(const TCHAR* Mark, const UEdGraphNode& Node, const FString& RequestId, const FString& PinName,
		const FString& Reason);

	FBPGraphSession& Session;
	Morvane::FToolResult& Result;
	TArray<FValue> Set;
	TArray<FValue> Missing;
};
