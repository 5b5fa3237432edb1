#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class FStructureEntry;
class UBlueprint;

/** What an entry says of an own variable beside its type and default. */
namespace VariableSettings
{
/** Category, tooltip and flags. What is a flag and metadata is set as both, so that every reader finds the same. */
void Apply(UBlueprint& Blueprint, FName Name, const FStructureEntry& Entry, bool bIsNew);

/**
 * How the value goes over the net. The notify function keeps step: it comes with the mode, and goes with it, or with a
 * type that is not replicated, unless it has been filled; NotifyBefore is the one that the variable came with. False
 * after a warning, with nothing done; OutFunctions gets the names of those that came or went.
 */
bool ApplyReplication(UBlueprint& Blueprint, FName Name, const FStructureEntry& Entry, FName NotifyBefore,
	TArray<FString>& OutFunctions, Morvane::FToolResult& Result);
} // namespace VariableSettings
