// What pins start with: defaults by type, defaults of C++ parameters, and how a text becomes a value, an object or a
// text.

#include "EdGraphSchema_K2.h"

#include "Engine/Blueprint.h"
#include "K2Node.h"
#include "Misc/PackageName.h"
#include "Schema/SchemaStructText.h"
#include "UObject/UnrealType.h"

namespace PinDefaults
{
using FSchema = UEdGraphSchema_K2;

static bool HoldsObject(const FEdGraphPinType& Type)
{
	return !Type.IsContainer()
		&& (Type.PinCategory == FSchema::PC_Object || Type.PinCategory == FSchema::PC_Class
			|| Type.PinCategory == FSchema::PC_Interface);
}

static bool HoldsText(const FEdGraphPinType& Type)
{
	return !Type.IsContainer() && Type.PinCategory == FSchema::PC_Text;
}

/** "Class'/Path/To.Asset'" and quoted paths give the path alone. */
static FString PathWithin(const FString& Text)
{
	return FPackageName::ExportTextPathToObjectPath(Text.TrimStartAndEnd());
}

/** A class pin that is given a Blueprint means the class that this makes. */
static UObject* AsClass(UObject* Object)
{
	UBlueprint* const Blueprint = Cast<UBlueprint>(Object);
	return Blueprint ? Blueprint->GeneratedClass.Get() : Cast<UClass>(Object);
}

static UObject* FindNamedObject(const FEdGraphPinType& Type, const FString& Text)
{
	const FString Path = PathWithin(Text);
	if (Path.IsEmpty() || Path == TEXT("None"))
	{
		return nullptr;
	}
	const bool bIsClassPin = Type.PinCategory == FSchema::PC_Class;
	int32 Slash = INDEX_NONE;
	if (!Path.FindChar(TEXT('/'), Slash))
	{
		// By short name a class alone can be meant; other objects are told apart by their paths.
		return bIsClassPin ? StaticFindFirstObject(UClass::StaticClass(), *Path) : nullptr;
	}
	UObject* const Object = StaticLoadObject(UObject::StaticClass(), nullptr, *Path, nullptr, LOAD_Quiet | LOAD_NoWarn);
	return bIsClassPin ? AsClass(Object) : Object;
}

static FText ReadText(const FString& Value)
{
	return FTextStringHelper::IsComplexText(*Value) ? FTextStringHelper::CreateFromBuffer(*Value)
													: FText::FromString(Value);
}

/** Entries are kept without their scope; the scope is only a way to write them. */
static FString EnumEntry(const UEnum& Enum, const FString& Value)
{
	const int32 Index = Enum.GetIndexByNameString(Value.TrimStartAndEnd());
	return Index != INDEX_NONE && Value.Contains(TEXT("::")) ? Enum.GetNameStringByIndex(Index) : Value;
}

static bool SameNumber(const FString& A, const FString& B)
{
	double NumberA = 0.0;
	double NumberB = 0.0;
	return SchemaStructText::ReadReal(A, NumberA) && SchemaStructText::ReadReal(B, NumberB) && NumberA == NumberB;
}

/** Whether two texts mean the same value: "0" and "0.0" do, "1,2,3" and "1.0, 2.0, 3.0" do. */
static bool SameValue(const FEdGraphPinType& Type, const FString& A, const FString& B)
{
	if (A.Equals(B))
	{
		return true;
	}
	if (Type.IsContainer())
	{
		return false;
	}
	const FName Category = Type.PinCategory;
	if (Category == FSchema::PC_Boolean)
	{
		return A.ToBool() == B.ToBool();
	}
	if (Category == FSchema::PC_Real || Category == FSchema::PC_Int || Category == FSchema::PC_Int64)
	{
		const FString Zero(TEXT("0"));
		return SameNumber(A.IsEmpty() ? Zero : A, B.IsEmpty() ? Zero : B);
	}
	if (Category == FSchema::PC_Name)
	{
		return FName(*A) == FName(*B);
	}
	if (const UEnum* const Enum = Cast<UEnum>(Type.PinSubCategoryObject.Get()))
	{
		return EnumEntry(*Enum, A).Equals(EnumEntry(*Enum, B));
	}
	const UScriptStruct* const Struct = Cast<UScriptStruct>(Type.PinSubCategoryObject.Get());
	return Category == FSchema::PC_Struct && Struct && SchemaStructText::IsSameValue(*Struct, A, B);
}

static void Assign(UEdGraphPin& Pin, const FString& Value, UObject* Object, const FText& Text)
{
	Pin.DefaultValue = Value;
	Pin.DefaultObject = Object;
	Pin.DefaultTextValue = Text;
}

static void Notify(UEdGraphPin& Pin, bool bMarkAsModified)
{
	UEdGraphNode* const Node = Pin.GetOwningNode();
	if (bMarkAsModified)
	{
		Pin.Modify();
		UBlueprint* const Blueprint = Node->GetTypedOuter<UBlueprint>();
		if (Blueprint && Blueprint->IsUpToDate())
		{
			Blueprint->Status = BS_Dirty;
		}
	}
	Node->PinDefaultValueChanged(&Pin);
}

static bool IsEnum(const FEdGraphPinType& Type)
{
	return Type.PinCategory == FSchema::PC_Byte && !Type.IsContainer() && Cast<UEnum>(Type.PinSubCategoryObject.Get());
}

static FString ZeroOf(const FEdGraphPinType& Type)
{
	if (Type.IsContainer())
	{
		return FString();
	}
	const FName Category = Type.PinCategory;
	if (Category == FSchema::PC_Byte)
	{
		const UEnum* const Enum = Cast<UEnum>(Type.PinSubCategoryObject.Get());
		return Enum ? Enum->GetNameStringByIndex(0) : FString(TEXT("0"));
	}
	if (Category == FSchema::PC_Int || Category == FSchema::PC_Int64)
	{
		return TEXT("0");
	}
	if (Category == FSchema::PC_Real)
	{
		return TEXT("0.0");
	}
	if (Category == FSchema::PC_Boolean)
	{
		return TEXT("false");
	}
	if (Category == FSchema::PC_Name)
	{
		return TEXT("None");
	}
	const UScriptStruct* const Struct = Cast<UScriptStruct>(Type.PinSubCategoryObject.Get());
	return Category == FSchema::PC_Struct && Struct && SchemaStructText::IsRow(*Struct) ? FString(TEXT("0, 0, 0"))
																						: FString();
}
} // namespace PinDefaults

