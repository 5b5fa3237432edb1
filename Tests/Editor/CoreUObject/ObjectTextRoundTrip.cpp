#include "Standalone/ObjectText.h"

#include "Misc/FeedbackContext.h"
#include "TestAssets.h"

#include <gtest/gtest.h>

namespace ObjectTextTests
{
class FWarnings final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override { Lines.Add(Text); }
	TArray<FString> Lines;
};

class ObjectText : public testing::Test
{
protected:
	void SetUp() override
	{
		TestAssets::Register();
		HandlerBefore = FObjectTextImport::SetUnknownClassHandler(nullptr);
		Package = CreatePackage(TEXT("/Temp/ObjectText"));
	}
	void TearDown() override
	{
		TestAssets::Unload(TEXT("/Temp/ObjectText"));
		FObjectTextImport::SetUnknownClassHandler(HandlerBefore);
	}

	static std::string Write(UObject* Object, FObjectTextExport Options = FObjectTextExport())
	{
		std::string Text;
		FString Error;
		EXPECT_TRUE(Options.Write({Object}, Text, Error)) << ToUtf8(Error);
		return Text;
	}

	/** The first object of the text, made below Outer under another name. Each warning goes to Warnings. */
	UTestAsset* Read(const std::string& Text, UObject* Outer, const TCHAR* Name)
	{
		EXPECT_TRUE(Tree.Parse(Text, Error)) << ToUtf8(Error.ToString());
		FObjectTextImport Import(Warnings);
		UObject* const Made = Import.Create(Tree.Objects.front(), Outer,
			[&](const FObjectTextRecord& Record, UObject* Below) -> UObject*
			{
				UClass* const Class = FObjectTextImport::FindClass(Record.ClassPath);
				const FName MadeName = Below == Outer ? FName(Name) : FName(Record.GetName());
				return Class ? NewObject<UObject>(Below, Class, MadeName) : nullptr;
			});
		Import.ImportProperties();
		return Cast<UTestAsset>(Made);
	}

	UPackage* Package = nullptr;
	FObjectTextTree Tree;
	FObjectTextError Error;
	FWarnings Warnings;
	FObjectTextImport::FUnknownClassHandler HandlerBefore = nullptr;
};
} // namespace ObjectTextTests

using ObjectTextTests::ObjectText;

TEST_F(ObjectText, OnlyWhatDiffersIsWrittenDerivedClassFirst)
{
	UTestSpecialAsset* const Asset = NewObject<UTestSpecialAsset>(Package, TEXT("A"));
	EXPECT_EQ(Write(Asset), "Begin Object Class=/Script/Tests.TestSpecialAsset Name=\"A\"\nEnd Object\n");

	Asset->Extra = -1;
	Asset->Count = 8;
	Asset->Title = TEXT("Say \"hi\"\n\\ \u00e4\U0001F600");
	Asset->Label = TEXT("My Label");
	Asset->Lines = {TEXT("one"), TEXT("")};
	Asset->Link = Asset;
	Asset->Scratch = 5;
	Asset->Custom = {TEXT("Pin (A=1,)"), TEXT("Pin (B=2,)")};
	EXPECT_EQ(Write(Asset),
		"Begin Object Class=/Script/Tests.TestSpecialAsset Name=\"A\"\n"
		"   Extra=-1\n"
		"   Count=8\n"
		"   Title=\"Say \\\"hi\\\"\\n\\\\ \u00e4\U0001F600\"\n"
		"   Label=\"My Label\"\n"
		"   Lines(0)=\"one\"\n"
		"   Lines(1)=\"\"\n"
		"   Link=\"/Script/Tests.TestSpecialAsset'/Temp/ObjectText.A'\"\n"
		"   CustomProperties Pin (A=1,)\n"
		"   CustomProperties Pin (B=2,)\n"
		"End Object\n");
}

TEST_F(ObjectText, ValuesComeBack)
{
	UTestAsset* const Asset = TestAssets::MakeInner(Package, TEXT("A"));
	Asset->Count = MIN_int32;
	Asset->Title = TEXT("tab\t, quote \", percent %s, 'x', \u4f60");
	Asset->Label = TEXT("a=b(c)");
	Asset->Where = FVector(0.1, -1e300, 12345678.875);
	Asset->Lines = {TEXT("a,b"), TEXT(")"), TEXT("\"")};
	Asset->Numbers = {};
	Asset->Custom = {TEXT("x \u00fc")};
	const std::string Text = Write(Asset);

	UTestAsset* const Copy = Read(Text, Package, TEXT("B"));
	ASSERT_TRUE(Copy);
	EXPECT_TRUE(Warnings.Lines.IsEmpty()) << ToUtf8(FString::Join(Warnings.Lines, TEXT("\n")));
	EXPECT_EQ(Copy->Count, Asset->Count);
	EXPECT_TRUE(Copy->Title.Equals(Asset->Title)) << ToUtf8(Copy->Title);
	EXPECT_EQ(Copy->Label, Asset->Label);
	EXPECT_EQ(Copy->Where, Asset->Where) << Text;
	EXPECT_EQ(Copy->Lines, Asset->Lines);
	EXPECT_EQ(Copy->Numbers.Num(), 0) << "an emptied list must not come back as the class's list";
	EXPECT_EQ(Copy->Custom, Asset->Custom);
}

