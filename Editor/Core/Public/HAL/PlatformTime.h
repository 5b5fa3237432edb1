#pragma once

#include "CoreTypes.h"

struct FGenericPlatformTime
{
	/** Monotonic; the start is arbitrary. */
	static double Seconds();
	/** The low half of Cycles64; wraps. */
	static uint32 Cycles() { return static_cast<uint32>(Cycles64()); }
	static uint64 Cycles64();
	static double GetSecondsPerCycle() { return SecondsPerCycle; }
	static double GetSecondsPerCycle64() { return SecondsPerCycle; }
	static double ToSeconds(uint32 Cycles) { return SecondsPerCycle * Cycles; }
	static double ToSeconds64(uint64 Cycles) { return SecondsPerCycle * static_cast<double>(Cycles); }
	static float ToMilliseconds(uint32 Cycles) { return static_cast<float>(SecondsPerCycle * 1000.0 * Cycles); }
	static double ToMilliseconds64(uint64 Cycles) { return SecondsPerCycle * 1000.0 * static_cast<double>(Cycles); }

	/** A cycle is a nanosecond here. */
	static constexpr double SecondsPerCycle = 1e-9;
};
using FPlatformTime = FGenericPlatformTime;
