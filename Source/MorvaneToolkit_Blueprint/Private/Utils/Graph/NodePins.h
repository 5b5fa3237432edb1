#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "Utils/Request/GraphRecords.h"

class UEdGraphNode;
class UK2Node_EditablePinBase;

namespace Morvane
{
class FToolResult;
}

/**
 * What an action on one pin of a node means, by the class of the node. True when it was done; otherwise the reason is a
 * warning in the result and the node is as it was.
 */
namespace NodePins
{
bool Add(UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result);
bool Remove(UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result);
bool Modify(UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result);

/** "input" or "in", "output" or "out", ignoring case; unset for any other text. */
TOptional<EEdGraphPinDirection> ParsePinDirection(const FString& Text);

// What these share.

/** The pin of the name, else what the name may mean loosely, each time an input before an output; null after a warning.
 */
UEdGraphPin* FindOrWarn(const UEdGraphNode& Node, const FString& Name, Morvane::FToolResult& Result);
/** Whether an author may change the parameters that the node shows: those of a new function, not of an override. */
bool HasOwnParameters(const UK2Node_EditablePinBase& Node);
/** All nodes that show the same parameters as the node: the results of one function; else the node alone. */
TArray<UK2Node_EditablePinBase*> GetNodesOfSameParameters(UK2Node_EditablePinBase& Node);
/** The type that the record asks for; unset after a warning when it asks for none or for one that means nothing. */
TOptional<FEdGraphPinType> ReadType(
	const UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result);
/** Gives an input, or a parameter of the author's own, the record's value. */
bool SetValue(UEdGraphPin& Pin, const FBPPinModification& Record, Morvane::FToolResult& Result);
void WarnNotAdded(
	const UEdGraphNode& Node, const FBPPinModification& Record, const FString& Reason, Morvane::FToolResult& Result);
} // namespace NodePins
