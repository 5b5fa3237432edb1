// Operators: those that take any number of operands of one type, and those that choose their overload by what is linked.

#include "K2Node_CommutativeAssociativeBinaryOperator.h"
#include "K2Node_PromotableOperator.h"

#include "BlueprintTypePromotion.h"
#include "EdGraphSchema_K2.h"
#include "Nodes/WildcardTypes.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CommutativeAssociativeBinaryOperator, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_PromotableOperator, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_CommutativeAssociativeBinaryOperator::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("NumAdditionalInputs"), &UK2Node_CommutativeAssociativeBinaryOperator::NumAdditionalInputs);
	Class.Implements(UK2Node_AddPinInterface::StaticClass());
}

UEdGraphPin* UK2Node_CommutativeAssociativeBinaryOperator::FindOutPin() const
{
	return FindPinByPredicate([](const UEdGraphPin* Pin) { return Pin->Direction == EGPD_Output; });
}

UEdGraphPin* UK2Node_CommutativeAssociativeBinaryOperator::FindSelfPin() const
{
	return FindPin(UEdGraphSchema_K2::PN_Self);
}

UEdGraphPin* UK2Node_CommutativeAssociativeBinaryOperator::GetInputPin(int32 InputPinIndex) const
{
	const UEdGraphPin* const Self = FindSelfPin();
	int32 Seen = 0;
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin != Self && Pin->Direction == EGPD_Input && Seen++ == InputPinIndex)
		{
			return Pin;
		}
	}
	return nullptr;
}

FEdGraphPinType UK2Node_CommutativeAssociativeBinaryOperator::GetType() const
{
	const UEdGraphPin* const First = GetInputPin(0);
	return First ? First->PinType : FEdGraphPinType();
}

void UK2Node_CommutativeAssociativeBinaryOperator::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	const FEdGraphPinType Type = GetType();
	for (int32 Index = 0; Index < NumAdditionalInputs; ++Index)
	{
		CreatePin(EGPD_Input, Type, GetNameForAdditionalPin(Index + 2));
	}
}

void UK2Node_CommutativeAssociativeBinaryOperator::AddInputPin()
{
	if (!CanAddPin())
	{
		return;
	}
	Modify();
	CreatePin(EGPD_Input, GetType(), GetNameForAdditionalPin(NumAdditionalInputs + 2));
	++NumAdditionalInputs;
}

namespace OperatorPins
{
/** Operands behind the second one, and where they stand among the operands. */
int32 IndexOfAdditional(const UEdGraphNode& Node, const UEdGraphPin* Wanted)
{
	for (int32 Index = 2; Index < IK2Node_AddPinInterface::GetMaxInputPinsNum(); ++Index)
	{
		if (Wanted->PinName == IK2Node_AddPinInterface::GetNameForAdditionalPin(Index))
		{
			return Wanted->Direction == EGPD_Input && Wanted->GetOwningNode() == &Node ? Index : INDEX_NONE;
		}
	}
	return INDEX_NONE;
}

/** Takes an operand out; those behind it move up by a name. */
void RemoveAdditional(UEdGraphNode& Node, UEdGraphPin* Pin, int32& NumAdditional)
{
	const int32 Removed = IndexOfAdditional(Node, Pin);
	Node.RemovePin(Pin);
	for (int32 Index = Removed + 1; Index < NumAdditional + 2; ++Index)
	{
		if (UEdGraphPin* const Next = Node.FindPin(IK2Node_AddPinInterface::GetNameForAdditionalPin(Index)))
		{
			Next->PinName = IK2Node_AddPinInterface::GetNameForAdditionalPin(Index - 1);
		}
	}
	--NumAdditional;
}
} // namespace OperatorPins

bool UK2Node_CommutativeAssociativeBinaryOperator::CanRemovePin(const UEdGraphPin* Pin) const
{
	return Pin && !Pin->ParentPin && NumAdditionalInputs > 0
		&& OperatorPins::IndexOfAdditional(*this, Pin) != INDEX_NONE;
}

