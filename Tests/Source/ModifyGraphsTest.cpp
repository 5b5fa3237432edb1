#include "AnimationStateMachineGraph.h"
#include "AnimGraphNode_StateMachine.h"
#include "AnimStateNode.h"
#include "AnimStateTransitionNode.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Composite.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_VariableGet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Modifying.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace ModifyGraphsTest
{
struct FMachine : FModifying
{
	FMachine()
		: FModifying(TEXT("/Script/Engine.AnimInstance"))
	{
		FGraphBuilder Anim(Graph(TEXT("AnimGraph")));
		Owner = Anim.Add<UAnimGraphNode_StateMachine>();
		FGraphBuilder Machine(Owner->EditorStateMachineGraph.Get());
		const UEdGraphSchema* const Schema = Machine.Get()->GetSchema();
		for (const TCHAR* const Name : {TEXT("Idle"), TEXT("Walk"), TEXT("Jump")})
		{
			UAnimStateNode* const State = Machine.Add<UAnimStateNode>();
			State->OnRenameNode(Name);
			States.push_back(State);
			Ids[ToStd(Name)] = ToStd(State->NodeGuid.ToString());
		}
		for (size_t Index = 0; Index < States.size(); ++Index)
		{
			Schema->TryCreateConnection(States[Index]->GetOutputPin(), States[(Index + 1) % 3]->GetInputPin());
		}
		EXPECT_TRUE(Blueprint.Save());
		MachineName = ToStd(Machine.Get()->GetName());
	}
	int32 NumTransitions() const
	{
		TArray<UAnimStateTransitionNode*> Nodes;
		UEdGraph* const Machine = Graph(UTF8_TO_TCHAR(MachineName.c_str()));
		if (Machine)
		{
			Machine->GetNodesOfClass(Nodes);
		}
		return Nodes.Num();
	}
	UAnimGraphNode_StateMachine* Owner = nullptr;
	std::vector<UAnimStateNode*> States;
	std::string MachineName;
};
} // namespace ModifyGraphsTest

using namespace ModifyGraphsTest;

TEST(ModifyGraph, FunctionsGoAndTheirUsersAreNamed)
{
	FModifying Case;
	RunTool(
		TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire"},{"name":"Helper"}]})");
	Case.Make("\"nodes\":[" + CallNode("f", "BP_Test", "Fire") + "]");
	Case.Make("\"nodes\":[" + CallNode("own", "BP_Test", "Fire") + "]", "Fire");
	Case.Modify(R"("action":"remove")", "fire");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("Graph 'Fire' is gone, and these nodes still name what it declared: Fire ("
			+ Case.Id("f").substr(0, 7) + ")"));
	EXPECT_THAT(Successes(*Case.Result),
		ElementsAre("Successfully removed graph: Fire", "Modified graph 'Fire': graph removed"));
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(R"(read_blueprint_function {"path":"/Game/Tests/BP_Test","function_name":["Fire"]})"));
	EXPECT_THAT(ToStd(Case.Result->GetModifications()[0].Content), HasSubstr("deleted"));
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_FALSE(Case.Graph(TEXT("Fire")));
	EXPECT_TRUE(Case.Graph(TEXT("Helper")));
	EXPECT_TRUE(Case.Node("f"));
	Case.Modify(R"("action":"remove")", "Fire");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Graph 'Fire' not found for removal"));
	EXPECT_EQ(Case.Closing(), "Nothing was modified in graph 'Fire': all 1 item(s) failed, see the warnings");
	EXPECT_THAT(Case.Tracked(), IsEmpty());
}

TEST(ModifyGraph, ItemsOfARemovedGraphAreNotFound)
{
	FModifying Case;
	RunTool(TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire"}]})");
	const std::string Entry = ToStd(Case.Graph(TEXT("Fire"))->Nodes[0]->NodeGuid.ToString());
	Case.Modify(R"("action":"remove","is_pure":true,"nodes":[{"action":"modify","node_guid":")" + Entry
			+ R"(","comment":"x"}],"local_variables":{"A":{"type":{"category":"int"}}})",
		"Fire");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("Failed to set is_pure on graph, Could not get Function from Graph: Fire",
			R"({"message":"Node )" + Entry + R"( not found"})",
			"Cannot process local variables: Function entry node not found"));
	EXPECT_FALSE(Case.Graph(TEXT("Fire")));
}