TEST_F(ObjectText, AListThatStartsOverReplacesTheOneOfTheClass)
{
	const struct
	{
		const char* Lines;
		TArray<int32> Expected;
	} Cases[] = {
		{"Numbers(0)=9", {9}},
		{"Numbers(0)=9\nNumbers(1)=8\nNumbers(2)=7\nNumbers(3)=6", {9, 8, 7, 6}},
		{"Numbers(1)=9", {1, 9, 3}},
		{"Numbers(4)=9", {1, 2, 3, 0, 9}},
		{"Numbers=()", {}},
		{"Numbers=(4,5)", {4, 5}},
	};
	for (const auto& Case : Cases)
	{
		const UTestAsset* const Asset = Read(
			"Begin Object Class=/Script/Tests.TestAsset Name=\"A\"\n" + std::string(Case.Lines) + "\nEnd Object",
			Package, TEXT("B"));
		EXPECT_EQ(Asset->Numbers, Case.Expected) << Case.Lines;
		Package->GetFirstInner()->MarkAsGarbage();
	}
}

TEST_F(ObjectText, ClassSpellingsOfAllGenerationsAreFound)
{
	for (const char* const Spelled : {"/Script/Tests.TestAsset", "TestAsset", "Tests.TestAsset",
			 "/Script/CoreUObject.Class'\"/Script/Tests.TestAsset\"'", "Class'/Script/Tests.TestAsset'"})
	{
		EXPECT_EQ(FObjectTextImport::FindClass(Spelled), UTestAsset::StaticClass()) << Spelled;
	}
	EXPECT_EQ(FObjectTextImport::FindClass("/Script/Tests.NoSuchThing"), nullptr);
	EXPECT_EQ(FObjectTextImport::FindClass(""), nullptr);
}

/** Pasted objects get other names; what refers to a copied object by its old name or path has to mean the copy. */
TEST_F(ObjectText, ReferencesAmongThePastedLeadToThePasted)
{
	UTestAsset* const First = TestAssets::MakeInner(Package, TEXT("A"));
	UTestAsset* const Inner = TestAssets::MakeInner(First, TEXT("Inner"));
	UTestAsset* const Outside = TestAssets::MakeInner(Package, TEXT("Outside"));
	First->Links = {First, Inner, Outside};
	Inner->Link = First;
	First->Title = TEXT("X'A'");
	for (UObject* const Scope : {static_cast<UObject*>(Package), static_cast<UObject*>(nullptr)})
	{
		const std::string Text = Write(First, FObjectTextExport::Clipboard(Scope));
		UTestAsset* const Copy = Read(Text, Package, TEXT("Pasted"));
		ASSERT_TRUE(Copy) << Text;
		ASSERT_EQ(Copy->Links.Num(), 3) << Text;
		EXPECT_EQ(Copy->Links[0], Copy) << Text;
		ASSERT_TRUE(Copy->Links[1]) << Text;
		EXPECT_EQ(Copy->Links[1]->GetOuter(), Copy) << Text;
		EXPECT_EQ(Copy->Links[2], Outside) << Text;
		EXPECT_EQ(Cast<UTestAsset>(Copy->Links[1])->Link, Copy) << Text;
		EXPECT_TRUE(Copy->Title.Equals(First->Title)) << "text of a person is no reference";
		Copy->MarkAsGarbage();
	}
}

TEST_F(ObjectText, ClipboardNamesThePlaceOfOutermostObjects)
{
	UTestAsset* const First = TestAssets::MakeInner(Package, TEXT("A"));
	TestAssets::MakeInner(First, TEXT("Inner"))->Count = 1;
	EXPECT_EQ(Write(First, FObjectTextExport::Clipboard(Package)),
		"Begin Object Class=/Script/Tests.TestAsset Name=\"A\" ExportPath=\"/Script/Tests.TestAsset'/Temp/ObjectText.A'\"\n"
		"   Begin Object Class=/Script/Tests.TestAsset Name=\"Inner\"\n"
		"   End Object\n"
		"   Begin Object Name=\"Inner\"\n"
		"      Count=1\n"
		"   End Object\n"
		"End Object\n");
}

