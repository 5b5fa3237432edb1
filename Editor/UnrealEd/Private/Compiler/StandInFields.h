#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UClass;
class UEdGraphNode;
class UEnum;
class UFunction;
class UStruct;

/** Makes single members of a stand-in from what a node shows of them. A member that is there already stays. */
namespace StandInFields
{
/** What a function looks like on the node: which of its pins are parameters, and which way they go. */
struct FParameters
{
	TArray<const UEdGraphPin*> Inputs;
	TArray<const UEdGraphPin*> Outputs;

	/** Pins of the direction, but for exec pins, the target and parts of split ones. */
	static TArray<const UEdGraphPin*> Of(const UEdGraphNode* Node, EEdGraphPinDirection Direction);
};

/** Null when there is one of the name, or a parameter has no type yet. */
UFunction* AddFunction(UClass& Class, FName Name, uint32 Flags, const FParameters& Parameters);
bool AddVariable(UClass& Class, FName Name, const FEdGraphPinType& Type);
bool AddObjectVariable(UClass& Class, FName Name, UClass* ObjectClass);
/** With its signature, of which the name is kept where the pins tell it. */
bool AddDispatcher(UClass& Class, FName Name, FName SignatureName, const TArray<const UEdGraphPin*>& Parameters);
/** Behind those that are there, since values are kept by number. */
void AddEntries(UEnum& Enum, const TArray<FName>& Names);
} // namespace StandInFields
