#include "AssetOperationBase.h"
#include "EdGraph/EdGraph.h"
#include "NameLetters.h"
#include "Spawning/CamSearch.h"

// What is said of a request that no node is meant by: why, and what could have been meant instead.

namespace CamRefusal
{
/** Names shorter than this are in too many others. */
constexpr int32 LeastLetters = 4;
constexpr int32 MostCasts = 8;

/** Whether one name may be a slip of the other, or a part of it. */
static bool AreNear(const FString& Left, const FString& Right)
{
	const int32 Shorter = FMath::Min(Left.Len(), Right.Len());
	const int32 Longer = FMath::Max(Left.Len(), Right.Len());
	if (Shorter >= LeastLetters && (Left.Contains(Right) || Right.Contains(Left)))
	{
		return true;
	}
	const int32 Tolerance = FMath::Max(1, Longer / LeastLetters);
	return Shorter > 2 && Longer - Shorter <= Tolerance
		&& FAssetOperationBase::LevenshteinDistance(Left, Right) <= Tolerance;
}

/** "Save" of "Set Save", "SetSave" and "set save"; empty when the text does not begin with the verb. */
static FString GetBehind(const FString& Text, const TCHAR* Verb)
{
	const FString Term = Text.TrimStartAndEnd();
	const int32 Length = FStringView(Verb).Len();
	const bool bVerb = Term.Len() > Length && Term.StartsWith(Verb, ESearchCase::IgnoreCase)
		&& (Term[Length] == TEXT(' ') || FChar::IsUpper(Term[Length]));
	return bVerb ? Term.RightChop(Length).TrimStartAndEnd() : FString();
}

static FString GetCastTarget(const FString& Text)
{
	const FString Before(TEXT("Cast To "));
	return Text.StartsWith(Before, ESearchCase::IgnoreCase) ? Text.RightChop(Before.Len()).TrimStartAndEnd()
															: FString();
}
} // namespace CamRefusal

void FCamSearch::KeepNear(const FString& MenuTitle, FHits& InOutHits)
{
	const FString Target = CamRefusal::GetCastTarget(MenuTitle);
	if (!Target.IsEmpty())
	{
		for (FKeywordHit& Hit : InOutHits)
		{
			Hit.Confidence = 0.0f; // a cast to another class is like it in everything but what matters
		}
		PutInFront(FindNearCasts(Target), InOutHits);
	}
	for (const TCHAR* const Verb : {TEXT("Get"), TEXT("Set")})
	{
		const FString Name = CamRefusal::GetBehind(MenuTitle, Verb);
		if (!Name.IsEmpty())
		{
			PutInFront(FindNearVariables(Verb, Name), InOutHits);
		}
	}
	TSet<FString> Known;
	InOutHits.RemoveAll(
		[this, &Known](const FKeywordHit& Hit)
		{
			bool bKnown = false;
			const FString Title = Index.GetAction(Hit.Entry).GetMenuDescription().ToString();
			Known.Add(Title + TEXT("\n") + Index.GetNodeClass(Hit.Entry), &bKnown);
			return bKnown;
		});
	PutFarLast(InOutHits);
}

void FCamSearch::PutFarLast(FHits& InOutHits)
{
	const auto IsFar = [](const FKeywordHit& Hit) { return Hit.Confidence < FBlueprintCamMatching::LeastShown; };
	FHits Near;
	FHits Far;
	for (int32 Place = 0; Place < InOutHits.Num(); ++Place)
	{
		// The best stays the best: whether it is good enough has been decided.
		(Place > 0 && IsFar(InOutHits[Place]) ? Far : Near).Add(InOutHits[Place]);
	}
	Near.Append(Far);
	InOutHits = Near;
}

void FCamSearch::PutInFront(const FHits& Near, FHits& InOutHits) const
{
	FHits All = Near;
	for (FKeywordHit& Hit : All)
	{
		Hit.Confidence = FCamSearch::Unsure;
		Hit.bWhole = false;
	}
	All.Append(InOutHits);
	InOutHits = All;
}

FCamSearch::FHits FCamSearch::FindNearCasts(const FString& Name) const
{
	FHits Near;
	const FString Asked = GetNameLetters(Name);
	for (int32 Entry = 0; Entry < Index.Num() && Near.Num() < CamRefusal::MostCasts; ++Entry)
	{
		const FString Target = CamRefusal::GetCastTarget(Index.GetAction(Entry).GetMenuDescription().ToString());
		if (!Target.IsEmpty() && CamRefusal::AreNear(Asked, GetNameLetters(Target)))
		{
			Near.AddDefaulted_GetRef().Entry = Entry;
		}
	}
	return Near;
}

FCamSearch::FHits FCamSearch::FindNearVariables(const FString& Verb, const FString& Name)
{
	FHits Near;
	const FString Asked = GetNameLetters(Name);
	for (const FName& Variable : Index.GetOwnVariables())
	{
		if (CamRefusal::AreNear(Asked, GetNameLetters(Variable.ToString())))
		{
			Near.Append(FindTitled(Verb + TEXT(" ") + Variable.ToString(), FString()));
		}
	}
	return Near;
}

FString FCamSearch::Hint(const FString& MenuTitle)
{
	const FString Target = CamRefusal::GetCastTarget(MenuTitle);
	if (!Target.IsEmpty())
	{
		return FString::Printf(
			TEXT("No class and no Blueprint is named '%s'. A Blueprint is cast to by its asset's name."), *Target);
	}
	for (const TCHAR* const Verb : {TEXT("Get"), TEXT("Set")})
	{
		const FString Name = CamRefusal::GetBehind(MenuTitle, Verb);
		if (!Name.IsEmpty() && !Index.FindVariable(Name))
		{
			return FString::Printf(
				TEXT(
					"This Blueprint and its parents have no variable or function '%s'. A variable has to be added before its nodes are placed; one of another object is reached with variable_source_class, property_owner_node_guid and owner_pin_name."),
				*Name);
		}
	}
	int32 Dot = INDEX_NONE;
	const FString Term = MenuTitle.TrimStartAndEnd();
	if (Term.FindChar(TEXT('.'), Dot) && Dot > 0 && Index.FindVariable(Term.Left(Dot)) == nullptr)
	{
		return FString::Printf(
			TEXT(
				"Nothing is known here of '%s'. Ask for the member by its title alone and wire its Target from what gives the object."),
			*Term.Left(Dot));
	}
	return FString();
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
