#pragma once

#include "Misc/FrameNumber.h"

/** How many frames go into how many seconds. */
struct FFrameRate
{
	constexpr FFrameRate() = default;
	constexpr FFrameRate(int32 InNumerator, int32 InDenominator)
		: Numerator(InNumerator)
		, Denominator(InDenominator)
	{
	}

	constexpr double AsDecimal() const { return static_cast<double>(Numerator) / Denominator; }
	/** The last frame that starts at or before a time. */
	constexpr FFrameNumber AsFrameNumber(double TimeInSeconds) const
	{
		const double Frames = TimeInSeconds * AsDecimal();
		const int32 Whole = static_cast<int32>(Frames);
		return {Frames < Whole ? Whole - 1 : Whole};
	}
	constexpr double AsSeconds(FFrameNumber Frame) const { return Frame.Value / AsDecimal(); }
	constexpr bool operator==(const FFrameRate& Other) const = default;

	int32 Numerator = 60000;
	int32 Denominator = 1;
};
