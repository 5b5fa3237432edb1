#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Whether two entries of an enum are the same. */
class UK2Node_EnumEquality : public UK2Node
{
	EDITOR_CLASS(UK2Node_EnumEquality, UK2Node)

public:
	UEdGraphPin* GetInput1Pin() const;
	UEdGraphPin* GetInput2Pin() const;

	bool IsNodePure() const override { return true; }
	bool ShouldDrawCompact() const override { return true; }
	FText GetCompactNodeTitle() const override;
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;

private:
	void ConformOperands();
};
