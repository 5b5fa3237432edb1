#include "Menu/PinMatch.h"

#include "EdGraphSchema_K2.h"
#include "Templates/UniquePtr.h"

namespace PinMatches
{
using FSchema = UEdGraphSchema_K2;

static bool IsReference(const FEdGraphPinType& Type)
{
	return Type.PinCategory == FSchema::PC_Object || Type.PinCategory == FSchema::PC_Interface
		|| Type.PinCategory == FSchema::PC_Class;
}

/** Whether a node that converts would be put between. */
static bool IsConvertible(const FEdGraphPinType& Output, const FEdGraphPinType& Input)
{
	// A cast between references may fail, and no author looks for what an object probably is not; what becomes an array
	// of one by itself would fit everywhere.
	if ((IsReference(Output) && IsReference(Input)) || Input.IsArray())
	{
		return false;
	}
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	FName Function;
	UClass* Owner = nullptr;
	if (Schema->SearchForAutocastFunction(Output, Input, Function, Owner))
	{
		return true;
	}
	const TUniquePtr<UEdGraphPin> Asked(UEdGraphPin::CreatePin(nullptr));
	Asked->Direction = EGPD_Input;
	Asked->PinType = Input;
	UK2Node* Node = nullptr;
	return Schema->FindSpecializedConversionNode(Output, *Asked, false, Node);
}

static bool IsRelated(const UClass& A, const UClass& B)
{
	return A.IsChildOf(&B) || A.GetAuthoritativeClass()->IsChildOf(B.GetAuthoritativeClass());
}
} // namespace PinMatches

FPinMatch::FPinMatch(const UEdGraphPin& InPin, const UClass* InCallingContext)
	: Pin(InPin)
	, CallingContext(InCallingContext)
{
}

bool FPinMatch::Ask(const FEdGraphPinType& Type) const
{
	const bool bGives = Pin.Direction == EGPD_Output;
	const FEdGraphPinType& Output = bGives ? Pin.PinType : Type;
	const FEdGraphPinType& Input = bGives ? Type : Pin.PinType;
	return GetDefault<UEdGraphSchema_K2>()->ArePinTypesCompatible(Output, Input, CallingContext)
		|| PinMatches::IsConvertible(Output, Input);
}

bool FPinMatch::Takes(const FEdGraphPinType& Type, EEdGraphPinDirection Direction)
{
	if (Direction == Pin.Direction)
	{
		return false;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Delegate)
	{
		return Ask(Type);
	}
	const FTypeKey Key{Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get(),
		Type.PinValueType.TerminalCategory, Type.PinValueType.TerminalSubCategoryObject.Get(), Type.ContainerType};
	const bool* const Answer = Known.Find(Key);
	return Answer ? *Answer : Known.Add(Key, Ask(Type));
}

bool FPinMatch::MayCastTo(const UClass& Target) const
{
	const FEdGraphPinType& Type = Pin.PinType;
	if (Pin.Direction != EGPD_Output || !PinMatches::IsReference(Type))
	{
		return true;
	}
	const UClass* const Source = Type.PinSubCategory == UEdGraphSchema_K2::PSC_Self
		? CallingContext
		: Cast<UClass>(Type.PinSubCategoryObject.Get());
	// Any object may implement an interface that its class does not.
	const bool bInterface = Target.HasAnyClassFlags(CLASS_Interface)
		|| (Source && Source->HasAnyClassFlags(CLASS_Interface));
	return !Source || bInterface || PinMatches::IsRelated(Target, *Source);
}
