#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_AddPinInterface.h"

/** Lets the first of several runs through, each to the output beside it. */
class UK2Node_DoOnceMultiInput : public UK2Node, public IK2Node_AddPinInterface
{
	EDITOR_CLASS(UK2Node_DoOnceMultiInput, UK2Node)

public:
	void AllocateDefaultPins() override;
	void AddInputPin() override;
	bool CanAddPin() const override { return NumAdditionalInputs + 1 < GetMaxInputPinsNum(); }
	bool CanRemovePin(const UEdGraphPin* Pin) const override;
	void RemoveInputPin(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	int32 NumAdditionalInputs = 0;

private:
	void CreatePair(int32 Index);
};
