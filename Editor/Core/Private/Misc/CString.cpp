#include "Misc/CString.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <initializer_list>
#include <locale.h>
#include <strings.h>
#include <wctype.h>

namespace Chars
{
/** The process may run in the plain C locale, which knows no letter beyond ASCII. */
static locale_t GetLocale()
{
	static const locale_t Locale = []
	{
		const locale_t Unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t());
		return Unicode ? Unicode : newlocale(LC_CTYPE_MASK, "C", locale_t());
	}();
	return Locale;
}
}

TCHAR FChar::ToLowerWide(TCHAR Char)
{
	return static_cast<TCHAR>(towlower_l(static_cast<wint_t>(Char), Chars::GetLocale()));
}

TCHAR FChar::ToUpperWide(TCHAR Char)
{
	return static_cast<TCHAR>(towupper_l(static_cast<wint_t>(Char), Chars::GetLocale()));
}

bool FChar::IsAlphaWide(TCHAR Char)
{
	return iswalpha_l(static_cast<wint_t>(Char), Chars::GetLocale()) != 0;
}

int32 FChar::ConvertCharDigitToInt(TCHAR Char)
{
	if (!IsHexDigit(Char))
	{
		return 0;
	}
	return IsDigit(Char) ? Char - TEXT('0') : ToLower(Char) - TEXT('a') + 10;
}

int32 FCString::Strlen(const TCHAR* String)
{
	return static_cast<int32>(std::wcslen(String));
}

int32 FCString::Strncmp(const TCHAR* Left, const TCHAR* Right, int32 Count)
{
	return std::wcsncmp(Left, Right, static_cast<std::size_t>(Count));
}

int32 FCString::Stricmp(const TCHAR* Left, const TCHAR* Right)
{
	return Strnicmp(Left, Right, MAX_int32);
}

int32 FCString::Strnicmp(const TCHAR* Left, const TCHAR* Right, int32 Count)
{
	for (; Count > 0; --Count, ++Left, ++Right)
	{
		const TCHAR LowLeft = FChar::ToLower(*Left);
		const TCHAR LowRight = FChar::ToLower(*Right);
		if (LowLeft != LowRight)
		{
			return LowLeft < LowRight ? -1 : 1;
		}
		if (!LowLeft)
		{
			return 0;
		}
	}
	return 0;
}

const TCHAR* FCString::Strchr(const TCHAR* String, TCHAR Char)
{
	return std::wcschr(String, Char);
}

const TCHAR* FCString::Stristr(const TCHAR* String, const TCHAR* Find)
{
	const int32 Length = Strlen(Find);
	for (;; ++String)
	{
		if (Strnicmp(String, Find, Length) == 0)
		{
			return String;
		}
		if (!*String)
		{
			return nullptr;
		}
	}
}

int32 FCString::Atoi(const TCHAR* String)
{
	return static_cast<int32>(std::wcstol(String, nullptr, 10));
}

int64 FCString::Atoi64(const TCHAR* String)
{
	return std::wcstoll(String, nullptr, 10);
}

float FCString::Atof(const TCHAR* String)
{
	return std::wcstof(String, nullptr);
}

double FCString::Atod(const TCHAR* String)
{
	return std::wcstod(String, nullptr);
}

int32 FCString::Strtoi(const TCHAR* Start, TCHAR** End, int32 Base)
{
	return static_cast<int32>(std::wcstol(Start, End, Base));
}

int64 FCString::Strtoi64(const TCHAR* Start, TCHAR** End, int32 Base)
{
	return std::wcstoll(Start, End, Base);
}

bool FCString::IsNumeric(const TCHAR* String)
{
	if (*String == TEXT('-') || *String == TEXT('+'))
	{
		++String;
	}
	bool bHasPoint = false;
	bool bHasDigit = false;
	for (; *String; ++String)
	{
		if (*String == TEXT('.') && !bHasPoint)
		{
			bHasPoint = true;
		}
		else if (FChar::IsDigit(*String))
		{
			bHasDigit = true;
		}
		else
		{
			return false;
		}
	}
	return bHasDigit;
}

bool FCString::ToBool(const TCHAR* String)
{
	for (const TCHAR* const Word : {TEXT("True"), TEXT("Yes"), TEXT("On")})
	{
		if (Stricmp(String, Word) == 0)
		{
			return true;
		}
	}
	return Atoi(String) != 0;
}
