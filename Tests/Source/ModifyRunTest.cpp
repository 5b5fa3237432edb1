#include "BlueprintGraphUtils.h"
#include "BlueprintModifyBlueprintNodesOperation.h"
#include "BlueprintRemoveBlueprintNodesOperation.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Modifying.h"
#include "Operations/Graph/GraphModification.h"
#include "Standalone/EditorFaults.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

#include <regex>

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

namespace ModifyRunTest
{
const std::string Print = CallNode("p", "KismetSystemLibrary", "PrintString");
const std::string Delay = CallNode("d", "KismetSystemLibrary", "Delay");
const std::string BeginPlay = EventNode("e", "ReceiveBeginPlay");
const std::string Boom = R"({"node_guid":"c","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Boom"}})";

/** Begin play, then a print, then a delay. */
struct FChain : FModifying
{
	FChain()
	{
		Make("\"nodes\":[" + BeginPlay + "," + Print + "," + Delay + "],\"connections\":["
			+ Link("e", "then", "p", "execute") + "," + Link("p", "then", "d", "execute") + "]");
	}
};

/** A function with a parameter and a result, called in the event graph. */
struct FCalled : FModifying
{
	FCalled()
	{
		RunTool(TEXT("bp_create_graph"),
			R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire","parameters":[{"name":"Power","type":{"category":"float"}}],
				"return_type":{"category":"bool"}}]})");
		Make("\"nodes\":[" + BeginPlay + "," + CallNode("f", "BP_Test", "Fire") + "," + Print + "],\"connections\":["
			+ Link("e", "then", "f", "execute") + "," + Link("f", "then", "p", "execute") + "]");
	}
	UK2Node_FunctionEntry* Entry() const { return FBlueprintGraphUtils::FindFunctionEntry(Graph(TEXT("Fire"))); }
	std::string EntryId() const { return ToStd(Entry()->NodeGuid.ToString()); }
};
} // namespace ModifyRunTest

using namespace ModifyRunTest;

TEST(ModifyRun, WhatCannotBeRunTouchesNothing)
{
	FModifying Case;
	const std::string Path = R"("path":"/Game/Tests/BP_Test",)";
	const std::string Whole = Path + R"("blueprint_name":"BP_Test","graph_name":"EventGraph")";
	const std::pair<std::string, const char*> Cases[] = {
		{R"("graph_name":"EventGraph")", "Missing required field 'path'"},
		{Path + R"("graph_name":"EventGraph")", "JSON missing required field: blueprint_name"},
		{Path + R"("blueprint_name":"BP_Test")", "JSON missing required field: graph_name"},
		{Whole + R"(,"action":"delete")", "Invalid action field: delete. Must be 'add', 'modify', or 'remove'"},
		{Whole + R"(,"nodes":[{"action":"burn"}])", "Invalid action field: burn. Must be 'add', 'modify', or 'remove'"},
		{Whole + R"(,"nodes":[{"action":"modify","menu_title":"eventgraph"}])",
			"Graph name EventGraph cannot be the same as Node's menu title eventgraph"},
		{Whole + R"(,"local_variables":{"A":5})", "Invalid local variable definition for 'A'"},
		{Path + R"("blueprint_name":"BP_Test","graph_name":"Nowhere")", "Graph doesn't exist: Nowhere"},
		{Path + R"("blueprint_name":"BP_Test","graph_name":"Nowhere","action":"modify")",
			"Graph doesn't exist: Nowhere"},
		{R"("path":"/Game/Tests/BP_None","blueprint_name":"BP_None","graph_name":"EventGraph")",
			"Failed to find or load blueprint: /Game/Tests/BP_None"},
	};
	for (const TCHAR* const Tool : {TEXT("bp_modify_graph_nodes"), TEXT("bp_remove_graph_connections")})
	{
		for (const auto& [Members, Error] : Cases)
		{
			const TSharedPtr<Morvane::FToolResult> Result = RunTool(Tool, "{" + Members + "}");
			EXPECT_THAT(Errors(*Result), ElementsAre(Error)) << Members;
			EXPECT_TRUE(Result->GetModifications().IsEmpty()) << Members;
		}
	}
	EXPECT_FALSE(Case.Blueprint->GetOutermost()->IsDirty());
}

