#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;

/**
 * The macro libraries of the engine: loops, gates and validity for every Blueprint, and who has authority for actors
 * and their components. Libraries of real graphs at the engine's paths, made in memory when first asked for and never
 * saved.
 */
namespace StandardMacros
{
/** "/Engine/EditorBlueprintResources/StandardMacros", the package of the library for every Blueprint. */
extern const TCHAR* const PackageName;
/** The packages of the libraries for actors and for components. */
extern const TCHAR* const ActorPackageName;
extern const TCHAR* const ActorComponentPackageName;

/** The library of a package; made on the first call, which the catalogue has to precede. Null for other packages. */
UBlueprint* GetLibrary(const FString& LongPackageName = PackageName);
/** Makes all libraries that are not there yet. */
void MakeLibraries();
/** A macro by its graph's name; null when there is none. */
UEdGraph* FindMacro(FName Name, const FString& LongPackageName = PackageName);
/** Lets the libraries be loaded by path like assets. Start-up calls it after the loader of packages is set; calling it
 * again does nothing. */
void Install();
} // namespace StandardMacros
