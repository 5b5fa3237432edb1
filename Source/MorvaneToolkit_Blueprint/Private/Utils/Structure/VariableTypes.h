#pragma once

#include "CoreMinimal.h"

class FStructureEntry;
class UBlueprint;
struct FEdGraphPinType;

/** The types that member variables are given. */
namespace VariableTypes
{
/** The "type" of an entry. False, with the whole message in the fault, when no variable can be of it. */
bool Read(UBlueprint& Blueprint, const FString& Name, const FStructureEntry& Entry, FEdGraphPinType& OutType,
	FString& OutFault);
/** Whether a variable of the type is an event dispatcher or a reference to an event. */
bool IsDelegate(const FEdGraphPinType& Type);
} // namespace VariableTypes
