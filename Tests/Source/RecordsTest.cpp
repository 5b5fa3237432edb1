#include "Operations/Graph/GraphModification.h"
#include "ToolResults.h"
#include "Utils/Request/PopulateRecords.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace RecordsTest
{
static FBPNodeModification Node(const std::string& Text)
{
	FBPNodeModification Record;
	EXPECT_TRUE(PopulateRecords::ParseNode(JsonValue(Text), Record)) << Text;
	return Record;
}

static FBPConnectionModification Connection(const std::string& Text)
{
	FBPConnectionModification Record;
	EXPECT_TRUE(PopulateRecords::ParseConnection(JsonValue(Text), Record)) << Text;
	return Record;
}

using FModification = FBlueprintNodesCommonOperation::FBPGraphModification;

static bool ParseWhole(const std::string& Text, FModification& OutModification, Morvane::FToolResult& Result)
{
	return FBlueprintNodesCommonOperation::ParseJsonToModification(*Json(Text), OutModification, Result);
}

/** The members given, inside a request that is complete otherwise. */
static std::string Request(const std::string& Members)
{
	return R"({"blueprint_name":"BP","graph_name":"Run")" + (Members.empty() ? "" : "," + Members) + "}";
}
} // namespace RecordsTest

using namespace RecordsTest;

TEST(NodeRecord, ActionIsForgivingHere)
{
	struct FCase
	{
		const char* Text;
		EBPNodeAction Expected;
	};
	for (const FCase& Case : {FCase{"{}", EBPNodeAction::Add}, {R"({"action":"ADD"})", EBPNodeAction::Add},
			 {R"({"action":"Modify"})", EBPNodeAction::Modify}, {R"({"action":"remove"})", EBPNodeAction::Remove},
			 {R"({"action":"delete"})", EBPNodeAction::Add}, {R"({"action":2})", EBPNodeAction::Add}})
	{
		EXPECT_EQ(Node(Case.Text).Action, Case.Expected) << Case.Text;
	}
}

TEST(NodeRecord, AKeyOfAWrongTypeLeavesTheDefault)
{
	const FBPNodeModification Record = Node(
		R"({"node_guid":7,"class_name":true,"menu_title":null,"node_metadata":[],"pins":{},"position":"0,0"})");
	EXPECT_TRUE(Record.NodeGuid.IsEmpty() && Record.ClassName.IsEmpty() && Record.MenuTitle.IsEmpty());
	EXPECT_TRUE(Record.Metadata.IsEmpty() && Record.Pins.IsEmpty());
	EXPECT_FALSE(Record.PositionX || Record.PositionY);
}

TEST(NodeRecord, KeysAreExactAndMetadataIsTextButForANumberAndAFlag)
{
	const FBPNodeModification Record = Node(
		R"({"Menu_Title":"no","menu_title":"Print String","node_metadata":
			{"a":"1","b":2,"c":"","d":null,"allow_duplicate":true,"minimum_confidence":0.25}})");
	EXPECT_EQ(Record.MenuTitle, TEXT("Print String"));
	EXPECT_EQ(Record.Metadata.Num(), 4);
	ASSERT_NE(Record.FindMetadata(TEXT("c")), nullptr) << "present and empty is not absent";
	EXPECT_EQ(Record.FindMetadata(TEXT("b")), nullptr);
	EXPECT_EQ(Record.GetMetadata(TEXT("allow_duplicate")), TEXT("true"));
	EXPECT_EQ(Record.GetMetadata(TEXT("minimum_confidence")), TEXT("0.25"));
}

TEST(NodeRecord, PinsKeepTheirOrderAndWhatIsNoObjectIsDropped)
{
	const FBPNodeModification Record = Node(
		R"({"pins":[{"name":"A","action":"modify","value":"1"},5,{"name":"B","type":{"category":"int"}},{}]})");
	ASSERT_EQ(Record.Pins.Num(), 3);
	EXPECT_EQ(Record.Pins[0].Action, EBPNodeAction::Modify);
	EXPECT_EQ(Record.Pins[0].Value, TEXT("1"));
	EXPECT_FALSE(Record.Pins[0].Type);
	EXPECT_EQ(Record.Pins[1].Name, TEXT("B"));
	ASSERT_TRUE(Record.Pins[1].Type);
	EXPECT_EQ(Record.Pins[1].Type->Category, TEXT("int"));
	EXPECT_EQ(Record.Pins[2].Action, EBPNodeAction::Add);
}

TEST(NodeRecord, PositionIsCutTowardZeroEachForItself)
{
	const FBPNodeModification Record = Node(R"({"position":{"x":-10.9,"y":1e300}})");
	EXPECT_EQ(*Record.PositionX, -10);
	EXPECT_EQ(*Record.PositionY, MAX_int32);
	EXPECT_FALSE(Node(R"({"position":{"y":3}})").PositionX);
}

