#include "Utils/Graph/NodeEditing.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "GameplayTagsK2Node_SwitchGameplayTag.h"
#include "GameplayTagsManager.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Composite.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Select.h"
#include "K2Node_SwitchEnum.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Modifying.h"
#include "Utils/Graph/NodePins.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace NodeEditingTest
{
const std::string Print = CallNode("p", "KismetSystemLibrary", "PrintString");
const std::string Boom = R"({"node_guid":"c","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Boom"}})";

static std::string Typed(const std::string& Category, const std::string& More = "")
{
	return R"("type":{"category":")" + Category + "\"" + More + "}";
}

static std::string EntryOf(const FGuid& Guid, const std::string& Pins)
{
	return R"({"action":"modify","node_guid":")" + ToStd(Guid.ToString()) + R"(","pins":[)" + Pins + "]}";
}

/** The warning in the words of the node editor, without the run's own. */
static std::string FirstWarning(const FModifying& Case)
{
	return Warnings(*Case.Result).empty() ? "" : Warnings(*Case.Result)[0];
}

static const UEdGraph* FunctionGraph(FModifying& Case)
{
	RunTool(TEXT("bp_create_graph"),
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Fire","parameters":[{"name":"Power","type":{"category":"float"}}],
			"return_type":{"category":"bool"}},{"name":"OnFired","is_delegate":true}]})");
	return Case.Graph(TEXT("Fire"));
}
} // namespace NodeEditingTest

using namespace NodeEditingTest;

TEST(NodeEditor, ReadsDirectionWords)
{
	EXPECT_EQ(NodePins::ParsePinDirection(TEXT("Input")).Get(EGPD_MAX), EGPD_Input);
	EXPECT_EQ(NodePins::ParsePinDirection(TEXT("in")).Get(EGPD_MAX), EGPD_Input);
	EXPECT_EQ(NodePins::ParsePinDirection(TEXT("OUTPUT")).Get(EGPD_MAX), EGPD_Output);
	EXPECT_EQ(NodePins::ParsePinDirection(TEXT("out")).Get(EGPD_MAX), EGPD_Output);
	EXPECT_FALSE(NodePins::ParsePinDirection(TEXT("outward")));
}

TEST(NodeEditor, NoNodeIsAWarning)
{
	Morvane::FToolResult Result = MakeResult();
	EXPECT_FALSE(FBlueprintNodeEditing::ModifyNode(nullptr, FBPNodeModification(), Result));
	EXPECT_THAT(Warnings(Result), ElementsAre("Node is null"));
}

TEST(NodeEditor, TitlesBelongToEventsAndFormulas)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + Print + "," + Boom + "," + ClassNode("m", "K2Node_MathExpression", "a + b") + "]");
	Case.Make("\"nodes\":[" + CallNode("call", "BP_Test", "Boom") + "]");
	const auto Rename = [&Case](const char* Id, const std::string& Title)
	{
		Case.ModifyNodes(Case.Change(Id, R"("menu_title":")" + Title + "\""));
		return FirstWarning(Case);
	};
	// The node's own title, in any form that a read shows, is no request.
	for (const char* const Own : {"Print String", "print string"})
	{
		EXPECT_EQ(Rename("p", Own), "");
	}
	EXPECT_EQ(Rename("c", "Boom"), "");
	EXPECT_EQ(Rename("c", R"(Boom\nCustom Event)"), "");
	EXPECT_EQ(Rename("p", "Speak"),
		"Cannot rename node title for node type 'K2Node_CallFunction'. Only Math Expression and Custom Event nodes support title renaming.");
	EXPECT_EQ(Rename("c", "ReceiveTick"),
		"Failed to rename node 'Boom\nCustom Event', validation result: \"ReceiveTick\" is already in use.");
	EXPECT_THAT(Rename("c", "A.B"), HasSubstr("validation result: \"A.B\" "));
	EXPECT_EQ(Rename("c", "Bang"), "");
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(testing::AllOf(HasSubstr(R"(Boom\nCustom Event)"), HasSubstr(R"(Bang\nCustom Event)"))));
	EXPECT_EQ(Rename("m", "a * b + 2"), "");
	EXPECT_THAT(Rename("m", "a * ("), HasSubstr("Math expression 'a * (' makes no graph: "));
	EXPECT_EQ(Rename("m", "a * 3"), "");
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_EQ(Cast<UK2Node_CustomEvent>(Case.Node("c"))->CustomFunctionName, FName(TEXT("Bang")));
	EXPECT_EQ(Cast<UK2Node_CallFunction>(Case.Node("call"))->GetFunctionName(), FName(TEXT("Bang")))
		<< "its call follows";
	EXPECT_THAT(FModifying::PinNames(Case.Node("m")), ElementsAre("a", "ReturnValue"));
	EXPECT_TRUE(Case.Blueprint.Compiles());
}

