#pragma once

#include "AssetRegistry/AssetData.h"

namespace ContentScan
{
/** Package files below a folder, in the order of their paths. Hidden files, and links that lead out of the project, are
 * left out. */
TArray<FString> FindPackageFiles(const FString& Directory);

/** What a package file's header tells. False, with a warning in the log, for a file that cannot be read or stands in
 * the wrong place. */
bool ReadAsset(const FString& Filename, FAssetData& OutAsset);

/** Whether the file names an object of the package. */
bool NamesPackage(const FString& Filename, const FString& PackageName);
} // namespace ContentScan
