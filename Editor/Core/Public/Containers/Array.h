#pragma once

#include "Containers/ArrayView.h"
#include "Containers/ContainersFwd.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <vector>

class FDefaultAllocator;
template <uint32 NumInlineElements>
class TInlineAllocator;

/** A bool with an address of its own, which std::vector<bool> would not give. */
struct FArrayBool
{
	bool bValue = false;

	FArrayBool() = default;
	FArrayBool(bool bInValue)
		: bValue(bInValue)
	{
	}
};

/**
 * The place of a ranged for in an array: no pointer and no iterator of the standard library, whose algorithms take
 * GetData(). An array must not grow or shrink while it is walked.
 */
template <typename ElementType, typename ArrayType>
class TCheckedPointerIterator
{
public:
	TCheckedPointerIterator(const ArrayType& InArray, ElementType* InPtr)
		: Ptr(InPtr)
#ifndef NDEBUG
		, Array(&InArray)
		, InitialNum(InArray.Num())
#endif
	{
	}
	ElementType& operator*() const
	{
		return *Ptr;
	}
	ElementType* operator->() const
	{
		return Ptr;
	}
	TCheckedPointerIterator& operator++()
	{
		++Ptr;
		return *this;
	}
	TCheckedPointerIterator& operator--()
	{
		--Ptr;
		return *this;
	}
	bool operator==(const TCheckedPointerIterator& Other) const
	{
		checkSlow(Array->Num() == InitialNum);
		return Ptr == Other.Ptr;
	}

private:
	ElementType* Ptr;
#ifndef NDEBUG
	const ArrayType* Array;
	int32 InitialNum;
#endif
};

/** A vector with the engine's member names. Indices are int32; a bad one is caught by check in debug builds. */
template <typename T, typename AllocatorType>
class TArray
{
	using FStored = std::conditional_t<std::is_same_v<T, bool>, FArrayBool, T>;

public:
	using ElementType = T;
	using SizeType = int32;

	TArray() = default;
	TArray(std::initializer_list<T> List)
		: Items(List.begin(), List.end())
	{
	}
	TArray(const T* Data, int32 Count)
		: Items(Data, Data + Count)
	{
	}
	explicit TArray(TArrayView<const T> View)
		: Items(View.GetData(), View.GetData() + View.Num())
	{
	}
	template <typename OtherAllocator>
	TArray(const TArray<T, OtherAllocator>& Other)
		: Items(Other.GetData(), Other.GetData() + Other.Num())
	{
	}
	TArray& operator=(std::initializer_list<T> List)
	{
		Items.assign(List.begin(), List.end());
		return *this;
	}

	int32 Num() const { return static_cast<int32>(Items.size()); }
	int32 Max() const { return static_cast<int32>(Items.capacity()); }
	bool IsEmpty() const { return Items.empty(); }
	bool IsValidIndex(int32 Index) const { return Index >= 0 && Index < Num(); }
	T* GetData() { return reinterpret_cast<T*>(Items.data()); }
	const T* GetData() const { return reinterpret_cast<const T*>(Items.data()); }
	T& operator[](int32 Index)
	{
		checkSlow(IsValidIndex(Index));
		return GetData()[Index];
	}
	const T& operator[](int32 Index) const
	{
		checkSlow(IsValidIndex(Index));
		return GetData()[Index];
	}
	T& Last(int32 FromEnd = 0) { return (*this)[Num() - 1 - FromEnd]; }
	const T& Last(int32 FromEnd = 0) const { return (*this)[Num() - 1 - FromEnd]; }
	T& Top() { return Last(); }
	const T& Top() const { return Last(); }
	using RangedForIteratorType = TCheckedPointerIterator<T, TArray>;
	using RangedForConstIteratorType = TCheckedPointerIterator<const T, TArray>;
	RangedForIteratorType begin() { return {*this, GetData()}; }
	RangedForIteratorType end() { return {*this, GetData() + Items.size()}; }
	RangedForConstIteratorType begin() const { return {*this, GetData()}; }
	RangedForConstIteratorType end() const { return {*this, GetData() + Items.size()}; }

