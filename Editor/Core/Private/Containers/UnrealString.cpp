#include "Containers/UnrealString.h"

#include "Containers/Array.h"
#include "Containers/StringConv.h"
#include "Math/UnrealMathUtility.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace Strings
{
/** The escapes, each with the character it stands for. The backslash is first, so that no escape is escaped again. */
struct FEscape
{
	TCHAR Char;
	TCHAR Letter;
};
static constexpr FEscape Escapes[] = {{TEXT('\\'), TEXT('\\')}, {TEXT('\n'), TEXT('n')}, {TEXT('\r'), TEXT('r')},
	{TEXT('\t'), TEXT('t')}, {TEXT('\''), TEXT('\'')}, {TEXT('\"'), TEXT('\"')}};

static bool IsWanted(TCHAR Char, FStringView Chars)
{
	int32 Unused = 0;
	return Chars.IsEmpty() || Chars.FindChar(Char, Unused);
}

template <typename NumberType>
static FString FromNumber(NumberType Number)
{
	char Buffer[64];
	const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Number);
	return FString(std::wstring(Buffer, Result.ptr));
}

static bool MatchesFrom(FStringView Text, FStringView Pattern, ESearchCase::Type SearchCase)
{
	// The usual two-cursor walk: on a mismatch fall back to the last star and let it swallow one more character.
	int32 At = 0;
	int32 PatternAt = 0;
	int32 Star = INDEX_NONE;
	int32 StarText = 0;
	while (At < Text.Len())
	{
		if (PatternAt < Pattern.Len() && Pattern[PatternAt] == TEXT('*'))
		{
			Star = PatternAt++;
			StarText = At;
		}
		else if (PatternAt < Pattern.Len()
			&& (Pattern[PatternAt] == TEXT('?') || Text.Mid(At, 1).Equals(Pattern.Mid(PatternAt, 1), SearchCase)))
		{
			++At;
			++PatternAt;
		}
		else if (Star != INDEX_NONE)
		{
			PatternAt = Star + 1;
			At = ++StarText;
		}
		else
		{
			return false;
		}
	}
	while (PatternAt < Pattern.Len() && Pattern[PatternAt] == TEXT('*'))
	{
		++PatternAt;
	}
	return PatternAt == Pattern.Len();
}

static void AddPiece(TArray<FString>& OutPieces, FStringView Piece, bool bCullEmpty)
{
	if (!bCullEmpty || !Piece.IsEmpty())
	{
		OutPieces.Emplace(Piece);
	}
}
}

FString::FString(const ANSICHAR* String)
{
	if (String)
	{
		FUTF8::AppendLossy(Data, String);
	}
}

FString& FString::operator=(const TCHAR* String)
{
	if (String != Data.c_str())
	{
		Data = String ? std::wstring(String) : std::wstring();
	}
	return *this;
}

FString& FString::operator=(FStringView View)
{
	Data = std::wstring(View.ToStdView());
	return *this;
}

FString FString::ChrN(int32 Count, TCHAR Char)
{
	return FString(std::wstring(static_cast<std::size_t>(Count < 0 ? 0 : Count), Char));
}

FString FString::FromInt(int32 Number)
{
	return Strings::FromNumber(Number);
}

FString FString::SanitizeFloat(double Number, int32 MinFractionalDigits)
{
	// A negative zero loses its sign; a small negative number that rounds to zero keeps it.
	FString Text = Printf(TEXT("%f"), Number == 0.0 ? 0.0 : Number);
	if (!std::isfinite(Number))
	{
		return Text;
	}
	int32 Point = INDEX_NONE;
	if (Text.FindChar(TEXT('.'), Point))
	{
		int32 End = Text.Len();
		while (End > Point + 1 && Text[End - 1] == TEXT('0'))
		{
			--End;
		}
		Text.LeftInline(End);
	}
	const int32 NumDigits = Text.Len() - Point - 1;
	if (NumDigits < MinFractionalDigits)
	{
		Text += ChrN(MinFractionalDigits - NumDigits, TEXT('0'));
	}
	else if (NumDigits == 0)
	{
		Text.LeftChopInline(1);
	}
	return Text;
}

void FString::Empty(int32 Slack)
{
	std::wstring().swap(Data);
	Reserve(Slack);
}

void FString::Reset(int32 NewReserved)
{
	Data.clear();
	Reserve(NewReserved);
}

void FString::AppendInt(int64 Number)
{
	Data.append(Strings::FromNumber(Number).Data);
}

void FString::PathAppend(FStringView Other)
{
	if (Other.IsEmpty())
	{
		return;
	}
	if (!IsEmpty())
	{
		const bool bEndsWithSlash = Data.back() == TEXT('/') || Data.back() == TEXT('\\');
		const bool bStartsWithSlash = Other[0] == TEXT('/');
		if (!bEndsWithSlash && !bStartsWithSlash)
		{
			AppendChar(TEXT('/'));
		}
		else if (bEndsWithSlash && bStartsWithSlash)
		{
			Other.RemovePrefix(1);
		}
	}
	Append(Other);
}