TEST(NodeEditor, CommentsShow)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + Print + "]");
	Case.ModifyNodes(Case.Change("p", R"("comment":"says hello")"));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_EQ(ToStd(Case.Node("p")->NodeComment), "says hello");
	EXPECT_TRUE(Case.Node("p")->bCommentBubbleVisible);
	Case.ModifyNodes(Case.Change("p", R"("comment":"")"));
	EXPECT_FALSE(Case.Node("p")->bCommentBubbleVisible);
}

TEST(NodeEditor, NodesWithOneMorePinGiveAndTakeIt)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + ClassNode("sequence", "K2Node_ExecutionSequence", "Sequence") + ","
		+ ClassNode("gate", "K2Node_MultiGate", "MultiGate") + "," + ClassNode("select", "K2Node_Select", "Select")
		+ "," + ClassNode("string", "K2Node_SwitchString", "Switch on String") + ","
		+ ClassNode("name", "K2Node_SwitchName", "Switch on Name") + ","
		+ ClassNode("int", "K2Node_SwitchInteger", "Switch on Int") + ","
		+ ClassNode("array", "K2Node_MakeArray", "Make Array") + "," + ClassNode("set", "K2Node_MakeSet", "Make Set")
		+ "," + ClassNode("map", "K2Node_MakeMap", "Make Map") + ","
		+ CallNode("and", "KismetMathLibrary", "BooleanAND") + ","
		+ CallNode("add", "KismetMathLibrary", "Add_DoubleDouble") + "]");
	struct FRow
	{
		const char* Id;
		/** Added, then removed. */
		const char* Pin;
		std::vector<std::string> With;
	};
	const FRow Rows[] = {
		{"sequence", "then_2", {"execute", "then_0", "then_1", "then_2"}},
		{"select", "Option 2", {"Option 0", "Option 1", "Option 2", "Index", "ReturnValue"}},
		{"string", "Open", {"Default", "execute", "Selection", "Open"}},
		{"name", "Shut", {"Default", "execute", "Selection", "Shut"}},
		{"int", "0", {"Default", "execute", "Selection", "0"}},
		{"array", "[1]", {"Array", "[0]", "[1]"}},
		{"set", "[1]", {"Set", "[0]", "[1]"}},
		{"and", "C", {"A", "B", "ReturnValue", "C"}},
	};
	for (const FRow& Row : Rows)
	{
		const std::vector<std::string> Before = FModifying::PinNames(Case.Node(Row.Id));
		Case.ModifyNodes(Case.Pins(Row.Id, Pin("add", Row.Pin)));
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << Row.Id;
		EXPECT_THAT(FModifying::PinNames(Case.Node(Row.Id)), testing::UnorderedElementsAreArray(Row.With)) << Row.Id;
		Case.ModifyNodes(Case.Pins(Row.Id, Pin("add", Row.Pin)));
		EXPECT_THAT(FirstWarning(Case), HasSubstr(std::string("Found existing pin '") + Row.Pin + "' on node '"))
			<< Row.Id;
		ASSERT_TRUE(Case.Blueprint.Reload());
		EXPECT_THAT(FModifying::PinNames(Case.Node(Row.Id)), testing::UnorderedElementsAreArray(Row.With)) << Row.Id;
		Case.ModifyNodes(Case.Pins(Row.Id, Pin("remove", Row.Pin)));
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << Row.Id;
		EXPECT_THAT(FModifying::PinNames(Case.Node(Row.Id)), testing::UnorderedElementsAreArray(Before)) << Row.Id;
		Case.ModifyNodes(Case.Pins(Row.Id, Pin("remove", Row.Pin)));
		EXPECT_THAT(FirstWarning(Case), HasSubstr(std::string("Could not find pin '") + Row.Pin + "' on node '"))
			<< Row.Id;
	}
	Case.ModifyNodes(Case.Pins("map", Pin("add", "more")));
	EXPECT_THAT(
		Successes(*Case.Result), Contains("Node 'Make Map' names its pins itself: 'more' became 'Key 1', 'Value 1'"));
	Case.ModifyNodes(Case.Pins("add", Pin("add", "C")));
	EXPECT_EQ(FModifying::PinNames(Case.Node("add")).size(), 4u);
}

