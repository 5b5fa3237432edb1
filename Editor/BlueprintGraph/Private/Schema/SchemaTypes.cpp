// Pin types: what property makes which, how they read to people, and which go together.

#include "EdGraphSchema_K2.h"

#include "Engine/Blueprint.h"
#include "Engine/MemberReference.h"
#include "UObject/UnrealType.h"

namespace SchemaTypes
{
/** The enum of a byte that names its values, or null. */
static UObject* EnumOf(const FProperty* Property)
{
	if (const FEnumProperty* const Enum = CastField<FEnumProperty>(Property))
	{
		return Enum->GetEnum();
	}
	const FByteProperty* const Byte = CastField<FByteProperty>(Property);
	return Byte ? Byte->Enum : nullptr;
}

static UObject* Authoritative(UClass* Class)
{
	return Class ? Class->GetAuthoritativeClass() : nullptr;
}

/** Objects and classes, soft or hard. */
static bool ConvertReference(const FProperty* Property, FName& OutCategory, UObject*& OutObject, bool& bOutWeak)
{
	if (const FInterfaceProperty* const Interface = CastField<FInterfaceProperty>(Property))
	{
		OutCategory = UEdGraphSchema_K2::PC_Interface;
		OutObject = Authoritative(Interface->InterfaceClass);
	}
	else if (const FClassProperty* const Class = CastField<FClassProperty>(Property))
	{
		OutCategory = UEdGraphSchema_K2::PC_Class;
		OutObject = Authoritative(Class->MetaClass);
	}
	else if (const FSoftClassProperty* const SoftClass = CastField<FSoftClassProperty>(Property))
	{
		OutCategory = UEdGraphSchema_K2::PC_SoftClass;
		OutObject = Authoritative(SoftClass->MetaClass);
	}
	else if (const FSoftObjectProperty* const SoftObject = CastField<FSoftObjectProperty>(Property))
	{
		OutCategory = UEdGraphSchema_K2::PC_SoftObject;
		OutObject = Authoritative(SoftObject->PropertyClass);
	}
	else if (const FObjectPropertyBase* const Object = CastField<FObjectPropertyBase>(Property))
	{
		OutCategory = UEdGraphSchema_K2::PC_Object;
		OutObject = Authoritative(Object->PropertyClass);
		bOutWeak = Property->IsA<FWeakObjectProperty>();
	}
	else
	{
		return false;
	}
	return true;
}

static bool ConvertPlain(const FProperty* Property, FName& OutCategory, FName& OutSubCategory)
{
	using FSchema = UEdGraphSchema_K2;
	struct FRow
	{
		const FFieldClass* Class;
		FName Category;
		FName SubCategory;
	};
	static const FRow Rows[] = {{FBoolProperty::StaticClass(), FSchema::PC_Boolean, NAME_None},
		{FIntProperty::StaticClass(), FSchema::PC_Int, NAME_None},
		{FInt64Property::StaticClass(), FSchema::PC_Int64, NAME_None},
		{FFloatProperty::StaticClass(), FSchema::PC_Real, FSchema::PC_Float},
		{FDoubleProperty::StaticClass(), FSchema::PC_Real, FSchema::PC_Double},
		{FStrProperty::StaticClass(), FSchema::PC_String, NAME_None},
		{FNameProperty::StaticClass(), FSchema::PC_Name, NAME_None},
		{FTextProperty::StaticClass(), FSchema::PC_Text, NAME_None},
		{FFieldPathProperty::StaticClass(), FSchema::PC_FieldPath, NAME_None}};
	for (const FRow& Row : Rows)
	{
		if (Property->GetClass() == Row.Class)
		{
			OutCategory = Row.Category;
			OutSubCategory = Row.SubCategory;
			return true;
		}
	}
	return false;
}

/** The terminal type of one property: that of an element, where the property is a container's. */
static bool ConvertTerminal(const FProperty* Property, FEdGraphPinType& Out)
{
	FName Category;
	FName SubCategory;
	UObject* Object = nullptr;
	bool bWeak = false;
	if (Property->IsA<FByteProperty>() || Property->IsA<FEnumProperty>())
	{
		Category = UEdGraphSchema_K2::PC_Byte;
		Object = EnumOf(Property);
	}
	else if (const FStructProperty* const Struct = CastField<FStructProperty>(Property))
	{
		Category = UEdGraphSchema_K2::PC_Struct;
		Object = Struct->Struct;
	}
	else if (!ConvertPlain(Property, Category, SubCategory) && !ConvertReference(Property, Category, Object, bWeak))
	{
		return false;
	}
	Out.PinCategory = Category;
	Out.PinSubCategory = SubCategory;
	Out.PinSubCategoryObject = Object;
	Out.bIsWeakPointer = bWeak;
	Out.bIsUObjectWrapper = Property->HasAnyPropertyFlags(CPF_UObjectWrapper);
	return true;
}

static bool ConvertDelegate(const FProperty* Property, FEdGraphPinType& Out)
{
	const UFunction* Signature = nullptr;
	if (const FMulticastDelegateProperty* const Multicast = CastField<FMulticastDelegateProperty>(Property))
	{
		Out.PinCategory = UEdGraphSchema_K2::PC_MCDelegate;
		Signature = Multicast->SignatureFunction;
	}
	else if (const FDelegateProperty* const Delegate = CastField<FDelegateProperty>(Property))
	{
		Out.PinCategory = UEdGraphSchema_K2::PC_Delegate;
		Signature = Delegate->SignatureFunction;
	}
	else
	{
		return false;
	}
	FMemberReference::FillSimpleMemberReference(Signature, Out.PinSubCategoryMemberReference);
	return true;
}
} // namespace SchemaTypes

