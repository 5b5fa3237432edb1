#pragma once

#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <tuple>

template <typename KeyType, typename ValueType>
struct TPair
{
	KeyType Key{};
	ValueType Value{};

	TPair() = default;
	template <typename K, typename V>
	TPair(K&& InKey, V&& InValue)
		: Key(Forward<K>(InKey))
		, Value(Forward<V>(InValue))
	{
	}

	template <int32 Index>
	auto& Get()
	{
		static_assert(Index == 0 || Index == 1);
		if constexpr (Index == 0)
		{
			return Key;
		}
		else
		{
			return Value;
		}
	}
	template <int32 Index>
	const auto& Get() const
	{
		return const_cast<TPair*>(this)->template Get<Index>();
	}

	friend bool operator==(const TPair& Left, const TPair& Right)
	{
		return Left.Key == Right.Key && Left.Value == Right.Value;
	}
	friend bool operator<(const TPair& Left, const TPair& Right)
	{
		return Left.Key < Right.Key || (!(Right.Key < Left.Key) && Left.Value < Right.Value);
	}
	friend uint32 GetTypeHash(const TPair& Pair)
	{
		return HashCombine(GetTypeHashHelper(Pair.Key), GetTypeHashHelper(Pair.Value));
	}
};

/** A tuple of any size; two elements are better served by TPair, which names them. */
template <typename... Types>
struct TTuple : std::tuple<Types...>
{
	using std::tuple<Types...>::tuple;

	template <int32 Index>
	auto& Get()
	{
		return std::get<Index>(static_cast<std::tuple<Types...>&>(*this));
	}
	template <int32 Index>
	const auto& Get() const
	{
		return std::get<Index>(static_cast<const std::tuple<Types...>&>(*this));
	}
	friend uint32 GetTypeHash(const TTuple& Tuple)
	{
		uint32 Hash = 0;
		std::apply([&Hash](const auto&... Element) { ((Hash = HashCombine(Hash, GetTypeHashHelper(Element))), ...); },
			Tuple.AsStd());
		return Hash;
	}

private:
	const std::tuple<Types...>& AsStd() const { return *this; }
};

template <typename K, typename V>
struct TTuple<K, V> : TPair<K, V>
{
	using TPair<K, V>::TPair;
	TTuple() = default;
	TTuple(const TPair<K, V>& Pair)
		: TPair<K, V>(Pair)
	{
	}
};
