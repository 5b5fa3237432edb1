#include "Misc/DateTime.h"

#include <chrono>
#include <ctime>

namespace Dates
{
static std::tm ToParts(int64 Seconds)
{
	const std::time_t Time = static_cast<std::time_t>(Seconds);
	std::tm Parts = {};
	gmtime_r(&Time, &Parts);
	return Parts;
}
}

FDateTime FDateTime::UtcNow()
{
	const auto SinceEpoch = std::chrono::system_clock::now().time_since_epoch();
	FDateTime Result;
	Result.Milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(SinceEpoch).count();
	return Result;
}

FString FDateTime::ToIso8601() const
{
	const std::tm Parts = Dates::ToParts(ToUnixTimestamp());
	return FString::Printf(TEXT("%04d-%02d-%02dT%02d:%02d:%02d.%03dZ"), Parts.tm_year + 1900, Parts.tm_mon + 1,
		Parts.tm_mday, Parts.tm_hour, Parts.tm_min, Parts.tm_sec, static_cast<int32>(Milliseconds % 1000));
}

FString FDateTime::ToString() const
{
	const std::tm Parts = Dates::ToParts(ToUnixTimestamp());
	return FString::Printf(TEXT("%04d.%02d.%02d-%02d.%02d.%02d"), Parts.tm_year + 1900, Parts.tm_mon + 1, Parts.tm_mday,
		Parts.tm_hour, Parts.tm_min, Parts.tm_sec);
}
