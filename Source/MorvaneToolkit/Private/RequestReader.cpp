#include "RequestReader.h"

#include "KeywordWords.h"
#include "RequestForms.h"
#include "RequestLexicon.h"
#include "RequestSyntax.h"

namespace RequestReaderImpl
{
/** Words before a term that do not change what it does. */
static FString StripShell(FString Text)
{
	Text = Text.TrimStartAndEnd();
	while (Text.Len() > 1 && FString(TEXT(";{")).Contains(FString::Chr(Text[Text.Len() - 1])))
	{
		Text = Text.LeftChop(1).TrimStartAndEnd();
	}
	bool bStripped = true;
	while (bStripped)
	{
		bStripped = false;
		for (const TCHAR* const Word :
			{TEXT("await "), TEXT("yield return "), TEXT("yield "), TEXT("co_await "), TEXT("call "), TEXT("execute "),
				TEXT("then "), TEXT("please "), TEXT("the "), TEXT("a "), TEXT("an ")})
		{
			const int32 Length = FStringView(Word).Len();
			if (Text.StartsWith(Word, ESearchCase::IgnoreCase) && Text.Len() > Length && FChar::IsAlpha(Text[Length]))
			{
				Text = Text.RightChop(Length);
				bStripped = true;
			}
		}
	}
	return Text.EndsWith(TEXT(" node"), ESearchCase::IgnoreCase) ? Text.LeftChop(5).TrimStartAndEnd() : Text;
}

/** "integer to string" is directed: nothing but that conversion will do, and an unknown pair means nothing. */
static bool IsConversion(TArray<FString> Words)
{
	if (Words.Num() > 3 && (Words[0].Equals(TEXT("convert")) || Words[0].Equals(TEXT("parse"))))
	{
		Words.RemoveAt(0);
	}
	if (Words.Num() == 4 && Words[3].Equals(TEXT("conversion")))
	{
		Words.SetNum(3);
	}
	static const TSet<FString> Doing = {TEXT("cast"), TEXT("convert"), TEXT("parse"), TEXT("add"), TEXT("bind"),
		TEXT("append"), TEXT("print"), TEXT("set"), TEXT("attach"), TEXT("go"), TEXT("move"), TEXT("log"),
		TEXT("enum")};
	return Words.Num() == 3 && Words[1].Equals(TEXT("to")) && !Doing.Contains(Words[0])
		&& (KeywordWords::IsTypeWord(Words[0]) || KeywordWords::IsTypeWord(Words[2]));
}

/** "Set Visibility (Widget)": the remark may be the class that is meant. */
static void AddRemark(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	const int32 Bracket = Text.Find(TEXT(" ("), ESearchCase::CaseSensitive);
	if (Bracket > 0 && Text.EndsWith(TEXT(")"), ESearchCase::CaseSensitive))
	{
		const FString Remark = Text.Mid(Bracket + 2, Text.Len() - Bracket - 3);
		if (RequestSyntax::IsName(Remark))
		{
			OutReadings.Add({Text.Left(Bracket), Remark, true});
		}
	}
}

static bool IsAssetName(const FString& Word)
{
	if (Word.StartsWith(TEXT("/"), ESearchCase::CaseSensitive))
	{
		return true;
	}
	for (const TCHAR* const Prefix : {TEXT("BP_"), TEXT("WBP_"), TEXT("ABP_"), TEXT("BPI_"), TEXT("SM_"), TEXT("SK_"),
			 TEXT("M_"), TEXT("MI_"), TEXT("T_"), TEXT("S_"), TEXT("SG_"), TEXT("IA_"), TEXT("DT_"), TEXT("W_")})
	{
		if (Word.StartsWith(Prefix, ESearchCase::CaseSensitive))
		{
			return true;
		}
	}
	return false;
}

/** A value or an asset behind a whole title is what a pin takes. */
static void AddWithoutValue(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	TArray<FString> Rest = Pieces;
	const FString& Last = Pieces.Last();
	const bool bValue = Last.IsNumeric() || Last.Equals(TEXT("true"), ESearchCase::IgnoreCase)
		|| Last.Equals(TEXT("false"), ESearchCase::IgnoreCase) || IsAssetName(Last);
	if (Pieces.Num() < 2 || !bValue)
	{
		return;
	}
	Rest.Pop();
	const bool bJoined = Rest.Last().Equals(TEXT("to"), ESearchCase::IgnoreCase)
		|| Rest.Last().Equals(TEXT("="), ESearchCase::IgnoreCase) || Rest.Last().Equals(TEXT("of"));
	if (bJoined && Rest.Num() > 1)
	{
		Rest.Pop();
	}
	OutReadings.Add({FString::Join(Rest, TEXT(" ")), FString(), true});
}

/** "split transform" breaks one, "create rotator" makes one. */
static void AddStructVerb(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	if (Pieces.Num() < 2)
	{
		return;
	}
	TArray<FString> Rest = Pieces;
	Rest.RemoveAt(0);
	const FString Name = FString::Join(Rest, TEXT(" "));
	for (const TCHAR* const Verb : {TEXT("split"), TEXT("decompose"), TEXT("separate"), TEXT("destructure")})
	{
		if (Pieces[0].Equals(Verb, ESearchCase::IgnoreCase))
		{
			OutReadings.Add({TEXT("Break ") + Name, FString(), true});
		}
	}
	for (const TCHAR* const Verb : {TEXT("create"), TEXT("new"), TEXT("construct"), TEXT("build"), TEXT("compose")})
	{
		if (Pieces[0].Equals(Verb, ESearchCase::IgnoreCase))
		{
			OutReadings.Add({TEXT("Make ") + Name, FString(), true});
		}
	}
}

static void ReadProse(const FString& Text, const FRequestScope& Scope, FRequestReadings& Out)
{
	const FString Plain = RequestSyntax::WithoutQuoted(Text);
	TArray<FString> Pieces;
	Plain.ParseIntoArrayWS(Pieces);
	if (Pieces.IsEmpty())
	{
		return;
	}
	const TArray<FString> Words = KeywordWords::Split(Plain);
	if (IsConversion(Words))
	{
		Out.Readings.Append(RequestLexicon::FindVerb(TEXT("conversion"), FString::Join(Words, TEXT(""))));
		Out.bOnlyReadings = true;
		return;
	}
	if (Pieces.Num() == 1 && (Plain[0] == TEXT('_') || Plain.StartsWith(TEXT("on"), ESearchCase::IgnoreCase)))
	{
		Out.Readings.Append(RequestLexicon::FindEvent(Plain));
	}
	AddRemark(Plain, Out.Readings);
	AddWithoutValue(Pieces, Out.Readings);
	AddStructVerb(Pieces, Out.Readings);
	Out.Readings.Append(RequestLexicon::FindVerb(FString(), Plain));
	Out.Readings.Append(RequestLexicon::FindPhrase(Words, Scope));
	Out.Readings.Add({Plain, FString(), Plain.Len() == Text.Len()});
}
} // namespace RequestReaderImpl

