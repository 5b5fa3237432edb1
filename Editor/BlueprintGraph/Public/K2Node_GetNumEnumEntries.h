#pragma once

#include "CoreMinimal.h"
#include "Standalone/K2Node_EnumNodes.h"

/** How many entries an enum has. */
class UK2Node_GetNumEnumEntries : public UK2Node_EnumNodeBase
{
	EDITOR_CLASS(UK2Node_GetNumEnumEntries, UK2Node_EnumNodeBase)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