TEST(ModifyGraph, WhatHasToStayStays)
{
	FModifying Case;
	FBlueprintEditorUtils::ImplementNewInterface(
		Case.Blueprint.Get(), FTopLevelAssetPath(TEXT("/Script/Engine.BlendableInterface")));
	for (const char* const Name : {"EventGraph", "UserConstructionScript"})
	{
		Case.Modify(R"("action":"remove")", Name);
		EXPECT_THAT(Warnings(*Case.Result),
			ElementsAre(std::string("Failed to delete graph: ") + Name + ", bAllowDeletion is false"));
		EXPECT_TRUE(Case.Graph(UTF8_TO_TCHAR(Name)));
	}
	RunTool(TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire"}]})");
	UEdGraph* const Fire = Case.Graph(TEXT("Fire"));
	FBPInterfaceDescription Row;
	Row.Graphs.Add(Fire);
	Case.Blueprint->ImplementedInterfaces.Add(Row);
	Case.Modify(R"("action":"remove")", "Fire");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Failed to delete graph: Fire, bAllowDeletion is false"));
	Case.Blueprint->ImplementedInterfaces.Empty();
	Fire->Schema = nullptr;
	Case.Modify(R"("action":"remove")", "Fire");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Failed to delete graph: Fire, schema not found"));
}

TEST(ModifyGraph, PagesMacrosAndDispatchersGoWhole)
{
	FModifying Case;
	Case.Make(
		R"("graph_type":"event","nodes":[{"node_guid":"c","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Boom"}}])",
		"Combat");
	Case.Make("\"nodes\":[" + CallNode("call", "BP_Test", "Boom") + "]");
	Case.Modify(R"("action":"remove")", "Combat");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre(HasSubstr("still name what it declared: Boom")));
	EXPECT_THAT(Case.Tracked(), ElementsAre(HasSubstr(R"("graph_name":"Combat","event_name":"Boom\nCustom Event")")));

	FEdGraphPinType Type;
	Type.PinCategory = UEdGraphSchema_K2::PC_MCDelegate;
	Case.Blueprint.AddVariable(TEXT("OnFired"), Type);
	RunTool(TEXT("bp_create_graph"),
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"OnFired","is_delegate":true}]})");
	ASSERT_TRUE(Case.Graph(TEXT("OnFired")));
	Case.Modify(R"("action":"remove")", "OnFired");
	EXPECT_EQ(FBlueprintEditorUtils::FindNewVariableIndex(Case.Blueprint.Get(), TEXT("OnFired")), INDEX_NONE);
	EXPECT_THAT(Case.Tracked(), ElementsAre(HasSubstr(R"("delegate_name":["OnFired"])")));

	UEdGraph* const Macro = FBlueprintEditorUtils::CreateNewGraph(
		Case.Blueprint.Get(), TEXT("Twice"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddMacroGraph(Case.Blueprint.Get(), Macro, true, nullptr);
	Case.Modify(R"("action":"remove")", "Twice");
	EXPECT_THAT(Case.Tracked(), ElementsAre(HasSubstr(R"("macro_name":["Twice"])")));
	ASSERT_TRUE(Case.Blueprint.Reload());
	for (const TCHAR* const Name : {TEXT("Combat"), TEXT("OnFired"), TEXT("Twice")})
	{
		EXPECT_FALSE(Case.Graph(Name)) << ToStd(Name);
	}
}

TEST(ModifyGraph, CollapsedGraphsGoWithTheirNode)
{
	FModifying Case;
	UK2Node_Composite* const Box = Case.Blueprint.EventGraph().Add<UK2Node_Composite>();
	Case.Ids["box"] = ToStd(Box->NodeGuid.ToString());
	const std::string Inner = ToStd(Box->BoundGraph->GetName());
	EXPECT_TRUE(Case.Blueprint.Save());
	Case.Modify(R"("action":"remove")", Inner);
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_FALSE(Case.Node("box"));
	EXPECT_FALSE(Case.Graph(UTF8_TO_TCHAR(Inner.c_str())));
}

TEST(ModifyGraph, StateMachinesLoseRulesStatesAndThemselves)
{
	FMachine Case;
	ASSERT_EQ(Case.NumTransitions(), 3);
	const std::string At = R"("action":"remove","state_machine_name":")" + Case.MachineName + "\"";
	Case.Modify(At + R"(,"from_state_name":"idle","to_state_name":"Jump")", "Transition");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Graph 'Transition' not found for removal"));
	Case.Modify(At + R"(,"from_state_name":"idle","to_state_name":"Walk")", "Transition");
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_EQ(Case.NumTransitions(), 2);

	const char* const Machine = Case.MachineName.c_str();
	Case.Unlink(Case.Cut("Walk", "Out", "Jump", "In"), Machine);
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_EQ(Case.NumTransitions(), 1) << "a link of states is a transition";
	Case.Modify(At, "Jump");
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_EQ(Case.NumTransitions(), 0) << "a state takes its transitions along";
	EXPECT_FALSE(Case.Graph(TEXT("Jump")));
	Case.ModifyNodes(Case.Drop("Walk"), Machine);
	EXPECT_FALSE(Case.Graph(TEXT("Walk")));
	EXPECT_TRUE(Case.Graph(TEXT("Idle")));

	Case.Modify(R"("action":"remove")", Machine);
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_FALSE(Case.Graph(UTF8_TO_TCHAR(Machine)));
	EXPECT_FALSE(FPopulating::FindNode<UAnimGraphNode_StateMachine>(Case.Graph(TEXT("AnimGraph"))));
	Case.Modify(R"("action":"remove")", "AnimGraph");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Failed to delete graph: AnimGraph, bAllowDeletion is false"));
}

