#include "KeywordSet.h"

#include "KeywordSenses.h"
#include "KeywordTypos.h"
#include "KeywordWords.h"

namespace KeywordTuning
{
// Distance: an unasked word in the title weighs more than one in category or class, since a category of three levels is
// no fault of the node's; a slip weighs more than a handful of either, so that an exact hit always goes first.
constexpr int32 UnaskedTitleWord = 4;
constexpr int32 UnaskedOtherWord = 1;
constexpr int32 Slip = 32;
/** The forms of the whole that every title has. */
constexpr int32 UsualWholes = 2;

/** What a found word is worth when it stands only in category or class: a request of such words alone must not pass. */
constexpr float OutsideTitle = 0.5f;
/** What a found word is worth by the number of its slips. */
constexpr float QualityBySlips[] = {1.0f, 0.85f, 0.7f};
/** Above 1, so that half a request that fits by chance ends well below the default threshold. */
constexpr float CoverageExponent = 1.5f;
/** Share of the confidence that unasked words of the title can take away. Small: short requests for long titles are
 * usual. */
constexpr float PrecisionShare = 0.15f;
/** Where less of a title than this was asked for, confidence falls with it. */
constexpr float ChancePrecision = 0.4f;
constexpr float ChanceOfFew = 0.75f;
/** How much of a title has to be asked for when its "Get", "Set" or "Is" was not. */
constexpr float AccessorOnly = 0.75f;
/** How much of "Get X Y" has to be in a title that begins with the verb, and of that title in the request. */
constexpr float AccessorCoverage = 0.8f;
constexpr float AccessorPrecision = 0.6f;
/** The best that anything but the whole title reaches. */
constexpr float PartialMax = 0.95f;
/** The whole title was named, but with another node class: the title counts. */
constexpr float OtherClass = 0.9f;
/** A node class that has one title was named: it is meant, whatever the rest says. */
constexpr float NamedClass = 0.65f;
/** A node class of many titles was named, and nothing else. */
constexpr float FamilyClassOnly = 0.3f;
/** A title of the opposite ("Unload" for "load") shares every other word, and is never meant. */
constexpr float OppositeMax = 0.3f;
/** Below this total weight a request says nothing ("get"); its confidence stops at VagueMax unless it is a title. */
constexpr float VagueWeight = 0.5f;
constexpr float VagueMax = 0.5f;
} // namespace KeywordTuning

