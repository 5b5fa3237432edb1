#include "AssetOperationBase.h"
#include "GraphBuilder.h"
#include "KeywordIndex.h"
#include "KeywordSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>

using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Lt;

namespace KeywordsTest
{
/** Without the one that is the text itself, letter by letter. */
static std::vector<std::string> Keywords(const TCHAR* Text)
{
	std::vector<std::string> List;
	for (const FString& Keyword : FAssetOperationBase::CreateKeywords(Text))
	{
		if (!Keyword.StartsWith(TEXT("\"")))
		{
			List.push_back(ToStd(Keyword));
		}
	}
	return List;
}

struct FAction
{
	const TCHAR* Title;
	const TCHAR* Category;
	const TCHAR* NodeClass;
};

/** A slice of a menu that holds what requests are easily mistaken for. */
constexpr FAction Menu[] = {
	{TEXT("Print String"), TEXT("Development"), TEXT("K2Node_CallFunction")},
	{TEXT("Print Text"), TEXT("Development"), TEXT("K2Node_CallFunction")},
	{TEXT("Get Actor Location"), TEXT("Transformation"), TEXT("K2Node_CallFunction")},
	{TEXT("Set Actor Location"), TEXT("Transformation"), TEXT("K2Node_CallFunction")},
	{TEXT("Set Actor Location And Rotation"), TEXT("Transformation"), TEXT("K2Node_CallFunction")},
	{TEXT("Set Actor Relative Location"), TEXT("Transformation"), TEXT("K2Node_CallFunction")},
	{TEXT("Get Component by Class"), TEXT("Actor"), TEXT("K2Node_CallFunction")},
	{TEXT("Get Components by Class"), TEXT("Actor"), TEXT("K2Node_CallFunction")},
	{TEXT("Delay"), TEXT("Utilities|Flow Control"), TEXT("K2Node_CallFunction")},
	{TEXT("Retriggerable Delay"), TEXT("Utilities|Flow Control"), TEXT("K2Node_CallFunction")},
	{TEXT("Branch"), TEXT("Utilities|Flow Control"), TEXT("K2Node_IfThenElse")},
	{TEXT("Detect Drag If Pressed"), TEXT("Input"), TEXT("K2Node_CallFunction")},
	{TEXT("Sequence"), TEXT("Utilities|Flow Control"), TEXT("K2Node_ExecutionSequence")},
	{TEXT("For Loop"), TEXT("Utilities|Flow Control"), TEXT("K2Node_MacroInstance")},
	{TEXT("For Loop with Break"), TEXT("Utilities|Flow Control"), TEXT("K2Node_MacroInstance")},
	{TEXT("For Each Loop"), TEXT("Utilities|Array"), TEXT("K2Node_MacroInstance")},
	{TEXT("For Each Loop with Break"), TEXT("Utilities|Array"), TEXT("K2Node_MacroInstance")},
	{TEXT("Cast To Character"), TEXT("Utilities|Casting"), TEXT("K2Node_DynamicCast")},
	{TEXT("Cast To Pawn"), TEXT("Utilities|Casting"), TEXT("K2Node_DynamicCast")},
	{TEXT("Cast To CharacterMovementComponent"), TEXT("Utilities|Casting"), TEXT("K2Node_DynamicCast")},
	{TEXT("Event BeginPlay"), TEXT("Add Event"), TEXT("K2Node_Event")},
	{TEXT("Event Tick"), TEXT("Add Event"), TEXT("K2Node_Event")},
	{TEXT("Event ActorBeginOverlap"), TEXT("Add Event"), TEXT("K2Node_Event")},
	{TEXT("Call On Actor Begin Overlap"), TEXT("Event Dispatchers"), TEXT("K2Node_CallDelegate")},
	{TEXT("Add"), TEXT("Utilities|Array"), TEXT("K2Node_CallArrayFunction")},
	{TEXT("Add"), TEXT("Utilities|Operators"), TEXT("K2Node_PromotableOperator")},
	{TEXT("float + float"), TEXT("Math|Float"), TEXT("K2Node_CallFunction")},
	{TEXT("integer + integer"), TEXT("Math|Integer"), TEXT("K2Node_CallFunction")},
	{TEXT("float < float"), TEXT("Math|Float"), TEXT("K2Node_CallFunction")},
	{TEXT("float <= float"), TEXT("Math|Float"), TEXT("K2Node_CallFunction")},
	{TEXT("vector * float"), TEXT("Math|Vector"), TEXT("K2Node_CallFunction")},
	{TEXT("AND Boolean"), TEXT("Math|Boolean"), TEXT("K2Node_CallFunction")},
	{TEXT("Equal (Integer)"), TEXT("Math|Integer"), TEXT("K2Node_CallFunction")},
	{TEXT("String To Int"), TEXT("Utilities|String"), TEXT("K2Node_CallFunction")},
	{TEXT("To String (Integer)"), TEXT("Utilities|String"), TEXT("K2Node_CallFunction")},
	{TEXT("Play Sound 2D"), TEXT("Audio"), TEXT("K2Node_CallFunction")},
	{TEXT("Play Sound at Location"), TEXT("Audio"), TEXT("K2Node_CallFunction")},
	{TEXT("Spawn Actor from Class"), TEXT("Game"), TEXT("K2Node_SpawnActorFromClass")},
	{TEXT("Destroy Actor"), TEXT("Actor"), TEXT("K2Node_CallFunction")},
	{TEXT("SetText (Text)"), TEXT("Widget"), TEXT("K2Node_CallFunction")},
	{TEXT("Get a reference to self"), TEXT("Variables"), TEXT("K2Node_Self")},
	{TEXT("Add Comment..."), TEXT(""), TEXT("EdGraphNode_Comment")},
};

/** The keywords of a request as the menu matching puts them together. */
static TArray<FString> RequestKeywords(const TCHAR* Title, const TCHAR* NodeClass)
{
	TArray<FString> Request = FAssetOperationBase::CreateKeywords(Title);
	if (*NodeClass)
	{
		Request.Add(NodeClass);
		FAssetOperationBase::AppendKeywords(NodeClass, Request);
	}
	return Request;
}

static TArray<FString> ActionKeywords(const FAction& Action)
{
	TArray<FString> Keywords = FAssetOperationBase::CreateKeywords(Action.Title);
	FAssetOperationBase::AppendKeywords(Action.Category, Keywords);
	for (const FString& Keyword : FAssetOperationBase::CreateKeywords(Action.NodeClass))
	{
		Keywords.AddUnique(Keyword);
	}
	return Keywords;
}

static const FKeywordIndex& GetMenuIndex()
{
	static const FKeywordIndex Index = []
	{
		FKeywordIndex Made;
		for (const FAction& Action : Menu)
		{
			Made.Add(Action.Title, Action.Category, Action.NodeClass);
		}
		return Made;
	}();
	return Index;
}

static FKeywordHit FindBest(const TCHAR* Title, const TCHAR* NodeClass = TEXT(""))
{
	return GetMenuIndex().FindBest(RequestKeywords(Title, NodeClass), FAssetOperationBase::CreateKeywords(Title), 1)[0];
}

/** The order by scoring every action alone: what the index must answer. */
static std::vector<int32> RankOneByOne(const TArray<FString>& Request, const TArray<FString>& RequestTitle)
{
	std::vector<std::tuple<int32, int32, int32, int32>> Ranks;
	for (int32 Number = 0; Number < static_cast<int32>(std::size(Menu)); ++Number)
	{
		const FKeywordSimilarity All = FAssetOperationBase::CalculateKeywordSimilarity(
			Request, ActionKeywords(Menu[Number]));
		const FKeywordSimilarity Title = FAssetOperationBase::CalculateKeywordSimilarity(
			RequestTitle, FAssetOperationBase::CreateKeywords(Menu[Number].Title));
		Ranks.emplace_back(-All.CommonCount, -Title.CommonCount, All.Distance, Number);
	}
	std::sort(Ranks.begin(), Ranks.end());
	std::vector<int32> Order;
	for (const auto& Rank : Ranks)
	{
		Order.push_back(std::get<3>(Rank));
	}
	return Order;
}
} // namespace KeywordsTest

