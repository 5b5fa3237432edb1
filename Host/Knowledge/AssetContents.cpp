#include "Knowledge/AssetContents.h"

#include "Containers/StringConv.h"
#include "Engine/Blueprint.h"
#include "Engine/DataTable.h"
#include "Misc/Parse.h"
#include "Standalone/ObjectText.h"
#include "UObject/UnrealType.h"

namespace AssetContentsPrivate
{
static FString Unquoted(const FString& Value)
{
	FString Text;
	return FParse::QuotedString(*Value, Text) ? Text : Value;
}

/** "Damage" of "Damage_4_0A1B...": members of an author's struct bear a number and an id behind what they show. */
static FString ShownName(const FString& Name)
{
	constexpr int32 IdLength = 32;
	int32 At = Name.Len() - IdLength - 1;
	if (At < 2 || Name[At] != TEXT('_'))
	{
		return Name;
	}
	for (int32 Index = At + 1; Index < Name.Len(); ++Index)
	{
		if (!FChar::IsHexDigit(Name[Index]))
		{
			return Name;
		}
	}
	const int32 EndOfNumber = At;
	while (At > 1 && FChar::IsDigit(Name[At - 1]))
	{
		--At;
	}
	return At < EndOfNumber && Name[At - 1] == TEXT('_') ? Name.Left(At - 1) : Name;
}

/** A value as a person reads it: what a text says, without the key that translators find it by. */
static FString ShownValue(const FString& Value)
{
	if (!Value.StartsWith(TEXT("NSLOCTEXT("), ESearchCase::CaseSensitive) || !Value.EndsWith(TEXT("\")")))
	{
		return Value.StartsWith(TEXT("\"")) && Value.EndsWith(TEXT("\"")) ? Unquoted(Value) : Value;
	}
	// The last of three quoted texts.
	int32 At = 0;
	FString Text;
	for (int32 Part = 0; Part < 3; ++Part)
	{
		At = Value.Find(TEXT("\""), ESearchCase::CaseSensitive, ESearchDir::FromStart, At);
		int32 NumRead = 0;
		if (At == INDEX_NONE || !FParse::QuotedString(*Value + At, Text, &NumRead))
		{
			return Value;
		}
		At += NumRead;
	}
	return Text;
}

/** The members of "(A=1,B=(C=2))", one after the other. */
static void SplitMembers(const FString& Text, TFunctionRef<void(const FString& Name, const FString& Value)> Visit)
{
	int32 Depth = 0;
	bool bQuoted = false;
	int32 Start = 1;
	int32 Equals = INDEX_NONE;
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		const TCHAR Char = Text[Index];
		Index += bQuoted && Char == TEXT('\\') ? 1 : 0;
		bQuoted ^= Char == TEXT('"');
		if (bQuoted)
		{
			continue;
		}
		Depth += Char == TEXT('(') ? 1 : 0;
		Depth -= Char == TEXT(')') ? 1 : 0;
		Equals = Char == TEXT('=') && Depth == 1 && Equals == INDEX_NONE ? Index : Equals;
		if ((Char == TEXT(',') && Depth == 1) || Depth == 0)
		{
			if (Equals != INDEX_NONE)
			{
				Visit(Text.Mid(Start, Equals - Start).TrimQuotes(), Text.Mid(Equals + 1, Index - Equals - 1));
			}
			Start = Index + 1;
			Equals = INDEX_NONE;
		}
	}
}

static void DescribeTable(const UDataTable& Table, FJsonObject& Out)
{
	Out.SetStringField(TEXT("row_struct"), Table.GetRowStruct() ? Table.GetRowStruct()->GetPathName() : FString());
	TArray<TSharedPtr<FJsonValue>> Rows;
	for (const TPair<FName, FString>& Row : Table.GetRowTexts())
	{
		const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
		const TSharedRef<FJsonObject> Values = MakeShared<FJsonObject>();
		Entry->SetStringField(TEXT("name"), Row.Key.ToString());
		SplitMembers(Row.Value,
			[&Values](const FString& Name, const FString& Value)
			{ Values->SetStringField(ShownName(Name), ShownValue(Value)); });
		Entry->SetObjectField(TEXT("values"), Values);
		Rows.Add(MakeShared<FJsonValueObject>(Entry));
	}
	Out.SetArrayField(TEXT("rows"), Rows);
}

