#include "Spawning/CamSearch.h"

#include "AssetOperationBase.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "UObject/UnrealType.h"

namespace CamSearch
{
/** As good as the default threshold: what is read into a request has to be sure without being asked for. */
constexpr float Sure = 0.6f;
/** What is left to a request that was understood and not found: to be shown, not to be spawned. */
constexpr float Unsure = 0.3f;

static FString GetKind(const FProperty& Property)
{
	struct FKindOfClass
	{
		const TCHAR* Class;
		const TCHAR* Kind;
	};
	static constexpr FKindOfClass Kinds[] = {
		{TEXT("ArrayProperty"), TEXT("array")},
		{TEXT("MapProperty"), TEXT("map")},
		{TEXT("SetProperty"), TEXT("set")},
		{TEXT("StrProperty"), TEXT("string")},
		{TEXT("TextProperty"), TEXT("text")},
		{TEXT("NameProperty"), TEXT("name")},
		{TEXT("BoolProperty"), TEXT("boolean")},
		{TEXT("IntProperty"), TEXT("integer")},
		{TEXT("FloatProperty"), TEXT("float")},
		{TEXT("DoubleProperty"), TEXT("float")},
	};
	if (CastField<FMulticastDelegateProperty>(&Property))
	{
		return TEXT("dispatcher");
	}
	if (const auto* const Object = CastField<FObjectProperty>(&Property))
	{
		return Object->PropertyClass->GetName();
	}
	if (const auto* const Struct = CastField<FStructProperty>(&Property))
	{
		return Struct->Struct->GetName().ToLower();
	}
	for (const FKindOfClass& Row : Kinds)
	{
		if (Property.GetClass()->GetName().Equals(Row.Class, ESearchCase::CaseSensitive))
		{
			return Row.Kind;
		}
	}
	return TEXT("value");
}

/** A title of this many letters is meant though one letter is missing or too much, in however short a word. */
constexpr int32 LeastForSlip = 8;
constexpr float OneLetter = 0.8f;

/** Where this many other titles fit as well to within this, none of them is meant. */
constexpr int32 TooManyAlike = 2;
constexpr float Alike = 0.02f;

static FString Squeeze(const FString& Text)
{
	FString Squeezed;
	for (const TCHAR Char : Text)
	{
		Squeezed += FChar::IsAlnum(Char) ? FString::Chr(FChar::ToLower(Char)) : FString();
	}
	return Squeezed;
}

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
	Scope.GetVariableKind = [this](const FString& Name) { return GetVariableKind(Name); };
}

TArray<FCamCandidate> FCamSearch::Find(const FString& MenuTitle, const FString& NodeClass, bool bTargetIsWired)
{
	TArray<FCamCandidate> Candidates;
	for (const FKeywordHit& Hit : FindHits(MenuTitle, NodeClass, bTargetIsWired))
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
	const bool bRefused = IsAmbiguous(Hits) || Readings.bOnlyReadings || IsTypeName(MenuTitle)
		|| (!Hits.IsEmpty() && Hits[0].Confidence >= CamSearch::Sure && !ExplainGraph(MenuTitle, NodeClass).IsEmpty());
	for (FKeywordHit& Hit : Hits)
	{
		Hit.Confidence = bRefused ? FMath::Min(Hit.Confidence, CamSearch::Unsure) : Hit.Confidence;
	}
	return Hits;
}

FCamSearch::FHits FCamSearch::FindNamed(
	const FString& MenuTitle, const FString& NodeClass, FRequestReadings& OutReadings)
{
	FHits Written = Index.FindNamed(MenuTitle, NodeClass);
	PutOwnFirst(Written);
	const FString Title = Written.IsEmpty() ? FString()
											: Index.GetAction(Written[0].Entry).GetMenuDescription().ToString();
	if (!Written.IsEmpty() && Title.Equals(MenuTitle.TrimStartAndEnd(), ESearchCase::IgnoreCase))
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
	if (!Written.IsEmpty() && !OutReadings.bCode)
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
	for (const FRequestReading& Reading : OutReadings.Readings)
	{
		FHits Hits = Members.IsEmpty() ? FindReading(Reading) : FHits();
		if (!Hits.IsEmpty())
		{
			return Hits;
		}
	}
	return Members.IsEmpty() && !OutReadings.bOnlyReadings ? FindMembers(MenuTitle, FRequestReading()) : Members;
}

