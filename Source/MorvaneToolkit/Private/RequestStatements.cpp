#include "RequestForms.h"
#include "RequestLexicon.h"
#include "RequestSyntax.h"

namespace RequestStatementImpl
{
static bool BeginsWithWord(const FString& Text, const TCHAR* Word)
{
	const int32 Length = FStringView(Word).Len();
	return Text.StartsWith(Word, ESearchCase::IgnoreCase)
		&& (Text.Len() == Length || !FChar::IsIdentifier(Text[Length]));
}

static bool IsCode(const FString& Text)
{
	if (Text.EndsWith(TEXT(":"), ESearchCase::CaseSensitive))
	{
		return true;
	}
	for (const TCHAR* const Sign : {TEXT("=="), TEXT("!="), TEXT("<"), TEXT(">"), TEXT("&&"), TEXT("||"), TEXT("=")})
	{
		if (RequestSyntax::FindSign(Text, Sign) != INDEX_NONE)
		{
			return true;
		}
	}
	return false;
}

/** What stands in brackets behind the first word; empty when nothing does. */
static FString GetHead(const FString& Text, int32 WordLength)
{
	const FString Rest = Text.RightChop(WordLength).TrimStartAndEnd();
	const int32 End = Rest.StartsWith(TEXT("("), ESearchCase::CaseSensitive) ? RequestSyntax::SkipBrackets(Rest, 0)
																			 : INDEX_NONE;
	return End == INDEX_NONE ? FString() : Rest.Mid(1, End - 2);
}

static FString FindLoop(const FString& Text)
{
	if (BeginsWithWord(Text, TEXT("foreach")))
	{
		const FString Rest = Text.RightChop(7).TrimStartAndEnd();
		const bool bEnum = Rest.Len() > 2 && Rest[0] == TEXT('E') && FChar::IsUpper(Rest[1])
			&& RequestSyntax::IsName(Rest);
		const bool bCode = Rest.StartsWith(TEXT("("), ESearchCase::CaseSensitive)
			|| Rest.Contains(TEXT(" in "), ESearchCase::IgnoreCase)
			|| Rest.Contains(TEXT(" as "), ESearchCase::IgnoreCase);
		return bEnum ? TEXT("ForEach ") + Rest : bCode ? FString(TEXT("For Each Loop")) : FString();
	}
	if (BeginsWithWord(Text, TEXT("for")))
	{
		const FString Head = GetHead(Text, 3);
		if (Text.Contains(TEXT(";")) || Text.Contains(TEXT(" in range"), ESearchCase::IgnoreCase)
			|| Text.Contains(TEXT("..")))
		{
			return TEXT("For Loop");
		}
		const bool bOver = Head.Contains(TEXT(":")) || Head.Contains(TEXT(" in "), ESearchCase::IgnoreCase)
			|| Head.Contains(TEXT(" of "), ESearchCase::IgnoreCase);
		return bOver || Text.Contains(TEXT(" in "), ESearchCase::IgnoreCase) ? TEXT("For Each Loop") : TEXT("");
	}
	if ((BeginsWithWord(Text, TEXT("do")) || BeginsWithWord(Text, TEXT("repeat")))
		&& (Text.Contains(TEXT("{")) || Text.Contains(TEXT("while ("), ESearchCase::IgnoreCase)
			|| Text.Contains(TEXT("while("), ESearchCase::IgnoreCase)))
	{
		return TEXT("While Loop");
	}
	const bool bWhile = BeginsWithWord(Text, TEXT("while"))
		&& (Text.Contains(TEXT("(")) || IsCode(Text) || Text.Contains(TEXT(" true"), ESearchCase::IgnoreCase));
	return bWhile ? TEXT("While Loop") : TEXT("");
}

static bool IsCondition(const FString& Text)
{
	for (const TCHAR* const Word : {TEXT("else if"), TEXT("elif"), TEXT("if"), TEXT("unless"), TEXT("guard")})
	{
		if (BeginsWithWord(Text, Word))
		{
			return !GetHead(Text, FStringView(Word).Len()).IsEmpty() || IsCode(Text);
		}
	}
	return Text.Equals(TEXT("else"), ESearchCase::IgnoreCase);
}

static FString FindSwitch(const FString& Text, const FRequestScope& Scope)
{
	for (const TCHAR* const Word : {TEXT("switch"), TEXT("match"), TEXT("select case")})
	{
		const FString Head = BeginsWithWord(Text, Word) ? GetHead(Text, FStringView(Word).Len()) : FString();
		const bool bColon = BeginsWithWord(Text, Word) && Text.EndsWith(TEXT(":"), ESearchCase::CaseSensitive);
		if (!Head.IsEmpty() || bColon)
		{
			const FString Kind = Scope.GetVariableKind(Head);
			return Kind.Equals(TEXT("string")) ? TEXT("Switch on String") : TEXT("Switch on Int");
		}
	}
	return FString();
}

static bool IsReturn(const FString& Text)
{
	if (!BeginsWithWord(Text, TEXT("return")))
	{
		return false;
	}
	const FString Rest = Text.RightChop(6).TrimStartAndEnd();
	return Rest.IsEmpty() || (RequestSyntax::IsOperand(Rest) && !Rest.Equals(TEXT("node"), ESearchCase::IgnoreCase));
}

/** "void Start()", "func _ready():": the name of the declared function; empty for anything else. */
static FString GetDeclaredName(const FString& Text)
{
	static const TSet<FString> Before = {TEXT("public"), TEXT("private"), TEXT("protected"), TEXT("override"),
		TEXT("virtual"), TEXT("static"), TEXT("async"), TEXT("final"), TEXT("export"), TEXT("void"), TEXT("func"),
		TEXT("def"), TEXT("function"), TEXT("fn"), TEXT("sub"), TEXT("bool"), TEXT("int"), TEXT("float"),
		TEXT("ienumerator"), TEXT("internal"), TEXT("sealed"), TEXT("fun"), TEXT("procedure")};
	int32 Bracket = INDEX_NONE;
	if (!Text.FindChar(TEXT('('), Bracket))
	{
		return FString();
	}
	TArray<FString> Pieces;
	Text.Left(Bracket).ParseIntoArrayWS(Pieces);
	if (Pieces.Num() < 2)
	{
		return FString();
	}
	const FString Name = Pieces.Pop();
	const bool bDeclared = !Pieces.ContainsByPredicate(
		[](const FString& Piece) { return !Before.Contains(Piece.ToLower()); });
	int32 Colon = INDEX_NONE;
	return !bDeclared ? FString() : Name.FindLastChar(TEXT(':'), Colon) ? Name.RightChop(Colon + 1) : Name;
}

static void AddTitle(const FString& Title, TArray<FRequestReading>& OutReadings)
{
	OutReadings.Add({Title, FString()});
}
} // namespace RequestStatementImpl

