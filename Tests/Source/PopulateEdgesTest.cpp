#include "BlueprintUtils.h"
#include "Populating.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(PopulateEdges, EveryNodeLinkedToATouchedOneCountsAsNeighbor)
{
	FPopulating Case;
	Case.Populate(R"("nodes":[)" + EventNode("e", "ReceiveBeginPlay") + ","
		+ CallNode("d", "KismetSystemLibrary", "Delay") + R"(],"connections":[)" + Link("e", "then", "d", "execute")
		+ "]");
	EXPECT_EQ(Case.Told(TEXT("nodes_formatted")), "2");
	EXPECT_EQ(Case.Told(TEXT("neighbors_included")), "2") << "those that were touched themselves as well";

	// Behind a node of an earlier run: that one is touched, and the event before it is its neighbour.
	const std::string Delay = Case.GuidOf("d");
	Case.Populate(R"("nodes":[)" + CallNode("p", "KismetSystemLibrary", "PrintString") + R"(],"connections":[)"
		+ Link(Delay, "then", "p", "execute") + "]");
	EXPECT_EQ(Case.Told(TEXT("nodes_existing_modified")), "1");
	EXPECT_EQ(Case.Told(TEXT("nodes_formatted")), "3");
	EXPECT_EQ(Case.Told(TEXT("neighbors_included")), "3");
}

TEST(PopulateEdges, LocalVariablesOfAnEarlierCallCanBeGotAndSet)
{
	FPopulating Case;
	Case.Blueprint.Function(TEXT("Calc"));
	const std::string Variable = R"("local_variables":[{"name":"Running","type":{"category":"int"}}],)";
	Case.Populate(Variable + R"("nodes":[)" + LooseNode("c", "Add Comment") + "]", "Calc");
	Case.Populate(R"("nodes":[)" + LooseNode("g", "Get Running") + "," + LooseNode("s", "Set Running")
			+ R"(],"connections":[)" + Link("g", "Running", "s", "Running") + "]",
		"Calc");
	EXPECT_THAT(Errors(*Case.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_EQ(Case.Data(TEXT("connections_created")), "1");
}

TEST(PopulateEdges, AParentCallWithoutANameIsReported)
{
	FPopulating Case;
	Case.Nodes(R"({"node_guid":"a","class_name":"K2Node_CallParentFunction"},)"
			   R"({"node_guid":"b","class_name":"K2Node_CallParentFunction","menu_title":"Parent: "})");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"[Failure] K2Node_CallParentFunction requires either target_function or menu_title with 'Parent: FunctionName' format",
			StartsWith("[Failure] Function '' not found in parent class 'Actor'. Available functions: [")));
	EXPECT_EQ(Case.Failures().size(), 2u);
}

TEST(PopulateEdges, AnEventThatStandsInAnotherGraphIsItsOwnEvent)
{
	FPopulating Case;
	Case.Nodes(EventNode("a", "ReceiveHit"));
	Case.Populate(R"("graph_type":"event","nodes":[)" + EventNode("b", "ReceiveHit") + "]", "Second");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre(HasSubstr("already exists in EventGraph; reusing node")));
	EXPECT_THAT(Case.Data(TEXT("nodes_attached_to_events")), HasSubstr(R"("attached_to_events":["Event Hit"])"));
}

TEST(PopulateEdges, AListThatItsFunctionMakesNeedsNoWire)
{
	FPopulating Case;
	Case.Populate(R"("nodes":[)" + EventNode("e", "ReceiveHit") + ","
		+ CallNode("t", "KismetSystemLibrary", "LineTraceSingle") + R"(],"connections":[)"
		+ Link("e", "then", "t", "execute") + "]");
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_TRUE(Case.Blueprint.Compiles());
}

TEST(PopulateEdges, ABlueprintWhoseGraphCannotBeMadeDoesNotStay)
{
	const FPopulating Case;
	const std::string Call = R"({"path":"/Game/Fresh","graph_name":"Bad.Name","nodes":[{"menu_title":"Branch"}]})";
	for (int32 Try = 0; Try < 2; ++Try)
	{
		EXPECT_THAT(Errors(*RunTool(Morvane::ToolInfo::ToolName_BPPopulateGraph, Call)),
			ElementsAre(
				"Failed to auto-create blueprint fixture: Failed to create function graph: Bad.Name (\"Bad.Name\" cannot be a name: it holds the character '.')",
				"Blueprint not found: /Game/Fresh"));
		EXPECT_FALSE(FBlueprintUtils::BlueprintExists(TEXT("/Game/Fresh")));
	}
}
