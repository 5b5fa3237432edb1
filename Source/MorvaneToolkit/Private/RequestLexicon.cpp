#include "RequestLexicon.h"

#include "KeywordSenses.h"
#include "KeywordWords.h"
#include "NameLetters.h"
#include "RequestConceptTables.h"
#include "RequestLexiconTables.h"

namespace RequestLexiconImpl
{
static TArray<FString> SplitBlanks(const TCHAR* Text)
{
	TArray<FString> Words;
	FString(Text).ParseIntoArrayWS(Words);
	return Words;
}

/** The groups of a concept: of each, one sense has to be there. */
using FSenses = TArray<FString>;

struct FPreparedConcept
{
	TArray<FSenses> Core;
	FSenses Also;
	FRequestReading Reading;
};

static TArray<FString> GetSenses(const FString& Word)
{
	TArray<FString> Senses;
	for (const FString& Part : KeywordWords::Split(Word))
	{
		Senses.AddUnique(KeywordSenses::GetSense(Part));
	}
	return Senses;
}

static FSenses GetSensesOfGroup(const FString& Group)
{
	TArray<FString> Words;
	Group.ParseIntoArray(Words, TEXT("|"));
	FSenses Senses;
	for (const FString& Word : Words)
	{
		Senses.Append(GetSenses(Word));
	}
	return Senses;
}

/** The tables, prepared once. */
struct FLookup
{
	TMap<FString, FString> FamilyByReceiver;
	TMap<FString, FString> FamilyByWord;
	/** By "family member". */
	TMap<FString, FRequestReading> Verbs;
	TMap<FString, FString> Events;
	TSet<FString> Weightless;
	TArray<FPreparedConcept> Concepts;

	static const FLookup& Get()
	{
		static const FLookup Lookup;
		return Lookup;
	}

private:
	FLookup()
	{
		TMap<FString, FString> Owners;
		for (const RequestLexiconTables::FFamily& Row : RequestLexiconTables::Families)
		{
			Owners.Add(Row.Name, Row.Owner);
			for (const FString& Receiver : SplitBlanks(Row.Receivers))
			{
				FamilyByReceiver.FindOrAdd(Receiver, Row.Name);
			}
			for (const FString& Word : SplitBlanks(Row.Words))
			{
				FamilyByWord.FindOrAdd(Word, Row.Name);
			}
		}
		for (const RequestLexiconTables::FVerbs& Row : RequestLexiconTables::Verbs)
		{
			const FString* const Owner = Owners.Find(Row.Family);
			for (const FString& Name : SplitBlanks(Row.Names))
			{
				Verbs.FindOrAdd(FString(Row.Family) + TEXT(" ") + Name,
					{Row.Title,
						Row.Owner	? FString(Row.Owner)
							: Owner ? *Owner
									: FString()});
			}
		}
		for (const RequestLexiconTables::FEventName& Row : RequestLexiconTables::Events)
		{
			for (const FString& Name : SplitBlanks(Row.Names))
			{
				Events.FindOrAdd(Name, Row.Title);
			}
		}
		for (const TCHAR* const Word : RequestConceptTables::Weightless)
		{
			Weightless.Add(Word);
		}
		PrepareConcepts();
	}

