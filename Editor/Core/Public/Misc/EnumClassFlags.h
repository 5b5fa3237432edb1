#pragma once

#include <type_traits>

#define ENUM_CLASS_FLAGS(Enum) \
	inline constexpr Enum operator|(Enum Left, Enum Right) \
	{ \
		return static_cast<Enum>( \
			static_cast<std::underlying_type_t<Enum>>(Left) | static_cast<std::underlying_type_t<Enum>>(Right)); \
	} \
	inline constexpr Enum operator&(Enum Left, Enum Right) \
	{ \
		return static_cast<Enum>( \
			static_cast<std::underlying_type_t<Enum>>(Left) & static_cast<std::underlying_type_t<Enum>>(Right)); \
	} \
	inline constexpr Enum operator^(Enum Left, Enum Right) \
	{ \
		return static_cast<Enum>( \
			static_cast<std::underlying_type_t<Enum>>(Left) ^ static_cast<std::underlying_type_t<Enum>>(Right)); \
	} \
	inline constexpr Enum operator~(Enum Flags) \
	{ \
		return static_cast<Enum>(~static_cast<std::underlying_type_t<Enum>>(Flags)); \
	} \
	inline constexpr bool operator!(Enum Flags) \
	{ \
		return !static_cast<std::underlying_type_t<Enum>>(Flags); \
	} \
	inline constexpr Enum& operator|=(Enum& Left, Enum Right) \
	{ \
		return Left = Left | Right; \
	} \
	inline constexpr Enum& operator&=(Enum& Left, Enum Right) \
	{ \
		return Left = Left & Right; \
	} \
	inline constexpr Enum& operator^=(Enum& Left, Enum Right) \
	{ \
		return Left = Left ^ Right; \
	}

template <typename Enum>
constexpr bool EnumHasAnyFlags(Enum Flags, Enum Contains)
{
	using FRaw = std::underlying_type_t<Enum>;
	return (static_cast<FRaw>(Flags) & static_cast<FRaw>(Contains)) != 0;
}
