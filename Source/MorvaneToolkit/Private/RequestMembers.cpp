#include "RequestForms.h"
#include "RequestLexicon.h"
#include "RequestSyntax.h"

// Plain words about what the Blueprint itself has ("broadcast on opened", "read the Score variable", "clear items") and
// about members of a class ("set visibility on the text block").

namespace RequestMemberImpl
{
using RequestSyntax::IsOneOf;

/** Words around a name that only say what kind of thing bears it; some fit one kind alone. */
static bool IsNounFor(const FString& Word, const FString& Kind)
{
	struct FNoun
	{
		const TCHAR* Words;
		/** How the kind ends; empty for any. */
		const TCHAR* Kind;
	};
	static constexpr FNoun Nouns[] = {
		{TEXT("the a an my our own this that its self self's to from on of for as in current called named local member "
			  "variable var property field value reference ref"),
			TEXT("")},
		{TEXT("component comp"), TEXT("Component")},
		{TEXT("dispatcher delegate event events signal"), TEXT("dispatcher")},
		{TEXT("array list"), TEXT("array")},
		{TEXT("map dictionary"), TEXT("map")},
		{TEXT("flag boolean bool is"), TEXT("boolean")},
		{TEXT("string"), TEXT("string")},
		{TEXT("integer int number"), TEXT("integer")},
		{TEXT("float number"), TEXT("float")},
	};
	for (const FNoun& Row : Nouns)
	{
		const bool bFits = FStringView(Row.Kind).IsEmpty() || Kind.EndsWith(Row.Kind, ESearchCase::IgnoreCase);
		if (bFits && IsOneOf(Word, Row.Words))
		{
			return true;
		}
	}
	return false;
}

static FString Join(const TArray<FString>& Pieces, int32 Begin, int32 End)
{
	FString Joined;
	for (int32 Index = Begin; Index < End; ++Index)
	{
		Joined += (Joined.IsEmpty() ? TEXT("") : TEXT(" ")) + Pieces[Index];
	}
	return Joined;
}

/** Where a variable of the Blueprint is named. */
struct FNaming
{
	FRequestVariable Variable;
	int32 Begin = 0;
	int32 End = 0;
};

/** The longest name of a variable among the words. */
static FNaming FindNaming(const TArray<FString>& Pieces, const FRequestScope& Scope)
{
	for (int32 Length = FMath::Min(Pieces.Num(), 5); Length > 0; --Length)
	{
		// What stands first is what is done: "trigger OnOpened" beside a component Trigger.
		for (int32 Place = 1; Place + Length <= Pieces.Num() + 1; ++Place)
		{
			const int32 Begin = Place + Length <= Pieces.Num() ? Place : 0;
			const FRequestVariable Variable = Scope.Find(Join(Pieces, Begin, Begin + Length));
			if (!Variable.Name.IsEmpty())
			{
				return {Variable, Begin, Begin + Length};
			}
		}
	}
	return FNaming();
}

/** The words beside the name that say something. */
static TArray<FString> GetRest(const TArray<FString>& Pieces, const FNaming& Naming)
{
	TArray<FString> Rest;
	for (int32 Index = 0; Index < Pieces.Num(); ++Index)
	{
		const bool bOfName = Index >= Naming.Begin && Index < Naming.End;
		if (!bOfName && !IsNounFor(Pieces[Index], Naming.Variable.Kind))
		{
			Rest.Add(Pieces[Index]);
		}
	}
	return Rest;
}

static const TCHAR* GetTitleOfVerb(const FString& Verb, bool bDispatcher)
{
	struct FVerb
	{
		const TCHAR* Words;
		const TCHAR* Before;
		bool bDispatcher;
	};
	static constexpr FVerb Verbs[] = {
		{TEXT("get read access fetch retrieve load"), TEXT("Get "), false},
		{TEXT("set write assign update change store modify put save"), TEXT("Set "), false},
		{TEXT("call fire trigger broadcast invoke raise emit dispatch execute notify send run"), TEXT("Call "), true},
		{TEXT("bind subscribe listen connect hook register"), TEXT("Bind Event to "), true},
		{TEXT("unbind unsubscribe disconnect remove unregister"), TEXT("Unbind Event from "), true},
		{TEXT("clear unbindall"), TEXT("Unbind all Events from "), true},
		{TEXT("assign"), TEXT("Assign "), true},
	};
	for (const FVerb& Row : Verbs)
	{
		if (Row.bDispatcher == bDispatcher && IsOneOf(Verb, Row.Words))
		{
			return Row.Before;
		}
	}
	return nullptr;
}

/** What is done to a variable of this kind, by the words beside its name. */
static void AddDeed(const TArray<FString>& Rest, const FRequestVariable& Variable, TArray<FRequestReading>& OutReadings)
{
	const FString Family = RequestLexicon::GetFamilyOfKind(Variable.Kind);
	const FString Deed = Join(Rest, 0, Rest.Num());
	if (!Family.IsEmpty())
	{
		OutReadings.Append(RequestLexicon::FindVerb(Family, Deed));
	}
	OutReadings.Add({Deed, Variable.Kind});
	if (Family.Equals(TEXT("component")))
	{
		OutReadings.Add({Deed + TEXT(" Component"), Variable.Kind});
	}
}

/** The verbs that only name what is done with a variable, whatever it is. */
static void AddAccess(const TArray<FString>& Pieces, const FNaming& Naming, const TArray<FString>& Rest,
	TArray<FRequestReading>& OutReadings)
{
	const bool bDispatcher = Naming.Variable.Kind.Equals(TEXT("dispatcher"));
	if (Rest.IsEmpty() && !bDispatcher && Pieces.Num() > 1)
	{
		OutReadings.Add({TEXT("Get ") + Naming.Variable.Name, FString()});
	}
	const bool bAll = bDispatcher && Rest.Num() == 2 && IsOneOf(Rest[1], TEXT("all"));
	const TCHAR* const Before = Rest.IsEmpty() ? nullptr : GetTitleOfVerb(bAll ? TEXT("clear") : Rest[0], bDispatcher);
	const bool bAssigned = Rest.Num() == 2 && IsOneOf(Rest[0], TEXT("assign store put write set save"))
		&& Naming.End == Pieces.Num() && !bDispatcher && (Rest[1].IsNumeric() || IsOneOf(Rest[1], TEXT("true false")));
	if (bAssigned)
	{
		OutReadings.Add({TEXT("Set ") + Naming.Variable.Name, FString()}); // "assign 5 to Score"
	}
	// A value may stand behind what is set.
	const bool bJoined = Naming.End + 1 < Pieces.Num() && IsOneOf(Pieces[Naming.End], TEXT("to = as with by"));
	const bool bVerbOnly = Naming.Begin == 1 || (Naming.Begin > 1 && IsNounFor(Pieces[1], Naming.Variable.Kind));
	const bool bValue = Before && Before[0] == TEXT('S') && bJoined && bVerbOnly;
	if (Before && (Rest.Num() == 1 || bAll || bValue))
	{
		OutReadings.Add({Before + Naming.Variable.Name, FString()});
	}
}

static FString GetClassText(const TArray<FString>& Pieces, int32 Begin, int32 End)
{
	while (Begin < End && IsOneOf(Pieces[Begin], TEXT("the a an this that my its")))
	{
		++Begin;
	}
	return Join(Pieces, Begin, End).Replace(TEXT(" "), TEXT(""));
}

/** "set visibility on the text block", "AudioComponent Play". */
static void AddOfClass(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	for (int32 Index = Pieces.Num() - 2; Index > 0; --Index)
	{
		if (IsOneOf(Pieces[Index], TEXT("on of for in from")))
		{
			OutReadings.Add({Join(Pieces, 0, Index), GetClassText(Pieces, Index + 1, Pieces.Num())});
		}
	}
	for (int32 End = 1; End <= 2 && End < Pieces.Num(); ++End)
	{
		if (FChar::IsUpper(Pieces[0][0]))
		{
			OutReadings.Add({Join(Pieces, End, Pieces.Num()), GetClassText(Pieces, 0, End)});
		}
	}
}

/** "set image brush": between the verb and the member stands the class. */
static void AddOfClassBetween(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	if (!IsOneOf(Pieces[0], TEXT("get set add remove clear is play stop change update")))
	{
		return;
	}
	for (int32 End = 2; End <= 3 && End < Pieces.Num(); ++End)
	{
		const FString Verb = IsOneOf(Pieces[0], TEXT("change update")) ? FString(TEXT("set")) : Pieces[0];
		OutReadings.Add({Verb + TEXT(" ") + Join(Pieces, End, Pieces.Num()), GetClassText(Pieces, 1, End)});
	}
}

/** "run the OpenDoor function". */
static void AddFunction(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	int32 Begin = 0;
	int32 End = Pieces.Num();
	const TCHAR* const Around = TEXT("call run execute invoke trigger fire the a my own custom function event method");
	while (Begin < End && IsOneOf(Pieces[Begin], Around))
	{
		++Begin;
	}
	if (IsOneOf(Pieces[0], TEXT("event")))
	{
		return; // "Event Reset" is no call
	}
	while (Begin < End && IsOneOf(Pieces[End - 1], TEXT("function event method")))
	{
		--End;
	}
	const FString Name = Join(Pieces, Begin, End);
	if (!Name.IsEmpty() && End - Begin < Pieces.Num())
	{
		OutReadings.Add({Name.Replace(TEXT(" "), TEXT("")), FString()});
	}
}
} // namespace RequestMemberImpl

void RequestForms::ReadOwnMember(
	const TArray<FString>& Pieces, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestMemberImpl;

	const FNaming Naming = FindNaming(Pieces, Scope);
	if (Naming.Variable.Name.IsEmpty() || Pieces.Num() < 2)
	{
		return;
	}
	const TArray<FString> Rest = GetRest(Pieces, Naming);
	AddAccess(Pieces, Naming, Rest, OutReadings);
	if (!Rest.IsEmpty())
	{
		AddDeed(Rest, Naming.Variable, OutReadings);
	}
}

void RequestForms::ReadMemberOfClass(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	RequestMemberImpl::AddFunction(Pieces, OutReadings);
	RequestMemberImpl::AddOfClass(Pieces, OutReadings);
	RequestMemberImpl::AddOfClassBetween(Pieces, OutReadings);
}