void UK2Node_CommutativeAssociativeBinaryOperator::RemoveInputPin(UEdGraphPin* Pin)
{
	if (CanRemovePin(Pin))
	{
		Modify();
		OperatorPins::RemoveAdditional(*this, Pin, NumAdditionalInputs);
	}
}

namespace OperatorPins
{
const FName TolerancePin(TEXT("ErrorTolerance"));

/** Comparisons of plain values have the pin, whether the overload at hand uses it or not. */
bool WantsTolerance(FName Operation, const UFunction* Function)
{
	const FProperty* const First = Function ? CastField<FProperty>(Function->GetChildProperties()) : nullptr;
	return FTypePromotion::IsComparisonOpName(Operation) && First && !First->IsA<FStructProperty>()
		&& !First->IsA<FObjectPropertyBase>();
}
} // namespace OperatorPins

void UK2Node_PromotableOperator::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("OperationName"), &UK2Node_PromotableOperator::OperationName);
	Class.Property(TEXT("NumAdditionalInputs"), &UK2Node_PromotableOperator::NumAdditionalInputs);
	Class.Implements(UK2Node_AddPinInterface::StaticClass());
}

bool UK2Node_PromotableOperator::UpdateOpName(const UFunction* Function)
{
	const FName Name = FTypePromotion::GetOpNameFromFunction(Function);
	if (Name.IsNone())
	{
		return false;
	}
	OperationName = Name;
	return true;
}

void UK2Node_PromotableOperator::SetFromFunction(const UFunction* Function)
{
	Super::SetFromFunction(Function);
	UpdateOpName(Function);
}

UEdGraphPin* UK2Node_PromotableOperator::GetOutputPin() const
{
	return FindPinByPredicate([](const UEdGraphPin* Pin) { return Pin->Direction == EGPD_Output && !Pin->ParentPin; });
}

UEdGraphPin* UK2Node_PromotableOperator::FindTolerancePin() const
{
	return FindPin(OperatorPins::TolerancePin, EGPD_Input);
}

TArray<UEdGraphPin*> UK2Node_PromotableOperator::GetInputPins(bool bIncludeLinks) const
{
	TArray<UEdGraphPin*> Inputs;
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin->Direction == EGPD_Input && !Pin->ParentPin && Pin->PinName != OperatorPins::TolerancePin)
		{
			Inputs.Add(Pin);
			if (bIncludeLinks)
			{
				Inputs.Append(Pin->LinkedTo);
			}
		}
	}
	return Inputs;
}

bool UK2Node_PromotableOperator::HasConnectionsOrDefaults() const
{
	for (const UEdGraphPin* const Pin : Pins)
	{
		const bool bHasValue = Pin->Direction == EGPD_Input && !Pin->DefaultValue.IsEmpty()
			&& !Pin->DefaultValue.Equals(Pin->AutogeneratedDefaultValue);
		if (!Pin->LinkedTo.IsEmpty() || !Pin->SubPins.IsEmpty() || bHasValue)
		{
			return true;
		}
	}
	return false;
}

void UK2Node_PromotableOperator::AllocateDefaultPins()
{
	const UFunction* const Function = GetTargetFunction();
	if (OperationName.IsNone())
	{
		UpdateOpName(Function);
	}
	const FEdGraphPinType Open = WildcardTypes::Open();
	CreatePin(EGPD_Input, Open, TEXT("A"));
	CreatePin(EGPD_Input, Open, TEXT("B"));
	const bool bCompares = FTypePromotion::IsComparisonOpName(OperationName);
	UEdGraphPin* const Result = CreatePin(EGPD_Output, Open, UEdGraphSchema_K2::PN_ReturnValue);
	if (bCompares)
	{
		Result->PinType.PinCategory = UEdGraphSchema_K2::PC_Boolean;
	}
	for (int32 Index = 0; Index < NumAdditionalInputs; ++Index)
	{
		CreatePin(EGPD_Input, Open, GetNameForAdditionalPin(Index + 2));
	}
	if (OperatorPins::WantsTolerance(OperationName, Function))
	{
		CreatePin(EGPD_Input, Open, OperatorPins::TolerancePin)->bHidden = true;
	}
}

