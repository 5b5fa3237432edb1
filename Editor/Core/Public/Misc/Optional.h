#pragma once

#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <optional>

inline constexpr std::nullopt_t NullOpt = std::nullopt;

template <typename T>
class TOptional
{
public:
	TOptional() = default;
	TOptional(std::nullopt_t) {}
	TOptional(const T& InValue)
		: Stored(InValue)
	{
	}
	TOptional(T&& InValue)
		: Stored(static_cast<T&&>(InValue))
	{
	}
	template <typename... ArgTypes>
	explicit TOptional(std::in_place_t, ArgTypes&&... Args)
		: Stored(std::in_place, Forward<ArgTypes>(Args)...)
	{
	}

	bool IsSet() const { return Stored.has_value(); }
	explicit operator bool() const { return Stored.has_value(); }
	T& GetValue()
	{
		checkf(Stored, TEXT("GetValue on an unset TOptional"));
		return *Stored;
	}
	const T& GetValue() const
	{
		checkf(Stored, TEXT("GetValue on an unset TOptional"));
		return *Stored;
	}
	const T& Get(const T& Default) const { return Stored ? *Stored : Default; }
	T& operator*() { return GetValue(); }
	const T& operator*() const { return GetValue(); }
	T* operator->() { return &GetValue(); }
	const T* operator->() const { return &GetValue(); }
	void Reset() { Stored.reset(); }
	template <typename... ArgTypes>
	T& Emplace(ArgTypes&&... Args)
	{
		return Stored.emplace(Forward<ArgTypes>(Args)...);
	}

	friend bool operator==(const TOptional& Left, const TOptional& Right)
	{
		return Left.IsSet() == Right.IsSet() && (!Left.IsSet() || *Left.Stored == *Right.Stored);
	}
	friend uint32 GetTypeHash(const TOptional& Optional)
	{
		return Optional.IsSet() ? GetTypeHashHelper(*Optional.Stored) : 0;
	}

private:
	std::optional<T> Stored;
};
