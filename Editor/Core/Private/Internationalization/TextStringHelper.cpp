#include "Internationalization/TextData.h"
#include "Misc/Parse.h"
#include "Templates/UnrealTemplate.h"

namespace TextReading
{
/** Reads the parts of a macro-like form; every Read answers false, without a word, on what it did not expect. */
struct FReader
{
	const TCHAR* Cursor;

	void SkipBlanks()
	{
		while (FChar::IsWhitespace(*Cursor))
		{
			++Cursor;
		}
	}
	bool Read(TCHAR Char)
	{
		SkipBlanks();
		if (*Cursor != Char)
		{
			return false;
		}
		++Cursor;
		return true;
	}
	bool ReadWord(FStringView Word)
	{
		SkipBlanks();
		const int32 Length = Word.Len();
		if (FCString::Strncmp(Cursor, Word.GetData(), Length) != 0 || FChar::IsIdentifier(Cursor[Length]))
		{
			return false;
		}
		Cursor += Length;
		return true;
	}
	/** A quoted literal, alone or inside TEXT(). */
	bool ReadQuoted(FString& OutValue)
	{
		const bool bWrapped = ReadWord(TEXTVIEW("TEXT"));
		SkipBlanks();
		int32 NumRead = 0;
		if ((bWrapped && !Read(TEXT('('))) || !FParse::QuotedString(Cursor, OutValue, &NumRead))
		{
			return false;
		}
		Cursor += NumRead;
		return !bWrapped || Read(TEXT(')'));
	}
	/** Whatever stands up to the bracket that closes the one just opened, that bracket included. */
	bool SkipToClosingBracket()
	{
		for (int32 Depth = 1; Depth > 0;)
		{
			FString Unused;
			int32 NumRead = 1;
			if (!*Cursor || (*Cursor == TEXT('"') && !FParse::QuotedString(Cursor, Unused, &NumRead)))
			{
				return false;
			}
			Depth += *Cursor == TEXT('(') ? 1 : *Cursor == TEXT(')') ? -1 : 0;
			Cursor += NumRead;
		}
		return true;
	}
};

static bool IsNumberStart(TCHAR Char)
{
	return FChar::IsDigit(Char) || Char == TEXT('-') || Char == TEXT('+') || Char == TEXT('.');
}

static bool ReadNumber(FReader& Reader, FFormatArgumentValue& OutValue)
{
	Reader.SkipBlanks();
	const TCHAR* const Start = Reader.Cursor;
	while (IsNumberStart(*Reader.Cursor))
	{
		++Reader.Cursor;
	}
	const FString Digits(static_cast<int32>(Reader.Cursor - Start), Start);
	if (!Digits.IsNumeric())
	{
		return false;
	}
	if (*Reader.Cursor == TEXT('f'))
	{
		++Reader.Cursor;
		OutValue = FFormatArgumentValue(FCString::Atof(*Digits));
	}
	else if (Digits.Contains(TEXT(".")))
	{
		OutValue = FFormatArgumentValue(FCString::Atod(*Digits));
	}
	else
	{
		Reader.Cursor += *Reader.Cursor == TEXT('u') ? 1 : 0;
		OutValue = FFormatArgumentValue(FCString::Atoi64(*Digits));
	}
	return true;
}

static bool ReadText(FReader& Reader, FText& OutValue)
{
	Reader.SkipBlanks();
	const TCHAR* const End = FTextStringHelper::ReadFromBuffer(Reader.Cursor, OutValue, nullptr, nullptr, true);
	if (End)
	{
		Reader.Cursor = End;
	}
	return End != nullptr;
}

static bool ReadArgument(FReader& Reader, FFormatArgumentValue& OutValue)
{
	Reader.SkipBlanks();
	if (IsNumberStart(*Reader.Cursor))
	{
		return ReadNumber(Reader, OutValue);
	}
	FText Text;
	const bool bRead = ReadText(Reader, Text);
	OutValue = FFormatArgumentValue(Text);
	return bRead;
}

static bool ReadNamedFormat(FReader& Reader, FText& OutValue)
{
	FText Pattern;
	FFormatNamedArguments Arguments;
	if (!ReadText(Reader, Pattern))
	{
		return false;
	}
	while (Reader.Read(TEXT(',')))
	{
		FString Name;
		FFormatArgumentValue Value;
		if (!Reader.ReadQuoted(Name) || !Reader.Read(TEXT(',')) || !ReadArgument(Reader, Value))
		{
			return false;
		}
		Arguments.Add(Name, Value);
	}
	OutValue = FText::Format(Pattern, Arguments);
	return Reader.Read(TEXT(')'));
}

static bool ReadOrderedFormat(FReader& Reader, FText& OutValue)
{
	FText Pattern;
	FFormatOrderedArguments Arguments;
	if (!ReadText(Reader, Pattern))
	{
		return false;
	}
	while (Reader.Read(TEXT(',')))
	{
		FFormatArgumentValue Value;
		if (!ReadArgument(Reader, Value))
		{
			return false;
		}
		Arguments.Add(Value);
	}
	OutValue = FText::Format(Pattern, Arguments);
	return Reader.Read(TEXT(')'));
}

/** How many generated texts the one being read is an argument of. */
static int32 GeneratedDepth = 0;

/** Any LOCGEN form. Those that are understood, and not nested out of all reason, are read in full, the others kept as
 * they stand. */
static const TCHAR* ReadGenerated(const TCHAR* Buffer, FText& OutValue)
{
	FReader Reader{Buffer};
	while (FChar::IsIdentifier(*Reader.Cursor))
	{
		++Reader.Cursor;
	}
	const FStringView Form(Buffer, static_cast<int32>(Reader.Cursor - Buffer));
	if (!Reader.Read(TEXT('(')))
	{
		return nullptr;
	}
	constexpr int32 MaxDepth = 32;
	const TGuardValue<int32> Nested(GeneratedDepth, GeneratedDepth + 1);
	FReader Attempt = Reader;
	const bool bKnown = GeneratedDepth <= MaxDepth;
	const bool bNamed = bKnown && Form.Equals(TEXTVIEW("LOCGEN_FORMAT_NAMED"), ESearchCase::CaseSensitive);
	const bool bOrdered = bKnown && Form.Equals(TEXTVIEW("LOCGEN_FORMAT_ORDERED"), ESearchCase::CaseSensitive);
	if ((bNamed && ReadNamedFormat(Attempt, OutValue)) || (bOrdered && ReadOrderedFormat(Attempt, OutValue)))
	{
		return Attempt.Cursor;
	}
	if (!Reader.SkipToClosingBracket())
	{
		return nullptr;
	}
	FString Verbatim(static_cast<int32>(Reader.Cursor - Buffer), Buffer);
	FFormatArgumentValue Number;
	const bool bNumber = Form.Equals(TEXTVIEW("LOCGEN_NUMBER"), ESearchCase::CaseSensitive)
		&& ReadNumber(Attempt, Number);
	FString Shown = bNumber ? Number.ToFormattedText().ToString() : Verbatim;
	OutValue = FTextMaker::Verbatim(MoveTemp(Verbatim), MoveTemp(Shown));
	return Reader.Cursor;
}

static bool ReadTable(FReader& Reader, FText& OutValue)
{
	FString TableId;
	FString Key;
	Reader.SkipBlanks();
	if (*Reader.Cursor != TEXT('"'))
	{
		while (*Reader.Cursor && *Reader.Cursor != TEXT(',') && *Reader.Cursor != TEXT(')'))
		{
			TableId.AppendChar(*Reader.Cursor++);
		}
	}
	else if (!Reader.ReadQuoted(TableId))
	{
		return false;
	}
	if (!Reader.Read(TEXT(',')) || !Reader.ReadQuoted(Key) || !Reader.Read(TEXT(')')))
	{
		return false;
	}
	OutValue = FText::FromStringTable(FName(TableId.TrimEnd()), Key);
	return true;
}

static bool ReadKeyed(FReader& Reader, const TCHAR* Namespace, FText& OutValue)
{
	FString NamespaceText(Namespace);
	FString Key;
	FString Source;
	if (!Reader.Read(TEXT('(')) || (!Namespace && (!Reader.ReadQuoted(NamespaceText) || !Reader.Read(TEXT(','))))
		|| !Reader.ReadQuoted(Key) || !Reader.Read(TEXT(',')) || !Reader.ReadQuoted(Source) || !Reader.Read(TEXT(')')))
	{
		return false;
	}
	OutValue = FTextMaker::WithKey(NamespaceText, Key, MoveTemp(Source));
	return true;
}

static void AppendQuoted(FString& OutBuffer, const FString& Text)
{
	OutBuffer.AppendChar(TEXT('"'));
	OutBuffer += Text.ReplaceCharWithEscapedChar();
	OutBuffer.AppendChar(TEXT('"'));
}

/** A key may carry the namespace of its package in brackets at the end: "Namespace [Package]". */
static FString StripPackage(const FString& Namespace)
{
	int32 Bracket = INDEX_NONE;
	return Namespace.EndsWith(TEXT("]")) && Namespace.FindLastChar(TEXT('['), Bracket)
		? Namespace.Left(Bracket).TrimEnd()
		: Namespace;
}

static void AppendOrigin(FString& OutBuffer, const FText& Value, const FTextOrigin& Origin, bool bStripPackage)
{
	switch (Origin.Kind)
	{
	case FTextOrigin::EKind::Key:
		OutBuffer += TEXT("NSLOCTEXT(");
		AppendQuoted(OutBuffer, bStripPackage ? StripPackage(Origin.Namespace) : Origin.Namespace);
		OutBuffer += TEXT(", ");
		AppendQuoted(OutBuffer, Origin.Key);
		OutBuffer += TEXT(", ");
		AppendQuoted(OutBuffer, Value.ToString());
		break;
	case FTextOrigin::EKind::Table:
		OutBuffer += TEXT("LOCTABLE(");
		AppendQuoted(OutBuffer, Origin.Namespace);
		OutBuffer += TEXT(", ");
		AppendQuoted(OutBuffer, Origin.Key);
		break;
	case FTextOrigin::EKind::NamedFormat:
		OutBuffer += TEXT("LOCGEN_FORMAT_NAMED(");
		FTextStringHelper::WriteToBuffer(OutBuffer, Origin.Pattern, true, bStripPackage);
		for (const TPair<FString, FFormatArgumentValue>& Argument : Origin.Named)
		{
			OutBuffer += TEXT(", ");
			AppendQuoted(OutBuffer, Argument.Key);
			OutBuffer += TEXT(", ") + Argument.Value.ToExportedString();
		}
		break;
	case FTextOrigin::EKind::OrderedFormat:
		OutBuffer += TEXT("LOCGEN_FORMAT_ORDERED(");
		FTextStringHelper::WriteToBuffer(OutBuffer, Origin.Pattern, true, bStripPackage);
		for (const FFormatArgumentValue& Argument : Origin.Ordered)
		{
			OutBuffer += TEXT(", ") + Argument.ToExportedString();
		}
		break;
	case FTextOrigin::EKind::Verbatim:
		OutBuffer += Origin.Namespace;
		return;
	}
	OutBuffer.AppendChar(TEXT(')'));
}
}