TEST(Keywords, TextsThatMeanTheSameGiveTheSame)
{
	const std::vector<std::vector<const TCHAR*>> Groups = {
		{TEXT("Print String"), TEXT("PrintString"), TEXT("print_string"), TEXT("  PRINT   STRING "),
			TEXT("Print String node")},
		{TEXT("Get Actor Location"), TEXT("GetActorLocation"), TEXT("K2_GetActorLocation"), TEXT("get the actor loc")},
		{TEXT("Play Sound 2D"), TEXT("PlaySound2D"), TEXT("play sound 2d")},
		{TEXT("Add Vector2D"), TEXT("add vec 2D")},
		{TEXT("Make Vector"), TEXT("Make FVector"), TEXT("MakeVector")},
		{TEXT("For Each Loop"), TEXT("ForEachLoop"), TEXT("foreach loop")},
		{TEXT("Is Open"), TEXT("bIsOpen")},
	};
	for (const std::vector<const TCHAR*>& Group : Groups)
	{
		for (const TCHAR* const Text : Group)
		{
			EXPECT_THAT(KeywordsTest::Keywords(Text), IsSupersetOf(KeywordsTest::Keywords(Group[0]))) << ToStd(Text);
		}
	}
}

TEST(Keywords, SplitAtCaseDigitsAndSigns)
{
	const std::vector<std::pair<const TCHAR*, std::vector<std::string>>> Cases = {
		{TEXT("AIMoveTo"), {"ai", "move", "to", "=aimoveto"}},
		{TEXT("float <= float"), {"float", "less", "equal", "=lessequal", "=lessequalfloat", "=floatlessequalfloat"}},
		{TEXT("float - float"), {"float", "subtract", "=subtract", "=subtractfloat", "=floatsubtractfloat"}},
		{TEXT("non-uniform"), {"non", "uniform", "=nonuniform"}},
		{TEXT("EqualEqual_IntInt"), {"equal", "integer", "=equal", "=equalinteger"}},
		{TEXT("Int64"), {"integer64", "=integer64"}},
		{TEXT("Event Tick"), {"event", "tick", "=tick"}},
		{TEXT("SetText (Text)"), {"set", "text", "=settext"}},
		{TEXT("???"), {"=???"}},
		// Words between others that only join them say nothing; what is cast to is one name, as it is written.
		{TEXT("Add to Viewport"), {"add", "view", "port", "=addtoviewport"}},
		{TEXT("integer to string"), {"integer", "to", "string", "=tostringinteger", "=integertostring"}},
		{TEXT("Cast To CharacterMovementComponent"),
			{"cast", "to", ":charactermovementcomponent", "=castto:charactermovementcomponent"}},
		{TEXT("Cast To MyItems Class"), {"cast", "to", ":myitems", "class", "=castto:myitems:class"}},
		{TEXT("K2Node_IfThenElse"), {"k2node_ifthenelse", "if", "then", "else", "=k2node_ifthenelse"}},
		// The words of a class that serves hundreds of titles would outvote the title.
		{TEXT("K2Node_CallFunction"), {"k2node_callfunction", "=k2node_callfunction"}},
	};
	for (const auto& [Text, Expected] : Cases)
	{
		EXPECT_THAT(KeywordsTest::Keywords(Text), testing::ElementsAreArray(Expected)) << ToStd(Text);
	}
	EXPECT_THAT(KeywordsTest::Keywords(TEXT(" ")), IsEmpty());
}

