#pragma once

#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <vector>

/** The end of a walk over an ordered table. */
struct FOrderedTableEnd
{
};

/**
 * What TMap and TSet are made of: the elements stand in a row in the order they were added, an open-addressing index
 * finds them by hash. A removed element leaves a gap that is closed when elements are next added, so removal is cheap,
 * keeps the order of the rest and does not disturb a walk. No library table at hand keeps the order without moving
 * everything behind a removed element.
 *
 * Traits: FElement, FKey, static const FKey& GetKey(const FElement&), static bool Matches(const FKey&, const FKey&),
 * static uint32 Hash(const FKey&).
 */
template <typename Traits>
class TOrderedTable
{
public:
	using FElement = typename Traits::FElement;
	using FKey = typename Traits::FKey;

	TOrderedTable() = default;
	TOrderedTable(const TOrderedTable&) = default;
	TOrderedTable& operator=(const TOrderedTable&) = default;
	TOrderedTable(TOrderedTable&& Other) noexcept { TakeFrom(Other); }
	TOrderedTable& operator=(TOrderedTable&& Other) noexcept
	{
		if (this != &Other)
		{
			TakeFrom(Other);
		}
		return *this;
	}

	int32 Num() const { return NumLive; }
	int32 SlotEnd() const { return static_cast<int32>(Slots.size()); }
	bool IsLive(int32 Slot) const { return Slots[static_cast<std::size_t>(Slot)].Element.has_value(); }
	FElement& Get(int32 Slot) { return *Slots[static_cast<std::size_t>(Slot)].Element; }
	const FElement& Get(int32 Slot) const { return *Slots[static_cast<std::size_t>(Slot)].Element; }
	/** The first live slot at or after Slot; SlotEnd() or more when there is none. */
	int32 NextLive(int32 Slot) const
	{
		Slot = Slot < FirstSlot ? FirstSlot : Slot;
		const int32 End = SlotEnd();
		while (Slot < End && !IsLive(Slot))
		{
			++Slot;
		}
		return Slot;
	}

	int32 Find(const FKey& Key) const { return NumLive == 0 ? INDEX_NONE : FindHashed(Key, Traits::Hash(Key)); }

	/** Adds what Make returns unless the key is there; answers the slot. */
	template <typename MakeType>
	int32 FindOrAdd(const FKey& Key, bool& bOutFound, MakeType&& Make)
	{
		const uint32 Hash = Traits::Hash(Key);
		int32 Slot = NumLive == 0 ? static_cast<int32>(INDEX_NONE) : FindHashed(Key, Hash);
		bOutFound = Slot != INDEX_NONE;
		if (!bOutFound)
		{
			Slot = Append(Make(), Hash);
		}
		return Slot;
	}

	void RemoveSlot(int32 Slot)
	{
		FSlot& Removed = Slots[static_cast<std::size_t>(Slot)];
		if (!Index.empty())
		{
			Index[FindIndexOf(Slot, Removed.Hash)] = Deleted;
		}
		Removed.Element.reset();
		--NumLive;
		if (NumLive == 0)
		{
			// A walk that stands in here sees the end.
			Clear();
		}
		else if (Slot == FirstSlot)
		{
			FirstSlot = NextLive(Slot);
		}
	}

	void Clear()
	{
		Slots.clear();
		Index.clear();
		NumLive = 0;
		FirstSlot = 0;
	}

	void Reserve(int32 Count)
	{
		Slots.reserve(static_cast<std::size_t>(Count));
		if (Count > MaxUnindexed && static_cast<std::size_t>(Count) * 2 > Index.size())
		{
			Rebuild(Count);
		}
	}

	template <typename LessType>
	void StableSort(const LessType& Less)
	{
		std::vector<int32> Order;
		for (int32 Slot = NextLive(0); Slot < SlotEnd(); Slot = NextLive(Slot + 1))
		{
			Order.push_back(Slot);
		}
		SortSlots(Order, Less);
		std::vector<FSlot> Sorted;
		Sorted.reserve(Order.size());
		for (const int32 Slot : Order)
		{
			Sorted.push_back(static_cast<FSlot&&>(Slots[static_cast<std::size_t>(Slot)]));
		}
		Slots.swap(Sorted);
		FirstSlot = 0;
		Rebuild(NumLive);
	}

private:
	struct FSlot
	{
		std::optional<FElement> Element;
		uint32 Hash = 0;
	};
	static constexpr int32 MaxUnindexed = 8;
	static constexpr int32 Free = -1;
	static constexpr int32 Deleted = -2;

	void TakeFrom(TOrderedTable& Other)
	{
		Slots = static_cast<std::vector<FSlot>&&>(Other.Slots);
		Index = static_cast<std::vector<int32>&&>(Other.Index);
		NumLive = Other.NumLive;
		FirstSlot = Other.FirstSlot;
		IndexShift = Other.IndexShift;
		NumUsed = Other.NumUsed;
		Other.Clear();
	}

	template <typename LessType>
	void SortSlots(std::vector<int32>& Order, const LessType& Less);

