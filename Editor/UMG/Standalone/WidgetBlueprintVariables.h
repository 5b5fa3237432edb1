#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UClass;

/** A widget that a Widget Blueprint's class has a variable for. */
struct FWidgetBlueprintVariable
{
	/** The widgets of the tree that are variables, in the tree's order; nothing for other Blueprints. */
	static TArray<FWidgetBlueprintVariable> Collect(const UBlueprint* Blueprint);

	FName Name;
	UClass* Class = nullptr;
};
