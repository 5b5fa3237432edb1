#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseMCDelegate.h"

/** Runs all events bound to a dispatcher. */
class UK2Node_CallDelegate : public UK2Node_BaseMCDelegate
{
	EDITOR_CLASS(UK2Node_CallDelegate, UK2Node_BaseMCDelegate)

public:
	bool CreatePinsForFunctionInputs(const UFunction* Function);
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
};