bool UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(const FProperty* Property, FEdGraphPinType& TypeOut)
{
	TypeOut.ResetToDefaults();
	if (!Property)
	{
		TypeOut.PinCategory = TEXT("bad_type");
		return false;
	}
	const FProperty* Terminal = Property;
	if (const FMapProperty* const Map = CastField<FMapProperty>(Property))
	{
		FEdGraphPinType ValueType;
		if (!SchemaTypes::ConvertTerminal(Map->ValueProp, ValueType))
		{
			TypeOut.PinCategory = TEXT("bad_type");
			return false;
		}
		TypeOut.PinValueType = FEdGraphTerminalType::FromPinType(ValueType);
		TypeOut.ContainerType = EPinContainerType::Map;
		Terminal = Map->KeyProp;
	}
	else if (const FSetProperty* const Set = CastField<FSetProperty>(Property))
	{
		TypeOut.ContainerType = EPinContainerType::Set;
		Terminal = Set->ElementProp;
	}
	else if (const FArrayProperty* const Array = CastField<FArrayProperty>(Property))
	{
		TypeOut.ContainerType = EPinContainerType::Array;
		Terminal = Array->Inner;
	}
	if (!SchemaTypes::ConvertDelegate(Terminal, TypeOut) && !SchemaTypes::ConvertTerminal(Terminal, TypeOut))
	{
		TypeOut.PinCategory = TEXT("bad_type");
		return false;
	}
	TypeOut.bIsReference = Property->HasAllPropertyFlags(CPF_OutParm | CPF_ReferenceParm);
	TypeOut.bIsConst = Property->HasAnyPropertyFlags(CPF_ConstParm);
	return true;
}

namespace SchemaTypes
{

/** Words behind a class's name for each kind of reference. */
static const TCHAR* ReferenceSuffix(FName Category, bool bWeak)
{
	if (Category == UEdGraphSchema_K2::PC_Class)
	{
		return TEXT("Class Reference");
	}
	if (Category == UEdGraphSchema_K2::PC_SoftClass)
	{
		return TEXT("Soft Class Reference");
	}
	if (Category == UEdGraphSchema_K2::PC_SoftObject)
	{
		return TEXT("Soft Object Reference");
	}
	if (Category == UEdGraphSchema_K2::PC_Interface)
	{
		return TEXT("Interface Reference");
	}
	return bWeak ? TEXT("Weak Object Reference") : TEXT("Object Reference");
}

/** Structs that everybody calls by their bare names. */
static bool IsWellKnownStruct(const UObject& Struct)
{
	static const TSet<FName> Names = {FName(TEXT("Vector")), FName(TEXT("Rotator")), FName(TEXT("Transform"))};
	return Names.Contains(Struct.GetFName());
}

static bool IsReferenceCategory(FName Category)
{
	return Category == UEdGraphSchema_K2::PC_Object || Category == UEdGraphSchema_K2::PC_Class
		|| Category == UEdGraphSchema_K2::PC_SoftObject || Category == UEdGraphSchema_K2::PC_SoftClass
		|| Category == UEdGraphSchema_K2::PC_Interface;
}
} // namespace SchemaTypes

FText UEdGraphSchema_K2::GetCategoryText(FName Category, FName SubCategory, bool)
{
	struct FRow
	{
		FName Category;
		const TCHAR* Text;
	};
	static const FRow Rows[] = {{PC_Exec, TEXT("Exec")}, {PC_Boolean, TEXT("Boolean")}, {PC_Byte, TEXT("Byte")},
		{PC_Class, TEXT("Class Reference")}, {PC_SoftClass, TEXT("Soft Class Reference")}, {PC_Int, TEXT("Integer")},
		{PC_Int64, TEXT("Integer64")}, {PC_Name, TEXT("Name")}, {PC_Delegate, TEXT("Delegate")},
		{PC_MCDelegate, TEXT("Multicast Delegate")}, {PC_Object, TEXT("Object Reference")},
		{PC_Interface, TEXT("Interface Reference")}, {PC_SoftObject, TEXT("Soft Object Reference")},
		{PC_String, TEXT("String")}, {PC_Text, TEXT("Text")}, {PC_Struct, TEXT("Structure")},
		{PC_Wildcard, TEXT("Wildcard")}, {PC_Enum, TEXT("Enum")}, {PC_FieldPath, TEXT("Field Path")}};
	if (Category == PC_Real)
	{
		return FText::FromString(SubCategory == PC_Float ? TEXT("Float (single-precision)")
				: SubCategory == PC_Double				 ? TEXT("Float (double-precision)")
														 : TEXT("Real"));
	}
	for (const FRow& Row : Rows)
	{
		if (Row.Category == Category)
		{
			return FText::FromString(Row.Text);
		}
	}
	return FText::FromName(Category);
}

