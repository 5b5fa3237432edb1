#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

class FBlueprintActionDatabaseRegistrar;
class UEdGraphNode;

/** What the nodes about enums share. */
namespace EnumPins
{
/** Indices of the entries that a graph shows: neither hidden nor the closing "_MAX". */
TArray<int32> VisibleEntries(const UEnum& Enum);
/** One menu action for each enum that a Blueprint may use; Bind gives the new node its enum. */
void AddActionForEachEnum(FBlueprintActionDatabaseRegistrar& ActionRegistrar, UClass* NodeClass,
	void (*Bind)(UEdGraphNode* Node, UEnum* Enum));
} // namespace EnumPins
