#pragma once

#include "CoreMinimal.h"
#include "K2Node_ConstructObjectFromClass.h"

/** Makes a widget. */
class UK2Node_CreateWidget : public UK2Node_ConstructObjectFromClass
{
	EDITOR_CLASS(UK2Node_CreateWidget, UK2Node_ConstructObjectFromClass)

public:
	UClass* GetClassPinBaseClass() const override;
	bool IsSpawnVarPin(UEdGraphPin* Pin) const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;

protected:
	void CreateOwnPins() override;
	FString GetTitlePrefix() const override;
	FText GetBaseNodeTitle() const override;
};
