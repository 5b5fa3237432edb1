#include "Spawning/CamSearch.h"

#include "AssetOperationBase.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "NameLetters.h"
#include "UObject/UnrealType.h"

namespace CamSearch
{
/** Every word that was asked for, and hardly any other. */
constexpr float Close = 0.88f;
/** As good as the default threshold: what is read into a request has to be sure without being asked for. */
constexpr float Sure = 0.6f;

/** A title of this many letters is meant though one letter is missing or too much, in however short a word. */
constexpr int32 LeastForSlip = 8;
constexpr float OneLetter = 0.8f;

/** Where this many other titles fit as well to within this, none of them is meant. */
constexpr int32 TooManyAlike = 2;
constexpr float Alike = 0.02f;

/** One letter too few or too many, or two neighbours swapped. */
static bool IsSlip(const FString& Asked, const FString& Title)
{
	const int32 Longer = FMath::Max(Asked.Len(), Title.Len());
	int32 Left = 0;
	int32 Right = 0;
	const int32 Shorter = FMath::Min(Asked.Len(), Title.Len());
	if (Longer - Shorter > 1)
	{
		return false;
	}
	while (Left < Shorter && Asked[Left] == Title[Left])
	{
		++Left;
	}
	while (Right < Shorter - Left && Asked[Asked.Len() - 1 - Right] == Title[Title.Len() - 1 - Right])
	{
		++Right;
	}
	const bool bSwapped = Longer == Shorter && Left + Right == Shorter - 2 && Asked[Left] == Title[Left + 1]
		&& Asked[Left + 1] == Title[Left];
	return bSwapped || (Longer > Shorter && Left + Right == Shorter);
}

/** What was read in two ways is looked for once. */
static void DropRepeated(TArray<FRequestReading>& InOutReadings)
{
	TSet<FString> Known;
	InOutReadings.RemoveAll(
		[&Known](const FRequestReading& Reading)
		{
			const FString Key = Reading.Title + TEXT("\n") + Reading.Owner + TEXT("\n") + Reading.NodeClass + TEXT("\n")
				+ Reading.PinWords + (Reading.bOfAnother ? TEXT("+") : TEXT("-"))
				+ FString::FromInt(static_cast<int32>(Reading.Fit));
			bool bKnown = false;
			Known.Add(Key, &bKnown);
			return bKnown;
		});
}

static bool IsOneWord(const FString& Text)
{
	int32 Blank = INDEX_NONE;
	return !Text.FindChar(TEXT(' '), Blank);
}
} // namespace CamSearch

FCamSearch::FCamSearch(const FSharedActionMenu& InMenu)
	: Menu(InMenu)
	, Index(FCamMenuIndex::For(InMenu))
{
	Scope.FindVariable = [this](const FString& Name) { return FindVariable(Name); };
}

TArray<FCamCandidate> FCamSearch::Find(const FString& MenuTitle, const FString& NodeClass, bool bTargetIsWired)
{
	TArray<FCamCandidate> Candidates;
	FHits Hits = FindHits(MenuTitle, NodeClass, bTargetIsWired);
	if (!Hits.IsEmpty() && Hits[0].Confidence < CamSearch::Sure)
	{
		KeepNear(MenuTitle, Hits);
	}
	for (const FKeywordHit& Hit : Hits)
	{
		if (Candidates.Num() < FBlueprintCamMatching::MaxShown)
		{
			Candidates.Add(Index.MakeCandidate(Hit));
		}
	}
	return Candidates;
}

FCamSearch::FHits FCamSearch::FindHits(const FString& MenuTitle, const FString& NodeClass, bool bTargetIsWired)
{
	FRequestReadings Readings;
	FHits Named = FindNamed(MenuTitle, NodeClass, Readings);
	if (!Named.IsEmpty())
	{
		return Named;
	}
	// Behind everything else, and still what was named.
	FHits Last = Index.FindNamed(MenuTitle, NodeClass, true)
					 .FilterByPredicate([this, bTargetIsWired](const FKeywordHit& Hit)
						 { return bTargetIsWired || Index.MakeCandidate(Hit).NodeClass.Contains(TEXT("Latent")); });
	if (!Last.IsEmpty())
	{
		return Last;
	}
	FHits Hits = Index.FindBest(MenuTitle, NodeClass);
	PutOwnFirst(Hits);
	PutSlipFirst(MenuTitle, Hits);
	const bool bStranger = !Hits.IsEmpty() && !Hits[0].bWhole && Hits[0].Confidence < CamSearch::Close
		&& Index.IsOfStranger(Hits[0].Entry);
	const bool bRefused = IsAmbiguous(Hits) || Readings.bOnlyReadings || bStranger || IsTypeName(MenuTitle)
		|| (!Hits.IsEmpty() && Hits[0].Confidence >= CamSearch::Sure && !ExplainGraph(MenuTitle, NodeClass).IsEmpty());
	for (FKeywordHit& Hit : Hits)
	{
		Hit.Confidence = bRefused || IsOfOtherNumber(Hit.Entry, MenuTitle)
			? FMath::Min(Hit.Confidence, FCamSearch::Unsure)
			: Hit.Confidence;
	}
	return Hits;
}