TEST(ModifyRun, TheNameHasToMeanTheAssetOfThePath)
{
	FChain Case;
	struct FRow
	{
		const char* Name;
		bool bMeansIt;
	};
	for (const FRow& Row :
		{FRow{"BP_Test", true}, {"bp_test", true}, {"/Game/Tests/BP_Test", true}, {"/Game/Tests/BP_Test.BP_Test", true},
			{"BP_Other", false}, {"/Game/Elsewhere/BP_Test", false}, {"", false}, {"Tests/BP_Tes", false}})
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(TEXT("bp_modify_graph_nodes"),
			std::string(R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph","blueprint_name":")") + Row.Name
				+ R"(","nodes":[)" + Case.Change("p", R"("comment":"x")") + "]}");
		EXPECT_EQ(Result->WasSuccessful(), Row.bMeansIt) << Row.Name;
		EXPECT_EQ(Case.Node("p")->NodeComment.IsEmpty(), !Row.bMeansIt) << Row.Name;
		Case.Node("p")->NodeComment.Empty();
		if (!Row.bMeansIt)
		{
			EXPECT_THAT(Errors(*Result),
				ElementsAre(std::string("blueprint_name '") + Row.Name
					+ "' does not name the Blueprint at path '/Game/Tests/BP_Test'. Give the last name or the path of the same asset: BP_Test"));
		}
	}
}

TEST(ModifyRun, RefusedCheckOutChangesNothing)
{
	FChain Case;
	const EditorFaults::FRefuseCheckOut Refusal(TEXT("locked by Ann"));
	Case.ModifyNodes(Case.Drop("p"));
	EXPECT_THAT(
		Errors(*Case.Result), ElementsAre("Cannot modify Blueprint - source control checkout failed:\nlocked by Ann"));
	Case.Modify(R"("action":"remove")");
	EXPECT_THAT(Errors(*Case.Result), Contains(StartsWith("Cannot modify Blueprint - source control")));
	EXPECT_TRUE(Case.Node("p"));
	EXPECT_FALSE(Case.Blueprint->GetOutermost()->IsDirty());
}

TEST(ModifyRun, NothingChangesDuringASave)
{
	FChain Case;
	GIsSavingPackage = true;
	Case.ModifyNodes(Case.Drop("p"));
	GIsSavingPackage = false;
	EXPECT_TRUE(Case.Result->WasSuccessful());
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			R"({"message":"Cannot execute modification during save or garbage collection","type":"engine_state_error"})"));
	EXPECT_THAT(Successes(*Case.Result), IsEmpty());
	EXPECT_TRUE(Case.Node("p"));
}

TEST(ModifyRun, IdsInEveryFormFindTheirNodeAndNoOther)
{
	FChain Case;
	const std::string Long = Case.Id("p");
	std::string Lower = Long;
	std::transform(Lower.begin(), Lower.end(), Lower.begin(), [](char Letter) { return std::tolower(Letter); });
	for (const std::string& Id : {Long, Lower, Long.substr(0, 7), Lower.substr(0, 7)})
	{
		Case.ModifyNodes(R"({"action":"modify","node_guid":")" + Id + R"(","comment":")" + Id + "\"}");
		EXPECT_EQ(ToStd(Case.Node("p")->NodeComment), Id);
		EXPECT_THAT(Successes(*Case.Result), Contains("Node modified " + Id));
	}
	const UEdGraphNode* const Elsewhere =
		FBlueprintEditorUtils::FindUserConstructionScript(Case.Blueprint.Get())->Nodes[0];
	for (const std::string& Id : {std::string(), std::string("p"), Long.substr(0, 8),
			 ToStd(Elsewhere->NodeGuid.ToString()), std::string(32, 'f')})
	{
		Case.Modify(R"("nodes":[{"action":"modify","node_guid":")" + Id
			+ R"(","comment":"no"},{"action":"remove","node_guid":")" + Id
			+ R"("}],"connections":[{"action":"remove","source_node_guid":")" + Id
			+ R"("},{"action":"remove","source_node_guid":")" + Long + R"(","target_node_guid":")" + Id + "\"}]");
		EXPECT_TRUE(Case.Result->WasSuccessful()) << Id;
		EXPECT_THAT(Warnings(*Case.Result),
			ElementsAre("Node " + Id + " not found", "Could not find source node for disconnection: " + Id,
				"Could not find target node for disconnection: " + Id,
				R"({"message":"Node )" + Id + R"( not found"})"));
		EXPECT_EQ(Case.Closing(), "Nothing was modified in graph 'EventGraph': all 4 item(s) failed, see the warnings");
		EXPECT_THAT(Case.Tracked(), IsEmpty()) << Id;
	}
	EXPECT_FALSE(Case.Blueprint->GetOutermost()->IsDirty());
}

