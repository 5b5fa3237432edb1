#include "BlueprintGraphUtils.h"
#include "BlueprintMatchingUtils.h"
#include "BlueprintUtils.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Populating.h"
#include "Standalone/EditorFaults.h"
#include "UObject/Package.h"

#include <sys/stat.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace PopulateTest
{
const std::string Print = CallNode("p", "KismetSystemLibrary", "PrintString");
const std::string Delay = CallNode("d", "KismetSystemLibrary", "Delay");
const std::string BeginPlay = EventNode("e", "ReceiveBeginPlay");

static std::string Path(const char* Name)
{
	return std::string("/Game/Tests/") + Name;
}

/** A call on another asset than the builder's. */
static TSharedPtr<Morvane::FToolResult> PopulateAt(const std::string& AssetPath, const std::string& Rest)
{
	return RunTool(TEXT("bp_populate_graph"), R"({"path":")" + AssetPath + "\"," + Rest + "}");
}

static int32 CountCalls(const UEdGraph* Graph)
{
	TArray<UK2Node_CallFunction*> Calls;
	Graph->GetNodesOfClass(Calls);
	return Calls.Num();
}
} // namespace PopulateTest

using namespace PopulateTest;

TEST(PopulateRun, WhatCannotBeRunTouchesNothing)
{
	FPopulating Case;
	const std::pair<const char*, const char*> Cases[] = {
		{R"({})", "Missing required field 'path'"},
		{R"({"path":5,"graph_name":"EventGraph"})", "Missing required field 'path'"},
		{R"({"path":"/Game/Tests/BP_Test"})", "Missing required field 'graph_name'"},
		{R"({"path":"/Game/Tests/BP_Test","graph_name":null,"nodes":[{}]})", "Missing required field 'graph_name'"},
		{R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph","functions":null,"nodes":[{}]})",
			"'functions' array is no longer supported in bp_populate_graph. Use bp_create_graph for function/delegate creation."},
		{R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph","nodes":{},"connections":[]})",
			"No operations specified - must provide 'nodes' or 'connections' array"},
		{R"({"path":"/Game/Tests/BP_Test","graph_name":"Nothing","nodes":[{}]})",
			"Graph 'Nothing' not found in blueprint"},
	};
	for (const auto& [Arguments, Error] : Cases)
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(TEXT("bp_populate_graph"), Arguments);
		EXPECT_THAT(Errors(*Result), ElementsAre(Error)) << Arguments;
		EXPECT_EQ(Telemetry(*Result), "null") << Arguments;
	}
	EXPECT_FALSE(Case.Blueprint->GetOutermost()->IsDirty());
}

TEST(PopulateRun, FillsLinksLaysOutAndSaves)
{
	FPopulating Case;
	Case.Populate("\"nodes\":[" + BeginPlay + ","
		+ CallNode("p", "KismetSystemLibrary", "PrintString",
			R"("pins":[{"action":"modify","name":"InString","value":"Hello"},{"action":"modify","name":"Nope","value":"x"},
				{"name":"Duration","value":"9"}])")
		+ "," + Delay + R"(],"connections":[)" + Link("e", "then", "p", "execute") + ","
		+ Link("p", "then", "d", "execute") + "]");
	EXPECT_THAT(Errors(*Case.Result), IsEmpty());
	EXPECT_THAT(Successes(*Case.Result), Contains("Created 3 nodes and 2 connections in graph 'EventGraph'"));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")) + Case.Data(TEXT("nodes_failed"))
			+ Case.Data(TEXT("connections_created")) + Case.Data(TEXT("connections_failed")),
		"3020");
	EXPECT_EQ(Case.Told(TEXT("session_summary")),
		R"({"nodes_created":3,"nodes_failed":0,"connections_attempted":2,"connections_successful":2,"connections_blocked":0})");
	EXPECT_EQ(Case.Told(TEXT("nodes_formatted")) + Case.Told(TEXT("nodes_existing_modified")), "30");
	EXPECT_EQ(Case.Told(TEXT("connection_failures")) + Case.Told(TEXT("half_connected_nodes")), "");
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(
			R"(read_blueprint_event {"path":"/Game/Tests/BP_Test","events":[{"graph_name":"EventGraph","event_name":"Event BeginPlay"}]})"));
	const TSharedRef<FJsonObject> Attached = Json(Case.Data(TEXT("nodes_attached_to_events")));
	for (const TSharedPtr<FJsonValue>& Node : Attached->GetArrayField(TEXT("nodes")))
	{
		EXPECT_EQ(Node->AsObject()->GetArrayField(TEXT("attached_to_events")).Num(), 1);
	}

	const UBlueprint* const Saved = Case.Blueprint.Reload();
	ASSERT_TRUE(Saved);
	const UEdGraph* const Graph = FBlueprintEditorUtils::FindEventGraph(Saved);
	const UEdGraphNode* const Node = FBlueprintMatchingUtils::FindNodeByGuid(
		Graph, UTF8_TO_TCHAR(Case.GuidOf("p").c_str()));
	ASSERT_TRUE(Node);
	EXPECT_EQ(ToStd(Node->FindPin(TEXT("InString"))->DefaultValue), "Hello");
	EXPECT_EQ(ToStd(Node->FindPin(TEXT("Duration"))->DefaultValue), "9") << "a value alone asks to be set";
	EXPECT_EQ(Node->FindPin(TEXT("then"))->LinkedTo.Num(), 1);
	EXPECT_EQ(Node->FindPin(TEXT("execute"))->LinkedTo.Num(), 1);
}