TEST(ModifyLocals, AddChangeAndRemoveWithTheirUsers)
{
	FModifying Case;
	RunTool(TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire"}]})");
	const auto Locals = [&Case](const std::string& Members)
	{
		Case.Modify("\"local_variables\":{" + Members + "}", "Fire");
		return Warnings(*Case.Result);
	};
	EXPECT_THAT(
		Locals(
			R"("Count":{"type":{"category":"int"},"default_variable_value":2},"Label":{"type":{"category":"string"}})"),
		IsEmpty());
	EXPECT_THAT(Successes(*Case.Result),
		ElementsAre("Created new local variable: Count", "Created new local variable: Label",
			"Modified graph 'Fire': 2 local variable(s) processed"));
	EXPECT_THAT(Case.Tracked(), ElementsAre(HasSubstr(R"("function_name":["Fire"])")));
	Case.Make("\"nodes\":[" + LooseNode("g", "Get Count") + ","
			+ CallNode("s", "KismetStringLibrary", "Conv_IntToString") + "],\"connections\":["
			+ Link("g", "Count", "s", "InInt") + "]",
		"Fire");
	EXPECT_THAT(
		Locals(
			R"("COUNT":{"type":{"category":"int"}},"Nope":{"action":"modify","type":{"category":"int"}},"Gone":{"action":"remove"},
		"Label":{"action":"modify"},"Bad":{"type":{"category":"int"},"default_variable_value":"many"},"":{"action":"remove"})"),
		ElementsAre("Local variable 'COUNT' already exists, cannot add",
			"Local variable 'Nope' not found for modification", "Local variable 'Gone' not found for removal",
			"Failed to process local variable 'Label': Neither a type nor a default is given",
			"Failed to process local variable 'Bad': 'many' is not a valid integer",
			"Failed to process local variable '': The name cannot be empty"));
	EXPECT_EQ(Case.Data(TEXT("items_failed")), "6");
	const std::string Getter = Case.Id("g").substr(0, 7);
	EXPECT_THAT(
		Locals(
			R"("count":{"action":"modify","type":{"category":"struct","sub_category_object":"/Script/CoreUObject.Vector"}})"),
		ElementsAre(AllOf(HasSubstr("Local variable 'Count' has another type now. These links do not fit it: "),
			HasSubstr("(" + Getter + ").Count -> "))));
	EXPECT_THAT(Locals(R"("Count":{"action":"remove"},"Label":{"action":"modify","default_variable_value":"x"})"),
		ElementsAre(
			AllOf(HasSubstr("Local variable 'Count' is removed, and these nodes still use it: "), HasSubstr(Getter))));
	ASSERT_TRUE(Case.Blueprint.Reload());
	const UK2Node_FunctionEntry* const Entry = FPopulating::FindNode<UK2Node_FunctionEntry>(Case.Graph(TEXT("Fire")));
	ASSERT_EQ(Entry->LocalVariables.Num(), 1);
	EXPECT_EQ(ToStd(Entry->LocalVariables[0].VarName.ToString() + TEXT("=") + Entry->LocalVariables[0].DefaultValue),
		"Label=x");
	EXPECT_TRUE(Case.Node("g", TEXT("Fire"))) << "nodes stay as an editor keeps them";
}

