#pragma once

#include "CoreMinimal.h"

class UEdGraphPin;

/** Values of pins as authors type them, in the spelling that the pin's type is written in. */
namespace AuthoredValues
{
/**
 * The value as the schema takes it. Parts of a struct may stand in a row or by their names, in any brackets and any
 * case ("0, 90, 0", "[1 0 0]", "{yaw: 90}"), entries of an enum by the names they are shown by. What is not understood
 * comes back as it is, for the schema to refuse.
 */
FString ToPinText(const UEdGraphPin& Pin, const FString& Value);

/** How a value of the pin's struct is written, with an example; empty for pins that take no struct. */
FString DescribeForm(const UEdGraphPin& Pin);
} // namespace AuthoredValues
