// What a pin may start with, by type, and the sentence for what it may not.

#include "EdGraphSchema_K2.h"

#include "K2Node_CallFunction.h"
#include "K2Node_FunctionResult.h"
#include "Misc/PackageName.h"
#include "Schema/SchemaStructText.h"
#include "UObject/UnrealType.h"

#include <cwchar>

namespace PinDefaultCheck
{
using FSchema = UEdGraphSchema_K2;

static bool IsDigits(const FString& Text)
{
	const TCHAR* Cursor = *Text;
	Cursor += *Cursor == TEXT('-') || *Cursor == TEXT('+') ? 1 : 0;
	if (!*Cursor)
	{
		return false;
	}
	for (; *Cursor; ++Cursor)
	{
		if (*Cursor < TEXT('0') || *Cursor > TEXT('9'))
		{
			return false;
		}
	}
	return true;
}

static bool IsWholeNumber(const FString& Text, int64 Least, int64 Most)
{
	const FString Trimmed = Text.TrimStartAndEnd();
	if (!IsDigits(Trimmed) || Trimmed.Len() > 20)
	{
		return false;
	}
	errno = 0;
	const long long Value = std::wcstoll(*Trimmed, nullptr, 10);
	return errno == 0 && Value >= Least && Value <= Most;
}

static bool IsBool(const FString& Text)
{
	for (const TCHAR* const Word : {TEXT("true"), TEXT("false"), TEXT("1"), TEXT("0"), TEXT("yes"), TEXT("no")})
	{
		if (Text == Word)
		{
			return true;
		}
	}
	return false;
}

static FString CheckEnum(const UEnum& Enum, const FString& Value)
{
	static const TCHAR* const Hidden = TEXT("Hidden");
	const int32 Index = Enum.GetIndexByNameString(Value);
	const bool bIsMax = Enum.ContainsExistingMax() && Index == Enum.NumEnums() - 1;
	if (Index != INDEX_NONE && !bIsMax)
	{
		return FString();
	}
	FString Names;
	constexpr int32 MostNamed = 8;
	int32 Named = 0;
	for (int32 Entry = 0; Entry < Enum.NumEnums() && Named < MostNamed; ++Entry)
	{
		if (!Enum.HasMetaData(Hidden, Entry) && !(Enum.ContainsExistingMax() && Entry == Enum.NumEnums() - 1))
		{
			Names += (Named++ > 0 ? TEXT(", ") : TEXT("")) + Enum.GetNameStringByIndex(Entry);
		}
	}
	return FString::Printf(TEXT("'%s' is not an entry of the enum %s (it has %s)"), *Value, *Enum.GetName(), *Names);
}

static FString CheckNumber(const FEdGraphPinType& Type, const FString& Value)
{
	const FName Category = Type.PinCategory;
	if (Category == FSchema::PC_Byte && !IsWholeNumber(Value, 0, 255))
	{
		return FString::Printf(TEXT("'%s' is not a valid byte (0 to 255)"), *Value);
	}
	if (Category == FSchema::PC_Int && !IsWholeNumber(Value, MIN_int32, MAX_int32))
	{
		return FString::Printf(TEXT("'%s' is not a valid integer"), *Value);
	}
	if (Category == FSchema::PC_Int64 && !IsWholeNumber(Value, MIN_int64, MAX_int64))
	{
		return FString::Printf(TEXT("'%s' is not a valid 64-bit integer"), *Value);
	}
	double Number = 0.0;
	if (Category == FSchema::PC_Real && !SchemaStructText::ReadReal(Value, Number))
	{
		return FString::Printf(TEXT("'%s' is not a valid number"), *Value);
	}
	return FString();
}

static FString ClassName(const UObject* Class)
{
	return Class ? Class->GetName() : FString(TEXT("Object"));
}

static FString CheckObject(const FEdGraphPinType& Type, FName PinName, const FString& Value, const UObject* Object)
{
	const FName Category = Type.PinCategory;
	const UClass* const Wanted = Cast<UClass>(Type.PinSubCategoryObject.Get());
	const FString TypeText = FSchema::TypeToText(Type).ToString();
	if (!Object)
	{
		const bool bEmpty = Value.IsEmpty() || Value == TEXT("None");
		return bEmpty ? FString()
					  : FString::Printf(TEXT("'%s' names no object that pin '%s' (%s) could take"), *Value,
						  *PinName.ToString(), *TypeText);
	}
	if (Category == FSchema::PC_Interface)
	{
		return FString::Printf(
			TEXT("'%s' must have an input wired into it, as a %s has no default"), *PinName.ToString(), *TypeText);
	}
	if (Category == FSchema::PC_Class)
	{
		const UClass* const Class = Cast<UClass>(Object);
		const bool bFits = Class
			&& (!Wanted || Class->IsChildOf(Wanted)
				|| Class->GetAuthoritativeClass()->IsChildOf(Wanted->GetAuthoritativeClass()));
		return bFits ? FString()
					 : FString::Printf(TEXT("%s is not a child class of %s"), *Object->GetName(), *ClassName(Wanted));
	}
	const bool bFits = !Wanted || UE::Object::IsObjectA(Object, Wanted) || Object->HasAnyFlags(RF_ClassDefaultObject);
	return bFits ? FString()
				 : FString::Printf(TEXT("%s is a %s, and pin '%s' takes a %s"), *Object->GetName(),
					 *Object->GetClass()->GetName(), *PinName.ToString(), *ClassName(Wanted));
}

static FString CheckSoftReference(const FEdGraphPinType& Type, FName PinName, const FString& Value)
{
	FText Reason;
	return Value == TEXT("None") || FPackageName::IsValidObjectPath(Value, &Reason)
		? FString()
		: FString::Printf(TEXT("'%s' is no path that pin '%s' (%s) could hold: %s"), *Value, *PinName.ToString(),
			*FSchema::TypeToText(Type).ToString(), *Reason.ToString());
}

static FString CheckStruct(const FEdGraphPinType& Type, const FString& Value)
{
	const UScriptStruct* const Struct = Cast<UScriptStruct>(Type.PinSubCategoryObject.Get());
	if (!Struct || Value.IsEmpty())
	{
		return FString();
	}
	const FString Fault = SchemaStructText::FindFault(*Struct, Value);
	return Fault.IsEmpty() ? FString()
						   : FString::Printf(TEXT("'%s' is not a valid %s: %s"), *Value, *Struct->GetName(), *Fault);
}

static FString Check(const FEdGraphPinType& Type, FName PinName, const FString& Value, const UObject* Object)
{
	using namespace PinDefaultCheck;
	const FName Category = Type.PinCategory;
	if (Type.IsContainer())
	{
		return Value.IsEmpty() || Value == TEXT("()")
			? FString()
			: FString::Printf(TEXT("'%s' must have an input wired into it: a literal cannot stand for a container"),
				*PinName.ToString());
	}
	if (Category == FSchema::PC_Object || Category == FSchema::PC_Class || Category == FSchema::PC_Interface)
	{
		return CheckObject(Type, PinName, Value, Object);
	}
	if (Value.IsEmpty())
	{
		return FString();
	}
	if (Category == FSchema::PC_Boolean)
	{
		return IsBool(Value) ? FString() : FString::Printf(TEXT("'%s' is neither true nor false"), *Value);
	}
	if (Category == FSchema::PC_SoftObject || Category == FSchema::PC_SoftClass)
	{
		return CheckSoftReference(Type, PinName, Value);
	}
	if (const UEnum* const Enum = Cast<UEnum>(Type.PinSubCategoryObject.Get()))
	{
		return CheckEnum(*Enum, Value);
	}
	if (Category == FSchema::PC_Struct)
	{
		return CheckStruct(Type, Value);
	}
	const bool bNoLiteral = Category == FSchema::PC_Exec || Category == FSchema::PC_Delegate
		|| Category == FSchema::PC_MCDelegate;
	if (bNoLiteral)
	{
		return FString::Printf(TEXT("'%s' must have an input wired into it: a %s takes no literal"),
			*PinName.ToString(), *FSchema::TypeToText(Type).ToString());
	}
	return CheckNumber(Type, Value);
}
} // namespace PinDefaultCheck