bool RequestForms::ReadStatement(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestStatementImpl;

	for (const TCHAR* const Mark : {TEXT("//"), TEXT("/*"), TEXT("# ")})
	{
		if (Text.StartsWith(Mark, ESearchCase::CaseSensitive))
		{
			AddTitle(TEXT("Add Comment"), OutReadings);
			return true;
		}
	}
	if (IsCondition(Text))
	{
		AddTitle(TEXT("Branch"), OutReadings);
		return true;
	}
	if (IsReturn(Text))
	{
		AddTitle(TEXT("Add Return Node..."), OutReadings);
		return true;
	}
	for (const FString& Title : {FindLoop(Text), FindSwitch(Text, Scope)})
	{
		if (!Title.IsEmpty())
		{
			AddTitle(Title, OutReadings);
			return true;
		}
	}
	const FString Name = GetDeclaredName(Text);
	if (!Name.IsEmpty())
	{
		OutReadings.Append(RequestLexicon::FindEvent(Name));
		AddTitle(TEXT("Event ") + Name, OutReadings);
		AddTitle(Name, OutReadings);
	}
	return !Name.IsEmpty();
}

namespace RequestCastImpl
{
static bool IsPlainType(const FString& Name)
{
	static const TSet<FString> Names = {TEXT("int"), TEXT("float"), TEXT("double"), TEXT("string"), TEXT("bool"),
		TEXT("byte"), TEXT("long"), TEXT("int32"), TEXT("fstring"), TEXT("uint8"), TEXT("text"), TEXT("name"),
		TEXT("vector"), TEXT("integer"), TEXT("boolean"), TEXT("char"), TEXT("int64")};
	return Names.Contains(Name.ToLower());
}

/** A conversion when the type is no class. */
static void AddCast(const FString& TypeText, TArray<FRequestReading>& OutReadings)
{
	const FString Type = RequestSyntax::GetTypeName(TypeText);
	if (IsPlainType(Type))
	{
		OutReadings.Append(RequestLexicon::FindVerb(TEXT("conversion"), TEXT("to") + Type));
		return;
	}
	OutReadings.Add({TEXT("Cast To ") + Type, FString()});
	OutReadings.Add({TEXT("Cast To ") + RequestSyntax::WithoutTypeLetter(Type), FString()});
}

/** "x as T", "x is T". */
static bool ReadInfix(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	TArray<FString> Pieces;
	Text.ParseIntoArrayWS(Pieces);
	if (Pieces.Num() != 3 || !RequestSyntax::IsOperand(Pieces[0]) || !FChar::IsUpper(Pieces[2][0]))
	{
		return false;
	}
	for (const TCHAR* const Word : {TEXT("as"), TEXT("is"), TEXT("instanceof")})
	{
		if (Pieces[1].Equals(Word, ESearchCase::CaseSensitive))
		{
			AddCast(Pieces[2], OutReadings);
			return false; // "Save as Text" is prose: what is not a cast may still be something else
		}
	}
	return false;
}

/** "CastToT", "cast_to_t", "K2_CastToT". */
static bool ReadJoined(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	for (const TCHAR* const Before : {TEXT("K2_CastTo"), TEXT("CastTo_"), TEXT("CastTo"), TEXT("cast_to_")})
	{
		if (RequestSyntax::IsName(Text) && Text.StartsWith(Before, ESearchCase::IgnoreCase))
		{
			const FString Type = Text.RightChop(FStringView(Before).Len());
			AddCast(Type, OutReadings);
			if (Type.EndsWith(TEXT("class"), ESearchCase::IgnoreCase))
			{
				AddCast(Type.LeftChop(5) + TEXT(" Class"), OutReadings);
			}
			return true;
		}
	}
	return false;
}

/** "cast x to T", "cast to T", "cast T". */
static bool ReadSpoken(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	for (const TCHAR* const Before : {TEXT("castto "), TEXT("dynamiccast "), TEXT("dynamic cast ")})
	{
		if (Text.StartsWith(Before, ESearchCase::IgnoreCase))
		{
			AddCast(Text.RightChop(FStringView(Before).Len()), OutReadings);
			return false;
		}
	}
	if (!Text.StartsWith(TEXT("cast "), ESearchCase::IgnoreCase))
	{
		return false;
	}
	for (const TCHAR* const Joint : {TEXT(" to "), TEXT(" into "), TEXT(" as ")})
	{
		const int32 Index = Text.Find(Joint, ESearchCase::IgnoreCase);
		if (Index != INDEX_NONE)
		{
			AddCast(Text.RightChop(Index + FStringView(Joint).Len()), OutReadings);
			return true;
		}
	}
	AddCast(Text.RightChop(5), OutReadings);
	return false; // "cast ray" is no cast
}

/** "(T*)x". */
static bool ReadBracketed(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	const int32 End = Text[0] == TEXT('(') ? RequestSyntax::SkipBrackets(Text, 0) : INDEX_NONE;
	if (End == INDEX_NONE || End >= Text.Len() || !RequestSyntax::IsOperand(Text.RightChop(End)))
	{
		return false;
	}
	const FString Type = RequestSyntax::GetTypeName(Text.Mid(1, End - 2));
	if (RequestSyntax::IsName(Type) && RequestSyntax::FindSign(Text.RightChop(End), TEXT("+")) == INDEX_NONE)
	{
		AddCast(Type, OutReadings);
		return true;
	}
	return false;
}
} // namespace RequestCastImpl

bool RequestForms::ReadCast(const FString& Text, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestCastImpl;

	RequestSyntax::FChain Chain;
	if (RequestSyntax::ReadChain(Text, Chain) && Chain.Called.Last()
		&& Chain.Names.Last().EndsWith(TEXT("cast"), ESearchCase::IgnoreCase))
	{
		FString First = Chain.Arguments;
		int32 Comma = INDEX_NONE;
		First = First.FindChar(TEXT(','), Comma) ? First.Left(Comma) : First;
		const FString Type = Chain.TypeArgument.IsEmpty() ? First : Chain.TypeArgument;
		if (!Type.IsEmpty() && Chain.Names.Num() == 1)
		{
			AddCast(Type, OutReadings);
			return true;
		}
	}
	return ReadJoined(Text, OutReadings) || ReadSpoken(Text, OutReadings) || ReadBracketed(Text, OutReadings)
		|| ReadInfix(Text, OutReadings);
}
