#pragma once

#include "CoreMinimal.h"

namespace ReadStatus
{
/** Whether the first entry of an array at the top of a read document says that the item is not there. */
bool IsFirstMissing(const FString& Text, const TCHAR* Section);
} // namespace ReadStatus
