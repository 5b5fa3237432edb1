#pragma once

#include "CoreMinimal.h"
#include "K2Node_ConstructObjectFromClass.h"

/** Spawns an actor. */
class UK2Node_SpawnActorFromClass : public UK2Node_ConstructObjectFromClass
{
	EDITOR_CLASS(UK2Node_SpawnActorFromClass, UK2Node_ConstructObjectFromClass)

public:
	UClass* GetClassPinBaseClass() const override;
	bool IsSpawnVarPin(UEdGraphPin* Pin) const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;

protected:
	void CreateOwnPins() override;
	FString GetTitlePrefix() const override;
	FText GetBaseNodeTitle() const override;
};
