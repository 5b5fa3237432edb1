#include "RequestReader.h"

#include "KeywordWords.h"
#include "RequestForms.h"
#include "RequestLexicon.h"
#include "RequestSyntax.h"

namespace RequestReaderImpl
{
/** "a and b": the article is none. */
static bool IsOperand(const FString& Text, int32 Length)
{
	TArray<FString> Pieces;
	Text.RightChop(Length).ParseIntoArrayWS(Pieces);
	static const TSet<FString> Signs = {TEXT("and"), TEXT("or"), TEXT("xor"), TEXT("nand"), TEXT("nor"), TEXT("is"),
		TEXT("in"), TEXT("as"), TEXT("if")};
	return Length == 2 && Pieces.Num() > 1 && Signs.Contains(Pieces[0].ToLower());
}

/** Signs alone, among them such as no operator has: a percent sign in it is no modulo. */
static bool IsNoise(const FString& Text)
{
	int32 Index = INDEX_NONE;
	bool bForeign = false;
	for (const TCHAR Char : Text)
	{
		if (FChar::IsAlnum(Char))
		{
			return false;
		}
		bForeign |= FStringView(TEXT("@#$?;,.:_\\")).FindChar(Char, Index);
	}
	return bForeign;
}

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
			if (Text.StartsWith(Word, ESearchCase::IgnoreCase) && Text.Len() > Length && FChar::IsAlpha(Text[Length])
				&& !IsOperand(Text, Length))
			{
				Text = Text.RightChop(Length);
				bStripped = true;
			}
		}
	}
	const int32 Mark = Text.Find(TEXT("!("), ESearchCase::CaseSensitive);
	if (Mark > 0 && FChar::IsAlnum(Text[Mark - 1]))
	{
		Text.RemoveAt(Mark); // a macro of a language: "println!(x)"
	}
	return Text.EndsWith(TEXT(" node"), ESearchCase::IgnoreCase) ? Text.LeftChop(5).TrimStartAndEnd() : Text;
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
			OutReadings.Add({Text.Left(Bracket), Remark});
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
	OutReadings.Add({FString::Join(Rest, TEXT(" ")), FString()});
}

/** "into x, y and z": the pins are not part of the struct's name. */
static void DropParts(TArray<FString>& InOutPieces)
{
	static const TSet<FString> Parts = {TEXT("into"), TEXT("from"), TEXT("x"), TEXT("y"), TEXT("z"), TEXT("w"),
		TEXT("r"), TEXT("g"), TEXT("b"), TEXT("a"), TEXT("and"), TEXT("its"), TEXT("component"), TEXT("components"),
		TEXT("part"), TEXT("parts"), TEXT("pins"), TEXT("floats"), TEXT("values"), TEXT("roll"), TEXT("pitch"),
		TEXT("yaw"), TEXT("three"), TEXT("members"), TEXT("fields"), TEXT("location"), TEXT("rotation"), TEXT("scale")};
	int32 End = InOutPieces.Num();
	while (End > 1 && Parts.Contains(InOutPieces[End - 1].Replace(TEXT(","), TEXT("")).ToLower()))
	{
		--End;
	}
	const bool bParts = End < InOutPieces.Num()
		&& (InOutPieces[End].Equals(TEXT("into"), ESearchCase::IgnoreCase)
			|| InOutPieces[End].Equals(TEXT("from"), ESearchCase::IgnoreCase));
	InOutPieces.SetNum(bParts ? End : InOutPieces.Num());
}

