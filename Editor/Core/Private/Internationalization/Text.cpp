#include "Internationalization/Text.h"

#include "Internationalization/Internationalization.h"
#include "Internationalization/TextData.h"

namespace Texts
{
static FString GroupThousands(FString Digits)
{
	int32 End = Digits.Len();
	Digits.FindChar(TEXT('.'), End);
	End = End == INDEX_NONE ? Digits.Len() : End;
	const int32 Start = Digits.StartsWith(TEXT("-")) ? 1 : 0;
	for (int32 Index = End - 3; Index > Start; Index -= 3)
	{
		Digits.InsertAt(Index, TEXT(','));
	}
	return Digits;
}

static FString ShowReal(double Value)
{
	FString Digits = FString::Printf(TEXT("%.3f"), Value);
	if (FCString::IsNumeric(*Digits))
	{
		while (Digits.EndsWith(TEXT("0")))
		{
			Digits.LeftChopInline(1);
		}
		Digits.RemoveFromEnd(TEXT("."));
	}
	return GroupThousands(Digits == TEXT("-0") ? FString(TEXT("0")) : Digits);
}

/** Calls Find with each name in braces; the text it answers replaces the placeholder, null leaves it. */
template <typename FindType>
static FString Substitute(const FString& Pattern, const FindType& Find)
{
	FString Result;
	const FStringView View(Pattern);
	for (int32 Index = 0; Index < View.Len(); ++Index)
	{
		const TCHAR Char = View[Index];
		const TCHAR Next = Index + 1 < View.Len() ? View[Index + 1] : TEXT('\0');
		if (Char == TEXT('`') && (Next == TEXT('{') || Next == TEXT('}') || Next == TEXT('`')))
		{
			Result.AppendChar(Next);
			++Index;
			continue;
		}
		int32 Length = INDEX_NONE;
		if (Char == TEXT('{') && View.RightChop(Index + 1).FindChar(TEXT('}'), Length))
		{
			if (const FFormatArgumentValue* const Argument = Find(View.Mid(Index + 1, Length)))
			{
				Result += Argument->ToFormattedText().ToString();
				Index += Length + 1;
				continue;
			}
		}
		Result.AppendChar(Char);
	}
	return Result;
}
}

FText FTextMaker::Plain(FString&& Shown, bool bCultureInvariant)
{
	const TSharedRef<FTextData> Data = MakeShared<FTextData>();
	Data->Shown = MoveTemp(Shown);
	Data->bCultureInvariant = bCultureInvariant;
	Data->bFromString = !bCultureInvariant;
	return FText(Data);
}

FText FTextMaker::WithKey(const FString& Namespace, const FString& Key, FString&& Source)
{
	TUniquePtr<FTextOrigin> Origin = MakeUnique<FTextOrigin>();
	Origin->Namespace = Namespace;
	Origin->Key = Key;
	return WithOrigin(MoveTemp(Origin), MoveTemp(Source));
}

FText FTextMaker::Verbatim(FString&& Form, FString&& Shown)
{
	TUniquePtr<FTextOrigin> Origin = MakeUnique<FTextOrigin>();
	Origin->Kind = FTextOrigin::EKind::Verbatim;
	Origin->Namespace = MoveTemp(Form);
	return WithOrigin(MoveTemp(Origin), MoveTemp(Shown));
}

FText FTextMaker::WithOrigin(TUniquePtr<FTextOrigin> Origin, FString&& Shown)
{
	const TSharedRef<FTextData> Data = MakeShared<FTextData>();
	Data->Shown = MoveTemp(Shown);
	Data->Origin = MoveTemp(Origin);
	return FText(Data);
}

const FTextOrigin* FTextMaker::GetOrigin(const FText& Text)
{
	return Text.Data ? Text.Data->Origin.Get() : nullptr;
}

const FText& FText::GetEmpty()
{
	static const FText Empty;
	return Empty;
}

FText FText::FromString(const FString& String)
{
	return FromString(FString(String));
}

FText FText::FromString(FString&& String)
{
	return String.IsEmpty() ? FText() : FTextMaker::Plain(MoveTemp(String), false);
}

FText FText::FromName(const FName& Name)
{
	return FromString(Name.ToString());
}

FText FText::AsCultureInvariant(const FString& String)
{
	return FTextMaker::Plain(FString(String), true);
}

FText FText::AsCultureInvariant(FString&& String)
{
	return FTextMaker::Plain(MoveTemp(String), true);
}

FText FText::AsCultureInvariant(const FText& Text)
{
	return AsCultureInvariant(Text.ToString());
}

FText FText::AsNumber(int32 Value)
{
	return AsNumber(static_cast<int64>(Value));
}

FText FText::AsNumber(int64 Value)
{
	FString Digits = LexToString(Value);
	return FTextMaker::Verbatim(TEXT("LOCGEN_NUMBER(") + Digits + TEXT(", \"\")"), Texts::GroupThousands(Digits));
}

FText FText::AsNumber(double Value)
{
	return FTextMaker::Verbatim(FString::Printf(TEXT("LOCGEN_NUMBER(%f, \"\")"), Value), Texts::ShowReal(Value));
}

