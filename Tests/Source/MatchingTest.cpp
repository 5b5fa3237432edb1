#include "AssetOperationBase.h"
#include "BlueprintActionMenuItem.h"
#include "BlueprintNodeSpawner.h"
#include "Populating.h"
#include "RequestSets.h"
#include "Spawning/CamMatching.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <sstream>
#include <tuple>

namespace MatchingTest
{
/** The menu of an Actor Blueprint's event graph. */
struct FMenu
{
	FMenu() { Menu = FBlueprintCamMatching::BuildSharedCAM(*Blueprint.EventGraph().Get(), Result); }

	FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();
	TSharedPtr<FSharedActionMenu> Menu;

	TArray<FCamCandidate> Find(const char* MenuTitle, const char* ClassName = "") const
	{
		FBPNodeModification Record;
		Record.MenuTitle = UTF8_TO_TCHAR(MenuTitle);
		Record.ClassName = UTF8_TO_TCHAR(ClassName);
		return FBlueprintCamMatching::FindCamMatches(Record, *Menu);
	}
};

static bool IsOneOf(const FString& Title, const std::string& Expected)
{
	std::istringstream Titles(Expected);
	for (std::string One; std::getline(Titles, One, '|');)
	{
		if (Title.Equals(UTF8_TO_TCHAR(One.c_str()), ESearchCase::IgnoreCase))
		{
			return true;
		}
	}
	return false;
}

static std::string Describe(const TArray<FCamCandidate>& Candidates)
{
	std::ostringstream Text;
	for (int32 Index = 0; Index < FMath::Min(Candidates.Num(), 2); ++Index)
	{
		const FCamCandidate& Candidate = Candidates[Index];
		Text << (Index ? ", " : "") << ToStd(Candidate.MenuTitle) << " [" << ToStd(Candidate.MenuCategory) << "] "
			 << Candidate.Confidence;
	}
	return Text.str();
}

constexpr float Threshold = 0.6f;

/** Titles of two words and more from all over the menu, no two of them alike. */
static std::vector<std::string> SampleTitles(const FSharedActionMenu& Menu, std::size_t Count)
{
	TSet<FString> Known;
	std::vector<std::string> Titles;
	for (int32 Index = 0; Index < Menu.GetNumActions() && Titles.size() < Count; Index += 61)
	{
		const FString Title = Menu.GetSchemaAction(Index)->GetMenuDescription().ToString();
		const bool bPlain = Title.Contains(TEXT(" ")) && !Title.Contains(TEXT("(")) && !Title.Contains(TEXT("."));
		const FString Category = Menu.GetSchemaAction(Index)->GetCategory().ToString();
		if (bPlain && !Category.StartsWith(TEXT("Class|")) && !Known.Contains(Title))
		{
			Known.Add(Title);
			Titles.push_back(ToStd(Title));
		}
	}
	return Titles;
}

static std::string ToLowerCase(std::string Title)
{
	std::transform(Title.begin(), Title.end(), Title.begin(), [](unsigned char Char) { return std::tolower(Char); });
	return Title;
}

static std::string ToSnakeCase(std::string Title)
{
	Title = ToLowerCase(Title);
	std::replace(Title.begin(), Title.end(), ' ', '_');
	return Title;
}

static std::string ToCamelCase(std::string Title)
{
	std::string Joined;
	bool bFirst = true;
	for (const char Char : Title)
	{
		if (Char != ' ')
		{
			Joined += bFirst ? static_cast<char>(std::toupper(static_cast<unsigned char>(Char))) : Char;
		}
		bFirst = Char == ' ';
	}
	return Joined;
}

/** In the middle of the longest word. */
static std::string SwapTwoLetters(std::string Title)
{
	std::size_t Best = 0;
	std::size_t BestLength = 0;
	for (std::size_t Start = 0; Start < Title.size();)
	{
		const std::size_t End = std::min(Title.find(' ', Start), Title.size());
		if (End - Start > BestLength)
		{
			Best = Start;
			BestLength = End - Start;
		}
		Start = End + 1;
	}
	if (BestLength >= 5)
	{
		std::swap(Title[Best + BestLength / 2], Title[Best + BestLength / 2 - 1]);
	}
	return Title;
}

/** An action's keywords as each of them would be scored alone. */
static TArray<FString> ActionKeywords(const FCamCandidate& Candidate)
{
	TArray<FString> Keywords = FAssetOperationBase::CreateKeywords(Candidate.MenuTitle);
	FAssetOperationBase::AppendKeywords(Candidate.MenuCategory, Keywords);
	for (const FString& Keyword : FAssetOperationBase::CreateKeywords(Candidate.NodeClass))
	{
		Keywords.AddUnique(Keyword);
	}
	return Keywords;
}
} // namespace MatchingTest

