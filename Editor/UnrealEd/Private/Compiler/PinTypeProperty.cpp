#include "Compiler/PinTypeProperty.h"

#include "EdGraphSchema_K2.h"
#include "Engine/MemberReference.h"
#include "UObject/UnrealType.h"

namespace PinTypeProperty
{
namespace
{
using FSchema = UEdGraphSchema_K2;

FProperty* CreateByte(FFieldVariant Owner, FName Name, UEnum* Enum)
{
	// Values are read by the names of its entries; it may come from the same load.
	if (Enum)
	{
		Enum->ConditionalPostLoad();
	}
	if (Enum && Enum->GetCppForm() == UEnum::ECppForm::EnumClass)
	{
		FEnumProperty* const Property = new FEnumProperty(Owner, Name);
		Property->SetEnum(Enum);
		return Property;
	}
	FByteProperty* const Property = new FByteProperty(Owner, Name);
	Property->Enum = Enum;
	return Property;
}

FProperty* CreateObject(FFieldVariant Owner, FName Name, UClass* Class, bool bWeak)
{
	FObjectPropertyBase* Property = nullptr;
	if (bWeak)
	{
		Property = new FWeakObjectProperty(Owner, Name);
	}
	else
	{
		Property = new FObjectProperty(Owner, Name);
	}
	Property->SetPropertyClass(Class ? Class : UObject::StaticClass());
	return Property;
}

FProperty* CreateReference(FFieldVariant Owner, FName Name, const FEdGraphPinType& Type)
{
	UClass* const Class = Cast<UClass>(Type.PinSubCategoryObject.Get());
	UClass* const Base = Class ? Class : UObject::StaticClass();
	if (Type.PinCategory == FSchema::PC_Object)
	{
		return CreateObject(Owner, Name, Class, Type.bIsWeakPointer);
	}
	if (Type.PinCategory == FSchema::PC_Class)
	{
		FClassProperty* const Property = new FClassProperty(Owner, Name);
		Property->SetPropertyClass(UClass::StaticClass());
		Property->SetMetaClass(Base);
		return Property;
	}
	if (Type.PinCategory == FSchema::PC_SoftClass)
	{
		FSoftClassProperty* const Property = new FSoftClassProperty(Owner, Name);
		Property->SetPropertyClass(UClass::StaticClass());
		Property->SetMetaClass(Base);
		return Property;
	}
	if (Type.PinCategory == FSchema::PC_SoftObject)
	{
		FSoftObjectProperty* const Property = new FSoftObjectProperty(Owner, Name);
		Property->SetPropertyClass(Base);
		return Property;
	}
	if (Type.PinCategory == FSchema::PC_Interface)
	{
		FInterfaceProperty* const Property = new FInterfaceProperty(Owner, Name);
		Property->SetInterfaceClass(Class ? Class : UInterface::StaticClass());
		return Property;
	}
	return nullptr;
}

FProperty* CreateDelegate(FFieldVariant Owner, FName Name, const FEdGraphPinType& Type)
{
	UFunction* const Signature = FMemberReference::ResolveSimpleMemberReference(Type.PinSubCategoryMemberReference);
	if (Type.PinCategory == FSchema::PC_MCDelegate)
	{
		FMulticastInlineDelegateProperty* const Property = new FMulticastInlineDelegateProperty(Owner, Name);
		Property->SignatureFunction = Signature;
		return Property;
	}
	FDelegateProperty* const Property = new FDelegateProperty(Owner, Name);
	Property->SignatureFunction = Signature;
	return Property;
}

template <class T>
FProperty* Make(FFieldVariant Owner, FName Name)
{
	return new T(Owner, Name);
}

FProperty* CreatePlain(FFieldVariant Owner, FName Name, FName Category, FName SubCategory)
{
	struct FRow
	{
		FName Category;
		FProperty* (*Create)(FFieldVariant, FName);
	};
	static const FRow Rows[] = {{FSchema::PC_Boolean, &Make<FBoolProperty>}, {FSchema::PC_Int, &Make<FIntProperty>},
		{FSchema::PC_Int64, &Make<FInt64Property>}, {FSchema::PC_Name, &Make<FNameProperty>},
		{FSchema::PC_String, &Make<FStrProperty>}, {FSchema::PC_Text, &Make<FTextProperty>},
		{FSchema::PC_FieldPath, &Make<FFieldPathProperty>}};
	if (Category == FSchema::PC_Real)
	{
		return SubCategory == FSchema::PC_Float ? Make<FFloatProperty>(Owner, Name)
												: Make<FDoubleProperty>(Owner, Name);
	}
	for (const FRow& Row : Rows)
	{
		if (Row.Category == Category)
		{
			return Row.Create(Owner, Name);
		}
	}
	return nullptr;
}

FProperty* CreateTerminal(FFieldVariant Owner, FName Name, const FEdGraphPinType& Type)
{
	UObject* const Object = Type.PinSubCategoryObject.Get();
	if (Type.PinCategory == FSchema::PC_Byte || Type.PinCategory == FSchema::PC_Enum)
	{
		return CreateByte(Owner, Name, Cast<UEnum>(Object));
	}
	if (Type.PinCategory == FSchema::PC_Struct)
	{
		UScriptStruct* const Struct = Cast<UScriptStruct>(Object);
		if (!Struct)
		{
			return nullptr;
		}
		// What is laid out as a part of another has to know its own size; it may come from the same load.
		Struct->ConditionalPostLoad();
		FStructProperty* const Property = new FStructProperty(Owner, Name);
		Property->Struct = Struct;
		return Property;
	}
	if (Type.PinCategory == FSchema::PC_Delegate || Type.PinCategory == FSchema::PC_MCDelegate)
	{
		return CreateDelegate(Owner, Name, Type);
	}
	if (FProperty* const Plain = CreatePlain(Owner, Name, Type.PinCategory, Type.PinSubCategory))
	{
		return Plain;
	}
	return CreateReference(Owner, Name, Type);
}

FProperty* CreateMap(FFieldVariant Owner, FName Name, const FEdGraphPinType& Type)
{
	FMapProperty* const Map = new FMapProperty(Owner, Name);
	Map->KeyProp = CreateTerminal(FFieldVariant(Map), FName(Name.ToString() + TEXT("_Key")), Type);
	Map->ValueProp = CreateTerminal(
		FFieldVariant(Map), Name, FEdGraphPinType::GetPinTypeForTerminalType(Type.PinValueType));
	if (!Map->KeyProp || !Map->ValueProp)
	{
		delete Map;
		return nullptr;
	}
	return Map;
}
} // namespace

FProperty* Create(FFieldVariant Owner, FName Name, const FEdGraphPinType& Type)
{
	if (Type.ContainerType == EPinContainerType::Map)
	{
		return CreateMap(Owner, Name, Type);
	}
	if (Type.ContainerType == EPinContainerType::Array)
	{
		FArrayProperty* const Array = new FArrayProperty(Owner, Name);
		Array->Inner = CreateTerminal(FFieldVariant(Array), Name, Type);
		if (!Array->Inner)
		{
			delete Array;
			return nullptr;
		}
		return Array;
	}
	if (Type.ContainerType == EPinContainerType::Set)
	{
		FSetProperty* const Set = new FSetProperty(Owner, Name);
		Set->ElementProp = CreateTerminal(FFieldVariant(Set), Name, Type);
		if (!Set->ElementProp)
		{
			delete Set;
			return nullptr;
		}
		return Set;
	}
	return CreateTerminal(Owner, Name, Type);
}

bool CanCarry(const FEdGraphPinType& Type)
{
	const FProperty* const Property = Create(FFieldVariant(), NAME_None, Type);
	delete Property;
	return Property != nullptr;
}
} // namespace PinTypeProperty