TEST(NodeEditor, WhatANodeNeedsItKeeps)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + Print + "," + ClassNode("sequence", "K2Node_ExecutionSequence", "Sequence") + ","
		+ ClassNode("select", "K2Node_Select", "Select") + "," + ClassNode("array", "K2Node_MakeArray", "Make Array")
		+ "," + ClassNode("format", "K2Node_FormatText", "Format Text") + "]");
	const auto Try = [&Case](const char* Id, const std::string& Pin)
	{
		const std::vector<std::string> Before = FModifying::PinNames(Case.Node(Id));
		Case.ModifyNodes(Case.Pins(Id, Pin));
		EXPECT_EQ(FModifying::PinNames(Case.Node(Id)), Before) << Id << Pin;
		return FirstWarning(Case);
	};
	EXPECT_EQ(Try("sequence", Pin("remove", "then_0")), "Can not remove exec pin 'then_0' from node 'Sequence");
	EXPECT_EQ(Try("sequence", Pin("remove", "execute")), "Can not remove exec pin 'execute' from node 'Sequence");
	EXPECT_EQ(Try("p", Pin("remove", "then")), "Can not remove exec pin 'then' from node 'Print String");
	EXPECT_EQ(Try("p", Pin("remove", "InString")), "Remove pin not allowed for node 'Print String'");
	EXPECT_EQ(Try("p", Pin("add", "More")), "unsupported pin type 'More'");
	EXPECT_EQ(Try("select", Pin("remove", "Option 1")), "Remove pin not allowed for node 'Select'");
	EXPECT_EQ(Try("array", Pin("remove", "Array")), "Remove pin not allowed for node 'Make Array'");
	EXPECT_EQ(Try("format", Pin("add", "Who")), "Add pin not allowed for node 'Format Text'");
	EXPECT_EQ(Try("p", Value("Nope", "1")), "Could not find pin 'Nope' on node 'Print String'");
	EXPECT_EQ(
		Try("p", Pin("modify", "InString")), "Could not modify pin 'InString'. Neither a value nor a type is given");
	EXPECT_EQ(Try("p", Pin("modify", "InString", Typed("int"))),
		"Could not change the type of pin 'InString' on node 'Print String'. It is no parameter that was made in this graph.");
	// A pattern makes its own arguments.
	Case.ModifyNodes(Case.Pins("format", Value("Format", "Hello {Who}")));
	EXPECT_THAT(FModifying::PinNames(Case.Node("format")), Contains("Who"));
	EXPECT_EQ(Try("format", Pin("remove", "Who")), "Remove pin not allowed for node 'Format Text'");
}

TEST(NodeEditor, SelectGivesUpItsLastOptionAndSaysSo)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + ClassNode("s", "K2Node_Select", "Select") + "]");
	Case.ModifyNodes(Case.Pins("s", Pin("add", "Option 2") + "," + Pin("remove", "Option 0")));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("Node 'Select' gives up its last option: 'Option 2' was removed, not 'Option 0'"));
	TArray<UEdGraphPin*> Options;
	Cast<UK2Node_Select>(Case.Node("s"))->GetOptionPins(Options);
	EXPECT_EQ(Options.Num(), 2);
}

TEST(NodeEditor, EnumSwitchesFollowTheirEnum)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + LooseNode("s", "Switch on EMovementMode") + "]");
	ASSERT_TRUE(Cast<UK2Node_SwitchEnum>(Case.Node("s")));
	Case.ModifyNodes(Case.Pins("s", Pin("add", "MOVE_More") + "," + Pin("remove", "MOVE_Walking")));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre("Add pin not allowed for node 'Switch on EMovementMode'",
			"Can not remove exec pin 'MOVE_Walking' from node 'Switch on EMovementMode",
			HasSubstr("node_modification_failure")));
}

