#include "KeywordWords.h"
#include "RequestForms.h"
#include "RequestLexicon.h"
#include "RequestSyntax.h"

namespace RequestCallImpl
{
static FString GetKind(const FString& Name, const FRequestScope& Scope)
{
	return Scope.GetVariableKind ? Scope.GetVariableKind(Name) : FString();
}

static bool IsSelf(const FString& Name)
{
	for (const TCHAR* const Self : {TEXT("self"), TEXT("this"), TEXT("super"), TEXT("base")})
	{
		if (Name.Equals(Self, ESearchCase::IgnoreCase))
		{
			return true;
		}
	}
	return false;
}

static bool IsAnyOf(const FString& Name, const TCHAR* Names)
{
	TArray<FString> List;
	FString(Names).ParseIntoArrayWS(List);
	return List.Contains(RequestLexicon::Squeeze(Name));
}

/** What a member of a dispatcher does with it. */
static void AddDispatcherVerb(const FString& Dispatcher, const FString& Member, TArray<FRequestReading>& OutReadings)
{
	if (IsAnyOf(Member, TEXT("broadcast invoke emit call fire execute trigger raise dispatch")))
	{
		OutReadings.Add({TEXT("Call ") + Dispatcher, FString(), true});
	}
	else if (IsAnyOf(Member,
				 TEXT("adddynamic add addlistener connect bind subscribe adduobject on adduniquedynamic bindevent")))
	{
		OutReadings.Add({TEXT("Bind Event to ") + Dispatcher, FString(), true});
	}
	else if (IsAnyOf(Member, TEXT("removedynamic remove removelistener disconnect unbind unsubscribe off")))
	{
		OutReadings.Add({TEXT("Unbind Event from ") + Dispatcher, FString(), true});
	}
	else if (IsAnyOf(Member, TEXT("clear removeall removealllistener unbindall")))
	{
		OutReadings.Add({TEXT("Unbind all Events from ") + Dispatcher, FString(), true});
	}
}

static bool IsFamilyKind(const FString& Kind)
{
	return !Kind.IsEmpty() && !RequestLexicon::GetFamily(Kind).IsEmpty();
}

/** "x.ToString()" of a variable whose type is known. */
static void AddToString(const FString& Kind, const FString& Member, TArray<FRequestReading>& OutReadings)
{
	const bool bKnown = !Kind.IsEmpty() && !Kind.Equals(TEXT("value")) && !Kind.Equals(TEXT("array"));
	if (bKnown && RequestLexicon::Squeeze(Member).Equals(TEXT("tostring"), ESearchCase::CaseSensitive))
	{
		OutReadings.Add({TEXT("To String (") + Kind + TEXT(")"), FString(), true});
	}
}

/** What the member is when it is looked for in this receiver. */
static void AddOfReceiver(
	const FString& Receiver, const FString& Member, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const FString Kind = GetKind(Receiver, Scope);
	if (Kind.Equals(TEXT("dispatcher")))
	{
		AddDispatcherVerb(Receiver, Member, OutReadings);
		return;
	}
	AddToString(Kind, Member, OutReadings);
	const FString Family = RequestLexicon::GetFamily(IsFamilyKind(Kind) ? Kind : Receiver);
	if (!Family.IsEmpty())
	{
		OutReadings.Append(RequestLexicon::FindVerb(Family, Member));
	}
	OutReadings.Add({Member, Kind.IsEmpty() ? Receiver : Kind, true});
	OutReadings.Add({TEXT("Get ") + Member, Kind.IsEmpty() ? Receiver : Kind, true});
}

/** "Vector3(0, 0, 1)" and "new Timer()": a value or an object is made. */
static void AddConstruction(const FString& Name, bool bNew, TArray<FRequestReading>& OutReadings)
{
	const FString Type = RequestSyntax::WithoutTypeLetter(Name);
	const FString Family = RequestLexicon::GetFamily(Name);
	if (FChar::IsUpper(Name[0]) && !Family.IsEmpty())
	{
		OutReadings.Append(RequestLexicon::FindVerb(Family, TEXT("new")));
	}
	if (FChar::IsUpper(Name[0]))
	{
		OutReadings.Add({TEXT("Make ") + Type, FString(), true});
	}
	if (bNew)
	{
		OutReadings.Add({TEXT("Construct Object from Class"), FString(), true});
	}
}

/** Called on nothing, or on something that says nothing. */
static void AddUnowned(
	const RequestSyntax::FChain& Chain, int32 At, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const FString& Member = Chain.Names[At];
	const FString Kind = GetKind(Member, Scope);
	if (Kind.Equals(TEXT("dispatcher")) && Chain.Called[At])
	{
		OutReadings.Add({TEXT("Call ") + Member, FString(), true});
	}
	if (!Kind.IsEmpty() && !Chain.Called[At] && !Chain.bIndexed)
	{
		OutReadings.Add({TEXT("Get ") + Member, FString(), true});
	}
	OutReadings.Append(RequestLexicon::FindVerb(FString(), Member));
	OutReadings.Add({Member, FString(), true});
	OutReadings.Append(RequestLexicon::FindPhrase(KeywordWords::Split(Member), Scope));
}

static void AddOfChain(
	const RequestSyntax::FChain& Chain, int32 At, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	for (int32 Index = At - 1; Index >= 0; --Index)
	{
		if (!IsSelf(Chain.Names[Index]))
		{
			AddOfReceiver(Chain.Names[Index], Chain.Names[At], Scope, OutReadings);
		}
	}
	if (At == 0)
	{
		OutReadings.Append(RequestLexicon::FindVerb(TEXT("conversion"), TEXT("to") + Chain.Names[At]));
	}
	AddUnowned(Chain, At, Scope, OutReadings);
	TArray<FString> Words;
	for (int32 Index = 0; Index <= At; ++Index)
	{
		Words.Append(IsSelf(Chain.Names[Index]) ? TArray<FString>() : KeywordWords::Split(Chain.Names[Index]));
	}
	OutReadings.Append(RequestLexicon::FindPhrase(Words, Scope));
}

/** "items[0]" without anything being set. */
static void AddIndexed(const FString& Name, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const FString Kind = GetKind(Name, Scope);
	const FString Family = Kind.IsEmpty() ? RequestLexicon::GetFamily(Name) : Kind;
	OutReadings.Append(RequestLexicon::FindVerb(Family.Equals(TEXT("map")) ? TEXT("map") : TEXT("array"), TEXT("get")));
}
} // namespace RequestCallImpl

bool RequestForms::ReadCall(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestCallImpl;

	const bool bNew = Text.StartsWith(TEXT("new "), ESearchCase::IgnoreCase);
	const FString Term = bNew ? Text.RightChop(4).TrimStartAndEnd() : Text;
	RequestSyntax::FChain Chain;
	if (!RequestSyntax::ReadChain(Term, Chain))
	{
		return false;
	}
	const int32 Last = Chain.Names.Num() - 1;
	if (Chain.bIndexed)
	{
		AddIndexed(Chain.Names[Last], Scope, OutReadings);
		return true;
	}
	if (bNew || (Last == 0 && Chain.Called[0]))
	{
		AddConstruction(Chain.Names[Last], bNew, OutReadings);
	}
	if (!bNew)
	{
		AddOfChain(Chain, Last, Scope, OutReadings);
		if (Last > 0 && !Chain.Called[Last] && Chain.Called[Last - 1])
		{
			AddOfChain(Chain, Last - 1, Scope, OutReadings); // "create_timer(1.0).timeout"
		}
		OutReadings.Add({Chain.Names[Last], FString(), false});
	}
	return true;
}
