#include "KeywordIndex.h"

#include "AssetOperationBase.h"
#include "KeywordTypos.h"

#include <algorithm>
#include <bit>
#include <tuple>

namespace KeywordIndexImpl
{
static uint32 GetLetters(const FString& Word)
{
	uint32 Letters = 0;
	for (const TCHAR Char : Word)
	{
		Letters |= 1u << (static_cast<uint32>(Char) % 32u);
	}
	return Letters;
}
} // namespace KeywordIndexImpl

uint32 GetKeywordTextHash(const FString& Text)
{
	uint32 Hash = 2166136261u;
	for (const TCHAR Char : Text)
	{
		Hash = (Hash ^ static_cast<uint32>(Char)) * 16777619u;
	}
	return Hash;
}

void FKeywordIndex::Reset()
{
	Entries.Reset();
	for (FVocable& Vocable : Vocables)
	{
		Vocable.InTitle.Reset();
		Vocable.Elsewhere.Reset();
	}
}

int32 FKeywordIndex::Add(const FString& Title, const FString& Category, const FString& NodeClass, bool bComesLast)
{
	const int32 Number = Entries.Num();
	FEntry Entry;
	Entry.bComesLast = bComesLast;
	Entry.Keywords = GetIds(TitleIds, Title, true);
	Entry.TitleCount = Entry.Keywords.Num();
	for (const int32 Vocable : GetIds(CategoryIds, Category, false))
	{
		Entry.Keywords.AddUnique(Vocable);
	}
	for (const int32 Vocable : GetIds(TitleIds, NodeClass, true))
	{
		Entry.Keywords.AddUnique(Vocable);
	}
	for (int32 Index = 0; Index < Entry.Keywords.Num(); ++Index)
	{
		FVocable& Vocable = Vocables[Entry.Keywords[Index]];
		const EKeywordKind Kind = Vocable.Keyword.Kind;
		const bool bWhole = Kind == EKeywordKind::Whole || Kind == EKeywordKind::Literal;
		Entry.NumWholes += bWhole && Index < Entry.TitleCount ? 1 : 0;
		(Index < Entry.TitleCount ? Vocable.InTitle : Vocable.Elsewhere).Add(Number);
		Entry.Prior += Vocable.Keyword.Prior;
	}
	Entries.Add(MoveTemp(Entry));
	return Number;
}

TArray<FKeywordHit> FKeywordIndex::FindBest(
	const TArray<FString>& Request, const TArray<FString>& RequestTitle, int32 MaxCount) const
{
	const FKeywordSet RequestSet(Request);
	TArray<FScore> Scores;
	Scores.SetNum(Entries.Num());
	ScoreRequest(RequestSet, Scores);
	ScoreTitle(FKeywordSet(RequestTitle), Scores);

	using FRank = std::tuple<bool, int32, int32, int32, int32>;
	TArray<FRank> Ranks;
	const auto AddRanks = [this, &Scores, &Ranks](bool bAnyInCommon)
	{
		for (int32 Number = 0; Number < Entries.Num(); ++Number)
		{
			const FScore& Score = Scores[Number];
			if ((Score.Common > 0) == bAnyInCommon && !Entries[Number].bComesLast)
			{
				const int32 Distance = KeywordMatch::GetDistance(Entries[Number].Keywords.Num(),
					Entries[Number].TitleCount, Entries[Number].NumWholes, Score.Common, Score.InTitle, Score.Edits,
					Entries[Number].Prior);
				Ranks.Emplace(!Score.bLiteral, -Score.Common, -Score.TitleCommon, Distance, Number);
			}
		}
	};
	AddRanks(true);
	if (Ranks.Num() < MaxCount)
	{
		AddRanks(false); // those with nothing in common stand behind all others, and are hardly ever asked for
	}
	const int32 Count = FMath::Clamp(MaxCount, 0, Ranks.Num());
	FRank* const First = Ranks.GetData();
	std::partial_sort(First, First + Count, First + Ranks.Num());

	TArray<FKeywordHit> Hits;
	for (int32 Index = 0; Index < Count; ++Index)
	{
		Hits.Add(MakeHit(std::get<4>(Ranks[Index]), Request, RequestSet));
	}
	return Hits;
}

