// What a populate call says it made is what stands in the graph.

#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_GetDataTableRow.h"
#include "Populating.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace PopulateTruthTest
{
static std::string ModifyPin(const std::string& Name, const std::string& Value)
{
	return R"({"action":"modify","name":")" + Name + R"(","value":")" + Value + "\"}";
}

static std::string Pins(const std::string& List)
{
	return R"("pins":[)" + List + "]";
}

/** The event graph as the file holds it. */
static UEdGraph* ReadBack(FPopulating& Run)
{
	UBlueprint* const Blueprint = Run.Blueprint.Reload();
	return Blueprint ? Blueprint->UbergraphPages[0].Get() : nullptr;
}
} // namespace PopulateTruthTest

using namespace PopulateTruthTest;

TEST(PopulateTruth, ACastToABlueprintNamesItsResultAsTheEditorDoes)
{
	FPopulating Run;
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":"/Game/Tests/MyMonsterBP","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Character"}})");
	Run.Populate(R"("nodes":[{"node_guid":"cast","class_name":"K2Node_DynamicCast","target_class":"MyMonsterBP",)"
				 R"("target_function":"any"},)"
		+ CallNode("destroy", "Actor", "K2_DestroyActor") + R"(],"connections":[)"
		+ Link("cast", "AsMy Monster BP", "destroy", "self") + "]");
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	const UEdGraph* const Graph = ReadBack(Run);
	ASSERT_NE(Graph, nullptr);
	const UEdGraphPin* const Cast = FPopulating::FindNode<UK2Node_DynamicCast>(Graph)->GetCastResultPin();
	EXPECT_EQ(ToStd(Cast->PinName.ToString()), "AsMy Monster BP");
	EXPECT_EQ(Cast->LinkedTo.Num(), 1);
}

TEST(PopulateTruth, AnOperatorKeepsTheOtherOperandsValueWhenALinkComes)
{
	const struct
	{
		const char* Function;
		const char* Value;
		const char* TypedIn;
		const char* Linked;
		const char* Source;
		const char* Bound;
	} Cases[] = {
		{"Multiply_VectorFloat", "1000", "B", "A", "GetActorForwardVector", "Multiply_VectorFloat"},
		{"Multiply_VectorInt", "3", "B", "A", "GetActorForwardVector", "Multiply_VectorInt"},
		{"Multiply_DoubleDouble", "0.5", "B", "A", "GetActorForwardVector", "Multiply_VectorFloat"},
		{"Add_VectorVector", "1, 2, 3", "A", "B", "GetActorForwardVector", "Add_VectorVector"},
		{"Greater_DoubleDouble", "5", "B", "A", "GetGameTimeSinceCreation", "Greater_DoubleDouble"},
	};
	for (const auto& Case : Cases)
	{
		FPopulating Run;
		Run.Populate(R"("nodes":[)"
			+ CallNode("op", "KismetMathLibrary", Case.Function, Pins(ModifyPin(Case.TypedIn, Case.Value))) + ","
			+ CallNode("source", "Actor", Case.Source) + R"(],"connections":[)"
			+ Link("source", "ReturnValue", "op", Case.Linked) + "]");
		EXPECT_THAT(Warnings(*Run.Result), IsEmpty()) << Case.Function;
		const UEdGraph* const Graph = ReadBack(Run);
		ASSERT_NE(Graph, nullptr);
		const UK2Node_CallFunction* Operator = nullptr;
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			Operator = Node->FindPin(TEXT("B")) ? Cast<UK2Node_CallFunction>(Node) : Operator;
		}
		ASSERT_NE(Operator, nullptr) << Case.Function;
		EXPECT_EQ(ToStd(Operator->GetFunctionName().ToString()), Case.Bound) << Case.Function;
		EXPECT_EQ(ToStd(Operator->FindPin(UTF8_TO_TCHAR(Case.TypedIn))->DefaultValue), Case.Value) << Case.Function;
	}
}

TEST(PopulateTruth, AnOwnerThatDoesNotFitAVariableIsToldWithItsReason)
{
	FPopulating Run;
	Run.Nodes(CallNode("owner", "KismetSystemLibrary", "GetGameTimeInSeconds")
		+ R"(,{"node_guid":"get","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"bHidden",)"
		  R"("variable_source_class":"/Script/Engine.Actor","property_owner_node_guid":"owner","owner_pin_name":"ReturnValue"}})");
	EXPECT_THAT(Warnings(*Run.Result),
		ElementsAre(HasSubstr("[Failure] Variable 'bHidden' was placed without its owner: pin 'ReturnValue' of "
							  "'Get Game Time in Seconds")));
	EXPECT_THAT(Warnings(*Run.Result)[0], HasSubstr("is not compatible with"));
}

