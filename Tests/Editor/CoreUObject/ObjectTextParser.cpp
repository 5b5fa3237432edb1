#include "Standalone/ObjectText.h"

#include <gtest/gtest.h>

#include <random>

namespace ObjectTextParserTests
{
/** "Name:Class[inner...]{line,line}" for each record, so that a whole tree is compared at once. */
static std::string Shape(const std::vector<FObjectTextRecord>& Records)
{
	std::string Result;
	for (const FObjectTextRecord& Record : Records)
	{
		Result += (Result.empty() ? "" : " ") + ToUtf8(Record.GetName()) + ":" + std::string(Record.ClassPath);
		Result += Record.Inner.empty() ? "" : "[" + Shape(Record.Inner) + "]";
		std::string Lines;
		for (const FObjectTextLine& Line : Record.Lines)
		{
			Lines += Lines.empty() ? "" : ",";
			Lines += Line.bCustom ? "!" : std::string(Line.Name);
			Lines += Line.Index == INDEX_NONE ? "" : "(" + std::to_string(Line.Index) + ")";
			Lines += "=" + std::string(Line.Value);
		}
		Result += Lines.empty() ? "" : "{" + Lines + "}";
	}
	return Result;
}

static std::string ParseToShape(const std::string& Text)
{
	FObjectTextTree Tree;
	FObjectTextError Error;
	return Tree.Parse(Text, Error) ? Shape(Tree.Objects)
								   : "line " + std::to_string(Error.LineNumber) + ": " + ToUtf8(Error.Message);
}

/** Two nodes of a graph, one with a nested object. */
const std::string Sample =
	"Begin Object Class=/Script/BlueprintGraph.K2Node_CallFunction Name=\"Call_0\" "
	"ExportPath=\"/Script/BlueprintGraph.K2Node_CallFunction'/Game/A.A:My Graph.Call_0'\"\r\n"
	"   FunctionReference=(MemberParent=\"/Script/CoreUObject.Class'/Script/Engine.Actor'\",MemberName=\"F\")\r\n"
	"   NodePosX=-16\r\n"
	"   CustomProperties Pin (PinId=0123456789ABCDEF0123456789ABCDEF,PinName=\"then\",LinkedTo=(Event_1 "
	"AB,),)\r\n"
	"End Object\r\n"
	"Begin Object Class=/Script/BlueprintGraph.K2Node_Composite Name=\"Composite_0\"\r\n"
	"   Begin Object Class=/Script/Engine.EdGraph Name=\"Inner\"\r\n"
	"      Begin Object Class=/Script/X.Node Name=\"N\"\r\n"
	"      End Object\r\n"
	"   End Object\r\n"
	"   Begin Object Name=\"Inner\"\r\n"
	"      Begin Object Name=\"N\"\r\n"
	"         NodePosY=32\r\n"
	"      End Object\r\n"
	"      bEditable=True\r\n"
	"   End Object\r\n"
	"   BoundGraph=\"/Script/Engine.EdGraph'Composite_0.Inner'\"\r\n"
	"End Object\r\n";
} // namespace ObjectTextParserTests