FCamSearch::FHits FCamSearch::FindNamed(
	const FString& MenuTitle, const FString& NodeClass, FRequestReadings& OutReadings)
{
	FHits Written = FindTitled(MenuTitle, NodeClass);
	PutOwnFirst(Written);
	const bool bOwnVariable = !CamSearch::IsOneWord(MenuTitle.TrimStartAndEnd()) && Index.FindVariable(MenuTitle);
	if (bOwnVariable && !Written.IsEmpty() && Index.GetOwnerRank(Written[0].Entry) > 0)
	{
		Written = FindTitled(TEXT("Get ") + MenuTitle, NodeClass); // "is open", where "Is Open" is a variable here
	}
	if (IsWordForWord(Written, MenuTitle))
	{
		return Written;
	}
	if (FRequestReader::IsOfOneTitle(NodeClass))
	{
		const FHits OfClass = Index.FindBest(MenuTitle, NodeClass);
		if (!OfClass.IsEmpty()
			&& Index.MakeCandidate(OfClass[0]).NodeClass.EndsWith(NodeClass, ESearchCase::IgnoreCase))
		{
			return OfClass;
		}
	}
	OutReadings = FRequestReader::Read(MenuTitle, Scope);
	if (!Written.IsEmpty() && !OutReadings.bCode && !Index.IsOfStranger(Written[0].Entry))
	{
		return Written;
	}
	for (const FRequestReading& Reading : FRequestReader::ReadAsMember(MenuTitle, NodeClass))
	{
		const FHits Hits = FindReading(Reading);
		const bool bStruct = NodeClass.EndsWith(TEXT("Struct"), ESearchCase::IgnoreCase);
		if (!Hits.IsEmpty()
			&& (bStruct || Index.MakeCandidate(Hits[0]).NodeClass.Equals(NodeClass, ESearchCase::IgnoreCase)))
		{
			return Hits;
		}
	}
	const bool bOneWord = CamSearch::IsOneWord(MenuTitle.TrimStartAndEnd());
	FHits Members = bOneWord ? FindMembers(MenuTitle.TrimStartAndEnd(), FRequestReading()) : FHits();
	CamSearch::DropRepeated(OutReadings.Readings);
	for (const FRequestReading& Reading : OutReadings.Readings)
	{
		FHits Hits = Members.IsEmpty() ? FindReading(Reading) : FHits();
		// A title of a stranger that was named is given up only for what is at hand.
		if (!Hits.IsEmpty() && (Written.IsEmpty() || OutReadings.bCode || !Index.IsOfStranger(Hits[0].Entry)))
		{
			return Hits;
		}
	}
	if (!Written.IsEmpty() && !OutReadings.bCode)
	{
		return Written;
	}
	return Members.IsEmpty() && !OutReadings.bOnlyReadings ? FindMembers(MenuTitle, FRequestReading()) : Members;
}

bool FCamSearch::IsWordForWord(const FHits& Hits, const FString& MenuTitle) const
{
	const FString Title = Hits.IsEmpty() ? FString() : Index.GetAction(Hits[0].Entry).GetMenuDescription().ToString();
	const FString Asked = MenuTitle.TrimStartAndEnd();
	// Who writes it as it is titled means it; "play sound" may as well be said of a thing to do.
	return !Hits.IsEmpty()
		&& Title.Equals(
			Asked, Index.IsOfStranger(Hits[0].Entry) ? ESearchCase::CaseSensitive : ESearchCase::IgnoreCase);
}

bool FCamSearch::IsOfOtherNumber(int32 Entry, const FString& Title) const
{
	const FString Asked = GetNameLetters(Title);
	const FString Found = GetNameLetters(Index.GetAction(Entry).GetMenuDescription().ToString());
	const bool bOtherNumber = (Found + TEXT("s")).Equals(Asked) || (Asked + TEXT("s")).Equals(Found);
	return bOtherNumber && Index.GetNodeClass(Entry).StartsWith(TEXT("K2Node_Variable"), ESearchCase::CaseSensitive);
}

FCamSearch::FHits FCamSearch::FindTitled(const FString& Title, const FString& NodeClass) const
{
	return Index.FindNamed(Title, NodeClass)
		.FilterByPredicate([this, &Title](const FKeywordHit& Hit) { return !IsOfOtherNumber(Hit.Entry, Title); });
}

