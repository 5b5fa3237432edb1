#include "CoreMinimal.h"

#include <gtest/gtest.h>

namespace ContainerTests
{
template <typename MapType>
static std::string KeysOf(const MapType& Map)
{
	FString Joined;
	for (const auto& Pair : Map)
	{
		Joined += FString::Printf(TEXT("%d "), Pair.Key);
	}
	return ToUtf8(Joined);
}

TEST(Maps, AMovedMapFindsItsKeys)
{
	TMap<int32, int32> Large;
	for (int32 Key = 0; Key < 100; ++Key)
	{
		Large.Add(Key, Key * Key);
	}
	TMap<int32, int32> Small;
	Small = MoveTemp(Large);
	const TMap<int32, int32> Made(MoveTemp(Small));
	for (int32 Key = 0; Key < 100; ++Key)
	{
		ASSERT_NE(Made.Find(Key), nullptr) << Key;
		EXPECT_EQ(*Made.Find(Key), Key * Key);
	}
	EXPECT_EQ(Made.Find(100), nullptr);
}

TEST(Arrays, RemovalsKeepOrderUnlessTheySwap)
{
	TArray<int32> Numbers{1, 2, 3, 2, 4, 2};
	EXPECT_EQ(Numbers.Remove(Numbers[1]), 3);
	EXPECT_EQ(Numbers, (TArray<int32>{1, 3, 4}));
	Numbers.Append(Numbers);
	EXPECT_EQ(Numbers.RemoveSingle(3), 1);
	EXPECT_EQ(Numbers, (TArray<int32>{1, 4, 1, 3, 4}));
	Numbers.RemoveAtSwap(0);
	EXPECT_EQ(Numbers, (TArray<int32>{4, 4, 1, 3}));
	EXPECT_EQ(Numbers.RemoveAll([](int32 Number) { return Number == 4; }), 2);
	Numbers.Insert(7, 1);
	Numbers.Insert(TArray<int32>{8, 9}, 0);
	EXPECT_EQ(Numbers, (TArray<int32>{8, 9, 1, 7, 3}));
	for (TArray<int32>::TIterator It = Numbers.CreateIterator(); It; ++It)
	{
		if (*It > 6)
		{
			It.RemoveCurrent();
		}
	}
	EXPECT_EQ(Numbers, (TArray<int32>{1, 3}));
	EXPECT_EQ(Numbers.AddUnique(3), 1);
	EXPECT_EQ(Numbers.FindLast(9), INDEX_NONE);
}

TEST(Arrays, BooleansHaveAddresses)
{
	TArray<bool> Flags;
	Flags.Init(false, 3);
	bool& bMiddle = Flags[1];
	bMiddle = true;
	EXPECT_EQ(Flags, (TArray<bool>{false, true, false}));
	EXPECT_EQ(Flags.GetData() + 1, &bMiddle);
	EXPECT_EQ(Flags.RemoveAll([](bool bFlag) { return !bFlag; }), 2);
}

TEST(Arrays, SortOfPointersMayTakeReferences)
{
	int32 Numbers[] = {3, 1, 2};
	TArray<int32*> Pointers{&Numbers[0], &Numbers[1], &Numbers[2]};
	Pointers.Sort([](const int32& Left, const int32& Right) { return Left < Right; });
	EXPECT_EQ(*Pointers[0] * 100 + *Pointers[1] * 10 + *Pointers[2], 123);
	TArray<FString> Words{TEXT("b"), TEXT("A"), TEXT("c")};
	Words.Sort();
	EXPECT_TRUE(Words.Last().Equals(TEXT("c")) && Words[0].Equals(TEXT("A")));
}

TEST(Maps, OrderIsThatOfAdditionAndSurvivesRemoval)
{
	TMap<int32, int32> Map;
	for (int32 Key = 20; Key > 0; --Key)
	{
		Map.Add(Key, Key * Key);
	}
	for (int32 Key = 20; Key > 0; Key -= 3)
	{
		EXPECT_EQ(Map.Remove(Key), 1);
	}
	EXPECT_EQ(Map.Remove(20), 0);
	EXPECT_EQ(KeysOf(Map), "19 18 16 15 13 12 10 9 7 6 4 3 1 ");
	Map.Add(16, 1);
	Map.Add(20, 2);
	EXPECT_EQ(KeysOf(Map), "19 18 16 15 13 12 10 9 7 6 4 3 1 20 ");
	EXPECT_EQ(Map.FindRef(16), 1);
	EXPECT_EQ(Map.FindRef(17), 0);
	EXPECT_EQ(Map.Find(17), nullptr);
	Map.KeySort([](int32 Left, int32 Right) { return Left < Right; });
	EXPECT_EQ(KeysOf(Map), "1 3 4 6 7 9 10 12 13 15 16 18 19 20 ");
	EXPECT_EQ(Map[19], 361);
	Map.ValueSort([](int32 Left, int32 Right) { return Left > Right; });
	EXPECT_EQ(Map.FindChecked(18), 324);
	EXPECT_EQ(KeysOf(Map).substr(0, 6), "19 18 ");
}

TEST(Maps, WalkMayRemoveWhatItStandsOn)
{
	TMap<int32, int32> Map;
	for (int32 Key = 0; Key < 100; ++Key)
	{
		Map.Add(Key, Key);
	}
	for (TMap<int32, int32>::TIterator It = Map.CreateIterator(); It; ++It)
	{
		if (It.Key() % 10 != 0)
		{
			It.RemoveCurrent();
		}
	}
	EXPECT_EQ(KeysOf(Map), "0 10 20 30 40 50 60 70 80 90 ");
	for (TMap<int32, int32>::TIterator It = Map.CreateIterator(); It; ++It)
	{
		It.RemoveCurrent();
	}
	EXPECT_TRUE(Map.IsEmpty());
	Map.Add(5, 5);
	EXPECT_EQ(KeysOf(Map), "5 ");
}

/** Random additions, removals and look-ups against a plain list that keeps the same promise slowly. */
TEST(Maps, AgreeWithAListUnderRandomUse)
{
	TMap<int32, int32> Map;
	TArray<TPair<int32, int32>> List;
	uint32 State = 12345;
	for (int32 Step = 0; Step < 20000; ++Step)
	{
		State = State * 1664525u + 1013904223u;
		const int32 Key = static_cast<int32>((State >> 16) % (Step < 10000 ? 300 : 12));
		const int32 Index = List.IndexOfByPredicate([Key](const TPair<int32, int32>& Pair) { return Pair.Key == Key; });
		ASSERT_EQ(Map.Contains(Key), Index != INDEX_NONE) << "step " << Step;
		if ((State >> 8) % 5 < 3)
		{
			Map.Add(Key, Step);
			if (Index == INDEX_NONE)
			{
				List.Emplace(Key, Step);
			}
			else
			{
				List[Index].Value = Step;
			}
		}
		else if (Index != INDEX_NONE)
		{
			int32 Value = 0;
			ASSERT_TRUE(Map.RemoveAndCopyValue(Key, Value));
			ASSERT_EQ(Value, List[Index].Value);
			List.RemoveAt(Index);
		}
		ASSERT_EQ(Map.Num(), List.Num()) << "step " << Step;
	}
	EXPECT_EQ(KeysOf(Map), KeysOf(List));
}

TEST(Maps, QueueOfManyDrainsFromTheFront)
{
	// Quadratic behaviour in either walk or removal would show as a test that never ends.
	constexpr int32 Count = 200000;
	TMap<int32, int32> Map;
	for (int32 Key = 0; Key < Count; ++Key)
	{
		Map.Add(Key, Key);
	}
	for (int32 Key = 0; Key < Count; ++Key)
	{
		const int32 First = (*Map.begin()).Key;
		ASSERT_EQ(First, Key);
		Map.Remove(First);
	}
	EXPECT_TRUE(Map.IsEmpty());
}

TEST(Maps, StringKeysIgnoreCaseAndTheLastSpellingStays)
{
	TMap<FString, int32> Map;
	Map.Add(TEXT("Key"), 1);
	Map.Add(TEXT("KEY"), 2);
	EXPECT_EQ(Map.Num(), 1);
	EXPECT_EQ(Map.FindRef(TEXT("key")), 2);
	EXPECT_EQ(ToUtf8((*Map.begin()).Key), "KEY");
	EXPECT_EQ(Map.FindOrAdd(TEXT("kEY")), 2);
	EXPECT_EQ(Map.FindOrAdd(TEXT("other"), 7), 7);
}

TEST(Maps, HoldWhatCannotBeCopiedAndMoveAway)
{
	TMap<FName, TUniquePtr<int32>> Map;
	Map.Add(TEXT("a"), MakeUnique<int32>(1));
	TMap<FName, TUniquePtr<int32>> Other = MoveTemp(Map);
	EXPECT_TRUE(Map.IsEmpty());
	EXPECT_FALSE(Map.Contains(TEXT("a")));
	EXPECT_EQ(*Other.FindChecked(TEXT("a")), 1);
	Map.Add(TEXT("b"), MakeUnique<int32>(2));
	EXPECT_EQ(*Map.FindAndRemoveChecked(TEXT("b")), 2);
}

TEST(Sets, TellWhatIsThereAndKeepOrder)
{
	TSet<FString> Set{TEXT("one"), TEXT("two"), TEXT("three")};
	bool bThere = false;
	Set.Add(TEXT("TWO"), &bThere);
	EXPECT_TRUE(bThere);
	Set.Add(TEXT("four"), &bThere);
	EXPECT_FALSE(bThere);
	EXPECT_EQ(ToUtf8(FString::Join(Set, TEXT(","))), "one,TWO,three,four");
	const TSet<FString> Other{TEXT("FOUR"), TEXT("five"), TEXT("one")};
	EXPECT_EQ(ToUtf8(FString::Join(Set.Intersect(Other), TEXT(","))), "one,four");
	EXPECT_EQ(ToUtf8(FString::Join(Set.Difference(Other), TEXT(","))), "TWO,three");
	EXPECT_EQ(Set.Union(Other).Num(), 5);
	EXPECT_TRUE((Set == TSet<FString>{TEXT("four"), TEXT("three"), TEXT("two"), TEXT("one")}));
}

struct FCounted : TSharedFromThis<FCounted>
{
	explicit FCounted(int32& InAlive)
		: Alive(InAlive)
	{
		++Alive;
	}
	~FCounted() { --Alive; }
	int32& Alive;
};

struct FDerivedCounted : FCounted
{
	using FCounted::FCounted;
};

TEST(SharedPointers, DestroyOnceAndWeakOnesSeeIt)
{
	int32 Alive = 0;
	TWeakPtr<FCounted> Weak;
	{
		TSharedPtr<FCounted> Pointer = MakeShared<FDerivedCounted>(Alive);
		Weak = Pointer;
		const TSharedRef<FCounted> Self = Pointer->AsShared();
		EXPECT_EQ(Self.GetSharedReferenceCount(), 2);
		const TSharedPtr<FDerivedCounted> Down = StaticCastSharedPtr<FDerivedCounted>(Pointer);
		TSharedPtr<FCounted> Adopted = MakeShareable(new FDerivedCounted(Alive));
		EXPECT_EQ(Alive, 2);
		Adopted = Pointer;
		EXPECT_EQ(Alive, 1);
		Pointer = Adopted;
		Pointer.Reset();
		EXPECT_TRUE(Weak.IsValid() && Weak.Pin() == Down);
	}
	EXPECT_EQ(Alive, 0);
	EXPECT_FALSE(Weak.IsValid());
	EXPECT_FALSE(Weak.Pin().IsValid());
}

TEST(Delegates, ListenersMayLeaveDuringTheCall)
{
	TMulticastDelegate<void(int32)> Event;
	FString Heard;
	FDelegateHandle Second;
	Event.AddLambda(
		[&](int32 Value)
		{
			Heard += FString::Printf(TEXT("a%d "), Value);
			Event.Remove(Second);
		});
	Second = Event.AddLambda([&](int32 Value) { Heard += TEXT("b "); });
	Event.AddLambda([&](int32 Value, const TCHAR* Bound) { Heard += Bound; }, TEXT("c "));
	Event.Broadcast(1);
	Event.Broadcast(2);
	EXPECT_EQ(ToUtf8(Heard), "a1 c a2 c ");
}

TEST(Delegates, OneThatIsBoundToNothingIsNotCalled)
{
	TDelegate<int32(int32)> Delegate;
	EXPECT_FALSE(Delegate.IsBound());
	EXPECT_FALSE(Delegate.ExecuteIfBound(1));
	int32 Calls = 0;
	Delegate.BindLambda([&Calls](int32 Value) { return Calls += Value; });
	EXPECT_EQ(Delegate.Execute(5), 5);
	EXPECT_TRUE(Delegate.ExecuteIfBound(2));
	EXPECT_EQ(Calls, 7);
}
}
