#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** A variable of a macro that lives as long as the calling object. */
class UK2Node_TemporaryVariable : public UK2Node
{
	EDITOR_CLASS(UK2Node_TemporaryVariable, UK2Node)

public:
	UEdGraphPin* GetVariablePin() const { return Pins.IsEmpty() ? nullptr : Pins[0]; }
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	FEdGraphPinType VariableType;
	bool bIsPersistent = false;
};
