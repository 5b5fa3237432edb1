#include "KeywordWords.h"

#include "KeywordIndex.h"
#include "KeywordWordTables.h"

namespace KeywordWordImpl
{
using namespace KeywordWordTables;

/** The tables by word; built once. Keys compare ignoring case. */
struct FLookup
{
	TMap<FString, TArray<FString>> Spelling;
	TSet<FString> Filler;
	TSet<FString> Family;
	TSet<FString> Named;
	TMap<FString, float> Weight;
	TMap<FString, int32> Prior;
	TSet<FString> Joint;
	TSet<FString> Type;
	TSet<FString> Known;

	static const FLookup& Get()
	{
		static const FLookup Lookup;
		return Lookup;
	}

private:
	FLookup()
	{
		for (const FSpelling& Row : Spellings)
		{
			FString(Row.Means).ParseIntoArrayWS(Spelling.Add(Row.Word));
		}
		for (const TCHAR* const Word : Fillers)
		{
			Filler.Add(Word);
		}
		for (const TCHAR* const ClassName : FamilyClasses)
		{
			Family.Add(ClassName);
		}
		for (const TCHAR* const ClassName : NamedClasses)
		{
			Named.Add(ClassName);
		}
		for (const TCHAR* const Word : WellKnown)
		{
			Known.Add(Word);
		}
		for (const FPrior& Row : Priors)
		{
			Prior.Add(Row.Keyword, Row.Prior);
		}
		for (const TCHAR* const Word : Joints)
		{
			Joint.Add(Word);
		}
		for (const TCHAR* const Word : TypeWords)
		{
			Type.Add(Word);
		}
		for (const TCHAR* const Word : Owners)
		{
			Weight.Add(Word, OwnerWeight);
		}
		for (const TCHAR* const Word : Connectors)
		{
			Weight.Add(Word, ConnectorWeight);
		}
		for (const TCHAR* const Word : CommonWords)
		{
			Weight.Add(Word, CommonWeight);
		}
	}
};

static FString Singular(const FString& Word)
{
	if (Word.Len() < 4 || !Word.EndsWith(TEXT("s"), ESearchCase::CaseSensitive))
	{
		return Word;
	}
	if (Word.Len() > 4 && Word.EndsWith(TEXT("ies"), ESearchCase::CaseSensitive))
	{
		return Word.LeftChop(3) + TEXT("y");
	}
	for (const TCHAR* const Ending : {TEXT("sses"), TEXT("xes"), TEXT("ches"), TEXT("shes")})
	{
		if (Word.EndsWith(Ending, ESearchCase::CaseSensitive))
		{
			return Word.LeftChop(2);
		}
	}
	for (const TCHAR* const Ending : {TEXT("ss"), TEXT("us"), TEXT("is")})
	{
		if (Word.EndsWith(Ending, ESearchCase::CaseSensitive))
		{
			return Word;
		}
	}
	return Word.LeftChop(1);
}

/** Adds a raw word in its one spelling. */
static void AddWord(FStringView Raw, bool bKeepPlurals, TArray<FString>& OutWords)
{
	const FLookup& Lookup = FLookup::Get();
	const FString Lower = FString(Raw).ToLower();
	if (Lookup.Filler.Contains(Lower))
	{
		return;
	}
	if (const TArray<FString>* const Spelled = Lookup.Spelling.Find(Lower))
	{
		OutWords.Append(*Spelled);
		return;
	}
	const FString Single = bKeepPlurals ? Lower : Singular(Lower);
	if (const TArray<FString>* const Spelled = Lookup.Spelling.Find(Single))
	{
		OutWords.Append(*Spelled);
		return;
	}
	if (!Lookup.Filler.Contains(Single))
	{
		OutWords.Add(Single);
	}
}

/** "UKismetSystemLibrary", "AActor", "FVector": one type letter before a capital that begins a word. */
static bool HasTypeLetter(FStringView Run)
{
	int32 Index = INDEX_NONE;
	return Run.Len() > 2 && FStringView(TEXT("UAFEIT")).FindChar(Run[0], Index) && FChar::IsUpper(Run[1])
		&& FChar::IsLower(Run[2]);
}

/** Whether a word of a run of letters and digits ends before this index. */
static bool IsWordBoundary(FStringView Run, int32 Index)
{
	const TCHAR Before = Run[Index - 1];
	const TCHAR At = Run[Index];
	const bool bLowerFollows = Index + 1 < Run.Len() && FChar::IsLower(Run[Index + 1]);
	if (FChar::IsDigit(Before) && (At == TEXT('D') || At == TEXT('d')))
	{
		return bLowerFollows; // "2D" is one word
	}
	if (FChar::IsDigit(Before) != FChar::IsDigit(At))
	{
		return true;
	}
	return FChar::IsUpper(At) && (FChar::IsLower(Before) || (FChar::IsUpper(Before) && bLowerFollows));
}

static TArray<FString> SplitRun(FStringView Run, bool bKeepPlurals)
{
	TArray<FString> OutWords;
	const FString Lower = FString(Run).ToLower();
	if (FLookup::Get().Spelling.Contains(Lower))
	{
		AddWord(Run, bKeepPlurals, OutWords); // "FlipFlop" and "Int32" are known as they stand
		return OutWords;
	}
	const bool bFlag = Run.Len() > 2 && Run[0] == TEXT('b')
		&& FChar::IsUpper(Run[1]); // "bIsOpen" is shown as "Is Open"
	int32 Start = bFlag || HasTypeLetter(Run) ? 1 : 0;
	for (int32 Index = Start + 1; Index < Run.Len(); ++Index)
	{
		if (IsWordBoundary(Run, Index))
		{
			AddWord(Run.Mid(Start, Index - Start), bKeepPlurals, OutWords);
			Start = Index;
		}
	}
	AddWord(Run.Mid(Start), bKeepPlurals, OutWords);
	return OutWords;
}

/** Tens of thousands of titles are made of a few thousand runs of letters, so what became of each is kept. */
static void AppendRun(FStringView Run, bool bKeepPlurals, TArray<FString>& OutWords)
{
	constexpr int32 MaxKept = 50000;
	using FRuns = TMapByKeywordText<TArray<FString>>;
	static FRuns Kept[2];
	FRuns& Known = Kept[bKeepPlurals ? 1 : 0];
	const FString Key(Run);
	const TArray<FString>* Words = Known.Find(Key);
	if (!Words)
	{
		if (Known.Num() >= MaxKept)
		{
			Known.Reset();
		}
		Words = &Known.Add(Key, SplitRun(Run, bKeepPlurals));
	}
	OutWords.Append(*Words);
}

/** Reads one sign and answers its length; what is no operator separates and has length one. */
static int32 ReadSign(FStringView Text, int32 Index, TArray<FString>& OutWords)
{
	int32 Known = INDEX_NONE;
	if (!FStringView(TEXT("<>-+=!&|*%/~^")).FindChar(Text[Index], Known))
	{
		return 1;
	}
	for (const FSign& Row : Signs)
	{
		const FStringView Sign(Row.Sign);
		if (!Text.Mid(Index, Sign.Len()).Equals(Sign, ESearchCase::CaseSensitive))
		{
			continue;
		}
		const int32 End = Index + Sign.Len();
		const bool bRoomBefore = Index == 0 || FChar::IsWhitespace(Text[Index - 1]);
		const bool bRoomAfter = End == Text.Len() || FChar::IsWhitespace(Text[End]);
		if (!Row.bNeedsRoom || (bRoomBefore && bRoomAfter))
		{
			TArray<FString> Words;
			FString(Row.Means).ParseIntoArrayWS(Words);
			OutWords.Append(Words);
		}
		return Sign.Len();
	}
	return 1;
}

/** What stands behind "Node_" in a node class name, empty for any other text. */
static FStringView GetNodeClassStem(FStringView Text)
{
	const FStringView Marker(TEXT("Node_"));
	int32 Underscore = INDEX_NONE;
	if (!Text.FindChar(TEXT('_'), Underscore) || Underscore < Marker.Len()
		|| !Text.Left(Underscore + 1).EndsWith(Marker, ESearchCase::IgnoreCase))
	{
		return FStringView();
	}
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		if (!FChar::IsIdentifier(Text[Index]))
		{
			return FStringView();
		}
	}
	return Text.Mid(Underscore + 1);
}
} // namespace KeywordWordImpl