TEST(ModifyRun, RemovedNodesAreGoneForTheRestOfTheCall)
{
	FChain Case;
	Case.Modify("\"nodes\":[" + Case.Drop("p") + "," + Case.Drop("p") + "," + Case.Change("p", R"("comment":"x")")
		+ "],\"connections\":[" + Case.Cut("e", "then", "p", "execute") + "]");
	const std::string Id = Case.Id("p");
	EXPECT_THAT(Successes(*Case.Result),
		ElementsAre("Removed node: " + Id,
			"Modified graph 'EventGraph': 1 node(s) removed, 3 item(s) failed, see the warnings"));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("Node " + Id + " not found", "Could not find target node for disconnection: " + Id,
			R"({"message":"Node )" + Id + R"( not found"})"));
	EXPECT_EQ(Case.Data(TEXT("nodes_removed")) + Case.Data(TEXT("items_failed")), "13");
	EXPECT_THAT(Case.Tracked(), Contains(HasSubstr(R"("event_name":"Event BeginPlay")")));
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_FALSE(Case.Node("p"));
	EXPECT_EQ(Case.Node("e")->FindPin(TEXT("then"))->LinkedTo.Num(), 0);
	EXPECT_EQ(Case.Node("d")->FindPin(TEXT("execute"))->LinkedTo.Num(), 0);
}

TEST(ModifyRun, FunctionEntriesStay)
{
	FCalled Case;
	const std::string Id = Case.EntryId();
	Case.ModifyNodes(R"({"action":"remove","node_guid":")" + Id + "\"}", "Fire");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"Cannot remove Node " + Id + ". FunctionEntry nodes cannot be removed, they can only be modified."));
	EXPECT_TRUE(Case.Entry());
	EXPECT_FALSE(Case.Blueprint->GetOutermost()->IsDirty());
}

TEST(ModifyRun, LinksAreRemovedAndTheRestGoesOn)
{
	FChain Case;
	Case.Unlink(Case.Cut("e", "nope", "p", "execute") + "," + Case.Cut("e", "then", "p", "execute") + ","
		+ Case.Cut("e", "then", "d", "execute") + "," + Link(Case.Id("e"), "then", Case.Id("d"), "execute"));
	EXPECT_TRUE(Case.Result->WasSuccessful());
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("[Failure] Source pin 'nope' not found on node 'Event BeginPlay'",
			"No connection found between Event BeginPlay.then and Delay.execute",
			"ProcessModification : We should not use EConnectionAction::Add with this tool: " + Case.Id("e")
				+ ".then to " + Case.Id("d") + ".execute"));
	EXPECT_THAT(Successes(*Case.Result),
		IsSupersetOf(std::vector<std::string>{"Removed connection: Event BeginPlay.then -> Print String.execute",
			"Connection removed from " + Case.Id("e") + ".then to " + Case.Id("p") + ".execute"}));
	EXPECT_EQ(
		Case.Closing(), "Modified graph 'EventGraph': 1 connection(s) removed, 2 item(s) failed, see the warnings");
	// What was attached is floating now, and both are worth a look.
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(
			HasSubstr(R"("event_name":"Event BeginPlay")"), HasSubstr(R"("floating_node_name":"Print String")")));
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_TRUE(Case.Node("p")->FindPin(TEXT("execute"))->LinkedTo.IsEmpty());
	EXPECT_EQ(Case.Node("p")->FindPin(TEXT("then"))->LinkedTo.Num(), 1);
}

