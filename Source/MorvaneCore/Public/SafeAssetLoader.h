#pragma once

#include "CoreMinimal.h"

/** Questions to ask of a path before an object is loaded from it. Loads nothing and reports nothing. */
class MORVANECORE_API FSafeAssetLoader
{
public:
	/**
	 * Whether the text has the form of an object or package path: it begins with '/', has a name behind every '/',
	 * stays below its root, and holds no character that a path cannot have. "Class'/Game/A.A'" counts by what stands in
	 * the quotes.
	 */
	static bool IsValidAssetPath(const FString& Path);

	/**
	 * Whether the asset registry, or memory, knows the asset that the path lies in. A class of an asset ("_C") counts
	 * as its asset; the form is that of IsValidAssetPath.
	 */
	static bool AssetExistsInRegistry(const FString& Path);
};
