#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;
struct FBPVariableDescription;

/**
 * The routines behind the tools that make Blueprints and change their members: each takes one kind's JSON and works
 * through it. Problems of one entry are reported and the batch goes on; false means that the routine could not do its
 * work.
 */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintCreateModifyRemoveUtils
{
public:
	/** Makes the asset that a create command describes, and tracks it for reading back. Null after an error in the
	 * result. */
	static UBlueprint* CreateBlueprint(const FJsonObject& Args, Morvane::FToolResult& Result);

	static bool CreateFunction(UBlueprint* Blueprint, const FJsonObject& Function, Morvane::FToolResult& Result);
	static bool ModifyFunction(UBlueprint* Blueprint, const FJsonObject& Function, Morvane::FToolResult& Result);
	static bool RemoveFunction(UBlueprint* Blueprint, const FString& FunctionName, Morvane::FToolResult& Result);

	/** Variables is keyed by name; an entry without an action means modify. */
	static bool CreateModifyRemoveBlueprintVariables(
		UBlueprint* Blueprint, const FJsonObject& Variables, Morvane::FToolResult& Result);
	/** Writes the keys that are present onto the description. */
	static void ApplyVariableProperties(FBPVariableDescription* Variable, const FJsonObject& Properties, bool bIsNew);

	static bool CreateModifyRemoveBlueprintComponent(
		UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Components, Morvane::FToolResult& Result);
	static bool CreateModifyRemoveBlueprintInterface(
		UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Interfaces, Morvane::FToolResult& Result);
	static bool CreateModifyRemoveBlueprintDelegate(
		UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Delegates, Morvane::FToolResult& Result);
	static bool CreateModifyRemoveBlueprintTimeline(
		UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Timelines, Morvane::FToolResult& Result);
	/** Tells in warnings what looks wrong in the curves of the Blueprint's timelines; changes nothing. */
	static void ValidateTimelineCurves(UBlueprint* Blueprint, Morvane::FToolResult& Result);
};
