#pragma once

#include "CoreMinimal.h"
#include "K2Node_ConstructObjectFromClass.h"

/** Adds a component of a chosen class to an actor. */
class UK2Node_AddComponentByClass : public UK2Node_ConstructObjectFromClass
{
	EDITOR_CLASS(UK2Node_AddComponentByClass, UK2Node_ConstructObjectFromClass)

public:
	bool UseWorldContext() const override { return false; }
	UClass* GetClassPinBaseClass() const override;
	bool IsSpawnVarPin(UEdGraphPin* Pin) const override;
	FText GetMenuCategory() const override;

protected:
	void CreateOwnPins() override;
	void CreatePinsForClass(UClass* InClass, TArray<UEdGraphPin*>* OutClassPins = nullptr) override;
	FString GetTitlePrefix() const override;
	FText GetBaseNodeTitle() const override;

private:
	/** Attachment and transform are shown for components of the scene alone. */
	void ShowAttachmentPins(bool bShow);
};
