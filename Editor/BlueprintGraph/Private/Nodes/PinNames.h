#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

/** Names of pins that are numbered or lettered in a row. */
namespace PinNames
{
/** Renames a pin, and with it its split members, whose names start with its own. */
void Rename(UEdGraphPin& Pin, FName NewName);
/** Renames the pins one after the other: the row closes up behind a pin that went. */
void RenameInOrder(TConstArrayView<UEdGraphPin*> Pins, TFunctionRef<FName(int32)> NameAt);
} // namespace PinNames
