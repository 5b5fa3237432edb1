#include "AssetOperationBase.h"

#include "KeywordSet.h"
#include "KeywordWords.h"

namespace AssetOperationKeywordText
{
bool IsOneOf(const FString& Word, std::initializer_list<const TCHAR*> Names)
{
	for (const TCHAR* const Name : Names)
	{
		if (Word.Equals(Name, ESearchCase::CaseSensitive))
		{
			return true;
		}
	}
	return false;
}

/** "=printstring" of the words. What marks an event in front is left out, since authors leave it out, and so is a
 * repeated word. */
FString MakeWhole(const TArray<FString>& Words)
{
	const bool bEventMark = Words.Num() > 1 && IsOneOf(Words[0], {TEXT("event"), TEXT("on")});
	FString Whole(TEXT("="));
	for (int32 Index = bEventMark ? 1 : 0; Index < Words.Num(); ++Index)
	{
		const bool bRepeated = Index > 0 && Words[Index].Equals(Words[Index - 1], ESearchCase::CaseSensitive);
		Whole += bRepeated ? FString() : Words[Index];
	}
	return Whole;
}

bool IsOperatorWord(const FString& Word)
{
	return IsOneOf(Word,
		{TEXT("add"), TEXT("subtract"), TEXT("multiply"), TEXT("divide"), TEXT("modulo"), TEXT("equal"), TEXT("not"),
			TEXT("less"), TEXT("greater"), TEXT("and"), TEXT("or"), TEXT("power")});
}

/**
 * "float <= float" as "Less Equal (float)" would be, and "integer to string" as "To String (Integer)" would be: the
 * operator first. Empty when the words are no such term.
 */
TArray<FString> PutOperatorFirst(const TArray<FString>& Words)
{
	TArray<FString> Turned;
	const int32 Last = Words.Num() - 1;
	if (Last == 2 && IsOneOf(Words[1], {TEXT("to")}))
	{
		return {Words[1], Words[2], Words[0]};
	}
	if (Last < 2 || Last > 3)
	{
		return Turned;
	}
	for (int32 Index = 1; Index < Last; ++Index)
	{
		if (!IsOperatorWord(Words[Index]))
		{
			return TArray<FString>();
		}
		Turned.Add(Words[Index]);
	}
	Turned.Add(Words[0]);
	Turned.Add(Words[Last]);
	return Turned;
}

/** "PrintString" of "UKismetSystemLibrary::PrintString" and "/Script/Engine.KismetSystemLibrary:PrintString". */
FString StripQualifier(const FString& Text)
{
	int32 Blank = INDEX_NONE;
	int32 Colon = INDEX_NONE;
	int32 Dot = INDEX_NONE;
	Text.FindLastChar(TEXT(':'), Colon);
	Text.FindLastChar(TEXT('.'), Dot);
	const int32 Qualifier = FMath::Max(Colon, Dot);
	const bool bQualified = Qualifier > 0 && Qualifier + 1 < Text.Len() && !Text.FindChar(TEXT(' '), Blank);
	return bQualified ? Text.RightChop(Qualifier + 1) : Text;
}

/** The part of a title that names: what stands before a remark in brackets. */
FString GetNamingPart(const FString& Text)
{
	int32 Bracket = INDEX_NONE;
	return Text.FindChar(TEXT('('), Bracket) && Bracket > 0 ? Text.Left(Bracket) : Text;
}

/** The words that authors mean: shorthand spelled out, and no "convert" before "integer to string". */
TArray<FString> GetWords(const FString& Text)
{
	TArray<FString> Words = KeywordWords::ExpandShorthand(KeywordWords::Split(Text));
	if (Words.Num() == 4 && IsOneOf(Words[0], {TEXT("convert")}) && IsOneOf(Words[2], {TEXT("to")}))
	{
		Words.RemoveAt(0);
	}
	return Words;
}

void AddNodeClass(const FString& ClassName, TArray<FString>& InOutKeywords)
{
	InOutKeywords.AddUnique(ClassName.ToLower());
	FAssetOperationBase::AppendKeywords(ClassName, InOutKeywords);
	InOutKeywords.AddUnique(TEXT("=") + ClassName.ToLower());
}

/** Takes the names of node classes out of a text of several words; answers the rest. */
FString TakeNodeClasses(const FString& Text, TArray<FString>& OutClasses)
{
	int32 Underscore = INDEX_NONE;
	if (!Text.FindChar(TEXT('_'), Underscore))
	{
		return Text; // as nearly every title
	}
	TArray<FString> Pieces;
	Text.ParseIntoArrayWS(Pieces);
	const auto IsNodeClass = [](const FString& Piece) { return KeywordWords::IsNodeClassName(Piece); };
	if (!Pieces.ContainsByPredicate(IsNodeClass))
	{
		return Text;
	}
	OutClasses = Pieces.FilterByPredicate(IsNodeClass);
	Pieces.RemoveAll(IsNodeClass);
	return FString::Join(Pieces, TEXT(" "));
}
} // namespace AssetOperationKeywordText

