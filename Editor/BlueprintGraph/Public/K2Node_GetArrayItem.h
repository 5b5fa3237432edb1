#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** An element of an array, as a reference or a copy. */
class UK2Node_GetArrayItem : public UK2Node
{
	EDITOR_CLASS(UK2Node_GetArrayItem, UK2Node)

public:
	UEdGraphPin* GetTargetArrayPin() const { return Pins.Num() > 0 ? Pins[0] : nullptr; }
	UEdGraphPin* GetIndexPin() const { return Pins.Num() > 1 ? Pins[1] : nullptr; }
	UEdGraphPin* GetResultPin() const { return Pins.Num() > 2 ? Pins[2] : nullptr; }

	bool IsNodePure() const override { return true; }
	bool ShouldDrawCompact() const override { return true; }
	FText GetCompactNodeTitle() const override;
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;

	bool bReturnByRefDesired = true;

private:
	void PropagatePinType();
};
