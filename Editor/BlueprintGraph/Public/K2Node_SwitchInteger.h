#pragma once

#include "CoreMinimal.h"
#include "K2Node_Switch.h"

/** Switch on Int. */
class UK2Node_SwitchInteger : public UK2Node_Switch
{
	EDITOR_CLASS(UK2Node_SwitchInteger, UK2Node_Switch)

public:
	UK2Node_SwitchInteger();
	FName GetUniquePinName() override;
	FEdGraphPinType GetPinType() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void RemovePinFromSwitchNode(UEdGraphPin* TargetPin) override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;

	int32 StartIndex = 0;

protected:
	void CreateSelectionPin() override;
};
