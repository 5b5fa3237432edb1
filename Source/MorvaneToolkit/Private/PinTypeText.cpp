#include "PinTypeText.h"

#include "AssetOperationBase.h"
#include "EdGraphSchema_K2.h"
#include "UObject/Package.h"
#include "UObject/PropertyBagRepository.h"

namespace PinTypePhrases
{
using K2 = UEdGraphSchema_K2;

/** A category whose type says more than its object: "class Actor" beside "Actor". */
struct FLead
{
	const TCHAR* Text;
	const TCHAR* Category;
};

constexpr FLead Leads[] = {{TEXT("class "), TEXT("class")}, {TEXT("soft object "), TEXT("softobject")},
	{TEXT("soft class "), TEXT("softclass")}, {TEXT("object "), TEXT("object")},
	{TEXT("interface "), TEXT("interface")}, {TEXT("struct "), TEXT("struct")}, {TEXT("enum "), TEXT("enum")}};

static bool Take(FString& Text, const TCHAR* Start)
{
	if (!Text.StartsWith(Start, ESearchCase::IgnoreCase))
	{
		return false;
	}
	Text = Text.RightChop(FString(Start).Len()).TrimStartAndEnd();
	return true;
}

static bool StartsAsPhrase(const FString& Text)
{
	const auto Starts = [&Text](const TCHAR* Start) { return Text.StartsWith(Start, ESearchCase::IgnoreCase); };
	for (const FLead& Lead : Leads)
	{
		if (Starts(Lead.Text))
		{
			return true;
		}
	}
	return Starts(TEXT("const ")) || Starts(TEXT("ref ")) || Starts(TEXT("array of ")) || Starts(TEXT("set of "))
		|| Starts(TEXT("map of "));
}

/** Category and object of one end of a type. */
static void ReadTerminal(FString Text, FJsonObject& OutJson)
{
	for (const FLead& Lead : Leads)
	{
		if (Take(Text, Lead.Text))
		{
			OutJson.SetStringField(TEXT("category"), Lead.Category);
			OutJson.SetStringField(TEXT("sub_category_object"), Text);
			return;
		}
	}
	// There are no containers of containers.
	OutJson.SetStringField(TEXT("category"), StartsAsPhrase(Text) ? FString() : Text);
}

static void ReadMap(const FString& Text, FJsonObject& OutJson)
{
	FString Key;
	FString Value;
	if (!Text.Split(TEXT(" to "), &Key, &Value))
	{
		Key = Text;
	}
	ReadTerminal(Key.TrimStartAndEnd(), OutJson);
	OutJson.SetStringField(TEXT("container_type"), TEXT("map"));
	if (!Value.IsEmpty())
	{
		const TSharedPtr<FJsonObject> ValueType = MakeShared<FJsonObject>();
		ReadTerminal(Value.TrimStartAndEnd(), *ValueType);
		OutJson.SetObjectField(TEXT("value_type"), ValueType);
	}
}

/** The word of a category that has no object. */
static FString GetWord(FName Category, FName SubCategory)
{
	if (Category == K2::PC_Real)
	{
		return SubCategory.IsNone() ? TEXT("double") : SubCategory.ToString();
	}
	const bool bSelf = SubCategory == K2::PSC_Self;
	return bSelf ? FString(TEXT("self")) : Category.IsNone() ? FString() : Category.ToString();
}

static const TCHAR* GetLead(FName Category)
{
	if (Category == K2::PC_Class)
	{
		return TEXT("class ");
	}
	if (Category == K2::PC_SoftObject)
	{
		return TEXT("soft object ");
	}
	return Category == K2::PC_SoftClass ? TEXT("soft class ") : TEXT("");
}

static bool IsUnresolved(const UObject* Object)
{
	using FRepository = UE::FPropertyBagRepository;
	return FRepository::IsPropertyBagPlaceholderType(Cast<UStruct>(Object))
		|| FRepository::IsPropertyBagPlaceholderType(Cast<UEnum>(Object));
}

/** Whether the text alone leads to the object again. */
static bool IsUnderstood(const FString& Text, FName Category, const UObject* Object)
{
	FJsonObject Json;
	ReadTerminal(Text, Json);
	FEdGraphPinType Type;
	return FAssetOperationBase::ConvertJsonToEdGraphPinType(Json, Type) && Type.PinCategory == Category
		&& Type.PinSubCategoryObject.Get() == Object;
}

static FString WriteTerminal(FName Category, FName SubCategory, const UObject* Object)
{
	if (!Object)
	{
		return GetWord(Category, SubCategory);
	}
	const FString Lead = GetLead(Category);
	if (IsUnresolved(Object))
	{
		return Lead + Object->GetPathName() + TEXT(" (unresolved)");
	}
	const bool bNative = Object->GetPathName().StartsWith(TEXT("/Script/"), ESearchCase::CaseSensitive);
	const FString Short = Lead + (bNative ? Object->GetName() : Object->GetPathName());
	return bNative && !IsUnderstood(Short, Category, Object) ? Lead + Object->GetPathName() : Short;
}

static const TCHAR* GetContainer(const FEdGraphPinType& PinType)
{
	switch (PinType.ContainerType)
	{
	case EPinContainerType::Array:
		return TEXT("array of ");
	case EPinContainerType::Set:
		return TEXT("set of ");
	case EPinContainerType::Map:
		return TEXT("map of ");
	case EPinContainerType::None:
		break;
	}
	return TEXT("");
}
} // namespace PinTypePhrases

TSharedPtr<FJsonObject> PinTypeText::Read(const FString& Text)
{
	FString Rest = Text.TrimStartAndEnd();
	if (!PinTypePhrases::StartsAsPhrase(Rest))
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject> Json = MakeShared<FJsonObject>();
	const bool bConst = PinTypePhrases::Take(Rest, TEXT("const "));
	const bool bReference = PinTypePhrases::Take(Rest, TEXT("ref "));
	if (PinTypePhrases::Take(Rest, TEXT("map of ")))
	{
		PinTypePhrases::ReadMap(Rest, *Json);
	}
	else
	{
		const bool bArray = PinTypePhrases::Take(Rest, TEXT("array of "));
		const bool bSet = !bArray && PinTypePhrases::Take(Rest, TEXT("set of "));
		PinTypePhrases::ReadTerminal(Rest, *Json);
		if (bArray || bSet)
		{
			Json->SetStringField(TEXT("container_type"), bArray ? TEXT("array") : TEXT("set"));
		}
	}
	for (const auto& [bSet, Key] : {std::pair{bConst, TEXT("is_const")}, {bReference, TEXT("is_reference")}})
	{
		if (bSet)
		{
			Json->SetBoolField(Key, true);
		}
	}
	return Json;
}

FString PinTypeText::Write(const FEdGraphPinType& PinType)
{
	FString Text = PinType.bIsConst ? TEXT("const ") : TEXT("");
	Text += PinType.bIsReference ? TEXT("ref ") : TEXT("");
	Text += PinTypePhrases::GetContainer(PinType);
	Text += PinTypePhrases::WriteTerminal(
		PinType.PinCategory, PinType.PinSubCategory, PinType.PinSubCategoryObject.Get());
	if (PinType.IsMap())
	{
		const FEdGraphTerminalType& Value = PinType.PinValueType;
		Text += TEXT(" to ");
		Text += PinTypePhrases::WriteTerminal(
			Value.TerminalCategory, Value.TerminalSubCategory, Value.TerminalSubCategoryObject.Get());
	}
	return Text;
}