TEST(NodeEditor, TagSwitchesAreToldByTags)
{
	FModifying Case;
	UGameplayTagsManager::Get().AddNativeGameplayTag(TEXT("Native.Fire"));
	UGameplayTagsManager::Get().AddNativeGameplayTag(TEXT("Native.Ice"));
	Case.Make("\"nodes\":[" + ClassNode("tag", "GameplayTagsK2Node_SwitchGameplayTag", "Switch on Gameplay Tag") + ","
		+ ClassNode("tags", "GameplayTagsK2Node_SwitchGameplayTagContainer", "Switch on Gameplay Tag Container") + "]");
	for (const char* const Id : {"tag", "tags"})
	{
		const std::string Title = ToStd(Case.Node(Id)->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
		Case.ModifyNodes(Case.Pins(Id,
			Pin("add", "Native.Fire") + "," + Pin("add", "Native.Fire") + "," + Pin("add", "No.Such.Tag") + ","
				+ Pin("remove", "No.Such.Tag") + "," + Pin("remove", "Native.Ice")));
		EXPECT_THAT(Warnings(*Case.Result),
			ElementsAre("Found existing pin 'Native.Fire' on node '" + Title + "'",
				"Failed to add new pin 'No.Such.Tag'. GameplayTag is invalid",
				"Failed to remove pin 'No.Such.Tag'. GameplayTag is invalid",
				"Could not find pin 'Native.Ice' on node '" + Title + "'"));
		ASSERT_TRUE(Case.Blueprint.Reload());
		EXPECT_THAT(FModifying::PinNames(Case.Node(Id)), Contains("Native.Fire"));
		Case.ModifyNodes(Case.Pins(Id, Pin("remove", "Native.Fire")));
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
		EXPECT_THAT(FModifying::PinNames(Case.Node(Id)), Not(Contains("Native.Fire")));
	}
	EXPECT_TRUE(Cast<UGameplayTagsK2Node_SwitchGameplayTag>(Case.Node("tag"))->PinTags.IsEmpty());
}

TEST(NodeEditor, ParametersComeGoAndChange)
{
	FModifying Case;
	const UEdGraph* const Fire = FunctionGraph(Case);
	Case.Make("\"nodes\":[" + CallNode("f", "BP_Test", "Fire") + "]");
	const FGuid Entry = FPopulating::FindNode<UK2Node_FunctionEntry>(Fire)->NodeGuid;
	const FGuid Return = FPopulating::FindNode<UK2Node_FunctionResult>(Fire)->NodeGuid;
	Case.ModifyNodes(
		EntryOf(Entry,
			Pin("add", "Who",
				Typed("object", R"(,"sub_category_object":"/Script/Engine.Actor")") + R"(,"direction":"output")")
				+ "," + Pin("add", "Count", Typed("int") + R"(,"value":"3")") + "," + Pin("add", "power", Typed("int")))
			+ "," + EntryOf(Return, Pin("add", "Hit", Typed("name")) + "," + Pin("remove", "ReturnValue")),
		"Fire");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Found existing pin 'power' on node 'Fire'"));
	EXPECT_THAT(FModifying::PinNames(Case.Node("f")), ElementsAre("execute", "then", "Power", "Who", "Count", "Hit"))
		<< "its call follows";
	EXPECT_EQ(ToStd(Case.Node("f")->FindPin(TEXT("Count"))->DefaultValue), "3");

	Case.ModifyNodes(Case.Pins("f", Value("Power", "2.5")));
	Case.ModifyNodes(EntryOf(Entry, Pin("modify", "Power", Typed("string")) + "," + Pin("remove", "Who")), "Fire");
	EXPECT_EQ(Case.Node("f")->FindPin(TEXT("Power"))->PinType.PinCategory, UEdGraphSchema_K2::PC_String);
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_TRUE(Case.Blueprint.Compiles());
	EXPECT_THAT(FModifying::PinNames(Case.Graph(TEXT("Fire"))->Nodes[0]), ElementsAre("then", "Power", "Count"));
}

TEST(NodeEditor, ANewParametersValueIsCheckedAsAnyOther)
{
	FModifying Case;
	const UEdGraph* const Fire = FunctionGraph(Case);
	Case.Make("\"nodes\":[" + Boom + "]");
	const std::string Entry = ToStd(FPopulating::FindNode<UK2Node_FunctionEntry>(Fire)->NodeGuid.ToString());
	const std::string Return = ToStd(FPopulating::FindNode<UK2Node_FunctionResult>(Fire)->NodeGuid.ToString());
	const std::string Vector = Typed("struct", R"(,"sub_category_object":"Vector")");
	struct FRow
	{
		const char* Name;
		std::string More;
		const char* Held;
		const char* Words;
	};
	const FRow Rows[] = {
		{"Number", Typed("int") + R"(,"value":7)", "7", ""},
		{"NoNumber", Typed("int") + R"(,"value":"abc")", "", "'abc' is not a valid integer"},
		{"Place", Vector + R"(,"value":[1,2,3])", "1.000000,2.000000,3.000000", ""},
		{"NoPlace", Vector + R"(,"value":"here")", "", "'here' is not a valid Vector"},
		{"Thing", Typed("object", R"(,"sub_category_object":"Actor")") + R"(,"value":"/Game/No.No")", "",
			"Asset not found in registry: /Game/No.No"},
		{"Kind", Typed("class", R"(,"sub_category_object":"Actor")") + R"(,"value":"Pawn")", "/Script/Engine.Pawn", ""},
		{"Channel", Typed("byte", R"(,"sub_category_object":"ECollisionChannel")") + R"(,"value":"Pawn")", "ECC_Pawn",
			""},
	};
	for (const FRow& Row : Rows)
	{
		for (const auto& [Node, Graph] : {std::pair(Case.Id("c"), "EventGraph"), std::pair(Entry, "Fire")})
		{
			Case.ModifyNodes(
				R"({"action":"modify","node_guid":")" + Node + R"(","pins":[)" + Pin("add", Row.Name, Row.More) + "]}",
				Graph);
			EXPECT_THAT(FirstWarning(Case), HasSubstr(Row.Words)) << Row.Name;
			EXPECT_EQ(FirstWarning(Case).empty(), std::string(Row.Words).empty()) << Row.Name;
			const UEdGraphNode* const Made = FBlueprintMatchingUtils::FindNodeByGuid(
				Case.Graph(UTF8_TO_TCHAR(Graph)), UTF8_TO_TCHAR(Node.c_str()));
			const UEdGraphPin* const Parameter = Made->FindPin(Row.Name);
			ASSERT_NE(Parameter, nullptr) << Row.Name << ": the parameter stands without the value";
			EXPECT_EQ(ToStd(Parameter->GetDefaultAsString()), Row.Held) << Row.Name;
		}
	}
	// All results of a function share it.
	Case.Make("\"nodes\":[" + ClassNode("r", "K2Node_FunctionResult", "Add Return Node...") + "]", "Fire");
	Case.ModifyNodes(R"({"action":"modify","node_guid":")" + Return + R"(","pins":[)"
			+ Pin("add", "Left", Typed("int") + R"(,"value":"5")") + "]}",
		"Fire");
	EXPECT_EQ(ToStd(Case.Node("r", TEXT("Fire"))->FindPin(TEXT("Left"))->DefaultValue), "5");
	EXPECT_TRUE(Case.Blueprint.Compiles());
}

TEST(NodeEditor, WrongParametersAreRefusedInWords)
{
	FModifying Case;
	const UEdGraph* const Fire = FunctionGraph(Case);
	Case.Make("\"nodes\":[" + Boom + "]");
	const std::string Entry = ToStd(FPopulating::FindNode<UK2Node_FunctionEntry>(Fire)->NodeGuid.ToString());
	const std::string Return = ToStd(FPopulating::FindNode<UK2Node_FunctionResult>(Fire)->NodeGuid.ToString());
	Case.Modify(R"("local_variables":{"Mine":{"type":{"category":"int"}}})", "Fire");
	struct FRow
	{
		std::string Node;
		const char* Graph;
		std::string Pin;
		const char* Words;
	};
	const std::string Int = Typed("int");
	const FRow Rows[] = {
		{Entry, "Fire", Pin("add", "A", Int + R"(,"direction":"input")"),
			"Cannot add input pins to function entry node!"},
		{Return, "Fire", Pin("add", "A", Int + R"(,"direction":"out")"),
			"Cannot add output pins to function result node!"},
		{Case.Id("c"), "EventGraph", Pin("add", "A", Int + R"(,"direction":"in")"), "Cannot add input pins"},
		{Entry, "Fire", Pin("add", "A", Int + R"(,"direction":"sideways")"),
			"The direction 'sideways' is neither input nor output."},
		{Entry, "Fire", Pin("add", "A"), "It needs a 'type'."},
		{Entry, "Fire", Pin("add", "A", Typed("struct", R"(,"sub_category_object":"/Script/No.Such")")),
			"means nothing."},
		{Entry, "Fire", Pin("add", "A", Typed("exec")), "Cannot add exec pins to a function!"},
		{Entry, "Fire", Pin("add", "Mine", Int), "A local variable has that name."},
		{Entry, "Fire", Pin("add", " ", Int), "It needs a name."},
	};
	for (const FRow& Row : Rows)
	{
		Case.ModifyNodes(
			R"({"action":"modify","node_guid":")" + Row.Node + R"(","pins":[)" + Row.Pin + "]}", Row.Graph);
		EXPECT_THAT(FirstWarning(Case), HasSubstr(Row.Words)) << Row.Pin;
		EXPECT_THAT(Case.Closing(), HasSubstr("Nothing was modified")) << Row.Pin;
	}
	// An override's parameters are its parent's.
	const UEdGraph* const Script = FBlueprintEditorUtils::FindUserConstructionScript(Case.Blueprint.Get());
	Case.ModifyNodes(EntryOf(Script->Nodes[0]->NodeGuid, Pin("add", "A", Int)), "UserConstructionScript");
	EXPECT_THAT(FirstWarning(Case), HasSubstr("The node's parameters are declared elsewhere."));
	Case.ModifyNodes(Case.Pins("c", Pin("remove", "OutputDelegate")));
	EXPECT_EQ(FirstWarning(Case), "Remove pin not allowed for node 'Boom\nCustom Event'");
}

TEST(NodeEditor, CollapsedGraphsAreChangedAtTheirEnds)
{
	FModifying Case;
	UK2Node_Composite* const Collapsed = Case.Blueprint.EventGraph().Add<UK2Node_Composite>();
	const std::string Inner = ToStd(Collapsed->BoundGraph->GetName());
	Case.Ids["box"] = ToStd(Collapsed->NodeGuid.ToString());
	Case.Ids["in"] = ToStd(Collapsed->GetEntryNode()->NodeGuid.ToString());
	Case.ModifyNodes(Case.Pins("box",
		Pin("add", "Count", Typed("int")) + "," + Pin("add", "Done", Typed("bool") + R"(,"direction":"output")")));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_THAT(FModifying::PinNames(Case.Node("box")), ElementsAre("Count", "Done"));
	Case.ModifyNodes(Case.Pins("in", Pin("add", "Go", Typed("exec"))), Inner);
	EXPECT_THAT(FModifying::PinNames(Case.Node("box")), ElementsAre("Count", "Go", "Done"));
	Case.ModifyNodes(Case.Pins("box", Pin("remove", "Count")));
	Case.ModifyNodes(Case.Pins("in", Pin("remove", "Go")), Inner);
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_THAT(FModifying::PinNames(Case.Node("box")), ElementsAre("Done"));
}

TEST(NodeEditor, ValuesAreCheckedAndObjectsAreLookedFor)
{
	FModifying Case;
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Other","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Pawn"}})");
	Case.Make("\"nodes\":[" + EventNode("e", "ReceiveBeginPlay") + "," + Print + ","
		+ CallNode("spawn", "GameplayStatics", "GetAllActorsOfClass") + ","
		+ CallNode("sound", "GameplayStatics", "PlaySound2D") + "],\"connections\":["
		+ Link("e", "then", "p", "execute") + "]");
	const auto Set = [&Case](const char* Id, const char* Pin, const std::string& Text)
	{
		Case.ModifyNodes(Case.Pins(Id, Value(Pin, Text)));
		return FirstWarning(Case);
	};
	const UEdGraphPin* const Class = Case.Node("spawn")->FindPin(TEXT("ActorClass"));
	for (const char* const Text : {"/Game/Tests/BP_Other", "/Game/Tests/BP_Other.BP_Other_C", "BP_Other",
			 "Class'/Game/Tests/BP_Other.BP_Other_C'"})
	{
		EXPECT_EQ(Set("spawn", "ActorClass", "/Script/Engine.Pawn"), "");
		EXPECT_EQ(Set("spawn", "ActorClass", Text), "") << Text;
		ASSERT_TRUE(Class->DefaultObject) << Text;
		EXPECT_EQ(ToStd(Class->DefaultObject->GetName()), "BP_Other_C") << Text;
	}
	EXPECT_EQ(Set("spawn", "ActorClass", "Pawn"), "");
	EXPECT_EQ(ToStd(Class->DefaultObject->GetName()), "Pawn");
	struct FRow
	{
		const char* Id;
		const char* Pin;
		const char* Text;
		const char* Words;
	};
	for (const FRow& Row :
		{FRow{"spawn", "ActorClass", "/Game/Tests/BP_None", "Asset not found in registry: /Game/Tests/BP_None"},
			{"spawn", "ActorClass", "/Script/Engine.NoSuchClass",
				"Failed to load or find object: /Script/Engine.NoSuchClass"},
			{"spawn", "ActorClass", "/Game/../x", "Invalid asset path format: /Game/../x"},
			{"sound", "Sound", "Boom", "Invalid asset path format: Boom"},
			{"sound", "Sound", "/Game/Tests/BP_Other", "pin 'Sound' takes a SoundBase"},
			{"sound", "VolumeMultiplier", "loud", "'loud' is not a valid number"},
			{"p", "execute", "1",
				"Pin is connected to another pin. Break the connection if you want to set a manual value."},
			{"p", "then", "1", "Pin is an output, and its node gives it its value."}})
	{
		EXPECT_THAT(Set(Row.Id, Row.Pin, Row.Text), HasSubstr(Row.Words)) << Row.Text;
	}
	EXPECT_EQ(ToStd(Class->DefaultObject->GetName()), "Pawn") << "what was there stays";
	EXPECT_EQ(Set("p", "InString", ""), "");
	EXPECT_EQ(ToStd(Case.Node("p")->FindPin(TEXT("InString"))->DefaultValue), "") << "an empty value is a value";
	EXPECT_EQ(Set("spawn", "ActorClass", "None"), "");
	EXPECT_FALSE(Class->DefaultObject);
}

