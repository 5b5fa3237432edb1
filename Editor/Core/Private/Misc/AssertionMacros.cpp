#include "Misc/AssertionMacros.h"

#include "CoreTypes.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace Assertions
{
/** No FString here: an assertion may fire inside one. */
static void Report(
	const char* Kind, const char* Expression, const char* File, int Line, const TCHAR* Format, va_list Args)
{
	TCHAR Message[1024] = {};
	if (Format)
	{
		std::vswprintf(Message, UE_ARRAY_COUNT(Message), Format, Args);
	}
	std::fprintf(stderr, "%s failed: %s [%s:%d]%s%ls\n", Kind, Expression, File, Line, Format ? ": " : "", Message);
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
