#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseMCDelegate.h"

/** Binds an event to a dispatcher. */
class UK2Node_AddDelegate : public UK2Node_BaseMCDelegate
{
	EDITOR_CLASS(UK2Node_AddDelegate, UK2Node_BaseMCDelegate)

public:
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