TEST(NodeEditor, ASplitPinHasTheValuesOfItsParts)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + CallNode("v", "KismetMathLibrary", "VSize") + "]");
	UEdGraphPin* const Whole = Case.Node("v")->FindPin(TEXT("A"));
	GetDefault<UEdGraphSchema_K2>()->SplitPin(Whole);
	Case.ModifyNodes(Case.Pins("v", Value("A", "1,2,3") + "," + Value("A_X", "4") + "," + Value("A Y", "5")));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"Failed to set value of pin 'A' to '1,2,3'. Pin is split, and its parts have values: A_X, A_Y, A_Z"));
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_EQ(ToStd(Case.Node("v")->FindPin(TEXT("A_X"))->DefaultValue), "4");
	EXPECT_EQ(ToStd(Case.Node("v")->FindPin(TEXT("A_Y"))->DefaultValue), "5");
}

TEST(NodeEditor, ChosenDelegatesTakeFunctions)
{
	FModifying Case;
	FunctionGraph(Case);
	Case.Make("\"nodes\":[" + Boom + "," + ClassNode("d", "K2Node_CreateDelegate", "Create Event") + "]");
	const auto Choose = [&Case](const char* Name)
	{
		Case.ModifyNodes(Case.Pins("d", Value("OutputDelegate", Name)));
		return FirstWarning(Case);
	};
	EXPECT_EQ(Choose("NoSuch"), "Could not modify pin 'OutputDelegate'");
	EXPECT_EQ(Choose("boom"), "");
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_EQ(Cast<UK2Node_CreateDelegate>(Case.Node("d"))->GetFunctionName(), FName(TEXT("Boom")));
}