bool UEdGraphSchema_K2::DefaultValueSimpleValidation(const FEdGraphPinType& PinType, const FName PinName,
	const FString& NewDefaultValue, TObjectPtr<UObject> NewDefaultObject, const FText&, FString* OutMsg) const
{
	const FString Message = PinDefaultCheck::Check(PinType, PinName, NewDefaultValue, NewDefaultObject.Get());
	if (OutMsg)
	{
		*OutMsg = Message;
	}
	return Message.IsEmpty();
}

bool UEdGraphSchema_K2::IsAutoCreateRefTerm(const UEdGraphPin* Pin)
{
	const UK2Node_CallFunction* const Call = Pin ? Cast<UK2Node_CallFunction>(Pin->GetOwningNodeUnchecked()) : nullptr;
	const UFunction* const Function = Call ? Call->GetTargetFunction() : nullptr;
	if (!Function || Pin->PinName.IsNone())
	{
		return false;
	}
	TArray<FString> Names;
	Function->GetMetaData(FBlueprintMetadata::MD_AutoCreateRefTerm).ParseIntoArray(Names, TEXT(","));
	return Names.ContainsByPredicate(
		[Pin](const FString& Name) { return FName(*Name.TrimStartAndEnd()) == Pin->PinName; });
}

FString UEdGraphSchema_K2::IsPinDefaultValid(const UEdGraphPin* Pin, const FString& NewDefaultValue,
	TObjectPtr<UObject> NewDefaultObject, const FText& InNewDefaultText) const
{
	check(Pin);
	const UEdGraphNode* const Node = Pin->GetOwningNode();
	// A result that nothing is wired into keeps the value of its type.
	const bool bIsResult = Node && Node->IsA<UK2Node_FunctionResult>();
	const bool bChanged = !Pin->PinType.bIsConst && Node && Node->IsA<UK2Node_CallFunction>();
	const bool bNeedsLink = Pin->Direction == EGPD_Input && Pin->PinType.bIsReference
		&& (Pin->bDefaultValueIsIgnored || bChanged) && Pin->SubPins.IsEmpty() && !bIsResult
		&& Pin->PinType.PinCategory != PC_Wildcard && !IsAutoCreateRefTerm(Pin);
	if (bNeedsLink)
	{
		return FString::Printf(
			TEXT(
				"'%s' must have an input wired into it (it is passed by reference, so there must be something to refer to)"),
			*Pin->GetDisplayName().ToString());
	}
	FString Message;
	DefaultValueSimpleValidation(
		Pin->PinType, Pin->PinName, NewDefaultValue, NewDefaultObject, InNewDefaultText, &Message);
	return Message;
}
