#pragma once

#include "CoreMinimal.h"

class FObjectTextTree;
class UClass;

/**
 * What a class that a package's Blueprint is derived from, and that is not here, must at least be: told by the kind of
 * asset, by whether it has components, and by what its graphs use of themselves. An event that they override and a
 * function that they call without a target belong to a class that the parent descends from.
 */
namespace LikelyParent
{
struct FLine
{
	/** The most special class that is known; never null. */
	UClass* Base;
	/** Native classes that declare what the Blueprint inherits, and that are not here: they stand between it and Base.
	 */
	TArray<FString> Unknown;
};

FLine Find(const FObjectTextTree& Tree, const FString& AssetClassPath);
} // namespace LikelyParent
