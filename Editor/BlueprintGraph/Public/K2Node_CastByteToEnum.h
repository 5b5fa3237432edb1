#pragma once

#include "CoreMinimal.h"
#include "Standalone/K2Node_EnumNodes.h"

/** A number as an entry of an enum. */
class UK2Node_CastByteToEnum : public UK2Node_EnumNodeBase
{
	EDITOR_CLASS(UK2Node_CastByteToEnum, UK2Node_EnumNodeBase)

public:
	bool IsNodePure() const override { return true; }
	bool ShouldDrawCompact() const override { return true; }
	FText GetCompactNodeTitle() const override { return FText::FromString(TEXT("\x2022")); }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	bool bSafe = false;
};
