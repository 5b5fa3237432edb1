#include "RequestSyntax.h"

namespace RequestSyntaxImpl
{
static bool IsNameLetter(TCHAR Char)
{
	return FChar::IsAlnum(Char) || Char == TEXT('_') || Char == TEXT('$') || Char == TEXT('@');
}

static int32 SkipQuoted(const FString& Text, int32 Index)
{
	for (int32 End = Index + 1; End < Text.Len(); ++End)
	{
		if (Text[End] == Text[Index] && Text[End - 1] != TEXT('\\'))
		{
			return End + 1;
		}
	}
	return INDEX_NONE;
}

/** An apostrophe inside of a word is none ("actor's"). */
static bool BeginsQuote(const FString& Text, int32 Index)
{
	return Text[Index] == TEXT('"') || (Text[Index] == TEXT('\'') && (Index == 0 || !FChar::IsAlnum(Text[Index - 1])));
}

static int32 SkipName(const FString& Text, int32 Index)
{
	while (Index < Text.Len() && IsNameLetter(Text[Index]))
	{
		++Index;
	}
	return Index;
}

/** The length of what joins two names of a chain at this place. */
static int32 GetJointLength(const FString& Text, int32 Index)
{
	for (const TCHAR* const Joint : {TEXT("::"), TEXT("->"), TEXT("?."), TEXT(".")})
	{
		const int32 Length = FStringView(Joint).Len();
		if (Text.Mid(Index, Length).Equals(Joint, ESearchCase::CaseSensitive))
		{
			return Length;
		}
	}
	return 0;
}

/** Takes "<T>", "(x)" and "[i]" behind a name; answers where they end, INDEX_NONE where they never do. */
static int32 TakeArguments(const FString& Text, int32 Index, RequestSyntax::FChain& OutChain)
{
	bool bCalled = false;
	OutChain.bIndexed = false;
	while (Index < Text.Len() && FString(TEXT("<([")).Contains(FString::Chr(Text[Index])))
	{
		const TCHAR Open = Text[Index];
		const int32 End = RequestSyntax::SkipBrackets(Text, Index);
		if (End == INDEX_NONE)
		{
			return INDEX_NONE;
		}
		const FString Inside = Text.Mid(Index + 1, End - Index - 2);
		if (Open == TEXT('<'))
		{
			OutChain.TypeArgument = Inside;
		}
		else if (Open == TEXT('('))
		{
			bCalled = true;
			OutChain.Arguments = Inside;
		}
		OutChain.bIndexed = Open == TEXT('[');
		OutChain.Index = OutChain.bIndexed ? Inside : FString();
		Index = End;
	}
	OutChain.Called.Add(bCalled);
	return Index;
}
} // namespace RequestSyntaxImpl

int32 RequestSyntax::SkipBrackets(const FString& Text, int32 Index)
{
	const FString Opening(TEXT("([{<"));
	const FString Closing(TEXT(")]}>"));
	int32 Kind = INDEX_NONE;
	Opening.FindChar(Text[Index], Kind);
	int32 Depth = 0;
	for (int32 At = Index; At < Text.Len(); ++At)
	{
		if (RequestSyntaxImpl::BeginsQuote(Text, At))
		{
			At = RequestSyntaxImpl::SkipQuoted(Text, At);
			if (At == INDEX_NONE)
			{
				return INDEX_NONE;
			}
			--At;
		}
		else if (Text[At] == Opening[Kind])
		{
			++Depth;
		}
		else if (Text[At] == Closing[Kind] && --Depth == 0)
		{
			return At + 1;
		}
	}
	return INDEX_NONE;
}

bool RequestSyntax::ReadChain(const FString& Text, FChain& OutChain)
{
	OutChain = FChain();
	int32 Index = 0;
	bool bCode = false;
	while (Index < Text.Len())
	{
		const bool bLiteral = Index == 0 && RequestSyntaxImpl::BeginsQuote(Text, 0);
		const int32 End = bLiteral ? RequestSyntaxImpl::SkipQuoted(Text, 0) : RequestSyntaxImpl::SkipName(Text, Index);
		if (End == INDEX_NONE || End == Index || (!bLiteral && FChar::IsDigit(Text[Index])))
		{
			return false;
		}
		OutChain.Names.Add(bLiteral ? FString(TEXT("string")) : Text.Mid(Index, End - Index));
		Index = RequestSyntaxImpl::TakeArguments(Text, End, OutChain);
		if (Index == INDEX_NONE)
		{
			return false;
		}
		bCode |= Index > End;
		if (Index == Text.Len())
		{
			return bCode || OutChain.Names.Num() > 1;
		}
		const int32 Joint = RequestSyntaxImpl::GetJointLength(Text, Index);
		if (Joint == 0)
		{
			return false;
		}
		Index += Joint;
	}
	return false;
}

