#include "KeywordWords.h"
#include "RequestForms.h"
#include "RequestLexicon.h"
#include "RequestSyntax.h"

namespace RequestCallImpl
{
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

/** What a member of a dispatcher does with it. */
static void AddDispatcherVerb(const FString& Dispatcher, const FString& Member, TArray<FRequestReading>& OutReadings)
{
	if (RequestSyntax::IsOneOf(
			RequestLexicon::Squeeze(Member), TEXT("broadcast invoke emit call fire execute trigger raise dispatch")))
	{
		OutReadings.Add({TEXT("Call ") + Dispatcher, FString()});
	}
	else if (RequestSyntax::IsOneOf(RequestLexicon::Squeeze(Member),
				 TEXT("adddynamic add addlistener connect bind subscribe adduobject on adduniquedynamic bindevent")))
	{
		OutReadings.Add({TEXT("Bind Event to ") + Dispatcher, FString()});
	}
	else if (RequestSyntax::IsOneOf(RequestLexicon::Squeeze(Member),
				 TEXT("removedynamic remove removelistener disconnect unbind unsubscribe off")))
	{
		OutReadings.Add({TEXT("Unbind Event from ") + Dispatcher, FString()});
	}
	else if (RequestSyntax::IsOneOf(
				 RequestLexicon::Squeeze(Member), TEXT("clear removeall removealllistener unbindall")))
	{
		OutReadings.Add({TEXT("Unbind all Events from ") + Dispatcher, FString()});
	}
}

/** "x.ToString()" of a variable whose type is known. */
static void AddConversion(const FString& Kind, const FString& Member, TArray<FRequestReading>& OutReadings)
{
	const TArray<FString> Words = KeywordWords::Split(Member);
	if (!Kind.IsEmpty() && Words.Num() == 2 && Words[0].Equals(TEXT("to")))
	{
		RequestForms::ReadConversion({Kind, TEXT("to"), Words[1]}, FRequestScope(), OutReadings);
	}
}

/** What the member is when it is looked for in this receiver. */
static void AddOfReceiver(
	const FString& Receiver, const FString& Member, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const FString Kind = Scope.GetVariableKind(Receiver);
	if (Kind.Equals(TEXT("dispatcher")))
	{
		AddDispatcherVerb(Receiver, Member, OutReadings);
		return;
	}
	AddConversion(Kind, Member, OutReadings);
	const FString OfKind = RequestLexicon::GetFamilyOfKind(Kind);
	const FString Family = OfKind.IsEmpty() ? RequestLexicon::GetFamily(Receiver) : OfKind;
	if (!Family.IsEmpty())
	{
		OutReadings.Append(RequestLexicon::FindVerb(Family, Member));
	}
	TArray<FString> Owners = {Kind.IsEmpty() ? Receiver : Kind};
	if (Kind.IsEmpty() && Family.Equals(TEXT("actor")))
	{
		Owners.Append({FString(TEXT("Character")), FString(TEXT("PlayerController"))});
	}
	for (const FString& Owner : Owners)
	{
		OutReadings.Add({Member, Owner});
		OutReadings.Add({TEXT("Get ") + Member, Owner});
	}
}

/** "Vector3(0, 0, 1)" and "new Timer()": a value or an object is made. */
static void AddConstruction(const FString& Name, bool bNew, TArray<FRequestReading>& OutReadings)
{
	const FString Type = RequestSyntax::WithoutTypeLetter(Name);
	const FString Family = RequestLexicon::GetFamily(Name);
	OutReadings.Append(RequestLexicon::FindVerb(FString(), Name)); // "new WaitForSeconds(2)" waits
	if (FChar::IsUpper(Name[0]) && !Family.IsEmpty())
	{
		OutReadings.Append(RequestLexicon::FindVerb(Family, TEXT("new")));
	}
	if (FChar::IsUpper(Name[0]))
	{
		OutReadings.Add({TEXT("Make ") + Type, FString()});
	}
	if (bNew)
	{
		OutReadings.Add({TEXT("Construct Object from Class"), FString()});
	}
}

/** Called on nothing, or on something that says nothing. */
static void AddUnowned(
	const RequestSyntax::FChain& Chain, int32 At, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const FString& Member = Chain.Names[At];
	const FString Kind = Scope.GetVariableKind(Member);
	if (Kind.Equals(TEXT("dispatcher")) && Chain.Called[At])
	{
		OutReadings.Add({TEXT("Call ") + Member, FString()});
	}
	if (!Kind.IsEmpty() && !Chain.Called[At] && !Chain.bIndexed)
	{
		OutReadings.Add({TEXT("Get ") + Member, FString()});
	}
	if (Member.StartsWith(TEXT("K2_"), ESearchCase::CaseSensitive))
	{
		OutReadings.Add({Member, FString()}); // nobody but the engine calls it so
	}
	OutReadings.Append(RequestLexicon::FindVerb(FString(), Member));
	if (At == 0 && Chain.Called[0])
	{
		OutReadings.Append(RequestLexicon::FindEventCalled(Member));
	}
	OutReadings.Add({Member, FString()});
	OutReadings.Append(RequestLexicon::FindPhrase(KeywordWords::Split(Member), Scope));
}

/** A class of functions that are called on nothing, be it known or not. */
static bool IsLibrary(const FString& Receiver)
{
	for (const TCHAR* const Ending : {TEXT("library"), TEXT("lib"), TEXT("statics"), TEXT("utils"), TEXT("utilities"),
			 TEXT("helpers"), TEXT("functions"), TEXT("subsystem")})
	{
		if (Receiver.EndsWith(Ending, ESearchCase::IgnoreCase))
		{
			return true;
		}
	}
	return false;
}

static bool IsOfAnother(const FString& Receiver)
{
	return !IsSelf(Receiver) && !IsLibrary(Receiver);
}

/** Whether nothing is known of what the member is called on. */
static bool IsUnknown(const FString& Receiver, const FRequestScope& Scope)
{
	return Scope.GetVariableKind(Receiver).IsEmpty() && RequestLexicon::GetFamily(Receiver).IsEmpty();
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
	const bool bOfAnother = At > 0 && IsOfAnother(Chain.Names[At - 1]);
	if (bOfAnother && IsUnknown(Chain.Names[At - 1], Scope))
	{
		OutReadings.Append(RequestLexicon::FindVerbOfAny(Chain.Names[At]));
	}
	if (At == 0)
	{
		OutReadings.Append(RequestLexicon::FindVerb(TEXT("conversion"), TEXT("to") + Chain.Names[At]));
	}
	const int32 NumBefore = OutReadings.Num();
	AddUnowned(Chain, At, Scope, OutReadings);
	TArray<FString> Words;
	for (int32 Index = 0; Index <= At; ++Index)
	{
		Words.Append(IsSelf(Chain.Names[Index]) ? TArray<FString>() : KeywordWords::Split(Chain.Names[Index]));
	}
	OutReadings.Append(RequestLexicon::FindPhrase(Words, Scope));
	for (int32 Index = NumBefore; Index < OutReadings.Num(); ++Index)
	{
		OutReadings[Index].bOfAnother = bOfAnother;
		OutReadings[Index].Receiver = bOfAnother ? Chain.Names[At - 1] : FString();
	}
}

/** Whether a number among the arguments is no whole one: "0f", "1.5". */
static bool HasFraction(const FString& Arguments)
{
	TArray<FString> Pieces;
	Arguments.ParseIntoArray(Pieces, TEXT(","));
	for (const FString& Piece : Pieces)
	{
		const FString Number = Piece.TrimStartAndEnd();
		const FString Bare = Number.EndsWith(TEXT("f"), ESearchCase::IgnoreCase) ? Number.LeftChop(1) : Number;
		if (Bare.IsNumeric() && (Bare.Contains(TEXT(".")) || Bare.Len() < Number.Len()))
		{
			return true;
		}
	}
	return false;
}

/** What does the same with whole numbers is meant for the others. */
static void PutFloatFirst(TArray<FRequestReading>& InOutReadings)
{
	for (int32 Index = 0; Index < InOutReadings.Num(); ++Index)
	{
		FRequestReading OfFloat = InOutReadings[Index];
		OfFloat.Title = OfFloat.Title.Replace(TEXT("Integer"), TEXT("Float"));
		if (!OfFloat.Title.Equals(InOutReadings[Index].Title))
		{
			InOutReadings.Insert(OfFloat, Index++);
		}
	}
}

/** "items[0]" without anything being set, and "name[0:3]". */
static void AddIndexed(
	const RequestSyntax::FChain& Chain, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const FString Kind = Scope.GetVariableKind(Chain.Names.Last());
	if (Chain.Index.Contains(TEXT(":")) && !Kind.Equals(TEXT("array")))
	{
		OutReadings.Append(RequestLexicon::FindVerb(TEXT("string"), TEXT("substring")));
		return;
	}
	const FString Family = Kind.IsEmpty() ? RequestLexicon::GetFamily(Chain.Names.Last()) : Kind;
	const bool bMap = RequestSyntax::IsQuoted(Chain.Index) || Family.Equals(TEXT("map"));
	OutReadings.Append(RequestLexicon::FindVerb(bMap ? TEXT("map") : TEXT("array"), TEXT("get")));
}
/** "(b - a).normalized" as "value.normalized": what is in brackets is some value. */
static FString WithoutBracketedReceiver(const FString& Text)
{
	const int32 End = Text[0] == TEXT('(') ? RequestSyntax::SkipBrackets(Text, 0) : INDEX_NONE;
	return End != INDEX_NONE && End < Text.Len() ? TEXT("value") + Text.RightChop(End) : Text;
}
} // namespace RequestCallImpl

bool RequestForms::ReadCall(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestCallImpl;

	const bool bNew = Text.StartsWith(TEXT("new "), ESearchCase::IgnoreCase);
	const FString Term = bNew ? Text.RightChop(4).TrimStartAndEnd() : Text;
	RequestSyntax::FChain Chain;
	if (!RequestSyntax::ReadChain(WithoutBracketedReceiver(Term), Chain))
	{
		return false;
	}
	const int32 Last = Chain.Names.Num() - 1;
	if (Chain.bIndexed)
	{
		AddIndexed(Chain, Scope, OutReadings);
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
		OutReadings.Add_GetRef({Chain.Names[Last], FString(), ERequestFit::Close}).bOfAnother = Last > 0
			&& IsOfAnother(Chain.Names[Last - 1]);
	}
	if (HasFraction(Chain.Arguments))
	{
		PutFloatFirst(OutReadings);
	}
	return true;
}
