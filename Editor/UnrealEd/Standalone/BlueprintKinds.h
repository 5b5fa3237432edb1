#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UClass;

/** What depends on the kind of Blueprint, which follows from its parent class alone: the asset's class, the events it
 * starts with. */
namespace BlueprintKinds
{
struct FDefaultEvent
{
	/** The class that a Blueprint must be below, by path. */
	const TCHAR* BaseClass;
	const TCHAR* Name;
	/** BaseClass, found. */
	UClass* Class = nullptr;
};

/** The asset class for a parent class: animation and widget Blueprints have their own. */
UClass* GetBlueprintClass(const UClass* ParentClass);
/** The events that a new Blueprint's event graph shows, in order; those of the nearest base class that has a list. */
TArray<FDefaultEvent> GetDefaultEvents(const UClass* ParentClass);

/** Called for each new Blueprint; modules that know a kind add what it starts with (a widget tree, an animation graph).
 */
using FFinisher = void (*)(UBlueprint& Blueprint);
void RegisterFinisher(const UClass* BlueprintClass, FFinisher Finisher);
void RegisterBlueprintClass(const TCHAR* ParentClassPath, UClass* BlueprintClass);
void FinishCreation(UBlueprint& Blueprint);
} // namespace BlueprintKinds
