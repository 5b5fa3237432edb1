#pragma once

#include "CoreTypes.h"

/** Character classes and case, by Unicode and whatever the locale of the process; ASCII is answered at once. */
struct FChar
{
	static TCHAR ToLower(TCHAR Char)
	{
		if (Char < 0x80)
		{
			return Char >= TEXT('A') && Char <= TEXT('Z') ? static_cast<TCHAR>(Char + 32) : Char;
		}
		return ToLowerWide(Char);
	}
	static TCHAR ToUpper(TCHAR Char)
	{
		if (Char < 0x80)
		{
			return Char >= TEXT('a') && Char <= TEXT('z') ? static_cast<TCHAR>(Char - 32) : Char;
		}
		return ToUpperWide(Char);
	}
	static bool IsUpper(TCHAR Char) { return ToLower(Char) != Char; }
	static bool IsLower(TCHAR Char) { return ToUpper(Char) != Char; }
	static bool IsDigit(TCHAR Char) { return Char >= TEXT('0') && Char <= TEXT('9'); }
	static bool IsAlpha(TCHAR Char)
	{
		return (Char >= TEXT('a') && Char <= TEXT('z')) || (Char >= TEXT('A') && Char <= TEXT('Z'))
			|| (Char >= 0x80 && IsAlphaWide(Char));
	}
	static bool IsAlnum(TCHAR Char) { return IsAlpha(Char) || IsDigit(Char); }
	static bool IsIdentifier(TCHAR Char) { return IsAlnum(Char) || Char == TEXT('_'); }
	static bool IsUnderscore(TCHAR Char) { return Char == TEXT('_'); }
	static bool IsHexDigit(TCHAR Char)
	{
		return IsDigit(Char) || (Char >= TEXT('a') && Char <= TEXT('f')) || (Char >= TEXT('A') && Char <= TEXT('F'));
	}
	static bool IsWhitespace(TCHAR Char)
	{
		return Char == TEXT(' ') || (Char >= 9 && Char <= 13) || Char == 0x85 || Char == 0xA0 || Char == 0x1680
			|| (Char >= 0x2000 && Char <= 0x200A) || Char == 0x2028 || Char == 0x2029 || Char == 0x202F
			|| Char == 0x205F || Char == 0x3000;
	}
	static bool IsLinebreak(TCHAR Char)
	{
		return (Char >= 10 && Char <= 13) || Char == 0x85 || Char == 0x2028 || Char == 0x2029;
	}
	/** The value of a hexadecimal digit; 0 for any other character. */
	static int32 ConvertCharDigitToInt(TCHAR Char);

private:
	static TCHAR ToLowerWide(TCHAR Char);
	static TCHAR ToUpperWide(TCHAR Char);
	static bool IsAlphaWide(TCHAR Char);
};
