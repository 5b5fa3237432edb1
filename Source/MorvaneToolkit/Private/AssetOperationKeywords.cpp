#include "AssetOperationBase.h"

#include "KeywordSet.h"
#include "KeywordWords.h"

namespace AssetOperationKeywordText
{
/** "=printstring" of the words; an event's mark is left out, since authors leave it out, and so is a repeated word. */
FString MakeWhole(const TArray<FString>& Words)
{
	FString Whole(TEXT("="));
	for (int32 Index = 0; Index < Words.Num(); ++Index)
	{
		const bool bEventMark = Index == 0 && Words.Num() > 1
			&& Words[0].Equals(TEXT("event"), ESearchCase::CaseSensitive);
		const bool bRepeated = Index > 0 && Words[Index].Equals(Words[Index - 1], ESearchCase::CaseSensitive);
		if (!bEventMark && !bRepeated)
		{
			Whole += Words[Index];
		}
	}
	return Whole;
}

bool IsOperatorWord(const FString& Word)
{
	for (const TCHAR* const Name : {TEXT("add"), TEXT("subtract"), TEXT("multiply"), TEXT("divide"), TEXT("modulo"),
			 TEXT("equal"), TEXT("not"), TEXT("less"), TEXT("greater"), TEXT("and"), TEXT("or"), TEXT("power")})
	{
		if (Word.Equals(Name, ESearchCase::CaseSensitive))
		{
			return true;
		}
	}
	return false;
}

/** "float <= float" as "Less Equal (float)" would be: the operator first. Empty when the words are no such term. */
TArray<FString> PutOperatorFirst(const TArray<FString>& Words)
{
	TArray<FString> Turned;
	const int32 Last = Words.Num() - 1;
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

/** The part of a title that names: what stands behind "Class::" or "Class." and before a remark in brackets. */
FString GetNamingPart(const FString& Text)
{
	FString Name = Text;
	int32 Bracket = INDEX_NONE;
	if (Name.FindChar(TEXT('('), Bracket) && Bracket > 0)
	{
		Name.LeftInline(Bracket);
	}
	int32 Qualifier = INDEX_NONE;
	if ((Name.FindLastChar(TEXT(':'), Qualifier) || Name.FindLastChar(TEXT('.'), Qualifier))
		&& Qualifier + 1 < Name.Len())
	{
		Name.RightChopInline(Qualifier + 1);
	}
	return Name;
}
} // namespace AssetOperationKeywordText

TArray<FString> FAssetOperationBase::CreateKeywords(const FString& Text)
{
	TArray<FString> Keywords;
	const FString Trimmed = Text.TrimStartAndEnd();
	if (Trimmed.IsEmpty())
	{
		return Keywords;
	}
	if (KeywordWords::IsNodeClassName(Trimmed))
	{
		Keywords.Add(Trimmed.ToLower());
		AppendKeywords(Trimmed, Keywords);
		Keywords.Add(TEXT("=") + Trimmed.ToLower());
		return Keywords;
	}
	const TArray<FString> Words = KeywordWords::ExpandShorthand(KeywordWords::Split(Trimmed));
	for (const FString& Word : Words)
	{
		Keywords.AddUnique(Word);
	}
	const FString NamingPart = AssetOperationKeywordText::GetNamingPart(Trimmed);
	if (NamingPart.Len() < Trimmed.Len())
	{
		Keywords.AddUnique(AssetOperationKeywordText::MakeWhole(KeywordWords::Split(NamingPart)));
	}
	const TArray<FString> Turned = AssetOperationKeywordText::PutOperatorFirst(Words);
	if (!Turned.IsEmpty())
	{
		Keywords.AddUnique(AssetOperationKeywordText::MakeWhole(Turned));
	}
	// A text without any word still has a whole, so that it stands for itself.
	Keywords.AddUnique(Words.IsEmpty() ? TEXT("=") + Trimmed.ToLower() : AssetOperationKeywordText::MakeWhole(Words));
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
