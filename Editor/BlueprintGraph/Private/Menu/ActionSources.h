#pragma once

#include "BlueprintActionDatabase.h"
#include "BlueprintActionDatabaseRegistrar.h"
#include "CoreMinimal.h"

class UBlueprint;
class UScriptStruct;
struct FAssetData;
struct FInputMappings;

/** Where the actions of the database come from. Each function appends to the list, in an order that does not change
 * from run to run. */
namespace ActionSources
{
using FActionList = TArray<FBlueprintAction>;
using FMakeEnumSpawner = FBlueprintActionDatabaseRegistrar::FMakeEnumSpawnerDelegate;

/** Makes the menu entry of a spawner. Null spawners and entries without words are left out; the result is the new entry
 * or null. */
FBlueprintAction* Add(UBlueprintNodeSpawner* Spawner, FActionList& Out);

/** What node classes offer by themselves; OutEnumMakers gets what they would offer for one more enum. */
void AddNodeClasses(FActionList& Out, TArray<FMakeEnumSpawner>& OutEnumMakers);
/** Functions, events, variables and dispatchers that the class itself declares. */
void AddMembers(const UClass& Class, FActionList& Out);
void AddCasts(UClass& Class, FActionList& Out);
/** The node that adds a component of the class, for classes of such. */
void AddComponent(UClass& Class, FActionList& Out);
void AddStruct(UScriptStruct& Struct, FActionList& Out);
/** Members, casts, macros, component events and local variables of a Blueprint. */
void AddBlueprint(UBlueprint& Blueprint, FActionList& Out);
/** The tag that says in which form a file tells what its Blueprint offers, and the one of each line of it. */
extern const FName OffersTag;
extern const FName OfferTag;
/** What of the above others may use, a line for each action, in order. */
TArray<FString> DescribeOffers(UBlueprint& Blueprint);
/** Whether the file of a Blueprint that is not in memory tells what it offers, or at least the names of members. */
bool TellsOffers(const FAssetData& Asset);
/** What it tells, in one text that changes when that does. */
FString GetOffers(const FAssetData& Asset);
/** The actions that such a file tells. The Blueprint is loaded when one of them makes a node. */
void AddOffers(const FAssetData& Asset, FActionList& Out);
/** From now on the files of Blueprints tell what these offer. */
void TellOffersInFiles();
/** What the registry alone can offer of an asset: casts to a Blueprint whose file tells no more, the nodes of an
 * input action. */
void AddAsset(const FAssetData& Asset, FActionList& Out);
/** The input actions and axes that the project's settings name. */
void AddInputMappings(const FInputMappings& Mappings, FActionList& Out);
/** A number that changes when what AddBlueprint would say changes. */
uint32 GetFingerprint(const UBlueprint& Blueprint);
} // namespace ActionSources
