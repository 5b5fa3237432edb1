#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;
class UPackage;
class USCS_Node;

/** What every tool needs of a Blueprint as an asset: find, make, name, compile, save. Stateless. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintUtils
{
public:
	/**
	 * The Blueprint of any family at a path in any spelling, or of a bare asset name anywhere in the project, as
	 * FAssetOperationBase::ResolveBlueprintPath understands it. Null after an error in the result, which names the path
	 * as it was given; where a file is there and cannot be read, a second error tells why.
	 */
	static UBlueprint* LoadBlueprint(const FString& Path, Morvane::FToolResult& Result);
	/** The same without a word when there is none; a caller that goes on without the Blueprint asks this way. */
	static UBlueprint* TryLoadBlueprint(const FString& Path);
	/** Asks the asset registry, assets in memory included; loads nothing. */
	static bool BlueprintExists(const FString& Path);

	/** Makes the asset at a normalised path from {"type", "parent_path"}. Null after an error in the result. */
	static UBlueprint* CreateBlueprint(
		const FString& Path, const TSharedPtr<FJsonObject>& ParentClassJson, Morvane::FToolResult& Result);
	/**
	 * The Blueprint maker of runs that need one to work on: an Actor Blueprint at the path, in memory and dirty. Says
	 * nothing to any result; null with a reason.
	 */
	static UBlueprint* CreateActorBlueprint(const FString& Path, FString& OutReason);

	/** Writes the Blueprint's package to disk. */
	static bool SaveBlueprint(UBlueprint* Blueprint);
	static void MarkBlueprintDirty(UBlueprint* Blueprint);
	/** "/Game/A/BP_X": what messages and tracked modifications call the Blueprint, whatever path led to it. */
	static FString GetBlueprintPath(const UBlueprint* Blueprint);
	/** "BP_X" of "/Game/A/BP_X.BP_X" and "/Game/A/BP_X". */
	static FString GetBlueprintName(const FString& Path);
	static UPackage* GetBlueprintPackage(UBlueprint* Blueprint);

	/** Compiles without reading the messages; true when there is no error. */
	static bool CompileBlueprint(UBlueprint* Blueprint, bool bSkipSave);
	/** Compiles and appends what the compiler says, each message with the nodes, pins and objects that it points at.
	 * Notes, which ask for nothing, are dropped unless the caller has a place for them. */
	static bool CompileBlueprintWithResults(UBlueprint* Blueprint, bool bSkipSave, TArray<FString>& OutErrors,
		TArray<FString>& OutWarnings, TArray<FString>* OutNotes = nullptr);

	/** Whether a new member may have the name. False after an error in the result that says who has it already. */
	static bool VerifyBlueprintVariableName(UBlueprint* Blueprint, const FString& Name, Morvane::FToolResult& Result);
	/** The construction script's nodes, parents before children; with inherited ones, the parent Blueprints' first. */
	static TArray<USCS_Node*> GetBlueprintComponentsFromSCS(const UBlueprint* Blueprint, bool bWithInherited = true);
};