TArray<FString> KeywordWords::Split(FStringView Text, bool bKeepPlurals)
{
	TArray<FString> Words;
	int32 Index = Text.StartsWith(TEXT("K2_"), ESearchCase::CaseSensitive) ? 3 : 0;
	while (Index < Text.Len())
	{
		if (Text.Mid(Index, 2).Equals(TEXT("'s"), ESearchCase::IgnoreCase))
		{
			Index += 2; // "the actor's location"
			continue;
		}
		if (!FChar::IsAlnum(Text[Index]))
		{
			Index += KeywordWordImpl::ReadSign(Text, Index, Words);
			continue;
		}
		const int32 Start = Index;
		while (Index < Text.Len() && FChar::IsAlnum(Text[Index]))
		{
			++Index;
		}
		KeywordWordImpl::AppendRun(Text.Mid(Start, Index - Start), bKeepPlurals, Words);
	}
	return Words;
}

bool KeywordWords::HasTypeLetter(FStringView Text)
{
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		const bool bBegins = FChar::IsAlnum(Text[Index]) && (Index == 0 || !FChar::IsAlnum(Text[Index - 1]));
		if (bBegins && KeywordWordImpl::HasTypeLetter(Text.Mid(Index)))
		{
			return true;
		}
	}
	return false;
}