namespace KeywordSetImpl
{
static bool IsWord(const FKeyword& Keyword)
{
	return Keyword.Kind == EKeywordKind::Word || Keyword.Kind == EKeywordKind::Name;
}

/** What of a request says which node is meant. */
struct FRequestParts
{
	/** The words up to here are those of the title; behind it are those of the node class. */
	int32 WordEnd = 0;
	/** INDEX_NONE when no class was named. */
	int32 NodeClass = INDEX_NONE;
	bool bHasTitleWords = false;
	/** Of the title. */
	int32 NumWeighty = 0;
	/** Of those, the ones that say more than hundreds of titles do. */
	int32 NumTelling = 0;
	/** What the most telling of them weighs. */
	float Heaviest = 0.0f;
};

static FRequestParts GetParts(const TArray<FKeyword>& Keywords)
{
	FRequestParts Parts;
	Parts.NodeClass = Keywords.IndexOfByPredicate(
		[](const FKeyword& Keyword) { return Keyword.Kind == EKeywordKind::NodeClass; });
	Parts.WordEnd = Parts.NodeClass == INDEX_NONE ? Keywords.Num() : Parts.NodeClass;
	for (int32 Index = 0; Index < Parts.WordEnd; ++Index)
	{
		Parts.bHasTitleWords |= IsWord(Keywords[Index]);
	}
	for (int32 Index = 0; Index < Parts.WordEnd; ++Index)
	{
		Parts.NumWeighty += IsWord(Keywords[Index]) ? 1 : 0;
		Parts.NumTelling += IsWord(Keywords[Index]) && Keywords[Index].Weight >= KeywordTuning::VagueWeight ? 1 : 0;
		Parts.Heaviest = IsWord(Keywords[Index]) ? FMath::Max(Parts.Heaviest, Keywords[Index].Weight) : Parts.Heaviest;
	}
	if (!Parts.bHasTitleWords)
	{
		Parts.WordEnd = Keywords.Num();
	}
	return Parts;
}

/** The weighted share of the request's words that the candidate has. */
static float GetCoverage(const TArray<FKeyword>& Request, int32 WordEnd, const KeywordMatch::FComparison& Comparison,
	int32 CandidateTitleCount, float& OutTotal)
{
	float Covered = 0.0f;
	OutTotal = 0.0f;
	for (int32 Index = 0; Index < WordEnd; ++Index)
	{
		if (!IsWord(Request[Index]))
		{
			continue;
		}
		OutTotal += Request[Index].Weight;
		const KeywordMatch::FFound& Found = Comparison.Found[Index];
		if (Found.Index != INDEX_NONE)
		{
			const float Place = Found.Index < CandidateTitleCount ? 1.0f : KeywordTuning::OutsideTitle;
			Covered += Request[Index].Weight * Place * KeywordTuning::QualityBySlips[Found.Edits];
		}
	}
	return OutTotal > 0.0f ? Covered / OutTotal : 0.0f;
}

/** The weighted share of the candidate's title words that the request has. */
static float GetPrecision(
	const TArray<FKeyword>& Candidate, int32 TitleCount, const KeywordMatch::FComparison& Comparison)
{
	float Asked = 0.0f;
	float Total = 0.0f;
	for (int32 Index = 0; Index < TitleCount; ++Index)
	{
		if (!IsWord(Candidate[Index]))
		{
			continue;
		}
		Total += Candidate[Index].Weight;
		const bool bAsked = Comparison.Found.ContainsByPredicate(
			[Index](const KeywordMatch::FFound& Found) { return Found.Index == Index; });
		Asked += bAsked ? Candidate[Index].Weight : 0.0f;
	}
	return Total > 0.0f ? Asked / Total : 0.0f;
}

static bool HasSense(const TArray<FKeyword>& Keywords, int32 End, const FString& Sense)
{
	for (int32 Index = 0; Index < End; ++Index)
	{
		if (Keywords[Index].Kind == EKeywordKind::Word
			&& Keywords[Index].Sense.Equals(Sense, ESearchCase::CaseSensitive))
		{
			return true;
		}
	}
	return false;
}

/** Whether the candidate's title undoes what the request asks for. */
static bool IsOpposite(
	const TArray<FKeyword>& Request, int32 WordEnd, const TArray<FKeyword>& Candidate, int32 CandidateTitleCount)
{
	const FString Not(TEXT("not"));
	if (HasSense(Request, WordEnd, Not) && !HasSense(Candidate, CandidateTitleCount, Not))
	{
		return true;
	}
	for (int32 Index = 0; Index < WordEnd; ++Index)
	{
		const FKeyword& Word = Request[Index];
		if (!Word.Opposite.IsEmpty() && HasSense(Candidate, CandidateTitleCount, Word.Opposite)
			&& !HasSense(Candidate, CandidateTitleCount, Word.Sense) && !HasSense(Request, WordEnd, Word.Opposite))
		{
			return true;
		}
	}
	return false;
}

/**
 * "Get X" and "Set X" are the names of variables and of functions that are one: a title with another verb or with much
 * else in it is about something else. True for any other request.
 */
static bool IsAccessorOf(const TArray<FKeyword>& Request, const FRequestParts& Parts, const TArray<FKeyword>& Candidate,
	float Coverage, float Precision)
{
	const FString Verb = Parts.bHasTitleWords && Parts.WordEnd > 0 ? Request[0].Text : FString();
	if (!Verb.Equals(TEXT("get"), ESearchCase::CaseSensitive) && !Verb.Equals(TEXT("set"), ESearchCase::CaseSensitive))
	{
		return true;
	}
	const bool bSameVerb = !Candidate.IsEmpty() && Candidate[0].Text.Equals(Verb, ESearchCase::CaseSensitive);
	const bool bOneWord = Parts.NumWeighty <= 2;
	return bSameVerb && Coverage >= KeywordTuning::AccessorCoverage
		&& Precision >= (bOneWord ? 1.0f : KeywordTuning::AccessorPrecision);
}

/** Whether the title begins with "Get", "Set", "Is" or "Has", and the request has it nowhere. */
static bool IsUnaskedAccessor(const TArray<FKeyword>& Request, const TArray<FKeyword>& Candidate)
{
	const FString First = Candidate.IsEmpty() ? FString() : Candidate[0].Text;
	const bool bAccessor = First.Equals(TEXT("get")) || First.Equals(TEXT("set")) || First.Equals(TEXT("is"))
		|| First.Equals(TEXT("has"));
	return bAccessor
		&& !Request.ContainsByPredicate([&First](const FKeyword& Word) { return Word.Text.Equals(First); });
}

/** Whether the title is all about one name, so that a title with another name is about something else. */
static bool IsOfNamedClass(const TArray<FKeyword>& Candidate, int32 TitleCount)
{
	for (int32 Index = TitleCount; Index < Candidate.Num(); ++Index)
	{
		if (Candidate[Index].Kind == EKeywordKind::NodeClass && KeywordWords::IsNamedClassName(Candidate[Index].Text))
		{
			return true;
		}
	}
	return false;
}

/** Whether the request names the candidate's title as a whole. */
static bool IsTitleNamed(
	const TArray<FKeyword>& Request, const KeywordMatch::FComparison& Comparison, int32 CandidateTitleCount)
{
	for (int32 Index = 0; Index < Request.Num(); ++Index)
	{
		const int32 Found = Comparison.Found[Index].Index;
		const bool bWhole = Request[Index].Kind == EKeywordKind::Whole || Request[Index].Kind == EKeywordKind::Literal;
		if (bWhole && Found != INDEX_NONE && Found < CandidateTitleCount)
		{
			return true;
		}
	}
	return false;
}
} // namespace KeywordSetImpl

