#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

/** Stands for an action of a Blueprint that is not in memory, whose file tells its words. Loads it to make a node. */
class UOfferNodeSpawner final : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UOfferNodeSpawner, UBlueprintNodeSpawner)

public:
	static UOfferNodeSpawner* Create(UClass& InNodeClass, const FString& InBlueprintPath);
	UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const override;
	using UBlueprintNodeSpawner::Invoke;
	bool AnyPin(FPinVisitor Visit) const override;

private:
	/** Loads the Blueprint and hands over its own spawner of the words; nothing happens when it has none any more. */
	void Use(TFunctionRef<void(const UBlueprintNodeSpawner&)> Do) const;

	FString BlueprintPath;
};
