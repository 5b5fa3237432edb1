// Text of every engine generation, and what people leave around it, gives the same nodes.

#include "BlueprintBuilder.h"
#include "ClipboardText.h"
#include "GraphText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <regex>

namespace ClipboardFormsTests
{
using namespace ClipboardTests;

static std::string Replaced(const std::string& Text, const char* Pattern, const char* With)
{
	return std::regex_replace(Text, std::regex(Pattern), With);
}

/** Any of the three spellings of a reference: module, class, object. */
constexpr const char* Reference = R"re("?/Script/(\w+)\.(\w+)'"?([^'"]*)"?'"?)re";

/** What the editor wrote before 5.0: no modules of classes, no export paths, fewer flags, arrays told twice. */
static std::string ToFourForm(const std::string& Text)
{
	std::string Old = Replaced(Text, " ExportPath=[^\n]*", "");
	Old = Replaced(Old, " Class=/Script/", " Class=");
	Old = Replaced(Old, Reference, "$2'\"$3\"'");
	Old = Replaced(Old, R"(PinType\.bIsUObjectWrapper=\w+,PinType\.bSerializeAsSinglePrecisionFloat=\w+,)", "");
	Old = Replaced(Old, R"(PinType\.ContainerType=Array,)", "PinType.ContainerType=Array,PinType.bIsArray=True,");
	return Replaced(Old, R"(PinType\.ContainerType=None,)", "PinType.ContainerType=None,PinType.bIsArray=False,");
}

/** What a reader of a page has of it: marks, words and blanks around the text. */
static std::string AmidWords(const std::string& Text)
{
	return "\xEF\xBB\xBFHere is my graph:\n```\n\n" + Text + "\n```\nBegin with the event. End of story.\n";
}

struct FForm
{
	const char* Label;
	std::function<std::string(const std::string&)> Change;
};

static std::vector<FForm> MakeForms()
{
	return {
		{"4.x", ToFourForm},
		{"next 5.x", [](const std::string& Text) { return Replaced(Text, Reference, "/Script/$1.$2'\"$3\"'"); }},
		{"later 5.x", [](const std::string& Text) { return Replaced(Text, Reference, "\"/Script/$1.$2'$3'\""); }},
		{"quoted names",
			[](const std::string& Text) { return Replaced(Text, R"(\n( +)(\w+)(\(\d+\))?=)", "\n$1\"$2\"$3="); }},
		{"old and worn",
			[](const std::string& Text)
			{ return Replaced(Replaced(AmidWords(ToFourForm(Text)), "\n +", "\n\t\t"), "\n", "\r\n"); }},
	};
}

static std::string PastedAndCopied(const std::string& Text)
{
	const FBlueprintBuilder Blueprint;
	return Copy(Paste(Blueprint.EventGraph().Get(), Text));
}

/** Spellings of what could not be found are kept, which is no difference. */
static std::vector<FGraphTextNode> ReadAlike(const std::string& Text)
{
	return ReadGraphText(Replaced(Text, Reference, "\"/Script/$1.$2'$3'\""));
}
} // namespace ClipboardFormsTests

using namespace ClipboardFormsTests;

class FClipboardForms : public testing::TestWithParam<const char*>
{
};

TEST_P(FClipboardForms, GiveTheSameNodes)
{
	const std::string Text = ReadTestData("Graphs/" + std::string(GetParam()) + ".txt");
	const std::vector<FGraphTextNode> Expected = ReadAlike(PastedAndCopied(Text));
	ASSERT_FALSE(Expected.empty());
	for (const FForm& Form : MakeForms())
	{
		const std::string Copied = Replaced(PastedAndCopied(Form.Change(Text)),
			R"re(([=(])(Class|ScriptStruct|Enum)'")re", "$1/Script/CoreUObject.$2'\"");
		EXPECT_EQ(FindDifference(Expected, ReadAlike(Copied)), "") << Form.Label;
	}
}

INSTANTIATE_TEST_SUITE_P(All, FClipboardForms,
	testing::Values("async-call-and-append", "construction-lights", "function-reparent-loop", "input-keys-and-structs",
		"knots-and-print"),
	[](const testing::TestParamInfo<const char*>& Sample) { return Replaced(Sample.param, "-", "_"); });