TEST(NodeEditor, CallsArePointedAtOtherFunctions)
{
	FModifying Case;
	FunctionGraph(Case);
	Case.Make("\"nodes\":[" + EventNode("e", "ReceiveBeginPlay") + ","
		+ CallNode(
			"p", "KismetSystemLibrary", "PrintString", R"("pins":[{"action":"modify","name":"InString","value":"Hi"}])")
		+ "," + CallNode("d", "KismetSystemLibrary", "Delay") + "],\"connections\":["
		+ Link("e", "then", "p", "execute") + "," + Link("p", "then", "d", "execute") + "]");
	const auto Aim = [&Case](const std::string& Function, const std::string& Class, const std::string& More = "")
	{
		Case.ModifyNodes(Case.Change("p",
			R"("metadata":{"FunctionName":")" + Function + "\""
				+ (Class.empty() ? "" : R"(,"ClassName":")" + Class + "\"") + "}" + More));
		return FirstWarning(Case);
	};
	struct FRow
	{
		const char* Function;
		const char* Class;
		const char* Expected;
	};
	for (const FRow& Row : {FRow{"PrintText", "", "PrintText"}, {"K2_DestroyActor", "Actor", "K2_DestroyActor"},
			 {"FTrunc", "UKismetMathLibrary", "FTrunc"},
			 {"PrintText", "/Script/Engine.KismetSystemLibrary", "PrintText"}, {"Fire", "BP_Test", "Fire"},
			 {"Fire", "/Game/Tests/BP_Test", "Fire"}, {"Fire", "/Game/Tests/BP_Test.BP_Test_C", "Fire"},
			 {"Fire", "self", "Fire"}, {"SetRenderOpacity", "Widget", "SetRenderOpacity"},
			 {"PrintString", "KismetSystemLibrary", "PrintString"}})
	{
		Aim(Row.Function, Row.Class);
		EXPECT_EQ(ToStd(Cast<UK2Node_CallFunction>(Case.Node("p"))->GetFunctionName().ToString()), Row.Expected)
			<< Row.Class;
	}
	EXPECT_EQ(Aim("PrintString", "NoSuchClass"), "Class 'NoSuchClass' not found");
	EXPECT_EQ(Aim("PrintString", "/Script/Engine.NoSuch"), "Failed to load or find object: /Script/Engine.NoSuch");
	EXPECT_THAT(Warnings(*Case.Result), Contains("Class '/Script/Engine.NoSuch' not found"));
	EXPECT_EQ(Aim("Shout", ""), "Function 'Shout' not found in class 'KismetSystemLibrary'");
	EXPECT_EQ(Aim("Shout", "KismetMathLibrary"), "Function 'Shout' not found in class 'KismetMathLibrary'");
	EXPECT_EQ(ToStd(Cast<UK2Node_CallFunction>(Case.Node("p"))->GetFunctionName().ToString()), "PrintString");

	// A function with an execution flow keeps the links; values go to the new pins in the same entry.
	Case.ModifyNodes(Case.Pins("p", Value("InString", "Bye")));
	EXPECT_THAT(Aim("PrintText", "", R"(,"pins":[{"action":"modify","name":"InText","value":"Hello"}])"),
		HasSubstr("they are removed: InString = Bye"));
	EXPECT_EQ(Case.Node("p")->FindPin(TEXT("then"))->LinkedTo.Num(), 0) << "the pure FTrunc let the flow go past it";
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_EQ(ToStd(Case.Node("p")->FindPin(TEXT("InText"))->DefaultTextValue.ToString()), "Hello");
	EXPECT_TRUE(Case.Blueprint.Compiles());
	Case.ModifyNodes(Case.Change("e", R"("metadata":{"FunctionName":"PrintText"})"));
	EXPECT_EQ(FirstWarning(Case), "Node 'Event BeginPlay' is no function call, so FunctionName does not apply to it");
}

