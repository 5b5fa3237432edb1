#pragma once

#include "CoreTypes.h"
#include "Misc/Char.h"

struct FCString
{
	static int32 Strlen(const TCHAR* String);
	static int32 Strnlen(const TCHAR* String, int32 Limit);
	static int32 Strcmp(const TCHAR* Left, const TCHAR* Right);
	static int32 Strncmp(const TCHAR* Left, const TCHAR* Right, int32 Count);
	static int32 Stricmp(const TCHAR* Left, const TCHAR* Right);
	static int32 Strnicmp(const TCHAR* Left, const TCHAR* Right, int32 Count);
	static const TCHAR* Strchr(const TCHAR* String, TCHAR Char);
	static const TCHAR* Strrchr(const TCHAR* String, TCHAR Char);
	static const TCHAR* Strstr(const TCHAR* String, const TCHAR* Find);
	/** Like Strstr, ignoring case. */
	static const TCHAR* Stristr(const TCHAR* String, const TCHAR* Find);
	static int32 Atoi(const TCHAR* String);
	static int64 Atoi64(const TCHAR* String);
	static float Atof(const TCHAR* String);
	static double Atod(const TCHAR* String);
	static int32 Strtoi(const TCHAR* Start, TCHAR** End, int32 Base);
	static int64 Strtoi64(const TCHAR* Start, TCHAR** End, int32 Base);
	static uint64 Strtoui64(const TCHAR* Start, TCHAR** End, int32 Base);
	/** True for an optional sign, digits and at most one point, with at least one digit. */
	static bool IsNumeric(const TCHAR* String);
	static bool IsPureAnsi(const TCHAR* String);
	/** "true", "yes", "on" (any case) and non-zero numbers are true. */
	static bool ToBool(const TCHAR* String);
};
using TCString_TCHAR = FCString;

struct FCStringAnsi
{
	static int32 Strlen(const ANSICHAR* String);
	static int32 Strcmp(const ANSICHAR* Left, const ANSICHAR* Right);
	static int32 Stricmp(const ANSICHAR* Left, const ANSICHAR* Right);
};