FRequestReadings FRequestReader::Read(const FString& Text, const FRequestScope& Scope)
{
	FRequestReadings Out;
	const FString Term = RequestReaderImpl::StripShell(Text);
	if (Term.IsEmpty())
	{
		return Out;
	}
	Out.bCode = RequestForms::ReadStatement(Term, Scope, Out.Readings) || RequestForms::ReadCast(Term, Out.Readings)
		|| RequestForms::ReadExpression(Term, Scope, Out.Readings) || RequestForms::ReadCall(Term, Scope, Out.Readings);
	Out.bOnlyReadings = Out.bCode;
	if (!Out.bCode)
	{
		RequestReaderImpl::ReadProse(Term, Scope, Out);
	}
	return Out;
}

bool FRequestReader::IsOfOneTitle(const FString& NodeClass)
{
	return NodeClass.Equals(TEXT("MathExpression"), ESearchCase::IgnoreCase)
		|| NodeClass.Equals(TEXT("Self"), ESearchCase::IgnoreCase)
		|| (KeywordWords::IsNodeClassName(NodeClass) && !KeywordWords::IsFamilyClassName(NodeClass));
}

TArray<FRequestReading> FRequestReader::ReadAsMember(const FString& Text, const FString& NodeClass)
{
	struct FTitleOfClass
	{
		const TCHAR* NodeClass;
		const TCHAR* Before;
	};
	static constexpr FTitleOfClass Titles[] = {
		{TEXT("K2Node_VariableGet"), TEXT("Get ")},
		{TEXT("K2Node_VariableSet"), TEXT("Set ")},
		{TEXT("K2Node_CallDelegate"), TEXT("Call ")},
		{TEXT("K2Node_AddDelegate"), TEXT("Bind Event to ")},
		{TEXT("K2Node_AssignDelegate"), TEXT("Assign ")},
		{TEXT("K2Node_RemoveDelegate"), TEXT("Unbind Event from ")},
		{TEXT("K2Node_ClearDelegate"), TEXT("Unbind all Events from ")},
		{TEXT("K2Node_DynamicCast"), TEXT("Cast To ")},
		{TEXT("K2Node_MakeStruct"), TEXT("Make ")},
		{TEXT("K2Node_BreakStruct"), TEXT("Break ")},
		{TEXT("K2Node_SetFieldsInStruct"), TEXT("Set members in ")},
		{TEXT("K2Node_SwitchEnum"), TEXT("Switch on ")},
		{TEXT("K2Node_ForEachElementInEnum"), TEXT("ForEach ")},
		{TEXT("K2Node_EnumLiteral"), TEXT("Literal enum ")},
		{TEXT("K2Node_CastByteToEnum"), TEXT("Byte to Enum ")},
		{TEXT("K2Node_GetNumEnumEntries"), TEXT("Get number of entries in ")},
		{TEXT("K2Node_AddComponent"), TEXT("Add ")},
		{TEXT("K2Node_Event"), TEXT("Event ")},
	};
	TArray<FRequestReading> Readings;
	for (const FTitleOfClass& Row : Titles)
	{
		if (NodeClass.Equals(Row.NodeClass, ESearchCase::IgnoreCase))
		{
			Readings.Add({Row.Before + Text.TrimStartAndEnd(), FString(), true});
			Readings.Add({Row.Before + RequestSyntax::WithoutTypeLetter(Text.TrimStartAndEnd()), FString(), true});
		}
	}
	return Readings;
}