FCamSearch::FHits FCamSearch::FindReading(const FRequestReading& Reading)
{
	const FHits All = Reading.bWhole ? Index.FindNamed(Reading.Title, FString())
									 : Index.FindBest(Reading.Title, FString());
	FHits Hits = All.FilterByPredicate(
		[this, &Reading](const FKeywordHit& Hit)
		{
			return (Hit.bWhole || Hit.Confidence >= CamSearch::Sure)
				&& (Reading.Owner.IsEmpty() || HasOwner(Hit.Entry, Reading.Owner));
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
	const FString Asked = CamSearch::Squeeze(MenuTitle);
	if (Asked.Len() < CamSearch::LeastForSlip || InOutHits.IsEmpty() || InOutHits[0].bWhole
		|| Asked.StartsWith(TEXT("castto"), ESearchCase::CaseSensitive))
	{
		return;
	}
	for (int32 Place = 0; Place < InOutHits.Num(); ++Place)
	{
		const FString Title = CamSearch::Squeeze(
			Index.GetAction(InOutHits[Place].Entry).GetMenuDescription().ToString());
		if (CamSearch::IsSlip(Asked, Title))
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
		if (Reading.Owner.IsEmpty() || HasOwner(Entry, Reading.Owner))
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
	const UClass* const Class = FAssetOperationBase::GetAssetClassFromAssetName(Owner);
	const UClass* const Found = Class ? Index.GetOwner(Entry) : nullptr;
	return Found && Class->IsChildOf(Found);
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

FString FCamSearch::GetVariableKind(const FString& Name) const
{
	const UBlueprint* const Blueprint = Menu.GetBlueprint();
	const UClass* const Class = Blueprint ? Blueprint->SkeletonGeneratedClass.Get() : nullptr;
	const FProperty* Property = nullptr;
	if (Class && !Name.IsEmpty())
	{
		Property = Class->FindPropertyByName(FName(*Name));
		Property = Property ? Property : Class->FindPropertyByName(FName(*(TEXT("b") + Name)));
	}
	return Property ? CamSearch::GetKind(*Property) : FString();
}

FString FCamSearch::Explain(const FString& MenuTitle, const FString& NodeClass)
{
	const FString OfGraph = ExplainGraph(MenuTitle, NodeClass);
	return OfGraph.IsEmpty() ? ExplainVariable(MenuTitle, NodeClass) : OfGraph;
}

FString FCamSearch::ExplainVariable(const FString& MenuTitle, const FString& NodeClass)
{
	const FHits Hits = Index.FindNamed(MenuTitle, NodeClass, true);
	const UClass* const Owner = Hits.IsEmpty() ? nullptr : Index.GetOwner(Hits[0].Entry);
	if (!Owner)
	{
		return FString();
	}
	const FCamCandidate Candidate = Index.MakeCandidate(Hits[0]);
	return FString::Printf(
		TEXT(
			"[Failure] '%s' is a variable of class '%s', which this Blueprint has no part of. To use the variable of another object, request class_name %s with variable_name and, of a node that gives such an object, variable_source_class '%s', property_owner_node_guid and owner_pin_name."),
		*Candidate.MenuTitle, *Owner->GetName(), *Candidate.NodeClass, *Owner->GetPathName());
}

FString FCamSearch::ExplainGraph(const FString& MenuTitle, const FString& NodeClass)
{
	const FSharedActionMenu* const EventMenu = Menu.GetEventMenu();
	if (!EventMenu)
	{
		return FString();
	}
	FCamSearch Elsewhere(*EventMenu);
	FRequestReadings Readings;
	const FHits Named = Elsewhere.FindNamed(MenuTitle, NodeClass, Readings);
	if (Named.IsEmpty())
	{
		return FString();
	}
	const FCamCandidate Candidate = Elsewhere.Index.MakeCandidate(Named[0]);
	return FString::Printf(
		TEXT(
			"[Failure] '%s' (class: %s) cannot stand in graph '%s': latent nodes, events and timelines belong into an event graph, since a function runs to its end at once. Place it in '%s', or make a custom event there and call that."),
		*Candidate.MenuTitle, *Candidate.NodeClass, *Menu.GetGraph()->GetName(), *EventMenu->GetGraph()->GetName());
}
