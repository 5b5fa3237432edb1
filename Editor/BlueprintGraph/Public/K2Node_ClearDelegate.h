#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseMCDelegate.h"

/** Takes all events off a dispatcher. */
class UK2Node_ClearDelegate : public UK2Node_BaseMCDelegate
{
	EDITOR_CLASS(UK2Node_ClearDelegate, UK2Node_BaseMCDelegate)

public:
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
};
