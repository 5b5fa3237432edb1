#pragma once

#include "Containers/Array.h"
#include "Standalone/OrderedTable.h"

#include <initializer_list>

class FDefaultSetAllocator;

/** How keys are compared and hashed unless a container says otherwise: == and GetTypeHash, so FString ignores case. */
template <typename InElementType, bool bInAllowDuplicateKeys>
struct DefaultKeyFuncs
{
	using KeyInitType = const InElementType&;

	static bool Matches(KeyInitType Left, KeyInitType Right) { return Left == Right; }
	static uint32 GetKeyHash(KeyInitType Key) { return GetTypeHash(Key); }
};

/** Unique values in the order they were first added. */
template <typename T, typename KeyFuncs, typename AllocatorType>
class TSet
{
	struct FTraits
	{
		using FElement = T;
		using FKey = T;
		static const T& GetKey(const T& Element) { return Element; }
		static bool Matches(const T& Left, const T& Right) { return KeyFuncs::Matches(Left, Right); }
		static uint32 Hash(const T& Key) { return KeyFuncs::GetKeyHash(Key); }
	};
	using FTable = TOrderedTable<FTraits>;

public:
	using ElementType = T;
	using TIterator = TOrderedTableIterator<FTable, T>;
	using TConstIterator = TOrderedTableIterator<const FTable, const T>;

	TSet() = default;
	TSet(std::initializer_list<T> List) { Append(List); }
	explicit TSet(const TArray<T>& Array) { Append(Array); }

	int32 Num() const { return Table.Num(); }
	bool IsEmpty() const { return Table.Num() == 0; }
	void Empty(int32 ExpectedNum = 0)
	{
		Table.Clear();
		Table.Reserve(ExpectedNum);
	}
	void Reset() { Table.Clear(); }
	void Reserve(int32 Count) { Table.Reserve(Count); }

	/** An element that is there already is replaced, in its old place, by the new one. */
	T& Add(const T& Element, bool* bIsAlreadyInSet = nullptr) { return Put(T(Element), bIsAlreadyInSet); }
	T& Add(T&& Element, bool* bIsAlreadyInSet = nullptr) { return Put(static_cast<T&&>(Element), bIsAlreadyInSet); }
	template <typename... ArgTypes>
	T& Emplace(ArgTypes&&... Args)
	{
		return Put(T(Forward<ArgTypes>(Args)...), nullptr);
	}
	/** Unlike Add, keeps the element that is there. */
	T& FindOrAdd(const T& Element, bool* bIsAlreadyInSet = nullptr)
	{
		bool bFound = false;
		const int32 Slot = Table.FindOrAdd(Element, bFound, [&Element] { return T(Element); });
		if (bIsAlreadyInSet)
		{
			*bIsAlreadyInSet = bFound;
		}
		return Table.Get(Slot);
	}
	template <typename RangeType>
	void Append(const RangeType& Range)
	{
		for (const auto& Element : Range)
		{
			Add(Element);
		}
	}
	bool Contains(const T& Element) const { return Table.Find(Element) != INDEX_NONE; }
	/** Null when absent. */
	T* Find(const T& Element)
	{
		const int32 Slot = Table.Find(Element);
		return Slot == INDEX_NONE ? nullptr : &Table.Get(Slot);
	}
	const T* Find(const T& Element) const { return const_cast<TSet*>(this)->Find(Element); }
	/** Answers the number of elements removed. */
	int32 Remove(const T& Element)
	{
		const int32 Slot = Table.Find(Element);
		if (Slot == INDEX_NONE)
		{
			return 0;
		}
		Table.RemoveSlot(Slot);
		return 1;
	}
	TArray<T> Array() const
	{
		TArray<T> Result;
		Result.Reserve(Num());
		for (const T& Element : *this)
		{
			Result.Add(Element);
		}
		return Result;
	}

	TSet Intersect(const TSet& Other) const
	{
		return Filter([&Other](const T& Element) { return Other.Contains(Element); });
	}
	TSet Difference(const TSet& Other) const
	{
		return Filter([&Other](const T& Element) { return !Other.Contains(Element); });
	}
	TSet Union(const TSet& Other) const
	{
		TSet Result(*this);
		Result.Append(Other);
		return Result;
	}
	bool Includes(const TSet& Other) const { return Other.Difference(*this).IsEmpty(); }
	template <typename Predicate>
	void Sort(const Predicate& Less)
	{
		Table.StableSort(Less);
	}

	TIterator CreateIterator() { return TIterator(Table); }
	TIterator begin() { return TIterator(Table); }
	TConstIterator begin() const { return TConstIterator(Table); }
	FOrderedTableEnd end() const { return {}; }

	/** The same elements, in whatever order. */
	friend bool operator==(const TSet& Left, const TSet& Right)
	{
		return Left.Num() == Right.Num() && Left.Includes(Right);
	}

private:
	T& Put(T&& Element, bool* bIsAlreadyInSet)
	{
		bool bFound = false;
		const int32 Slot = Table.FindOrAdd(Element, bFound, [&Element] { return static_cast<T&&>(Element); });
		if (bFound)
		{
			Table.Get(Slot) = static_cast<T&&>(Element);
		}
		if (bIsAlreadyInSet)
		{
			*bIsAlreadyInSet = bFound;
		}
		return Table.Get(Slot);
	}
	template <typename Predicate>
	TSet Filter(const Predicate& Keep) const
	{
		TSet Result;
		for (const T& Element : *this)
		{
			if (Keep(Element))
			{
				Result.Add(Element);
			}
		}
		return Result;
	}

	FTable Table;
};
