#pragma once

#include "CoreMinimal.h"

namespace QuotedValue
{
/** What a message shows of a value that a caller sent: all of it, or the beginning of one that would fill pages. */
inline FString Shorten(const FString& Text)
{
	constexpr int32 MaxShown = 200;
	return Text.Len() <= MaxShown ? Text : Text.Left(MaxShown) + TEXT("...");
}
} // namespace QuotedValue
