#pragma once

#include "CoreMinimal.h"
#include "K2Node_ConstructObjectFromClass.h"

/** Makes what a drag in the user interface carries: plain at first, of a derived class when one is chosen. */
class UK2Node_CreateDragDropOperation : public UK2Node_ConstructObjectFromClass
{
	EDITOR_CLASS(UK2Node_CreateDragDropOperation, UK2Node_ConstructObjectFromClass)

public:
	bool UseWorldContext() const override { return false; }
	UClass* GetClassPinBaseClass() const override;
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;

protected:
	FText GetBaseNodeTitle() const override;
};