FText FText::ChangeKey(const FString& Namespace, const FString& Key, const FText& Text)
{
	return FTextMaker::WithKey(Namespace, Key, FString(Text.ToString()));
}

FText FText::FromStringTable(const FName& TableId, const FString& Key)
{
	// There are no string tables here; the engine shows the same for an entry that it cannot find.
	TUniquePtr<FTextOrigin> Origin = MakeUnique<FTextOrigin>();
	Origin->Kind = FTextOrigin::EKind::Table;
	Origin->Namespace = TableId.ToString();
	Origin->Key = Key;
	return FTextMaker::WithOrigin(MoveTemp(Origin), TEXT("<MISSING STRING TABLE ENTRY>"));
}

FText FText::Format(const FText& Pattern, const FFormatNamedArguments& Arguments)
{
	FString Shown = Texts::Substitute(
		Pattern.ToString(), [&Arguments](FStringView Name) { return Arguments.Find(FString(Name)); });
	TUniquePtr<FTextOrigin> Origin = MakeUnique<FTextOrigin>();
	Origin->Kind = FTextOrigin::EKind::NamedFormat;
	Origin->Pattern = Pattern;
	Origin->Named = Arguments;
	return FTextMaker::WithOrigin(MoveTemp(Origin), MoveTemp(Shown));
}

FText FText::Format(const FText& Pattern, const FFormatOrderedArguments& Arguments)
{
	FString Shown = Texts::Substitute(Pattern.ToString(),
		[&Arguments](FStringView Name) -> const FFormatArgumentValue*
		{
			int32 Index = INDEX_NONE;
			const bool bFound = LexTryParseString(Index, *FString(Name)) && Arguments.IsValidIndex(Index);
			return bFound ? &Arguments[Index] : nullptr;
		});
	TUniquePtr<FTextOrigin> Origin = MakeUnique<FTextOrigin>();
	Origin->Kind = FTextOrigin::EKind::OrderedFormat;
	Origin->Pattern = Pattern;
	Origin->Ordered = Arguments;
	return FTextMaker::WithOrigin(MoveTemp(Origin), MoveTemp(Shown));
}

FText FText::Join(const FText& Delimiter, const TArray<FText>& Parts)
{
	FString Shown;
	for (int32 Index = 0; Index < Parts.Num(); ++Index)
	{
		Shown += Index > 0 ? Delimiter.ToString() : FString();
		Shown += Parts[Index].ToString();
	}
	return FromString(MoveTemp(Shown));
}

const FString& FText::ToString() const
{
	static const FString Empty;
	return Data ? Data->Shown : Empty;
}

bool FText::IsCultureInvariant() const
{
	return Data && Data->bCultureInvariant;
}

bool FText::ShouldGatherForLocalization() const
{
	const FTextOrigin* const Origin = FTextMaker::GetOrigin(*this);
	return Origin && Origin->Kind == FTextOrigin::EKind::Key && !IsEmpty();
}

bool FText::IdenticalTo(const FText& Other) const
{
	if (Data == Other.Data)
	{
		return true;
	}
	FString Written;
	FString OtherWritten;
	FTextStringHelper::WriteToBuffer(Written, *this, true);
	FTextStringHelper::WriteToBuffer(OtherWritten, Other, true);
	return Written.Equals(OtherWritten, ESearchCase::CaseSensitive);
}

FText FFormatArgumentValue::ToFormattedText() const
{
	switch (Type)
	{
	case EFormatArgumentType::Int:
	case EFormatArgumentType::UInt:
		return FText::AsNumber(Integer);
	case EFormatArgumentType::Float:
	case EFormatArgumentType::Double:
		return FText::AsNumber(Real);
	case EFormatArgumentType::Text:
	case EFormatArgumentType::Gender:
		break;
	}
	return Text;
}

FString FFormatArgumentValue::ToExportedString() const
{
	switch (Type)
	{
	case EFormatArgumentType::Int:
		return LexToString(Integer);
	case EFormatArgumentType::UInt:
		return LexToString(Integer) + TEXT("u");
	case EFormatArgumentType::Float:
		return FString::Printf(TEXT("%ff"), Real);
	case EFormatArgumentType::Double:
		return FString::Printf(TEXT("%f"), Real);
	case EFormatArgumentType::Text:
	case EFormatArgumentType::Gender:
		break;
	}
	FString Written;
	FTextStringHelper::WriteToBuffer(Written, Text, true);
	return Written;
}

TOptional<FString> FTextInspector::GetNamespace(const FText& Text)
{
	const FTextOrigin* const Origin = FTextMaker::GetOrigin(Text);
	return Origin && Origin->Kind == FTextOrigin::EKind::Key ? TOptional<FString>(Origin->Namespace)
															 : TOptional<FString>();
}

TOptional<FString> FTextInspector::GetKey(const FText& Text)
{
	const FTextOrigin* const Origin = FTextMaker::GetOrigin(Text);
	return Origin && Origin->Kind == FTextOrigin::EKind::Key ? TOptional<FString>(Origin->Key) : TOptional<FString>();
}

FText FInternationalization::ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(
	const TCHAR* Source, const TCHAR* Namespace, const TCHAR* Key)
{
	return FTextMaker::WithKey(Namespace, Key, Source);
}
