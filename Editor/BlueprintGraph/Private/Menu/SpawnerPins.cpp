#include "Menu/SpawnerPins.h"

#include "EdGraphSchema_K2.h"
#include "Engine/MemberReference.h"
#include "Nodes/FunctionPins.h"
#include "UObject/UnrealType.h"

namespace SpawnerPins
{
using FSchema = UEdGraphSchema_K2;

static FEdGraphPinType PlainType(FName Category, UObject* Object = nullptr)
{
	FEdGraphPinType Type;
	Type.PinCategory = Category;
	Type.PinSubCategoryObject = Object;
	return Type;
}

bool AnyOf(const UEdGraphNode& Node, FPinVisitor Visit)
{
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (!Pin->bHidden && Visit(Pin->PinType, Pin->Direction))
		{
			return true;
		}
	}
	return false;
}

bool AnyExec(FPinVisitor Visit)
{
	const FEdGraphPinType Exec = PlainType(FSchema::PC_Exec);
	return Visit(Exec, EGPD_Input) || Visit(Exec, EGPD_Output);
}

bool AnyObject(UClass& Class, EEdGraphPinDirection Direction, FPinVisitor Visit)
{
	return Visit(PlainType(FSchema::PC_Object, &Class), Direction);
}

bool AnyValue(const FProperty& Property, EEdGraphPinDirection Direction, FPinVisitor Visit)
{
	FEdGraphPinType Type;
	return FSchema::ConvertPropertyToPinTypeStatic(&Property, Type) && Visit(Type, Direction);
}

bool AnyMember(const UScriptStruct& Struct, EEdGraphPinDirection Direction, FPinVisitor Visit)
{
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		const bool bUsable = It->HasAnyPropertyFlags(CPF_BlueprintVisible)
			&& (Direction == EGPD_Output || !It->HasAnyPropertyFlags(CPF_BlueprintReadOnly));
		if (bUsable && AnyValue(**It, Direction, Visit))
		{
			return true;
		}
	}
	return false;
}

bool AnyParameter(const UFunction& Function, FPinVisitor Visit)
{
	const FFunctionPinFacts& Facts = FunctionPins::Get(Function);
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bShown = It->HasAnyPropertyFlags(CPF_Parm) && !Facts.HiddenByMetaData.Contains(It->GetFName())
			&& It->GetFName() != Facts.WorldContext;
		// A reference that is not const comes in as well as going out; it is an input pin.
		const bool bOutput = It->HasAnyPropertyFlags(CPF_OutParm) && !It->HasAnyPropertyFlags(CPF_ReferenceParm);
		if (bShown && AnyValue(**It, bOutput ? EGPD_Output : EGPD_Input, Visit))
		{
			return true;
		}
	}
	return false;
}

bool AnyOfEvent(const UFunction& Signature, FPinVisitor Visit)
{
	if (Visit(PlainType(FSchema::PC_Exec), EGPD_Output))
	{
		return true;
	}
	for (TFieldIterator<FProperty> It(&Signature, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Parm) && AnyValue(**It, EGPD_Output, Visit))
		{
			return true;
		}
	}
	return AnyDelegate(&Signature, EGPD_Output, Visit);
}

bool AnyDelegate(const UFunction* Signature, EEdGraphPinDirection Direction, FPinVisitor Visit)
{
	FEdGraphPinType Type = PlainType(FSchema::PC_Delegate);
	if (Signature)
	{
		FMemberReference::FillSimpleMemberReference(Signature, Type.PinSubCategoryMemberReference);
	}
	return Visit(Type, Direction);
}
} // namespace SpawnerPins