/** "split transform" breaks one, "create rotator" makes one, "make struct Vector" names its kind. */
static void AddStructVerb(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	const auto IsKind = [](const FString& Piece)
	{
		return Piece.Equals(TEXT("struct"), ESearchCase::IgnoreCase)
			|| Piece.Equals(TEXT("structure"), ESearchCase::IgnoreCase);
	};
	if (Pieces.Num() < 2)
	{
		return;
	}
	TArray<FString> Rest = Pieces;
	Rest.RemoveAt(0);
	Rest.RemoveAll(IsKind);
	DropParts(Rest);
	const FString Name = FString::Join(Rest, TEXT(" "));
	const auto Add = [&Name, &OutReadings](const TCHAR* Verb)
	{
		OutReadings.Add({Verb + Name, FString()});
		OutReadings.Add({Verb + RequestSyntax::WithoutTypeLetter(Name), FString()});
	};
	const bool bKind = Rest.Num() + 1 < Pieces.Num(); // something was left out, so the whole of it is no title
	for (const TCHAR* const Verb : {TEXT("split"), TEXT("decompose"), TEXT("separate"), TEXT("destructure"),
			 bKind ? TEXT("break") : TEXT("unpack")})
	{
		if (Pieces[0].Equals(Verb, ESearchCase::IgnoreCase))
		{
			Add(TEXT("Break "));
		}
	}
	for (const TCHAR* const Verb : {TEXT("create"), TEXT("new"), TEXT("construct"), TEXT("build"), TEXT("compose"),
			 bKind ? TEXT("make") : TEXT("pack")})
	{
		if (Pieces[0].Equals(Verb, ESearchCase::IgnoreCase))
		{
			Add(TEXT("Make "));
		}
	}
}

/** "Event: Tick" says what kind of node it is, "Print String: hello" what the pin takes. */
static void AddLabelled(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	int32 Colon = INDEX_NONE;
	if (!Text.FindChar(TEXT(':'), Colon) || Colon == 0 || Colon + 1 >= Text.Len())
	{
		return;
	}
	const FString Label = Text.Left(Colon).TrimStartAndEnd();
	const FString Rest = Text.RightChop(Colon + 1).TrimStartAndEnd();
	OutReadings.Add({Label + TEXT(" ") + Rest, FString()});
	OutReadings.Add({Label, FString()});
	for (const TCHAR* const Kind : {TEXT("event"), TEXT("function"), TEXT("macro"), TEXT("node"), TEXT("call"),
			 TEXT("variable"), TEXT("k2node"), TEXT("action"), TEXT("flow control"), TEXT("operator")})
	{
		if (Label.Equals(Kind, ESearchCase::IgnoreCase))
		{
			OutReadings.Add({Rest, FString()});
		}
	}
}

/** "load map MainMenu", "find actors with tag enemy": the last word is what somebody has named. */
static bool IsMadeName(const TArray<FString>& Pieces)
{
	const FString& Last = Pieces.Last();
	int32 NumHumps = 0;
	for (const TCHAR Char : Last)
	{
		NumHumps += FChar::IsUpper(Char) ? 1 : 0;
	}
	const bool bHumps = NumHumps > 1 && FChar::IsUpper(Last[0]) && FChar::IsLower(Last[Last.Len() - 1])
		&& FChar::IsLower(Pieces[0][0]);
	const bool bNamed = Pieces.Num() > 3
		&& RequestSyntax::IsOneOf(Pieces[Pieces.Num() - 2], TEXT("tag slot level map socket"));
	return bHumps || bNamed;
}

/** "Create WBP_Menu widget": the asset is what a pin takes. */
static void AddWithoutAsset(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	TArray<FString> Rest = Pieces.FilterByPredicate([](const FString& Piece) { return !IsAssetName(Piece); });
	const bool bValue = Rest.Num() > 2 && Rest.Num() == Pieces.Num() && IsMadeName(Rest);
	Rest.SetNum(bValue ? Rest.Num() - 1 : Rest.Num());
	if (Rest.Num() > 0 && Rest.Num() < Pieces.Num())
	{
		OutReadings.Add({FString::Join(Rest, TEXT(" ")), FString()});
		OutReadings.Append(
			RequestLexicon::FindPhrase(KeywordWords::Split(FString::Join(Rest, TEXT(" "))), FRequestScope()));
	}
}

