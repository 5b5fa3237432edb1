#include "Misc/Parse.h"

namespace Parsing
{
static bool IsValueEnd(TCHAR Char)
{
	return !Char || Char == TEXT(' ') || Char == TEXT(',') || Char == TEXT(')') || FChar::IsLinebreak(Char);
}

/** Reads the character behind a backslash; Cursor stands on it and is left on its last character. */
static void AppendEscaped(const TCHAR*& Cursor, FString& OutValue)
{
	switch (*Cursor)
	{
	case TEXT('n'):
		OutValue.AppendChar(TEXT('\n'));
		break;
	case TEXT('r'):
		OutValue.AppendChar(TEXT('\r'));
		break;
	case TEXT('t'):
		OutValue.AppendChar(TEXT('\t'));
		break;
	case TEXT('x'):
	case TEXT('u'):
	case TEXT('U'):
	{
		const int32 MaxDigits = *Cursor == TEXT('x') ? 8 : *Cursor == TEXT('u') ? 4 : 8;
		uint32 CodePoint = 0;
		int32 NumDigits = 0;
		while (NumDigits < MaxDigits && FChar::IsHexDigit(Cursor[1]))
		{
			CodePoint = CodePoint * 16 + static_cast<uint32>(FChar::ConvertCharDigitToInt(*++Cursor));
			++NumDigits;
		}
		OutValue.AppendChar(NumDigits ? static_cast<TCHAR>(CodePoint) : *Cursor);
		break;
	}
	default:
		OutValue.AppendChar(*Cursor);
		break;
	}
}
}

bool FParse::QuotedString(const TCHAR* Buffer, FString& OutValue, int32* OutNumCharsRead)
{
	if (*Buffer != TEXT('"'))
	{
		return false;
	}
	FString Value;
	const TCHAR* Cursor = Buffer + 1;
	for (; *Cursor && *Cursor != TEXT('"'); ++Cursor)
	{
		if (*Cursor != TEXT('\\'))
		{
			Value.AppendChar(*Cursor);
		}
		else if (*++Cursor)
		{
			Parsing::AppendEscaped(Cursor, Value);
		}
		else
		{
			return false;
		}
	}
	if (*Cursor != TEXT('"'))
	{
		return false;
	}
	OutValue = MoveTemp(Value);
	if (OutNumCharsRead)
	{
		*OutNumCharsRead = static_cast<int32>(Cursor + 1 - Buffer);
	}
	return true;
}

bool FParse::Value(const TCHAR* Stream, const TCHAR* Match, FString& OutValue)
{
	const TCHAR* Found = FCString::Stristr(Stream, Match);
	// A match inside a longer word ("MaxX=" for "X=") is not the key.
	while (Found && Found != Stream && FChar::IsIdentifier(Found[-1]))
	{
		Found = FCString::Stristr(Found + 1, Match);
	}
	if (!Found)
	{
		return false;
	}
	const TCHAR* const Start = Found + FCString::Strlen(Match);
	if (QuotedString(Start, OutValue))
	{
		return true;
	}
	const TCHAR* End = Start;
	while (!Parsing::IsValueEnd(*End))
	{
		++End;
	}
	OutValue = FString(static_cast<int32>(End - Start), Start);
	return true;
}

bool FParse::Value(const TCHAR* Stream, const TCHAR* Match, double& OutValue)
{
	FString Text;
	if (!Value(Stream, Match, Text))
	{
		return false;
	}
	OutValue = FCString::Atod(*Text);
	return true;
}

bool FParse::Value(const TCHAR* Stream, const TCHAR* Match, float& OutValue)
{
	double Wide = 0.0;
	if (!Value(Stream, Match, Wide))
	{
		return false;
	}
	OutValue = static_cast<float>(Wide);
	return true;
}

bool FParse::Command(const TCHAR** Stream, const TCHAR* Match)
{
	const TCHAR* Cursor = *Stream;
	while (*Cursor == TEXT(' ') || *Cursor == TEXT('\t'))
	{
		++Cursor;
	}
	const int32 Length = FCString::Strlen(Match);
	if (FCString::Strnicmp(Cursor, Match, Length) != 0 || FChar::IsAlnum(Cursor[Length]))
	{
		return false;
	}
	Cursor += Length;
	while (*Cursor == TEXT(' ') || *Cursor == TEXT('\t'))
	{
		++Cursor;
	}
	*Stream = Cursor;
	return true;
}