void UK2Node_PromotableOperator::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	// Operands keep the type that links gave them; what is linked no more is opened again afterwards.
	for (const UEdGraphPin* const Old : OldPins)
	{
		UEdGraphPin* const New = Old->ParentPin ? nullptr : FindPin(Old->PinName, Old->Direction);
		if (New)
		{
			New->PinType = Old->PinType;
			New->AutogeneratedDefaultValue = Old->AutogeneratedDefaultValue;
			New->DefaultValue = Old->AutogeneratedDefaultValue;
		}
	}
	RestoreSplitPins(OldPins);
}

void UK2Node_PromotableOperator::PostReconstructNode()
{
	UpdateFromBestMatchingFunction();
}

void UK2Node_PromotableOperator::NodeConnectionListChanged()
{
	UpdateFromBestMatchingFunction();
}

void UK2Node_PromotableOperator::PinConnectionListChanged(UEdGraphPin*)
{
	UpdateFromBestMatchingFunction();
}

void UK2Node_PromotableOperator::ResetNodeToWildcard()
{
	const bool bCompares = FTypePromotion::IsComparisonOpName(OperationName);
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin->ParentPin || (bCompares && Pin->Direction == EGPD_Output))
		{
			continue;
		}
		Pin->PinType = WildcardTypes::Open();
		Pin->ResetDefaultValue();
		Pin->AutogeneratedDefaultValue.Empty();
	}
}

void UK2Node_PromotableOperator::ConvertPinType(UEdGraphPin* PinToChange, const FEdGraphPinType NewPinType)
{
	if (!PinToChange || PinToChange->PinType == NewPinType)
	{
		return;
	}
	PinToChange->PinType = NewPinType;
	PinToChange->PinType.bIsReference = false;
	PinToChange->PinType.bIsConst = false;
	GetK2Schema()->SetPinAutogeneratedDefaultValueBasedOnType(PinToChange);
}

namespace OperatorPins
{
/** The type that an operand has from outside: its link's, or its own when an author gave it a value or split it. */
FEdGraphPinType GivenType(const UEdGraphPin& Pin)
{
	for (const UEdGraphPin* const Linked : Pin.LinkedTo)
	{
		if (!WildcardTypes::IsOpen(Linked->PinType))
		{
			return Linked->PinType;
		}
	}
	const bool bHasValue = !Pin.DefaultValue.IsEmpty() && !Pin.DefaultValue.Equals(Pin.AutogeneratedDefaultValue);
	return bHasValue || !Pin.SubPins.IsEmpty() ? Pin.PinType : WildcardTypes::Open();
}

/** The overload's own type for the operand of that place. */
FEdGraphPinType OperandType(const UFunction& Function, int32 Place)
{
	FEdGraphPinType Type;
	int32 Index = 0;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (!It->HasAnyPropertyFlags(CPF_ReturnParm) && It->GetFName() != TolerancePin)
		{
			UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(*It, Type);
			if (Index++ == Place)
			{
				break;
			}
		}
	}
	Type.bIsReference = false;
	Type.bIsConst = false;
	return Type;
}
} // namespace OperatorPins

