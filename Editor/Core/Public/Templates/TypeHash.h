#pragma once

#include "CoreTypes.h"

#include <bit>

/** Mixes two hashes; the order of the arguments matters. */
constexpr uint32 HashCombine(uint32 First, uint32 Second)
{
	return First ^ (Second + 0x9E3779B9u + (First << 6) + (First >> 2));
}

constexpr uint32 HashMix64(uint64 Value)
{
	return static_cast<uint32>((Value * 0x9E3779B97F4A7C15ull) >> 32);
}

template <typename T>
requires(std::is_integral_v<T> && sizeof(T) <= 4) constexpr uint32 GetTypeHash(T Value)
{
	return static_cast<uint32>(Value);
}

template <typename T>
requires(std::is_integral_v<T> && sizeof(T) == 8) constexpr uint32 GetTypeHash(T Value)
{
	return static_cast<uint32>(Value) + static_cast<uint32>(static_cast<uint64>(Value) >> 32) * 23;
}

template <typename T>
requires std::is_enum_v<T>
constexpr uint32 GetTypeHash(T Value)
{
	return GetTypeHash(static_cast<std::underlying_type_t<T>>(Value));
}

/** Zero and negative zero are equal, so they share a hash. */
inline uint32 GetTypeHash(float Value)
{
	return Value == 0.0f ? 0 : std::bit_cast<uint32>(Value);
}
inline uint32 GetTypeHash(double Value)
{
	return Value == 0.0 ? 0 : HashMix64(std::bit_cast<uint64>(Value));
}

template <typename T>
uint32 GetTypeHash(T* Pointer)
{
	return HashMix64(reinterpret_cast<UPTRINT>(Pointer) >> 3);
}

inline uint32 PointerHash(const void* Pointer, uint32 Seed = 0)
{
	return Seed ? HashCombine(HashMix64(reinterpret_cast<UPTRINT>(Pointer) >> 3), Seed)
				: HashMix64(reinterpret_cast<UPTRINT>(Pointer) >> 3);
}

/** Hash of a value through whatever GetTypeHash fits, for call sites that hide the name. */
template <typename T>
uint32 GetTypeHashHelper(const T& Value)
{
	return GetTypeHash(Value);
}
