#pragma once

#include "CoreMinimal.h"
#include "InputCoreTypes.h"
#include "K2Node.h"
#include "K2Node_EventNodeInterface.h"

/** A key for debugging, that works whatever takes the input otherwise. */
class UK2Node_InputDebugKey : public UK2Node, public IK2Node_EventNodeInterface
{
	EDITOR_CLASS(UK2Node_InputDebugKey, UK2Node)

public:
	bool DrawNodeAsEntry() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	FKey InputKey;
	bool bExecuteWhenPaused = false;
	bool bControl = false;
	bool bAlt = false;
	bool bShift = false;
	bool bCommand = false;
};
