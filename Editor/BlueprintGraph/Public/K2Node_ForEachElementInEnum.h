#pragma once

#include "CoreMinimal.h"
#include "Standalone/K2Node_EnumNodes.h"

/** Runs a body for each entry of an enum. */
class UK2Node_ForEachElementInEnum : public UK2Node_EnumNodeBase
{
	EDITOR_CLASS(UK2Node_ForEachElementInEnum, UK2Node_EnumNodeBase)

public:
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
