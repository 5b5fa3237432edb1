#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_EventNodeInterface.h"

/** An input action of the project's settings that starts or ends. */
class UK2Node_InputAction : public UK2Node, public IK2Node_EventNodeInterface
{
	EDITOR_CLASS(UK2Node_InputAction, UK2Node)

public:
	bool DrawNodeAsEntry() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;

	FName InputActionName;
	bool bConsumeInput = true;
	bool bExecuteWhenPaused = false;
	bool bOverrideParentBinding = true;
};
