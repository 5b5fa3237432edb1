#include "Misc/AssertionMacros.h"

#include "Containers/StringConv.h"
#include "CoreTypes.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace Assertions
{
/** Our formats say %s for TCHAR text, the C library says %ls. */
static void WidenTextConversions(const TCHAR* Format, TCHAR* OutFormat, std::size_t Size)
{
	bool bInSpec = false;
	std::size_t Length = 0;
	for (; *Format && Length + 2 < Size; ++Format)
	{
		const bool bText = bInSpec && *Format == TEXT('s') && OutFormat[Length - 1] != TEXT('l');
		if (bText && OutFormat[Length - 1] == TEXT('h'))
		{
			--Length;
		}
		else if (bText)
		{
			OutFormat[Length++] = TEXT('l');
		}
		const bool bEndsSpec = std::wcschr(TEXT("%diuxXcspfFeEgG"), *Format) != nullptr;
		bInSpec = bInSpec ? !bEndsSpec : *Format == TEXT('%');
		OutFormat[Length++] = *Format;
	}
	OutFormat[Length] = 0;
}

static void Report(
	const char* Kind, const char* Expression, const char* File, int Line, const TCHAR* Format, va_list Args)
{
	TCHAR Message[1024] = {};
	if (Format)
	{
		TCHAR Widened[512];
		WidenTextConversions(Format, Widened, UE_ARRAY_COUNT(Widened));
		std::vswprintf(Message, UE_ARRAY_COUNT(Message), Widened, Args);
	}
	std::fprintf(stderr, "%s failed: %s [%s:%d]%s%s\n", Kind, Expression, File, Line, Format ? ": " : "",
		TCHAR_TO_UTF8(Message));
	std::fflush(stderr);
}
}

void FDebug::CheckFailed(const char* Expression, const char* File, int Line, const TCHAR* Format, ...)
{
	va_list Args;
	va_start(Args, Format);
	Assertions::Report("check", Expression, File, Line, Format, Args);
	va_end(Args);
	std::abort();
}

bool FDebug::EnsureFailed(
	bool& bAlreadyTold, const char* Expression, const char* File, int Line, const TCHAR* Format, ...)
{
	if (!bAlreadyTold)
	{
		bAlreadyTold = true;
		va_list Args;
		va_start(Args, Format);
		Assertions::Report("ensure", Expression, File, Line, Format, Args);
		va_end(Args);
	}
	return false;
}
