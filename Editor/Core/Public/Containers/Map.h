#pragma once

#include "Containers/Set.h"
#include "Templates/Tuple.h"

/** How a map compares and hashes its keys. What a map uses instead has this for its base. */
template <typename KeyType, typename ValueType, bool bInAllowDuplicateKeys>
struct TDefaultMapKeyFuncs
{
	using KeyInitType = const KeyType&;

	static bool Matches(KeyInitType Left, KeyInitType Right) { return Left == Right; }
	static uint32 GetKeyHash(KeyInitType Key) { return GetTypeHash(Key); }
};

/** Keys and values in the order the keys were first added. References last until the next addition. */
template <typename KeyType, typename ValueType, typename AllocatorType, typename KeyFuncs>
class TMap
{
	static_assert(std::is_base_of_v<TDefaultMapKeyFuncs<KeyType, ValueType, false>, KeyFuncs>);

public:
	using ElementType = TPair<KeyType, ValueType>;

private:
	struct FTraits
	{
		using FElement = TPair<KeyType, ValueType>;
		using FKey = KeyType;
		static const KeyType& GetKey(const FElement& Element) { return Element.Key; }
		static bool Matches(const KeyType& Left, const KeyType& Right) { return KeyFuncs::Matches(Left, Right); }
		static uint32 Hash(const KeyType& Key) { return KeyFuncs::GetKeyHash(Key); }
	};
	using FTable = TOrderedTable<FTraits>;

public:
	using TIterator = TOrderedTableIterator<FTable, ElementType>;
	using TConstIterator = TOrderedTableIterator<const FTable, const ElementType>;

	TMap() = default;
	TMap(std::initializer_list<ElementType> List) { Append(List); }

	int32 Num() const { return Table.Num(); }
	bool IsEmpty() const { return Table.Num() == 0; }
	void Empty(int32 ExpectedNum = 0)
	{
		Table.Clear();
		Table.Reserve(ExpectedNum);
	}
	void Reset() { Table.Clear(); }
	void Reserve(int32 Count) { Table.Reserve(Count); }

	/** Replaces the value, and the key's spelling, of a key that is there; it keeps its place in the order. */
	ValueType& Add(const KeyType& Key, const ValueType& Value) { return Put(KeyType(Key), ValueType(Value)); }
	ValueType& Add(const KeyType& Key, ValueType&& Value) { return Put(KeyType(Key), static_cast<ValueType&&>(Value)); }
	ValueType& Add(KeyType&& Key, const ValueType& Value) { return Put(static_cast<KeyType&&>(Key), ValueType(Value)); }
	ValueType& Add(KeyType&& Key, ValueType&& Value)
	{
		return Put(static_cast<KeyType&&>(Key), static_cast<ValueType&&>(Value));
	}
	ValueType& Add(const KeyType& Key) { return Put(KeyType(Key), ValueType()); }
	ValueType& Add(const ElementType& Pair) { return Add(Pair.Key, Pair.Value); }
	template <typename InKeyType, typename... ArgTypes>
	ValueType& Emplace(InKeyType&& Key, ArgTypes&&... Args)
	{
		return Put(KeyType(Forward<InKeyType>(Key)), ValueType(Forward<ArgTypes>(Args)...));
	}
	ValueType& FindOrAdd(const KeyType& Key)
	{
		bool bFound = false;
		return Table.Get(Table.FindOrAdd(Key, bFound, [&Key] { return ElementType(Key, ValueType()); })).Value;
	}
	ValueType& FindOrAdd(const KeyType& Key, const ValueType& Value)
	{
		bool bFound = false;
		return Table.Get(Table.FindOrAdd(Key, bFound, [&] { return ElementType(Key, Value); })).Value;
	}
	template <typename RangeType>
	void Append(const RangeType& Others)
	{
		for (const auto& Pair : Others)
		{
			Add(Pair.Key, Pair.Value);
		}
	}

