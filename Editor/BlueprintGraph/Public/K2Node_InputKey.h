#pragma once

#include "CoreMinimal.h"
#include "InputCoreTypes.h"
#include "K2Node.h"
#include "K2Node_EventNodeInterface.h"

/** A key that is pressed or let go. */
class UK2Node_InputKey : public UK2Node, public IK2Node_EventNodeInterface
{
	EDITOR_CLASS(UK2Node_InputKey, UK2Node)

public:
	bool DrawNodeAsEntry() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FKey InputKey;
	bool bConsumeInput = true;
	bool bExecuteWhenPaused = false;
	bool bOverrideParentBinding = true;
	bool bControl = false;
	bool bAlt = false;
	bool bShift = false;
	bool bCommand = false;
};
