#pragma once

#include "CoreMinimal.h"
#include "K2Node_AddPinInterface.h"
#include "K2Node_CallFunction.h"

/** An operator such as AND that takes any number of operands. */
class UK2Node_CommutativeAssociativeBinaryOperator : public UK2Node_CallFunction, public IK2Node_AddPinInterface
{
	EDITOR_CLASS(UK2Node_CommutativeAssociativeBinaryOperator, UK2Node_CallFunction)

public:
	UEdGraphPin* FindOutPin() const;
	UEdGraphPin* FindSelfPin() const;
	FEdGraphPinType GetType() const;
	void AllocateDefaultPins() override;
	void AddInputPin() override;
	bool CanAddPin() const override { return NumAdditionalInputs + NumBinaryOperands < GetMaxInputPinsNum(); }
	bool CanRemovePin(const UEdGraphPin* Pin) const override;
	void RemoveInputPin(UEdGraphPin* Pin) override;

	int32 NumAdditionalInputs = 0;

private:
	/** What the function itself takes. */
	static constexpr int32 NumBinaryOperands = 2;
	TArray<UEdGraphPin*> GetOperands() const;
	UEdGraphPin* AddInputPinInner(int32 AdditionalPinIndex);
};