/** "the mesh" of "enable physics on the mesh": what something is done to, where any such thing would do. */
static TArray<FString> WithoutObject(const TArray<FString>& Pieces, const FRequestScope& Scope)
{
	static const TSet<FString> Joints = {TEXT("on"), TEXT("of"), TEXT("for"), TEXT("to"), TEXT("in"), TEXT("from")};
	static const TSet<FString> Articles = {TEXT("the"), TEXT("a"), TEXT("an"), TEXT("my"), TEXT("this"), TEXT("that"),
		TEXT("its"), TEXT("our"), TEXT("your")};
	static const TSet<FString> Things = {TEXT("mesh"), TEXT("actor"), TEXT("component"), TEXT("object"), TEXT("self"),
		TEXT("it"), TEXT("player"), TEXT("character"), TEXT("pawn"), TEXT("enemy"), TEXT("target"), TEXT("me"),
		TEXT("him"), TEXT("them"), TEXT("blueprint"), TEXT("game"), TEXT("world"), TEXT("myself"), TEXT("itself")};
	int32 Index = Pieces.Num() - 1;
	const bool bThing = Things.Contains(Pieces.Last().ToLower()) || !Scope.Find(Pieces.Last()).Name.IsEmpty();
	while (Index > 0 && Articles.Contains(Pieces[Index - 1].ToLower()))
	{
		--Index;
	}
	const bool bBehind = bThing && Index > 1 && Joints.Contains(Pieces[Index - 1].ToLower());
	return bBehind ? TArray<FString>(Pieces.GetData(), Index - 1) : TArray<FString>();
}

/** "Branch on condition", "Sequence with 3 outputs": behind the title stands what its pins take. */
static void AddWithPins(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings)
{
	static const TSet<FString> Joints = {TEXT("with"), TEXT("on"), TEXT("using"), TEXT("when"), TEXT("if"),
		TEXT("from"), TEXT("by"), TEXT("for"), TEXT("to"), TEXT("at"), TEXT("named"), TEXT("called"), TEXT("until"),
		TEXT("of"), TEXT("in"), TEXT("and"), TEXT("after"), TEXT("every"), TEXT("over"), TEXT("as"), TEXT("into"),
		TEXT("onto")};
	for (int32 Index = Pieces.Num() - 2; Index > 0; --Index)
	{
		if (Joints.Contains(Pieces[Index].ToLower()))
		{
			const FString Title = FString::Join(TArray<FString>(Pieces.GetData(), Index), TEXT(" "));
			if (Pieces[Index].Equals(TEXT("named"), ESearchCase::IgnoreCase)
				|| Pieces[Index].Equals(TEXT("called"), ESearchCase::IgnoreCase))
			{
				OutReadings.Append(RequestLexicon::FindPhrase(KeywordWords::Split(Title), FRequestScope()));
				OutReadings.Add({Title, FString()});
			}
			if (Pieces[Index].Equals(TEXT("to"), ESearchCase::IgnoreCase) && Index > 1
				&& Pieces[0].Equals(TEXT("set"), ESearchCase::IgnoreCase))
			{
				OutReadings.Add({Title, FString()}); // what it is set to is a value, whatever it is
			}
			const TArray<FString> Behind(Pieces.GetData() + Index + 1, Pieces.Num() - Index - 1);
			FRequestReading& Reading = OutReadings.Add_GetRef({Title, FString()});
			Reading.PinWords = FString::Join(Behind, TEXT(" "));
		}
	}
}

/** "push_back", "xor", "pi": names of what languages have, without what they are called on. */
static void AddLoneWord(const FString& Word, TArray<FRequestReading>& OutReadings)
{
	OutReadings.Append(RequestLexicon::FindVerb(TEXT("logic"), Word));
	OutReadings.Append(RequestLexicon::FindVerb(TEXT("math"), Word));
	if (KeywordWords::Split(Word).Num() > 1)
	{
		OutReadings.Append(RequestLexicon::FindVerbOfAny(Word));
	}
}

