#pragma once

#include "CoreMinimal.h"
#include "UObject/TopLevelAssetPath.h"

/**
 * The assets that come with the engine and that authors refer to: basic shapes, default materials, fonts, sounds. They
 * exist by reference: loading one by its path gives an object of its class and name, without what the engine's file
 * holds. What refers to them is saved as a reference; they themselves are never saved. The list is data of Catalogue/.
 */
namespace EngineContent
{
/** One asset of the engine. */
struct FEntry
{
	/** "/Engine/BasicShapes/Cube" */
	FString PackageName;
	/** "/Script/Engine.StaticMesh" */
	FTopLevelAssetPath ClassPath;

	/** "Cube" */
	FString GetAssetName() const;
};

/** All of them, by class and then by path. */
const TArray<FEntry>& GetEntries();
/** Ignores case; null for a package that the list does not have. */
const FEntry* Find(const FString& PackageName);
/** Makes loading of packages find them. Start-up calls it once the package loader is there; again it does nothing. */
void Install();
} // namespace EngineContent
