#pragma once

#include "HAL/Platform.h"
#include "Misc/AssertionMacros.h"
#include "Misc/EnumClassFlags.h"

#include <limits>
#include <type_traits>

enum
{
	INDEX_NONE = -1
};

/** Asks a constructor to skip its work; the value is set right after. */
enum EForceInit
{
	ForceInit,
	ForceInitToZero
};

enum ENoInit
{
	NoInit
};

inline constexpr int8 MIN_int8 = std::numeric_limits<int8>::min();
inline constexpr int16 MIN_int16 = std::numeric_limits<int16>::min();
inline constexpr int32 MIN_int32 = std::numeric_limits<int32>::min();
inline constexpr int64 MIN_int64 = std::numeric_limits<int64>::min();
inline constexpr int8 MAX_int8 = std::numeric_limits<int8>::max();
inline constexpr int16 MAX_int16 = std::numeric_limits<int16>::max();
inline constexpr int32 MAX_int32 = std::numeric_limits<int32>::max();
inline constexpr int64 MAX_int64 = std::numeric_limits<int64>::max();
inline constexpr uint8 MAX_uint8 = std::numeric_limits<uint8>::max();
inline constexpr uint16 MAX_uint16 = std::numeric_limits<uint16>::max();
inline constexpr uint32 MAX_uint32 = std::numeric_limits<uint32>::max();
inline constexpr uint64 MAX_uint64 = std::numeric_limits<uint64>::max();
inline constexpr float MIN_flt = std::numeric_limits<float>::min();
inline constexpr float MAX_flt = std::numeric_limits<float>::max();
inline constexpr double MIN_dbl = std::numeric_limits<double>::min();
inline constexpr double MAX_dbl = std::numeric_limits<double>::max();

template <typename T, std::size_t N>
char (&UEArrayCountHelper(const T (&)[N]))[N];
#define UE_ARRAY_COUNT(Array) (sizeof(UEArrayCountHelper(Array)))
