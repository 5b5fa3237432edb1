#pragma once

#include "CoreMinimal.h"
#include "KeywordSet.h"

/** One entry that fits a request. */
struct FKeywordHit
{
	/** The entry's number, in the order of addition. */
	int32 Entry = INDEX_NONE;
	FKeywordSimilarity Similarity;
	float Confidence = 0.0f;
	/** The request named the title as a whole. */
	bool bWhole = false;
};

/** The hash of a text as it is spelled. */
MORVANETOOLKIT_API uint32 GetKeywordTextHash(const FString& Text);

/** Texts are remembered as they are spelled. */
template <typename ValueType>
struct TKeywordTextKeyFuncs : TDefaultMapKeyFuncs<FString, ValueType, false>
{
	static bool Matches(const FString& Left, const FString& Right)
	{
		return Left.Equals(Right, ESearchCase::CaseSensitive);
	}
	static uint32 GetKeyHash(const FString& Text) { return GetKeywordTextHash(Text); }
};

template <typename ValueType>
using TMapByKeywordText = TMap<FString, ValueType, FDefaultSetAllocator, TKeywordTextKeyFuncs<ValueType>>;

/**
 * The entries of an action menu by their keywords. It answers what scoring every entry with FAssetOperationBase would,
 * in a fraction of the time: for each keyword it knows the entries that have it.
 */
class MORVANETOOLKIT_API FKeywordIndex
{
public:
	/** Forgets the entries, not what it has learned about their texts, so that the same menu is taken in again cheaply.
	 */
	void Reset();

	/**
	 * Adds an action with the keywords of its title, its category and its node class. Answers its number. One that
	 * comes last stands behind all others, however well it fits.
	 */
	int32 Add(const FString& Title, const FString& Category, const FString& NodeClass, bool bComesLast = false);
	int32 Num() const { return Entries.Num(); }

	/**
	 * The best entries, best first: the title word for word, then more keywords in common with the request, then more
	 * in common between the request's title and the entry's title, then the smaller distance, then the earlier entry.
	 */
	TArray<FKeywordHit> FindBest(
		const TArray<FString>& Request, const TArray<FString>& RequestTitle, int32 MaxCount) const;
	/**
	 * Those alone whose title the request names as a whole, in the same order: of those that come last, or of the
	 * others.
	 */
	TArray<FKeywordHit> FindNamed(
		const TArray<FString>& Request, const TArray<FString>& RequestTitle, bool bOfLast = false) const;

private:
	/** The keywords of one text. */
	using FKeywordIds = TArray<int32>;

	struct FEntry
	{
		FKeywordIds Keywords;
		int32 TitleCount = 0;
		/** Of those of the title, the forms of the whole of it. */
		int32 NumWholes = 0;
		int32 Prior = 0;
		bool bComesLast = false;
	};

	/** A keyword and the entries that have it, in title or elsewhere. */
	struct FVocable
	{
		FKeyword Keyword;
		/** One bit for each letter of the word: two words a slip apart differ in few. */
		uint32 Letters = 0;
		TArray<int32> InTitle;
		TArray<int32> Elsewhere;
	};

	/** What a query has found out about one entry. */
	struct FScore
	{
		int32 Common = 0;
		int32 InTitle = 0;
		int32 TitleCommon = 0;
		int32 Edits = 0;
		bool bLiteral = false;
		/** The last keyword of the request that was counted here, so that none counts twice. */
		int32 Stamp = INDEX_NONE;
	};

	/** A keyword of the index that one of the request stands for. */
	struct FNeighbour
	{
		int32 Vocable = INDEX_NONE;
		int32 Edits = 0;
	};

	int32 FindOrAddVocable(const FString& Keyword);
	const FKeywordIds& GetIds(TMapByKeywordText<FKeywordIds>& Memory, const FString& Text, bool bTitle);
	/** By rising number of edits. */
	TArray<FNeighbour> FindNeighbours(const FKeyword& Keyword) const;
	/** Other words of the keyword's sense. */
	void FindKin(const FKeyword& Keyword, TArray<FNeighbour>& OutNeighbours) const;
	void FindSlips(const FKeyword& Keyword, TCHAR FirstLetter, TArray<FNeighbour>& OutNeighbours) const;
	void ScoreRequest(const FKeywordSet& Request, TArray<FScore>& Scores) const;
	void ScoreTitle(const FKeywordSet& Title, TArray<FScore>& Scores) const;
	FKeywordSet GetKeywords(int32 Entry) const;
	FKeywordHit MakeHit(int32 Entry, const TArray<FString>& Request, const FKeywordSet& RequestSet) const;

	TArray<FEntry> Entries;
	TArray<FVocable> Vocables;
	TMapByKeywordText<int32> VocableByText;
	/** The words among the vocables by their first letter: a slip leaves it alone or swaps it with the second. */
	TMap<TCHAR, TArray<int32>> WordsByLetter;
	TMapByKeywordText<TArray<int32>> WordsBySense;
	TMapByKeywordText<FKeywordIds> TitleIds;
	TMapByKeywordText<FKeywordIds> CategoryIds;
};