TEST(NodeEditor, CallsOfAnotherKindStayWhatTheyAre)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + CallNode("p", "KismetSystemLibrary", "PrintString") + ","
		+ CallNode("clear", "KismetArrayLibrary", "Array_Clear") + ","
		+ ClassNode("add", "K2Node_PromotableOperator", "Add") + "," + CallNode("or", "KismetMathLibrary", "BooleanOR")
		+ "]");
	const auto Aim = [&Case](const char* Id, const char* Function, const char* Class)
	{
		Case.ModifyNodes(Case.Change(
			Id, std::string(R"("metadata":{"FunctionName":")") + Function + R"(","ClassName":")" + Class + "\"}"));
		return FirstWarning(Case);
	};
	const auto Words = [](const char* Wanted, const char* Own)
	{ return HasSubstr(std::string("its calls are nodes of class ") + Wanted + ", and this one is a " + Own); };
	EXPECT_THAT(
		Aim("p", "Array_Clear", "KismetArrayLibrary"), Words("K2Node_CallArrayFunction", "K2Node_CallFunction"));
	EXPECT_THAT(
		Aim("clear", "PrintString", "KismetSystemLibrary"), Words("K2Node_CallFunction", "K2Node_CallArrayFunction"));
	EXPECT_THAT(Aim("add", "Add_IntInt", "KismetMathLibrary"),
		HasSubstr("an operator takes the function that fits what is linked to it"));
	EXPECT_THAT(Aim("or", "PrintString", "KismetSystemLibrary"),
		Words("K2Node_CallFunction", "K2Node_CommutativeAssociativeBinaryOperator"));
	EXPECT_THAT(Case.Closing(), HasSubstr("Nothing was modified"));
	EXPECT_EQ(Aim("clear", "Array_Shuffle", "KismetArrayLibrary"), "");
	EXPECT_EQ(Aim("or", "BooleanAND", "KismetMathLibrary"), "");
	EXPECT_EQ(Aim("p", "BooleanOR", "KismetMathLibrary"), "") << "a plain call of an operator";
}

