#include "K2Node_CommutativeAssociativeBinaryOperator.h"

#include "EdGraphSchema_K2.h"
#include "PinNames.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CommutativeAssociativeBinaryOperator, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_CommutativeAssociativeBinaryOperator::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UK2Node_AddPinInterface::StaticClass());
	Class.Property(TEXT("NumAdditionalInputs"), &UK2Node_CommutativeAssociativeBinaryOperator::NumAdditionalInputs);
}

UEdGraphPin* UK2Node_CommutativeAssociativeBinaryOperator::FindOutPin() const
{
	return FindPin(UEdGraphSchema_K2::PN_ReturnValue, EGPD_Output);
}

UEdGraphPin* UK2Node_CommutativeAssociativeBinaryOperator::FindSelfPin() const
{
	return FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input);
}

TArray<UEdGraphPin*> UK2Node_CommutativeAssociativeBinaryOperator::GetOperands() const
{
	TArray<UEdGraphPin*> Operands = Pins;
	const UEdGraphPin* const Self = FindSelfPin();
	Operands.RemoveAll([Self](const UEdGraphPin* Pin)
		{ return Pin->Direction != EGPD_Input || Pin == Self || Pin->ParentPin || Pin->bOrphanedPin; });
	return Operands;
}

FEdGraphPinType UK2Node_CommutativeAssociativeBinaryOperator::GetType() const
{
	const UEdGraphPin* const Out = FindOutPin();
	return Out ? Out->PinType : FEdGraphPinType();
}

UEdGraphPin* UK2Node_CommutativeAssociativeBinaryOperator::AddInputPinInner(int32 AdditionalPinIndex)
{
	FEdGraphPinType Type = GetType();
	Type.bIsReference = false;
	// The function has no parameter behind it, so there is no default to generate.
	return CreatePin(EGPD_Input, Type, GetNameForAdditionalPin(AdditionalPinIndex + NumBinaryOperands));
}

void UK2Node_CommutativeAssociativeBinaryOperator::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	NumAdditionalInputs = FMath::Clamp(NumAdditionalInputs, 0, GetMaxInputPinsNum() - NumBinaryOperands);
	for (int32 Index = 0; Index < NumAdditionalInputs; ++Index)
	{
		AddInputPinInner(Index);
	}
}

void UK2Node_CommutativeAssociativeBinaryOperator::AddInputPin()
{
	if (CanAddPin())
	{
		Modify();
		AddInputPinInner(NumAdditionalInputs);
		++NumAdditionalInputs;
	}
}

bool UK2Node_CommutativeAssociativeBinaryOperator::CanRemovePin(const UEdGraphPin* Pin) const
{
	return NumAdditionalInputs > 0 && GetOperands().Contains(const_cast<UEdGraphPin*>(Pin));
}

void UK2Node_CommutativeAssociativeBinaryOperator::RemoveInputPin(UEdGraphPin* Pin)
{
	if (!CanRemovePin(Pin))
	{
		return;
	}
	RemovePin(Pin);
	--NumAdditionalInputs;
	PinNames::RenameInOrder(GetOperands(), &GetNameForAdditionalPin);
}