FCamSearch::FHits FCamSearch::FindReading(const FRequestReading& Reading)
{
	const bool bWhole = Reading.Fit == ERequestFit::Whole;
	FHits Hits = bWhole ? FindTitled(Reading.Title, FString()) : Index.FindBest(Reading.Title, FString());
	if (!bWhole && IsAmbiguous(Hits))
	{
		return FHits();
	}
	const float Least = Reading.Fit == ERequestFit::Close ? CamSearch::Close : CamSearch::Sure;
	Hits = Hits.FilterByPredicate(
		[this, &Reading, Least](const FKeywordHit& Hit)
		{
			const bool bNear = Hit.Confidence >= Least && !Index.IsOfStranger(Hit.Entry);
			return (Hit.bWhole || bNear) && Fits(Hit.Entry, Reading);
		});
	if (Hits.IsEmpty())
	{
		Hits = FindStructFunction(Reading.Title);
	}
	if (Hits.IsEmpty() && CamSearch::IsOneWord(Reading.Title))
	{
		Hits = FindMembers(Reading.Title, Reading);
	}
	PutOwnFirst(Hits);
	return Hits;
}

bool FCamSearch::Fits(int32 Entry, const FRequestReading& Reading) const
{
	const FString NodeClass = Reading.NodeClass.IsEmpty() && !Reading.bOfAnother ? FString()
																				 : Index.GetNodeClass(Entry);
	return !(Reading.bOfAnother && IsOfNoOther(Entry, NodeClass, Reading))
		&& (Reading.Owner.IsEmpty() || HasOwner(Entry, Reading.Owner))
		&& (Reading.NodeClass.IsEmpty() || Reading.NodeClass.Equals(NodeClass, ESearchCase::IgnoreCase))
		&& (Reading.PinWords.IsEmpty() || HasPins(Entry, Reading.PinWords));
}

bool FCamSearch::IsOfNoOther(int32 Entry, const FString& NodeClass, const FRequestReading& Reading) const
{
	if (NodeClass.StartsWith(TEXT("K2Node_Variable"), ESearchCase::CaseSensitive))
	{
		return Index.GetOwnerRank(Entry) < 2;
	}
	if (NodeClass.EndsWith(TEXT("Delegate"), ESearchCase::CaseSensitive) && Index.GetOwnerRank(Entry) == 0)
	{
		return true;
	}
	// One word names functions of many classes and libraries by chance, but for one that the receiver speaks of.
	TArray<FString> Words;
	FAssetOperationBase::AppendKeywords(Reading.Title, Words);
	const bool bAccessor = Words.Num() > 0 && (Words[0].Equals(TEXT("get")) || Words[0].Equals(TEXT("set")));
	const UClass* const Owner = Index.GetOwner(Entry);
	TArray<FString> Receiver;
	FAssetOperationBase::AppendKeywords(Reading.Receiver, Receiver);
	const bool bSpokenOf = Owner && !Receiver.IsEmpty() && Owner->GetName().Contains(Receiver.Last());
	return Words.Num() <= (bAccessor ? 2 : 1) && Index.GetOwnerRank(Entry) > 1 && !bSpokenOf;
}

bool FCamSearch::HasPins(int32 Entry, const FString& PinWords) const
{
	const UFunction* const Function = Index.GetFunction(Entry);
	TArray<FString> Known = FAssetOperationBase::CreateKeywords(Function
			? TEXT("second millisecond value pin true false")
			: TEXT("condition reset break index output pin value true false start closed number item second loop"));
	for (TFieldIterator<FProperty> It(Function); It; ++It)
	{
		FAssetOperationBase::AppendKeywords(It->GetName(), Known);
	}
	TArray<FString> Asked;
	FAssetOperationBase::AppendKeywords(PinWords, Asked);
	return !Asked.ContainsByPredicate(
		[&Known](const FString& Word) { return !Word.IsNumeric() && !Known.Contains(Word); });
}

FCamSearch::FHits FCamSearch::FindStructFunction(const FString& Title)
{
	for (const TCHAR* const Verb : {TEXT("Make "), TEXT("Break ")})
	{
		const FString Name = Title.RightChop(FStringView(Verb).Len()).Replace(TEXT(" "), TEXT(""));
		const UScriptStruct* const Struct = Title.StartsWith(Verb, ESearchCase::IgnoreCase) && !Name.IsEmpty()
			? FindFirstObject<UScriptStruct>(*Name)
			: nullptr;
		const FString Function = !Struct
			? FString()
			: Struct->GetMetaData(Verb[0] == TEXT('M') ? TEXT("HasNativeMake") : TEXT("HasNativeBreak"));
		int32 Dot = INDEX_NONE;
		if (Function.FindLastChar(TEXT('.'), Dot))
		{
			return FindMembers(Function.RightChop(Dot + 1), FRequestReading());
		}
	}
	return FHits();
}

