#pragma once

#include "BlueprintActionDatabase.h"
#include "CoreMinimal.h"

class UBlueprint;
class UScriptStruct;
struct FAssetData;

/** Where the actions of the database come from. Each function appends to the list, in an order that does not change
 * from run to run. */
namespace ActionSources
{
using FActionList = TArray<FBlueprintAction>;

/** Makes the menu entry of a spawner. Null spawners and entries without words are left out; the result is the new entry
 * or null. */
FBlueprintAction* Add(UBlueprintNodeSpawner* Spawner, FActionList& Out);

/** What node classes offer by themselves. */
void AddNodeClasses(FActionList& Out);
/** Functions, events, variables and dispatchers that the class itself declares. */
void AddMembers(const UClass& Class, FActionList& Out);
void AddCasts(UClass& Class, FActionList& Out);
void AddStruct(UScriptStruct& Struct, FActionList& Out);
/** Members, casts, macros, component events and local variables of a Blueprint. */
void AddBlueprint(UBlueprint& Blueprint, FActionList& Out);
/** What the registry alone can offer of an asset: a cast to a Blueprint, the event of an input action. */
void AddAsset(const FAssetData& Asset, FActionList& Out);
/** A number that changes when what AddBlueprint would say changes. */
uint32 GetFingerprint(const UBlueprint& Blueprint);
} // namespace ActionSources
