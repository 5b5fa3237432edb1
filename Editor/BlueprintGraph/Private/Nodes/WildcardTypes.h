#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

/** How pins of open type take the type of what is linked to them, and let go of it. */
namespace WildcardTypes
{
/** The type of a pin that has none yet. */
FEdGraphPinType Open();
bool IsOpen(const FEdGraphPinType& Type);
/** The first type that a pin of the list gets from its links; false when nothing typed is linked. */
bool FindLinkedType(const TArray<UEdGraphPin*>& Pins, FEdGraphPinType& OutType);
/** Gives the pin the element type, and leaves its container, reference and const flags. True when that changed it. */
bool SetTerminal(UEdGraphPin& Pin, const FEdGraphPinType& Type);
} // namespace WildcardTypes
