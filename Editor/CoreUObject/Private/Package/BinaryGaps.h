#pragma once

#include "CoreMinimal.h"

/**
 * What is told of files that the engine's editor wrote and nobody can mend here: a partial checkout lacks hundreds of
 * things, a plug-in's values are kept without being understood. All files that one call reads share a line for each
 * kind of gap.
 */
namespace BinaryGaps
{
/** A file refers to what is not there. */
void AddMissing(const FString& Filename, const FString& Path);
/** A value or an object of a file is kept as it is, or left out. */
void AddNotUnderstood(const FString& Filename, const FString& What);
/** Nothing here looks into an object that is data alone, so nobody misses what was not understood of it. */
bool IsUnseen(const UObject& Object);
/** The lines, which are told once: what is there by now is not missing any more. */
TArray<FString> Take();
} // namespace BinaryGaps
