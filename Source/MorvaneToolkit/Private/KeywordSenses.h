#pragma once

#include "CoreMinimal.h"

/** Which different words mean the same to an author: inflections of one word, and synonyms. */
namespace KeywordSenses
{
/** The same for all words of one sense. Of two words that are not alike it says as much as a slip of the finger. */
FString GetSense(const FString& Word);
/** The sense of what undoes or denies a sense ("unload" of "load"); empty when there is no one word for it. */
FString GetOpposite(const FString& Sense);
} // namespace KeywordSenses