	int32 Add(const T& Item)
	{
		Items.push_back(Item);
		return Num() - 1;
	}
	int32 Add(T&& Item)
	{
		Items.push_back(static_cast<T&&>(Item));
		return Num() - 1;
	}
	template <typename... ArgTypes>
	int32 Emplace(ArgTypes&&... Args)
	{
		Emplace_GetRef(Forward<ArgTypes>(Args)...);
		return Num() - 1;
	}
	template <typename... ArgTypes>
	T& Emplace_GetRef(ArgTypes&&... Args)
	{
		if constexpr (std::is_constructible_v<FStored, ArgTypes&&...>)
		{
			Items.emplace_back(Forward<ArgTypes>(Args)...);
		}
		else
		{
			Items.push_back(FStored{Forward<ArgTypes>(Args)...});
		}
		return Last();
	}
	T& Add_GetRef(const T& Item)
	{
		Items.push_back(Item);
		return Last();
	}
	T& Add_GetRef(T&& Item)
	{
		Items.push_back(static_cast<T&&>(Item));
		return Last();
	}
	T& AddDefaulted_GetRef() { return Emplace_GetRef(); }
	int32 AddDefaulted(int32 Count = 1)
	{
		const int32 First = Num();
		Items.resize(Items.size() + static_cast<std::size_t>(Count));
		return First;
	}
	int32 AddUnique(const T& Item)
	{
		const int32 Index = Find(Item);
		return Index != INDEX_NONE ? Index : Add(Item);
	}
	void Push(const T& Item) { Items.push_back(Item); }
	void Push(T&& Item) { Items.push_back(static_cast<T&&>(Item)); }
	T Pop(bool bAllowShrinking = true)
	{
		T Item = static_cast<T&&>(Last());
		Items.pop_back();
		return Item;
	}
	/** Elements that stand in a row, as those of arrays and views do. Appending an array to itself is fine. */
	template <typename RangeType>
	requires requires(RangeType& Range) { Range.GetData(), Range.Num(); }
	void Append(const RangeType& Range)
	{
		if constexpr (std::is_same_v<RangeType, TArray>)
		{
			if (&Range == this)
			{
				const TArray Copy(Range);
				Items.insert(Items.end(), Copy.GetData(), Copy.GetData() + Copy.Num());
				return;
			}
		}
		Items.insert(Items.end(), Range.GetData(), Range.GetData() + Range.Num());
	}
	/** Moves the elements over and leaves Other empty. */
	void Append(TArray&& Other)
	{
		Items.reserve(Items.size() + Other.Items.size());
		for (T& Item : Other)
		{
			Items.push_back(static_cast<T&&>(Item));
		}
		Other.Empty();
	}
	void Append(std::initializer_list<T> List) { Items.insert(Items.end(), List.begin(), List.end()); }
	void Append(const T* Data, int32 Count) { Items.insert(Items.end(), Data, Data + Count); }
	template <typename RangeType>
	TArray& operator+=(const RangeType& Range)
	{
		Append(Range);
		return *this;
	}
	TArray& operator+=(std::initializer_list<T> List)
	{
		Append(List);
		return *this;
	}
	int32 Insert(const T& Item, int32 Index)
	{
		checkSlow(Index >= 0 && Index <= Num());
		Items.insert(Items.begin() + Index, Item);
		return Index;
	}
	int32 Insert(T&& Item, int32 Index)
	{
		checkSlow(Index >= 0 && Index <= Num());
		Items.insert(Items.begin() + Index, static_cast<T&&>(Item));
		return Index;
	}
	int32 Insert(const TArray& Others, int32 Index)
	{
		const TArray Copy(Others);
		Items.insert(Items.begin() + Index, Copy.GetData(), Copy.GetData() + Copy.Num());
		return Index;
	}

	void RemoveAt(int32 Index, int32 Count = 1, bool bAllowShrinking = true)
	{
		checkSlow(Index >= 0 && Count >= 0 && Index + Count <= Num());
		Items.erase(Items.begin() + Index, Items.begin() + Index + Count);
	}
	void RemoveAtSwap(int32 Index)
	{
		checkSlow(IsValidIndex(Index));
		if (Index != Num() - 1)
		{
			(*this)[Index] = static_cast<T&&>(Last());
		}
		Items.pop_back();
	}
	/** Answers the number of elements removed. */
	int32 Remove(const T& Item)
	{
		const T Copy(Item);
		return RemoveAll([&Copy](const T& Candidate) { return Candidate == Copy; });
	}
	int32 RemoveSingle(const T& Item)
	{
		const int32 Index = Find(Item);
		if (Index == INDEX_NONE)
		{
			return 0;
		}
		RemoveAt(Index);
		return 1;
	}
	template <typename Predicate>
	int32 RemoveAll(const Predicate& Pred)
	{
		const auto NewEnd = std::remove_if(
			Items.begin(), Items.end(), [&Pred](FStored& Item) { return Pred(AsElement(Item)); });
		const int32 Count = static_cast<int32>(Items.end() - NewEnd);
		Items.erase(NewEnd, Items.end());
		return Count;
	}
	void Empty(int32 Slack = 0)
	{
		std::vector<FStored>().swap(Items);
		Reserve(Slack);
	}
	void Reset(int32 NewSize = 0)
	{
		Items.clear();
		Reserve(NewSize);
	}
	void Reserve(int32 Count) { Items.reserve(static_cast<std::size_t>(Count)); }
	void SetNum(int32 Count, bool bAllowShrinking = true) { Items.resize(static_cast<std::size_t>(Count)); }
	void SetNumZeroed(int32 Count) { SetNum(Count); }
	void Init(const T& Item, int32 Count) { Items.assign(static_cast<std::size_t>(Count), Item); }

