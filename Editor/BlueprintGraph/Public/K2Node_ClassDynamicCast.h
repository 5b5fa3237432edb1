#pragma once

#include "CoreMinimal.h"
#include "K2Node_DynamicCast.h"

/** Asks whether a class is another or below it, and gives it as that. */
class UK2Node_ClassDynamicCast : public UK2Node_DynamicCast
{
	EDITOR_CLASS(UK2Node_ClassDynamicCast, UK2Node_DynamicCast)

public:
	UEdGraphPin* GetCastSourcePin() const override;
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
};
