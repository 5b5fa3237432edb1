#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** A call of the parent class's implementation of an overridden function. */
class UK2Node_CallParentFunction : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_CallParentFunction, UK2Node_CallFunction)

public:
	void SetFromFunction(const UFunction* Function) override;
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	void PostPlacedNewNode() override;
};
