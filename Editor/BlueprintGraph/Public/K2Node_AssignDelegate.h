#pragma once

#include "CoreMinimal.h"
#include "K2Node_AddDelegate.h"

/** Binds a new custom event, which it places, to a dispatcher. */
class UK2Node_AssignDelegate : public UK2Node_AddDelegate
{
	EDITOR_CLASS(UK2Node_AssignDelegate, UK2Node_AddDelegate)

public:
	void PostPlacedNewNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
};
