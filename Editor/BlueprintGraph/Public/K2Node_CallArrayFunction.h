#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** A call of a function of arrays: the element type follows the array that is linked. */
class UK2Node_CallArrayFunction : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_CallArrayFunction, UK2Node_CallFunction)

public:
	UEdGraphPin* GetTargetArrayPin() const;
	/** All pins whose type hangs on the array's. */
	void GetArrayTypeDependentPins(TArray<UEdGraphPin*>& OutPins) const;

	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

private:
	void ConformArrayPins();
};