TEST(ObjectTextParser, FormsOfTheTextGiveTheirTree)
{
	const struct
	{
		const char* Label;
		const char* Text;
		const char* Expected;
	} Cases[] = {
		{"nothing", "", ""},
		{"blank lines", "\n  \r\n\t\n", ""},
		{"no line break at the end", "Begin Object Class=/S.C Name=\"A\"\nX=1\nEnd Object", "A:/S.C{X=1}"},
		{"keywords in any case", "begin object class=/S.C name=A\nEND OBJECT", "A:/S.C"},
		{"class without module", "Begin Object Class=K2Node_Event Name=\"A\"\nEnd Object", "A:K2Node_Event"},
		{"quoted class", "Begin Object Class=\"/S.C\" Name=\"A\"\nEnd Object", "A:/S.C"},
		{"name with blanks and quotes", "Begin Object Class=/S.C Name=\"My \\\"A\\\"\"\nEnd Object", "My \"A\":/S.C"},
		{"unknown header fields", "Begin Object Class=/S.C Name=\"A\" Archetype=C'\"/X y.Z\"' CustomName=q\nEnd Object",
			"A:/S.C"},
		{"quoted property name", "Begin Object Class=/S.C Name=\"A\"\n\"NodePosX\"=16\nEnd Object",
			"A:/S.C{NodePosX=16}"},
		{"property name with blanks", "Begin Object Class=/S.C Name=\"A\"\n\"My Var\"(2)=1\nEnd Object",
			"A:/S.C{My Var(2)=1}"},
		{"elements", "Begin Object Class=/S.C Name=\"A\"\nX(0)=a\nX(12)=(b=(c))\nX[3]=d\nEnd Object",
			"A:/S.C{X(0)=a,X(12)=(b=(c)),X(3)=d}"},
		{"empty value", "Begin Object Class=/S.C Name=\"A\"\nX=\nEnd Object", "A:/S.C{X=}"},
		{"blanks around the value", "Begin Object Class=/S.C Name=\"A\"\n  X =  \"a b\"  \nEnd Object",
			"A:/S.C{X=\"a b\"}"},
		{"custom lines", "Begin Object Class=/S.C Name=\"A\"\nCustomProperties Pin (A=B,)\nEnd Object",
			"A:/S.C{!=Pin (A=B,)}"},
		{"a property that begins like a keyword",
			"Begin Object Class=/S.C Name=\"A\"\nBeginTime=1\nEndTime=2\nCustomPropertiesX=3\nEnd Object",
			"A:/S.C{BeginTime=1,EndTime=2,CustomPropertiesX=3}"},
		{"declared, then filled in another order",
			"Begin Object Class=/S.C Name=\"A\"\nBegin Object Class=/S.B Name=\"X\"\nEnd Object\n"
			"Begin Object Class=/S.B Name=\"Y\"\nEnd Object\nBegin Object Name=\"Y\"\nV=2\nEnd Object\n"
			"Begin Object Name=\"X\"\nV=1\nEnd Object\nEnd Object",
			"A:/S.C[X:/S.B{V=1} Y:/S.B{V=2}]"},
		{"filled without a declaration",
			"Begin Object Class=/S.C Name=\"A\"\nBegin Object Name=\"X\"\nV=1\nEnd Object\nEnd Object",
			"A:/S.C[X:{V=1}]"},
		{"nested without a second part",
			"Begin Object Class=/S.C Name=\"A\"\nBegin Object Class=/S.B Name=\"X\"\nV=1\nEnd Object\nEnd Object",
			"A:/S.C[X:/S.B{V=1}]"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(ObjectTextParserTests::ParseToShape(Case.Text), Case.Expected) << Case.Label;
	}
}

TEST(ObjectTextParser, FaultsAreToldWithTheirLine)
{
	const struct
	{
		const char* Text;
		const char* Expected;
	} Cases[] = {
		{"hello", "line 1: expected 'Begin Object', found 'hello'"},
		{"\n\nX=1", "line 3: expected 'Begin Object', found 'X=1'"},
		{"Begin Actor Class=/S.C Name=A", "line 1: only objects can begin here, found 'Begin Actor Class=/S.C Name=A'"},
		{"Begin Object Class=/S.C", "line 1: 'Begin Object' has no Name"},
		{"Begin Object Name=\"A\"", "line 1: the object 'A' has no Class"},
		{"Begin Object Class=/S.C Name=\"A", "line 1: a quote is not closed in '\"A'"},
		{"Begin Object Class=/S.C Name=\"A\" junk", "line 1: expected 'Field=Value', found 'junk'"},
		{"Begin Object Class=/S.C Name=\"A\" Flags=Public|Odd\nEnd Object", "line 1: unknown object flag 'Odd'"},
		{"Begin Object Class=/S.C Name=\"A\"\nX=1", "line 1: the object 'A' has no 'End Object'"},
		{"Begin Object Class=/S.C Name=\"A\"\nEnd Objects", "line 2: expected 'End Object', found 'End Objects'"},
		{"Begin Object Class=/S.C Name=\"A\"\nEnd Object\nEnd Object", "line 3: 'End Object' without an object to end"},
		{"Begin Object Class=/S.C Name=\"A\"\nno value\nEnd Object", "line 2: expected 'Name=Value', found 'no value'"},
		{"Begin Object Class=/S.C Name=\"A\"\n=1\nEnd Object", "line 2: expected 'Name=Value', found '=1'"},
		{"Begin Object Class=/S.C Name=\"A\"\nX(-1)=1\nEnd Object", "line 2: expected an element number in 'X(-1)=1'"},
		{"Begin Object Class=/S.C Name=\"A\"\nX(99999999999)=1\nEnd Object",
			"line 2: expected an element number in 'X(99999999999)=1'"},
		{"Begin Object Class=/S.C Name=\"A\"\n\"X=1\nEnd Object", "line 2: a quote is not closed in '\"X=1'"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(ObjectTextParserTests::ParseToShape(Case.Text), Case.Expected);
	}
}

TEST(ObjectTextParser, ExportPathGivesTheObjectPathInEverySpelling)
{
	for (const char* const Spelled : {"\"/Script/M.C'/Game/A.A:My Graph.N'\"", "/Script/M.C'\"/Game/A.A:My Graph.N\"'",
			 "C'\"/Game/A.A:My Graph.N\"'", "\"/Game/A.A:My Graph.N\""})
	{
		FObjectTextTree Tree;
		FObjectTextError Error;
		ASSERT_TRUE(
			Tree.Parse("Begin Object Class=/M.C Name=\"N\" ExportPath=" + std::string(Spelled) + "\nEnd Object", Error))
			<< Spelled;
		EXPECT_EQ(ToUtf8(Tree.Objects[0].GetExportObjectPath()), "/Game/A.A:My Graph.N") << Spelled;
	}
}

TEST(ObjectTextParser, NestingIsBounded)
{
	const auto Nested = [](int32 Depth, bool bClose)
	{
		std::string Text;
		for (int32 Level = 0; Level < Depth; ++Level)
		{
			Text += "Begin Object Class=/S.C Name=\"A\"\n";
		}
		for (int32 Level = 0; bClose && Level < Depth; ++Level)
		{
			Text += "End Object\n";
		}
		return ObjectTextParserTests::ParseToShape(Text);
	};
	EXPECT_EQ(Nested(FObjectTextTree::MaxDepth, true).substr(0, 6), "A:/S.C");
	EXPECT_EQ(Nested(FObjectTextTree::MaxDepth + 1, true), "line 129: objects are nested deeper than 128 levels");
	EXPECT_EQ(Nested(100000, false), "line 129: objects are nested deeper than 128 levels");
}

TEST(ObjectTextParser, AMovedTreeKeepsItsText)
{
	FObjectTextTree Kept;
	{
		FObjectTextTree Tree;
		FObjectTextError Error;
		ASSERT_TRUE(Tree.Parse(std::string("Begin Object Class=/S.C Name=\"A\"\nX=1\nEnd Object"), Error));
		Kept = MoveTemp(Tree);
	}
	EXPECT_EQ(ObjectTextParserTests::Shape(Kept.Objects), "A:/S.C{X=1}");
}

/** Cut and spoiled texts must be refused with a line or read as something that can be written and read again. */
TEST(ObjectTextParser, SpoiledTextIsRefusedOrReadsBack)
{
	std::mt19937 Random(20240611);
	const std::string& Sample = ObjectTextParserTests::Sample;
	const char Nasty[] = {'"', '\'', '\\', '\n', '=', '(', ')', ' ', '\0', '\xff', '\xc3'};
	for (std::size_t Round = 0; Round < Sample.size() + 20000; ++Round)
	{
		std::string Text = Sample;
		if (Round < Sample.size())
		{
			Text.resize(Round);
		}
		for (int32 Change = 0; Round >= Sample.size() && Change < 3; ++Change)
		{
			Text[Random() % Text.size()] = Nasty[Random() % sizeof(Nasty)];
		}
		FObjectTextTree Tree;
		FObjectTextError Error;
		if (!Tree.ParseView(Text, Error))
		{
			ASSERT_GT(Error.LineNumber, 0) << Text;
			ASSERT_FALSE(Error.Message.IsEmpty()) << Text;
			ASSERT_TRUE(Tree.Objects.empty());
			continue;
		}
		for (const FObjectTextRecord& Record : Tree.Objects)
		{
			const std::string Written = FKeptObjectText::TextOf(Record);
			FObjectTextTree Again;
			ASSERT_TRUE(Again.ParseView(Written, Error)) << ToUtf8(Error.ToString()) << "\n" << Written;
			ASSERT_EQ(FKeptObjectText::TextOf(Again.Objects.front()), Written);
		}
	}
}