void FCamSearch::PutSlipFirst(const FString& MenuTitle, FHits& InOutHits) const
{
	const FString Asked = GetNameLetters(MenuTitle);
	if (Asked.Len() + 1 < CamSearch::LeastForSlip || InOutHits.IsEmpty() || InOutHits[0].bWhole
		|| Asked.StartsWith(TEXT("castto"), ESearchCase::CaseSensitive))
	{
		return;
	}
	for (int32 Place = 0; Place < InOutHits.Num(); ++Place)
	{
		const FString Title = GetNameLetters(Index.GetAction(InOutHits[Place].Entry).GetMenuDescription().ToString());
		if (Title.Len() >= CamSearch::LeastForSlip && CamSearch::IsSlip(Asked, Title))
		{
			FKeywordHit Hit = InOutHits[Place];
			Hit.Confidence = FMath::Max(Hit.Confidence, CamSearch::OneLetter);
			Hit.bWhole = true;
			InOutHits.RemoveAt(Place);
			InOutHits.Insert(Hit, 0);
			return;
		}
	}
}

FCamSearch::FHits FCamSearch::FindMembers(const FString& Name, const FRequestReading& Reading)
{
	FHits Hits;
	for (const int32 Entry : Index.FindMembers(Name))
	{
		if (Fits(Entry, Reading))
		{
			FKeywordHit& Hit = Hits.AddDefaulted_GetRef();
			Hit.Entry = Entry;
			Hit.Confidence = 1.0f;
			Hit.bWhole = true;
		}
	}
	PutOwnFirst(Hits);
	return Hits;
}

bool FCamSearch::IsAmbiguous(const FHits& Hits) const
{
	if (Hits.Num() < 2 || Hits[0].bWhole)
	{
		return false;
	}
	int32 NumAlike = 0;
	const FString Title = Index.GetAction(Hits[0].Entry).GetMenuDescription().ToString();
	for (const FKeywordHit& Hit : Hits)
	{
		const bool bAlike = Hit.Similarity.CommonCount == Hits[0].Similarity.CommonCount
			&& FMath::Abs(Hit.Confidence - Hits[0].Confidence) < CamSearch::Alike;
		NumAlike += bAlike
				&& !Index.GetAction(Hit.Entry).GetMenuDescription().ToString().Equals(Title, ESearchCase::IgnoreCase)
			? 1
			: 0;
	}
	return NumAlike >= CamSearch::TooManyAlike;
}

void FCamSearch::PutOwnFirst(FHits& InOutHits) const
{
	if (InOutHits.Num() < 2 || !InOutHits[0].bWhole)
	{
		return;
	}
	const FString Title = Index.GetAction(InOutHits[0].Entry).GetMenuDescription().ToString();
	const auto GetRank = [this, &Title](const FKeywordHit& Hit)
	{
		const bool bSame = Hit.bWhole
			&& Index.GetAction(Hit.Entry).GetMenuDescription().ToString().Equals(Title, ESearchCase::IgnoreCase);
		return bSame ? Index.GetOwnerRank(Hit.Entry) : MAX_int32;
	};
	TArray<TPair<int32, FKeywordHit>> Ranked;
	for (const FKeywordHit& Hit : InOutHits)
	{
		Ranked.Emplace(GetRank(Hit), Hit);
	}
	Ranked.StableSort([](const auto& Left, const auto& Right) { return Left.Key < Right.Key; });
	for (int32 Place = 0; Place < Ranked.Num(); ++Place)
	{
		InOutHits[Place] = Ranked[Place].Value;
	}
}

bool FCamSearch::HasOwner(int32 Entry, const FString& Owner) const
{
	const UClass* const Found = Index.GetOwner(Entry);
	for (const FString& Name : {Owner, Owner + TEXT("Component")})
	{
		const UClass* const Class = Found ? FAssetOperationBase::GetAssetClassFromAssetName(Name) : nullptr;
		if (Class && Class->IsChildOf(Found))
		{
			return true;
		}
	}
	return false;
}

bool FCamSearch::IsTypeName(const FString& Text) const
{
	const FString Name = Text.TrimStartAndEnd();
	if (!CamSearch::IsOneWord(Name) || Name.IsEmpty())
	{
		return false;
	}
	const bool bLetter = Name.Len() > 2 && FChar::IsUpper(Name[0]) && FChar::IsUpper(Name[1]);
	for (const FString& Spelling : {Name, bLetter ? Name.RightChop(1) : Name})
	{
		if (FindFirstObject<UClass>(*Spelling) || FindFirstObject<UEnum>(*Spelling)
			|| FindFirstObject<UScriptStruct>(*Spelling))
		{
			return true;
		}
	}
	return false;
}
