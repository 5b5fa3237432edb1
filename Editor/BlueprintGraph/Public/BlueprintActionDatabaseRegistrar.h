#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

/** What a node class's GetMenuActions adds its spawners to. */
class FBlueprintActionDatabaseRegistrar
{
public:
	explicit FBlueprintActionDatabaseRegistrar(TArray<UBlueprintNodeSpawner*>& InActions)
		: Actions(InActions)
	{
	}
	bool AddBlueprintAction(UBlueprintNodeSpawner* NodeSpawner);
	bool AddBlueprintAction(const UObject* ActionOwner, UBlueprintNodeSpawner* NodeSpawner)
	{
		return AddBlueprintAction(NodeSpawner);
	}
	/** Always: there is one database, filled whole. */
	bool IsOpenForRegistration(const UObject* ActionKey) const { return true; }

private:
	TArray<UBlueprintNodeSpawner*>& Actions;
};
