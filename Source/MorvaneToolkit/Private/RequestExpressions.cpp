#include "RequestForms.h"
#include "RequestLexicon.h"
#include "RequestSyntax.h"

namespace RequestExpressionImpl
{
static bool IsNull(const FString& Text)
{
	static const TSet<FString> Names = {TEXT("null"), TEXT("nullptr"), TEXT("none"), TEXT("nil"), TEXT("undefined"),
		TEXT("not null"), TEXT("not none")};
	return Names.Contains(Text.TrimStartAndEnd().ToLower());
}

static bool ReadNullTest(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	for (const TCHAR* const Sign : {TEXT("==="), TEXT("!=="), TEXT("=="), TEXT("!="), TEXT(" is not "), TEXT(" is ")})
	{
		const int32 Index = RequestSyntax::FindSign(Text, Sign);
		if (Index != INDEX_NONE && IsNull(Text.RightChop(Index + FStringView(Sign).Len()))
			&& RequestSyntax::IsOperand(Text.Left(Index)))
		{
			OutReadings.Add({TEXT("Is Valid"), TEXT("KismetSystemLibrary")});
			return true;
		}
	}
	return false;
}

static bool ReadTernary(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	const int32 Question = RequestSyntax::FindSign(Text, TEXT(" ? "));
	const bool bSigns = Question != INDEX_NONE
		&& RequestSyntax::FindSign(Text.RightChop(Question), TEXT(":")) != INDEX_NONE;
	const int32 If = RequestSyntax::FindSign(Text, TEXT(" if "));
	const bool bWords = If != INDEX_NONE && RequestSyntax::FindSign(Text.RightChop(If), TEXT(" else ")) != INDEX_NONE
		&& RequestSyntax::IsOperand(Text.Left(If));
	if (bSigns || bWords)
	{
		OutReadings.Add({TEXT("Select"), FString()});
	}
	return bSigns || bWords;
}

struct FOperator
{
	const TCHAR* Sign;
	const TCHAR* Title;
	/** Between words the sign is no operator unless there is room around it. */
	bool bNeedsRoom;
};

/** Those that bind least come first: they are what the whole term does. */
constexpr FOperator Operators[] = {
	{TEXT("||"), TEXT("OR Boolean"), false},
	{TEXT("&&"), TEXT("AND Boolean"), false},
	{TEXT("==="), TEXT("Equal (==)"), false},
	{TEXT("!=="), TEXT("Not Equal (!=)"), false},
	{TEXT("=="), TEXT("Equal (==)"), false},
	{TEXT("!="), TEXT("Not Equal (!=)"), false},
	{TEXT("<>"), TEXT("Not Equal (!=)"), false},
	{TEXT("<="), TEXT("Less Equal (<=)"), false},
	{TEXT(">="), TEXT("Greater Equal (>=)"), false},
	{TEXT("<"), TEXT("Less (<)"), true},
	{TEXT(">"), TEXT("Greater (>)"), true},
	{TEXT("+"), TEXT("Add"), false},
	{TEXT("-"), TEXT("Subtract"), true},
	{TEXT("**"), TEXT("Power"), false},
	{TEXT("*"), TEXT("Multiply"), false},
	{TEXT("/"), TEXT("Divide"), true},
	{TEXT("%"), TEXT("% (Float)"), false},
	{TEXT("&"), TEXT("Bitwise AND"), true},
	{TEXT("|"), TEXT("Bitwise OR"), true},
	{TEXT("^"), TEXT("Bitwise XOR"), true},
};

/** "f\"{x}\"", "`${x}`". */
static bool ReadFormatted(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	const bool bPrefixed = Text.Len() > 3 && (Text[0] == TEXT('f') || Text[0] == TEXT('$'))
		&& RequestSyntax::IsQuoted(Text.RightChop(1));
	const bool bTicked = Text.Len() > 2 && Text[0] == TEXT('`') && Text.EndsWith(TEXT("`"), ESearchCase::CaseSensitive);
	if (bPrefixed || bTicked)
	{
		OutReadings.Add({TEXT("Format Text"), FString()});
	}
	return bPrefixed || bTicked;
}

/** Whether both sides of the word are conditions: "x > 0 and y < 1". */
static bool ReadJoinedConditions(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	const auto IsCondition = [](const FString& Side)
	{
		for (const TCHAR* const Sign : {TEXT("=="), TEXT("!="), TEXT("<="), TEXT(">="), TEXT("<"), TEXT(">")})
		{
			if (RequestSyntax::FindSign(Side, Sign) != INDEX_NONE)
			{
				return true;
			}
		}
		return false;
	};
	for (const TCHAR* const Word : {TEXT(" or "), TEXT(" and ")})
	{
		const int32 Index = RequestSyntax::FindSign(Text, Word);
		if (Index != INDEX_NONE
			&& (IsCondition(Text.Left(Index)) || IsCondition(Text.RightChop(Index + FStringView(Word).Len()))))
		{
			OutReadings.Add({FString(Word).TrimStartAndEnd().ToUpper() + TEXT(" Boolean"), FString()});
			return true;
		}
	}
	return false;
}

/** "try / catch" divides nothing. */
static bool IsWordOfLanguage(const FString& Text)
{
	static const TSet<FString> Words = {TEXT("try"), TEXT("catch"), TEXT("except"), TEXT("finally"), TEXT("if"),
		TEXT("else"), TEXT("then"), TEXT("and"), TEXT("or"), TEXT("on"), TEXT("off"), TEXT("yes"), TEXT("no"),
		TEXT("get"), TEXT("set"), TEXT("show"), TEXT("hide"), TEXT("open"), TEXT("close"), TEXT("start"), TEXT("stop"),
		TEXT("add"), TEXT("remove"), TEXT("enable"), TEXT("disable"), TEXT("flip"), TEXT("flop"), TEXT("do"),
		TEXT("while"), TEXT("for"), TEXT("switch"), TEXT("case"), TEXT("begin"), TEXT("end")};
	return Words.Contains(Text.TrimStartAndEnd().ToLower());
}

static bool IsString(const FString& Text, const FRequestScope& Scope)
{
	const FString Term = Text.TrimStartAndEnd();
	return RequestSyntax::IsQuoted(Term) || Scope.GetVariableKind(Term).Equals(TEXT("string"))
		|| Term.Equals(TEXT("string"), ESearchCase::IgnoreCase);
}

static void AddOperator(const FOperator& Row, const FString& Left, const FString& Right, const FRequestScope& Scope,
	TArray<FRequestReading>& Out)
{
	const bool bJoins = FStringView(Row.Sign).Equals(TEXT("+")) && (IsString(Left, Scope) || IsString(Right, Scope));
	if (bJoins)
	{
		Out.Add({TEXT("Append"), TEXT("KismetStringLibrary")});
		return;
	}
	Out.Add({Row.Title, FString()});
}

static bool ReadOperator(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	for (const FOperator& Row : Operators)
	{
		const FString Sign = Row.bNeedsRoom ? TEXT(" ") + FString(Row.Sign) + TEXT(" ") : FString(Row.Sign);
		const int32 Index = RequestSyntax::FindSign(Text, *Sign);
		if (Index == INDEX_NONE)
		{
			continue;
		}
		const FString Left = Text.Left(Index);
		const FString Right = Text.RightChop(Index + Sign.Len());
		if (RequestSyntax::IsOperand(Left) && RequestSyntax::IsOperand(Right) && !IsWordOfLanguage(Left)
			&& !IsWordOfLanguage(Right))
		{
			AddOperator(Row, Left, Right, Scope, OutReadings);
			return true;
		}
	}
	return false;
}

/** A word that no one would write in prose: "bIsOpen", "x", "is_open", "true", a call. */
static bool IsCodeWord(const FString& Text, const FRequestScope& Scope)
{
	RequestSyntax::FChain Chain;
	const bool bFlag = Text.Len() > 2 && Text[0] == TEXT('b') && FChar::IsUpper(Text[1]);
	return bFlag || Text.Len() == 1 || Text.Contains(TEXT("_")) || Text.Equals(TEXT("true"), ESearchCase::IgnoreCase)
		|| Text.Equals(TEXT("false"), ESearchCase::IgnoreCase) || RequestSyntax::ReadChain(Text, Chain)
		|| !Scope.GetVariableKind(Text).IsEmpty();
}

/** "a and b", "not a". */
static bool ReadLogicWords(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	TArray<FString> Pieces;
	Text.ParseIntoArrayWS(Pieces);
	if (Pieces.Num() == 3 && IsCodeWord(Pieces[0], Scope) && IsCodeWord(Pieces[2], Scope))
	{
		for (const TCHAR* const Word : {TEXT("and"), TEXT("or"), TEXT("xor"), TEXT("nand"), TEXT("nor")})
		{
			if (Pieces[1].Equals(Word, ESearchCase::IgnoreCase))
			{
				OutReadings.Add({FString(Word).ToUpper() + TEXT(" Boolean"), FString()});
				return true;
			}
		}
	}
	const bool bSign = Text.Len() > 1 && Text[0] == TEXT('!') && RequestSyntax::IsOperand(Text.RightChop(1));
	const bool bWord = Pieces.Num() == 2 && Pieces[0].Equals(TEXT("not"), ESearchCase::IgnoreCase)
		&& IsCodeWord(Pieces[1], Scope);
	if (bSign || bWord)
	{
		OutReadings.Add({TEXT("NOT Boolean"), FString()});
	}
	return bSign || bWord;
}

/** "key in dict", "x not in items". */
static bool ReadMembership(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const bool bIf = Text.StartsWith(TEXT("if "), ESearchCase::IgnoreCase);
	const FString Term = bIf ? Text.RightChop(3) : Text;
	TArray<FString> Pieces;
	Term.ParseIntoArrayWS(Pieces);
	const bool bNot = Pieces.Num() == 4 && Pieces[1].Equals(TEXT("not"), ESearchCase::IgnoreCase);
	if ((Pieces.Num() != 3 && !bNot) || !Pieces[Pieces.Num() - 2].Equals(TEXT("in"), ESearchCase::IgnoreCase)
		|| !RequestSyntax::IsOperand(Pieces[0]))
	{
		return false;
	}
	const FString Place = Pieces.Last().EndsWith(TEXT(":")) ? Pieces.Last().LeftChop(1) : Pieces.Last();
	const FString OfKind = RequestLexicon::GetFamilyOfKind(Scope.GetVariableKind(Place));
	const FString Family = OfKind.IsEmpty() ? RequestLexicon::GetFamily(Place) : OfKind;
	// "replace in string" says what is done there.
	if (Family.IsEmpty() || (!bIf && !RequestLexicon::FindVerb(Family, Pieces[0]).IsEmpty()))
	{
		return false;
	}
	OutReadings.Append(RequestLexicon::FindVerb(Family, TEXT("contain")));
	return true;
}

static bool ReadStep(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	for (const TCHAR* const Sign : {TEXT("++"), TEXT("--")})
	{
		const bool bBefore = Text.StartsWith(Sign, ESearchCase::CaseSensitive);
		const bool bAfter = Text.EndsWith(Sign, ESearchCase::CaseSensitive);
		const FString Name = bBefore ? Text.RightChop(2) : Text.LeftChop(2);
		if ((bBefore || bAfter) && (Name.IsEmpty() || RequestSyntax::IsOperand(Name)))
		{
			OutReadings.Add({Sign[0] == TEXT('+') ? TEXT("Increment Int") : TEXT("Decrement Int"), FString()});
			return true;
		}
	}
	return false;
}

/** The last name of "self.Health" with what it is called on. */
static FString GetLastName(const FString& Text, FString& OutReceiver)
{
	RequestSyntax::FChain Chain;
	if (!RequestSyntax::ReadChain(Text, Chain))
	{
		return Text;
	}
	OutReceiver = Chain.Names.Num() > 1 ? Chain.Names[Chain.Names.Num() - 2] : FString();
	return Chain.Names.Last();
}

/** What setting a member of a family does: its setter, or what its name alone sets ("Time.timeScale"). */
static void AddSetter(const FString& Family, const FString& Name, TArray<FRequestReading>& OutReadings)
{
	OutReadings.Append(RequestLexicon::FindVerb(Family, TEXT("set") + Name));
	for (const FRequestReading& Reading : RequestLexicon::FindVerb(Family, Name))
	{
		if (Reading.Title.StartsWith(TEXT("Set "), ESearchCase::CaseSensitive))
		{
			OutReadings.Add(Reading);
		}
	}
}

static void AddAssignment(const FString& Left, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	FString Receiver;
	const FString Name = GetLastName(Left, Receiver);
	RequestSyntax::FChain Chain;
	if (RequestSyntax::ReadChain(Left, Chain) && Chain.bIndexed)
	{
		const FString Kind = Scope.GetVariableKind(Name);
		const FString Family = Kind.IsEmpty() ? RequestLexicon::GetFamily(Name) : Kind;
		const bool bNumber = Left.Contains(TEXT("[i]")) || Left.Contains(TEXT("[0]")) || Left.Contains(TEXT("[index]"));
		const bool bMap = RequestSyntax::IsQuoted(Chain.Index) || Family.Equals(TEXT("map"))
			|| (!Family.Equals(TEXT("array")) && !bNumber);
		OutReadings.Append(RequestLexicon::FindVerb(bMap ? TEXT("map") : TEXT("array"), TEXT("set")));
		return;
	}
	const bool bOwn = Receiver.IsEmpty() || Receiver.Equals(TEXT("self"), ESearchCase::IgnoreCase)
		|| Receiver.Equals(TEXT("this"), ESearchCase::IgnoreCase);
	if (!bOwn)
	{
		const FString Kind = Scope.GetVariableKind(Receiver);
		const FString OfKind = RequestLexicon::GetFamilyOfKind(Kind);
		AddSetter(OfKind.IsEmpty() ? RequestLexicon::GetFamily(Receiver) : OfKind, Name, OutReadings);
		OutReadings.Add({TEXT("Set ") + Name, Kind.IsEmpty() ? Receiver : Kind});
		FRequestReading& OfAnother = OutReadings.Add_GetRef({TEXT("Set ") + Name, FString()});
		OfAnother.bOfAnother = true;
		OfAnother.Receiver = Receiver;
		return;
	}
	OutReadings.Add({TEXT("Set ") + Name, FString()});
	OutReadings.Append(RequestLexicon::FindVerb(TEXT("actor"), TEXT("set") + Name));
}

/** "x += y", "OnOpened += Handler". */
static bool ReadCompound(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	for (const TCHAR* const Sign : {TEXT("+="), TEXT("-="), TEXT("*="), TEXT("/="), TEXT("%=")})
	{
		const int32 Index = RequestSyntax::FindSign(Text, Sign);
		const FString Left = Index == INDEX_NONE ? FString() : Text.Left(Index).TrimStartAndEnd();
		if (Index == INDEX_NONE || !RequestSyntax::IsOperand(Left))
		{
			continue;
		}
		FString Receiver;
		const FString Name = GetLastName(Left, Receiver);
		if (Scope.GetVariableKind(Name).Equals(TEXT("dispatcher")))
		{
			OutReadings.Add(
				{(Sign[0] == TEXT('+') ? TEXT("Bind Event to ") : TEXT("Unbind Event from ")) + Name, FString()});
			return true;
		}
		if (RequestLexicon::GetFamily(Receiver).Equals(TEXT("actor"))
			&& !RequestLexicon::FindVerb(TEXT("actor"), Name).IsEmpty())
		{
			OutReadings.Append(RequestLexicon::FindVerb(TEXT("actor"), TEXT("move")));
			return true;
		}
		for (const FOperator& Row : Operators)
		{
			if (FStringView(Row.Sign).Len() == 1 && Row.Sign[0] == Sign[0])
			{
				AddOperator(Row, Left, Text.RightChop(Index + 2), Scope, OutReadings);
			}
		}
		return true;
	}
	return false;
}

static bool IsDeclaration(const TArray<FString>& Pieces)
{
	static const TSet<FString> Words = {TEXT("var"), TEXT("let"), TEXT("const"), TEXT("auto"), TEXT("auto*"),
		TEXT("local"), TEXT("int"), TEXT("float"), TEXT("bool"), TEXT("string"), TEXT("double"), TEXT("final")};
	return Pieces.Num() == 2 && (Words.Contains(Pieces[0].ToLower()) || FChar::IsUpper(Pieces[0][0]));
}

static bool ReadAssignment(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	const int32 Index = RequestSyntax::FindSign(Text, TEXT("="));
	const bool bPlain = Index != INDEX_NONE && !FString(TEXT("<>!=:")).Contains(FString::Chr(Text[Index - 1]))
		&& Index + 1 < Text.Len() && !FString(TEXT("=>")).Contains(FString::Chr(Text[Index + 1]));
	if (!bPlain)
	{
		return false;
	}
	const FString Left = Text.Left(Index).TrimStartAndEnd();
	const FString Right = Text.RightChop(Index + 1).TrimStartAndEnd();
	TArray<FString> Pieces;
	Left.ParseIntoArrayWS(Pieces);
	if (IsDeclaration(Pieces))
	{
		// What is kept in a new variable is what the node does.
		return RequestForms::ReadCast(Right, OutReadings) || RequestForms::ReadExpression(Right, Scope, OutReadings)
			|| RequestForms::ReadCall(Right, Scope, OutReadings);
	}
	if (!RequestSyntax::IsOperand(Left))
	{
		return false;
	}
	AddAssignment(Left, Scope, OutReadings);
	return true;
}

static bool ReadList(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	const bool bList = Text[0] == TEXT('[') && RequestSyntax::SkipBrackets(Text, 0) == Text.Len();
	const bool bMap = Text[0] == TEXT('{') && Text.Contains(TEXT(":"))
		&& RequestSyntax::SkipBrackets(Text, 0) == Text.Len();
	if (bList || bMap)
	{
		OutReadings.Add({bList ? TEXT("Make Array") : TEXT("Make Map"), FString()});
	}
	return bList || bMap;
}

/** "std::cout << x". */
static bool ReadStream(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	const int32 Index = RequestSyntax::FindSign(Text, TEXT("<<"));
	FString Receiver;
	const FString Name = Index == INDEX_NONE ? FString() : GetLastName(Text.Left(Index).TrimStartAndEnd(), Receiver);
	const TArray<FRequestReading> Verbs = Name.IsEmpty() ? TArray<FRequestReading>()
														 : RequestLexicon::FindVerb(TEXT("console"), Name);
	OutReadings.Append(Verbs);
	return !Verbs.IsEmpty();
}
} // namespace RequestExpressionImpl

bool RequestForms::ReadExpression(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestExpressionImpl;

	return ReadStream(Text, OutReadings) || ReadNullTest(Text, OutReadings) || ReadTernary(Text, OutReadings)
		|| ReadCompound(Text, Scope, OutReadings) || ReadAssignment(Text, Scope, OutReadings)
		|| ReadStep(Text, OutReadings) || ReadFormatted(Text, OutReadings) || ReadJoinedConditions(Text, OutReadings)
		|| ReadOperator(Text, Scope, OutReadings) || ReadMembership(Text, Scope, OutReadings)
		|| ReadLogicWords(Text, Scope, OutReadings) || ReadList(Text, OutReadings);
}