using namespace MatchingTest;

/** Of the set of titles, those of a kind: kind, node class, request and the titles that are meant. */
static std::vector<FRequestColumns> ReadTitleRequests(const std::string& Kind)
{
	std::vector<FRequestColumns> Lines = ReadRequestSet("titles.tsv");
	std::erase_if(Lines, [&Kind](const FRequestColumns& Line) { return Line.at(0) != Kind; });
	return Lines;
}

TEST(Matching, LooseRequestsFindWhatAnAuthorMeans)
{
	const FMenu Menu;
	int32 Right = 0;
	std::string Missed;
	const std::vector<FRequestColumns> Requests = ReadTitleRequests("meant");
	for (const FRequestColumns& Request : Requests)
	{
		const TArray<FCamCandidate> Found = Menu.Find(Request.at(2).c_str(), Request.at(1).c_str());
		ASSERT_FALSE(Found.IsEmpty());
		if (IsOneOf(Found[0].MenuTitle, Request.at(3)) && Found[0].Confidence >= Threshold)
		{
			++Right;
			continue;
		}
		Missed += "\n  " + Request.at(2) + " -> " + Describe(Found);
	}
	const int32 Total = static_cast<int32>(Requests.size());
	RecordProperty("right", Right);
	RecordProperty("total", Total);
	EXPECT_GE(Right * 100, Total * 95) << Right << " of " << Total << Missed;
}

TEST(Matching, OtherSpellingsOfATitleFindIt)
{
	const FMenu Menu;
	const std::vector<std::pair<const char*, std::string (*)(std::string)>> Spellings = {{"lower case", &ToLowerCase},
		{"joined", &ToCamelCase}, {"prefixed", [](std::string Title) { return "K2_" + ToCamelCase(Title); }},
		{"underscores", &ToSnakeCase}, {"slip", &SwapTwoLetters},
		{"node", [](std::string Title) { return "the " + Title + " node"; }}};
	const std::vector<std::string> Titles = SampleTitles(*Menu.Menu, 400);
	for (const auto& [Name, Spell] : Spellings)
	{
		int32 Right = 0;
		int32 Asked = 0;
		std::string Missed;
		for (const std::string& Title : Titles)
		{
			const std::string Request = Spell(Title);
			if (Spell == &SwapTwoLetters && Title.starts_with("Cast To "))
			{
				continue; // the name of a class is meant as it is written
			}
			const TArray<FCamCandidate> Found = Menu.Find(Request.c_str());
			const bool bRight = IsOneOf(Found[0].MenuTitle, Title) && Found[0].Confidence >= Threshold;
			++Asked;
			Right += bRight ? 1 : 0;
			Missed += bRight ? "" : "\n  " + Request + " -> " + Describe(Found);
		}
		EXPECT_GE(Right * 100, Asked * 90) << Name << Missed;
	}
}

TEST(Matching, NonsenseStaysBelowTheThreshold)
{
	const FMenu Menu;
	int32 Wrong = 0;
	int32 Total = 0;
	std::string Spawned;
	for (const FRequestColumns& Request : ReadTitleRequests("nonsense"))
	{
		const std::string& Title = Request.at(2);
		for (const char* const ClassName : {"", "K2Node_CallFunction"})
		{
			const TArray<FCamCandidate> Found = Menu.Find(Title.c_str(), ClassName);
			++Total;
			if (Found[0].Confidence >= Threshold)
			{
				++Wrong;
				Spawned += "\n  " + Title + " -> " + Describe(Found);
			}
		}
	}
	EXPECT_LT(Wrong * 100, Total * 2) << Wrong << " of " << Total << Spawned;
}

