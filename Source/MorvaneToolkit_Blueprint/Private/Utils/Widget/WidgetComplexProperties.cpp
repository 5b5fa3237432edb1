// JSON objects as values of widgets' and slots' structs. Those that authors write every day have a form of their own;
// any other object is written member by member.

#include "WidgetBlueprintUtils.h"

#include "Components/PanelSlot.h"
#include "Components/Widget.h"
#include "JsonReading.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Widget/JsonPropertyValue.h"
#include "Utils/Widget/QuotedValue.h"

namespace ComplexProperties
{
using JsonPropertyValue::EOutcome;

/** What a form needs to become text: the object, and the property's present value for what the object leaves out. */
struct FSource
{
	const FJsonObject& Object;
	const FProperty& Property;
	const UObject& Owner;
};

/** Null when there is no such field; names compare ignoring case. */
static TSharedPtr<FJsonValue> FindField(const FJsonObject& Object, const TCHAR* Name)
{
	for (const auto& Pair : Object.Values)
	{
		if (Pair.Key.Equals(Name, ESearchCase::IgnoreCase))
		{
			return Pair.Value;
		}
	}
	return nullptr;
}

/** A number, or a text that is one. False for a field of another kind; a missing field gives Default. */
static bool ReadNumber(const FJsonObject& Object, const TCHAR* Name, double Default, double& OutNumber)
{
	const TSharedPtr<FJsonValue> Field = FindField(Object, Name);
	FString Text;
	OutNumber = Default;
	if (!Field || MorvaneJson::TryGetNumber(*Field, OutNumber))
	{
		return true;
	}
	if (!MorvaneJson::TryGetString(*Field, Text) || !Text.IsNumeric())
	{
		return false;
	}
	OutNumber = FCString::Atod(*Text);
	return true;
}

/** What the struct's member holds now; 0 where the struct has no such number. */
static double GetPresent(const FSource& Source, const TCHAR* Name)
{
	const FStructProperty* const Struct = CastField<FStructProperty>(&Source.Property);
	const FNumericProperty* const Member = Struct && Struct->Struct
		? CastField<FNumericProperty>(Struct->Struct->FindPropertyByName(Name))
		: nullptr;
	if (!Member || !Member->IsFloatingPoint())
	{
		return 0.0;
	}
	const void* const Value = Source.Property.ContainerPtrToValuePtr<void>(&Source.Owner);
	return Member->GetFloatingPointPropertyValue(Member->ContainerPtrToValuePtr<void>(Value));
}

/** Whether the object says nothing beyond these fields, so that a form that knows them says it all. */
static bool HasOnly(const FJsonObject& Object, std::initializer_list<const TCHAR*> Names)
{
	for (const auto& Pair : Object.Values)
	{
		bool bKnown = false;
		for (const TCHAR* const Name : Names)
		{
			bKnown = bKnown || Pair.Key.Equals(Name, ESearchCase::IgnoreCase);
		}
		if (!bKnown)
		{
			return false;
		}
	}
	return true;
}

/** No light where the object is silent, and opaque: a color without alpha is meant to be seen. */
static bool ReadColor(const FJsonObject& Object, FString& OutText)
{
	double R = 0.0;
	double G = 0.0;
	double B = 0.0;
	double A = 1.0;
	const bool bRead = ReadNumber(Object, TEXT("R"), 0.0, R) && ReadNumber(Object, TEXT("G"), 0.0, G)
		&& ReadNumber(Object, TEXT("B"), 0.0, B) && ReadNumber(Object, TEXT("A"), 1.0, A);
	OutText = FString::Printf(TEXT("(R=%f,G=%f,B=%f,A=%f)"), R, G, B, A);
	return bRead;
}

/** What a form made of an object. */
enum class EForm
{
	Text,
	BadValue,
	/** The object says other things than the form knows. */
	OtherFields,
};

static EForm MakeColor(const FSource& Source, FString& OutText)
{
	if (!HasOnly(Source.Object, {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")}))
	{
		return EForm::OtherFields;
	}
	return ReadColor(Source.Object, OutText) ? EForm::Text : EForm::BadValue;
}

static EForm MakeVector2D(const FSource& Source, FString& OutText)
{
	if (!HasOnly(Source.Object, {TEXT("X"), TEXT("Y")}))
	{
		return EForm::OtherFields;
	}
	double X = 0.0;
	double Y = 0.0;
	const bool bRead = ReadNumber(Source.Object, TEXT("X"), GetPresent(Source, TEXT("X")), X)
		&& ReadNumber(Source.Object, TEXT("Y"), GetPresent(Source, TEXT("Y")), Y);
	OutText = FString::Printf(TEXT("(X=%f,Y=%f)"), X, Y);
	return bRead ? EForm::Text : EForm::BadValue;
}

static EForm MakeMargin(const FSource& Source, FString& OutText)
{
	if (!HasOnly(Source.Object, {TEXT("Left"), TEXT("Top"), TEXT("Right"), TEXT("Bottom")}))
	{
		return EForm::OtherFields;
	}
	double Left = 0.0;
	double Top = 0.0;
	double Right = 0.0;
	double Bottom = 0.0;
	const bool bRead = ReadNumber(Source.Object, TEXT("Left"), GetPresent(Source, TEXT("Left")), Left)
		&& ReadNumber(Source.Object, TEXT("Top"), GetPresent(Source, TEXT("Top")), Top)
		&& ReadNumber(Source.Object, TEXT("Right"), GetPresent(Source, TEXT("Right")), Right)
		&& ReadNumber(Source.Object, TEXT("Bottom"), GetPresent(Source, TEXT("Bottom")), Bottom);
	OutText = FString::Printf(TEXT("(Left=%f,Top=%f,Right=%f,Bottom=%f)"), Left, Top, Right, Bottom);
	return bRead ? EForm::Text : EForm::BadValue;
}

static EForm MakeFont(const FSource& Source, FString& OutText)
{
	if (!HasOnly(Source.Object, {TEXT("Size")}))
	{
		return EForm::OtherFields;
	}
	double Size = 0.0;
	const bool bRead = ReadNumber(Source.Object, TEXT("Size"), GetPresent(Source, TEXT("Size")), Size) && Size >= 0.0
		&& Size <= MAX_int32;
	OutText = FString::Printf(TEXT("(Size=%d)"), bRead ? static_cast<int32>(Size) : 0);
	return bRead ? EForm::Text : EForm::BadValue;
}

/** The object below a name; null for anything else. */
static const FJsonObject* FindObjectField(const FJsonObject& Object, const TCHAR* Name)
{
	const TSharedPtr<FJsonValue> Field = FindField(Object, Name);
	const TSharedPtr<FJsonObject>* Inner = nullptr;
	return Field && Field->TryGetObject(Inner) ? Inner->Get() : nullptr;
}

static EForm MakeBrush(const FSource& Source, FString& OutText)
{
	OutText = TEXT("()");
	if (Source.Object.Values.IsEmpty())
	{
		return EForm::Text;
	}
	const FJsonObject* const Tint = FindObjectField(Source.Object, TEXT("TintColor"));
	const FJsonObject* const Color = Tint ? FindObjectField(*Tint, TEXT("SpecifiedColor")) : nullptr;
	if (!Color || !HasOnly(Source.Object, {TEXT("TintColor")}) || !HasOnly(*Tint, {TEXT("SpecifiedColor")})
		|| !HasOnly(*Color, {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")}))
	{
		return EForm::OtherFields;
	}
	FString ColorText;
	const bool bRead = ReadColor(*Color, ColorText);
	OutText = TEXT("(TintColor=(SpecifiedColor=") + ColorText + TEXT("))");
	return bRead ? EForm::Text : EForm::BadValue;
}

static EForm MakeNothing(const FSource& Source, FString& OutText)
{
	OutText = TEXT("()");
	return Source.Object.Values.IsEmpty() ? EForm::Text : EForm::OtherFields;
}

static FString MapSizeRule(const FString& Rule)
{
	if (Rule.Equals(TEXT("Automatic"), ESearchCase::IgnoreCase) || Rule.Equals(TEXT("Auto"), ESearchCase::IgnoreCase))
	{
		return TEXT("ESlateSizeRule::Automatic");
	}
	return Rule.Equals(TEXT("Fill"), ESearchCase::IgnoreCase) ? FString(TEXT("ESlateSizeRule::Fill")) : Rule;
}

/** Without a rule the size is automatic, whatever it was. */
static EForm MakeChildSize(const FSource& Source, FString& OutText)
{
	if (!HasOnly(Source.Object, {TEXT("SizeRule"), TEXT("Value")}))
	{
		return EForm::OtherFields;
	}
	FString Rule = TEXT("ESlateSizeRule::Automatic");
	const TSharedPtr<FJsonValue> RuleField = FindField(Source.Object, TEXT("SizeRule"));
	double Value = 0.0;
	const bool bRead = (!RuleField || MorvaneJson::TryGetString(*RuleField, Rule))
		&& ReadNumber(Source.Object, TEXT("Value"), GetPresent(Source, TEXT("Value")), Value);
	OutText = FString::Printf(TEXT("(SizeRule=%s,Value=%f)"), *MapSizeRule(Rule), Value);
	return bRead ? EForm::Text : EForm::BadValue;
}

/** A struct with a form of its own, known by its type or by the name that such a property usually has. */
struct FRow
{
	const TCHAR* TypeWord;
	/** Null: the type alone tells. */
	const TCHAR* Name;
	EForm (*Make)(const FSource&, FString&);
};

// Tried in this order.
constexpr FRow WidgetRows[] = {
	{TEXT("FSlateColor"), TEXT("ColorAndOpacity"), &MakeColor},
	{TEXT("FLinearColor"), TEXT("ShadowColorAndOpacity"), &MakeColor},
	{TEXT("FVector2D"), TEXT("ShadowOffset"), &MakeVector2D},
	{TEXT("FMargin"), nullptr, &MakeMargin},
	{TEXT("FSlateFontInfo"), TEXT("Font"), &MakeFont},
	{TEXT("FSlateBrush"), TEXT("Brush"), &MakeBrush},
	{TEXT("FButtonStyle"), TEXT("WidgetStyle"), &MakeNothing},
};
constexpr FRow SlotRows[] = {
	{TEXT("FMargin"), TEXT("Padding"), &MakeMargin},
	{TEXT("FSlateChildSize"), TEXT("Size"), &MakeChildSize},
};

template <std::size_t Num>
const FRow* FindRow(const FRow (&Rows)[Num], const FProperty& Property)
{
	const FString Type = Property.GetCPPType();
	for (const FRow& Row : Rows)
	{
		if (Type.Contains(Row.TypeWord, ESearchCase::CaseSensitive)
			|| (Row.Name && Property.GetName().Equals(Row.Name, ESearchCase::IgnoreCase)))
		{
			return &Row;
		}
	}
	return nullptr;
}

/** OutText is what was to be written, for the message. */
static EOutcome Write(
	UObject& Owner, const FProperty& Property, const FJsonObject& Value, const FRow* Row, FString& OutText)
{
	const EForm Form = Row ? Row->Make({Value, Property, Owner}, OutText) : EForm::OtherFields;
	switch (Form)
	{
	case EForm::Text:
		return JsonPropertyValue::SetText(Owner, Property, OutText) ? EOutcome::Done : EOutcome::BadValue;
	case EForm::BadValue:
		return EOutcome::BadValue;
	default:
		return JsonPropertyValue::SetObject(Owner, Property, Value);
	}
}
} // namespace ComplexProperties

bool FWidgetBlueprintUtils::HandleComplexWidgetProperty(UWidget* Widget, const FProperty* Property,
	const TSharedPtr<FJsonObject>& Value, const FString& Name, Morvane::FToolResult& Result)
{
	using namespace ComplexProperties;
	if (!Widget || !Property || !Value)
	{
		return false;
	}
	FString Text;
	switch (Write(*Widget, *Property, *Value, FindRow(WidgetRows, *Property), Text))
	{
	case EOutcome::Done:
		return true;
	case EOutcome::BadValue:
		Result.AddWarningMessage(FString::Printf(TEXT("Failed to set property '%s'"), *Name));
		return false;
	default:
		Result.AddWarningMessage(FString::Printf(
			TEXT(
				"Complex property '%s' of type '%s' is not fully supported yet. Try using dot notation like '%s.FieldName' instead."),
			*Name, *Property->GetCPPType(), *Name));
		return false;
	}
}

bool FWidgetBlueprintUtils::HandleComplexSlotProperty(UPanelSlot* Slot, const FProperty* Property,
	const TSharedPtr<FJsonObject>& Value, const FString& Name, Morvane::FToolResult& Result)
{
	using namespace ComplexProperties;
	if (!Slot || !Property || !Value)
	{
		return false;
	}
	FString Text;
	switch (Write(*Slot, *Property, *Value, FindRow(SlotRows, *Property), Text))
	{
	case EOutcome::Done:
		return true;
	case EOutcome::BadValue:
		Result.AddWarningMessage(
			FString::Printf(TEXT("Failed to set slot property '%s' to '%s'"), *Name, *QuotedValue::Shorten(Text)));
		return false;
	default:
		Result.AddWarningMessage(FString::Printf(
			TEXT(
				"Complex slot property '%s' of type '%s' may require manual configuration. Try using dot notation like '%s.FieldName' instead."),
			*Name, *Property->GetCPPType(), *Name));
		return false;
	}
}
