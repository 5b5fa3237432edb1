// Properties of widgets and of their slots by name. Both go the same road; a row of texts tells them apart.

#include "AssetOperationBase.h"
#include "Components/PanelSlot.h"
#include "Components/Widget.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Widget/JsonPropertyValue.h"
#include "Utils/Widget/QuotedValue.h"
#include "WidgetBlueprintUtils.h"

namespace WidgetProperties
{
using Morvane::FToolResult;

/** What is said of a key that fails. */
struct FTexts
{
	FString (*OuterMissing)(const FString& Outer);
	FString (*NestedMissing)(const FString& Outer, const FString& Inner);
	FString (*NestedFailed)(const FString& Outer, const FString& Inner);
	FString (*Missing)(const FString& Name, const FString& Class);
	FString (*ReadOnly)(const FString& Name);
	FString (*Failed)(const FString& Name, const FString& Value);
};

const FTexts WidgetTexts = {
	[](const FString& Outer)
	{ return FString::Printf(TEXT("Outer property '%s' not found or is not a struct"), *Outer); },
	[](const FString& Outer, const FString& Inner)
	{ return FString::Printf(TEXT("Nested property '%s.%s' not found or is read-only"), *Outer, *Inner); },
	[](const FString& Outer, const FString& Inner)
	{ return FString::Printf(TEXT("Failed to set nested property '%s.%s'"), *Outer, *Inner); },
	[](const FString& Name, const FString& Class)
	{ return FString::Printf(TEXT("Property '%s' not found on widget class '%s'"), *Name, *Class); },
	[](const FString& Name) { return FString::Printf(TEXT("Property '%s' is read-only in editor"), *Name); },
	[](const FString& Name, const FString&) { return FString::Printf(TEXT("Failed to set property '%s'"), *Name); },
};

const FTexts SlotTexts = {
	[](const FString& Outer)
	{ return FString::Printf(TEXT("Outer slot property '%s' not found or is not a struct"), *Outer); },
	[](const FString& Outer, const FString& Inner)
	{ return FString::Printf(TEXT("Nested slot property '%s.%s' not found or is read-only"), *Outer, *Inner); },
	[](const FString& Outer, const FString& Inner)
	{ return FString::Printf(TEXT("Failed to set nested slot property '%s.%s'"), *Outer, *Inner); },
	[](const FString& Name, const FString& Class)
	{ return FString::Printf(TEXT("Slot property '%s' not found on slot class '%s'"), *Name, *Class); },
	[](const FString& Name) { return FString::Printf(TEXT("Slot property '%s' is read-only in editor"), *Name); },
	[](const FString& Name, const FString& Value)
	{ return FString::Printf(TEXT("Failed to set slot property '%s' to '%s'"), *Name, *Value); },
};

/** The keys of one request, written onto one object. */
template <class TTarget>
class TApply
{
public:
	using FHandleComplex = bool (*)(
		TTarget*, const FProperty*, const TSharedPtr<FJsonObject>&, const FString&, FToolResult&);

	TApply(TTarget& InTarget, const FTexts& InTexts, FHandleComplex InHandleComplex, FToolResult& InResult)
		: Target(InTarget)
		, Texts(InTexts)
		, HandleComplex(InHandleComplex)
		, Result(InResult)
	{
	}

	bool Apply(const FString& Key, const TSharedPtr<FJsonValue>& Value)
	{
		int32 Point = INDEX_NONE;
		return Key.FindChar(TEXT('.'), Point) ? ApplyNested(Key.Left(Point), Key.Mid(Point + 1), Value)
											  : ApplyPlain(Key, Value);
	}

private:
	bool Refuse(const FString& Message)
	{
		Result.AddWarningMessage(Message);
		return false;
	}
	bool RefuseType(const FString& Key)
	{
		return Refuse(FString::Printf(TEXT("Unsupported property value type for '%s'"), *QuotedValue::Shorten(Key)));
	}

	const FProperty* Find(const FString& Name) const
	{
		return Name.Len() < NAME_SIZE ? Target.GetClass()->FindPropertyByName(FName(*Name)) : nullptr;
	}