TEST(Matching, TheBestIsWhatScoringEveryActionAloneGives)
{
	const FMenu Menu;
	std::vector<FCamCandidate> Actions;
	for (int32 Index = 0; Index < Menu.Menu->GetNumActions(); Index += 7)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Menu.Menu->GetSchemaAction(Index);
		FCamCandidate Candidate;
		Candidate.MenuTitle = Action->GetMenuDescription().ToString();
		Candidate.MenuCategory = Action->GetCategory().ToString();
		if (Action->GetTypeId() == FBlueprintActionMenuItem::StaticGetTypeId())
		{
			const auto& Item = static_cast<const FBlueprintActionMenuItem&>(*Action);
			Candidate.NodeClass = Item.GetRawAction()->NodeClass->GetName();
		}
		// Variables of other classes stand behind everything.
		if (!Candidate.NodeClass.StartsWith(TEXT("K2Node_Variable")))
		{
			Actions.push_back(Candidate);
		}
	}
	for (const char* const Title : {"Set Actor Lcoation", "hide mesh component", "get random float in range please"})
	{
		const TArray<FString> Request = FAssetOperationBase::CreateKeywords(UTF8_TO_TCHAR(Title));
		const FCamCandidate Best = Menu.Find(Title)[0];
		for (const FCamCandidate& Action : Actions)
		{
			const auto Rank = [&Request](const FCamCandidate& Of)
			{
				const FKeywordSimilarity All = FAssetOperationBase::CalculateKeywordSimilarity(
					Request, ActionKeywords(Of));
				const FKeywordSimilarity InTitle = FAssetOperationBase::CalculateKeywordSimilarity(
					Request, FAssetOperationBase::CreateKeywords(Of.MenuTitle));
				return std::tuple(-All.CommonCount, -InTitle.CommonCount, All.Distance);
			};
			ASSERT_LE(Rank(Best), Rank(Action)) << Title << ": " << ToStd(Action.MenuTitle);
		}
	}
}

TEST(Matching, MoreCommonWordsGoBeforeMoreConfidence)
{
	const FMenu Menu;
	const TArray<FCamCandidate> Found = Menu.Find("shine light brightness");
	ASSERT_EQ(Found.Num(), int32(FBlueprintCamMatching::MaxShown));
	for (int32 Index = 1; Index < Found.Num(); ++Index)
	{
		EXPECT_GE(Found[Index - 1].CommonKeywords.CommonCount, Found[Index].CommonKeywords.CommonCount);
	}
	const auto IsMoreConfident = [&Found](int32 Index)
	{ return Found[Index].Confidence > Found[Index - 1].Confidence; };
	bool bAny = false;
	for (int32 Index = 1; Index < Found.Num(); ++Index)
	{
		bAny |= IsMoreConfident(Index);
	}
	EXPECT_TRUE(bAny) << "confidence is no sort key";
}

TEST(Matching, SchemaActionsStandInTheMenuWithTheirClass)
{
	const FMenu Menu;
	const FCamCandidate Comment = Menu.Find("Add Comment")[0];
	EXPECT_EQ(ToStd(Comment.MenuTitle), "Add Comment");
	EXPECT_EQ(ToStd(Comment.NodeClass), "EdGraphNode_Comment");
	EXPECT_EQ(Telemetry(Menu.Result).find(R"({"cam_build_time_ms":)"), 0u);
	EXPECT_NE(Telemetry(Menu.Result).find(R"("context_sensitive":false)"), std::string::npos);
}

TEST(Matching, AnEmptyMenuHasNoCandidates)
{
	const FSharedActionMenu Empty;
	EXPECT_TRUE(FBlueprintCamMatching::FindCamMatches(FBPNodeModification(), Empty).IsEmpty());
}

TEST(Matching, CandidatesAreToldOncePerFailedRequest)
{
	Morvane::FToolResult Result = MakeResult();
	TArray<FCamCandidate> Many;
	Many.SetNum(25);
	for (FCamCandidate& Candidate : Many)
	{
		Candidate.Confidence = 0.5f;
	}
	Many[0].MenuTitle = TEXT("Delay");
	Many[0].CommonKeywords.CommonKeywords = {TEXT("delay")};
	FBlueprintCamMatching::RecordCandidateMatches(Many, Result, TEXT("n1"));
	// Those that fit by chance alone are left out.
	FBlueprintCamMatching::RecordCandidateMatches({FCamCandidate(), FCamCandidate()}, Result, TEXT(""));
	const TArray<TSharedPtr<FJsonValue>>& Entries =
		Result.GetDatas()->GetObjectField(TEXT("telemetry"))->GetArrayField(TEXT("candidate_matches"));
	ASSERT_EQ(Entries.Num(), 2);
	const TArray<TSharedPtr<FJsonValue>>& Told = Entries[0]->AsObject()->GetArrayField(TEXT("candidates"));
	EXPECT_EQ(Told.Num(), 20);
	EXPECT_EQ(JsonText(Told[0]->AsObject()),
		R"({"menu_title":"Delay","node_class":"","menu_category":"","confidence":0.5,"common_keywords":["delay"]})");
	EXPECT_EQ(JsonText(Entries[1]->AsObject()), R"({"candidates":[]})");
}