TEST(ModifyRun, EndsOfALinkGoByEitherKey)
{
	FChain Case;
	Case.Unlink(std::regex_replace(Case.Cut("e", "then", "p", "execute"), std::regex("_node_guid"), "_node_id"));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_EQ(Case.Closing(), "Modified graph 'EventGraph': 1 connection(s) removed");
}

TEST(ModifyRun, TheSameCallAgainDoesNoHarm)
{
	FChain Case;
	const std::string Cut = Case.Cut("e", "then", "p", "execute");
	Case.Unlink(Cut);
	Case.Unlink(Cut);
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("No connection found between Event BeginPlay.then and Print String.execute"));
	EXPECT_EQ(Case.Closing(), "Nothing was modified in graph 'EventGraph': there was nothing to do");
	EXPECT_THAT(Case.Tracked(), IsEmpty());
	EXPECT_FALSE(Case.Blueprint->GetOutermost()->IsDirty());
}

TEST(ModifyRun, ValuesNeverMoveANodeAndPinsDo)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + BeginPlay + "," + Print + "," + ClassNode("s", "K2Node_ExecutionSequence", "Sequence")
		+ "],\"connections\":[" + Link("e", "then", "s", "execute") + "," + Link("s", "then_0", "p", "execute") + "]");
	for (const char* const Id : {"p", "s"})
	{
		Case.Node(Id)->NodePosX = 5000;
		Case.Node(Id)->NodePosY = 3000;
	}
	Case.ModifyNodes(Case.Pins("p", Value("InString", "Hi")));
	EXPECT_EQ(Case.Node("p")->NodePosX, 5000);
	Case.ModifyNodes(Case.Pins("s", Pin("add", "then_2")));
	EXPECT_NE(Case.Node("s")->NodePosX, 5000);
	Case.ModifyNodes(
		Case.Change("s", R"("position":{"x":-700.9,"y":640},"pins":[{"action":"remove","name":"then_2"}])"));
	EXPECT_EQ(Case.Node("s")->NodePosX, -700) << "where the request put it";
	EXPECT_EQ(Case.Node("s")->NodePosY, 640);
	Case.ModifyNodes(Case.Change("s", R"("position":{"y":12})"));
	EXPECT_EQ(Case.Node("s")->NodePosX, -700);
	EXPECT_EQ(Case.Node("s")->NodePosY, 12);
}

TEST(ModifyRun, WhatItDoesNotDoIsSaid)
{
	FChain Case;
	Case.ModifyNodes(R"({"node_guid":"new","class_name":"K2Node_IfThenElse"},{"action":"modify","node_guid":")"
		+ Case.Id("p") + "\"}");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("The entry asks for no change: give position, comment, menu_title, metadata or pins",
			R"({"message":"Failed to modify node: )" + Case.Id("p")
				+ R"(","type":"node_modification_failure","details":"The entry asks for no change: give position, comment, menu_title, metadata or pins"})",
			"ProcessModification : We should not use ENodeAction::Add with this tool: new"));
	Case.Modify(R"("action":"add")", "Fresh");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("ProcessModification : We should not use EGraphAction::Add with this tool: Fresh"));
	EXPECT_FALSE(Case.Graph(TEXT("Fresh")));
	Case.Modify("");
	EXPECT_EQ(Case.Closing(), "Nothing was modified in graph 'EventGraph': there was nothing to do");
}