TEST_F(ObjectText, WhatIsNotKnownIsKeptAndWrittenBack)
{
	const std::string Text = "Begin Object Class=/Script/Tests.TestAsset Name=\"A\"\n"
							 "   Begin Object Class=/Script/Tests.TestAsset Name=\"Known\"\n"
							 "   End Object\n"
							 "   Begin Object Class=/Script/Gone.Thing Name=\"Lost\"\n"
							 "      Begin Object Class=/Script/Gone.Part Name=\"Below\"\n"
							 "      End Object\n"
							 "   End Object\n"
							 "   Begin Object Name=\"Known\"\n"
							 "      Count=1\n"
							 "   End Object\n"
							 "   Begin Object Name=\"Lost\"\n"
							 "      Begin Object Name=\"Below\"\n"
							 "         Y(0)=(A=\"b\")\n"
							 "      End Object\n"
							 "      X=1\n"
							 "      CustomProperties Pin (Z)\n"
							 "   End Object\n"
							 "   OldName=(Some,\"thing\")\n"
							 "   \"Odd=Name\"(3)=4\n"
							 "   Count=2\n"
							 "   Link=\"/Script/Gone.Thing'/Game/Gone.Gone'\"\n"
							 "   Links(0)=\"/Script/Tests.TestAsset'/Temp/ObjectText.A'\"\n"
							 "   Links(1)=\"/Script/Gone.Thing'/Game/Gone.Gone'\"\n"
							 "End Object\n";
	ASSERT_TRUE(Tree.Parse(Text, Error));
	FObjectTextImport Import(Warnings);
	UTestAsset* const Asset = Cast<UTestAsset>(Import.Create(Tree.Objects.front(), Package));
	Import.ImportProperties();
	EXPECT_EQ(Write(Asset), Text);
	EXPECT_EQ(Warnings.Lines.Num(), 3) << ToUtf8(FString::Join(Warnings.Lines, TEXT("\n")));

	Asset->Link = Package;
	EXPECT_NE(Write(Asset).find("Link=\"/Script/CoreUObject.Package'/Temp/ObjectText'\""), std::string::npos)
		<< "a value set since then wins over the kept one";
}

TEST_F(ObjectText, AValueThatCannotBeReadIsToldWithItsLine)
{
	const UTestAsset* const Asset = Read(
		"Begin Object Class=/Script/Tests.TestAsset Name=\"A\"\nCount=abc\nTitle=\"t\"\n"
		"Numbers(16000000)=1\nCount(1)=4\nEnd Object",
		Package, TEXT("B"));
	ASSERT_EQ(Warnings.Lines.Num(), 3);
	EXPECT_TRUE(
		Warnings.Lines[0].StartsWith(TEXT("line 2: property 'Count' of '/Temp/ObjectText.B' keeps its value: ")))
		<< ToUtf8(Warnings.Lines[0]);
	EXPECT_TRUE(
		Warnings.Lines[1].StartsWith(TEXT("line 4: property 'Numbers' of '/Temp/ObjectText.B' keeps its value: ")))
		<< ToUtf8(Warnings.Lines[1]);
	EXPECT_TRUE(Warnings.Lines[2].StartsWith(TEXT("line 5: property 'Count'"))) << ToUtf8(Warnings.Lines[2]);
	EXPECT_EQ(Asset->Count, 7);
	EXPECT_TRUE(Asset->Title.Equals(TEXT("t")));
	EXPECT_EQ(Asset->Numbers.Num(), 3);
}

TEST_F(ObjectText, TransientAndFreedObjectsAreLeftOut)
{
	UTestAsset* const Asset = TestAssets::MakeInner(Package, TEXT("A"));
	TestAssets::MakeInner(Asset, TEXT("Kept"));
	TestAssets::MakeInner(Asset, TEXT("Fleeting"))->SetFlags(RF_Transient);
	TestAssets::MakeInner(Asset, TEXT("Freed"))->MarkAsGarbage();
	const std::string Text = Write(Asset);
	EXPECT_NE(Text.find("Kept"), std::string::npos);
	EXPECT_EQ(Text.find("Fleeting"), std::string::npos);
	EXPECT_EQ(Text.find("Freed"), std::string::npos);
}

TEST_F(ObjectText, NestingTooDeepToReadIsNotWritten)
{
	UTestAsset* const Top = TestAssets::MakeInner(Package, TEXT("A"));
	UObject* Deepest = Top;
	for (int32 Level = 1; Level < FObjectTextTree::MaxDepth; ++Level)
	{
		Deepest = TestAssets::MakeInner(Deepest, TEXT("N"));
	}
	ASSERT_TRUE(Tree.Parse(Write(Top), Error)) << ToUtf8(Error.ToString());
	TestAssets::MakeInner(Deepest, TEXT("N"));
	std::string Text;
	FString Problem;
	EXPECT_FALSE(FObjectTextExport().Write({Top}, Text, Problem));
	EXPECT_TRUE(Problem.EndsWith(TEXT("is nested deeper than 128 levels"))) << ToUtf8(Problem);
}
