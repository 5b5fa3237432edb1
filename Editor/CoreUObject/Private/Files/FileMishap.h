#pragma once

#include "CoreMinimal.h"

#include <string_view>

/** What other programs make of a package file, told from its bytes. */
namespace FileMishap
{
/**
 * A phrase behind "the file" that names what happened to it and the way out: merge conflict markers, changed line ends,
 * a byte order mark, a pointer in place of the contents. Empty when nothing of the kind is seen; asked about files that
 * cannot be read only, since text inside a good one may look like anything.
 */
FString Find(std::string_view Bytes);
} // namespace FileMishap
