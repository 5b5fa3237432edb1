#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "GraphText.h"
#include "Host/Process.h"
#include "TemporaryFolder.h"

using testing::HasSubstr;

namespace ClipboardCommandTest
{
static FProcessResult Run(
	const FTemporaryFolder& Project, std::vector<std::string> Words, const std::string& Input = {})
{
	Words.push_back("--project");
	Words.push_back(Project.Path().string());
	return RunMorvane(Words, Input);
}

static void CreateBlueprint(const FTemporaryFolder& Project)
{
	const FProcessResult Created = Run(Project,
		{"call", "bp_create_asset",
			R"({"path":"/Game/BP_Door","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})"});
	ASSERT_EQ(Created.Status, 0) << Created.Output;
}

static std::string ReadAsset(const FTemporaryFolder& Project)
{
	std::ifstream File(Project.Path() / "Content" / "BP_Door.uatext", std::ios::binary);
	return std::string(std::istreambuf_iterator<char>(File), {});
}
} // namespace ClipboardCommandTest

TEST(ClipboardCommand, PasteSavesAndCopyGivesTheNodesBack)
{
	const FTemporaryFolder Project;
	ClipboardCommandTest::CreateBlueprint(Project);
	const std::string Text = ReadTestData("Graphs/knots-and-print.txt");
	const FProcessResult Pasted = ClipboardCommandTest::Run(Project, {"paste", "/Game/BP_Door", "EventGraph"}, Text);
	EXPECT_EQ(Pasted.Status, 0) << Pasted.Errors;
	EXPECT_THAT(Pasted.Output, HasSubstr(R"("messages":["Pasted 6 node(s) into 'EventGraph'"])"));
	EXPECT_THAT(Pasted.Output, HasSubstr(R"("links":5)"));
	const FProcessResult Copied = ClipboardCommandTest::Run(Project, {"copy", "/Game/BP_Door", "EventGraph"});
	EXPECT_EQ(Copied.Status, 0) << Copied.Errors;
	// The default events come first.
	const std::size_t First = Copied.Output.find("Begin Object Class=/Script/BlueprintGraph.K2Node_CallFunction");
	ASSERT_NE(First, std::string::npos);
	EXPECT_EQ(FindDifference(ReadGraphText(Text), ReadGraphText(Copied.Output.substr(First))), "");
}

TEST(ClipboardCommand, WhatIsNotThereIsNamed)
{
	const FTemporaryFolder Project;
	ClipboardCommandTest::CreateBlueprint(Project);
	const FProcessResult NoGraph = ClipboardCommandTest::Run(Project, {"copy", "/Game/BP_Door", "Cellar"});
	EXPECT_EQ(NoGraph.Status, 1);
	EXPECT_EQ(NoGraph.Output, "");
	EXPECT_THAT(NoGraph.Errors, HasSubstr("has no graph 'Cellar'; its graphs: UserConstructionScript, EventGraph"));
	const FProcessResult NoAsset = ClipboardCommandTest::Run(Project, {"paste", "/Game/BP_Gate", "EventGraph"}, "x");
	EXPECT_EQ(NoAsset.Status, 1);
	EXPECT_THAT(NoAsset.Output, HasSubstr("Failed to find or load blueprint: /Game/BP_Gate"));
	const FProcessResult NoText = ClipboardCommandTest::Run(Project, {"paste", "/Game/BP_Door", "EventGraph"}, "hello");
	EXPECT_EQ(NoText.Status, 1);
	EXPECT_THAT(NoText.Output,
		HasSubstr("The text has no node that could be pasted: line 1: expected 'Begin Object', found 'hello'"));
	EXPECT_EQ(ClipboardCommandTest::Run(Project, {"paste", "/Game/BP_Door"}).Status, 2);
}