const TCHAR* FTextStringHelper::ReadFromBuffer(const TCHAR* Buffer, FText& OutValue, const TCHAR* TextNamespace,
	const TCHAR* PackageNamespace, bool bRequiresQuotes)
{
	using namespace TextReading;
	FReader Reader{Buffer};
	if (Reader.ReadWord(TEXTVIEW("NSLOCTEXT")))
	{
		return ReadKeyed(Reader, nullptr, OutValue) ? Reader.Cursor : nullptr;
	}
	if (Reader.ReadWord(TEXTVIEW("LOCTEXT")))
	{
		return ReadKeyed(Reader, TextNamespace ? TextNamespace : TEXT(""), OutValue) ? Reader.Cursor : nullptr;
	}
	if (Reader.ReadWord(TEXTVIEW("LOCTABLE")))
	{
		return Reader.Read(TEXT('(')) && ReadTable(Reader, OutValue) ? Reader.Cursor : nullptr;
	}
	if (Reader.ReadWord(TEXTVIEW("INVTEXT")))
	{
		FString Source;
		const bool bRead = Reader.Read(TEXT('(')) && Reader.ReadQuoted(Source) && Reader.Read(TEXT(')'));
		OutValue = bRead ? FText::AsCultureInvariant(MoveTemp(Source)) : OutValue;
		return bRead ? Reader.Cursor : nullptr;
	}
	if (FStringView(Reader.Cursor).StartsWith(TEXTVIEW("LOCGEN_"), ESearchCase::CaseSensitive))
	{
		return ReadGenerated(Reader.Cursor, OutValue);
	}
	if (bRequiresQuotes)
	{
		FString Value;
		const bool bRead = Reader.ReadQuoted(Value);
		OutValue = bRead ? FText::FromString(MoveTemp(Value)) : OutValue;
		return bRead ? Reader.Cursor : nullptr;
	}
	OutValue = FText::FromString(Buffer);
	return Buffer + FCString::Strlen(Buffer);
}

