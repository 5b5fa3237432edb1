#pragma once

#include "CoreMinimal.h"
#include "Standalone/K2Node_EnumNodes.h"

/** An entry of an enum as a value. */
class UK2Node_EnumLiteral : public UK2Node_EnumNodeBase
{
	EDITOR_CLASS(UK2Node_EnumLiteral, UK2Node_EnumNodeBase)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