TEST(Keywords, AppendedTextDescribesAndIsNoTitle)
{
	TArray<FString> Keywords = FAssetOperationBase::CreateKeywords(TEXT("Delay"));
	FAssetOperationBase::AppendKeywords(TEXT("Utilities|Flow Control"), Keywords);
	FAssetOperationBase::AppendKeywords(TEXT("Delay"), Keywords);
	std::vector<std::string> List;
	for (const FString& Keyword : Keywords)
	{
		List.push_back(ToStd(Keyword));
	}
	EXPECT_THAT(List, ElementsAre("delay", "=delay", "\"delay", "utility", "flow", "control"));
}

TEST(Keywords, LevenshteinCountsSingleEdits)
{
	const std::vector<std::tuple<const TCHAR*, const TCHAR*, int32>> Cases = {{TEXT(""), TEXT(""), 0},
		{TEXT("abc"), TEXT(""), 3}, {TEXT("Delay"), TEXT("delay"), 0}, {TEXT("delya"), TEXT("delay"), 2},
		{TEXT("kitten"), TEXT("sitting"), 3}, {TEXT("flaw"), TEXT("lawn"), 2}};
	for (const auto& [Left, Right, Distance] : Cases)
	{
		EXPECT_EQ(FAssetOperationBase::LevenshteinDistance(Left, Right), Distance)
			<< ToStd(Left) << " " << ToStd(Right);
		EXPECT_EQ(FAssetOperationBase::LevenshteinDistance(Right, Left), Distance)
			<< ToStd(Left) << " " << ToStd(Right);
	}
}

