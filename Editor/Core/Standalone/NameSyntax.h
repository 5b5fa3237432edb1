#pragma once

#include "CoreMinimal.h"

/**
 * What cannot be a name, because it would not be the same name when it is read again, or not be the name that people
 * see. Each answers the reason as the rest of a sentence ("it holds the character ':'"), empty for a good name.
 */
namespace NameSyntax
{
/** Of a member, a graph or another part of an asset. */
FString FindFault(FStringView Name);
/** Of an asset or a folder: a file name on every system. Characters that paths cannot hold are not its matter. */
FString FindFileFault(FStringView Name);
} // namespace NameSyntax
