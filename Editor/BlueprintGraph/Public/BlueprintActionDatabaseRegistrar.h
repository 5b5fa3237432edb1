#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

class UEnum;

/** What a node class's GetMenuActions adds its spawners to. */
class FBlueprintActionDatabaseRegistrar
{
public:
	/** Makes the action about one enum; called for the enums there are now and for those that are added later. */
	using FMakeEnumSpawnerDelegate = TFunction<UBlueprintNodeSpawner*(UEnum& Enum)>;

	/** Both lists are appended to. */
	FBlueprintActionDatabaseRegistrar(
		TArray<UBlueprintNodeSpawner*>& InActions, TArray<FMakeEnumSpawnerDelegate>& InEnumMakers)
		: Actions(InActions)
		, EnumMakers(InEnumMakers)
	{
	}
	bool AddBlueprintAction(UBlueprintNodeSpawner* NodeSpawner);
	bool AddBlueprintAction(const UObject* ActionOwner, UBlueprintNodeSpawner* NodeSpawner)
	{
		return AddBlueprintAction(NodeSpawner);
	}
	/** One action for each enum that a Blueprint may use. */
	void RegisterEnumActions(FMakeEnumSpawnerDelegate MakeActionCallback);

private:
	TArray<UBlueprintNodeSpawner*>& Actions;
	TArray<FMakeEnumSpawnerDelegate>& EnumMakers;
};
