#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** The object of a soft reference, or the other way round. */
class UK2Node_ConvertAsset : public UK2Node
{
	EDITOR_CLASS(UK2Node_ConvertAsset, UK2Node)

public:
	bool IsNodePure() const override { return true; }
	bool ShouldDrawCompact() const override { return true; }
	FText GetCompactNodeTitle() const override { return FText::FromString(TEXT("\x2022")); }
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;

private:
	void RefreshPinTypes();
};
