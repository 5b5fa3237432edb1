#pragma once

#include "CoreMinimal.h"

class INamedSlotInterface;
class UClass;

/** The places that widgets and Widget Blueprints leave open. */
namespace NamedSlots
{
/** Adds those of the class's Blueprint and of the Blueprints above it. */
void AddOfClass(const UClass* Class, TArray<FName>& OutNames);
/** The places that hold something, also those that the host's class has not any more. */
TArray<FName> GetFilled(const INamedSlotInterface& Host);
} // namespace NamedSlots
