#pragma once

#include "CoreMinimal.h"

/** Assets that are no Blueprints, which agents take for ones since they stand in the same list. */
namespace OtherAssets
{
/**
 * What the asset at the path is, what is in it where that is a list of names, and how a Blueprint uses it; empty where
 * nothing can be loaded.
 */
FString Describe(const FString& Path);
} // namespace OtherAssets
