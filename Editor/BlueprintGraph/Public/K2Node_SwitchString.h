#pragma once

#include "CoreMinimal.h"
#include "K2Node_Switch.h"

/** Switch on String. */
class UK2Node_SwitchString : public UK2Node_Switch
{
	EDITOR_CLASS(UK2Node_SwitchString, UK2Node_Switch)

public:
	UK2Node_SwitchString();
	FEdGraphPinType GetPinType() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	TArray<FName> PinNames;
	bool bIsCaseSensitive = false;

protected:
	void CreateSelectionPin() override;
	TArray<FName>* GetCaseNames() override { return &PinNames; }
};
