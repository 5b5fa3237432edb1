#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Writes to whatever a reference leads to. */
class UK2Node_VariableSetRef : public UK2Node
{
	EDITOR_CLASS(UK2Node_VariableSetRef, UK2Node)

public:
	UEdGraphPin* GetTargetPin() const;
	UEdGraphPin* GetValuePin() const;
	void AllocateDefaultPins() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PostReconstructNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

private:
	void ConformTypes();
};
