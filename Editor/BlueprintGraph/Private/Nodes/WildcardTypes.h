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
/** Whether an author typed a value into one of the inputs. Such a value keeps their type. */
bool IsAnyTypedIn(const TArray<UEdGraphPin*>& Pins);
/** Gives the pin the element type, and leaves its container, reference and const flags. True when that changed it. */
bool SetTerminal(UEdGraphPin& Pin, const FEdGraphPinType& Type);
/** As SetTerminal; an input gets the type's own default, unless what an author typed in suits the new type too. */
bool Adopt(UEdGraphPin& Pin, const FEdGraphPinType& Type);
/** As Adopt, with container and flags: for pins that pass whole containers on. */
bool AdoptWhole(UEdGraphPin& Pin, const FEdGraphPinType& Type);
/**
 * For new pins that are open: the type and the generated default that the old pin of their name had. A type that
 * came from an author's value has no other source, and links are looked at again only when the pins are complete.
 */
void KeepTypes(const TArray<UEdGraphPin*>& NewPins, const TArray<UEdGraphPin*>& OldPins);
} // namespace WildcardTypes