TEST(PopulateRun, FailedNodeBlocksItsLinksAndStillSaves)
{
	FPopulating Case;
	Case.Populate("\"nodes\":[" + Print + "," + LooseNode("x", "Launch Nuclear Missile") + R"(],"connections":[)"
		+ Link("x", "then", "p", "execute") + "," + Link("x", "a", "y", "b") + "]");
	EXPECT_TRUE(Case.Result->WasSuccessful());
	const std::vector<std::string> Expected = {"Connection blocked: Source node 'x' not found (x.then -> p.execute)",
		"Connection blocked: Source node 'x' not found (x.a -> y.b)",
		"Connection blocked: Target node 'y' not found (x.a -> y.b)"};
	for (const std::string& Text : Expected)
	{
		EXPECT_THAT(Warnings(*Case.Result), Contains(Text));
		EXPECT_THAT(Case.Told(TEXT("blocked_operations")), HasSubstr(Text));
	}
	EXPECT_THAT(Successes(*Case.Result),
		Contains(
			"Created 1/2 nodes and 0/2 connections in graph 'EventGraph' (1 node(s) failed, 2 connection(s) failed)"));
	EXPECT_THAT(Case.Told(TEXT("session_summary")), HasSubstr(R"("nodes_failed":1,"connections_attempted":2)"));
	EXPECT_THAT(Case.Told(TEXT("session_summary")), HasSubstr(R"("connections_blocked":3)"));
	EXPECT_THAT(Case.Told(TEXT("half_connected_nodes")),
		HasSubstr(R"("node_id":"p","node_title":"Print String","expected_connections":1,"actual_connections":0)"));
	EXPECT_EQ(CountCalls(FBlueprintEditorUtils::FindEventGraph(Case.Blueprint.Reload())), 1);
}

TEST(PopulateRun, ConnectionsAloneTakeRealGuidsAndTellNothing)
{
	FPopulating Case;
	Case.Nodes(Print + "," + Delay);
	const std::string From = Case.GuidOf("p");
	const std::string To = Case.GuidOf("d");
	Case.Populate("\"connections\":[" + Link("p", "then", "d", "execute") + "]");
	EXPECT_THAT(Warnings(*Case.Result), SizeIs(2)) << "request ids live for one call";

	Case.Populate("\"connections\":[" + Link(From, "then", To.substr(0, 7), "execute") + "]");
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_EQ(Telemetry(*Case.Result), "null");
	EXPECT_EQ(Case.Data(TEXT("nodes_created")) + Case.Data(TEXT("connections_created")), "01");
	EXPECT_THAT(Case.Tracked(), ElementsAre(HasSubstr("floating_node_name")));

	Case.Populate("\"nodes\":[" + BeginPlay + R"(],"connections":[)" + Link("e", "then", From, "execute") + "]");
	EXPECT_EQ(Case.Told(TEXT("nodes_existing_modified")) + Case.Told(TEXT("neighbors_included")), "13");
}

TEST(PopulateRun, EventGraphIsTakenByNameAndByType)
{
	FPopulating Case;
	for (const char* const Name : {"EventGraph", "eventgraph"})
	{
		Case.Nodes(Print, Name);
		EXPECT_THAT(Successes(*Case.Result), Contains("Created 1 nodes and 0 connections in graph 'EventGraph'"))
			<< Name;
		EXPECT_NE(Case.Data(TEXT("nodes_attached_to_events")), "") << Name;
	}
	Case.Populate(R"("graph_type":"EVENT","nodes":[)" + Print + "]", "Second");
	EXPECT_THAT(Successes(*Case.Result),
		ElementsAre("Created event graph 'Second'", "Created 1 nodes and 0 connections in graph 'Second'"));
	EXPECT_EQ(Case.Blueprint->UbergraphPages.Num(), 2);
}