	/** Null when absent. */
	ValueType* Find(const KeyType& Key)
	{
		const int32 Slot = Table.Find(Key);
		return Slot == INDEX_NONE ? nullptr : &Table.Get(Slot).Value;
	}
	const ValueType* Find(const KeyType& Key) const { return const_cast<TMap*>(this)->Find(Key); }
	/** A copy, or a value-initialised one when absent. */
	ValueType FindRef(const KeyType& Key) const
	{
		const ValueType* const Value = Find(Key);
		return Value ? *Value : ValueType();
	}
	ValueType FindRef(const KeyType& Key, const ValueType& Default) const
	{
		const ValueType* const Value = Find(Key);
		return Value ? *Value : Default;
	}
	ValueType& FindChecked(const KeyType& Key)
	{
		ValueType* const Value = Find(Key);
		check(Value != nullptr);
		return *Value;
	}
	const ValueType& FindChecked(const KeyType& Key) const { return const_cast<TMap*>(this)->FindChecked(Key); }
	ValueType& operator[](const KeyType& Key) { return FindChecked(Key); }
	const ValueType& operator[](const KeyType& Key) const { return FindChecked(Key); }
	bool Contains(const KeyType& Key) const { return Table.Find(Key) != INDEX_NONE; }
	/** Answers the number of pairs removed. */
	int32 Remove(const KeyType& Key)
	{
		const int32 Slot = Table.Find(Key);
		if (Slot == INDEX_NONE)
		{
			return 0;
		}
		Table.RemoveSlot(Slot);
		return 1;
	}
	bool RemoveAndCopyValue(const KeyType& Key, ValueType& OutValue)
	{
		const int32 Slot = Table.Find(Key);
		if (Slot == INDEX_NONE)
		{
			return false;
		}
		OutValue = static_cast<ValueType&&>(Table.Get(Slot).Value);
		Table.RemoveSlot(Slot);
		return true;
	}
	ValueType FindAndRemoveChecked(const KeyType& Key)
	{
		ValueType Value = static_cast<ValueType&&>(FindChecked(Key));
		Remove(Key);
		return Value;
	}

	/** Replaces OutKeys by the keys and answers their number. */
	template <typename ArrayOrSetType>
	int32 GetKeys(ArrayOrSetType& OutKeys) const
	{
		OutKeys.Reset();
		for (const ElementType& Pair : *this)
		{
			OutKeys.Add(Pair.Key);
		}
		return OutKeys.Num();
	}
	template <typename Predicate>
	void KeySort(const Predicate& Less)
	{
		Table.StableSort(
			[&Less](const ElementType& Left, const ElementType& Right) { return Less(Left.Key, Right.Key); });
	}
	template <typename Predicate>
	void ValueSort(const Predicate& Less)
	{
		Table.StableSort(
			[&Less](const ElementType& Left, const ElementType& Right) { return Less(Left.Value, Right.Value); });
	}
	template <typename Predicate>
	TMap FilterByPredicate(Predicate Pred) const
	{
		TMap Result;
		for (const ElementType& Pair : *this)
		{
			if (Pred(Pair))
			{
				Result.Add(Pair.Key, Pair.Value);
			}
		}
		return Result;
	}

	TIterator CreateIterator() { return TIterator(Table); }
	TIterator begin() { return TIterator(Table); }
	TConstIterator begin() const { return TConstIterator(Table); }
	FOrderedTableEnd end() const { return {}; }

private:
	ValueType& Put(KeyType&& Key, ValueType&& Value)
	{
		bool bFound = false;
		const int32 Slot = Table.FindOrAdd(
			Key, bFound, [&] { return ElementType(static_cast<KeyType&&>(Key), static_cast<ValueType&&>(Value)); });
		ElementType& Pair = Table.Get(Slot);
		if (bFound)
		{
			Pair.Key = static_cast<KeyType&&>(Key);
			Pair.Value = static_cast<ValueType&&>(Value);
		}
		return Pair.Value;
	}

	FTable Table;
};

/** Several values a key; values of a key keep the order of their addition. */
template <typename KeyType, typename ValueType>
class TMultiMap
{
public:
	ValueType& Add(const KeyType& Key, const ValueType& Value)
	{
		TArray<ValueType>& Values = Groups.FindOrAdd(Key);
		++Count;
		return Values.Add_GetRef(Value);
	}
	/** The first value; null when the key is absent. */
	ValueType* Find(const KeyType& Key)
	{
		TArray<ValueType>* const Values = Groups.Find(Key);
		return Values ? Values->GetData() : nullptr;
	}
	const ValueType* Find(const KeyType& Key) const { return const_cast<TMultiMap*>(this)->Find(Key); }
	bool Contains(const KeyType& Key) const { return Groups.Contains(Key); }
	int32 Num() const { return Count; }
	int32 Num(const KeyType& Key) const
	{
		const TArray<ValueType>* const Values = Groups.Find(Key);
		return Values ? Values->Num() : 0;
	}
	int32 Remove(const KeyType& Key)
	{
		const int32 NumRemoved = Num(Key);
		Groups.Remove(Key);
		Count -= NumRemoved;
		return NumRemoved;
	}
	void Empty()
	{
		Groups.Empty();
		Count = 0;
	}
	template <typename ArrayType>
	int32 GetKeys(ArrayType& OutKeys) const
	{
		return Groups.GetKeys(OutKeys);
	}

private:
	TMap<KeyType, TArray<ValueType>> Groups;
	int32 Count = 0;
};
