#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** The value that an Enhanced Input action has now. */
class UK2Node_GetInputActionValue : public UK2Node
{
	EDITOR_CLASS(UK2Node_GetInputActionValue, UK2Node)

public:
	bool IsNodePure() const override { return true; }
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