TEST(PopulateTruth, ARowOfADataTableHasTheTablesStruct)
{
	FPopulating Run;
	UClass* const TableClass = FindObject<UClass>(nullptr, TEXT("/Script/Engine.DataTable"));
	UObject* const Table = NewObject<UObject>(
		CreatePackage(TEXT("/Game/Tests/DT_Items")), TableClass, TEXT("DT_Items"), RF_Public | RF_Standalone);
	const FProperty* const RowStruct = TableClass->FindPropertyByName(TEXT("RowStruct"));
	RowStruct->ImportText_InContainer(TEXT("/Script/Engine.HitResult"), Table, Table, PPF_None);
	Run.Nodes(LooseNode("row", "Get Data Table Row", Pins(ModifyPin("DataTable", "/Game/Tests/DT_Items.DT_Items"))));
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	const UK2Node_GetDataTableRow* const Row = FPopulating::FindNode<UK2Node_GetDataTableRow>(
		Run.Blueprint->UbergraphPages[0].Get());
	ASSERT_NE(Row, nullptr);
	EXPECT_EQ(ToStd(UEdGraphSchema_K2::TypeToText(Row->GetResultPin()->PinType).ToString()), "Hit Result Structure");
	Table->GetOutermost()->MarkAsGarbage();
}

TEST(PopulateTruth, EveryPinRecordDoesSomethingOrIsToldWithNodePinAndReason)
{
	const struct
	{
		const char* Record;
		std::vector<std::string> Warnings;
	} Cases[] = {
		{R"({"name":"Duration","value":9})", {}},
		{R"({"name":"bPrintToLog","value":false})", {}},
		{R"({"action":"MODIFY","name":"instring","value":"a"})", {}},
		{R"({"action":"modify","name":"Nope","value":"1"})",
			{"[Failure] Pin 'Nope' of node 'Print String' (p): it was not found, so the value '1' was not set. The inputs "
			 "are: execute, InString, bPrintToScreen, bPrintToLog, TextColor, Duration, Key."}},
		{R"({"action":"modify","name":"Duration","value":"soon"})",
			{"'soon' is not a valid number",
				"[Failure] Pin 'Duration' of node 'Print String' (p): the value 'soon' was not set."}},
		{R"({"action":"modify","name":"Duration"})",
			{"[Warning] Pin 'Duration' of node 'Print String' (p): the record has no value, so nothing was set."}},
		{R"({"action":"add","name":"Duration","value":"1"})",
			{"[Warning] Pin 'Duration' of node 'Print String' (p): 'add' does nothing on this node. A value is set by "
			 "action modify, or by a record without an action."}},
		{R"({"action":"remove","name":"Duration"})",
			{"[Warning] Pin 'Duration' of node 'Print String' (p): 'remove' does nothing here; bp_modify_graph_nodes "
			 "removes pins."}},
	};
	for (const auto& Case : Cases)
	{
		FPopulating Run;
		Run.Nodes(CallNode("p", "KismetSystemLibrary", "PrintString", Pins(Case.Record)));
		EXPECT_THAT(Warnings(*Run.Result), testing::ElementsAreArray(Case.Warnings)) << Case.Record;
	}
}

TEST(PopulateTruth, ValuesFindPinsThatComeWithOtherValuesOrLinks)
{
	FPopulating Run;
	Run.Nodes(LooseNode("text", "Format Text",
		Pins(ModifyPin("Count", "3") + "," + ModifyPin("Format", "{Count} of {Total}") + ","
			+ ModifyPin("Total", "9"))));
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty()) << "the pins come with the format, which stands later";

	FPopulating Lost;
	Lost.Populate(R"("nodes":[)"
		+ CallNode("op", "KismetMathLibrary", "EqualEqual_IntInt", Pins(ModifyPin("B", "1000"))) + ","
		+ CallNode("v", "Actor", "GetActorForwardVector") + R"(],"connections":[)" + Link("v", "ReturnValue", "op", "A")
		+ "]");
	EXPECT_THAT(Warnings(*Lost.Result),
		ElementsAre(
			"[Warning] Pin 'B' of node 'Equal (==)' (op): its value '1000' was lost when a link or another value made the "
			"pin a Vector."));
}

