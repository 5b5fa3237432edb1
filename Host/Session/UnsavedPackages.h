#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}

/**
 * Packages that tools leave unsaved. Creating an asset only makes it in memory, as in the editor; here, what a
 * successful call has created is written when the call ends, and what a failed call has created is dropped. A change
 * to an asset that was there before stays in memory and is written by nobody but a later save of that very asset.
 */
namespace UnsavedPackages
{
/**
 * After each call. A new asset whose file cannot be written makes the call a failure that has changed nothing: the
 * asset goes, and so do the modifications that tell of it.
 */
void EndCall(Morvane::FToolResult& Result);

/** The assets in memory whose changes are on no disk, by package name, sorted. */
TArray<FString> List();
} // namespace UnsavedPackages
