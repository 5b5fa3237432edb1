#pragma once

#include "CoreMinimal.h"
#include "KeywordSimilarity.h"

enum class EKeywordKind : uint8
{
	/** One word of a text. */
	Word,
	/** "=printstring": the text as a whole, so that a title named in full beats one that merely has its words. */
	Whole,
	/** The name of a node class. */
	NodeClass,
	/** ":mycharacter": a name as it is written, for which no other word stands. */
	Name,
	/** "\"add (array)": the text letter by letter, so that a title asked for word for word beats all that are like it.
	 */
	Literal,
};

/** A keyword with what comparing needs to know of it. */
struct MORVANETOOLKIT_API FKeyword
{
	FKeyword() = default;
	explicit FKeyword(const FString& Keyword);

	/** Lower case. */
	FString Text;
	EKeywordKind Kind = EKeywordKind::Word;
	float Weight = 1.0f;
	/** In a request, this word is meant as it stands. */
	bool bWellKnown = false;
	/** What the word means, for words: two of one sense are as near as words a slip apart. */
	FString Sense;
	/** The sense of what undoes or denies it; empty for most. */
	FString Opposite;
	/** How far a candidate that has the keyword is from what authors mean when they do not say. */
	int32 Prior = 0;
};

/** A list of keywords, prepared for comparison: each stands once, ignoring case. */
class MORVANETOOLKIT_API FKeywordSet
{
public:
	FKeywordSet() = default;
	explicit FKeywordSet(const TArray<FString>& InKeywords);

	void Add(const FKeyword& Keyword);
	const TArray<FKeyword>& GetKeywords() const { return Keywords; }
	int32 Num() const { return Keywords.Num(); }
	/**
	 * How many of the first keywords come from the title: those up to and with the keywords for the whole of it, which
	 * stand behind its words. What follows only describes. A list without a keyword for the whole is all title.
	 */
	int32 GetTitleCount() const;
	/** How many of those of the title stand for the whole of it. */
	int32 CountWholes() const;
	/** Of two candidates that fit a request as well, the one with the smaller sum is the usual one. */
	int32 GetPrior() const;

private:
	TArray<FKeyword> Keywords;
};

/** How one list of keywords fits another. */
namespace KeywordMatch
{
/** Where one keyword of the request was found. */
struct FFound
{
	/** Index into the candidate's keywords, INDEX_NONE when it was not found. */
	int32 Index = INDEX_NONE;
	int32 Edits = 0;
};

struct FComparison
{
	/** One for each keyword of the request. */
	TArray<FFound> Found;
	int32 CommonCount = 0;
	/** Of those in common, how many stand in the candidate's title. */
	int32 InTitleCount = 0;
	int32 Edits = 0;
};

/** INDEX_NONE unless the two are the same keyword (0), words of one sense (1) or words a slip apart. */
MORVANETOOLKIT_API int32 CountEdits(const FKeyword& Request, const FKeyword& Candidate);
MORVANETOOLKIT_API FComparison Compare(const FKeywordSet& Request, const FKeywordSet& Candidate);
/** Smaller is better; says something at equal common counts. Prior is the candidate's. */
MORVANETOOLKIT_API int32 GetDistance(int32 CandidateCount, int32 CandidateTitleCount, int32 NumWholes,
	int32 CommonCount, int32 InTitleCount, int32 Edits, int32 Prior);
MORVANETOOLKIT_API FKeywordSimilarity MakeSimilarity(
	const TArray<FString>& Request, const FKeywordSet& RequestSet, const FKeywordSet& Candidate);
/** Whether the request names the candidate's title as a whole, whatever else it says. */
MORVANETOOLKIT_API bool IsWhole(const FKeywordSet& Request, const FKeywordSet& Candidate);
/** From 0 to 1: how sure it is that the candidate is what the request means. */
MORVANETOOLKIT_API float GetConfidence(const FKeywordSet& Request, const FKeywordSet& Candidate);
} // namespace KeywordMatch
