#pragma once

#include "BlueprintActionMenuItem.h"
#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

class UBlueprint;
class UBlueprintNodeSpawner;
class UEdGraph;

/** One entry that menus offer, and for whom. Pointers below are compared, never followed. */
struct FBlueprintAction
{
	TSharedPtr<FBlueprintActionMenuItem> Item;
	const UClass* NodeClass = nullptr;
	/** Offered to Blueprints of this class or below it, or that implement it. Null: to all. */
	const UClass* RequiredClass = nullptr;
	/** The class that declares the member; null for what is no member or needs no object of the class. */
	const UClass* MemberOf = nullptr;
	/** Offered in this Blueprint alone: its own components' events, its macros, its private members. */
	const UBlueprint* OnlyInBlueprint = nullptr;
	/** Offered in this graph alone: local variables. */
	const UEdGraph* OnlyInGraph = nullptr;
	/** Takes time, so it has no place in a function. */
	bool bIsLatent = false;
};

/**
 * All actions that a Blueprint graph can be offered, made once: those of the engine's classes for the life of the
 * process, those of Blueprints until their members change. Menus share the entries. Game thread only.
 */
class FBlueprintActionDatabase
{
public:
	static FBlueprintActionDatabase& Get();

	/** Visits all actions in their lasting order, after those of Blueprints that changed were made anew. */
	void ForEachAction(TFunctionRef<void(const FBlueprintAction&)> Visit);
	/** How many there are, as of the last update. */
	int32 Num() const;
	/** Brings the database up to date with the project's classes and the Blueprints in memory. */
	void Update();
	/** Forgets the actions of one Blueprint; the next update makes them anew. */
	void RefreshAssetActions(const UObject* AssetObject);
	void ClearAssetActions(const UObject* AssetObject) { RefreshAssetActions(AssetObject); }
	/** Forgets everything. */
	void RefreshAll();

private:
	using FActionList = TArray<FBlueprintAction>;

	struct FBlueprintEntry
	{
		TWeakObjectPtr<UBlueprint> Blueprint;
		uint32 Fingerprint = 0;
		FActionList Actions;
	};

	struct FAssetEntry
	{
		FString Path;
		FActionList Actions;
	};

	void BuildCatalogue();
	void UpdateAssets();
	void UpdateBlueprints();

	FActionList NodeActions;
	FActionList EngineActions;
	FActionList ProjectActions;
	/** In the order of the assets' paths. */
	TArray<FBlueprintEntry> Blueprints;
	/** Of assets that are not in memory or are no Blueprints, in the registry's order. */
	TArray<FAssetEntry> Assets;
	uint32 CatalogueGeneration = 0;
	bool bBuilt = false;
};
