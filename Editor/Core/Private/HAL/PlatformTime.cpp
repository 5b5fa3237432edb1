#include "HAL/PlatformTime.h"

#include <chrono>

double FGenericPlatformTime::Seconds()
{
	return static_cast<double>(Cycles64()) * SecondsPerCycle;
}

uint64 FGenericPlatformTime::Cycles64()
{
	const auto Elapsed = std::chrono::steady_clock::now().time_since_epoch();
	return static_cast<uint64>(std::chrono::duration_cast<std::chrono::nanoseconds>(Elapsed).count());
}
