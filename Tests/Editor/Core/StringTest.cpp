#include "CoreMinimal.h"

#include <gtest/gtest.h>

namespace StringTests
{
/** gtest shows narrow text. */
static std::string Show(const FString& Text)
{
	return ToUtf8(Text);
}

static FString Join(const TArray<FString>& Pieces)
{
	return FString::Join(Pieces, TEXT("|"));
}

TEST(StringCompare, OperatorsIgnoreCaseAndEqualsDoesNot)
{
	const FString Upper(TEXT("STRASSE \u00C4"));
	const FString Lower(TEXT("strasse \u00E4"));
	EXPECT_TRUE(Upper == Lower);
	EXPECT_TRUE(Upper == *Lower);
	EXPECT_FALSE(Upper < Lower || Lower < Upper);
	EXPECT_EQ(GetTypeHash(Upper), GetTypeHash(Lower));
	EXPECT_FALSE(Upper.Equals(Lower));
	EXPECT_TRUE(Upper.Equals(Lower, ESearchCase::IgnoreCase));
	EXPECT_LT(Upper.Compare(Lower), 0);
	EXPECT_EQ(Upper.Compare(Lower, ESearchCase::IgnoreCase), 0);
	EXPECT_TRUE(FString(TEXT("a")) < FString(TEXT("B")));
	EXPECT_TRUE(FString(TEXT("ab")) != FString(TEXT("abc")));
	EXPECT_TRUE(FString(static_cast<const TCHAR*>(nullptr)).IsEmpty());
}

TEST(StringSearch, DefaultsIgnoreCase)
{
	const FString Text(TEXT("One two ONE"));
	EXPECT_TRUE(Text.Contains(TEXT("TWO")));
	EXPECT_FALSE(Text.Contains(TEXT("TWO"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(Text.StartsWith(TEXT("oNE")) && Text.EndsWith(TEXT("one")));
	EXPECT_FALSE(Text.EndsWith(TEXT("one"), ESearchCase::CaseSensitive));
	EXPECT_EQ(Text.Find(TEXT("one")), 0);
	EXPECT_EQ(Text.Find(TEXT("one"), ESearchCase::IgnoreCase, ESearchDir::FromStart, 1), 8);
	EXPECT_EQ(Text.Find(TEXT("one"), ESearchCase::IgnoreCase, ESearchDir::FromEnd), 8);
	EXPECT_EQ(Text.Find(TEXT("one"), ESearchCase::IgnoreCase, ESearchDir::FromEnd, 10), 0);
	EXPECT_EQ(Text.Find(TEXT("one two one more")), INDEX_NONE);
	EXPECT_EQ(Show(Text.Replace(TEXT("one"), TEXT("1"))), "1 two 1");
	EXPECT_EQ(Show(Text.Replace(TEXT("One"), TEXT("1"), ESearchCase::CaseSensitive)), "1 two ONE");
}

TEST(StringSearch, EmptyPrefixAndSuffixMatchNothing)
{
	EXPECT_FALSE(FString(TEXT("a")).StartsWith(TEXT("")));
	EXPECT_FALSE(FString(TEXT("a")).EndsWith(TEXT("")));
	FString Text(TEXT("a"));
	EXPECT_FALSE(Text.RemoveFromEnd(TEXT("")));
}

TEST(StringSplit, CutsAtTheEndAskedForAndMayAssignToItself)
{
	FString Left;
	FString Right(TEXT("a.B.c"));
	EXPECT_TRUE(Right.Split(TEXT("."), &Left, &Right, ESearchCase::IgnoreCase, ESearchDir::FromEnd));
	EXPECT_EQ(Show(Left + TEXT("|") + Right), "a.B|c");
	EXPECT_TRUE(Left.Split(TEXT("b"), &Left, nullptr));
	EXPECT_EQ(Show(Left), "a.");
	EXPECT_FALSE(Left.Split(TEXT("x"), &Left, &Right));
	EXPECT_EQ(Show(Left + Right), "a.c");
}

TEST(StringParts, CountsOutsideAreClamped)
{
	const FString Text(TEXT("abcdef"));
	const struct
	{
		FString Actual;
		const char* Expected;
	} Cases[] = {
		{Text.Left(2), "ab"},
		{Text.Left(99), "abcdef"},
		{Text.Left(-1), ""},
		{Text.LeftChop(2), "abcd"},
		{Text.LeftChop(99), ""},
		{Text.Right(2), "ef"},
		{Text.Right(99), "abcdef"},
		{Text.RightChop(2), "cdef"},
		{Text.RightChop(99), ""},
		{Text.Mid(2, 2), "cd"},
		{Text.Mid(4), "ef"},
		{Text.Mid(4, 99), "ef"},
		{Text.Mid(9, 1), ""},
		{Text.Mid(-2, 4), "ab"},
		{FString(TEXT(" \t a b\n ")).TrimStartAndEnd(), "a b"},
		{FString(TEXT("   ")).TrimEnd(), ""},
		{FString(TEXT("\"q\"")).TrimQuotes(), "q"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Show(Case.Actual), Case.Expected);
	}
}

TEST(StringPieces, EmptyPiecesAreCulledOnRequest)
{
	TArray<FString> Pieces;
	EXPECT_EQ(FString(TEXT(",a,,b,")).ParseIntoArray(Pieces, TEXT(",")), 2);
	EXPECT_EQ(Show(Join(Pieces)), "a|b");
	EXPECT_EQ(FString(TEXT(",a,,b,")).ParseIntoArray(Pieces, TEXT(","), false), 5);
	EXPECT_EQ(Show(Join(Pieces)), "|a||b|");
	FString(TEXT("a\r\nb\n\nc\r")).ParseIntoArrayLines(Pieces, false);
	EXPECT_EQ(Show(Join(Pieces)), "a|b||c|");
	FString(TEXT(" a  b\tc ")).ParseIntoArrayWS(Pieces);
	EXPECT_EQ(Show(Join(Pieces)), "a|b|c");
}

TEST(StringPrintf, FollowsTheTypeOfTheArgument)
{
	const FString Name(TEXT("Name\u00E9"));
	enum class EPlain : uint8
	{
		Seven = 7
	};
	const struct
	{
		FString Actual;
		const char* Expected;
	} Cases[] = {
		{FString::Printf(TEXT("plain")), "plain"},
		{FString::Printf(TEXT("100%%")), "100%"},
		{FString::Printf(TEXT("[%s|%ls|%hs]"), *Name, TEXT("wide"), "ansi"), "[Name\xC3\xA9|wide|ansi]"},
		{FString::Printf(TEXT("[%8s|%-8s|%.3s]"), TEXT("abcd"), TEXT("abcd"), TEXT("abcd")), "[    abcd|abcd    |abc]"},
		{FString::Printf(TEXT("%s"), static_cast<const TCHAR*>(nullptr)), "(null)"},
		{FString::Printf(TEXT("%d %i %u"), -5, 7, 4000000000u), "-5 7 4000000000"},
		{FString::Printf(TEXT("%lld %llu %I64d"), MIN_int64, MAX_uint64, MAX_int64),
			"-9223372036854775808 18446744073709551615 9223372036854775807"},
		{FString::Printf(TEXT("%x %08X %#x"), 255, 0xBEEFu, 255), "ff 0000BEEF 0xff"},
		{FString::Printf(TEXT("%u %x"), -1, -1), "4294967295 ffffffff"},
		{FString::Printf(TEXT("%f %.2f %+.1f %g"), 0.5, 2.345f, 1.0, 1e20), "0.500000 2.35 +1.0 1e+20"},
		{FString::Printf(TEXT("%5d|%-5d|%05d|%+d"), 42, 42, 42, 42), "   42|42   |00042|+42"},
		{FString::Printf(TEXT("%*d %.*f"), 4, 7, 1, 2.25), "   7 2.2"},
		{FString::Printf(TEXT("%c%c"), TEXT('x'), 'y'), "xy"},
		{FString::Printf(TEXT("%d %d"), EPlain::Seven, true), "7 1"},
		{FString::Printf(TEXT("%p"), reinterpret_cast<const void*>(UPTRINT(0xAB))), "0x00000000000000ab"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Show(Case.Actual), Case.Expected);
	}
}

TEST(StringNumbers, SanitizeFloatDropsTrailingZerosOnly)
{
	const struct
	{
		double Number;
		int32 MinDigits;
		const char* Expected;
	} Cases[] = {{3.0, 1, "3.0"}, {3.0, 0, "3"}, {0.5, 1, "0.5"}, {0.25, 3, "0.250"}, {-0.0, 1, "0.0"},
		{100.0, 0, "100"}, {1.0 / 3.0, 1, "0.333333"}, {1e-7, 1, "0.0"}};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Show(FString::SanitizeFloat(Case.Number, Case.MinDigits)), Case.Expected);
	}
}

TEST(StringNumbers, IsNumericTakesOneSignAndOnePoint)
{
	for (const TCHAR* const Good : {TEXT("0"), TEXT("-1.5"), TEXT("+.5"), TEXT("12.")})
	{
		EXPECT_TRUE(FString(Good).IsNumeric()) << Show(Good);
	}
	for (const TCHAR* const Bad : {TEXT(""), TEXT("-"), TEXT("1.2.3"), TEXT("1e5"), TEXT(" 1"), TEXT("--1")})
	{
		EXPECT_FALSE(FString(Bad).IsNumeric()) << Show(Bad);
	}
	int32 Value = 5;
	EXPECT_FALSE(LexTryParseString(Value, TEXT("12x")));
	EXPECT_FALSE(LexTryParseString(Value, TEXT("99999999999")));
	EXPECT_EQ(Value, 5);
	EXPECT_TRUE(LexTryParseString(Value, TEXT("-12")));
	EXPECT_EQ(Value, -12);
}

TEST(StringEscapes, TheGivenCharactersAreEscaped)
{
	const FString Raw(TEXT("a\"b\\n\n\t'\r\\"));
	const FString Escaped = Raw.ReplaceCharWithEscapedChar();
	EXPECT_EQ(Show(Escaped), "a\\\"b\\\\n\\n\\t\\'\\r\\\\");
	EXPECT_EQ(Show(Raw.ReplaceCharWithEscapedChar(TEXT("\""))), "a\\\"b\\n\n\t'\r\\");
}

TEST(StringPaths, SlashJoinsOnce)
{
	EXPECT_EQ(Show(FString(TEXT("a")) / TEXT("b")), "a/b");
	EXPECT_EQ(Show(FString(TEXT("a/")) / TEXT("/b")), "a/b");
	EXPECT_EQ(Show(FString() / TEXT("b")), "b");
	EXPECT_EQ(Show(FString(TEXT("a")) / TEXT("")), "a");
}

TEST(StringWildcard, StarsGiveBackWhatTheyTook)
{
	EXPECT_TRUE(FString(TEXT("Content/BP_Door.uatext")).MatchesWildcard(TEXT("*.UATEXT")));
	EXPECT_TRUE(FString(TEXT("aXbXb")).MatchesWildcard(TEXT("a*b")));
	EXPECT_TRUE(FString(TEXT("abc")).MatchesWildcard(TEXT("a?c*")));
	EXPECT_FALSE(FString(TEXT("abc")).MatchesWildcard(TEXT("a?")));
	EXPECT_FALSE(FString(TEXT("abc")).MatchesWildcard(TEXT("ABC"), ESearchCase::CaseSensitive));
}

TEST(Utf8, StrictDecodingNamesTheFirstBadByte)
{
	const struct
	{
		const char* Label;
		std::string Bytes;
		int64 BadOffset;
	} Cases[] = {
		{"ascii and four bytes", "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", INDEX_NONE},
		{"embedded zero", std::string("a\0b", 3), INDEX_NONE},
		{"stray continuation", "ab\x80", 2},
		{"truncated", "a\xE2\x82", 1},
		{"overlong slash", "\xC0\xAF", 0},
		{"overlong three", "\xE0\x80\xAF", 0},
		{"surrogate", "x\xED\xA0\x80", 1},
		{"past the last plane", "\xF4\x90\x80\x80", 0},
		{"no lead byte at all", "\xFF", 0},
	};
	for (const auto& Case : Cases)
	{
		std::wstring Text = TEXT("kept");
		EXPECT_EQ(FUTF8::AppendStrict(Text, Case.Bytes), Case.BadOffset) << Case.Label;
		if (Case.BadOffset == INDEX_NONE)
		{
			EXPECT_EQ(ToUtf8(FString(Text.substr(4))), Case.Bytes) << Case.Label;
		}
		else
		{
			EXPECT_EQ(Text, TEXT("kept")) << Case.Label;
		}
	}
}

TEST(Utf8, LossyDecodingReplacesAndAstralIsOneCharacter)
{
	EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80").Len(), 1);
	EXPECT_TRUE(FromUtf8("a\xFFz").Equals(TEXT("a\uFFFDz")));
	EXPECT_EQ(ToUtf8(FString::Chr(static_cast<TCHAR>(0xD800))), "\xEF\xBF\xBD");
}
}