TEST(PopulateTruth, ACustomEventTakesParametersAndReplication)
{
	FPopulating Run;
	const std::string Event =
		R"({"node_guid":"fire","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Fire",)"
		R"("replicates":"Server","reliable":true},"pins":[{"action":"add","name":"Amount",)"
		R"("type":{"category":"float"}},{"action":"add","name":"Who","type":{"category":"object",)"
		R"("sub_category_object":"/Script/Engine.Actor"}}]})";
	Run.Nodes(Event);
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	Run.Nodes(Event);
	EXPECT_EQ(Warnings(*Run.Result).size(), 1U) << "that the event is there; its parameters are not added twice";
	Run.Nodes(
		R"({"node_guid":"fire","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Fire","replicates":"all"},)"
		R"("pins":[{"action":"add","name":"Who","type":{"category":"int"}},{"action":"add","name":"Odd","type":{}},)"
		R"({"action":"add","name":"Amount","type":{"category":"float","container":"array"}},)"
		R"({"action":"add","name":"Who","type":{"category":"object","sub_category_object":"/Script/Engine.Pawn"}}]})");
	EXPECT_THAT(Warnings(*Run.Result),
		ElementsAre(HasSubstr("already exists"),
			"[Failure] Custom event 'Fire' does not replicate: 'all' is none of server, client, multicast and none",
			"[Failure] Pin 'Who' of node 'Fire' (fire): a parameter was not added: the event has a pin of that name, a Actor "
			"Object Reference.",
			"[Failure] Pin 'Odd' of node 'Fire' (fire): a parameter was not added: it needs a name and a type, such as "
			"{\"category\":\"float\"}.",
			"[Failure] Pin 'Amount' of node 'Fire' (fire): a parameter was not added: the event has a pin of that name, a Float "
			"(single-precision).",
			"[Failure] Pin 'Who' of node 'Fire' (fire): a parameter was not added: the event has a pin of that name, a Actor "
			"Object Reference."));

	const UEdGraph* const Graph = ReadBack(Run);
	ASSERT_NE(Graph, nullptr);
	const UK2Node_CustomEvent* const Saved = FPopulating::FindNode<UK2Node_CustomEvent>(Graph);
	ASSERT_NE(Saved, nullptr);
	EXPECT_EQ(Saved->UserDefinedPins.Num(), 2);
	EXPECT_NE(Saved->FindPin(TEXT("Amount"), EGPD_Output), nullptr);
	EXPECT_EQ(Saved->FunctionFlags & FUNC_NetFuncFlags, FUNC_Net | FUNC_NetServer | FUNC_NetReliable);
}

TEST(PopulateTruth, NodesThatTakeMorePinsGrowByOnesThatAreAskedFor)
{
	FPopulating Run;
	Run.Nodes(LooseNode("s", "Sequence",
		Pins(R"({"action":"add","name":"then_2"},{"action":"add","name":"then_3"},{"action":"add","name":"x"})")));
	EXPECT_THAT(Warnings(*Run.Result),
		ElementsAre("[Warning] Pin 'x' of node 'Sequence' (s): the node adds pins, but none of this name."));
	const UEdGraph* const Graph = ReadBack(Run);
	const UEdGraphNode* const Node = FPopulating::FindNode<UK2Node_ExecutionSequence>(Graph);
	ASSERT_NE(Node, nullptr);
	EXPECT_NE(Node->FindPin(TEXT("then_3")), nullptr);
	EXPECT_EQ(Node->Pins.Num(), 5) << "what was added on the way to a name that never came is gone";
}

TEST(PopulateTruth, SummariesTellTitlesAsTheyAreAtTheEnd)
{
	FPopulating Run;
	Run.Nodes(LooseNode("s", "Spawn Actor from Class", Pins(ModifyPin("Class", "/Script/Engine.Pawn"))));
	EXPECT_THAT(Run.Data(TEXT("created_nodes_summary")), HasSubstr("SpawnActor Pawn"));
	EXPECT_THAT(Run.Data(TEXT("nodes_attached_to_events")), HasSubstr("SpawnActor Pawn"));
}

TEST(PopulateTruth, AnEventOfAComponentStandsWhenComponentAndDelegateDo)
{
	FPopulating Run(TEXT("/Script/Engine.Character"));
	Run.Nodes(LooseNode("hit", "On Component Hit (CapsuleComponent)"));
	EXPECT_THAT(Errors(*Run.Result), IsEmpty());
	EXPECT_EQ(Run.Data(TEXT("nodes_created")), "1") << testing::PrintToString(Warnings(*Run.Result));
	const UEdGraph* const Graph = ReadBack(Run);
	const UK2Node_ComponentBoundEvent* const Event = FPopulating::FindNode<UK2Node_ComponentBoundEvent>(Graph);
	ASSERT_NE(Event, nullptr);
	EXPECT_EQ(ToStd(Event->ComponentPropertyName.ToString()), "CapsuleComponent");
	EXPECT_EQ(ToStd(Event->DelegatePropertyName.ToString()), "OnComponentHit");
}
