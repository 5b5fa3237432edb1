#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Branch. */
class UK2Node_IfThenElse : public UK2Node
{
	EDITOR_CLASS(UK2Node_IfThenElse, UK2Node)

public:
	UEdGraphPin* GetElsePin() const;
	UEdGraphPin* GetConditionPin() const;

	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
