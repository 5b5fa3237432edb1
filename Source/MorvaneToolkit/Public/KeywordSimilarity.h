#pragma once

#include "CoreMinimal.h"

/** What two lists of keywords have in common, seen from the first. */
struct FKeywordSimilarity
{
	/** The keywords of the first list that were found in the second, in the first list's order and spelling. */
	TArray<FString> CommonKeywords;
	int32 CommonCount = 0;
	/** How far the second list is from being just what the first asked for; smaller is better. Compare it at equal
	 * counts. */
	int32 Distance = 0;
};