TEST(NodeEditor, ACallThatIsPointedElsewhereLosesATargetThatDoesNotFit)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + CallNode("pawn", "GameplayStatics", "GetPlayerPawn") + ","
		+ CallNode("c", "Pawn", "AddControllerYawInput") + "],\"connections\":["
		+ Link("pawn", "ReturnValue", "c", "self") + "]");
	const auto Aim = [&Case](const char* Function, const char* Class)
	{
		Case.ModifyNodes(Case.Change(
			"c", std::string(R"("metadata":{"FunctionName":")") + Function + R"(","ClassName":")" + Class + "\"}"));
		return Case.Node("c")->FindPin(TEXT("self"))->LinkedTo.Num();
	};
	EXPECT_EQ(Aim("K2_DestroyActor", "Actor"), 1) << "a pawn is an actor";
	EXPECT_EQ(Aim("PrintText", "KismetSystemLibrary"), 0);
	EXPECT_THAT(FirstWarning(Case), HasSubstr(".ReturnValue -> Print Text"));

	const auto HeldTarget = [&Case]()
	{
		const UObject* const Held = Case.Node("c")->FindPin(TEXT("self"))->DefaultObject;
		return Held ? ToStd(Held->GetName()) : "";
	};
	EXPECT_EQ(HeldTarget(), "Default__KismetSystemLibrary");
	Aim("Len", "KismetStringLibrary");
	EXPECT_EQ(HeldTarget(), "Default__KismetStringLibrary");
	Aim("K2_DestroyActor", "Actor");
	EXPECT_EQ(HeldTarget(), "") << "a library is no actor";
}

TEST(PinLookup, AliasesAnswerWithPinsThatAnAuthorSees)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + CallNode("self", "Actor", "K2_GetActorLocation") + ","
		+ CallNode("interp", "KismetMathLibrary", "VInterpTo") + "],\"connections\":["
		+ Link("self", "return value", "interp", "target") + "]");
	const UEdGraphPin* const Target = Case.Node("interp")->FindPin(TEXT("Target"), EGPD_Input);
	ASSERT_TRUE(Target);
	EXPECT_EQ(Target->LinkedTo.Num(), 1);
	Case.ModifyNodes(Case.Pins("interp", Value("target", "(X=1)")));
	EXPECT_THAT(FirstWarning(Case), HasSubstr("Failed to set value of pin 'Target'"));
	Case.Unlink(Case.Cut("self", "ReturnValue", "interp", "TARGET"));
	EXPECT_TRUE(Target->LinkedTo.IsEmpty());
	// A library's call without such a parameter has no target at all.
	Case.Make(
		"\"nodes\":[" + Print + "],\"connections\":[" + Link(Case.Id("self"), "ReturnValue", "p", "target") + "]");
	EXPECT_THAT(Warnings(*Case.Result), Contains("[Failure] Target pin 'target' not found on node 'Print String'"));
}