TEST(NodeRecord, WhatIsNoObjectFails)
{
	FBPNodeModification Record;
	FBPConnectionModification Link;
	for (const char* const Text : {"5", "\"a\"", "[]", "null"})
	{
		EXPECT_FALSE(PopulateRecords::ParseNode(JsonValue(Text), Record)) << Text;
		EXPECT_FALSE(PopulateRecords::ParseConnection(JsonValue(Text), Link)) << Text;
	}
	EXPECT_FALSE(PopulateRecords::ParseNode(nullptr, Record));
}

TEST(ConnectionRecord, IdsHaveTwoNamesAndTheFirstWins)
{
	const FBPConnectionModification Alias = Connection(
		R"({"source_node_id":"a","target_node_id":"b","source_pin_name":"then","action":"Create"})");
	EXPECT_EQ(Alias.Action, EBPConnectionAction::Add);
	EXPECT_EQ(Alias.SourceNodeGuid, TEXT("a"));
	EXPECT_EQ(Alias.TargetNodeGuid, TEXT("b"));
	const FBPConnectionModification Both = Connection(
		R"({"source_node_id":"a","source_node_guid":"g","target_node_guid":"","target_node_id":"b","action":"remove"})");
	EXPECT_EQ(Both.SourceNodeGuid, TEXT("g"));
	EXPECT_TRUE(Both.TargetNodeGuid.IsEmpty()) << "an empty first key is still the first";
	EXPECT_EQ(Both.Action, EBPConnectionAction::Remove);
}

TEST(WholeRequest, RefusalsNameTheirReason)
{
	const FGraphBuilder Editor; // types are looked up among the editor's classes
	struct FCase
	{
		std::string Text;
		const char* Message;
	};
	const FCase Cases[] = {
		{R"({"action":"create","blueprint_name":"BP","graph_name":"Run"})",
			"Invalid action field: create. Must be 'add', 'modify', or 'remove'"},
		{R"({"graph_name":"Run"})", "JSON missing required field: blueprint_name"},
		{R"({"blueprint_name":"BP"})", "JSON missing required field: graph_name"},
		{R"({"blueprint_name":5,"graph_name":"Run"})", "JSON missing required field: blueprint_name"},
		{Request(R"("nodes":[{"menu_title":"run"}])"), "Graph name Run cannot be the same as Node's menu title run"},
		{Request(R"("nodes":[{"action":"drop"}])"), "Invalid action field: drop. Must be 'add', 'modify', or 'remove'"},
		{Request(R"("nodes":[{"pins":[{"action":"x"}]}])"),
			"Invalid action field: x. Must be 'add', 'modify', or 'remove'"},
		{Request(R"("connections":[{"action":"y"}])"), "Invalid action field: y. Must be 'add', 'modify', or 'remove'"},
		{Request(R"("local_variables":{"V":5})"), "Invalid local variable definition for 'V'"},
		{Request(R"("local_variables":[{"action":"add"}])"), "Invalid local variable definition for ''"},
		{Request(R"("local_variables":{"V":{"action":"set"}})"), "Unsupported local variable action 'set' for 'V'"},
		{Request(R"("local_variables":{"V":{"default_variable_value":[]}})"),
			"Local variable 'V' has unsupported default value type"},
		{Request(R"("local_variables":{"V":{}})"), "Local variable 'V' is missing required 'type' definition"},
		{Request(R"("local_variables":{"V":{"type":{}}})"), "Failed to parse type for local variable 'V'"},
		{Request(R"("local_variables":{"V":{"action":"modify","type":"int"}})"),
			"Failed to parse type for local variable 'V'"},
	};
	for (const FCase& Case : Cases)
	{
		FModification Modification;
		Morvane::FToolResult Result = MakeResult();
		EXPECT_FALSE(ParseWhole(Case.Text, Modification, Result)) << Case.Text;
		EXPECT_THAT(Errors(Result), ElementsAre(Case.Message)) << Case.Text;
	}
}

