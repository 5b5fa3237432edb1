#pragma once

#include "CoreMinimal.h"

class UObject;

namespace Morvane
{
class FToolResult;
}

/** Loads an object from a path that an agent wrote. */
namespace SafeObjectLoad
{
/** Null after a warning that says what is wrong with the path or that there is nothing under it. */
UObject* LoadObjectSafe(const FString& Path, Morvane::FToolResult& Result);

/** The same without a word, for guesses. */
UObject* TryLoad(const FString& Path);
} // namespace SafeObjectLoad
