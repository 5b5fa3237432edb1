#pragma once

#include "CoreMinimal.h"

/** Where a package's file is, by its name and the mounted folders. */
namespace PackageLookup
{
/** As FPackageText::FindPackageFile for a text package, wherever the file's folders lead. */
FString FindOnDisk(const FString& LongPackageName);
/** The file of a package, in whatever case its name and folders are spelled; empty when there is none. */
FString FindOnDisk(const FString& LongPackageName, const FString& Extension);
} // namespace PackageLookup