TEST(ClipboardCommand, TextThatCannotBeReadLeavesTheFileAlone)
{
	const FTemporaryFolder Project;
	ClipboardCommandTest::CreateBlueprint(Project);
	const std::string Before = ClipboardCommandTest::ReadAsset(Project);
	ASSERT_FALSE(Before.empty());
	const std::string Knot = "Begin Object Class=/Script/BlueprintGraph.K2Node_Knot Name=\"A\"\n";
	for (const auto& [Text, Reason] : std::vector<std::pair<std::string, std::string>>{
			 {Knot + "End Object\n" + Knot + "NodePosX=1\n", "line 3: the object 'A' has no 'End Object'"},
			 {"Begin Object Class=/Script/Engine.Actor Name=\"A\"\nEnd Object\n", "line 1: 'A' is left out"},
			 {std::string("\x01\0\x02", 3), "line 1: a zero byte; the text has to be UTF-8"},
		 })
	{
		const FProcessResult Pasted = ClipboardCommandTest::Run(
			Project, {"paste", "/Game/BP_Door", "EventGraph"}, Text);
		EXPECT_EQ(Pasted.Status, 1) << Reason;
		EXPECT_THAT(Pasted.Output, HasSubstr("The text has no node that could be pasted: " + Reason));
		EXPECT_EQ(ClipboardCommandTest::ReadAsset(Project), Before) << Reason;
	}
}

TEST(ClipboardCommand, NodesAreCopiedByNameAndPastedAtAPlace)
{
	const FTemporaryFolder Project;
	ClipboardCommandTest::CreateBlueprint(Project);
	const std::string Node = "End Object\nBegin Object Class=/Script/BlueprintGraph.K2Node_Knot Name=";
	const std::string Text =
		"Begin Object Class=/Script/BlueprintGraph.K2Node_Knot Name=\"A\"\nNodePosX=100\nNodePosY=7\n" + Node
		+ "\"B\"\nNodePosX=40\nNodePosY=20\nEnd Object\nBegin Object Class=/Script/Rain.Node_Rain Name=\"R\"\n"
		+ "NodePosX=50\nNodePosY=9\nEnd Object\n";
	const FProcessResult Pasted = ClipboardCommandTest::Run(
		Project, {"paste", "/Game/BP_Door", "EventGraph", "--at", "-500", "1000"}, Text);
	EXPECT_EQ(Pasted.Status, 0) << Pasted.Output;
	for (const char* const Part :
		{R"("name":"A","class":"/Script/BlueprintGraph.K2Node_Knot","title":"Reroute Node")", R"("x":-440,"y":1000)",
			R"("x":-500,"y":1013)", R"("class":"/Script/Rain.Node_Rain","title":"Unknown node: Node_Rain")",
			R"("unknown":true)", R"("warnings":["'R' (Unknown node: Node_Rain): its class is not known here)"})
	{
		EXPECT_THAT(Pasted.Output, HasSubstr(Part));
	}
	const FProcessResult Copied = ClipboardCommandTest::Run(
		Project, {"copy", "/Game/BP_Door", "EventGraph", "--node", "R", "--node", "A"});
	EXPECT_EQ(Copied.Status, 0) << Copied.Errors;
	const std::vector<FGraphTextNode> Nodes = ReadGraphText(Copied.Output);
	ASSERT_EQ(Nodes.size(), 2u);
	EXPECT_EQ(Nodes[0].Class, "/Script/Rain.Node_Rain");
	EXPECT_EQ(Nodes[1].Properties.at("NodePosX"), "-440");
	const FProcessResult NoNode = ClipboardCommandTest::Run(
		Project, {"copy", "/Game/BP_Door", "EventGraph", "--node", "Z"});
	EXPECT_EQ(NoNode.Status, 1);
	EXPECT_THAT(NoNode.Errors, HasSubstr("The graph 'EventGraph' has no node with the name or id 'Z'"));
	EXPECT_EQ(
		ClipboardCommandTest::Run(Project, {"paste", "/Game/BP_Door", "EventGraph", "--at", "1"}, Text).Status, 2);
}
