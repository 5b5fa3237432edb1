#pragma once

#include "Containers/UnrealString.h"

struct FParse
{
	/**
	 * Reads a quoted literal with escapes at the start of Buffer. OutNumCharsRead counts both quotes. False when Buffer
	 * does not start with a quote or the closing one is missing.
	 */
	static bool QuotedString(const TCHAR* Buffer, FString& OutValue, int32* OutNumCharsRead = nullptr);
	/** The value behind Match (such as "X=") in Stream, whatever stands before it; ends at blank, comma or bracket. */
	static bool Value(const TCHAR* Stream, const TCHAR* Match, FString& OutValue);
	static bool Value(const TCHAR* Stream, const TCHAR* Match, float& OutValue);
	static bool Value(const TCHAR* Stream, const TCHAR* Match, double& OutValue);
	/** Moves Stream past Match when it stands there and is not followed by more of a word. */
	static bool Command(const TCHAR** Stream, const TCHAR* Match);
};
