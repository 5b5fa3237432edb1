#include "Catalogue/CatalogueMetaData.h"
#include "Catalogue/CatalogueObjects.h"

namespace Catalogue
{
namespace CatalogueProperties
{
static FProperty* MakeInteger(const FTypeRecord& Type, FFieldVariant Owner, FName Name)
{
	switch (Type.Subtype)
	{
	case ESubtype::Int8:
		return new FInt8Property(Owner, Name);
	case ESubtype::Int16:
		return new FInt16Property(Owner, Name);
	case ESubtype::UInt16:
		return new FUInt16Property(Owner, Name);
	case ESubtype::UInt32:
		return new FUInt32Property(Owner, Name);
	case ESubtype::UInt64:
		return new FUInt64Property(Owner, Name);
	default:
		break;
	}
	if (Type.Category == ECategory::Int64)
	{
		return new FInt64Property(Owner, Name);
	}
	return new FIntProperty(Owner, Name);
}

/** Enum class values have a property kind of their own; the older forms are bytes that know an enum. */
static FProperty* MakeByte(UEnum* Enum, FFieldVariant Owner, FName Name)
{
	if (Enum && Enum->GetCppForm() == UEnum::ECppForm::EnumClass)
	{
		FEnumProperty* const Property = new FEnumProperty(Owner, Name);
		Property->Enum = Enum;
		return Property;
	}
	FByteProperty* const Property = new FByteProperty(Owner, Name);
	Property->Enum = Enum;
	return Property;
}

template <class TProperty>
FProperty* MakeObject(UClass* Class, FFieldVariant Owner, FName Name)
{
	TProperty* const Property = new TProperty(Owner, Name);
	Property->PropertyClass = Class;
	return Property;
}

template <class TProperty>
FProperty* MakeClassOf(UClass* Meta, FFieldVariant Owner, FName Name)
{
	TProperty* const Property = new TProperty(Owner, Name);
	Property->PropertyClass = UClass::StaticClass();
	Property->MetaClass = Meta;
	return Property;
}

template <class TProperty>
FProperty* MakeDelegate(UFunction* Signature, FFieldVariant Owner, FName Name)
{
	TProperty* const Property = new TProperty(Owner, Name);
	Property->SignatureFunction = Signature;
	return Property;
}

static FProperty* MakeReference(const FTypeRecord& Type, UObject* Target, FFieldVariant Owner, FName Name)
{
	UClass* const Class = Cast<UClass>(Target);
	UFunction* const Signature = Cast<UFunction>(Target);
	switch (Type.Category)
	{
	case ECategory::Struct:
	{
		FStructProperty* const Property = new FStructProperty(Owner, Name);
		Property->Struct = Cast<UScriptStruct>(Target);
		return Property;
	}
	case ECategory::Object:
		return MakeObject<FObjectProperty>(Class, Owner, Name);
	case ECategory::WeakObject:
		return MakeObject<FWeakObjectProperty>(Class, Owner, Name);
	// Lazy references exist in few old properties; a soft one behaves the same here.
	case ECategory::LazyObject:
	case ECategory::SoftObject:
		return MakeObject<FSoftObjectProperty>(Class, Owner, Name);
	case ECategory::Class:
		return MakeClassOf<FClassProperty>(Class, Owner, Name);
	case ECategory::SoftClass:
		return MakeClassOf<FSoftClassProperty>(Class, Owner, Name);
	case ECategory::Interface:
	{
		FInterfaceProperty* const Property = new FInterfaceProperty(Owner, Name);
		Property->InterfaceClass = Class;
		return Property;
	}
	case ECategory::Delegate:
		return MakeDelegate<FDelegateProperty>(Signature, Owner, Name);
	default:
		return MakeDelegate<FMulticastInlineDelegateProperty>(Signature, Owner, Name);
	}
}

/** One value, without a container. Null when the type it refers to is not there. */
static FProperty* MakeValue(FLoadedImage& Image, const FTypeRecord& Type, FFieldVariant Owner, FName Name)
{
	UObject* const Target = Image.Resolve(Type.Path);
	if (Type.Path != NoIndex && !Target)
	{
		return nullptr;
	}
	switch (Type.Category)
	{
	case ECategory::Bool:
		return new FBoolProperty(Owner, Name);
	case ECategory::Byte:
		return MakeByte(Cast<UEnum>(Target), Owner, Name);
	// A parameter of any type is declared as an integer in C++ as well; metadata of the function names it.
	case ECategory::Wildcard:
	case ECategory::Int:
	case ECategory::Int64:
		return MakeInteger(Type, Owner, Name);
	case ECategory::Real:
		if (Type.Subtype == ESubtype::Float)
		{
			return new FFloatProperty(Owner, Name);
		}
		return new FDoubleProperty(Owner, Name);
	case ECategory::Name:
		return new FNameProperty(Owner, Name);
	case ECategory::String:
		return new FStrProperty(Owner, Name);
	case ECategory::Text:
		return new FTextProperty(Owner, Name);
	case ECategory::FieldPath:
		return new FFieldPathProperty(Owner, Name);
	default:
		return MakeReference(Type, Target, Owner, Name);
	}
}

/** The container is given its parts, which it owns, or deleted when one of them has no type. */
template <class TProperty>
FProperty* KeepIf(bool bComplete, TProperty* Container)
{
	if (!bComplete)
	{
		delete Container;
		return nullptr;
	}
	return Container;
}

static FProperty* MakeTyped(FLoadedImage& Image, const FTypeRecord& Type, FFieldVariant Owner, FName Name)
{
	switch (Type.Container)
	{
	case EContainer::None:
		break;
	case EContainer::Array:
	{
		FArrayProperty* const Array = new FArrayProperty(Owner, Name);
		Array->Inner = MakeValue(Image, Type, FFieldVariant(Array), Name);
		return KeepIf(Array->Inner != nullptr, Array);
	}
	case EContainer::Set:
	{
		FSetProperty* const Set = new FSetProperty(Owner, Name);
		Set->ElementProp = MakeValue(Image, Type, FFieldVariant(Set), Name);
		return KeepIf(Set->ElementProp != nullptr, Set);
	}
	case EContainer::Map:
	{
		FMapProperty* const Map = new FMapProperty(Owner, Name);
		Map->KeyProp = MakeValue(Image, Type, FFieldVariant(Map), FName(Name.ToString() + TEXT("_Key")));
		Map->ValueProp = MakeValue(Image, Image.GetView().Type(Type.ValueType), FFieldVariant(Map), Name);
		return KeepIf(Map->KeyProp && Map->ValueProp, Map);
	}
	}
	return MakeValue(Image, Type, Owner, Name);
}

struct FFlagRow
{
	uint32 Record;
	uint64 Property;
};

constexpr FFlagRow MemberFlags[] = {
	{Property_Edit, CPF_Edit},
	{Property_EditConst, CPF_Edit | CPF_EditConst},
	{Property_Visible, CPF_Edit | CPF_EditConst},
	{Property_BlueprintRead | Property_BlueprintWrite | Property_ExposeOnSpawn, CPF_BlueprintVisible},
	{Property_ExposeOnSpawn, CPF_ExposeOnSpawn},
	{Property_Instanced, CPF_InstancedReference | CPF_PersistentInstance | CPF_ExportObject},
	{Property_Transient, CPF_Transient},
	{Property_Config, CPF_Config},
	{Property_Replicated | Property_RepNotify, CPF_Net},
	{Property_RepNotify, CPF_RepNotify},
	{Property_Advanced, CPF_AdvancedDisplay},
	{Property_Deprecated, CPF_Deprecated},
	{Property_Callable, CPF_BlueprintCallable},
	{Property_Authority, CPF_BlueprintAuthorityOnly},
};

static uint64 ToMemberFlags(const FPropertyRecord& Record, const FTypeRecord& Type)
{
	uint64 Flags = CPF_None;
	for (const FFlagRow& Row : MemberFlags)
	{
		Flags |= Record.Flags & Row.Record ? Row.Property : 0;
	}
	const bool bReadOnly = !(Record.Flags & (Property_BlueprintWrite | Property_ExposeOnSpawn));
	Flags |= bReadOnly && (Flags & CPF_BlueprintVisible) ? CPF_BlueprintReadOnly : 0;
	// Object members are held by TObjectPtr.
	Flags |= Type.Category == ECategory::Object ? CPF_UObjectWrapper : 0;
	if (Type.Category == ECategory::MulticastDelegate)
	{
		Flags |= CPF_BlueprintAssignable | CPF_BlueprintVisible;
	}
	return Flags;
}

static uint64 ToParameterFlags(const FPropertyRecord& Record)
{
	uint64 Flags = CPF_Parm;
	Flags |= Record.Flags & Property_Out ? CPF_OutParm : 0;
	Flags |= Record.Flags & Property_Ref ? CPF_OutParm | CPF_ReferenceParm : 0;
	Flags |= Record.Flags & Property_Const ? CPF_ConstParm : 0;
	Flags |= Record.Flags & Property_Return ? CPF_OutParm | CPF_ReturnParm : 0;
	return Flags;
}

/** Metadata that a native description does not give. */
static void DescribeProperty(FLoadedImage& Image, const FPropertyRecord& Record, FProperty& Property)
{
	const FMetaKeys& Keys = FMetaKeys::Get();
	const auto SetIfNew = [&Property](FName Key, FString&& Value)
	{
		if (!Property.HasMetaData(Key))
		{
			Property.SetMetaData(Key, Value);
		}
	};
	if (Record.Category != 0)
	{
		SetIfNew(Keys.Category, Image.Text(Record.Category));
	}
	if (Record.Display != 0)
	{
		SetIfNew(Keys.DisplayName, Image.Text(Record.Display));
	}
	if (Record.Flags & Property_ExposeOnSpawn)
	{
		SetIfNew(Keys.ExposeOnSpawn, FString(TEXT("true")));
	}
	for (uint32 Index = 0; Index < Record.Meta.Num; ++Index)
	{
		const FMetaRecord& Entry = Image.GetView().Meta(Record.Meta.First + Index);
		SetIfNew(Image.Name(Entry.Key), Image.Text(Entry.Value));
	}
}

static uint64 ToFlags(const FPropertyRecord& Record, const FTypeRecord& Type, bool bParameter)
{
	const bool bTemplateClass = Type.Category == ECategory::Class && !(Record.Flags & Property_RawClass);
	return (bParameter ? ToParameterFlags(Record) : ToMemberFlags(Record, Type))
		| (bTemplateClass ? CPF_UObjectWrapper : CPF_None);
}

/** In a container it is the element, the key or the value that a template holds. */
static void WrapElements(const FLoadedImage& Image, const FTypeRecord& Type, bool bParameter, FProperty& Property)
{
	FMapProperty* const Map = CastField<FMapProperty>(&Property);
	if (Property.HasAnyPropertyFlags(CPF_UObjectWrapper))
	{
		const FArrayProperty* const Array = CastField<FArrayProperty>(&Property);
		const FSetProperty* const Set = CastField<FSetProperty>(&Property);
		FProperty* const Element = Array ? Array->Inner : Set ? Set->ElementProp : Map ? Map->KeyProp : nullptr;
		if (Element)
		{
			Element->SetPropertyFlags(CPF_UObjectWrapper);
		}
	}
	const ECategory Value = Map ? Image.GetView().Type(Type.ValueType).Category : ECategory::Bool;
	if (Value == ECategory::Class || (Value == ECategory::Object && !bParameter))
	{
		Map->ValueProp->SetPropertyFlags(CPF_UObjectWrapper);
	}
}
} // namespace CatalogueProperties

FProperty* MakeProperty(FLoadedImage& Image, const FPropertyRecord& Record, UStruct& Owner, bool bParameter)
{
	using namespace CatalogueProperties;
	const FTypeRecord& Type = Image.GetView().Type(Record.Type);
	FProperty* const Property = MakeTyped(Image, Type, FFieldVariant(&Owner), Image.Name(Record.Name));
	if (Property)
	{
		Property->SetPropertyFlags(ToFlags(Record, Type, bParameter));
		WrapElements(Image, Type, bParameter, *Property);
		DescribeProperty(Image, Record, *Property);
	}
	return Property;
}

void DescribeNativeProperty(FLoadedImage& Image, const FPropertyRecord& Record, FProperty& Property)
{
	using namespace CatalogueProperties;
	const FTypeRecord& Type = Image.GetView().Type(Record.Type);
	const uint64 Flags = ToFlags(Record, Type, false);
	const bool bDescribed = Property.HasAnyPropertyFlags(CPF_Edit | CPF_BlueprintVisible | CPF_BlueprintAssignable);
	Property.SetPropertyFlags(bDescribed ? Flags & CPF_UObjectWrapper : Flags);
	WrapElements(Image, Type, false, Property);
	DescribeProperty(Image, Record, Property);
}
} // namespace Catalogue
