#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Blends between two values along a curve. */
class UK2Node_EaseFunction : public UK2Node
{
	EDITOR_CLASS(UK2Node_EaseFunction, UK2Node)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FName EaseFunctionName;

private:
	void ConformTypes();
	/** Which of the settings the chosen curve has. */
	void RefreshPinVisibility();
};
