#include "AssetOperationBase.h"

#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "JsonReading.h"
#include "PinTypeText.h"
#include "UObject/PropertyBagRepository.h"

namespace PinTypeWords
{
/** What stands in "sub_category_object" of a category. */
enum class EObjectKind : uint8
{
	None,
	Class,
	Struct,
	Enum,
};

struct FCategory
{
	FName Name;
	EObjectKind Object = EObjectKind::None;
	/** Without an object there is no such type. */
	bool bNeedsObject = false;
	FName SubCategory = NAME_None;
};

/** A category by one of the words for it, which are lower case and without blanks, '_' and '-'. */
static const FCategory* FindCategory(const FString& Word)
{
	using K2 = UEdGraphSchema_K2;
	static const TMap<FString, FCategory> Categories = []
	{
		TMap<FString, FCategory> Map;
		const auto Add = [&Map](std::initializer_list<const TCHAR*> Words, const FCategory& Category)
		{
			for (const TCHAR* const Name : Words)
			{
				Map.Add(Name, Category);
			}
		};
		Add({TEXT("exec"), TEXT("execute"), TEXT("execution")}, {K2::PC_Exec});
		Add({TEXT("bool"), TEXT("boolean")}, {K2::PC_Boolean});
		Add({TEXT("byte"), TEXT("uint8")}, {K2::PC_Byte, EObjectKind::Enum});
		Add({TEXT("enum"), TEXT("enumeration")}, {K2::PC_Byte, EObjectKind::Enum, true});
		Add({TEXT("int"), TEXT("integer"), TEXT("int32")}, {K2::PC_Int});
		Add({TEXT("int64"), TEXT("integer64"), TEXT("long")}, {K2::PC_Int64});
		// Blueprints have one real category; the width is its sub-category. "real" alone is a double, as new pins are.
		Add({TEXT("real"), TEXT("number")}, {K2::PC_Real, EObjectKind::None, false, K2::PC_Double});
		Add({TEXT("float"), TEXT("single")}, {K2::PC_Real, EObjectKind::None, false, K2::PC_Float});
		Add({TEXT("double")}, {K2::PC_Real, EObjectKind::None, false, K2::PC_Double});
		Add({TEXT("name"), TEXT("fname")}, {K2::PC_Name});
		Add({TEXT("string"), TEXT("str"), TEXT("fstring")}, {K2::PC_String});
		Add({TEXT("text"), TEXT("ftext")}, {K2::PC_Text});
		Add({TEXT("object"), TEXT("objectreference"), TEXT("objectref")}, {K2::PC_Object, EObjectKind::Class});
		Add({TEXT("class"), TEXT("classreference"), TEXT("subclassof")}, {K2::PC_Class, EObjectKind::Class});
		Add({TEXT("softobject"), TEXT("softobjectreference")}, {K2::PC_SoftObject, EObjectKind::Class});
		Add({TEXT("softclass"), TEXT("softclassreference")}, {K2::PC_SoftClass, EObjectKind::Class});
		Add({TEXT("interface")}, {K2::PC_Interface, EObjectKind::Class, true});
		Add({TEXT("struct"), TEXT("structure")}, {K2::PC_Struct, EObjectKind::Struct, true});
		Add({TEXT("delegate")}, {K2::PC_Delegate});
		Add({TEXT("mcdelegate"), TEXT("multicastdelegate"), TEXT("eventdispatcher")}, {K2::PC_MCDelegate});
		Add({TEXT("wildcard")}, {K2::PC_Wildcard});
		Add({TEXT("fieldpath")}, {K2::PC_FieldPath});
		return Map;
	}();
	FString Key = Word.ToLower();
	for (const TCHAR* const Separator : {TEXT(" "), TEXT("_"), TEXT("-")})
	{
		Key.ReplaceInline(Separator, TEXT(""));
	}
	return Categories.Find(Key);
}

static const TCHAR* GetContainerWord(EPinContainerType Container)
{
	switch (Container)
	{
	case EPinContainerType::Array:
		return TEXT("array");
	case EPinContainerType::Set:
		return TEXT("set");
	case EPinContainerType::Map:
		return TEXT("map");
	case EPinContainerType::None:
		break;
	}
	return TEXT("");
}

static EPinContainerType ReadContainer(const FString& Word)
{
	for (const EPinContainerType Container : {EPinContainerType::Array, EPinContainerType::Set, EPinContainerType::Map})
	{
		if (Word.TrimStartAndEnd().Equals(GetContainerWord(Container), ESearchCase::IgnoreCase))
		{
			return Container;
		}
	}
	return EPinContainerType::None;
}
} // namespace PinTypeWords

