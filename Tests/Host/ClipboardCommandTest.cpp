#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "GraphText.h"
#include "Host/Process.h"
#include "TemporaryFolder.h"

using testing::HasSubstr;

namespace ClipboardCommandTest
{
FProcessResult Run(const FTemporaryFolder& Project, std::vector<std::string> Words, const std::string& Input = {})
{
	Words.push_back("--project");
	Words.push_back(Project.Path().string());
	return RunMorvane(Words, Input);
}

void CreateBlueprint(const FTemporaryFolder& Project)
{
	const FProcessResult Created = Run(Project,
		{"call", "bp_create_asset",
			R"({"path":"/Game/BP_Door","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})"});
	ASSERT_EQ(Created.Status, 0) << Created.Output;
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
	EXPECT_THAT(NoText.Output, HasSubstr("The text has no node that could be pasted"));
	EXPECT_EQ(ClipboardCommandTest::Run(Project, {"paste", "/Game/BP_Door"}).Status, 2);
}
