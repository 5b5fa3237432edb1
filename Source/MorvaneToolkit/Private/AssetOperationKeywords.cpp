#include "AssetOperationBase.h"

#include "KeywordSet.h"
#include "KeywordWords.h"

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
	FString Squeezed(TEXT("="));
	for (const TCHAR Char : Text)
	{
		if (FChar::IsAlnum(Char))
		{
			Squeezed += FChar::ToLower(Char);
		}
	}
	return Squeezed;
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

/**
 * "add" of "Array_Add" and of "add item to array": what is done to a container is titled without it. The container
 * itself is among the words. Empty when the words are no such request.
 */
static TArray<TArray<FString>> GetContainerOperations(const TArray<FString>& Words)
{
	const auto IsContainer = [](const FString& Word) { return IsOneOf(Word, {TEXT("array"), TEXT("map")}); };
	TArray<FString> Operation;
	if (Words.Num() > 1 && IsContainer(Words[0]))
	{
		Operation = Words;
		Operation.RemoveAt(0);
	}
	else if (Words.Num() > 2 && IsContainer(Words.Last()) && KeywordWords::IsJoint(Words[Words.Num() - 2]))
	{
		Operation = Words;
		Operation.SetNum(Words.Num() - 2);
	}
	TArray<TArray<FString>> Operations;
	const bool bOnItem = Operation.Num() == 2 && IsOneOf(Operation[1], {TEXT("item"), TEXT("element")});
	if (!Operation.IsEmpty() && !(bOnItem && IsOneOf(Operation[0], {TEXT("add"), TEXT("insert")})))
	{
		Operations.Add(Operation);
	}
	if (bOnItem)
	{
		Operations.Add({Operation[0]});
	}
	return Operations;
}

/** "PrintString" of "UKismetSystemLibrary::PrintString" and "/Script/Engine.KismetSystemLibrary:PrintString". */
static FString StripQualifier(const FString& Text)
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
static FString GetNamingPart(const FString& Text)
{
	int32 Bracket = INDEX_NONE;
	return Text.FindChar(TEXT('('), Bracket) && Bracket > 0 ? Text.Left(Bracket) : Text;
}

/**
 * "cast to charactermovementcomponent": a class that is cast to is one word, so that a cast is found by its class and
 * not by every request that shares a word with the class's name.
 */
static TArray<FString> JoinCastTarget(const TArray<FString>& Words)
{
	const bool bJoined = Words.Num() > 1 && IsOneOf(Words[1], {TEXT("to"), TEXT("as"), TEXT("into")});
	const int32 First = bJoined ? 2 : 1;
	if (Words.Num() <= First || !IsOneOf(Words[0], {TEXT("cast")}))
	{
		return Words;
	}
	const bool bOfClass = Words.Num() > First + 1 && IsOneOf(Words.Last(), {TEXT("class")});
	FString Target;
	for (int32 Index = First; Index < Words.Num() - (bOfClass ? 1 : 0); ++Index)
	{
		Target += Words[Index];
	}
	TArray<FString> Joined = {TEXT("cast"), TEXT("to"), Target};
	if (bOfClass)
	{
		Joined.Add(TEXT("class"));
	}
	return Joined;
}

/** The words that authors mean: shorthand spelled out, and no "convert" before "integer to string". */
static TArray<FString> GetWords(const TArray<FString>& Written)
{
	TArray<FString> Words = KeywordWords::ExpandShorthand(Written);
	if (Words.Num() == 4 && IsOneOf(Words[0], {TEXT("convert"), TEXT("parse")}) && IsOneOf(Words[2], {TEXT("to")}))
	{
		Words.RemoveAt(0);
	}
	if (Words.Num() == 4 && IsOneOf(Words[1], {TEXT("to")}) && IsOneOf(Words[3], {TEXT("conversion")}))
	{
		Words.SetNum(3);
	}
	return JoinCastTarget(Words);
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
} // namespace AssetOperationKeywordText

TArray<FString> FAssetOperationBase::CreateKeywords(const FString& Text)
{
	using namespace AssetOperationKeywordText;

	TArray<FString> Keywords;
	TArray<FString> NodeClasses;
	const FString Title = StripQualifier(TakeNodeClasses(Text, NodeClasses).TrimStartAndEnd());
	if (!Title.IsEmpty())
	{
		const TArray<FString> Written = KeywordWords::Split(Title);
		const TArray<FString> Words = GetWords(Written);
		for (const FString& Word : DropJoints(Words))
		{
			Keywords.AddUnique(Word);
		}
		const FString NamingPart = GetNamingPart(Title);
		const bool bOwnOperator = Words.Num() > 1 && IsOperatorWord(Words[0])
			&& IsOneOf(Words.Last(), {TEXT("string"), TEXT("text")});
		if (NamingPart.Len() < Title.Len() && !bOwnOperator)
		{
			Keywords.AddUnique(MakeWhole(KeywordWords::Split(NamingPart)));
		}
		for (const TArray<FString>& OnContainer : GetContainerOperations(Words))
		{
			Keywords.AddUnique(MakeWhole(OnContainer));
		}
		if (Words.Num() > 1 && IsOneOf(Words.Last(), {TEXT("key")}))
		{
			// "W key": keys are titled without the word.
			Keywords.AddUnique(MakeWhole(TArray<FString>(Words.GetData(), Words.Num() - 1)));
		}
		const TArray<FString> Operator = GetBareOperator(Words);
		if (!Operator.IsEmpty())
		{
			Keywords.AddUnique(MakeWhole(Operator));
		}
		const TArray<FString> Turned = PutOperatorFirst(Words);
		if (!Turned.IsEmpty())
		{
			Keywords.AddUnique(MakeWhole(Turned));
		}
		if (!Words.IsEmpty() && !KeywordWords::IsShorthand(Written)
			&& Title.Contains(TEXT("s"), ESearchCase::IgnoreCase))
		{
			// "Get Components" is not "Get Component", where both are titles.
			Keywords.AddUnique(MakeWhole(KeywordWords::Split(Title, true)));
		}
		if (KeywordWords::HasTypeLetter(Title))
		{
			Keywords.AddUnique(Squeeze(Title));
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