TArray<FString> FAssetOperationBase::CreateKeywords(const FString& Text)
{
	using namespace AssetOperationKeywordText;

	TArray<FString> Keywords;
	TArray<FString> NodeClasses;
	const FString Title = StripQualifier(TakeNodeClasses(Text, NodeClasses).TrimStartAndEnd());
	if (!Title.IsEmpty())
	{
		const TArray<FString> Words = GetWords(Title);
		for (const FString& Word : Words)
		{
			Keywords.AddUnique(Word);
		}
		const FString NamingPart = GetNamingPart(Title);
		if (NamingPart.Len() < Title.Len())
		{
			Keywords.AddUnique(MakeWhole(KeywordWords::Split(NamingPart)));
		}
		const TArray<FString> Turned = PutOperatorFirst(Words);
		if (!Turned.IsEmpty())
		{
			Keywords.AddUnique(MakeWhole(Turned));
		}
		if (!Words.IsEmpty() && Title.Contains(TEXT("s"), ESearchCase::IgnoreCase))
		{
			// "Get Components" is not "Get Component", where both are titles.
			Keywords.AddUnique(MakeWhole(KeywordWords::Split(Title, true)));
		}
		// A text without any word still has a whole, so that it stands for itself.
		Keywords.AddUnique(Words.IsEmpty() ? TEXT("=") + Title.ToLower() : MakeWhole(Words));
	}
	for (const FString& NodeClass : NodeClasses)
	{
		AddNodeClass(NodeClass, Keywords);
	}
	return Keywords;
}

void FAssetOperationBase::AppendKeywords(const FString& Text, TArray<FString>& InOutKeywords)
{
	const bool bNodeClass = KeywordWords::IsNodeClassName(Text);
	for (const FString& Word : bNodeClass ? KeywordWords::SplitNodeClassName(Text) : KeywordWords::Split(Text))
	{
		InOutKeywords.AddUnique(Word);
	}
}

FKeywordSimilarity FAssetOperationBase::CalculateKeywordSimilarity(
	const TArray<FString>& Request, const TArray<FString>& Candidate)
{
	return KeywordMatch::MakeSimilarity(Request, FKeywordSet(Request), FKeywordSet(Candidate));
}

float FAssetOperationBase::CalculateMatchConfidence(
	const TArray<FString>& Request, const TArray<FString>& Candidate, const FKeywordSimilarity& Similarity)
{
	return Similarity.CommonCount == 0 ? 0.0f
									   : KeywordMatch::GetConfidence(FKeywordSet(Request), FKeywordSet(Candidate));
}

int32 FAssetOperationBase::LevenshteinDistance(const FString& Left, const FString& Right)
{
	TArray<int32> Last;
	for (int32 Column = 0; Column <= Right.Len(); ++Column)
	{
		Last.Add(Column);
	}
	for (int32 Row = 1; Row <= Left.Len(); ++Row)
	{
		TArray<int32> Now;
		Now.Add(Row);
		for (int32 Column = 1; Column <= Right.Len(); ++Column)
		{
			const bool bSame = FChar::ToLower(Left[Row - 1]) == FChar::ToLower(Right[Column - 1]);
			Now.Add(FMath::Min3(Last[Column] + 1, Now[Column - 1] + 1, Last[Column - 1] + (bSame ? 0 : 1)));
		}
		Last = MoveTemp(Now);
	}
	return Last.Last();
}
