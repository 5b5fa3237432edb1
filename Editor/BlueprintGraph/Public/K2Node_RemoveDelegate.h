#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseMCDelegate.h"

/** Takes an event off a dispatcher. */
class UK2Node_RemoveDelegate : public UK2Node_BaseMCDelegate
{
	EDITOR_CLASS(UK2Node_RemoveDelegate, UK2Node_BaseMCDelegate)

public:
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