static void ReadProse(const FString& Text, const FRequestScope& Scope, FRequestReadings& Out)
{
	const FString Plain = RequestSyntax::WithoutQuoted(Text);
	TArray<FString> Pieces;
	Plain.ParseIntoArrayWS(Pieces);
	if (Pieces.IsEmpty() || (Plain.Len() == 1 && Plain.Len() < Text.Len()))
	{
		return; // what is left of a quoted text is no key
	}
	const TArray<FString> Words = KeywordWords::Split(Plain);
	if (RequestForms::ReadConversion(Words, Scope, Out.Readings))
	{
		Out.bOnlyReadings = true;
		return;
	}
	if (Pieces.Num() == 1 && (Plain[0] == TEXT('_') || Plain.StartsWith(TEXT("on"), ESearchCase::IgnoreCase)))
	{
		Out.Readings.Append(RequestLexicon::FindEvent(Plain));
	}
	RequestForms::ReadOwnMember(Pieces, Scope, Out.Readings);
	AddRemark(Plain, Out.Readings);
	AddWithoutValue(Pieces, Out.Readings);
	AddStructVerb(Pieces, Out.Readings);
	AddLabelled(Plain, Out.Readings);
	Out.Readings.Append(RequestLexicon::FindVerb(FString(), Plain));
	if (Pieces.Num() == 1)
	{
		AddLoneWord(Plain, Out.Readings);
	}
	AddWithoutAsset(Pieces, Out.Readings);
	RequestForms::ReadMemberOfClass(Pieces, Out.Readings);
	if (Pieces.Num() > 3)
	{
		Out.Readings.Add({Plain, FString(), ERequestFit::Close}); // so much is no accident
	}
	Out.Readings.Append(RequestLexicon::FindPhrase(Words, Scope));
	const TArray<FString> Deed = WithoutObject(Pieces, Scope);
	if (!Deed.IsEmpty())
	{
		const FString Rest = FString::Join(Deed, TEXT(" "));
		Out.Readings.Append(RequestLexicon::FindVerb(FString(), Rest));
		Out.Readings.Append(RequestLexicon::FindPhrase(KeywordWords::Split(Rest), Scope));
		Out.Readings.Add({Rest, FString()});
	}
	RequestForms::ReadKey(Pieces, Out.Readings);
	RequestForms::ReadVerb(Pieces, Out.Readings);
	AddWithPins(Pieces, Out.Readings);
	if (Pieces.Num() == 2 || Pieces.Num() == 3)
	{
		Out.Readings.Append(RequestLexicon::FindVerb(TEXT("math"), Plain)); // "round to int"
		Out.Readings.Append(RequestLexicon::FindVerbOfAny(Plain)); // "to lower case"
	}
	if (Pieces.Num() > 2 && Pieces[0].Equals(TEXT("if"), ESearchCase::IgnoreCase))
	{
		Out.Readings.Add({TEXT("Branch"), FString()});
	}
	Out.Readings.Add({Plain, FString(), Plain.Len() == Text.Len() ? ERequestFit::Whole : ERequestFit::Near});
}
} // namespace RequestReaderImpl

FRequestReadings FRequestReader::Read(const FString& Text, const FRequestScope& Scope)
{
	FRequestReadings Out;
	const FString Term = RequestReaderImpl::StripShell(Text);
	if (RequestReaderImpl::IsNoise(Term))
	{
		Out.bOnlyReadings = true;
		Out.bCode = true;
		return Out;
	}
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
			Readings.Add({Row.Before + Text.TrimStartAndEnd(), FString()});
			Readings.Add({Row.Before + RequestSyntax::WithoutTypeLetter(Text.TrimStartAndEnd()), FString()});
		}
	}
	return Readings;
}
