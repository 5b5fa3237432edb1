#pragma once

#include "CoreMinimal.h"
#include "K2Node_Variable.h"

/** Writes a variable and passes the value on. */
class UK2Node_VariableSet : public UK2Node_Variable
{
	EDITOR_CLASS(UK2Node_VariableSet, UK2Node_Variable)

public:
	/** "Output_Get", the pin that passes the value on. */
	FName GetVariableOutputPinName() const;
	bool HasLocalRepNotify() const;
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