	void PrepareConcepts()
	{
		for (const RequestConceptTables::FConcept& Row : RequestConceptTables::Concepts)
		{
			FPreparedConcept& Concept = Concepts.AddDefaulted_GetRef();
			for (const FString& Group : SplitBlanks(Row.Core))
			{
				Concept.Core.Add(GetSensesOfGroup(Group));
			}
			for (const FString& Word : SplitBlanks(Row.Also))
			{
				Concept.Also.Append(GetSenses(Word));
			}
			Concept.Reading = {Row.Title, Row.Owner};
		}
	}
};

/** A type letter of the engine's or "std::" in front is no part of the name. */
static FString WithoutTypeLetter(const FString& Name)
{
	int32 Index = INDEX_NONE;
	const bool bLetter = Name.Len() > 2 && FStringView(TEXT("UAFET")).FindChar(Name[0], Index)
		&& FChar::IsUpper(Name[1]) && FChar::IsLower(Name[2]);
	return bLetter ? Name.RightChop(1) : Name;
}

/** Each sense of the request stands in the concept, and each group of the concept in the request. */
static bool Fits(const FPreparedConcept& Concept, const FSenses& Request)
{
	if (Request.Num() < Concept.Core.Num())
	{
		return false; // one word does not say two things
	}
	for (const FSenses& Group : Concept.Core)
	{
		if (!Group.ContainsByPredicate([&Request](const FString& Sense) { return Request.Contains(Sense); }))
		{
			return false;
		}
	}
	for (const FString& Sense : Request)
	{
		const bool bKnown = Concept.Also.Contains(Sense)
			|| Concept.Core.ContainsByPredicate([&Sense](const FSenses& Group) { return Group.Contains(Sense); });
		if (!bKnown)
		{
			return false;
		}
	}
	return true;
}

static FString Join(const TArray<FString>& Words, int32 Left)
{
	FString Joined;
	for (int32 Index = 0; Index < Words.Num(); ++Index)
	{
		Joined += Index == Left ? FString() : RequestLexicon::Squeeze(Words[Index]);
	}
	return Joined;
}

/** Words that name something: no values, none that carry nothing. */
static TArray<FString> KeepWeighty(const TArray<FString>& Words)
{
	return Words.FilterByPredicate(
		[](const FString& Word) { return !Word.IsNumeric() && !FLookup::Get().Weightless.Contains(Word); });
}
/** "health" of "health component" is no variable of that name. */
static bool IsPartOfName(const TArray<FString>& Words, const FString& Word)
{
	static const TSet<FString> Nouns = {TEXT("component"), TEXT("actor"), TEXT("widget"), TEXT("object"), TEXT("bar"),
		TEXT("location"), TEXT("rotation"), TEXT("class"), TEXT("name"), TEXT("type")};
	const int32 Index = Words.IndexOfByKey(Word);
	return Index != INDEX_NONE && Index + 1 < Words.Num() && Nouns.Contains(Words[Index + 1]);
}

/** "myString", "ItemList", "scoreByName": the last word of a name says what bears it; more than one is an array. */
static FString GetFamilyOfEnding(const FString& Receiver)
{
	static const TSet<FString> Telling = {TEXT("string"), TEXT("str"), TEXT("text"), TEXT("array"), TEXT("list"),
		TEXT("map"), TEXT("dict"), TEXT("dictionary"), TEXT("vector"), TEXT("rotator"), TEXT("actor"), TEXT("mesh"),
		TEXT("body"), TEXT("component")};
	const TArray<FString> Words = KeywordWords::Split(Receiver, true);
	if (Words.IsEmpty() || Receiver.Contains(TEXT("Library")) || Receiver.Contains(TEXT("Statics")))
	{
		return FString();
	}
	const FString& Last = Words.Last();
	const FString* const Known = Telling.Contains(Last) ? FLookup::Get().FamilyByReceiver.Find(Last) : nullptr;
	const bool bMany = Last.Len() > 4 && Last.EndsWith(TEXT("s"), ESearchCase::CaseSensitive)
		&& !Last.EndsWith(TEXT("ss"), ESearchCase::CaseSensitive)
		&& !Last.EndsWith(TEXT("us"), ESearchCase::CaseSensitive);
	return Known ? *Known : bMany && FChar::IsLower(Receiver[0]) ? FString(TEXT("array")) : FString();
}
} // namespace RequestLexiconImpl

FString RequestLexicon::Squeeze(const FString& Name)
{
	const FString Squeezed = GetNameLetters(Name);
	const bool bPlural = Squeezed.Len() > 3 && Squeezed.EndsWith(TEXT("s"), ESearchCase::CaseSensitive)
		&& !Squeezed.EndsWith(TEXT("ss"), ESearchCase::CaseSensitive);
	return bPlural ? Squeezed.LeftChop(1) : Squeezed;
}