TEST(ModifyRun, SiblingsMayAddGraphsAndHearOfTheEnd)
{
	FModifying Case;
	struct FRow
	{
		const TCHAR* Graph;
		const char* Told;
	};
	for (const FRow& Row :
		{FRow{TEXT("Combat"), "Created new event graph: Combat, with graph_schema: EdGraphSchema_K2"},
			{TEXT("UserConstructionScript"), ""}})
	{
		FBlueprintNodesCommonOperation::FBPGraphModification Request;
		Request.GraphAction = EBPNodeAction::Add;
		Request.Path = Case.Blueprint.Path();
		Request.BlueprintName = TEXT("BP_Test");
		Request.GraphName = Row.Graph;
		Morvane::FToolResult Result = MakeResult();
		int32 NumEnds = 0;
		FBlueprintNodesCommonOperation::ProcessModification(
			Request, Result, [&NumEnds](Morvane::FToolResult&) { ++NumEnds; });
		EXPECT_EQ(NumEnds, 1);
		const std::vector<std::string> Told = *Row.Told ? Successes(Result) : Warnings(Result);
		EXPECT_THAT(Told, Contains(*Row.Told ? Row.Told : "Graph already exists: UserConstructionScript"));
	}
	EXPECT_TRUE(Case.Blueprint->UbergraphPages.Contains(Case.Graph(TEXT("Combat"))));
	// The parent's event becomes an event here, too.
	FBlueprintNodesCommonOperation::FBPGraphModification Request;
	Request.GraphAction = EBPNodeAction::Add;
	Request.Path = Case.Blueprint.Path();
	Request.BlueprintName = TEXT("BP_Test");
	Request.GraphName = TEXT("ReceiveDestroyed");
	Morvane::FToolResult Result = MakeResult();
	FBlueprintNodesCommonOperation::ProcessModification(Request, Result, nullptr);
	EXPECT_TRUE(
		FBlueprintEditorUtils::FindOverrideForFunction(Case.Blueprint.Get(), nullptr, TEXT("ReceiveDestroyed")));
}

TEST(ModifyRun, TheNodeRemovalOfSiblingsIsTheSameRun)
{
	FChain Case;
	Morvane::FToolResult Result = MakeResult();
	FBlueprintRemoveBlueprintNodesOperation::Execute(
		*Json(R"({"path":"/Game/Tests/BP_Test","blueprint_name":"BP_Test","graph_name":"EventGraph","nodes":[)"
			+ Case.Drop("d") + "]}"),
		Result);
	EXPECT_THAT(Successes(Result), Contains("Removed node: " + Case.Id("d")));
	EXPECT_FALSE(Case.Node("d"));
}

TEST(ModifyRun, TellsWhoStillCallsARemovedEvent)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + Boom + "]");
	Case.Make("\"nodes\":[" + CallNode("call", "BP_Test", "Boom") + "]");
	Case.ModifyNodes(Case.Drop("c"));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("A custom event is gone, and these nodes still name what it declared: Boom ("
			+ Case.Id("call").substr(0, 7) + ")"));
	EXPECT_TRUE(Case.Node("call"));
}

TEST(ModifyRun, RefusesABlueprintWithoutAParent)
{
	FChain Case;
	Case.Blueprint->ParentClass = nullptr;
	Case.ModifyNodes(Case.Drop("p"));
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Blueprint 'BP_Test' is not valid."));
	EXPECT_TRUE(Case.Node("p"));
	Case.Blueprint->ParentClass = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
}