namespace PinTypeObjects
{
/** A struct or enum by path or by short name, with or without the letter of its C++ name. */
template <class T>
T* FindType(const FString& Name, TCHAR Prefix)
{
	const FString Text = Name.TrimStartAndEnd().TrimQuotes();
	if (Text.Contains(TEXT("/")))
	{
		T* const Found = FindObject<T>(nullptr, Text);
		return Found ? Found : LoadObject<T>(nullptr, *Text, nullptr, LOAD_NoWarn | LOAD_Quiet);
	}
	for (const FString& Spelling : {Text, Text.Replace(TEXT(" "), TEXT(""))})
	{
		if (T* const Found = FindFirstObject<T>(*Spelling, EFindFirstObjectOptions::NativeFirst))
		{
			return Found;
		}
	}
	const bool bHasPrefix = Text.Len() > 2 && Text[0] == Prefix && FChar::IsUpper(Text[1]);
	return bHasPrefix ? FindFirstObject<T>(*Text.RightChop(1), EFindFirstObjectOptions::NativeFirst) : nullptr;
}

static UObject* Find(PinTypeWords::EObjectKind Kind, const FString& Name)
{
	switch (Kind)
	{
	case PinTypeWords::EObjectKind::Class:
		return FAssetOperationBase::GetAssetClassFromAssetName(Name);
	case PinTypeWords::EObjectKind::Struct:
		return FindType<UScriptStruct>(Name, TEXT('F'));
	case PinTypeWords::EObjectKind::Enum:
		return FindType<UEnum>(Name, TEXT('E'));
	case PinTypeWords::EObjectKind::None:
		break;
	}
	return nullptr;
}

/** The category that carries an object, for a type that is told by its name alone: "Vector", "Actor", "BP_Door". */
static bool InferTerminal(const FString& Name, FEdGraphTerminalType& OutTerminal)
{
	using K2 = UEdGraphSchema_K2;
	if (UObject* const Struct = Find(PinTypeWords::EObjectKind::Struct, Name))
	{
		OutTerminal.TerminalCategory = K2::PC_Struct;
		OutTerminal.TerminalSubCategoryObject = Struct;
	}
	else if (UObject* const Enum = Find(PinTypeWords::EObjectKind::Enum, Name))
	{
		OutTerminal.TerminalCategory = K2::PC_Byte;
		OutTerminal.TerminalSubCategoryObject = Enum;
	}
	else if (UClass* const Class = FAssetOperationBase::GetAssetClassFromAssetName(Name))
	{
		OutTerminal.TerminalCategory = Class->HasAnyClassFlags(CLASS_Interface) ? K2::PC_Interface : K2::PC_Object;
		OutTerminal.TerminalSubCategoryObject = Class;
	}
	return !OutTerminal.TerminalCategory.IsNone();
}
} // namespace PinTypeObjects

