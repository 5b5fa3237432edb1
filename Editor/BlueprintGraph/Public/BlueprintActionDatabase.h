#pragma once

#include "BlueprintActionDatabaseRegistrar.h"
#include "BlueprintActionMenuItem.h"
#include "CoreMinimal.h"
#include "Templates/UniquePtr.h"
#include "UObject/WeakObjectPtr.h"

class UBlueprint;
class UBlueprintNodeSpawner;
class UEdGraph;
class UField;
struct FAssetData;
struct FInputMappings;

/** One entry that menus offer, and for whom. Pointers below are compared, never followed. */
struct FBlueprintAction
{
	/** The entry under the words of menus for nobody in particular. */
	TSharedPtr<FBlueprintActionMenuItem> Item;
	/**
	 * A variable is filed below its class among those of other classes, and below its own category in its class. The
	 * category that Item does not have; the entry with it is made when a menu first needs it.
	 */
	FText OtherCategory;
	mutable TSharedPtr<FBlueprintActionMenuItem> OtherItem;
	const UClass* NodeClass = nullptr;
	/** Offered to Blueprints of this class or below it, or that implement it. Null: to all. */
	const UClass* RequiredClass = nullptr;
	/** The class that declares the member; null for what is no member or needs no object of the class. */
	const UClass* MemberOf = nullptr;
	/** The class that a cast leads to, which may be gone; null for other actions. */
	TWeakObjectPtr<UClass> CastTarget;
	/** Offered in this Blueprint alone: its own components' events, its macros, its private members. */
	const UBlueprint* OnlyInBlueprint = nullptr;
	/** Offered in this graph alone: local variables. */
	const UEdGraph* OnlyInGraph = nullptr;
	/** Item is named as a member of the Blueprint that the menu is for. */
	bool bNamedAsMember = false;
	/** Takes time, so it has no place in a function. */
	bool bIsLatent = false;
	/** Does what a construction script must not. */
	bool bIsUnsafeInConstruction = false;
	/** Needs the world that the caller lives in. */
	bool bNeedsWorld = false;
	/** Belongs to a part of the engine that games do not have. */
	bool bIsEditorOnly = false;
	/** Only for the class that declares it and those below. */
	bool bIsProtected = false;
	/** A member of a class that is not in memory, so that no pin can be of it. */
	bool bOfUnloadedClass = false;
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
	/** Forgets everything. */
	void RefreshAll();

private:
	FBlueprintActionDatabase();
	~FBlueprintActionDatabase();

	using FActionList = TArray<FBlueprintAction>;

	struct FBlueprintEntry
	{
		FString Path;
		TWeakObjectPtr<UBlueprint> Blueprint;
		uint32 Fingerprint = 0;
		FActionList Actions;
	};

	struct FAssetEntry
	{
		FString Path;
		/** What its file told, for a Blueprint. */
		FString Offers;
		bool bIsBlueprint = false;
		/** The type that the asset is, for structs and enums; null for what need not be in memory. */
		TWeakObjectPtr<UField> Type;
		FActionList Actions;
	};

	void BuildCatalogue();
	/** Blueprints whose files do not tell what they offer have to be in memory to be asked. */
	void LoadUntold(const TArray<FAssetData>& UnloadedBlueprints);
	void UpdateAssets(const TArray<FAssetData>& UnloadedBlueprints);
	void UpdateBlueprints();
	void UpdateInputMappings();
	/** The entries of Blueprints in one order, whether they are in memory or not. */
	void OrderBlueprints();
	void AddType(UField* Type, FActionList& Out) const;
	void ForEachList(TFunctionRef<void(const FActionList&)> Visit) const;

	FActionList NodeActions;
	FActionList EngineActions;
	FActionList ProjectActions;
	/** Those about the input settings, and the settings as they were read. */
	FActionList InputActions;
	TUniquePtr<FInputMappings> InputMappings;
	/** What node classes offer for an enum that is added. */
	TArray<FBlueprintActionDatabaseRegistrar::FMakeEnumSpawnerDelegate> EnumMakers;
	/** Blueprints that are not tried again with each menu. */
	TSet<FString> Unreadable;
	TArray<FBlueprintEntry> Blueprints;
	/** The lists of all Blueprints by their paths; as of the last update. */
	TArray<const FActionList*> BlueprintLists;
	/** Of assets that are not in memory or are no Blueprints, in the registry's order. Structs and enums are always in
	 * memory. */
	TArray<FAssetEntry> Assets;
	uint32 CatalogueGeneration = 0;
	bool bBuilt = false;
};