TEST(ClipboardForms, OldFloatsTakeThePrecisionOfWhatDeclaresThem)
{
	const FBlueprintBuilder Blueprint;
	const std::string Pin =
		"PinType.PinCategory=\"float\",PinType.PinSubCategory=\"\",PinType.PinSubCategoryObject=None,";
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(),
		"Begin Object Class=BlueprintGraph.K2Node_CallFunction Name=\"Native\"\n"
		"   FunctionReference=(MemberParent=Class'\"/Script/Engine.KismetSystemLibrary\"',MemberName=\"Delay\")\n"
		"   CustomProperties Pin (PinId=00000000000000000000000000000001,PinName=\"Duration\","
			+ Pin
			+ "DefaultValue=\"1.5\",)\nEnd Object\n"
			  "Begin Object Class=BlueprintGraph.K2Node_CustomEvent Name=\"Own\"\n   CustomFunctionName=\"Ring\"\n"
			  "   CustomProperties Pin (PinId=00000000000000000000000000000002,PinName=\"Loudness\",Direction=\"EGPD_Output\","
			+ Pin
			+ ")\n   CustomProperties UserDefinedPin (PinName=\"Loudness\",PinType=(PinCategory=\"float\"),"
			  "DesiredPinDirection=EGPD_Output)\n"
			  "   CustomProperties UserDefinedPin (PinName=\"Table\",PinType=(PinCategory=\"name\",ContainerType=Map,"
			  "PinValueType=(TerminalCategory=\"float\")),DesiredPinDirection=EGPD_Output)\nEnd Object\n"
			  "Begin Object Class=BlueprintGraph.K2Node_CallFunction Name=\"Missing\"\n"
			  "   FunctionReference=(MemberName=\"Gone\",bSelfContext=True)\n"
			  "   CustomProperties Pin (PinId=00000000000000000000000000000003,PinName=\"Amount\","
			+ Pin + ")\nEnd Object\n");
	ASSERT_EQ(Nodes.Num(), 3);
	const struct
	{
		const UEdGraphPin* Pin;
		const TCHAR* SubCategory;
	} Cases[] = {
		{Nodes[0]->FindPin(TEXT("Duration")), TEXT("float")},
		{Nodes[1]->FindPin(TEXT("Loudness")), TEXT("double")},
		{Nodes[2]->FindPin(TEXT("Amount")), TEXT("double")},
	};
	for (const auto& Case : Cases)
	{
		ASSERT_NE(Case.Pin, nullptr) << ToStd(Case.SubCategory);
		EXPECT_EQ(Case.Pin->PinType.PinCategory, FName(TEXT("real"))) << ToStd(Case.Pin->PinName.ToString());
		EXPECT_EQ(Case.Pin->PinType.PinSubCategory, FName(Case.SubCategory)) << ToStd(Case.Pin->PinName.ToString());
	}
	EXPECT_EQ(Cases[0].Pin->DefaultValue, TEXT("1.5"));
	const UEdGraphPin* const Table = Nodes[1]->FindPin(TEXT("Table"));
	ASSERT_NE(Table, nullptr);
	EXPECT_EQ(Table->PinType.PinValueType.TerminalSubCategory, FName(TEXT("double")));
}

TEST(ClipboardForms, WordsAroundTheTextAreTold)
{
	const FBlueprintBuilder Blueprint;
	FWarnings Warnings;
	const std::string Text = ReadTestData("Graphs/knots-and-print.txt");
	EXPECT_EQ(Paste(Blueprint.EventGraph().Get(), "Look:\n" + Text + "\nbye\n", &Warnings).Num(), 6);
	EXPECT_THAT(Warnings.Lines,
		testing::ElementsAre("line 1: 2 line(s) that belong to no object are passed over, the first is 'Look:'"));
}