TEST(WholeRequest, ReadsAllItsKeys)
{
	FModification Modification;
	Morvane::FToolResult Result = MakeResult();
	ASSERT_TRUE(
		ParseWhole(Request(R"("action":"Modify","state_machine_name":"SM","from_state_name":"F","to_state_name":"T",
		"is_pure":false,"nodes_to_search":[{"menu_title":"Find"}],
		"nodes":[{"action":"modify","node_guid":"g","exact_match":true,"position":{"x":1},"comment":"",
			"metadata":{"k":"v"},"target_class":"C","pins":[{"action":"add","name":"P","direction":"out",
			"type":{"category":"string","container":"map","is_reference":true,"is_const":true,"is_weak_pointer":true,
			"is_u_object_wrapper":true,"value_type":"int"}}]},"no object"],
		"connections":[{"action":"remove","source_node_guid":"a","source_node_id":"x","target_pin_name":"in"},7])"),
			Modification, Result));
	EXPECT_THAT(Errors(Result), IsEmpty());
	EXPECT_EQ(*Modification.GraphAction, EBPNodeAction::Modify);
	EXPECT_EQ(Modification.StateMachineName + Modification.FromStateName + Modification.ToStateName, TEXT("SMFT"));
	EXPECT_EQ(Modification.bIsPure.Get(true), false);
	EXPECT_EQ(Modification.NodesToSearch[0].MenuTitle, TEXT("Find"));
	ASSERT_EQ(Modification.Nodes.Num(), 1);
	const FBPNodeModification& Node = Modification.Nodes[0];
	EXPECT_TRUE(Node.bExactMatch && Node.PositionX && !Node.PositionY && Node.Comment);
	EXPECT_EQ(Node.GetMetadata(TEXT("k")), TEXT("v"));
	const FBPPinType& Type = *Node.Pins[0].Type;
	EXPECT_TRUE(Type.bIsReference && Type.bIsConst && Type.bIsWeakPointer && Type.bIsUObjectWrapper);
	EXPECT_EQ(Type.ValueType->Category, TEXT("int"));
	EXPECT_EQ(Node.Pins[0].Direction, TEXT("out"));
	ASSERT_EQ(Modification.Connections.Num(), 1);
	EXPECT_EQ(Modification.Connections[0].SourceNodeGuid, TEXT("a"));
}

TEST(WholeRequest, NoGraphActionIsNoAction)
{
	FModification Modification;
	Morvane::FToolResult Result = MakeResult();
	ASSERT_TRUE(ParseWhole(Request(""), Modification, Result));
	EXPECT_FALSE(Modification.GraphAction || Modification.bIsPure);
	EXPECT_TRUE(
		Modification.Nodes.IsEmpty() && Modification.Connections.IsEmpty() && Modification.LocalVariables.IsEmpty());
}

TEST(WholeRequest, InternalNodesGoBeforeNodes)
{
	struct FCase
	{
		const char* Members;
		const TCHAR* Expected;
	};
	for (const FCase& Case : {FCase{R"("nodes":[{"node_guid":"n"}],"_internal_nodes":[{"node_guid":"i"}])", TEXT("i")},
			 {R"("nodes":[{"node_guid":"n"}],"_internal_nodes":5)", TEXT("n")}})
	{
		FModification Modification;
		Morvane::FToolResult Result = MakeResult();
		ASSERT_TRUE(ParseWhole(Request(Case.Members), Modification, Result));
		ASSERT_EQ(Modification.Nodes.Num(), 1);
		EXPECT_EQ(Modification.Nodes[0].NodeGuid, Case.Expected) << Case.Members;
	}
}

TEST(PinTypeRecord, ContainerHasTwoNamesAndTheFirstWins)
{
	const FBPNodeModification Record = Node(R"({"pins":[
		{"type":{"container_type":"set","container":"array"}},{"type":{"container":"array"}},{"type":{"is_const":true}}]})");
	EXPECT_EQ(Record.Pins[0].Type->ContainerType, TEXT("set"));
	EXPECT_EQ(Record.Pins[1].Type->ContainerType, TEXT("array"));
	EXPECT_FALSE(Record.Pins[2].Type->bIsConst) << "the flags belong to the whole request alone";
}

TEST(FunctionRecord, KeepsWhetherAReturnTypeWasGivenAndWhetherItWasRead)
{
	const FGraphBuilder Editor; // types are looked up among the editor's classes
	struct FCase
	{
		const char* Text;
		bool bGiven;
		bool bRead;
	};
	for (const FCase& Case :
		{FCase{R"({"name":"F"})", false, false}, {R"({"name":"F","return_type":{"category":"bool"}})", true, true},
			{R"({"name":"F","return_type":{"category":"nonsense"}})", true, false},
			{R"({"name":"F","return_type":"bool"})", true, false},
			{R"({"name":"F","return_type":null})", false, false}})
	{
		FBPFunctionModification Record;
		EXPECT_TRUE(PopulateRecords::ParseFunction(*Json(Case.Text), Record));
		EXPECT_EQ(Record.bHasReturnType, Case.bGiven) << Case.Text;
		EXPECT_EQ(Record.ReturnType.IsSet(), Case.bRead) << Case.Text;
	}
}

TEST(FunctionRecord, NeedsANameAndDropsParametersWithoutAType)
{
	const FGraphBuilder Editor; // types are looked up among the editor's classes
	FBPFunctionModification Record;
	EXPECT_FALSE(PopulateRecords::ParseFunction(*Json(R"({"name":""})"), Record));
	EXPECT_TRUE(PopulateRecords::ParseFunction(*Json(R"({"name":"F","is_delegate":true,"parameters":[
		{"name":"A","type":{"category":"int"}},{"name":"B"},5,{"name":"C","direction":"Input","type":{"category":"bool"}}]})"),
		Record));
	EXPECT_TRUE(Record.bIsDelegate);
	ASSERT_EQ(Record.Parameters.Num(), 2);
	EXPECT_TRUE(Record.Parameters[0].Direction.IsEmpty());
	EXPECT_EQ(Record.Parameters[1].Direction, TEXT("Input"));
}