bool KeywordWords::IsNodeClassName(FStringView Text)
{
	return !KeywordWordImpl::GetNodeClassStem(Text).IsEmpty();
}

TArray<FString> KeywordWords::SplitNodeClassName(FStringView ClassName)
{
	return IsFamilyClassName(ClassName) ? TArray<FString>() : Split(KeywordWordImpl::GetNodeClassStem(ClassName));
}

bool KeywordWords::IsFamilyClassName(FStringView ClassName)
{
	return KeywordWordImpl::FLookup::Get().Family.Contains(FString(KeywordWordImpl::GetNodeClassStem(ClassName)));
}

bool KeywordWords::IsNamedClassName(FStringView ClassName)
{
	return KeywordWordImpl::FLookup::Get().Named.Contains(FString(KeywordWordImpl::GetNodeClassStem(ClassName)));
}

float KeywordWords::GetWeight(const FString& Word)
{
	const float* const Weight = KeywordWordImpl::FLookup::Get().Weight.Find(Word);
	if (!Weight && Word.IsNumeric())
	{
		return KeywordWordTables::ConnectorWeight; // a value, for which there is a pin
	}
	return Weight ? *Weight : 1.0f;
}

int32 KeywordWords::GetPrior(const FString& Keyword)
{
	if (Keyword.StartsWith(TEXT("="), ESearchCase::CaseSensitive))
	{
		return 0;
	}
	const int32* const Prior = KeywordWordImpl::FLookup::Get().Prior.Find(Keyword);
	return Prior ? *Prior : 1;
}

bool KeywordWords::IsJoint(const FString& Word)
{
	return KeywordWordImpl::FLookup::Get().Joint.Contains(Word);
}

bool KeywordWords::IsTypeWord(const FString& Word)
{
	return KeywordWordImpl::FLookup::Get().Type.Contains(Word);
}

bool KeywordWords::IsWellKnown(const FString& Word)
{
	return KeywordWordImpl::FLookup::Get().Known.Contains(Word);
}
