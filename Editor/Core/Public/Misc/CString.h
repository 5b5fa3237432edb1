#pragma once

#include "CoreTypes.h"
#include "Misc/Char.h"

struct FCString
{
	static int32 Strlen(const TCHAR* String);
	static int32 Strncmp(const TCHAR* Left, const TCHAR* Right, int32 Count);
	static int32 Stricmp(const TCHAR* Left, const TCHAR* Right);
	static int32 Strnicmp(const TCHAR* Left, const TCHAR* Right, int32 Count);
	static const TCHAR* Strchr(const TCHAR* String, TCHAR Char);
	/** Like Strstr, ignoring case. */
	static const TCHAR* Stristr(const TCHAR* String, const TCHAR* Find);
	static int32 Atoi(const TCHAR* String);
	static int64 Atoi64(const TCHAR* String);
	static float Atof(const TCHAR* String);
	static double Atod(const TCHAR* String);
	static int32 Strtoi(const TCHAR* Start, TCHAR** End, int32 Base);
	static int64 Strtoi64(const TCHAR* Start, TCHAR** End, int32 Base);
	/** True for an optional sign, digits and at most one point, with at least one digit. */
	static bool IsNumeric(const TCHAR* String);
	/** "true", "yes", "on" (any case) and non-zero numbers are true. */
	static bool ToBool(const TCHAR* String);
};
using TCString_TCHAR = FCString;

struct FCStringAnsi
{
};
