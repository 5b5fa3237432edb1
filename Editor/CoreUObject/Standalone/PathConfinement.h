#pragma once

#include "CoreMinimal.h"

/**
 * Keeps files inside one folder, the project. What counts is where a path really leads, so a link that points out of
 * the folder is refused even when the path's text looks harmless.
 */
struct FPathConfinement
{
	/** Empty lifts it. The folder has to exist. */
	static void SetRoot(const FString& Directory);
	/** Where an existing path really is, links followed; empty when it does not exist. */
	static FString Resolve(const FString& Path);
	/**
	 * Whether the file, which need not exist, would lie inside the root. True as long as no root is set. OutReason is a
	 * sentence that names the path.
	 */
	static bool IsInside(const FString& Path, FString& OutReason);
};