void UEdGraphSchema_K2::GetPinDefaultValuesFromString(const FEdGraphPinType& PinType, UObject*,
	const FString& NewDefaultValue, FString& UseDefaultValue, TObjectPtr<UObject>& UseDefaultObject,
	FText& UseDefaultText, bool) const
{
	using namespace PinDefaults;
	UseDefaultValue = FString();
	UseDefaultObject = nullptr;
	UseDefaultText = FText::GetEmpty();
	if (HoldsObject(PinType))
	{
		UseDefaultObject = FindNamedObject(PinType, NewDefaultValue);
		// A name that leads nowhere stays visible, so that the check of the default can tell of it.
		const FString Path = PathWithin(NewDefaultValue);
		UseDefaultValue = UseDefaultObject || Path == TEXT("None") ? FString() : Path;
		return;
	}
	if (HoldsText(PinType))
	{
		UseDefaultText = ReadText(NewDefaultValue);
		return;
	}
	UseDefaultValue = NewDefaultValue;
	if (PinType.IsContainer())
	{
		return;
	}
	if (const UScriptStruct* const Struct = Cast<UScriptStruct>(PinType.PinSubCategoryObject.Get()))
	{
		UseDefaultValue = SchemaStructText::Normalise(*Struct, NewDefaultValue);
	}
	else if (const UEnum* const Enum = Cast<UEnum>(PinType.PinSubCategoryObject.Get()))
	{
		UseDefaultValue = EnumEntry(*Enum, NewDefaultValue);
	}
	else if (PinType.PinCategory == PC_SoftObject || PinType.PinCategory == PC_SoftClass)
	{
		UseDefaultValue = PathWithin(NewDefaultValue);
	}
}

void UEdGraphSchema_K2::TrySetDefaultValue(
	UEdGraphPin& InPin, const FString& InNewDefaultValue, bool bMarkAsModified) const
{
	FString Value;
	TObjectPtr<UObject> Object;
	FText Text;
	GetPinDefaultValuesFromString(InPin.PinType, InPin.GetOwningNode(), InNewDefaultValue, Value, Object, Text);
	PinDefaults::Assign(InPin, Value, Object.Get(), Text);
	PinDefaults::Notify(InPin, bMarkAsModified);
}

void UEdGraphSchema_K2::TrySetDefaultObject(UEdGraphPin& InPin, UObject* InNewDefaultObject, bool bMarkAsModified) const
{
	PinDefaults::Assign(InPin, FString(), InNewDefaultObject, FText::GetEmpty());
	PinDefaults::Notify(InPin, bMarkAsModified);
}

