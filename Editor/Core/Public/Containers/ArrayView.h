#pragma once

#include "Containers/ContainersFwd.h"

#include <concepts>
#include <initializer_list>
#include <iterator>

/** Borrowed elements in a row; valid as long as what it was made of stays put. */
template <typename T>
class TArrayView
{
public:
	using ElementType = T;

	constexpr TArrayView() = default;
	constexpr TArrayView(T* InData, int32 InNum)
		: Data(InData)
		, Count(InNum)
	{
	}
	template <std::size_t N>
	constexpr TArrayView(T (&Array)[N])
		: Data(Array)
		, Count(static_cast<int32>(N))
	{
	}
	constexpr TArrayView(std::initializer_list<std::remove_const_t<T>> List) requires std::is_const_v<T>
		: Data(std::data(List)), Count(static_cast<int32>(List.size()))
	{
	}
	template <typename RangeType>
	requires(!std::is_same_v<std::remove_const_t<RangeType>, TArrayView> &&
			requires(RangeType& Range) {
				{
					Range.GetData()
				} -> std::convertible_to<T*>;
				Range.Num();
			})
	constexpr TArrayView(RangeType& Range)
		: Data(Range.GetData())
		, Count(Range.Num())
	{
	}
	template <typename RangeType>
	requires(std::is_const_v<T> && !std::is_lvalue_reference_v<RangeType> &&
			!std::is_same_v<std::remove_cvref_t<RangeType>, TArrayView> &&
			requires(const RangeType& Range) {
				{
					Range.GetData()
				} -> std::convertible_to<T*>;
				Range.Num();
			})
	constexpr TArrayView(RangeType&& Range)
		: Data(static_cast<const std::remove_reference_t<RangeType>&>(Range).GetData())
		, Count(Range.Num())
	{
	}

	constexpr T* GetData() const { return Data; }
	constexpr int32 Num() const { return Count; }
	constexpr bool IsEmpty() const { return Count == 0; }
	constexpr bool IsValidIndex(int32 Index) const { return Index >= 0 && Index < Count; }
	T& operator[](int32 Index) const
	{
		checkSlow(IsValidIndex(Index));
		return Data[Index];
	}
	T& Last() const { return (*this)[Count - 1]; }
	constexpr T* begin() const { return Data; }
	constexpr T* end() const { return Data + Count; }
	TArrayView Slice(int32 Start, int32 Length) const
	{
		checkSlow(Start >= 0 && Length >= 0 && Start + Length <= Count);
		return TArrayView(Data + Start, Length);
	}
	TArrayView Left(int32 Length) const { return Slice(0, Length < Count ? Length : Count); }
	TArrayView RightChop(int32 Length) const { return Length < Count ? Slice(Length, Count - Length) : TArrayView(); }
	template <typename KeyType>
	int32 Find(const KeyType& Key) const
	{
		for (int32 Index = 0; Index < Count; ++Index)
		{
			if (Data[Index] == Key)
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	template <typename KeyType>
	bool Contains(const KeyType& Key) const
	{
		return Find(Key) != INDEX_NONE;
	}
	template <typename Predicate>
	T* FindByPredicate(Predicate Pred) const
	{
		for (T& Item : *this)
		{
			if (Pred(Item))
			{
				return &Item;
			}
		}
		return nullptr;
	}
	template <typename Predicate>
	bool ContainsByPredicate(Predicate Pred) const
	{
		return FindByPredicate(Pred) != nullptr;
	}

private:
	T* Data = nullptr;
	int32 Count = 0;
};

template <typename T>
TArrayView<T> MakeArrayView(T* Data, int32 Count)
{
	return TArrayView<T>(Data, Count);
}
template <typename RangeType>
auto MakeArrayView(RangeType& Range)
{
	return TArrayView<std::remove_pointer_t<decltype(Range.GetData())>>(Range);
}
