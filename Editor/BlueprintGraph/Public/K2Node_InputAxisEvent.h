#pragma once

#include "CoreMinimal.h"
#include "K2Node_Event.h"

/** The value of an input axis, told every frame. */
class UK2Node_InputAxisEvent : public UK2Node_Event
{
	EDITOR_CLASS(UK2Node_InputAxisEvent, UK2Node_Event)

public:
	void Initialize(const FName AxisName);
	void AllocateDefaultPins() override;
	void PostPlacedNewNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;

	FName InputAxisName;
	bool bConsumeInput = true;
	bool bExecuteWhenPaused = false;
	bool bOverrideParentBinding = true;
};