bool RequestSyntax::IsOneOf(FStringView Word, const TCHAR* Words)
{
	const FStringView All(Words);
	for (int32 Begin = 0; Begin < All.Len();)
	{
		int32 End = Begin;
		while (End < All.Len() && All[End] != TEXT(' '))
		{
			++End;
		}
		if (End - Begin == Word.Len() && All.Mid(Begin, End - Begin).Equals(Word, ESearchCase::IgnoreCase))
		{
			return true;
		}
		Begin = End + 1;
	}
	return false;
}

bool RequestSyntax::IsName(const FString& Text)
{
	return !Text.IsEmpty() && !FChar::IsDigit(Text[0]) && RequestSyntaxImpl::SkipName(Text, 0) == Text.Len();
}

bool RequestSyntax::IsQuoted(const FString& Text)
{
	return Text.Len() > 1 && RequestSyntaxImpl::BeginsQuote(Text, 0)
		&& RequestSyntaxImpl::SkipQuoted(Text, 0) == Text.Len();
}

bool RequestSyntax::IsOperand(const FString& Text)
{
	const FString Term = Text.TrimStartAndEnd();
	FChain Chain;
	if (Term.IsEmpty() || IsName(Term) || Term.IsNumeric() || IsQuoted(Term) || ReadChain(Term, Chain))
	{
		return !Term.IsEmpty();
	}
	if (Term[0] == TEXT('('))
	{
		return true;
	}
	for (const TCHAR* const Sign : {TEXT("+"), TEXT("*"), TEXT(" - "), TEXT(" / "), TEXT("&&"), TEXT("||"), TEXT(" < "),
			 TEXT(" > "), TEXT("=="), TEXT("%")})
	{
		if (FindSign(Term, Sign) != INDEX_NONE)
		{
			return true;
		}
	}
	return Term[0] == TEXT('!') || Term[0] == TEXT('-');
}

int32 RequestSyntax::FindSign(const FString& Text, const TCHAR* Sign)
{
	const int32 Length = FStringView(Sign).Len();
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		if (RequestSyntaxImpl::BeginsQuote(Text, Index))
		{
			Index = RequestSyntaxImpl::SkipQuoted(Text, Index);
			if (Index == INDEX_NONE)
			{
				return INDEX_NONE;
			}
			--Index;
			continue;
		}
		if (Text[Index] == TEXT('(') || Text[Index] == TEXT('['))
		{
			const int32 End = SkipBrackets(Text, Index);
			if (End == INDEX_NONE)
			{
				return INDEX_NONE;
			}
			Index = End - 1;
			continue;
		}
		if (Index > 0 && Index + Length < Text.Len() && Text.Mid(Index, Length).Equals(Sign, ESearchCase::IgnoreCase))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

FString RequestSyntax::WithoutQuoted(const FString& Text)
{
	FString Rest;
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		const int32 End = RequestSyntaxImpl::BeginsQuote(Text, Index) ? RequestSyntaxImpl::SkipQuoted(Text, Index)
																	  : INDEX_NONE;
		if (End != INDEX_NONE)
		{
			Index = End - 1;
		}
		else
		{
			Rest += Text[Index];
		}
	}
	return Rest.TrimStartAndEnd();
}

FString RequestSyntax::GetTypeName(const FString& Text)
{
	FString Name = Text.TrimStartAndEnd();
	Name = Name.StartsWith(TEXT("const "), ESearchCase::CaseSensitive) ? Name.RightChop(6) : Name;
	while (Name.Len() > 1 && FString(TEXT("*& ")).Contains(FString::Chr(Name[Name.Len() - 1])))
	{
		Name = Name.LeftChop(1);
	}
	return Name;
}

FString RequestSyntax::WithoutTypeLetter(const FString& Name)
{
	int32 Index = INDEX_NONE;
	const bool bLetter = Name.Len() > 2 && FStringView(TEXT("UAFETI")).FindChar(Name[0], Index)
		&& FChar::IsUpper(Name[1]);
	return bLetter ? Name.RightChop(1) : Name;
}
