#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Writes a parameter of an event into the frame that its graph keeps. The compiler places it. */
class UK2Node_SetVariableOnPersistentFrame : public UK2Node
{
	EDITOR_CLASS(UK2Node_SetVariableOnPersistentFrame, UK2Node)

public:
	void AllocateDefaultPins() override;
	FText GetTooltipText() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
};
