#pragma once

#include "Containers/UnrealString.h"

/** A moment in UTC, to the millisecond. */
struct FDateTime
{
	static FDateTime UtcNow();
	static FDateTime Now() { return UtcNow(); }
	/** 2024-05-06T07:08:09.123Z */
	FString ToIso8601() const;
	/** 2024.05.06-07.08.09 */
	FString ToString() const;
	int64 ToUnixTimestamp() const { return Milliseconds / 1000; }

private:
	int64 Milliseconds = 0;
};
