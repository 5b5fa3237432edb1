#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_AddPinInterface.h"

/** A text with the arguments put in that its pattern names in braces. */
class UK2Node_FormatText : public UK2Node, public IK2Node_AddPinInterface
{
	EDITOR_CLASS(UK2Node_FormatText, UK2Node)

public:
	UEdGraphPin* GetFormatPin() const;
	UEdGraphPin* FindArgumentPin(const FName InPinName) const;
	FName GetUniquePinName();

	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	void AddInputPin() override;
	bool CanAddPin() const override;
	bool CanRemovePin(const UEdGraphPin* Pin) const override;
	void RemoveInputPin(UEdGraphPin* Pin) override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	TArray<FName> PinNames;

private:
	UEdGraphPin* CreateArgumentPin(FName Name);
	void SynchronizeArgumentPinType(UEdGraphPin* Pin);
	void TakeArgumentsFromPattern();
};