FKeyword::FKeyword(const FString& Keyword)
	: Text(Keyword.ToLower())
{
	if (Text.StartsWith(TEXT("="), ESearchCase::CaseSensitive))
	{
		Kind = EKeywordKind::Whole;
	}
	else if (Text.StartsWith(TEXT("\""), ESearchCase::CaseSensitive))
	{
		Kind = EKeywordKind::Literal;
	}
	else if (Text.StartsWith(TEXT(":"), ESearchCase::CaseSensitive))
	{
		Kind = EKeywordKind::Name;
	}
	else if (Text.Contains(TEXT("_"), ESearchCase::CaseSensitive) || !Text.Equals(Keyword, ESearchCase::CaseSensitive))
	{
		// Words are made in lower case and without underscores; what differs was put in as it stood, as class names
		// are.
		Kind = EKeywordKind::NodeClass;
	}
	else
	{
		Weight = KeywordWords::GetWeight(Text);
		bWellKnown = KeywordWords::IsWellKnown(Text);
		Sense = KeywordSenses::GetSense(Text);
		Opposite = KeywordSenses::GetOpposite(Sense);
	}
	Prior = KeywordWords::GetPrior(Text);
}

FKeywordSet::FKeywordSet(const TArray<FString>& InKeywords)
{
	for (const FString& Keyword : InKeywords)
	{
		Add(FKeyword(Keyword));
	}
}

void FKeywordSet::Add(const FKeyword& Keyword)
{
	const bool bKnown = Keywords.ContainsByPredicate(
		[&Keyword](const FKeyword& Known) { return Known.Text.Equals(Keyword.Text, ESearchCase::CaseSensitive); });
	if (!bKnown)
	{
		Keywords.Add(Keyword);
	}
}

int32 FKeywordSet::GetTitleCount() const
{
	bool bInWhole = false;
	for (int32 Index = 0; Index < Keywords.Num(); ++Index)
	{
		const bool bWhole = Keywords[Index].Kind == EKeywordKind::Whole
			|| Keywords[Index].Kind == EKeywordKind::Literal;
		if (bInWhole && !bWhole)
		{
			return Index;
		}
		bInWhole = bWhole;
	}
	return Keywords.Num();
}