TEST(KeywordSimilarity, SlipsCountAsCommonButLieFurtherAway)
{
	const TArray<FString> Menu = FAssetOperationBase::CreateKeywords(TEXT("Set Actor Location"));
	const TArray<FString> Right = FAssetOperationBase::CreateKeywords(TEXT("Set Actor Location"));
	const TArray<FString> Slip = FAssetOperationBase::CreateKeywords(TEXT("Set Actor Lcoation"));
	const FKeywordSimilarity Exact = FAssetOperationBase::CalculateKeywordSimilarity(Right, Menu);
	const FKeywordSimilarity Close = FAssetOperationBase::CalculateKeywordSimilarity(Slip, Menu);
	EXPECT_EQ(Exact.CommonCount, 5);
	EXPECT_EQ(Exact.Distance, FKeywordSet(Menu).GetPrior()); // nothing is unasked and nothing slipped
	EXPECT_EQ(Close.CommonCount, 3);
	EXPECT_EQ(ToStd(FString::Join(Close.CommonKeywords, TEXT(" "))), "set actor lcoation");
	EXPECT_GT(Close.Distance, Exact.Distance);

	// Near words of these lengths are other words.
	for (const auto& [Left, Other] : {std::pair(TEXT("Text"), TEXT("Next")), {TEXT("Activate"), TEXT("Deactivate")},
			 {TEXT("Rotation"), TEXT("Location")}, {TEXT("Enable"), TEXT("Disable")}, {TEXT("2D"), TEXT("3D")}})
	{
		const FKeywordSimilarity None = FAssetOperationBase::CalculateKeywordSimilarity(
			FAssetOperationBase::CreateKeywords(Left), FAssetOperationBase::CreateKeywords(Other));
		EXPECT_EQ(None.CommonCount, 0) << ToStd(Left) << " " << ToStd(Other);
		EXPECT_EQ(FAssetOperationBase::CalculateMatchConfidence(
					  FAssetOperationBase::CreateKeywords(Left), FAssetOperationBase::CreateKeywords(Other), None),
			0.0f);
	}
}

TEST(KeywordMatching, RequestsAsAgentsWriteThemFindTheirNode)
{
	struct FCase
	{
		const TCHAR* Title;
		const TCHAR* NodeClass;
		const TCHAR* Expected;
	};
	const FCase Cases[] = {
		{TEXT("PrintString"), TEXT("K2Node_CallFunction"), TEXT("Print String")},
		{TEXT("Print Text"), TEXT(""), TEXT("Print Text")},
		{TEXT("Set Actor Lcoation"), TEXT(""), TEXT("Set Actor Location")},
		{TEXT("Get Components By Class"), TEXT(""), TEXT("Get Components by Class")},
		{TEXT("Get Component By Class"), TEXT(""), TEXT("Get Component by Class")},
		{TEXT("Delya"), TEXT(""), TEXT("Delay")},
		{TEXT(""), TEXT("K2Node_IfThenElse"), TEXT("Branch")},
		{TEXT("Check Health"), TEXT("K2Node_IfThenElse"), TEXT("Branch")},
		{TEXT("Branch"), TEXT("K2Node_CallFunction"), TEXT("Branch")},
		{TEXT("Cast To Character"), TEXT("K2Node_DynamicCast"), TEXT("Cast To Character")},
		{TEXT("begin play"), TEXT(""), TEXT("Event BeginPlay")},
		{TEXT("on actor begin overlap"), TEXT(""), TEXT("Event ActorBeginOverlap")},
		{TEXT("Add (float)"), TEXT(""), TEXT("float + float")},
		{TEXT("Add_FloatFloat"), TEXT(""), TEXT("float + float")},
		{TEXT("int + int"), TEXT(""), TEXT("integer + integer")},
		{TEXT("float <= float"), TEXT(""), TEXT("float <= float")},
		{TEXT("Multiply (Vector, Float)"), TEXT(""), TEXT("vector * float")},
		{TEXT("Add"), TEXT("K2Node_PromotableOperator"), TEXT("Add")},
		{TEXT("int == int"), TEXT(""), TEXT("Equal (Integer)")},
		{TEXT("int to string"), TEXT(""), TEXT("To String (Integer)")},
		{TEXT("string to int"), TEXT(""), TEXT("String To Int")},
		{TEXT("Play Sounds 2D"), TEXT(""), TEXT("Play Sound 2D")},
		{TEXT("Set Text"), TEXT(""), TEXT("SetText (Text)")},
	};
	for (const FCase& Case : Cases)
	{
		const FKeywordHit Best = KeywordsTest::FindBest(Case.Title, Case.NodeClass);
		EXPECT_EQ(ToStd(KeywordsTest::Menu[Best.Entry].Title), ToStd(Case.Expected)) << ToStd(Case.Title);
		EXPECT_THAT(Best.Confidence, Ge(0.6f)) << ToStd(Case.Title);
	}
}

