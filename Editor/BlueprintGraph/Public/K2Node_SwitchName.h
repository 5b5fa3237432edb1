#pragma once

#include "CoreMinimal.h"
#include "K2Node_Switch.h"

/** Switch on Name. */
class UK2Node_SwitchName : public UK2Node_Switch
{
	EDITOR_CLASS(UK2Node_SwitchName, UK2Node_Switch)

public:
	UK2Node_SwitchName();
	FEdGraphPinType GetPinType() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	TArray<FName> PinNames;

protected:
	void CreateSelectionPin() override;
	TArray<FName>* GetCaseNames() override { return &PinNames; }
};
