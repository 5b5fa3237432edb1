#pragma once

#include "HAL/Platform.h"

#include <compare>

/** A point of time in frames of some rate. */
struct FFrameNumber
{
	constexpr FFrameNumber() = default;
	constexpr FFrameNumber(int32 InValue)
		: Value(InValue)
	{
	}

	constexpr auto operator<=>(const FFrameNumber& Other) const = default;
	friend constexpr FFrameNumber operator+(FFrameNumber A, FFrameNumber B) { return {A.Value + B.Value}; }
	friend constexpr FFrameNumber operator-(FFrameNumber A, FFrameNumber B) { return {A.Value - B.Value}; }

	int32 Value = 0;
};
