#pragma once

#include "CoreMinimal.h"

class FProperty;

namespace PinDefaultText
{
/**
 * A member's value as pins spell it: as object text does, but vectors and rotators as three numbers in a row and
 * transforms as three such rows.
 */
FString Of(const FProperty& Property, const void* Value);
} // namespace PinDefaultText
