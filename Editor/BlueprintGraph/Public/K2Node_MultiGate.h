#pragma once

#include "CoreMinimal.h"
#include "K2Node_ExecutionSequence.h"

/** Sends each run to another of its outputs. */
class UK2Node_MultiGate : public UK2Node_ExecutionSequence
{
	EDITOR_CLASS(UK2Node_MultiGate, UK2Node_ExecutionSequence)

public:
	FName GetPinNameGivenIndex(int32 Index) const override;
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;

private:
	void CreateControlPins();
};
