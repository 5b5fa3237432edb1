#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** The value that an axis of the input settings has now, as this actor sees it. */
class UK2Node_GetInputAxisValue : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_GetInputAxisValue, UK2Node_CallFunction)

public:
	void Initialize(const FName AxisName);
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;

	FName InputAxisName;
	bool bConsumeInput = true;
	bool bExecuteWhenPaused = false;
	bool bOverrideParentBinding = true;
};