int32 FKeywordIndex::FindOrAddVocable(const FString& Keyword)
{
	if (const int32* const Known = VocableByText.Find(Keyword))
	{
		return *Known;
	}
	FVocable& Vocable = Vocables.AddDefaulted_GetRef();
	Vocable.Keyword = FKeyword(Keyword);
	Vocable.Letters = KeywordIndexImpl::GetLetters(Vocable.Keyword.Text);
	VocableByText.Add(Keyword, Vocables.Num() - 1);
	if (Vocable.Keyword.Kind == EKeywordKind::Word)
	{
		WordsByLetter.FindOrAdd(Keyword[0]).Add(Vocables.Num() - 1);
		WordsBySense.FindOrAdd(Vocable.Keyword.Sense).Add(Vocables.Num() - 1);
	}
	return Vocables.Num() - 1;
}

const FKeywordIndex::FKeywordIds& FKeywordIndex::GetIds(
	TMapByKeywordText<FKeywordIds>& Memory, const FString& Text, bool bTitle)
{
	if (const FKeywordIds* const Known = Memory.Find(Text))
	{
		return *Known;
	}
	TArray<FString> Keywords;
	if (bTitle)
	{
		Keywords = FAssetOperationBase::CreateKeywords(Text);
	}
	else
	{
		FAssetOperationBase::AppendKeywords(Text, Keywords);
	}
	FKeywordIds Ids;
	for (const FString& Keyword : Keywords)
	{
		Ids.AddUnique(FindOrAddVocable(Keyword));
	}
	return Memory.Add(Text, MoveTemp(Ids));
}

TArray<FKeywordIndex::FNeighbour> FKeywordIndex::FindNeighbours(const FKeyword& Keyword) const
{
	TArray<FNeighbour> Neighbours;
	const FString& Text = Keyword.Text;
	if (const int32* const Same = VocableByText.Find(Text))
	{
		Neighbours.Add({*Same, 0});
	}
	if (Keyword.Kind == EKeywordKind::Word)
	{
		FindKin(Keyword, Neighbours);
	}
	if (Keyword.Kind == EKeywordKind::Word && !Keyword.bWellKnown && Text.Len() > 1)
	{
		FindSlips(Keyword, Text[0], Neighbours);
		if (Text[1] != Text[0])
		{
			FindSlips(Keyword, Text[1], Neighbours);
		}
	}
	Neighbours.StableSort([](const FNeighbour& Left, const FNeighbour& Right) { return Left.Edits < Right.Edits; });
	return Neighbours;
}

void FKeywordIndex::FindKin(const FKeyword& Keyword, TArray<FNeighbour>& OutNeighbours) const
{
	const TArray<int32>* const Words = WordsBySense.Find(Keyword.Sense);
	for (const int32 Index : Words ? *Words : TArray<int32>())
	{
		if (!Vocables[Index].Keyword.Text.Equals(Keyword.Text, ESearchCase::CaseSensitive))
		{
			OutNeighbours.Add({Index, 1});
		}
	}
}

void FKeywordIndex::FindSlips(const FKeyword& Keyword, TCHAR FirstLetter, TArray<FNeighbour>& OutNeighbours) const
{
	const TArray<int32>* const Words = WordsByLetter.Find(FirstLetter);
	if (!Words)
	{
		return;
	}
	const uint32 Letters = KeywordIndexImpl::GetLetters(Keyword.Text);
	for (const int32 Index : *Words)
	{
		const FVocable& Vocable = Vocables[Index];
		const int32 Tolerance = KeywordTypos::GetTolerance(Keyword.Text.Len(), Vocable.Keyword.Text.Len());
		if (Tolerance == 0 || std::popcount(Letters ^ Vocable.Letters) > 2 * Tolerance)
		{
			continue; // each edit changes at most two letters
		}
		const int32 Edits = KeywordMatch::CountEdits(Keyword, Vocable.Keyword);
		if (Edits > 0)
		{
			OutNeighbours.Add({Index, Edits});
		}
	}
}