	int32 FindHashed(const FKey& Key, uint32 Hash) const
	{
		if (Index.empty())
		{
			const int32 End = SlotEnd();
			for (int32 Slot = FirstSlot; Slot < End; ++Slot)
			{
				if (IsMatch(Slot, Key, Hash))
				{
					return Slot;
				}
			}
			return INDEX_NONE;
		}
		for (std::size_t Position = FirstPosition(Hash);; Position = NextPosition(Position))
		{
			const int32 Slot = Index[Position];
			if (Slot == Free)
			{
				return INDEX_NONE;
			}
			if (Slot != Deleted && IsMatch(Slot, Key, Hash))
			{
				return Slot;
			}
		}
	}
	bool IsMatch(int32 Slot, const FKey& Key, uint32 Hash) const
	{
		const FSlot& Candidate = Slots[static_cast<std::size_t>(Slot)];
		return Candidate.Hash == Hash && Candidate.Element && Traits::Matches(Traits::GetKey(*Candidate.Element), Key);
	}
	std::size_t FirstPosition(uint32 Hash) const
	{
		return static_cast<std::size_t>((Hash * 0x9E3779B97F4A7C15ull) >> IndexShift);
	}
	std::size_t NextPosition(std::size_t Position) const { return (Position + 1) & (Index.size() - 1); }
	std::size_t FindIndexOf(int32 Slot, uint32 Hash) const
	{
		std::size_t Position = FirstPosition(Hash);
		while (Index[Position] != Slot)
		{
			Position = NextPosition(Position);
		}
		return Position;
	}

	int32 Append(FElement&& Element, uint32 Hash)
	{
		const bool bIndexFull = !Index.empty() && (NumUsed + 1) * 4 > static_cast<int32>(Index.size()) * 3;
		const bool bManyGaps = SlotEnd() > 16 && SlotEnd() > NumLive * 2;
		if (bIndexFull || bManyGaps || (Index.empty() && SlotEnd() >= MaxUnindexed))
		{
			CloseGaps();
			Rebuild(NumLive + 1);
		}
		const int32 Slot = SlotEnd();
		Slots.push_back(FSlot{std::optional<FElement>(static_cast<FElement&&>(Element)), Hash});
		++NumLive;
		if (!Index.empty())
		{
			PutIntoIndex(Slot, Hash);
		}
		return Slot;
	}
	void PutIntoIndex(int32 Slot, uint32 Hash)
	{
		std::size_t Position = FirstPosition(Hash);
		while (Index[Position] != Free)
		{
			Position = NextPosition(Position);
		}
		Index[Position] = Slot;
		++NumUsed;
	}
	void CloseGaps()
	{
		if (SlotEnd() == NumLive)
		{
			return;
		}
		std::size_t Target = 0;
		for (FSlot& Slot : Slots)
		{
			if (Slot.Element)
			{
				if (&Slots[Target] != &Slot)
				{
					Slots[Target] = static_cast<FSlot&&>(Slot);
				}
				++Target;
			}
		}
		Slots.erase(Slots.begin() + static_cast<std::ptrdiff_t>(Target), Slots.end());
		FirstSlot = 0;
	}
	void Rebuild(int32 Count)
	{
		NumUsed = 0;
		if (Count <= MaxUnindexed)
		{
			Index.clear();
			return;
		}
		const std::size_t Size = std::bit_ceil(static_cast<std::size_t>(Count) * 2);
		Index.assign(Size, Free);
		IndexShift = 64 - std::countr_zero(Size);
		for (int32 Slot = NextLive(0); Slot < SlotEnd(); Slot = NextLive(Slot + 1))
		{
			PutIntoIndex(Slot, Slots[static_cast<std::size_t>(Slot)].Hash);
		}
	}

	std::vector<FSlot> Slots;
	std::vector<int32> Index;
	int32 NumLive = 0;
	int32 FirstSlot = 0;
	int32 NumUsed = 0;
	int32 IndexShift = 64;
};

template <typename Traits>
template <typename LessType>
void TOrderedTable<Traits>::SortSlots(std::vector<int32>& Order, const LessType& Less)
{
	std::stable_sort(Order.begin(), Order.end(), [&](int32 Left, int32 Right) { return Less(Get(Left), Get(Right)); });
}

/** A walk in the order of addition. Elements may be removed on the way, the current one through RemoveCurrent. */
template <typename TableType, typename ItemType>
class TOrderedTableIterator
{
public:
	explicit TOrderedTableIterator(TableType& InTable)
		: Table(&InTable)
		, Slot(InTable.NextLive(0))
	{
	}
	explicit operator bool() const { return Slot < Table->SlotEnd(); }
	TOrderedTableIterator& operator++()
	{
		Slot = Table->NextLive(Slot + 1);
		return *this;
	}
	ItemType& operator*() const { return Table->Get(Slot); }
	ItemType* operator->() const { return &Table->Get(Slot); }
	auto& Key() const { return (**this).Key; }
	auto& Value() const { return (**this).Value; }
	void RemoveCurrent() { Table->RemoveSlot(Slot); }
	friend bool operator==(const TOrderedTableIterator& It, FOrderedTableEnd) { return !It; }

private:
	TableType* Table;
	int32 Slot;
};
