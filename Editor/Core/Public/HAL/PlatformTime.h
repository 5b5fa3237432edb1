#pragma once

#include "CoreTypes.h"

struct FGenericPlatformTime
{
	/** Monotonic; the start is arbitrary. */
	static double Seconds();
	/** The low half of Cycles64; wraps. */
	static uint32 Cycles() { return static_cast<uint32>(Cycles64()); }
	static uint64 Cycles64();
	static double ToSeconds(uint32 Cycles) { return SecondsPerCycle * Cycles; }

	/** A cycle is a nanosecond here. */
	static constexpr double SecondsPerCycle = 1e-9;
};
using FPlatformTime = FGenericPlatformTime;