int32 FKeywordSet::CountWholes() const
{
	int32 Count = 0;
	for (int32 Index = 0; Index < GetTitleCount(); ++Index)
	{
		Count += Keywords[Index].Kind == EKeywordKind::Whole || Keywords[Index].Kind == EKeywordKind::Literal ? 1 : 0;
	}
	return Count;
}

int32 FKeywordSet::GetPrior() const
{
	int32 Sum = 0;
	for (const FKeyword& Keyword : Keywords)
	{
		Sum += Keyword.Prior;
	}
	return Sum;
}

int32 KeywordMatch::CountEdits(const FKeyword& Request, const FKeyword& Candidate)
{
	if (Request.Text.Equals(Candidate.Text, ESearchCase::CaseSensitive))
	{
		return 0;
	}
	if (Request.Kind != EKeywordKind::Word || Candidate.Kind != EKeywordKind::Word)
	{
		return INDEX_NONE;
	}
	if (Request.Sense.Equals(Candidate.Sense, ESearchCase::CaseSensitive))
	{
		return 1;
	}
	return !Request.bWellKnown ? KeywordTypos::CountEdits(Request.Text, Candidate.Text) : INDEX_NONE;
}

KeywordMatch::FComparison KeywordMatch::Compare(const FKeywordSet& Request, const FKeywordSet& Candidate)
{
	FComparison Comparison;
	const int32 TitleCount = Candidate.GetTitleCount();
	for (const FKeyword& Keyword : Request.GetKeywords())
	{
		FFound& Found = Comparison.Found.AddDefaulted_GetRef();
		// Title keywords come first, so of equally good ones the title's is kept.
		for (int32 Index = 0; Index < Candidate.Num() && (Found.Index == INDEX_NONE || Found.Edits > 0); ++Index)
		{
			const int32 Edits = CountEdits(Keyword, Candidate.GetKeywords()[Index]);
			if (Edits != INDEX_NONE && (Found.Index == INDEX_NONE || Edits < Found.Edits))
			{
				Found = {Index, Edits};
			}
		}
		if (Found.Index != INDEX_NONE)
		{
			++Comparison.CommonCount;
			Comparison.InTitleCount += Found.Index < TitleCount ? 1 : 0;
			Comparison.Edits += Found.Edits;
		}
	}
	return Comparison;
}

int32 KeywordMatch::GetDistance(int32 CandidateCount, int32 CandidateTitleCount, int32 NumWholes, int32 CommonCount,
	int32 InTitleCount, int32 Edits, int32 Prior)
{
	// Two words of a request may hit the same word of the candidate, hence the lower bounds. How many forms the whole
	// title has says nothing about how much of it was asked for.
	const int32 MoreForms = FMath::Max(0, NumWholes - KeywordTuning::UsualWholes);
	const int32 UnaskedInTitle = FMath::Max(0, CandidateTitleCount - MoreForms - InTitleCount);
	const int32 Unasked = FMath::Max(0, CandidateCount - CandidateTitleCount - (CommonCount - InTitleCount));
	return UnaskedInTitle * KeywordTuning::UnaskedTitleWord + Unasked * KeywordTuning::UnaskedOtherWord
		+ Edits * KeywordTuning::Slip + Prior;
}

FKeywordSimilarity KeywordMatch::MakeSimilarity(
	const TArray<FString>& Request, const FKeywordSet& RequestSet, const FKeywordSet& Candidate)
{
	const FComparison Comparison = Compare(RequestSet, Candidate);
	FKeywordSimilarity Similarity;
	for (int32 Index = 0; Index < RequestSet.Num(); ++Index)
	{
		if (Comparison.Found[Index].Index != INDEX_NONE)
		{
			const FString& Text = RequestSet.GetKeywords()[Index].Text;
			const FString* const AsWritten = Request.FindByPredicate(
				[&Text](const FString& Keyword) { return Keyword.Equals(Text, ESearchCase::IgnoreCase); });
			Similarity.CommonKeywords.Add(AsWritten ? *AsWritten : Text);
		}
	}
	Similarity.CommonCount = Comparison.CommonCount;
	Similarity.Distance = GetDistance(Candidate.Num(), Candidate.GetTitleCount(), Candidate.CountWholes(),
		Comparison.CommonCount, Comparison.InTitleCount, Comparison.Edits, Candidate.GetPrior());
	return Similarity;
}