	bool ApplyPlain(const FString& Name, const TSharedPtr<FJsonValue>& Value)
	{
		const FString Shown = QuotedValue::Shorten(Name);
		const FProperty* const Property = Find(Name);
		if (!Property)
		{
			return Refuse(Texts.Missing(Shown, Target.GetClass()->GetName()));
		}
		if (!JsonPropertyValue::IsEditable(*Property))
		{
			return Refuse(Texts.ReadOnly(Shown));
		}
		const TSharedPtr<FJsonObject>* Object = nullptr;
		if (Value && Value->TryGetObject(Object))
		{
			return HandleComplex(&Target, Property, *Object, Name, Result);
		}
		FString Text;
		if (!Value || !JsonPropertyValue::ToText(*Value, Text))
		{
			return RefuseType(Shown);
		}
		Text = FWidgetBlueprintUtils::MapAlignmentEnumValue(Name, Text);
		return JsonPropertyValue::SetText(Target, *Property, Text)
			|| Refuse(Texts.Failed(Shown, QuotedValue::Shorten(Text)));
	}

	bool ApplyNested(const FString& OuterName, const FString& InnerName, const TSharedPtr<FJsonValue>& Value)
	{
		const FString ShownOuter = QuotedValue::Shorten(OuterName);
		const FString ShownInner = QuotedValue::Shorten(InnerName);
		const FStructProperty* const Outer = CastField<FStructProperty>(Find(OuterName));
		if (!Outer || !Outer->Struct)
		{
			return Refuse(Texts.OuterMissing(ShownOuter));
		}
		if (!JsonPropertyValue::IsEditable(*Outer))
		{
			return Refuse(Texts.ReadOnly(ShownOuter));
		}
		const FProperty* const Inner = InnerName.Len() < NAME_SIZE
			? Outer->Struct->FindPropertyByName(FName(*InnerName))
			: nullptr;
		if (!Inner || Inner->HasAnyPropertyFlags(CPF_EditConst))
		{
			return Refuse(Texts.NestedMissing(ShownOuter, ShownInner));
		}
		return SetNested(*Outer, *Inner, Value, ShownOuter, ShownInner);
	}

	bool SetNested(const FStructProperty& Outer, const FProperty& Inner, const TSharedPtr<FJsonValue>& Value,
		const FString& OuterName, const FString& InnerName)
	{
		using JsonPropertyValue::EOutcome;
		const TSharedPtr<FJsonObject>* Object = nullptr;
		FString Text;
		if (Value && Value->TryGetObject(Object))
		{
			return JsonPropertyValue::SetMemberObject(Target, Outer, Inner, **Object) == EOutcome::Done
				|| Refuse(Texts.NestedFailed(OuterName, InnerName));
		}
		if (!Value || !JsonPropertyValue::ToText(*Value, Text))
		{
			return RefuseType(OuterName + TEXT(".") + InnerName);
		}
		Text = FWidgetBlueprintUtils::MapAlignmentEnumValue(Inner.GetName(), Text);
		return JsonPropertyValue::SetMemberText(Target, Outer, Inner, Text)
			|| Refuse(Texts.NestedFailed(OuterName, InnerName));
	}

