#pragma once

#include "CoreMinimal.h"

class UClass;
class UEdGraphPin;
class UK2Node;

/** Inputs by which an author chooses a class. */
namespace ClassPins
{
/** The class that the pin chooses: its default, or that of what is linked. Null without one; the pin may be null. */
UClass* GetChosen(const UEdGraphPin* Pin);
/** The input of a name among the given pins, or among the node's own where none are given: a node that is made anew
 * looks at the pins it had. */
UEdGraphPin* FindInput(const UK2Node& Node, const TArray<UEdGraphPin*>* PinsToSearch, FName Name);
} // namespace ClassPins
