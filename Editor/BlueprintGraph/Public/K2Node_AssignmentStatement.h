#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Writes to a variable of a macro. */
class UK2Node_AssignmentStatement : public UK2Node
{
	EDITOR_CLASS(UK2Node_AssignmentStatement, UK2Node)

public:
	UEdGraphPin* GetVariablePin() const;
	UEdGraphPin* GetValuePin() const;
	void AllocateDefaultPins() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PostReconstructNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

private:
	void ConformTypes();
};
