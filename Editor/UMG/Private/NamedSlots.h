#pragma once

#include "CoreMinimal.h"

class INamedSlotInterface;
class UClass;
class UObject;
class UWidget;

/** The way up from what named slots hold. */
class FSlotHosts
{
public:
	static void Set(UWidget* Content, UObject& Host);
	/** The widget or tree that holds the widget in a named slot; null for others. */
	static UObject* Get(const UWidget& Content);
};

/** The places that widgets and Widget Blueprints leave open. */
namespace NamedSlots
{
/** Adds those of the class's Blueprint and of the Blueprints above it. */
void AddOfClass(const UClass* Class, TArray<FName>& OutNames);
/** The places that hold something, also those that the host's class has not any more. */
TArray<FName> GetFilled(const INamedSlotInterface& Host);
} // namespace NamedSlots