TEST(ClipboardForms, TextThatCannotBeReadMakesNothingAndSaysWhere)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const int32 Before = Graph->Nodes.Num();
	const std::string Head = "Begin Object Class=/Script/BlueprintGraph.K2Node_Knot Name=\"A\"\n";
	const struct
	{
		std::string Text;
		const char* Reason;
	} Cases[] = {
		{"", "line 1: expected 'Begin Object', found nothing"},
		{"\n hello \nagain", "line 2: expected 'Begin Object', found 'hello'"},
		{"some words\n" + Head + "   NodePosX=1\n", "line 2: the object 'A' has no 'End Object'"},
		{"   NodePosX=1\nEnd Object\n" + Head + "End Object\n", "line 2: 'End Object' without an object to end"},
		{Head + "   \"NodePosX=1\nEnd Object\n", "line 2: a quote is not closed in '\"NodePosX=1'"},
		{Head + "   NodePosX\nEnd Object\n", "line 2: expected 'Name=Value', found 'NodePosX'"},
		{std::string("\xFF\xFE"
					 "B\0e\0",
			 6),
			"line 1: a zero byte; the text has to be UTF-8"},
		{Head + "   X=" + std::string(1, '\0') + "\nEnd Object\n", "line 2: a zero byte; the text has to be UTF-8"},
	};
	for (const auto& Case : Cases)
	{
		FWarnings Warnings;
		EXPECT_FALSE(FEdGraphUtilities::CanImportNodesFromText(Graph, FromUtf8(Case.Text))) << Case.Reason;
		EXPECT_EQ(Paste(Graph, Case.Text, &Warnings).Num(), 0) << Case.Reason;
		EXPECT_THAT(Warnings.Lines, testing::ElementsAre(Case.Reason));
		EXPECT_EQ(Graph->Nodes.Num(), Before) << Case.Reason;
	}
}

TEST(ClipboardForms, TextOutOfAllReasonIsSurvived)
{
	const auto Repeated = [](const std::string& Part, int32 Times)
	{
		std::string Text;
		for (int32 Round = 0; Round < Times; ++Round)
		{
			Text += Part;
		}
		return Text;
	};
	const std::string Label = Repeated("LOCGEN_FORMAT_NAMED(", 2000) + "\"a\"" + Repeated(")", 2000);
	const std::string Pin = "CustomProperties Pin (PinId=00000000000000000000000000000001,PinName=\"x\",";
	const struct
	{
		const char* Class;
		std::string Lines;
		/** What the copy has all the same; empty where nothing of the text can stand. */
		std::string Kept;
	} Cases[] = {
		{"K2Node_CallFunction", Pin + "PinFriendlyName=" + Label + ",PinType.PinCategory=\"int\",)", Label},
		{"K2Node_CallFunction", Pin + "PinType.PinValueType=" + Repeated("(", 5000) + Repeated(")", 5000) + ",)",
			Repeated("(", 5000)},
		{"K2Node_CallFunction", Pin + "LinkedTo=(N 1,N,,(, ),SubPins=(N 00000000000000000000000000000001,),)",
			"PinName=\"x\""},
		{"K2Node_CallFunction", "FunctionReference=" + Repeated("(MemberParent=", 5000),
			"(MemberParent=(MemberParent="},
		{"K2Node_CallFunction", "Cloud=A'" + Repeated("a.", 5000) + "'", Repeated("a.", 5000)},
		{"K2Node_SwitchString", "PinNames(16000000)=\"a\"\nPinNames(1)=\"b\"", "PinNames(1)=\"b\""},
		{"K2Node_MakeArray", "NumInputs=2000000000", std::string()},
		{"K2Node_MakeMap", "NumInputs=-5", std::string()},
		{"K2Node_Select", "NumOptionPins=2000000000", std::string()},
		{"K2Node_DoOnceMultiInput", "NumAdditionalInputs=2000000000", std::string()},
		{"K2Node_CommutativeAssociativeBinaryOperator",
			"NumAdditionalInputs=2000000000\n"
			"FunctionReference=(MemberParent=Class'\"/Script/Engine.KismetStringLibrary\"',MemberName=\"Concat_StrStr\")",
			"Concat_StrStr"},
	};
	const FBlueprintBuilder Blueprint;
	for (const auto& Case : Cases)
	{
		FWarnings Warnings;
		const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(),
			"Begin Object Class=/Script/BlueprintGraph." + std::string(Case.Class) + " Name=\"N\"\n" + Case.Lines
				+ "\nEnd Object\n",
			&Warnings);
		ASSERT_EQ(Nodes.Num(), 1) << Case.Class;
		EXPECT_LT(Nodes[0]->Pins.Num(), 10000) << Case.Class;
		const std::string Copied = Copy(Nodes);
		EXPECT_TRUE(Copied.find(Case.Kept) != std::string::npos) << Case.Class << ": " << Case.Lines.substr(0, 100);
		for (const std::string& Line : Warnings.Lines)
		{
			EXPECT_LT(Line.size(), 600u) << Line.substr(0, 200);
		}
		Nodes[0]->DestroyNode();
	}
}
