#pragma once

#include "CoreMinimal.h"

class UClass;

/** How the text of a request became a class, or what was tried in vain. */
struct FClassResolution
{
	/** Null when the text names no class. */
	UClass* Class = nullptr;
	/** "blueprint_path" or "direct_path" by the look of the text, or "asset_registry". */
	FString Method;
	/** The paths that were tried, in order. */
	TArray<FString> Variants;
	/** Why the asset registry could not tell which Blueprint is meant; may be set beside a class found later. */
	FString Error;
};

/** From class names as agents write them to classes. Silent: what is told and to whom is the caller's business. */
namespace ClassResolution
{
/** The paths and names that a class text may stand for, in the order in which they are tried. */
TArray<FString> MakeVariants(const FString& ClassText);

/** Variants first, then Blueprints by name, then any class of that name in memory. Loads what it needs. */
FClassResolution Resolve(const FString& ClassText);

/**
 * The class of the Blueprint of that name, which may stand at the end of a path or have the "_C" of a class. Null when
 * there is none, and null with an error when there are several. By name alone: Resolve asks it for no full path, which
 * names one Blueprint or none.
 */
UClass* ResolveBlueprintClassByName(const FString& Name, FString& OutError);

/** "    - Variant" for the first ten, a line each, and a line with the number of those left out. */
FString DescribeVariants(const TArray<FString>& Variants);
} // namespace ClassResolution