TEST(KeywordMatching, NonsenseStaysBelowTheThreshold)
{
	for (const TCHAR* const Title : {TEXT("Banana"), TEXT("asdfghjkl"), TEXT("Launch Nuclear Missile"),
			 TEXT("Get Foo Bar"), TEXT("Set Health"), TEXT("Make me a sandwich"), TEXT("Get"), TEXT("to"),
			 TEXT("Utilities"), TEXT("Play Football"), TEXT("Destroy Universe"), TEXT("Print Money Forever")})
	{
		for (const TCHAR* const NodeClass : {TEXT(""), TEXT("K2Node_CallFunction"), TEXT("K2Node_MacroInstance")})
		{
			EXPECT_THAT(KeywordsTest::FindBest(Title, NodeClass).Confidence, Lt(0.6f))
				<< ToStd(Title) << " " << ToStd(NodeClass);
		}
	}
	EXPECT_THAT(KeywordsTest::FindBest(TEXT(""), TEXT("K2Node_CallFunction")).Confidence, Lt(0.6f));
}

TEST(KeywordMatching, TitleNamedInFullIsCertain)
{
	for (const KeywordsTest::FAction& Action : KeywordsTest::Menu)
	{
		const FKeywordHit Best = KeywordsTest::FindBest(Action.Title, Action.NodeClass);
		EXPECT_EQ(ToStd(KeywordsTest::Menu[Best.Entry].Title), ToStd(Action.Title));
		EXPECT_EQ(Best.Confidence, 1.0f) << ToStd(Action.Title);
	}
}

TEST(KeywordIndex, AnswersWhatScoringEveryActionWould)
{
	std::mt19937 Random(7);
	const auto Pick = [&Random](int32 Count) { return static_cast<int32>(Random() % static_cast<uint32>(Count)); };
	const int32 NumActions = static_cast<int32>(std::size(KeywordsTest::Menu));
	const TCHAR* const Classes[] = {
		TEXT(""), TEXT("K2Node_CallFunction"), TEXT("K2Node_IfThenElse"), TEXT("MacroInstance")};
	for (int32 Round = 0; Round < 60; ++Round)
	{
		// Two titles run together, with a slip somewhere: many words in common with many actions.
		FString Title = FString(KeywordsTest::Menu[Pick(NumActions)].Title) + TEXT(" ")
			+ KeywordsTest::Menu[Pick(NumActions)].Title;
		const int32 At = Pick(Title.Len() - 1);
		std::swap(Title[At], Title[At + 1]);
		const TArray<FString> RequestTitle = FAssetOperationBase::CreateKeywords(Title);
		const TArray<FString> Request = KeywordsTest::RequestKeywords(*Title, Classes[Pick(4)]);

		const TArray<FKeywordHit> Hits = KeywordsTest::GetMenuIndex().FindBest(Request, RequestTitle, NumActions);
		const std::vector<int32> Expected = KeywordsTest::RankOneByOne(Request, RequestTitle);
		ASSERT_EQ(Hits.Num(), NumActions);
		for (int32 Index = 0; Index < NumActions; ++Index)
		{
			const FKeywordHit& Hit = Hits[Index];
			ASSERT_EQ(Hit.Entry, Expected[static_cast<std::size_t>(Index)]) << ToStd(Title) << " at " << Index;
			const TArray<FString> Action = KeywordsTest::ActionKeywords(KeywordsTest::Menu[Hit.Entry]);
			const FKeywordSimilarity Alone = FAssetOperationBase::CalculateKeywordSimilarity(Request, Action);
			ASSERT_EQ(Hit.Similarity.CommonCount, Alone.CommonCount) << ToStd(Title);
			ASSERT_EQ(Hit.Similarity.Distance, Alone.Distance) << ToStd(Title);
			ASSERT_EQ(Hit.Confidence, FAssetOperationBase::CalculateMatchConfidence(Request, Action, Alone))
				<< ToStd(Title);
		}
	}
}

TEST(KeywordIndex, TakesTheSameMenuInAgain)
{
	FKeywordIndex Index;
	for (int32 Round = 0; Round < 2; ++Round)
	{
		Index.Reset();
		EXPECT_EQ(Index.Add(TEXT("Delay"), TEXT("Flow Control"), TEXT("K2Node_CallFunction")), 0);
		EXPECT_EQ(Index.Add(TEXT("Branch"), TEXT("Flow Control"), TEXT("K2Node_IfThenElse")), 1);
		const TArray<FString> Request = FAssetOperationBase::CreateKeywords(TEXT("Branch"));
		const TArray<FKeywordHit> Hits = Index.FindBest(Request, Request, 5);
		ASSERT_EQ(Hits.Num(), 2);
		EXPECT_EQ(Hits[0].Entry, 1);
	}
}
