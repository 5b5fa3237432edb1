#include "CoreMinimal.h"
#include "Misc/Parse.h"
#include "Misc/ScopeExit.h"
#include "Standalone/GuidGenerator.h"

#include <gtest/gtest.h>

namespace ValueTests
{
TEST(Guids, SeedRepeatsTheSequence)
{
	ON_SCOPE_EXIT
	{
		FGuidGenerator::UseSystemRandom();
	};
	FGuidGenerator::Seed(7);
	const FGuid First = FGuid::NewGuid();
	const FGuid Second = FGuid::NewGuid();
	EXPECT_NE(First, Second);
	FGuidGenerator::Seed(7);
	EXPECT_EQ(FGuid::NewGuid(), First);
	EXPECT_EQ(FGuid::NewGuid(), Second);
	FGuidGenerator::Seed(8);
	EXPECT_NE(FGuid::NewGuid(), First);
	FGuidGenerator::UseSystemRandom();
	TSet<FGuid> Drawn;
	for (int32 Index = 0; Index < 1000; ++Index)
	{
		Drawn.Add(FGuid::NewGuid());
	}
	EXPECT_EQ(Drawn.Num(), 1000);
}

TEST(Guids, EveryWrittenFormIsRead)
{
	const FGuid Guid(0x01234567, 0x89ABCDEF, 0xFEDCBA98, 0x76543210);
	const struct
	{
		EGuidFormats Format;
		const char* Text;
	} Cases[] = {
		{EGuidFormats::Digits, "0123456789ABCDEFFEDCBA9876543210"},
		{EGuidFormats::DigitsLower, "0123456789abcdeffedcba9876543210"},
		{EGuidFormats::DigitsWithHyphens, "01234567-89AB-CDEF-FEDC-BA9876543210"},
		{EGuidFormats::DigitsWithHyphensLower, "01234567-89ab-cdef-fedc-ba9876543210"},
		{EGuidFormats::DigitsWithHyphensInBraces, "{01234567-89AB-CDEF-FEDC-BA9876543210}"},
		{EGuidFormats::DigitsWithHyphensInParentheses, "(01234567-89AB-CDEF-FEDC-BA9876543210)"},
		{EGuidFormats::HexValuesInBraces, "{0x01234567,0x89AB,0xCDEF,{0xFE,0xDC,0xBA,0x98,0x76,0x54,0x32,0x10}}"},
		{EGuidFormats::UniqueObjectGuid, "01234567-89ABCDEF-FEDCBA98-76543210"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(ToUtf8(Guid.ToString(Case.Format)), Case.Text);
		FGuid Read;
		EXPECT_TRUE(FGuid::Parse(FString(Case.Text), Read)) << Case.Text;
		EXPECT_EQ(Read, Guid) << Case.Text;
	}
	FGuid Kept = Guid;
	for (const TCHAR* const Bad :
		{TEXT(""), TEXT("0123456789ABCDEFFEDCBA987654321"), TEXT("0123456789ABCDEFFEDCBA987654321G")})
	{
		EXPECT_FALSE(FGuid::Parse(Bad, Kept)) << ToUtf8(Bad);
	}
	EXPECT_EQ(Kept, Guid);
}

TEST(MathText, IsReadBackFromWhatWasWritten)
{
	FVector Vector;
	EXPECT_EQ(ToUtf8(FVector(1.0, -2.5, 3.0).ToString()), "X=1.000 Y=-2.500 Z=3.000");
	EXPECT_TRUE(Vector.InitFromString(TEXT("(X=1.5, Y=2,Z=-3.25)")));
	EXPECT_EQ(Vector, FVector(1.5, 2.0, -3.25));
	EXPECT_FALSE(Vector.InitFromString(TEXT("X=1 MaxY=2")));
	FLinearColor Color;
	EXPECT_TRUE(Color.InitFromString(FLinearColor(0.25f, 0.5f, 1.0f).ToString()));
	EXPECT_EQ(Color, FLinearColor(0.25f, 0.5f, 1.0f, 1.0f));
	FTransform Transform;
	const FTransform Turned(FRotator(10.0, 20.0, 30.0), FVector(1.0, 2.0, 3.0), FVector(2.0));
	EXPECT_TRUE(Transform.InitFromString(Turned.ToString()));
	EXPECT_TRUE(Transform.Equals(Turned));
	EXPECT_FALSE(Transform.InitFromString(TEXT("1,2,3|4,5|6,7,8")));
	EXPECT_EQ(ToUtf8(FColor::FromHex(TEXT("#1A2b3C")).ToHex()), "1A2B3CFF");
	EXPECT_EQ(FColor::FromHex(TEXT("xyz")), FColor());
	EXPECT_EQ(FLinearColor(FColor(10, 128, 250)).ToFColor(true), FColor(10, 128, 250));
}

TEST(MathRotation, RotatorAndQuaternionAgree)
{
	for (const FRotator& Rotator :
		{FRotator(), FRotator(30.0, 0.0, 0.0), FRotator(0.0, -120.0, 0.0), FRotator(0.0, 0.0, 75.0),
			FRotator(-45.0, 170.0, -100.0), FRotator(89.0, 10.0, 20.0), FRotator(10.0, 540.0, 0.0)})
	{
		EXPECT_TRUE(Rotator.Quaternion().Rotator().Equals(Rotator, 1e-6)) << ToUtf8(Rotator.ToString());
	}
	// Straight up only the turn as a whole is determined.
	const FRotator Up(90.0, 30.0, 40.0);
	EXPECT_TRUE(Up.Quaternion().Rotator().Quaternion().Equals(Up.Quaternion(), 1e-4));
	EXPECT_TRUE(FRotator(0.0, 90.0, 0.0).Vector().Equals(FVector(0.0, 1.0, 0.0)));
	EXPECT_TRUE(FRotator(90.0, 0.0, 0.0).Vector().Equals(FVector(0.0, 0.0, 1.0)));
}

TEST(MathRounding, HalvesGoUp)
{
	EXPECT_EQ(FMath::RoundToInt(2.5), 3);
	EXPECT_EQ(FMath::RoundToInt(-2.5), -2);
	EXPECT_EQ(FMath::FloorToInt(-0.1), -1);
	EXPECT_EQ(FMath::TruncToInt(-1.9), -1);
	EXPECT_EQ(FMath::GridSnap(24.0f, 16.0f), 32.0f);
	EXPECT_EQ(FMath::GridSnap(-25.0f, 16.0f), -32.0f);
	EXPECT_EQ(FMath::Clamp(5, 1, 3), 3);
}

TEST(ParseQuoted, EndsAtItsOwnQuote)
{
	FString Value(TEXT("kept"));
	int32 NumRead = 0;
	EXPECT_TRUE(FParse::QuotedString(TEXT("\"a\\\"b\\\\\" rest\""), Value, &NumRead));
	EXPECT_EQ(ToUtf8(Value), "a\"b\\");
	EXPECT_EQ(NumRead, 8);
	for (const TCHAR* const Bad : {TEXT("bare"), TEXT("\"open"), TEXT("\"open\\"), TEXT("")})
	{
		EXPECT_FALSE(FParse::QuotedString(Bad, Value)) << ToUtf8(Bad);
	}
	EXPECT_EQ(ToUtf8(Value), "a\"b\\");
}

TEST(Assertions, EnsureAnswersItsConditionAndCheckEnds)
{
	EXPECT_TRUE(ensure(true));
	testing::internal::CaptureStderr();
	for (int32 Round = 0; Round < 3; ++Round)
	{
		EXPECT_FALSE(ensureMsgf(Round < 0, TEXT("round %d"), Round));
	}
	EXPECT_EQ(testing::internal::GetCapturedStderr().find("round 1"), std::string::npos);
	EXPECT_DEATH(
		checkf(false, TEXT("told %s %-3ls%% %hs %d"), TEXT("s\u00F6"), TEXT("x"), "y", 3), "told s\xC3\xB6 x  % y 3");
}
}
