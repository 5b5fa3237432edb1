#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** A call of an interface's function on any object, which nothing answers when the object has no such interface. */
class UK2Node_Message : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_Message, UK2Node_CallFunction)

public:
	void AllocateDefaultPins() override;
	bool IsNodePure() const override { return false; }
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