	int32 Find(const T& Item) const { return IndexOfByKey(Item); }
	bool Find(const T& Item, int32& OutIndex) const
	{
		OutIndex = IndexOfByKey(Item);
		return OutIndex != INDEX_NONE;
	}
	int32 FindLast(const T& Item) const
	{
		int32 Index = Num() - 1;
		while (Index >= 0 && !((*this)[Index] == Item))
		{
			--Index;
		}
		return Index;
	}
	bool FindLast(const T& Item, int32& OutIndex) const
	{
		OutIndex = FindLast(Item);
		return OutIndex != INDEX_NONE;
	}
	template <typename KeyType>
	int32 IndexOfByKey(const KeyType& Key) const
	{
		return IndexOfByPredicate([&Key](const T& Item) { return Item == Key; });
	}
	template <typename Predicate>
	int32 IndexOfByPredicate(Predicate Pred) const
	{
		const int32 Count = Num();
		const T* const Data = GetData();
		for (int32 Index = 0; Index < Count; ++Index)
		{
			if (std::invoke(Pred, Data[Index]))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	/** Null when nothing matches. */
	template <typename KeyType>
	T* FindByKey(const KeyType& Key)
	{
		const int32 Index = IndexOfByKey(Key);
		return Index == INDEX_NONE ? nullptr : GetData() + Index;
	}
	template <typename KeyType>
	const T* FindByKey(const KeyType& Key) const
	{
		return const_cast<TArray*>(this)->FindByKey(Key);
	}
	template <typename Predicate>
	T* FindByPredicate(Predicate Pred)
	{
		const int32 Index = IndexOfByPredicate(Pred);
		return Index == INDEX_NONE ? nullptr : GetData() + Index;
	}
	template <typename Predicate>
	const T* FindByPredicate(Predicate Pred) const
	{
		return const_cast<TArray*>(this)->FindByPredicate(Pred);
	}
	template <typename KeyType>
	bool Contains(const KeyType& Key) const
	{
		return IndexOfByKey(Key) != INDEX_NONE;
	}
	template <typename Predicate>
	bool ContainsByPredicate(Predicate Pred) const
	{
		return IndexOfByPredicate(Pred) != INDEX_NONE;
	}
	template <typename Predicate>
	TArray FilterByPredicate(Predicate Pred) const
	{
		TArray Result;
		for (const T& Item : *this)
		{
			if (std::invoke(Pred, Item))
			{
				Result.Add(Item);
			}
		}
		return Result;
	}

	void Sort() { Sort(std::less<>()); }
	template <typename Predicate>
	void Sort(const Predicate& Less)
	{
		std::sort(
			GetData(), GetData() + Num(), [&Less](const T& Left, const T& Right) { return IsLess(Less, Left, Right); });
	}
	void StableSort() { StableSort(std::less<>()); }
	template <typename Predicate>
	void StableSort(const Predicate& Less)
	{
		std::stable_sort(
			GetData(), GetData() + Num(), [&Less](const T& Left, const T& Right) { return IsLess(Less, Left, Right); });
	}
	void Swap(int32 First, int32 Second)
	{
		if (First != Second)
		{
			::Swap((*this)[First], (*this)[Second]);
		}
	}

	/** Walks by index, so the current element may be removed on the way. */
	template <typename ArrayType, typename ItemType>
	class TArrayIterator
	{
	public:
		explicit TArrayIterator(ArrayType& InArray)
			: Array(&InArray)
		{
		}
		explicit operator bool() const { return Array->IsValidIndex(Index); }
		TArrayIterator& operator++()
		{
			++Index;
			return *this;
		}
		TArrayIterator& operator--()
		{
			--Index;
			return *this;
		}
		ItemType& operator*() const { return (*Array)[Index]; }
		ItemType* operator->() const { return &(*Array)[Index]; }
		int32 GetIndex() const { return Index; }
		/** The next ++ goes to the element that followed the removed one. */
		void RemoveCurrent()
		{
			Array->RemoveAt(Index);
			--Index;
		}

	private:
		ArrayType* Array;
		int32 Index = 0;
	};
	using TIterator = TArrayIterator<TArray, T>;
	using TConstIterator = TArrayIterator<const TArray, const T>;
	TIterator CreateIterator() { return TIterator(*this); }

	friend bool operator==(const TArray& Left, const TArray& Right)
	{
		return Left.Num() == Right.Num() && std::equal(Left.GetData(), Left.GetData() + Left.Num(), Right.GetData());
	}
	friend uint32 GetTypeHash(const TArray& Array)
	{
		uint32 Hash = static_cast<uint32>(Array.Num());
		for (const T& Item : Array)
		{
			Hash = HashCombine(Hash, GetTypeHashHelper(Item));
		}
		return Hash;
	}

private:
	/** For arrays of pointers a predicate may take references to what they point to, as in the engine. */
	template <typename Predicate>
	static bool IsLess(const Predicate& Less, const T& Left, const T& Right)
	{
		if constexpr (std::is_pointer_v<T>)
		{
			if constexpr (std::is_invocable_v<const Predicate&, decltype(*Left), decltype(*Right)>)
			{
				return Less(*Left, *Right);
			}
			else
			{
				return Less(Left, Right);
			}
		}
		else
		{
			return Less(Left, Right);
		}
	}
	static const T& AsElement(const FStored& Item) { return reinterpret_cast<const T&>(Item); }

	std::vector<FStored> Items;
};
