#pragma once

#include "CoreTypes.h"

#include <utility>

template <typename T>
constexpr std::remove_reference_t<T>&& MoveTemp(T&& Value) noexcept
{
	static_assert(std::is_lvalue_reference_v<T>, "MoveTemp on a temporary does nothing");
	static_assert(!std::is_const_v<std::remove_reference_t<T>>, "MoveTemp on a const value would copy");
	return static_cast<std::remove_reference_t<T>&&>(Value);
}

template <typename T>
constexpr T&& Forward(std::remove_reference_t<T>& Value) noexcept
{
	return static_cast<T&&>(Value);
}
template <typename T>
constexpr T&& Forward(std::remove_reference_t<T>&& Value) noexcept
{
	return static_cast<T&&>(Value);
}

template <typename T>
constexpr void Swap(T& Left, T& Right)
{
	T Kept = static_cast<T&&>(Left);
	Left = static_cast<T&&>(Right);
	Right = static_cast<T&&>(Kept);
}

template <typename T, typename U = T>
constexpr T Exchange(T& Value, U&& NewValue)
{
	T Old = static_cast<T&&>(Value);
	Value = Forward<U>(NewValue);
	return Old;
}

/** Sets a value for the length of a scope and puts the old one back. */
template <typename RefType, typename AssignedType = RefType>
struct TGuardValue
{
	TGuardValue(RefType& InReference, const AssignedType& NewValue)
		: Reference(InReference)
		, OldValue(InReference)
	{
		Reference = NewValue;
	}
	~TGuardValue() { Reference = OldValue; }
	TGuardValue(const TGuardValue&) = delete;
	TGuardValue& operator=(const TGuardValue&) = delete;

private:
	RefType& Reference;
	AssignedType OldValue;
};

class FNoncopyable
{
protected:
	FNoncopyable() = default;
	~FNoncopyable() = default;

public:
	FNoncopyable(const FNoncopyable&) = delete;
	FNoncopyable& operator=(const FNoncopyable&) = delete;
};

template <typename T, typename... Others>
struct TIsAnyOf
{
	static constexpr bool Value = (std::is_same_v<T, Others> || ...);
};
