#include "CoreMinimal.h"

#include <gtest/gtest.h>

namespace NameTests
{
TEST(Names, IgnoreCaseAndKeepTheirSpelling)
{
	const FName First(TEXT("NameTestSpelling"));
	const FName Second(TEXT("NAMETESTspelling"));
	EXPECT_EQ(First, Second);
	EXPECT_EQ(GetTypeHash(First), GetTypeHash(Second));
	EXPECT_TRUE(First == TEXT("nametestspelling"));
	EXPECT_FALSE(First.IsEqual(Second, ENameCase::CaseSensitive));
	EXPECT_EQ(ToUtf8(First.ToString()), "NameTestSpelling");
	EXPECT_EQ(ToUtf8(Second.ToString()), "NAMETESTspelling");
	EXPECT_EQ(FName("NameTestSpelling"), First);
	EXPECT_EQ(sizeof(FName), 8u);
}

TEST(Names, EmptyAndNoneAreNone)
{
	for (const FName& Name : {FName(), FName(NAME_None), FName(TEXT("")), FName(TEXT("none")), FName(FString())})
	{
		EXPECT_TRUE(Name.IsNone());
		EXPECT_EQ(Name, NAME_None);
	}
	EXPECT_EQ(ToUtf8(FName().ToString()), "None");
}

TEST(Names, FindDoesNotMakeAName)
{
	EXPECT_TRUE(FName(TEXT("NameTestNeverMade"), FNAME_Find).IsNone());
	const FName Made(TEXT("NameTestNeverMade"));
	EXPECT_EQ(FName(TEXT("NAMETESTNEVERMADE"), FNAME_Find), Made);
}

TEST(Names, TrailingNumberIsReadOffTheText)
{
	const struct
	{
		const TCHAR* Text;
		const TCHAR* Plain;
		int32 Number;
	} Cases[] = {{TEXT("Foo_3"), TEXT("Foo"), 4}, {TEXT("Foo_0"), TEXT("Foo"), 1}, {TEXT("Foo_03"), TEXT("Foo_03"), 0},
		{TEXT("Foo3"), TEXT("Foo3"), 0}, {TEXT("Foo_"), TEXT("Foo_"), 0}, {TEXT("_3"), TEXT("_3"), 0},
		{TEXT("A_1_2"), TEXT("A_1"), 3}, {TEXT("Foo_99999999999"), TEXT("Foo_99999999999"), 0},
		{TEXT("Foo_2147483647"), TEXT("Foo_2147483647"), 0}};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(FName(Case.Text).GetNumber(), Case.Number) << ToUtf8(Case.Text);
		EXPECT_TRUE(FName(Case.Text).GetPlainNameString().Equals(Case.Plain)) << ToUtf8(Case.Text);
	}
	EXPECT_EQ(FName(FName(TEXT("Foo")), 4), FName(TEXT("Foo_3")));
	EXPECT_EQ(FName(TEXT("Foo"), NAME_NO_NUMBER_INTERNAL), FName(TEXT("Foo")));
}

TEST(Names, LexicalOrderCountsTrailingNumbers)
{
	TArray<FName> Names{TEXT("Item_10"), TEXT("beta"), TEXT("Item_2"), TEXT("Alpha"), TEXT("Item")};
	Names.Sort(FNameLexicalLess());
	FString Joined;
	for (const FName Name : Names)
	{
		Joined += Name.ToString() + TEXT(" ");
	}
	EXPECT_EQ(ToUtf8(Joined), "Alpha beta Item Item_2 Item_10 ");
}

TEST(Names, StayPutWhileTheTableGrows)
{
	const FName Early(TEXT("NameTestEarly"));
	const TCHAR* const Characters = Early.GetView().GetData();
	for (int32 Index = 0; Index < 50000; ++Index)
	{
		const FName Name(FString::Printf(TEXT("NameTestGrow%d"), Index));
		ASSERT_TRUE(Name == *FString::Printf(TEXT("NAMETESTGROW%d"), Index));
	}
	EXPECT_EQ(Early.GetView().GetData(), Characters);
	EXPECT_EQ(FName(TEXT("nametestearly")), Early);
	EXPECT_EQ(ToUtf8(FName(TEXT("NameTestGrow49999")).ToString()), "NameTestGrow49999");
}
}
