#include "CoreMinimal.h"

#include <gtest/gtest.h>

#define LOCTEXT_NAMESPACE "Tests"

namespace TextTests
{
static std::string Write(const FText& Text)
{
	FString Written;
	FTextStringHelper::WriteToBuffer(Written, Text, true);
	return ToUtf8(Written);
}

TEST(TextForms, AreReadAndWrittenBackUnchanged)
{
	const struct
	{
		const char* Form;
		const char* Shown;
	} Cases[] = {
		{R"_(NSLOCTEXT("ns", "key", "shown"))_", "shown"},
		{R"_(NSLOCTEXT("", "key", "a \"quoted\"\nline, with (brackets)"))_", "a \"quoted\"\nline, with (brackets)"},
		{R"_(INVTEXT("Hello"))_", "Hello"},
		{R"_("plain \\ text")_", "plain \\ text"},
		{R"_("")_", ""},
		{R"_(LOCTABLE("/Game/Table.Table", "Key"))_", "<MISSING STRING TABLE ENTRY>"},
		{R"_(LOCGEN_FORMAT_NAMED(NSLOCTEXT("K", "Split", "{Pin} {Proto}"), "Pin", INVTEXT("In Rot"), "Proto", "X"))_",
			"In Rot X"},
		{R"_(LOCGEN_FORMAT_ORDERED("{1}-{0}", 1234, 2.500000))_", "2.5-1,234"},
		{R"_(LOCGEN_FORMAT_NAMED("{A}", "A", LOCGEN_FORMAT_ORDERED("<{0}>", "in")))_", "<in>"},
		{R"_(LOCGEN_NUMBER(12345, ""))_", "12,345"},
		{R"_(LOCGEN_TOUPPER(NSLOCTEXT("a", "b", "x)\"(")))_", R"_(LOCGEN_TOUPPER(NSLOCTEXT("a", "b", "x)\"(")))_"},
	};
	for (const auto& Case : Cases)
	{
		const FString Buffer = FromUtf8(std::string(Case.Form) + ",Next=1");
		FText Text;
		const TCHAR* const End = FTextStringHelper::ReadFromBuffer(*Buffer, Text, nullptr, nullptr, true);
		ASSERT_NE(End, nullptr) << Case.Form;
		EXPECT_TRUE(FString(End).Equals(TEXT(",Next=1"))) << Case.Form;
		EXPECT_EQ(ToUtf8(Text.ToString()), Case.Shown) << Case.Form;
		EXPECT_EQ(Write(Text), Case.Form);
	}
}

TEST(TextForms, MalformedOnesAreRefused)
{
	for (const TCHAR* const Form :
		{TEXT("NSLOCTEXT(\"a\", \"b\")"), TEXT("NSLOCTEXT(\"a\", \"b\", \"c\""), TEXT("INVTEXT(x)"),
			TEXT("LOCTABLE(\"a\")"), TEXT("LOCGEN_X(\"open"), TEXT("\"open"), TEXT("bare"), TEXT("")})
	{
		FText Text = INVTEXT("kept");
		EXPECT_EQ(FTextStringHelper::ReadFromBuffer(Form, Text, nullptr, nullptr, true), nullptr) << ToUtf8(Form);
		EXPECT_EQ(ToUtf8(Text.ToString()), "kept");
	}
}

TEST(TextForms, BareBufferIsAPlainTextUnlessQuotesAreRequired)
{
	const FText Text = FTextStringHelper::CreateFromBuffer(TEXT("bare words"));
	EXPECT_EQ(ToUtf8(Text.ToString()), "bare words");
	EXPECT_FALSE(FTextInspector::GetKey(Text).IsSet());
	FString Written;
	FTextStringHelper::WriteToBuffer(Written, Text);
	EXPECT_EQ(ToUtf8(Written), "bare words");
	const FText Local = FTextStringHelper::CreateFromBuffer(TEXT("LOCTEXT(TEXT(\"k\"), \"s\")"), TEXT("Outer"));
	EXPECT_EQ(Write(Local), "NSLOCTEXT(\"Outer\", \"k\", \"s\")");
}

TEST(TextForms, PackageNamespaceIsStrippedOnRequest)
{
	const FText Text = FText::ChangeKey(TEXT("Menu [0123]"), TEXT("k"), INVTEXT("s"));
	FString Written;
	FTextStringHelper::WriteToBuffer(Written, Text, true, true);
	EXPECT_EQ(ToUtf8(Written), "NSLOCTEXT(\"Menu\", \"k\", \"s\")");
}

TEST(TextFormat, FillsWhatItKnowsAndLeavesTheRest)
{
	const FText Who = FText::FromString(TEXT("{0}"));
	EXPECT_EQ(
		ToUtf8(FText::Format(LOCTEXT("F", "{0} {1} {2} {x} {"), Who, 1234567).ToString()), "{0} 1,234,567 {2} {x} {");
	EXPECT_EQ(ToUtf8(FText::Format(INVTEXT("`{0`} ``{0}``"), INVTEXT("v")).ToString()), "{0} `v`");
	FFormatNamedArguments Arguments;
	Arguments.Add(TEXT("Name"), INVTEXT("Door"));
	Arguments.Add(TEXT("Count"), -1234.5);
	EXPECT_EQ(ToUtf8(FText::Format(INVTEXT("{name}: {Count}"), Arguments).ToString()), "Door: -1,234.5");
	EXPECT_EQ(ToUtf8(FText::AsNumber(-123).ToString() + FText::AsNumber(-0.0001).ToString()), "-1230");
}

TEST(TextIdentity, KeyNamespaceAndSourceAreKept)
{
	const FText Text = LOCTEXT("Key", "Shown");
	EXPECT_EQ(ToUtf8(FTextInspector::GetNamespace(Text).Get(FString())), "Tests");
	EXPECT_EQ(ToUtf8(FTextInspector::GetKey(Text).Get(FString())), "Key");
	EXPECT_TRUE(Text.EqualTo(INVTEXT("Shown")));
	EXPECT_FALSE(Text.EqualTo(INVTEXT("shown")));
	EXPECT_FALSE(Text.IdenticalTo(INVTEXT("Shown")));
	EXPECT_TRUE(Text.IdenticalTo(NSLOCTEXT("Tests", "Key", "Shown")));
	EXPECT_TRUE(FText::FromString(TEXT("")).IdenticalTo(FText::GetEmpty()));
}
}

#undef LOCTEXT_NAMESPACE
