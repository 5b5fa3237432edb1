#pragma once

#include "CoreMinimal.h"
#include "UObject/SoftObjectPath.h"
#include "UObject/TopLevelAssetPath.h"

/** What an asset has to be. Each list that is not empty has to be met; within a list one match is enough. */
struct FARFilter
{
	TArray<FName> PackageNames;
	TArray<FName> PackagePaths;
	TArray<FSoftObjectPath> SoftObjectPaths;
	TArray<FTopLevelAssetPath> ClassPaths;
	/** A tag without a value has to be there only. */
	TMap<FName, TOptional<FString>> TagsAndValues;
	/** With bRecursiveClasses: classes that are left out again, with those below them. */
	TSet<FTopLevelAssetPath> RecursiveClassPathsExclusionSet;
	bool bRecursivePaths = false;
	bool bRecursiveClasses = false;
	bool bIncludeOnlyOnDiskAssets = false;

	bool IsEmpty() const
	{
		return PackageNames.IsEmpty() && PackagePaths.IsEmpty() && SoftObjectPaths.IsEmpty() && ClassPaths.IsEmpty()
			&& TagsAndValues.IsEmpty();
	}
};