bool KeywordMatch::IsWhole(const FKeywordSet& Request, const FKeywordSet& Candidate)
{
	return KeywordSetImpl::IsTitleNamed(Request.GetKeywords(), Compare(Request, Candidate), Candidate.GetTitleCount());
}

float KeywordMatch::GetConfidence(const FKeywordSet& Request, const FKeywordSet& Candidate)
{
	const FComparison Comparison = Compare(Request, Candidate);
	if (Comparison.CommonCount == 0)
	{
		return 0.0f;
	}
	const TArray<FKeyword>& Keywords = Request.GetKeywords();
	const KeywordSetImpl::FRequestParts Parts = KeywordSetImpl::GetParts(Keywords);
	const bool bClassNamed = Parts.NodeClass != INDEX_NONE;
	const bool bClassFound = bClassNamed && Comparison.Found[Parts.NodeClass].Index != INDEX_NONE;
	const bool bFamily = bClassNamed && KeywordWords::IsFamilyClassName(Keywords[Parts.NodeClass].Text);
	const int32 TitleCount = Candidate.GetTitleCount();
	if (KeywordSetImpl::IsTitleNamed(Keywords, Comparison, TitleCount))
	{
		return bClassNamed && !bClassFound ? KeywordTuning::OtherClass : 1.0f;
	}
	if (bFamily && !Parts.bHasTitleWords)
	{
		return KeywordTuning::FamilyClassOnly;
	}
	float TotalWeight = 0.0f;
	const float Coverage = KeywordSetImpl::GetCoverage(Keywords, Parts.WordEnd, Comparison, TitleCount, TotalWeight);
	const float Precision = KeywordSetImpl::GetPrecision(Candidate.GetKeywords(), TitleCount, Comparison);
	float Confidence = KeywordTuning::PartialMax * FMath::Pow(Coverage, KeywordTuning::CoverageExponent)
		* (1.0f - KeywordTuning::PrecisionShare * (1.0f - Precision));
	// A title that is mostly about something else has the words by chance.
	Confidence *= FMath::Min(1.0f, Precision / KeywordTuning::ChancePrecision);
	// "Respawn Player" is not "Get Player Respawn Delay".
	if (Precision < KeywordTuning::AccessorOnly && KeywordSetImpl::IsUnaskedAccessor(Keywords, Candidate.GetKeywords()))
	{
		Confidence = FMath::Min(Confidence, KeywordTuning::VagueMax);
	}
	if (!KeywordSetImpl::IsAccessorOf(Keywords, Parts, Candidate.GetKeywords(), Coverage, Precision))
	{
		Confidence = FMath::Min(Confidence, KeywordTuning::VagueMax);
	}
	if (Precision < 1.0f && KeywordSetImpl::IsOfNamedClass(Candidate.GetKeywords(), TitleCount))
	{
		Confidence = FMath::Min(Confidence, KeywordTuning::VagueMax);
	}
	if (KeywordSetImpl::IsOpposite(Keywords, Parts.WordEnd, Candidate.GetKeywords(), TitleCount))
	{
		Confidence = FMath::Min(Confidence, KeywordTuning::OppositeMax);
	}
	// Few words, one of them by another, and more in the title: that is chance.
	const bool bByChance = Comparison.Edits > 0 && Parts.NumWeighty <= 2 && Precision < KeywordTuning::ChanceOfFew;
	if (bByChance)
	{
		Confidence = FMath::Min(Confidence, KeywordTuning::VagueMax);
	}
	// One word stands in too many titles to mean one that has more of them.
	if (TotalWeight < KeywordTuning::VagueWeight || Parts.Heaviest < KeywordTuning::VagueWeight
		|| (Parts.NumTelling <= 1 && Precision < 1.0f))
	{
		Confidence = FMath::Min(Confidence, KeywordTuning::VagueMax);
	}
	if (bClassFound && !bFamily)
	{
		Confidence = FMath::Max(Confidence, KeywordTuning::NamedClass);
	}
	return Confidence;
}
