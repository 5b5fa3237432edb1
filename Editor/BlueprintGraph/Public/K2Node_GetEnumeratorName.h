#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** The name of an enum's entry. */
class UK2Node_GetEnumeratorName : public UK2Node
{
	EDITOR_CLASS(UK2Node_GetEnumeratorName, UK2Node)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PostReconstructNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

protected:
	virtual FName GetResultCategory() const;

private:
	void UpdatePinType();
};
