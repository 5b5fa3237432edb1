#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_EventNodeInterface.h"

/** A finger that touches, moves or leaves the screen. */
class UK2Node_InputTouch : public UK2Node, public IK2Node_EventNodeInterface
{
	EDITOR_CLASS(UK2Node_InputTouch, UK2Node)

public:
	bool DrawNodeAsEntry() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	bool bConsumeInput = true;
	bool bExecuteWhenPaused = false;
	bool bOverrideParentBinding = true;
};
