#include "Utils/Graph/AuthoredValues.h"

#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "UObject/UnrealType.h"
#include "Utils/Asset/SoftReferences.h"
#include "Utils/Graph/LooseNames.h"

namespace AuthoredValuesText
{
/** A value taken apart: a text alone, or parts with and without names. */
struct FTree
{
	struct FPart
	{
		FString Key;
		TSharedPtr<FTree> Value;
	};

	bool IsLeaf() const { return Parts.IsEmpty(); }

	FString Text;
	TArray<FPart> Parts;
};

static bool IsOpening(TCHAR Char)
{
	return Char == TEXT('(') || Char == TEXT('[') || Char == TEXT('{');
}

static bool IsClosing(TCHAR Char)
{
	return Char == TEXT(')') || Char == TEXT(']') || Char == TEXT('}');
}

/** Where one of the characters stands outside all brackets and quotes; INDEX_NONE when nowhere. */
static int32 FindOutside(const FString& Text, const TCHAR* Wanted, int32 From = 0)
{
	int32 Depth = 0;
	bool bQuoted = false;
	for (int32 Index = From; Index < Text.Len(); ++Index)
	{
		const TCHAR Char = Text[Index];
		bQuoted = Char == TEXT('"') ? !bQuoted : bQuoted;
		if (bQuoted)
		{
			continue;
		}
		Depth += IsOpening(Char) ? 1 : IsClosing(Char) ? -1 : 0;
		if (Depth == 0 && FString(Wanted).Contains(FString(1, &Char)))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

static TArray<FString> SplitOutside(const FString& Text, const TCHAR* Separators)
{
	TArray<FString> Parts;
	int32 From = 0;
	for (int32 At = FindOutside(Text, Separators); At != INDEX_NONE; At = FindOutside(Text, Separators, From))
	{
		Parts.Add(Text.Mid(From, At - From).TrimStartAndEnd());
		From = At + 1;
	}
	Parts.Add(Text.Mid(From).TrimStartAndEnd());
	return Parts;
}

/** What the brackets around the whole text hold; the text itself where there are none. */
static FString WithinBrackets(const FString& Text)
{
	const bool bBrackets = Text.Len() > 1 && IsOpening(Text[0]) && IsClosing(Text[Text.Len() - 1]);
	return bBrackets ? Text.Mid(1, Text.Len() - 2).TrimStartAndEnd() : Text;
}

/** "yaw: 90" as "yaw:90", so that a blank parts members alone. */
static FString CloseUp(FString Text)
{
	for (int32 At = FindOutside(Text, TEXT("=:")); At != INDEX_NONE; At = FindOutside(Text, TEXT("=:"), At + 1))
	{
		const FString Before = Text.Left(At).TrimStartAndEnd();
		Text = Before + Text.Mid(At, 1) + Text.Mid(At + 1).TrimStart();
		At = Before.Len();
	}
	return Text;
}

static FTree Parse(const FString& Value)
{
	FTree Tree;
	Tree.Text = Value.TrimStartAndEnd();
	const FString Inner = CloseUp(WithinBrackets(Tree.Text));
	const TCHAR* const Separators = FindOutside(Inner, TEXT("|")) != INDEX_NONE ? TEXT("|")
		: FindOutside(Inner, TEXT(",;")) != INDEX_NONE							? TEXT(",;")
																				: TEXT(" ");
	const TArray<FString> Texts = SplitOutside(Inner, Separators);
	if (Texts.Num() < 2 && FindOutside(Inner, TEXT("=:")) == INDEX_NONE)
	{
		return Tree;
	}
	for (const FString& Text : Texts)
	{
		const int32 Sign = FindOutside(Text, TEXT("=:"));
		const FString Key = Sign == INDEX_NONE ? FString() : Text.Left(Sign).TrimStartAndEnd().TrimQuotes();
		const FString Rest = Sign == INDEX_NONE ? Text : Text.Mid(Sign + 1);
		if (!Rest.IsEmpty())
		{
			Tree.Parts.Add({Key, MakeShared<FTree>(Parse(Rest))});
		}
	}
	return Tree;
}

/** The name that an author gave a member of a struct of the project; its own carries a guid behind it. */
static FString ShownName(const FProperty& Member)
{
	const FString& Given = Member.GetMetaData(FBlueprintMetadata::MD_DisplayName);
	return Given.IsEmpty() ? Member.GetName() : Given;
}

static const FProperty* FindMember(const UScriptStruct& Struct, const FString& Key)
{
	const FString Wanted = LooseNames::Squeeze(Key);
	const FProperty* ByLetter = nullptr;
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		const FString Name = LooseNames::Squeeze(It->GetName());
		if (Name == Wanted || LooseNames::Squeeze(ShownName(**It)) == Wanted)
		{
			return *It;
		}
		ByLetter = Wanted.Len() == 1 && Name.StartsWith(Wanted) ? *It : ByLetter;
	}
	return ByLetter;
}

/** The members in the order in which authors write them. */
static TArray<const FProperty*> MembersInRow(const UScriptStruct& Struct)
{
	TArray<const FProperty*> Members;
	if (Struct.GetName() == TEXT("Color"))
	{
		for (const TCHAR* const Name : {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")})
		{
			Members.Add(FindMember(Struct, Name));
		}
		return Members;
	}
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		Members.Add(*It);
	}
	return Members;
}

static bool IsColor(const UScriptStruct& Struct)
{
	return Struct.GetName() == TEXT("LinearColor") || Struct.GetName() == TEXT("Color");
}

bool WriteStruct(const UScriptStruct& Struct, const FTree& Tree, FString& OutText);

static bool WriteMember(const FProperty& Member, const FTree& Value, FString& OutText)
{
	const FStructProperty* const Inner = CastField<FStructProperty>(&Member);
	if (!Inner || !Inner->Struct || Value.IsLeaf())
	{
		OutText = Value.Text;
		return Value.IsLeaf();
	}
	return WriteStruct(*Inner->Struct, Value, OutText);
}

/** "(X=1,Y=2)". */
bool WriteStruct(const UScriptStruct& Struct, const FTree& Tree, FString& OutText)
{
	const TArray<const FProperty*> Row = MembersInRow(Struct);
	const bool bEnough = Tree.Parts.Num() == Row.Num() || (IsColor(Struct) && Tree.Parts.Num() == Row.Num() - 1);
	TArray<FString> Written;
	for (int32 Index = 0; Index < Tree.Parts.Num(); ++Index)
	{
		const FTree::FPart& Part = Tree.Parts[Index];
		const bool bNamed = !Part.Key.IsEmpty();
		const FProperty* const Member = bNamed ? FindMember(Struct, Part.Key) : bEnough ? Row[Index] : nullptr;
		FString Text;
		if (!Member || !WriteMember(*Member, *Part.Value, Text))
		{
			return false;
		}
		Written.Add(Member->GetName() + TEXT("=") + Text);
	}
	if (IsColor(Struct) && !bEnough)
	{
		return false;
	}
	if (IsColor(Struct) && Tree.Parts.Num() == Row.Num() - 1)
	{
		Written.Add(Struct.GetName() == TEXT("Color") ? TEXT("A=255") : TEXT("A=1.0"));
	}
	OutText = TEXT("(") + FString::Join(Written, TEXT(",")) + TEXT(")");
	return !Written.IsEmpty();
}

/** Three numbers in a row, parts that are not named standing at Default. */
static bool WriteRow(
	const FTree& Tree, std::initializer_list<const TCHAR*> Names, const TCHAR* Default, FString& OutRow)
{
	TArray<FString> Numbers = {Default, Default, Default};
	const bool bPositional = Tree.Parts.Num() == 3;
	for (int32 Index = 0; Index < Tree.Parts.Num(); ++Index)
	{
		const FString Key = LooseNames::Squeeze(Tree.Parts[Index].Key);
		int32 Place = Key.IsEmpty() && bPositional ? Index : INDEX_NONE;
		int32 Candidate = 0;
		for (const TCHAR* const Name : Names)
		{
			Place = !Key.IsEmpty() && (Key == Name || Key == FString(Name).Left(1)) ? Candidate : Place;
			++Candidate;
		}
		if (Place == INDEX_NONE || !Tree.Parts[Index].Value->IsLeaf())
		{
			return false;
		}
		Numbers[Place] = Tree.Parts[Index].Value->Text;
	}
	OutRow = FString::Join(Numbers, TEXT(","));
	return !Tree.IsLeaf();
}

/** "0,0,0|0,90,0|1,1,1", the rotation in degrees. */
static bool WriteTransform(const FTree& Tree, FString& OutText)
{
	FString Rows[] = {TEXT("0,0,0"), TEXT("0,0,0"), TEXT("1,1,1")};
	for (int32 Index = 0; Index < Tree.Parts.Num(); ++Index)
	{
		const FString Key = LooseNames::Squeeze(Tree.Parts[Index].Key);
		const FTree& Value = *Tree.Parts[Index].Value;
		const bool bPositional = Key.IsEmpty() && Tree.Parts.Num() == 3;
		const bool bMove = Key == TEXT("location") || Key == TEXT("translation") || Key == TEXT("position");
		const int32 Row = bMove || (bPositional && Index == 0)			   ? 0
			: Key == TEXT("rotation") || (bPositional && Index == 1)	   ? 1
			: Key.StartsWith(TEXT("scale")) || (bPositional && Index == 2) ? 2
																		   : INDEX_NONE;
		if (Row == INDEX_NONE
			|| !(Row == 1
					? WriteRow(Value, {TEXT("pitch"), TEXT("yaw"), TEXT("roll")}, TEXT("0"), Rows[Row])
					: WriteRow(Value, {TEXT("x"), TEXT("y"), TEXT("z")}, Row == 2 ? TEXT("1") : TEXT("0"), Rows[Row])))
		{
			return false;
		}
	}
	OutText = Rows[0] + TEXT("|") + Rows[1] + TEXT("|") + Rows[2];
	return !Tree.IsLeaf();
}

/** Colors that have a name in every paint box, and the web's "#RRGGBB" with or without an alpha. */
static bool WriteNamedColor(const UScriptStruct& Struct, const FString& Value, FString& OutText)
{
	static const TCHAR* const Named[][2] = {{TEXT("black"), TEXT("000000")}, {TEXT("white"), TEXT("FFFFFF")},
		{TEXT("red"), TEXT("FF0000")}, {TEXT("green"), TEXT("00FF00")}, {TEXT("blue"), TEXT("0000FF")},
		{TEXT("yellow"), TEXT("FFFF00")}, {TEXT("cyan"), TEXT("00FFFF")}, {TEXT("magenta"), TEXT("FF00FF")},
		{TEXT("orange"), TEXT("FF8000")}, {TEXT("purple"), TEXT("8000FF")}, {TEXT("gray"), TEXT("808080")},
		{TEXT("grey"), TEXT("808080")}, {TEXT("transparent"), TEXT("00000000")}};
	FString Digits = Value.TrimStartAndEnd();
	const bool bHex = Digits.RemoveFromStart(TEXT("#"));
	for (const auto& Row : Named)
	{
		Digits = !bHex && Digits == Row[0] ? FString(Row[1]) : Digits;
	}
	bool bAllHex = true;
	for (const TCHAR Digit : Digits)
	{
		bAllHex &= FChar::IsHexDigit(Digit);
	}
	if (!bAllHex || (Digits.Len() != 6 && Digits.Len() != 8) || (!bHex && Digits == Value.TrimStartAndEnd()))
	{
		return false;
	}
	const FColor Color = FColor::FromHex(Digits);
	OutText = Struct.GetName() == TEXT("Color") ? Color.ToString() : FLinearColor(Color).ToString();
	return true;
}

static FString ToStructText(const UScriptStruct& Struct, const FString& Value)
{
	const FTree Tree = Parse(Value);
	FString Text;
	if (IsColor(Struct) && WriteNamedColor(Struct, Value, Text))
	{
		return Text;
	}
	const bool bWritten = Struct.GetName() == TEXT("Transform") ? WriteTransform(Tree, Text)
																: WriteStruct(Struct, Tree, Text);
	return bWritten ? Text : Value;
}

static FString ToEnumText(const UEnum& Enum, const FString& Value)
{
	const FString Wanted = LooseNames::Squeeze(Value);
	for (int32 Index = 0; Index < Enum.NumEnums(); ++Index)
	{
		if (LooseNames::Squeeze(Enum.GetDisplayNameTextByIndex(Index).ToString()) == Wanted
			|| LooseNames::Squeeze(Enum.GetNameStringByIndex(Index)) == Wanted)
		{
			return Enum.GetNameStringByIndex(Index);
		}
	}
	return Value;
}

static bool IsTaken(const UEdGraphPin& Pin, const FString& Value)
{
	return GetDefault<UEdGraphSchema_K2>()->DefaultValueSimpleValidation(
		Pin.PinType, Pin.PinName, Value, nullptr, FText::GetEmpty());
}
} // namespace AuthoredValuesText

FString AuthoredValues::ToPinText(const UEdGraphPin& Pin, const FString& Value)
{
	if (Pin.PinType.PinCategory == UEdGraphSchema_K2::PC_SoftObject && !Pin.PinType.IsContainer())
	{
		return SoftReferences::ToObjectPath(Value);
	}
	UObject* const Kind = Pin.PinType.PinSubCategoryObject.Get();
	const UScriptStruct* const Struct = Cast<UScriptStruct>(Kind);
	const UEnum* const Enum = Cast<UEnum>(Kind);
	if (Pin.PinType.IsContainer() || (!Struct && !Enum) || AuthoredValuesText::IsTaken(Pin, Value))
	{
		return Value;
	}
	const FString Text = Struct ? AuthoredValuesText::ToStructText(*Struct, Value)
								: AuthoredValuesText::ToEnumText(*Enum, Value);
	return AuthoredValuesText::IsTaken(Pin, Text) ? Text : Value;
}

FString AuthoredValues::DescribeForm(const UEdGraphPin& Pin)
{
	const UScriptStruct* const Struct = Pin.PinType.IsContainer()
		? nullptr
		: Cast<UScriptStruct>(Pin.PinType.PinSubCategoryObject.Get());
	if (!Struct)
	{
		return FString();
	}
	if (Struct->GetName() == TEXT("Transform"))
	{
		return TEXT("location|rotation|scale, such as 0,0,100|0,90,0|1,1,1");
	}
	constexpr int32 MostShown = 8;
	TArray<FString> Members;
	for (const FProperty* const Member : AuthoredValuesText::MembersInRow(*Struct))
	{
		if (Members.Num() < MostShown)
		{
			Members.Add(AuthoredValuesText::ShownName(*Member) + TEXT("=..."));
		}
	}
	return TEXT("(") + FString::Join(Members, TEXT(",")) + TEXT(")");
}