void UK2Node_PromotableOperator::UpdateFromBestMatchingFunction()
{
	const TArray<UEdGraphPin*> Inputs = GetInputPins();
	TArray<FEdGraphPinType> Given;
	bool bAnyGiven = false;
	for (const UEdGraphPin* const Pin : Inputs)
	{
		Given.Add(OperatorPins::GivenType(*Pin));
		bAnyGiven |= !WildcardTypes::IsOpen(Given.Last());
	}
	const UEdGraphPin* const Output = GetOutputPin();
	FEdGraphPinType Wanted;
	const bool bCompares = FTypePromotion::IsComparisonOpName(OperationName);
	if (!bAnyGiven && Output && !bCompares && WildcardTypes::FindLinkedType({const_cast<UEdGraphPin*>(Output)}, Wanted))
	{
		// Only the result is linked: the operands are of its type.
		Given.Init(Wanted, Given.Num());
		bAnyGiven = true;
	}
	if (!bAnyGiven)
	{
		ResetNodeToWildcard();
		return;
	}
	const UFunction* const Best = FTypePromotion::FindBestMatchingFunc(OperationName, Given);
	if (!Best)
	{
		return;
	}
	FunctionReference.SetFromField(Best, false);
	for (int32 Index = 0; Index < Inputs.Num(); ++Index)
	{
		const bool bOpen = WildcardTypes::IsOpen(OperatorPins::GivenType(*Inputs[Index]));
		ConvertPinType(Inputs[Index], bOpen ? OperatorPins::OperandType(*Best, Index) : Given[Index]);
	}
	FEdGraphPinType ResultType;
	UEdGraphPin* const Result = GetOutputPin();
	if (Result && UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(Best->GetReturnProperty(), ResultType))
	{
		ConvertPinType(Result, ResultType);
	}
	if (UEdGraphPin* const Tolerance = FindTolerancePin())
	{
		const FProperty* const Parameter = Best->FindPropertyByName(OperatorPins::TolerancePin);
		FEdGraphPinType ToleranceType;
		if (Parameter && UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(Parameter, ToleranceType))
		{
			ConvertPinType(Tolerance, ToleranceType);
		}
		Tolerance->bHidden = Parameter == nullptr;
	}
}

FText UK2Node_PromotableOperator::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const FText Sign = FTypePromotion::GetKeywordsAndSign(OperationName);
	return Sign.IsEmpty() ? Super::GetNodeTitle(TitleType)
						  : FText::FromString(FName::NameToDisplayString(OperationName.ToString(), false));
}

bool UK2Node_PromotableOperator::IsConnectionDisallowed(
	const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const
{
	const FEdGraphPinType& Type = OtherPin->PinType;
	if (UEdGraphSchema_K2::IsExecPin(*OtherPin))
	{
		OutReason = TEXT("Cannot connect exec pins to an operator");
		return true;
	}
	if (Type.IsContainer())
	{
		OutReason = TEXT("Operators do not take arrays, sets or maps");
		return true;
	}
	if (MyPin->Direction == EGPD_Output || WildcardTypes::IsOpen(Type) || MyPin->PinName == OperatorPins::TolerancePin)
	{
		return false;
	}
	TArray<FEdGraphPinType> Given;
	for (const UEdGraphPin* const Pin : GetInputPins())
	{
		Given.Add(Pin == MyPin ? Type : OperatorPins::GivenType(*Pin));
	}
	if (FTypePromotion::FindBestMatchingFunc(OperationName, Given))
	{
		return false;
	}
	OutReason = FString::Printf(TEXT("No matching '%s' operator for '%s'"), *OperationName.ToString(),
		*UEdGraphSchema_K2::TypeToText(Type).ToString());
	return true;
}

bool UK2Node_PromotableOperator::CanAddPin() const
{
	return NumAdditionalInputs + 2 < GetMaxInputPinsNum() && FTypePromotion::TakesMoreOperands(OperationName);
}

void UK2Node_PromotableOperator::AddInputPin()
{
	if (!CanAddPin())
	{
		return;
	}
	Modify();
	CreatePin(EGPD_Input, WildcardTypes::Open(), GetNameForAdditionalPin(NumAdditionalInputs + 2));
	++NumAdditionalInputs;
	UpdateFromBestMatchingFunction();
}

bool UK2Node_PromotableOperator::CanRemovePin(const UEdGraphPin* Pin) const
{
	return Pin && !Pin->ParentPin && NumAdditionalInputs > 0
		&& OperatorPins::IndexOfAdditional(*this, Pin) != INDEX_NONE;
}

void UK2Node_PromotableOperator::RemoveInputPin(UEdGraphPin* Pin)
{
	if (CanRemovePin(Pin))
	{
		Modify();
		OperatorPins::RemoveAdditional(*this, Pin, NumAdditionalInputs);
		UpdateFromBestMatchingFunction();
	}
}
