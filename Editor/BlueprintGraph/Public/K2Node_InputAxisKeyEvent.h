#pragma once

#include "CoreMinimal.h"
#include "InputCoreTypes.h"
#include "K2Node_Event.h"

/** The value of an analog key or mouse axis, told every frame. */
class UK2Node_InputAxisKeyEvent : public UK2Node_Event
{
	EDITOR_CLASS(UK2Node_InputAxisKeyEvent, UK2Node_Event)

public:
	virtual void Initialize(const FKey AxisKey);
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	FKey AxisKey;
	bool bConsumeInput = true;
	bool bExecuteWhenPaused = false;
	bool bOverrideParentBinding = true;

protected:
	virtual void CreateValuePin();
	virtual bool IsKeyOfKind(const FKey& Key) const;
};
