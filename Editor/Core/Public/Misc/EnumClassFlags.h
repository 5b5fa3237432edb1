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

#define FRIEND_ENUM_CLASS_FLAGS(Enum)

template <typename Enum>
constexpr bool EnumHasAllFlags(Enum Flags, Enum Contains)
{
	using FRaw = std::underlying_type_t<Enum>;
	return (static_cast<FRaw>(Flags) & static_cast<FRaw>(Contains)) == static_cast<FRaw>(Contains);
}

template <typename Enum>
constexpr bool EnumHasAnyFlags(Enum Flags, Enum Contains)
{
	using FRaw = std::underlying_type_t<Enum>;
	return (static_cast<FRaw>(Flags) & static_cast<FRaw>(Contains)) != 0;
}

template <typename Enum>
void EnumAddFlags(Enum& Flags, Enum Added)
{
	using FRaw = std::underlying_type_t<Enum>;
	Flags = static_cast<Enum>(static_cast<FRaw>(Flags) | static_cast<FRaw>(Added));
}

template <typename Enum>
void EnumRemoveFlags(Enum& Flags, Enum Removed)
{
	using FRaw = std::underlying_type_t<Enum>;
	Flags = static_cast<Enum>(static_cast<FRaw>(Flags) & ~static_cast<FRaw>(Removed));
}
