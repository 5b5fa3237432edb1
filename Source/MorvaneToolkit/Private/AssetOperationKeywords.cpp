#include "AssetOperationBase.h"

#include "KeywordSet.h"
#include "KeywordWords.h"
#include "NameLetters.h"

namespace AssetOperationKeywordText
{
static bool IsOneOf(FStringView Word, std::initializer_list<FStringView> Names)
{
	for (const FStringView Name : Names)
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
static FString MakeWhole(const TArray<FString>& Words)
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

/** "=switchoneaxis" of "Switch on EAxis", letter by letter, for those who write it without capitals. */
static FString Squeeze(const FString& Text)
{
	return TEXT("=") + GetNameLetters(Text);
}

static bool IsOperatorWord(const FString& Word)
{
	return IsOneOf(Word,
		{TEXT("add"), TEXT("subtract"), TEXT("multiply"), TEXT("divide"), TEXT("modulo"), TEXT("equal"), TEXT("not"),
			TEXT("less"), TEXT("greater"), TEXT("and"), TEXT("or"), TEXT("power")});
}

/**
 * "float <= float" as "Less Equal (float)" would be, and "integer to string" as "To String (Integer)" would be: the
 * operator first. Empty when the words are no such term.
 */
static TArray<FString> PutOperatorFirst(const TArray<FString>& Words)
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

/**
 * "add" of "float + float" and "Add (Vector)": operators take operands of any type, so the type is no part of their
 * title; strings and texts have operators of their own. Empty when there are other words than operators and types.
 */
static TArray<FString> GetBareOperator(const TArray<FString>& Words)
{
	TArray<FString> Operator;
	for (const FString& Word : Words)
	{
		if (IsOperatorWord(Word))
		{
			Operator.Add(Word);
		}
		else if (!IsOneOf(Word, {TEXT("two"), TEXT("both")}) && !KeywordWords::IsJoint(Word)
			&& !KeywordWords::IsTypeWord(Word))
		{
			return TArray<FString>();
		}
		else if (IsOneOf(Word, {TEXT("string"), TEXT("text")}))
		{
			return TArray<FString>();
		}
	}
	return Operator.Num() < Words.Num() ? Operator : TArray<FString>();
}

/** The part of a title that names: what stands before a remark in brackets. */
static FString GetNamingPart(const FString& Text)
{
	int32 Bracket = INDEX_NONE;
	return Text.FindChar(TEXT('('), Bracket) && Bracket > 0 ? Text.Left(Bracket) : Text;
}

/**
 * "castto" and ":charactermovementcomponent" of a cast: inside of a class's name nothing is a filler, nothing is spelt
 * anew and no other word stands for it, so that a cast is found by its class alone. Empty for any other text.
 */
static TArray<FString> GetCastKeywords(const FString& Title)
{
	const FString Before(TEXT("Cast To "));
	if (!Title.StartsWith(Before, ESearchCase::IgnoreCase))
	{
		return TArray<FString>();
	}
	const FString Target = Title.RightChop(Before.Len());
	const bool bOfClass = Target.EndsWith(TEXT(" Class"), ESearchCase::IgnoreCase);
	const FString Name = Squeeze(bOfClass ? Target.LeftChop(6) : Target).RightChop(1);
	TArray<FString> Keywords = {TEXT("cast"), TEXT("to"), TEXT(":") + Name};
	if (bOfClass)
	{
		Keywords.Add(TEXT("class"));
	}
	Keywords.Add(TEXT("=castto:") + Name + (bOfClass ? TEXT(":class") : TEXT("")));
	return Keywords;
}

/** The words that authors mean: no "convert" before "integer to string". */
static TArray<FString> GetWords(TArray<FString> Words)
{
	if (Words.Num() == 4 && IsOneOf(Words[0], {TEXT("convert"), TEXT("parse")}) && IsOneOf(Words[2], {TEXT("to")}))
	{
		Words.RemoveAt(0);
	}
	if (Words.Num() == 4 && IsOneOf(Words[1], {TEXT("to")}) && IsOneOf(Words[3], {TEXT("conversion")}))
	{
		Words.SetNum(3);
	}
	return Words;
}

/** "to string" and "integer to string": here the joint is what the node does. */
static bool IsConversion(const TArray<FString>& Words, int32 To)
{
	const bool bFromType = To == 1 && KeywordWords::IsTypeWord(Words[0]);
	const bool bToType = To + 2 == Words.Num() && KeywordWords::IsTypeWord(Words[To + 1]);
	return IsOneOf(Words[To], {TEXT("to")}) && (bFromType || bToType || IsOneOf(Words[0], {TEXT("cast")}));
}

/** The words without those that only join others. */
static TArray<FString> DropJoints(const TArray<FString>& Words)
{
	TArray<FString> Kept;
	for (int32 Index = 0; Index < Words.Num(); ++Index)
	{
		if (Index == 0 || Index + 1 == Words.Num() || !KeywordWords::IsJoint(Words[Index])
			|| IsConversion(Words, Index))
		{
			Kept.Add(Words[Index]);
		}
	}
	return Kept;
}

static void AddNodeClass(const FString& ClassName, TArray<FString>& InOutKeywords)
{
	InOutKeywords.AddUnique(ClassName.ToLower());
	FAssetOperationBase::AppendKeywords(ClassName, InOutKeywords);
	InOutKeywords.AddUnique(TEXT("=") + ClassName.ToLower());
}

/** Takes the names of node classes out of a text of several words; answers the rest. */
static FString TakeNodeClasses(const FString& Text, TArray<FString>& OutClasses)
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
/** Of any title but a cast's: its words, then the forms of the whole of it. */
static void AddTitleKeywords(const FString& Title, TArray<FString>& InOutKeywords)
{
	const TArray<FString> Words = GetWords(KeywordWords::Split(Title));
	for (const FString& Word : DropJoints(Words))
	{
		InOutKeywords.AddUnique(Word);
	}
	const FString NamingPart = GetNamingPart(Title);
	const bool bOwnOperator = Words.Num() > 1 && IsOperatorWord(Words[0])
		&& IsOneOf(Words.Last(), {TEXT("string"), TEXT("text")});
	if (NamingPart.Len() < Title.Len() && !bOwnOperator)
	{
		InOutKeywords.AddUnique(MakeWhole(KeywordWords::Split(NamingPart)));
	}
	if (Words.Num() > 1 && IsOneOf(Words.Last(), {TEXT("key")}))
	{
		// "W key": keys are titled without the word.
		InOutKeywords.AddUnique(MakeWhole(TArray<FString>(Words.GetData(), Words.Num() - 1)));
	}
	for (const TArray<FString>& Form : {GetBareOperator(Words), PutOperatorFirst(Words)})
	{
		if (!Form.IsEmpty())
		{
			InOutKeywords.AddUnique(MakeWhole(Form));
		}
	}
	if (!Words.IsEmpty() && Title.Contains(TEXT("s"), ESearchCase::IgnoreCase))
	{
		// "Get Components" is not "Get Component", where both are titles.
		InOutKeywords.AddUnique(MakeWhole(KeywordWords::Split(Title, true)));
	}
	if (KeywordWords::HasTypeLetter(Title))
	{
		InOutKeywords.AddUnique(Squeeze(Title));
	}
	// A text without any word still has a whole, so that it stands for itself.
	InOutKeywords.AddUnique(Words.IsEmpty() ? TEXT("=") + Title.ToLower() : MakeWhole(Words));
}
} // namespace AssetOperationKeywordText

TArray<FString> FAssetOperationBase::CreateKeywords(const FString& Text)
{
	using namespace AssetOperationKeywordText;

	TArray<FString> NodeClasses;
	const FString Title = TakeNodeClasses(Text, NodeClasses).TrimStartAndEnd();
	TArray<FString> Keywords = GetCastKeywords(Title);
	if (Keywords.IsEmpty() && !Title.IsEmpty())
	{
		AddTitleKeywords(Title, Keywords);
	}
	if (!Title.IsEmpty())
	{
		Keywords.AddUnique(TEXT("\"") + Title.ToLower());
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
