#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;

/**
 * The macro library that every Blueprint may use: loops, gates, validity. A macro library of real graphs at the
 * engine's path, made in memory when first asked for and never saved.
 */
namespace StandardMacros
{
/** "/Engine/EditorBlueprintResources/StandardMacros", the library's package. */
extern const TCHAR* const PackageName;

/** The library; made on the first call, which the catalogue has to precede. */
UBlueprint* GetLibrary();
/** A macro by its graph's name; null when there is none. */
UEdGraph* FindMacro(FName Name);
/** Lets the library be loaded by path like an asset. Start-up calls it after the loader of packages is set; calling it
 * again does nothing. */
void Install();
} // namespace StandardMacros