FText UEdGraphSchema_K2::TerminalTypeToText(
	FName Category, FName SubCategory, UObject* SubCategoryObject, bool bIsWeakPtr)
{
	if (SubCategory == PSC_Self)
	{
		return FText::FromString(TEXT("Self Reference"));
	}
	// Of the root class every object is one, so only the kind of reference is told.
	if (SubCategoryObject && SubCategoryObject != UObject::StaticClass() && SchemaTypes::IsReferenceCategory(Category))
	{
		const UField* const Field = Cast<UField>(SubCategoryObject);
		const FString Name = Field ? Field->GetDisplayNameText().ToString() : SubCategoryObject->GetName();
		return FText::FromString(Name + TEXT(" ") + SchemaTypes::ReferenceSuffix(Category, bIsWeakPtr));
	}
	if (SubCategoryObject && Category == PC_Struct)
	{
		const UField* const Field = Cast<UField>(SubCategoryObject);
		const FString Name = Field ? Field->GetDisplayNameText().ToString() : SubCategoryObject->GetName();
		return FText::FromString(SchemaTypes::IsWellKnownStruct(*SubCategoryObject) ? Name : Name + TEXT(" Structure"));
	}
	// A set of bits is a number whose bits an enum names; it is not one of the enum's values.
	if (SubCategoryObject && SubCategory != PSC_Bitmask && (Category == PC_Byte || Category == PC_Enum))
	{
		return FText::FromString(SubCategoryObject->GetName() + TEXT(" Enum"));
	}
	return GetCategoryText(Category, SubCategory);
}

FText UEdGraphSchema_K2::TypeToText(const FEdGraphPinType& Type)
{
	const FString Terminal = TerminalTypeToText(
		Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get(), Type.bIsWeakPointer)
								 .ToString();
	FString Text = Terminal;
	switch (Type.ContainerType)
	{
	case EPinContainerType::Array:
		Text = FString::Printf(TEXT("Array of %ss"), *Terminal);
		break;
	case EPinContainerType::Set:
		Text = FString::Printf(TEXT("Set of %ss"), *Terminal);
		break;
	case EPinContainerType::Map:
	{
		const FEdGraphTerminalType& Value = Type.PinValueType;
		const FText ValueText = TerminalTypeToText(Value.TerminalCategory, Value.TerminalSubCategory,
			Value.TerminalSubCategoryObject.Get(), Value.bTerminalIsWeakPointer);
		Text = FString::Printf(TEXT("Map of %ss to %ss"), *Terminal, *ValueText.ToString());
		break;
	}
	case EPinContainerType::None:
		break;
	}
	return FText::FromString(Type.bIsReference ? Text + TEXT(" (by ref)") : Text);
}

FText UEdGraphSchema_K2::TypeToText(const FProperty* Property)
{
	FEdGraphPinType Type;
	return ConvertPropertyToPinTypeStatic(Property, Type) ? TypeToText(Type)
														  : FText::FromString(Property->GetCPPType());
}

bool UEdGraphSchema_K2::IsAllowableBlueprintVariableType(const UEnum* InEnum)
{
	return InEnum != nullptr && !InEnum->GetBoolMetaData(FBlueprintMetadata::MD_NotAllowableBlueprintVariableType);
}

bool UEdGraphSchema_K2::IsAllowableBlueprintVariableType(const UScriptStruct* InStruct, bool bForInternalUse)
{
	if (!InStruct)
	{
		return false;
	}
	if (InStruct->IsA<UUserDefinedStruct>() || bForInternalUse)
	{
		return true;
	}
	for (const UStruct* Struct = InStruct; Struct; Struct = Struct->GetSuperStruct())
	{
		if (Struct->GetBoolMetaData(FBlueprintMetadata::MD_AllowableBlueprintVariableType))
		{
			return true;
		}
		if (Struct->GetBoolMetaData(FBlueprintMetadata::MD_NotAllowableBlueprintVariableType))
		{
			return false;
		}
	}
	return false;
}

bool UEdGraphSchema_K2::IsAllowableBlueprintVariableType(const UClass* InClass, bool bAssumeBlueprintType)
{
	if (!InClass || InClass == UObject::StaticClass())
	{
		return InClass != nullptr;
	}
	if (InClass->ClassGeneratedBy || bAssumeBlueprintType)
	{
		return true;
	}
	for (const UClass* Class = InClass; Class; Class = Class->GetSuperClass())
	{
		if (Class->GetBoolMetaData(FBlueprintMetadata::MD_AllowableBlueprintVariableType)
			|| Class->HasMetaData(FBlueprintMetadata::MD_BlueprintSpawnableComponent))
		{
			return true;
		}
		if (Class->GetBoolMetaData(FBlueprintMetadata::MD_NotAllowableBlueprintVariableType))
		{
			return false;
		}
	}
	return false;
}