FText FTextStringHelper::CreateFromBuffer(
	const TCHAR* Buffer, const TCHAR* TextNamespace, const TCHAR* PackageNamespace, bool bRequiresQuotes)
{
	FText Value;
	return ReadFromBuffer(Buffer, Value, TextNamespace, PackageNamespace, bRequiresQuotes) ? Value
																						   : FText::FromString(Buffer);
}

void FTextStringHelper::WriteToBuffer(
	FString& OutBuffer, const FText& Value, bool bRequiresQuotes, bool bStripPackageNamespace)
{
	if (const FTextOrigin* const Origin = FTextMaker::GetOrigin(Value))
	{
		TextReading::AppendOrigin(OutBuffer, Value, *Origin, bStripPackageNamespace);
	}
	else if (Value.IsCultureInvariant())
	{
		OutBuffer += TEXT("INVTEXT(");
		TextReading::AppendQuoted(OutBuffer, Value.ToString());
		OutBuffer.AppendChar(TEXT(')'));
	}
	else if (bRequiresQuotes)
	{
		TextReading::AppendQuoted(OutBuffer, Value.ToString());
	}
	else
	{
		OutBuffer += Value.ToString();
	}
}

bool FTextStringHelper::IsComplexText(const TCHAR* Buffer)
{
	const FStringView View(Buffer);
	for (const FStringView Word :
		{TEXTVIEW("INVTEXT"), TEXTVIEW("NSLOCTEXT"), TEXTVIEW("LOCTEXT"), TEXTVIEW("LOCTABLE"), TEXTVIEW("LOCGEN_")})
	{
		if (View.StartsWith(Word, ESearchCase::CaseSensitive))
		{
			return true;
		}
	}
	return false;
}
