#pragma once

#include "CoreMinimal.h"

/** Taking object paths and reference texts apart. */
namespace ObjectPaths
{
/** The path inside "Class'path'", "Class'\"path\"'" or quotes around either; the text itself when it is a bare path. */
FStringView StripReference(FStringView Text);

struct FParts
{
	FStringView Package;
	/** What stands behind the first '.' or ':'; empty for a package path. */
	FStringView Object;
};
FParts Split(FStringView Path);
} // namespace ObjectPaths