void FString::RemoveAt(int32 Index, int32 Count)
{
	checkSlow(Index >= 0 && Count >= 0 && Index + Count <= Len());
	Data.erase(static_cast<std::size_t>(Index), static_cast<std::size_t>(Count));
}

bool FString::RemoveFromStart(FStringView Prefix, ESearchCase::Type SearchCase)
{
	if (!StartsWith(Prefix, SearchCase))
	{
		return false;
	}
	RemoveAt(0, Prefix.Len());
	return true;
}

bool FString::RemoveFromEnd(FStringView Suffix, ESearchCase::Type SearchCase)
{
	if (!EndsWith(Suffix, SearchCase))
	{
		return false;
	}
	RemoveAt(Len() - Suffix.Len(), Suffix.Len());
	return true;
}

int32 FString::Find(
	FStringView Search, ESearchCase::Type SearchCase, ESearchDir::Type SearchDir, int32 StartPosition) const
{
	const FStringView View(*this);
	if (SearchDir == ESearchDir::FromStart)
	{
		return View.Find(Search, FMath::Clamp(StartPosition, 0, Len()), SearchCase);
	}
	const int32 End = StartPosition == INDEX_NONE || StartPosition > Len() ? Len() : StartPosition;
	for (int32 Index = End - Search.Len(); Index >= 0; --Index)
	{
		if (View.Mid(Index, Search.Len()).Equals(Search, SearchCase))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

bool FString::StartsWith(FStringView Prefix, ESearchCase::Type SearchCase) const
{
	return !Prefix.IsEmpty() && FStringView(*this).StartsWith(Prefix, SearchCase);
}

bool FString::EndsWith(FStringView Suffix, ESearchCase::Type SearchCase) const
{
	return !Suffix.IsEmpty() && FStringView(*this).EndsWith(Suffix, SearchCase);
}

bool FString::MatchesWildcard(FStringView Wildcard, ESearchCase::Type SearchCase) const
{
	return Strings::MatchesFrom(*this, Wildcard, SearchCase);
}

bool FString::Split(FStringView Separator, FString* OutLeft, FString* OutRight, ESearchCase::Type SearchCase,
	ESearchDir::Type SearchDir) const
{
	const int32 Position = Find(Separator, SearchCase, SearchDir);
	if (Position == INDEX_NONE)
	{
		return false;
	}
	// Copied before either is assigned: an output may be this text.
	FString LeftPart = Left(Position);
	FString RightPart = Mid(Position + Separator.Len());
	if (OutLeft)
	{
		*OutLeft = MoveTemp(LeftPart);
	}
	if (OutRight)
	{
		*OutRight = MoveTemp(RightPart);
	}
	return true;
}

FString FString::Replace(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase) const
{
	FString Result(*this);
	Result.ReplaceInline(From, To, SearchCase);
	return Result;
}

int32 FString::ReplaceInline(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase)
{
	const FStringView Search(From);
	const FStringView View(*this);
	int32 Position = Search.IsEmpty() ? static_cast<int32>(INDEX_NONE) : View.Find(Search, 0, SearchCase);
	if (Position == INDEX_NONE)
	{
		return 0;
	}
	FString Result;
	int32 NumReplaced = 0;
	int32 Copied = 0;
	for (; Position != INDEX_NONE; Position = View.Find(Search, Copied, SearchCase))
	{
		Result.Append(View.Mid(Copied, Position - Copied));
		Result += To;
		Copied = Position + Search.Len();
		++NumReplaced;
	}
	Result.Append(View.Mid(Copied));
	*this = MoveTemp(Result);
	return NumReplaced;
}

void FString::ReplaceCharInline(TCHAR From, TCHAR To, ESearchCase::Type SearchCase)
{
	for (TCHAR& Char : Data)
	{
		if (Char == From || (SearchCase == ESearchCase::IgnoreCase && FChar::ToLower(Char) == FChar::ToLower(From)))
		{
			Char = To;
		}
	}
}

FString FString::TrimQuotes(bool* bOutQuotesRemoved) const
{
	const bool bStarts = Len() > 0 && Data.front() == TEXT('"');
	const bool bEnds = Len() > 1 && Data.back() == TEXT('"');
	if (bOutQuotesRemoved)
	{
		*bOutQuotesRemoved = bStarts || bEnds;
	}
	return Mid(bStarts ? 1 : 0, Len() - (bStarts ? 1 : 0) - (bEnds ? 1 : 0));
}

FString FString::ToLower() const
{
	FString Result(*this);
	for (TCHAR& Char : Result.Data)
	{
		Char = FChar::ToLower(Char);
	}
	return Result;
}

FString FString::ToUpper() const
{
	FString Result(*this);
	for (TCHAR& Char : Result.Data)
	{
		Char = FChar::ToUpper(Char);
	}
	return Result;
}

int32 FString::ParseIntoArray(TArray<FString>& OutPieces, const TCHAR* Delimiter, bool bCullEmpty) const
{
	OutPieces.Reset();
	const FStringView View(*this);
	const FStringView Separator(Delimiter);
	int32 Start = 0;
	if (!Separator.IsEmpty())
	{
		int32 Position = View.Find(Separator, 0, ESearchCase::CaseSensitive);
		for (; Position != INDEX_NONE; Position = View.Find(Separator, Start, ESearchCase::CaseSensitive))
		{
			Strings::AddPiece(OutPieces, View.Mid(Start, Position - Start), bCullEmpty);
			Start = Position + Separator.Len();
		}
	}
	Strings::AddPiece(OutPieces, View.Mid(Start), bCullEmpty);
	return OutPieces.Num();
}

int32 FString::ParseIntoArrayWS(TArray<FString>& OutPieces, const TCHAR* ExtraDelimiter, bool bCullEmpty) const
{
	OutPieces.Reset();
	const FStringView View(*this);
	const FStringView Extra(ExtraDelimiter);
	int32 Start = 0;
	for (int32 Index = 0; Index < Len(); ++Index)
	{
		const bool bExtra = !Extra.IsEmpty() && View.RightChop(Index).StartsWith(Extra, ESearchCase::CaseSensitive);
		if (bExtra || FChar::IsWhitespace(View[Index]))
		{
			Strings::AddPiece(OutPieces, View.Mid(Start, Index - Start), bCullEmpty);
			Index += bExtra ? Extra.Len() - 1 : 0;
			Start = Index + 1;
		}
	}
	Strings::AddPiece(OutPieces, View.Mid(Start), bCullEmpty);
	return OutPieces.Num();
}

int32 FString::ParseIntoArrayLines(TArray<FString>& OutLines, bool bCullEmpty) const
{
	OutLines.Reset();
	const FStringView View(*this);
	int32 Start = 0;
	for (int32 Index = 0; Index < Len(); ++Index)
	{
		if (View[Index] == TEXT('\n') || View[Index] == TEXT('\r'))
		{
			Strings::AddPiece(OutLines, View.Mid(Start, Index - Start), bCullEmpty);
			const bool bPair = View[Index] == TEXT('\r') && Index + 1 < Len() && View[Index + 1] == TEXT('\n');
			Index += bPair ? 1 : 0;
			Start = Index + 1;
		}
	}
	Strings::AddPiece(OutLines, View.Mid(Start), bCullEmpty);
	return OutLines.Num();
}

FString FString::ReplaceCharWithEscapedChar(FStringView Chars) const
{
	FString Result;
	Result.Reserve(Len());
	for (const TCHAR Char : Data)
	{
		TCHAR Letter = 0;
		for (const Strings::FEscape& Escape : Strings::Escapes)
		{
			Letter = Escape.Char == Char ? Escape.Letter : Letter;
		}
		if (Letter && Strings::IsWanted(Char, Chars))
		{
			Result.AppendChar(TEXT('\\'));
			Result.AppendChar(Letter);
		}
		else
		{
			Result.AppendChar(Char);
		}
	}
	return Result;
}

FString LexToString(int32 Value)
{
	return Strings::FromNumber(Value);
}

FString LexToString(uint32 Value)
{
	return Strings::FromNumber(Value);
}

FString LexToString(int64 Value)
{
	return Strings::FromNumber(Value);
}

FString LexToString(uint64 Value)
{
	return Strings::FromNumber(Value);
}

FString LexToString(float Value)
{
	return FString::Printf(TEXT("%f"), Value);
}

FString LexToString(double Value)
{
	return FString::Printf(TEXT("%f"), Value);
}

bool LexTryParseString(double& OutValue, const TCHAR* Text)
{
	TCHAR* End = nullptr;
	const double Value = std::wcstod(Text, &End);
	if (End == Text || *End)
	{
		return false;
	}
	OutValue = Value;
	return true;
}

bool LexTryParseString(float& OutValue, const TCHAR* Text)
{
	double Value = 0.0;
	if (!LexTryParseString(Value, Text))
	{
		return false;
	}
	OutValue = static_cast<float>(Value);
	return true;
}

bool LexTryParseString(int32& OutValue, const TCHAR* Text)
{
	TCHAR* End = nullptr;
	const int64 Value = FCString::Strtoi64(Text, &End, 10);
	if (End == Text || *End || Value < MIN_int32 || Value > MAX_int32)
	{
		return false;
	}
	OutValue = static_cast<int32>(Value);
	return true;
}