static void DescribeEnum(const UEnum& Enum, FJsonObject& Out)
{
	TArray<TSharedPtr<FJsonValue>> Entries;
	// The last one is the closing "_MAX".
	for (int32 Index = 0; Index + 1 < Enum.NumEnums(); ++Index)
	{
		const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetStringField(TEXT("name"), Enum.GetNameStringByIndex(Index));
		Entry->SetStringField(TEXT("display_name"), Enum.GetDisplayNameTextByIndex(Index).ToString());
		Entries.Add(MakeShared<FJsonValueObject>(Entry));
	}
	Out.SetArrayField(TEXT("entries"), Entries);
}

static void DescribeStruct(const UScriptStruct& Struct, FJsonObject& Out)
{
	TArray<TSharedPtr<FJsonValue>> Members;
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		const TSharedRef<FJsonObject> Member = MakeShared<FJsonObject>();
		Member->SetStringField(TEXT("name"), ShownName(Struct.GetAuthoredNameForField(*It)));
		Member->SetStringField(TEXT("type"), It->GetCPPType());
		Members.Add(MakeShared<FJsonValueObject>(Member));
	}
	Out.SetArrayField(TEXT("members"), Members);
}

/** Texts of the kind Keyword "Key" "Value". */
static void DescribeStrings(const FKeptObjectText& Kept, FJsonObject& Out)
{
	const TSharedRef<FJsonObject> Entries = MakeShared<FJsonObject>();
	for (const std::string& Line : Kept.CustomLines)
	{
		const FString Text = FromUtf8(Line);
		const TCHAR* Cursor = *Text;
		FString Key;
		FString Value;
		int32 NumRead = 0;
		if (FParse::Command(&Cursor, TEXT("Entry")) && FParse::QuotedString(Cursor, Key, &NumRead))
		{
			FParse::QuotedString(*FString(Cursor + NumRead).TrimStart(), Value);
			Entries->SetStringField(Key, Value);
		}
	}
	Out.SetObjectField(TEXT("entries"), Entries);
}

/** What was set otherwise than in a new object of the class, and what the class is not known to have. */
static void DescribeProperties(const UObject& Object, FJsonObject& Out)
{
	const TSharedRef<FJsonObject> Properties = MakeShared<FJsonObject>();
	const UObject* const Default = Object.GetClass()->GetDefaultObject();
	for (TFieldIterator<FProperty> It(Object.GetClass()); It; ++It)
	{
		if (!It->HasAnyPropertyFlags(CPF_Transient) && !It->Identical_InContainer(&Object, Default))
		{
			FString Value;
			It->ExportText_InContainer(0, Value, &Object, nullptr, nullptr, PPF_None);
			Properties->SetStringField(It->GetName(), Value);
		}
	}
	const FKeptObjectText* const Kept = FKeptObjectText::Find(&Object);
	for (const std::string& Line : Kept ? Kept->Lines : std::vector<std::string>())
	{
		const std::size_t Equals = Line.find('=');
		const std::size_t First = Line.find_first_not_of(' ');
		if (Equals != std::string::npos && First < Equals)
		{
			Properties->SetStringField(
				FromUtf8(Line.substr(First, Equals - First)), FromUtf8(Line.substr(Equals + 1)).TrimEnd().TrimQuotes());
		}
	}
	Out.SetObjectField(TEXT("properties"), Properties);
}
} // namespace AssetContentsPrivate

TSharedRef<FJsonObject> AssetContents::Describe(const FAssetData& Asset)
{
	using namespace AssetContentsPrivate;
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	const UObject* const Object = Asset.GetAsset();
	if (!Object || Object->IsA<UBlueprint>())
	{
		return Out;
	}
	const FKeptObjectText* const Kept = FKeptObjectText::Find(Object);
	if (const UDataTable* const Table = Cast<UDataTable>(Object))
	{
		DescribeTable(*Table, *Out);
	}
	else if (const UEnum* const Enum = Cast<UEnum>(Object))
	{
		DescribeEnum(*Enum, *Out);
	}
	else if (const UScriptStruct* const Struct = Cast<UScriptStruct>(Object))
	{
		DescribeStruct(*Struct, *Out);
	}
	else if (Object->GetClass()->GetName() == TEXT("StringTable") && Kept)
	{
		DescribeStrings(*Kept, *Out);
	}
	else
	{
		DescribeProperties(*Object, *Out);
	}
	return Out;
}
