#pragma once

#include "CoreMinimal.h"

/** Which words may be slips of the finger for one another. */
namespace KeywordTypos
{
/** Words longer than this are compared exactly. */
constexpr int32 MaxLength = 32;

/**
 * The number of edits (insert, delete, replace, swap of neighbours) when it is small enough for words of these lengths,
 * else INDEX_NONE. Short words have near neighbours that mean something else, so they tolerate less.
 */
int32 CountEdits(const FString& Left, const FString& Right);

/** The most edits that words of these lengths tolerate. */
int32 GetTolerance(int32 LeftLength, int32 RightLength);
} // namespace KeywordTypos
