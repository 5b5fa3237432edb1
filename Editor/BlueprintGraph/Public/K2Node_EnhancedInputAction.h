#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_EventNodeInterface.h"

/** The events and the value of an Enhanced Input action. */
class UK2Node_EnhancedInputAction : public UK2Node, public IK2Node_EventNodeInterface
{
	EDITOR_CLASS(UK2Node_EnhancedInputAction, UK2Node)

public:
	bool DrawNodeAsEntry() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	/** An asset of /Script/EnhancedInput.InputAction. */
	TObjectPtr<UObject> InputAction;
};