TEST(PopulateRun, FunctionsAndDelegatesAreTrackedByName)
{
	FPopulating Case;
	Case.Blueprint.Function(TEXT("Heal"));
	Case.Nodes(Print, "heal");
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(R"(read_blueprint_function {"path":"/Game/Tests/BP_Test","function_name":["heal"]})"));
	EXPECT_NE(Case.Data(TEXT("created_nodes")), "");
	EXPECT_EQ(Case.Data(TEXT("nodes_attached_to_events")), "");

	RunTool(TEXT("bp_create_graph"),
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"OnHealed","is_delegate":true}]})");
	Case.Nodes(Print, "OnHealed");
	EXPECT_THAT(Case.Tracked(), ElementsAre(StartsWith("read_blueprint_delegate ")));
}

TEST(PopulateRun, CustomEventsGoFirst)
{
	FPopulating Case;
	Case.Nodes(Print + R"(,{"node_guid":"c","class_name":"k2node_customevent","menu_title":"Add Custom Event...",
		"node_metadata":{"event_name":"Boom"}},{"node_guid":"c2","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Bang"}})");
	EXPECT_THAT(Errors(*Case.Result), IsEmpty()) << "in any case";
	EXPECT_NE(FBlueprintEditorUtils::FindCustomEventNode(Case.Blueprint.Get(), TEXT("Boom")), nullptr);
	FPopulating Good;
	Good.Nodes(
		Print + R"(,{"node_guid":"c2","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Bang"}})");
	const TSharedRef<FJsonObject> Summary = Json(Good.Data(TEXT("created_nodes_summary")));
	EXPECT_EQ(ToStd(Summary->GetArrayField(TEXT("items"))[0]->AsObject()->GetStringField(TEXT("request_guid"))), "c2");
	EXPECT_THAT(Good.Tracked(), ElementsAre(HasSubstr("Bang")));
}

TEST(PopulateRun, ElementsThatAreNoRecordsAreDroppedInSilence)
{
	FPopulating Case;
	Case.Populate("\"nodes\":[1,null,\"x\",[]," + Print + R"(],"connections":[7,{}])");
	EXPECT_THAT(Successes(*Case.Result),
		Contains(
			"Created 1/1 nodes and 0/2 connections in graph 'EventGraph' (0 node(s) failed, 2 connection(s) failed)"));
	EXPECT_THAT(Warnings(*Case.Result), SizeIs(2)) << "{} asks for a link of nothing with nothing";
}

TEST(PopulateRun, OtherActionsAreSkippedAndCountAsFailed)
{
	FPopulating Case;
	Case.Populate(R"("nodes":[{"node_guid":"m","action":"modify"},{"node_guid":"r","action":"REMOVE"},)" + Print
		+ R"(],"connections":[{"action":"remove","source_node_guid":"p","target_node_guid":"p"}])");
	EXPECT_THAT(Successes(*Case.Result),
		Contains(
			"Created 1/3 nodes and 0/1 connections in graph 'EventGraph' (2 node(s) failed, 1 connection(s) failed)"));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"[Warning] Node 'm' was skipped: 'modify' does nothing here; bp_modify_graph_nodes changes and removes nodes.",
			"[Warning] Node 'r' was skipped: 'remove' does nothing here; bp_modify_graph_nodes changes and removes nodes.",
			"[Warning] Connection p. -> p. was skipped: 'remove' does nothing here; bp_remove_graph_connections removes "
			"wires."));
}

TEST(PopulateRun, AnErrorAfterTheStartPreventsTheSave)
{
	FPopulating Case;
	Case.Nodes(Print + "," + EventNode("bad", "ReceiveFoo"));
	EXPECT_THAT(Errors(*Case.Result), ElementsAre("Event 'ReceiveFoo' not found on class 'Actor'"));
	EXPECT_THAT(Successes(*Case.Result), IsEmpty());
	EXPECT_NE(Case.Told(TEXT("session_summary")), "") << "telemetry stays";
	EXPECT_NE(Case.Data(TEXT("nodes_attached_to_events")), "") << "and so does data";
	EXPECT_EQ(Case.Data(TEXT("created_nodes_summary")), "");
	EXPECT_THAT(Case.Tracked(), IsEmpty());
	EXPECT_EQ(CountCalls(FBlueprintEditorUtils::FindEventGraph(Case.Blueprint.Reload())), 0);
}