namespace PinTypeReading
{
using namespace PinTypeWords;

/** Resolves the object of a category; a category that takes none ignores what is said. */
static bool ReadObject(const FCategory& Category, const FString& ObjectName, FEdGraphTerminalType& OutTerminal)
{
	if (Category.Object == EObjectKind::None)
	{
		return true;
	}
	if (!ObjectName.IsEmpty())
	{
		UObject* const Object = PinTypeObjects::Find(Category.Object, ObjectName);
		OutTerminal.TerminalSubCategoryObject = Object;
		return Object != nullptr;
	}
	const bool bSelf = OutTerminal.TerminalSubCategory == UEdGraphSchema_K2::PSC_Self;
	if (Category.Object == EObjectKind::Class && !bSelf && !Category.bNeedsObject)
	{
		OutTerminal.TerminalSubCategoryObject = UObject::StaticClass();
	}
	return !Category.bNeedsObject;
}

/** One end of a type from its three texts. Agents put the class or struct into any of them. */
static bool ReadTerminal(const FString& CategoryText, const FString& SubCategoryText, const FString& ObjectText,
	FEdGraphTerminalType& OutTerminal)
{
	const FString CategoryWord = CategoryText.TrimStartAndEnd();
	const FString SubCategory = SubCategoryText.TrimStartAndEnd();
	FString ObjectName = ObjectText.TrimStartAndEnd();
	const FCategory* const Category = FindCategory(CategoryWord);
	if (!Category)
	{
		return PinTypeObjects::InferTerminal(CategoryWord.IsEmpty() ? ObjectName : CategoryWord, OutTerminal);
	}
	OutTerminal.TerminalCategory = Category->Name;
	OutTerminal.TerminalSubCategory = SubCategory.IsEmpty() ? Category->SubCategory : FName(*SubCategory);
	const bool bKnownSubCategory = SubCategory.IsEmpty()
		|| OutTerminal.TerminalSubCategory == UEdGraphSchema_K2::PSC_Self
		|| OutTerminal.TerminalSubCategory == UEdGraphSchema_K2::PSC_Bitmask;
	if (Category->Object != EObjectKind::None && ObjectName.IsEmpty() && !bKnownSubCategory)
	{
		ObjectName = SubCategory;
		OutTerminal.TerminalSubCategory = NAME_None;
	}
	return ReadObject(*Category, ObjectName, OutTerminal);
}

/** The flags of a type are bits, which no reference reaches. */
static bool ReadFlag(const FJsonObject& Json, const TCHAR* Key)
{
	bool bValue = false;
	return MorvaneJson::TryGetBoolField(Json, Key, bValue) && bValue;
}

static void ReadTerminalFlags(const FJsonObject& Json, FEdGraphTerminalType& OutTerminal)
{
	OutTerminal.bTerminalIsConst = ReadFlag(Json, TEXT("is_const"));
	OutTerminal.bTerminalIsWeakPointer = ReadFlag(Json, TEXT("is_weak_pointer"));
	OutTerminal.bTerminalIsUObjectWrapper = ReadFlag(Json, TEXT("is_u_object_wrapper"));
}

static bool ReadTerminal(const FJsonObject& Json, FEdGraphTerminalType& OutTerminal)
{
	FString Category;
	FString SubCategory;
	FString Object;
	MorvaneJson::TryGetStringField(Json, TEXT("category"), Category);
	MorvaneJson::TryGetStringField(Json, TEXT("sub_category"), SubCategory);
	MorvaneJson::TryGetStringField(Json, TEXT("sub_category_object"), Object);
	ReadTerminalFlags(Json, OutTerminal);
	return ReadTerminal(Category, SubCategory, Object, OutTerminal);
}

/** The value side of a map. A map that does not say gets its key's type, since one without a value type cannot exist.
 */
static bool ReadValueType(
	const FJsonObject& Json, const FEdGraphTerminalType& KeyType, FEdGraphTerminalType& OutValueType)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (Json.TryGetObjectField(TEXT("value_type"), Object) && Object->IsValid())
	{
		return ReadTerminal(**Object, OutValueType);
	}
	FString Category;
	if (MorvaneJson::TryGetStringField(Json, TEXT("value_type"), Category))
	{
		return ReadTerminal(Category, FString(), FString(), OutValueType);
	}
	OutValueType = KeyType;
	return true;
}
} // namespace PinTypeReading

namespace PinTypeWriting
{
static void WriteTerminal(FJsonObject& Json, FName Category, FName SubCategory, const UObject* Object)
{
	// Moved, not copied: a read of a graph writes a type for each of its pins.
	Json.SetField(TEXT("category"), MakeShared<FJsonValueString>(Category.IsNone() ? FString() : Category.ToString()));
	if (!SubCategory.IsNone())
	{
		Json.SetStringField(TEXT("sub_category"), SubCategory.ToString());
	}
	if (Object)
	{
		Json.SetStringField(TEXT("sub_category_object"), Object->GetPathName());
		const bool bMissing = UE::FPropertyBagRepository::IsPropertyBagPlaceholderType(Cast<UStruct>(Object))
			|| UE::FPropertyBagRepository::IsPropertyBagPlaceholderType(Cast<UEnum>(Object));
		if (bMissing)
		{
			Json.SetBoolField(TEXT("unresolved"), true);
		}
	}
}

static void WriteFlag(FJsonObject& Json, const TCHAR* Key, bool bValue)
{
	if (bValue)
	{
		Json.SetBoolField(Key, true);
	}
}
} // namespace PinTypeWriting