FString RequestLexicon::GetFamily(const FString& Receiver)
{
	const RequestLexiconImpl::FLookup& Lookup = RequestLexiconImpl::FLookup::Get();
	FString Plain = GetNameLetters(RequestLexiconImpl::WithoutTypeLetter(Receiver));
	const FString* Family = Lookup.FamilyByReceiver.Find(Plain);
	if (!Family && Plain.EndsWith(TEXT("library"), ESearchCase::CaseSensitive))
	{
		Plain = Plain.LeftChop(7);
		Family = Lookup.FamilyByReceiver.Find(
			Plain.StartsWith(TEXT("kismet"), ESearchCase::CaseSensitive) ? Plain.RightChop(6) : Plain);
	}
	return Family ? *Family : RequestLexiconImpl::GetFamilyOfEnding(Receiver);
}

FString RequestLexicon::GetFamilyOfKind(const FString& Kind)
{
	return Kind.EndsWith(TEXT("Component"), ESearchCase::CaseSensitive) ? FString(TEXT("component")) : GetFamily(Kind);
}

TArray<FRequestReading> RequestLexicon::FindVerbOfAny(const FString& Member)
{
	TArray<FRequestReading> Readings;
	for (const TCHAR* const Family :
		{TEXT("array"), TEXT("map"), TEXT("string"), TEXT("vector"), TEXT("body"), TEXT("actor"), TEXT("component")})
	{
		Readings.Append(FindVerb(Family, Member));
	}
	return Readings;
}

TArray<FRequestReading> RequestLexicon::FindEventCalled(const FString& Name)
{
	static const TSet<FString> Any = {TEXT("create"), TEXT("setup"), TEXT("step"), TEXT("init"), TEXT("takedamage")};
	return Any.Contains(Name.ToLower()) ? TArray<FRequestReading>() : FindEvent(Name);
}

TArray<FRequestReading> RequestLexicon::FindVerb(const FString& Family, const FString& Member)
{
	const RequestLexiconImpl::FLookup& Lookup = RequestLexiconImpl::FLookup::Get();
	const FString Whole = GetNameLetters(Member);
	FString Singular;
	for (const FString& Word : KeywordWords::Split(Member))
	{
		Singular += Word;
	}
	const FString Present = Whole.EndsWith(TEXT("ed"), ESearchCase::CaseSensitive) ? Whole.LeftChop(1) : Whole;
	for (const FString& Spelling : {Whole, Squeeze(Member), Singular, Present})
	{
		if (const FRequestReading* const Reading = Lookup.Verbs.Find(Family + TEXT(" ") + Spelling))
		{
			return {*Reading};
		}
	}
	return {};
}

TArray<FRequestReading> RequestLexicon::FindEvent(const FString& Name)
{
	const RequestLexiconImpl::FLookup& Lookup = RequestLexiconImpl::FLookup::Get();
	const FString Whole = GetNameLetters(Name);
	const FString* const Title = Lookup.Events.Find(Whole);
	return Title ? TArray<FRequestReading>({{*Title, FString()}}) : TArray<FRequestReading>();
}

TArray<FRequestReading> RequestLexicon::FindPhrase(const TArray<FString>& Words, const FRequestScope& Scope)
{
	using namespace RequestLexiconImpl;

	const FLookup& Lookup = FLookup::Get();
	TArray<FRequestReading> Readings;
	const TArray<FString> Weighty = KeepWeighty(Words);
	for (int32 Index = 0; Index < Weighty.Num() && Weighty.Num() > 1; ++Index)
	{
		if (const FString* const Family = Lookup.FamilyByWord.Find(Weighty[Index]))
		{
			Readings.Append(FindVerb(*Family, Join(Weighty, Index)));
		}
	}
	FSenses Senses;
	for (const FString& Word : Weighty)
	{
		if (Weighty.Num() == 1 || IsPartOfName(Weighty, Word) || Scope.GetVariableKind(Word).IsEmpty())
		{
			Senses.AddUnique(KeywordSenses::GetSense(Word));
		}
	}
	for (const FPreparedConcept& Concept : Lookup.Concepts)
	{
		if (!Senses.IsEmpty() && Fits(Concept, Senses))
		{
			Readings.Add(Concept.Reading);
		}
	}
	return Readings;
}