TEST(ModifyPurity, CallsFollowHereAndInOtherBlueprints)
{
	FCalled Case;
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Child","blueprint_parent_class":{"type":"blueprint","parent_path":"/Game/Tests/BP_Test"}})");
	const TSharedPtr<Morvane::FToolResult> Made = RunTool(TEXT("bp_populate_graph"),
		R"({"path":"/Game/Tests/BP_Child","graph_name":"EventGraph","nodes":[)" + CallNode("f", "BP_Test", "Fire")
			+ "]}");
	EXPECT_THAT(Errors(*Made), IsEmpty());
	UBlueprint* const Child = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/BP_Child"));
	TArray<UK2Node_CallFunction*> Calls;
	FBlueprintEditorUtils::GetAllNodesOfClass(Child, Calls);
	Calls.RemoveAll([](const UK2Node_CallFunction* Call) { return Call->GetFunctionName() != TEXT("Fire"); });
	const UK2Node_CallFunction* const Below = Calls.IsEmpty() ? nullptr : Calls[0];
	ASSERT_TRUE(Below);

	Case.Modify(R"("is_pure":true)", "Fire");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"Nodes of other Blueprints changed with it, in memory only. Compile these to save them: /Game/Tests/BP_Child"));
	EXPECT_EQ(Case.Closing(), "Modified graph 'Fire': function is pure");
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(R"(read_blueprint_function {"path":"/Game/Tests/BP_Test","function_name":["Fire"]})"));
	EXPECT_TRUE(Case.Entry()->GetExtraFlags() & FUNC_BlueprintPure);
	EXPECT_FALSE(Case.Node("f")->FindPin(TEXT("execute")));
	EXPECT_FALSE(Below->FindPin(TEXT("execute")));
	// The flow goes past the call.
	const UEdGraphPin* const Then = Case.Node("e")->FindPin(TEXT("then"));
	ASSERT_EQ(Then->LinkedTo.Num(), 1);
	EXPECT_EQ(Then->LinkedTo[0]->GetOwningNode(), Case.Node("p"));
	EXPECT_TRUE(Case.Blueprint.Compiles());

	Case.Modify(R"("is_pure":false)", "Fire");
	EXPECT_THAT(Warnings(*Case.Result),
		Contains(AllOf(HasSubstr("Function 'Fire' is not pure any more. These calls need an execution link now: "),
			HasSubstr(Case.Id("f").substr(0, 7)))));
	EXPECT_TRUE(Case.Node("f")->FindPin(TEXT("execute")));
	EXPECT_TRUE(Below->FindPin(TEXT("execute")));
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_FALSE(Case.Entry()->GetExtraFlags() & FUNC_BlueprintPure);
}

TEST(ModifyRun, ALinkThatWasLostIsToldOnce)
{
	FModifying Case;
	RunTool(TEXT("bp_create_graph"),
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Name","return_type":{"category":"string"}}]})");
	Case.Make("\"nodes\":[" + CallNode("f", "BP_Test", "Name") + ","
		+ CallNode("p", "KismetSystemLibrary", "PrintString") + R"(],"connections":[)"
		+ Link("f", "ReturnValue", "p", "InString") + "]");
	const UEdGraph* const Name = Case.Graph(TEXT("Name"));
	const std::string Result = ToStd(FPopulating::FindNode<UK2Node_FunctionResult>(Name)->NodeGuid.ToString());
	const auto Change = [&](const std::string& PinRecord)
	{ Case.ModifyNodes(R"({"action":"modify","node_guid":")" + Result + R"(","pins":[)" + PinRecord + "]}", "Name"); };
	Change(Pin("remove", "ReturnValue"));
	EXPECT_THAT(Warnings(*Case.Result), Contains(HasSubstr("These links do not fit any more: ")));
	Change(Pin("add", "Other", R"("type":{"category":"int"})"));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_TRUE(Case.Node("f")->FindPin(TEXT("ReturnValue"))->bOrphanedPin) << "it stays for its link";

	Case.ModifyNodes(R"({"action":"remove","node_guid":")" + Result + "\"}", "Name");
	EXPECT_FALSE(Case.Node("f")->FindPin(TEXT("Other"))) << "the results go with the node that gave them";
}

TEST(ModifyPurity, OnlyAnAuthorsOwnFunctionHasIt)
{
	FModifying Case;
	Case.Modify(R"("is_pure":true)");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("Failed to set is_pure on graph, Could not get Function from Graph: EventGraph"));
	Case.Modify(R"("is_pure":true)", "UserConstructionScript");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("Failed to set is_pure on graph, the function is declared elsewhere: UserConstructionScript"));
	EXPECT_FALSE(Case.Blueprint->GetOutermost()->IsDirty());
}