bool FAssetOperationBase::ConvertJsonToEdGraphPinType(const FJsonObject& Json, FEdGraphPinType& OutPinType)
{
	FString Category;
	MorvaneJson::TryGetStringField(Json, TEXT("category"), Category);
	if (const TSharedPtr<FJsonObject> Phrase = PinTypeText::Read(Category))
	{
		for (const auto& Member : Json.Values)
		{
			if (!Phrase->HasField(FString(Member.Key)))
			{
				Phrase->SetField(FString(Member.Key), Member.Value);
			}
		}
		return ConvertJsonToEdGraphPinType(*Phrase, OutPinType);
	}
	FEdGraphTerminalType Terminal;
	if (!PinTypeReading::ReadTerminal(Json, Terminal))
	{
		return false;
	}
	FString Container;
	if (!MorvaneJson::TryGetStringField(Json, TEXT("container_type"), Container))
	{
		MorvaneJson::TryGetStringField(Json, TEXT("container"), Container);
	}
	FEdGraphPinType PinType = FEdGraphPinType::GetPinTypeForTerminalType(Terminal);
	PinType.ContainerType = PinTypeWords::ReadContainer(Container);
	if (PinType.IsMap() && !PinTypeReading::ReadValueType(Json, Terminal, PinType.PinValueType))
	{
		return false;
	}
	PinType.bIsReference = PinTypeReading::ReadFlag(Json, TEXT("is_reference"));
	OutPinType = PinType;
	return true;
}

bool FAssetOperationBase::ConvertJsonToEdGraphPinType(const TSharedPtr<FJsonObject>& Json, FEdGraphPinType& OutPinType)
{
	return Json.IsValid() && ConvertJsonToEdGraphPinType(*Json, OutPinType);
}

TSharedPtr<FJsonObject> FAssetOperationBase::ConvertEdGraphPinTypeToJson(const FEdGraphPinType& PinType)
{
	const TSharedPtr<FJsonObject> Json = MakeShared<FJsonObject>();
	PinTypeWriting::WriteTerminal(
		*Json, PinType.PinCategory, PinType.PinSubCategory, PinType.PinSubCategoryObject.Get());
	if (PinType.IsContainer())
	{
		Json->SetStringField(TEXT("container_type"), PinTypeWords::GetContainerWord(PinType.ContainerType));
	}
	PinTypeWriting::WriteFlag(*Json, TEXT("is_reference"), PinType.bIsReference);
	PinTypeWriting::WriteFlag(*Json, TEXT("is_const"), PinType.bIsConst);
	PinTypeWriting::WriteFlag(*Json, TEXT("is_weak_pointer"), PinType.bIsWeakPointer);
	PinTypeWriting::WriteFlag(*Json, TEXT("is_u_object_wrapper"), PinType.bIsUObjectWrapper);
	if (PinType.IsMap())
	{
		const FEdGraphTerminalType& Value = PinType.PinValueType;
		const TSharedPtr<FJsonObject> ValueJson = MakeShared<FJsonObject>();
		PinTypeWriting::WriteTerminal(
			*ValueJson, Value.TerminalCategory, Value.TerminalSubCategory, Value.TerminalSubCategoryObject.Get());
		PinTypeWriting::WriteFlag(*ValueJson, TEXT("is_const"), Value.bTerminalIsConst);
		PinTypeWriting::WriteFlag(*ValueJson, TEXT("is_weak_pointer"), Value.bTerminalIsWeakPointer);
		PinTypeWriting::WriteFlag(*ValueJson, TEXT("is_u_object_wrapper"), Value.bTerminalIsUObjectWrapper);
		Json->SetObjectField(TEXT("value_type"), ValueJson);
	}
	return Json;
}

bool FAssetOperationBase::ConvertPropertyToEdGraphPinType(const FProperty* Property, FEdGraphPinType& OutPinType)
{
	return Property && GetDefault<UEdGraphSchema_K2>()->ConvertPropertyToPinType(Property, OutPinType);
}