void FKeywordIndex::ScoreRequest(const FKeywordSet& Request, TArray<FScore>& Scores) const
{
	for (int32 Stamp = 0; Stamp < Request.Num(); ++Stamp)
	{
		const TArray<FNeighbour> Neighbours = FindNeighbours(Request.GetKeywords()[Stamp]);
		const bool bLiteral = Request.GetKeywords()[Stamp].Kind == EKeywordKind::Literal;
		const auto Count = [&Scores, Stamp, bLiteral](const TArray<int32>& Numbers, int32 Edits, bool bInTitle)
		{
			for (const int32 Number : Numbers)
			{
				FScore& Score = Scores[Number];
				if (Score.Stamp != Stamp)
				{
					Score.Stamp = Stamp;
					++Score.Common;
					Score.bLiteral |= bLiteral;
					Score.InTitle += bInTitle ? 1 : 0;
					Score.Edits += Edits;
				}
			}
		};
		// Fewer edits first, and the title first among equals: that is the one that a comparison keeps.
		for (int32 First = 0; First < Neighbours.Num();)
		{
			int32 End = First;
			while (End < Neighbours.Num() && Neighbours[End].Edits == Neighbours[First].Edits)
			{
				++End;
			}
			for (int32 Index = First; Index < End; ++Index)
			{
				Count(Vocables[Neighbours[Index].Vocable].InTitle, Neighbours[Index].Edits, true);
			}
			for (int32 Index = First; Index < End; ++Index)
			{
				Count(Vocables[Neighbours[Index].Vocable].Elsewhere, Neighbours[Index].Edits, false);
			}
			First = End;
		}
	}
}

void FKeywordIndex::ScoreTitle(const FKeywordSet& Title, TArray<FScore>& Scores) const
{
	for (FScore& Score : Scores)
	{
		Score.Stamp = INDEX_NONE;
	}
	for (int32 Stamp = 0; Stamp < Title.Num(); ++Stamp)
	{
		for (const FNeighbour& Neighbour : FindNeighbours(Title.GetKeywords()[Stamp]))
		{
			for (const int32 Number : Vocables[Neighbour.Vocable].InTitle)
			{
				FScore& Score = Scores[Number];
				if (Score.Stamp != Stamp)
				{
					Score.Stamp = Stamp;
					++Score.TitleCommon;
				}
			}
		}
	}
}

TArray<FKeywordHit> FKeywordIndex::FindNamed(
	const TArray<FString>& Request, const TArray<FString>& RequestTitle, bool bOfLast) const
{
	const FKeywordSet RequestSet(Request);
	const FKeywordSet TitleSet(RequestTitle);
	TArray<int32> Named;
	TSet<int32> Literal;
	for (const FKeyword& Keyword : TitleSet.GetKeywords())
	{
		const bool bLiteral = Keyword.Kind == EKeywordKind::Literal;
		const int32* const Vocable = bLiteral || Keyword.Kind == EKeywordKind::Whole ? VocableByText.Find(Keyword.Text)
																					 : nullptr;
		for (const int32 Entry : Vocable ? Vocables[*Vocable].InTitle : TArray<int32>())
		{
			Named.AddUnique(Entry);
			if (bLiteral)
			{
				Literal.Add(Entry);
			}
		}
	}
	using FRank = std::tuple<bool, int32, int32, int32, int32>;
	TArray<TPair<FRank, FKeywordHit>> Ranked;
	for (const int32 Entry : Named)
	{
		if (Entries[Entry].bComesLast == bOfLast)
		{
			const FKeywordHit Hit = MakeHit(Entry, Request, RequestSet);
			const int32 TitleCommon = KeywordMatch::Compare(TitleSet, GetKeywords(Entry)).InTitleCount;
			Ranked.Emplace(FRank(!Literal.Contains(Entry), -Hit.Similarity.CommonCount, -TitleCommon,
							   Hit.Similarity.Distance, Entry),
				Hit);
		}
	}
	Ranked.Sort([](const auto& Left, const auto& Right) { return Left.Key < Right.Key; });
	TArray<FKeywordHit> Hits;
	for (const auto& [Rank, Hit] : Ranked)
	{
		Hits.Add(Hit);
	}
	return Hits;
}

FKeywordSet FKeywordIndex::GetKeywords(int32 Entry) const
{
	FKeywordSet Keywords;
	for (const int32 Vocable : Entries[Entry].Keywords)
	{
		Keywords.Add(Vocables[Vocable].Keyword);
	}
	return Keywords;
}

FKeywordHit FKeywordIndex::MakeHit(int32 Entry, const TArray<FString>& Request, const FKeywordSet& RequestSet) const
{
	const FKeywordSet Candidate = GetKeywords(Entry);
	FKeywordHit Hit;
	Hit.Entry = Entry;
	Hit.Similarity = KeywordMatch::MakeSimilarity(Request, RequestSet, Candidate);
	Hit.bWhole = KeywordMatch::IsWhole(RequestSet, Candidate);
	Hit.Confidence = KeywordMatch::GetConfidence(RequestSet, Candidate);
	return Hit;
}
