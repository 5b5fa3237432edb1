#include "RequestForms.h"
#include "RequestSyntax.h"

// Verbs that authors use for one another: "apply an impulse" for "Add Impulse", "calculate distance" for what is
// titled by the thing alone. Other than synonyms of words they say the same only at the head of a request.

namespace RequestVerbImpl
{
using RequestSyntax::IsOneOf;

/** Verbs of a row may stand for one another; the titles' own come first. */
constexpr const TCHAR* Groups[] = {
	TEXT("add apply append attach give insert"),
	TEXT("set change update modify assign swap switch replace adjust make turn"),
	TEXT("get fetch read find retrieve query access obtain lookup return"),
	TEXT("remove delete destroy clear kill erase"),
	TEXT("create make spawn construct build new generate instantiate"),
	TEXT("start begin play activate run enable launch resume"),
	TEXT("stop end cancel deactivate disable finish halt"),
	TEXT("is check has test does can"),
	TEXT("open load"),
	TEXT("close unload"),
	TEXT("add bind"),
};

/** Verbs of which the title says nothing. */
constexpr const TCHAR* Empty = TEXT(
	"calculate compute perform do execute run use make get determine trigger cast evaluate invoke fire create");

/** Where to and how often: what a pin takes. */
constexpr const TCHAR* Ways = TEXT(
	"up down forward forwards backward backwards upward upwards downward again now immediately away here there twice");

/** Words that titles have none of. */
constexpr const TCHAR* Fluff = TEXT("statement block function method macro operation command of call");

static TArray<FString> SplitBlanks(const TCHAR* Text)
{
	TArray<FString> Words;
	FString(Text).ParseIntoArrayWS(Words);
	return Words;
}

static FString JoinFrom(const TArray<FString>& Pieces, int32 Begin)
{
	FString Joined;
	for (int32 Index = Begin; Index < Pieces.Num(); ++Index)
	{
		Joined += (Joined.IsEmpty() ? TEXT("") : TEXT(" ")) + Pieces[Index];
	}
	return Joined;
}
} // namespace RequestVerbImpl

void RequestForms::ReadVerb(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestVerbImpl;

	if (Pieces.Num() < 2)
	{
		return;
	}
	const TArray<FString> Plain = Pieces.FilterByPredicate([](const FString& Piece) { return !IsOneOf(Piece, Fluff); });
	if (Plain.Num() < Pieces.Num() && Plain.Num() > 0)
	{
		OutReadings.Add({JoinFrom(Plain, 0), FString()});
	}
	const FString Rest = JoinFrom(Pieces, 1);
	for (const TCHAR* const Group : Groups)
	{
		for (const FString& Verb : IsOneOf(Pieces[0], Group) ? SplitBlanks(Group) : TArray<FString>())
		{
			if (!Verb.Equals(Pieces[0], ESearchCase::IgnoreCase))
			{
				OutReadings.Add({Verb + TEXT(" ") + Rest, FString()});
			}
		}
	}
	if (Pieces.Num() > 2 && IsOneOf(Pieces.Last(), Ways) && !IsOneOf(Pieces[0], TEXT("on event when is was key"))
		&& !IsOneOf(Pieces[1], TEXT("key")))
	{
		OutReadings.Add({JoinFrom(TArray<FString>(Pieces.GetData(), Pieces.Num() - 1), 0), FString()});
	}
	if (IsOneOf(Pieces[0], TEXT("literal")))
	{
		OutReadings.Add({TEXT("Make ") + JoinFrom(Pieces, 0), FString()});
	}
	if (Pieces.Num() > 2 && IsOneOf(Pieces[0], Empty))
	{
		OutReadings.Add({Rest, FString()});
		OutReadings.Add({TEXT("Get ") + Rest, FString()});
	}
}