TEST(PopulateRun, LocalVariablesComeBeforeTheNodesInBothShapes)
{
	FPopulating Case;
	Case.Blueprint.Function(TEXT("Heal"));
	Case.Populate(
		R"("local_variables":{"Amount":{"action":"add","type":{"category":"float"},"default_variable_value":2}},
		"nodes":[)"
			+ Print + "]",
		"Heal");
	EXPECT_THAT(Errors(*Case.Result), IsEmpty());
	EXPECT_EQ(Case.Told(TEXT("local_variables_added")), "1");
	Case.Populate(
		R"("local_variables":[{"name":"amount","action":"modify","default_variable_value":3},{"name":"Nope","action":"remove"}],
		"nodes":[)"
			+ Print + "]",
		"Heal");
	EXPECT_EQ(Case.Told(TEXT("local_variable_failures")), R"(["Local variable 'Nope' not found for removal"])");
	EXPECT_FALSE(Case.Result->WasSuccessful());
	const UEdGraph* const Graph = FBlueprintMatchingUtils::FindGraphByName(Case.Blueprint.Get(), TEXT("Heal"));
	const UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(Graph);
	ASSERT_EQ(Entry->LocalVariables.Num(), 1);
	EXPECT_EQ(ToStd(Entry->LocalVariables[0].DefaultValue), "3.0");

	Case.Populate(R"("local_variables":{"Bad":4},"nodes":[)" + Print + "]", "Heal");
	EXPECT_THAT(Errors(*Case.Result), ElementsAre("Invalid local variable definition for 'Bad'"));
	EXPECT_EQ(CountCalls(Graph), 2) << "no node before the variables stand";
	Case.Populate(R"("local_variables":{"V":{"type":{"category":"int"}}},"nodes":[)" + Print + "]");
	EXPECT_THAT(Warnings(*Case.Result), Contains("Local variables are only supported in function graphs"));
	EXPECT_TRUE(Case.Result->WasSuccessful());
}

TEST(PopulateRun, ABlueprintThatIsMissingIsMade)
{
	FPopulating Project;
	const auto Made = PopulateAt(Path("BP_New"), R"("graph_name":"Heal","nodes":[)" + Print + "]");
	EXPECT_THAT(Errors(*Made), IsEmpty());
	EXPECT_THAT(Warnings(*Made), IsEmpty());
	EXPECT_THAT(Successes(*Made),
		ElementsAre("No Blueprint stood at '/Game/Tests/BP_New', so one with parent Actor was begun",
			"Created 1 nodes and 0 connections in graph 'Heal'"));
	EXPECT_TRUE(Project.Blueprint.Folder().Exists("Content/Tests/BP_New.uatext"));
	const UBlueprint* const Blueprint = FBlueprintUtils::TryLoadBlueprint(TEXT("/Game/Tests/BP_New"));
	ASSERT_TRUE(Blueprint);
	EXPECT_EQ(Blueprint->FunctionGraphs.ContainsByPredicate(
				  [](const UEdGraph* Graph) { return Graph->GetName() == TEXT("Heal"); }),
		true);

	const auto Refused = PopulateAt("/Game/../Out", R"("graph_name":"EventGraph","nodes":[)" + Print + "]");
	EXPECT_THAT(Errors(*Refused),
		ElementsAre(StartsWith("Failed to auto-create blueprint fixture: "), "Blueprint not found: /Game/../Out"));
	EXPECT_EQ(Telemetry(*Refused), "null");
	for (const TCHAR* const Name : {TEXT("/Game/Tests/BP_New")})
	{
		FindPackage(nullptr, Name)->MarkAsGarbage();
	}
}

TEST(PopulateRun, AFileThatMayNotBeWrittenIsRefusedBeforeAnyChange)
{
	FPopulating Case;
	const std::string File = (Case.Blueprint.Folder().Path() / "Content/Tests/BP_Test.uatext").string();
	ASSERT_EQ(chmod(File.c_str(), 0444), 0);
	Case.Nodes(Print);
	EXPECT_THAT(
		Errors(*Case.Result), ElementsAre(StartsWith("Cannot modify Blueprint - source control checkout failed:\n")));
	EXPECT_EQ(CountCalls(Case.Blueprint.EventGraph().Get()), 0);
	ASSERT_EQ(chmod(File.c_str(), 0644), 0);
}