void UEdGraphSchema_K2::TrySetDefaultText(UEdGraphPin& InPin, const FText& InNewDefaultText, bool bMarkAsModified) const
{
	if (PinDefaults::HoldsText(InPin.PinType))
	{
		PinDefaults::Assign(InPin, FString(), nullptr, InNewDefaultText);
	}
	else
	{
		InPin.DefaultTextValue = InNewDefaultText;
	}
	PinDefaults::Notify(InPin, bMarkAsModified);
}

bool UEdGraphSchema_K2::DoesDefaultValueMatch(const UEdGraphPin& InPin, const FString& InPinValue) const
{
	using namespace PinDefaults;
	if (HoldsObject(InPin.PinType))
	{
		const FString Path = PathWithin(InPinValue);
		const UObject* const Object = InPin.DefaultObject.Get();
		const bool bWantsNone = Path.IsEmpty() || Path == TEXT("None");
		if (!Object)
		{
			return InPin.DefaultValue.IsEmpty() ? bWantsNone : InPin.DefaultValue.Equals(Path);
		}
		return Object->GetPathName() == Path;
	}
	if (HoldsText(InPin.PinType))
	{
		return InPin.DefaultTextValue.ToString().Equals(ReadText(InPinValue).ToString());
	}
	return SameValue(InPin.PinType, InPin.DefaultValue, InPinValue);
}

bool UEdGraphSchema_K2::DoesDefaultValueMatchAutogenerated(const UEdGraphPin& InPin) const
{
	// Some pins are generated without a text, and mean the first value of their type.
	if (InPin.AutogeneratedDefaultValue.IsEmpty() && DoesDefaultValueMatch(InPin, PinDefaults::ZeroOf(InPin.PinType)))
	{
		return true;
	}
	return DoesDefaultValueMatch(InPin, InPin.AutogeneratedDefaultValue);
}

void UEdGraphSchema_K2::ResetPinToAutogeneratedDefaultValue(UEdGraphPin* Pin, bool bCallModifyCallbacks) const
{
	if (Pin->bOrphanedPin)
	{
		// Nothing generates a default for a pin that is gone; what keeps it is its links.
		Pin->BreakAllPinLinks();
	}
	else
	{
		FString Value;
		TObjectPtr<UObject> Object;
		FText Text;
		const bool bFirstOfEnum = PinDefaults::IsEnum(Pin->PinType) && Pin->AutogeneratedDefaultValue.IsEmpty();
		GetPinDefaultValuesFromString(Pin->PinType, Pin->GetOwningNode(),
			bFirstOfEnum ? PinDefaults::ZeroOf(Pin->PinType) : Pin->AutogeneratedDefaultValue, Value, Object, Text);
		PinDefaults::Assign(*Pin, Value, Object.Get(), Text);
	}
	if (bCallModifyCallbacks)
	{
		PinDefaults::Notify(*Pin, true);
	}
}

void UEdGraphSchema_K2::SetPinAutogeneratedDefaultValue(UEdGraphPin* Pin, const FString& NewValue) const
{
	Pin->AutogeneratedDefaultValue = NewValue;
	ResetPinToAutogeneratedDefaultValue(Pin, false);
}

void UEdGraphSchema_K2::SetPinAutogeneratedDefaultValueBasedOnType(UEdGraphPin* Pin) const
{
	// Which entry of an enum comes first may change, so that a pin remembers none that nobody asked for.
	SetPinAutogeneratedDefaultValue(
		Pin, PinDefaults::IsEnum(Pin->PinType) ? FString() : PinDefaults::ZeroOf(Pin->PinType));
}

void UEdGraphSchema_K2::SetPinDefaultValueAtConstruction(UEdGraphPin* Pin, const FString& DefaultValueString) const
{
	SetPinAutogeneratedDefaultValueBasedOnType(Pin);
	if (!DefaultValueString.IsEmpty())
	{
		SetPinAutogeneratedDefaultValue(Pin, DefaultValueString);
	}
}

bool UEdGraphSchema_K2::FindFunctionParameterDefaultValue(
	const UFunction* Function, const FProperty* Param, FString& OutString) const
{
	const FString Name = Param->GetName();
	for (const TCHAR* const Prefix : {TEXT("CPP_Default_"), TEXT("")})
	{
		const FString* const Default = Function->FindMetaData(FName(Prefix + Name));
		if (Default && !(Prefix[0] == TEXT('\0') && Default->IsEmpty()))
		{
			OutString = *Default;
			return true;
		}
	}
	return false;
}