TEST(ModifyLocals, ADefaultStaysWhereItFitsTheNewType)
{
	FModifying Case;
	RunTool(TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire"}]})");
	const auto Change = [&Case](const std::string& Members)
	{
		Case.Modify("\"local_variables\":{\"Count\":{" + Members + "}}", "Fire");
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << Members;
		const auto& Locals = FPopulating::FindNode<UK2Node_FunctionEntry>(Case.Graph(TEXT("Fire")))->LocalVariables;
		return ToStd(Locals[0].VarType.PinCategory.ToString() + TEXT(":") + Locals[0].DefaultValue);
	};
	const std::string Modify = R"("action":"modify",)";
	EXPECT_EQ(Change(R"("type":{"category":"int"},"default_variable_value":"2")"), "int:2");
	EXPECT_EQ(Change(Modify + R"("type":{"category":"int64"})"), "int64:2");
	EXPECT_EQ(Change(Modify + R"("type":{"category":"string"},"default_variable_value":"two")"), "string:two");
	EXPECT_EQ(Change(Modify + R"("type":{"category":"int"})"), "int:") << "two is no number";
	EXPECT_EQ(Change(Modify + R"("default_variable_value":"7")"), "int:7");
}

TEST(ModifyLocals, UsersInCollapsedGraphsAreUsersToo)
{
	FModifying Case;
	RunTool(TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire"}]})");
	Case.Populate(
		R"("local_variables":{"Count":{"type":{"category":"int"}}},"nodes":[)" + LooseNode("c", "Add Comment") + "]",
		"Fire");
	UEdGraph* const Fire = Case.Graph(TEXT("Fire"));
	UEdGraph* const Inner = FBlueprintEditorUtils::CreateNewGraph(
		Case.Blueprint.Get(), TEXT("Inner"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	Inner->Rename(nullptr, Fire);
	Fire->SubGraphs.Add(Inner);
	FGraphNodeCreator<UK2Node_VariableGet> Creator(*Inner);
	UK2Node_VariableGet* const Get = Creator.CreateNode(false);
	Get->VariableReference.SetLocalMember(TEXT("Count"), TEXT("Fire"), FGuid());
	Creator.Finalize();
	Case.Modify(R"("local_variables":{"Count":{"action":"remove"}})", "Fire");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(HasSubstr("Local variable 'Count' is removed, and these nodes still use it: ")));
}

TEST(ModifyLocals, OnlyFunctionsHaveThem)
{
	FModifying Case;
	RunTool(TEXT("bp_create_graph"),
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire","parameters":[{"name":"P","type":{"category":"int"}}]},{"name":"OnFired","is_delegate":true}]})");
	UEdGraph* const Macro = FBlueprintEditorUtils::CreateNewGraph(
		Case.Blueprint.Get(), TEXT("Twice"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddMacroGraph(Case.Blueprint.Get(), Macro, true, nullptr);
	const std::string Members = R"("local_variables":{"P":{"type":{"category":"int"}}})";
	for (const auto& [Graph, Words] : {std::pair{"EventGraph", "Local variables are not supported in event graphs"},
			 {"OnFired", "Local variables are not supported in delegate signature graphs"},
			 {"Twice", "Cannot process local variables: Function entry node not found"},
			 {"Fire", "Failed to create local variable: P"}})
	{
		Case.Modify(Members, Graph);
		EXPECT_THAT(Warnings(*Case.Result), ElementsAre(Words)) << Graph;
		EXPECT_THAT(Case.Closing(), HasSubstr("Nothing was modified")) << Graph;
	}
}