	TTarget& Target;
	const FTexts& Texts;
	const FHandleComplex HandleComplex;
	FToolResult& Result;
};

/** Tells once for each slot class what may be set, as the class follows from the panel and is not in the request. */
static void HintAtSlotProperties(const UClass& SlotClass, FToolResult& Result)
{
	const FString Name = SlotClass.GetName();
	if (FWidgetBlueprintUtils::GetProcessedSlotClasses().Contains(Name))
	{
		return;
	}
	FWidgetBlueprintUtils::GetProcessedSlotClasses().Add(Name);
	const TArray<FString> Valid = FWidgetBlueprintUtils::GetValidSlotProperties(&SlotClass);
	Result.AddWarningMessage(Valid.IsEmpty()
			? FString::Printf(TEXT("No modifiable properties found for slot class '%s'"), *Name)
			: FString::Printf(
				TEXT("Valid properties for slot class '%s' are: %s"), *Name, *FString::Join(Valid, TEXT(", "))));
}

struct FAlignment
{
	const TCHAR* Property;
	const TCHAR* Value;
	const TCHAR* Enumerator;
};

constexpr FAlignment Alignments[] = {
	{TEXT("HorizontalAlignment"), TEXT("Center"), TEXT("HAlign_Center")},
	{TEXT("HorizontalAlignment"), TEXT("Left"), TEXT("HAlign_Left")},
	{TEXT("HorizontalAlignment"), TEXT("Right"), TEXT("HAlign_Right")},
	{TEXT("HorizontalAlignment"), TEXT("Fill"), TEXT("HAlign_Fill")},
	{TEXT("VerticalAlignment"), TEXT("Center"), TEXT("VAlign_Center")},
	{TEXT("VerticalAlignment"), TEXT("Top"), TEXT("VAlign_Top")},
	{TEXT("VerticalAlignment"), TEXT("Bottom"), TEXT("VAlign_Bottom")},
	{TEXT("VerticalAlignment"), TEXT("Fill"), TEXT("VAlign_Fill")},
	{TEXT("Justification"), TEXT("Center"), TEXT("ETextJustify::Center")},
	{TEXT("Justification"), TEXT("Left"), TEXT("ETextJustify::Left")},
	{TEXT("Justification"), TEXT("Right"), TEXT("ETextJustify::Right")},
};
} // namespace WidgetProperties

bool FWidgetBlueprintUtils::ApplyWidgetProperties(
	UWidget* Widget, const TSharedPtr<FJsonObject>& Properties, Morvane::FToolResult& Result)
{
	using namespace WidgetProperties;
	if (!Widget)
	{
		Result.AddErrorMessage(TEXT("Widget is null"));
		return false;
	}
	TApply<UWidget> Run(*Widget, WidgetTexts, &HandleComplexWidgetProperty, Result);
	bool bAll = true;
	for (const auto& Pair : Properties->Values)
	{
		bAll = Run.Apply(Pair.Key, Pair.Value) && bAll;
	}
	return bAll;
}

bool FWidgetBlueprintUtils::ApplySlotProperties(
	UPanelSlot* Slot, const TSharedPtr<FJsonObject>& Properties, Morvane::FToolResult& Result)
{
	using namespace WidgetProperties;
	if (!Slot)
	{
		Result.AddErrorMessage(TEXT("Slot is null"));
		return false;
	}
	TApply<UPanelSlot> Run(*Slot, SlotTexts, &HandleComplexSlotProperty, Result);
	bool bAll = true;
	for (const auto& Pair : Properties->Values)
	{
		if (!Run.Apply(Pair.Key, Pair.Value))
		{
			HintAtSlotProperties(*Slot->GetClass(), Result);
			bAll = false;
		}
	}
	return bAll;
}

FString FWidgetBlueprintUtils::MapAlignmentEnumValue(const FString& PropertyName, const FString& Value)
{
	for (const WidgetProperties::FAlignment& Row : WidgetProperties::Alignments)
	{
		if (PropertyName.Equals(Row.Property, ESearchCase::IgnoreCase)
			&& Value.Equals(Row.Value, ESearchCase::IgnoreCase))
		{
			return Row.Enumerator;
		}
	}
	return Value;
}

TArray<FString> FWidgetBlueprintUtils::GetValidSlotProperties(const UClass* SlotClass)
{
	TArray<FString> Names;
	for (TFieldIterator<FProperty> It(SlotClass, EFieldIteratorFlags::IncludeSuper); SlotClass && It; ++It)
	{
		if (JsonPropertyValue::IsEditable(**It) && !It->HasAnyPropertyFlags(CPF_Transient | CPF_Deprecated))
		{
			Names.Add(It->GetName());
		}
	}
	return Names;
}

TSet<FString>& FWidgetBlueprintUtils::GetProcessedSlotClasses()
{
	static TSet<FString> Classes;
	return Classes;
}