TEST(PopulateRun, IdsMayBeEmptyDoubleOrAnothersReuse)
{
	FPopulating Case;
	Case.Populate("\"nodes\":[" + CallNode("", "KismetSystemLibrary", "PrintString") + ","
		+ LooseNode("", "Nonsense Wibble") + "," + Print + "," + CallNode("P", "KismetSystemLibrary", "Delay") + ","
		+ BeginPlay + "," + EventNode("e2", "ReceiveBeginPlay") + R"(],"connections":[)"
		+ Link("", "then", "p", "execute") + "," + Link("e2", "then", "p", "execute") + "]");
	EXPECT_TRUE(Case.Result->WasSuccessful());
	EXPECT_THAT(Warnings(*Case.Result), Contains(HasSubstr("Source node '' not found")));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "5");
	EXPECT_THAT(Case.Told(TEXT("session_summary")), HasSubstr(R"("nodes_failed":0)")) << "an empty id is not kept";
	EXPECT_EQ(Case.GuidOf("e"), Case.GuidOf("e2"));
	const UK2Node_CallFunction* Linked = nullptr;
	for (UEdGraphNode* const Node : Case.Blueprint.EventGraph().Get()->Nodes)
	{
		const UEdGraphPin* const Execute = Node->FindPin(TEXT("execute"));
		Linked = Execute && !Execute->LinkedTo.IsEmpty() ? Cast<UK2Node_CallFunction>(Node) : Linked;
	}
	ASSERT_TRUE(Linked);
	EXPECT_EQ(ToStd(Linked->GetFunctionName().ToString()), "Delay") << "of one id the later node is found";
}

TEST(PopulateRun, WrongPinsAndRingsAreToldAndTheRestStands)
{
	FPopulating Case;
	Case.Populate("\"nodes\":[" + Print + "," + Delay + "," + CallNode("g", "Actor", "K2_GetActorLocation")
		+ R"(],"connections":[)" + Link("p", "Nope", "d", "execute") + "," + Link("p", "then", "d", "Nope") + ","
		+ Link("g", "ReturnValue", "p", "execute") + "," + Link("p", "then", "d", "execute") + ","
		+ Link("d", "then", "p", "execute") + "," + Link("p", "InString", "d", "Duration") + "]");
	EXPECT_THAT(Warnings(*Case.Result), Contains("[Failure] Source pin 'Nope' not found on node 'Print String'"));
	EXPECT_THAT(Warnings(*Case.Result), Contains("[Failure] Target pin 'Nope' not found on node 'Delay'"));
	EXPECT_THAT(Warnings(*Case.Result), Contains(StartsWith("[Failure] Schema forbids connection: ")));
	EXPECT_EQ(Case.Told(TEXT("pin_direction_fallbacks")), "1");
	EXPECT_EQ(Case.Data(TEXT("connections_created")), "2") << "a ring of execution is the author's business";
}

TEST(PopulateRun, NumbersWhereStringsAreWantedCountAsMissing)
{
	FPopulating Case;
	Case.Populate(
		R"("nodes":[{"node_guid":7,"class_name":["K2Node_Event"],"menu_title":"Delay","node_metadata":{"event_name":3},
		"pins":[{"name":1,"value":2},5],"position":"here"}],"connections":[{"source_node_guid":1,"target_node_guid":{}}],
		"graph_type":3,"local_variables":9)");
	EXPECT_TRUE(Case.Result->WasSuccessful());
	EXPECT_EQ(Case.Data(TEXT("nodes_created")) + Case.Data(TEXT("connections_created")), "10");
}

TEST(PopulateRun, AHugeCallIsOneLikeAnother)
{
	FPopulating Case;
	constexpr int32 Count = 3000;
	std::string List;
	std::string Links;
	for (int32 Index = 0; Index < Count; ++Index)
	{
		const std::string Id = std::to_string(Index);
		List += (Index ? "," : "") + CallNode(Id, "KismetSystemLibrary", "PrintString");
		Links += (Index ? "," : "") + Link(Id, "then", std::to_string(Index + 1), "execute");
	}
	Case.Populate("\"nodes\":[" + List + "],\"connections\":[" + Links + "]");
	EXPECT_TRUE(Case.Result->WasSuccessful());
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), std::to_string(Count));
	EXPECT_EQ(Case.Data(TEXT("connections_failed")), "1");
	EXPECT_THAT(Case.Told(TEXT("half_connected_nodes")), HasSubstr("\"2999\""));
}
