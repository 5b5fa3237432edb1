// What a record leaves open and its request says in another place, and nodes that stand in a graph already.

#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_InputAction.h"
#include "K2Node_InputAxisEvent.h"
#include "K2Node_Timeline.h"
#include "K2Node_VariableSet.h"
#include "Structuring.h"

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

namespace RequestCompletionTest
{
static std::string Wire(
	const std::string& Source, const std::string& SourcePin, const std::string& Target, const std::string& TargetPin)
{
	return R"({"source_node_guid":")" + Source + R"(","source_pin_name":")" + SourcePin + R"(","target_node_guid":")"
		+ Target + R"(","target_pin_name":")" + TargetPin + "\"}";
}

static UEdGraphNode* Find(const FPopulating& Run, UEdGraph& Graph, const std::string& Id)
{
	const std::string Guid = Run.GuidOf(Id);
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (ToStd(Node->NodeGuid.ToString()) == Guid)
		{
			return Node;
		}
	}
	return nullptr;
}

static UEdGraphNode* Find(const FPopulating& Run, const std::string& Id)
{
	return Find(Run, *Run.Blueprint->UbergraphPages[0], Id);
}

template <class TNode>
int CountOf(const UEdGraph& Graph)
{
	int Count = 0;
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		Count += Node->IsA<TNode>() ? 1 : 0;
	}
	return Count;
}

static int NumLinks(const UEdGraphNode* Node, const TCHAR* PinName)
{
	const UEdGraphPin* const Pin = Node ? Node->FindPin(PinName) : nullptr;
	return Pin ? Pin->LinkedTo.Num() : -1;
}
} // namespace RequestCompletionTest

using namespace RequestCompletionTest;

TEST(RequestCompletion, AnEventTakesItsNameFromItsTitle)
{
	FPopulating Run;
	Run.Nodes(R"({"node_guid":"a","class_name":"K2Node_CustomEvent","menu_title":"Fire"},
		{"node_guid":"b","class_name":"K2Node_CustomEvent","menu_title":"Custom Event: Reload"},
		{"node_guid":"c","class_name":"K2Node_Event","menu_title":"Event ActorBeginOverlap"},
		{"node_guid":"d","class_name":"K2Node_CustomEvent","menu_title":"Other","node_metadata":{"event_name":"Own"}})");
	EXPECT_THAT(Errors(*Run.Result), IsEmpty());
	const auto NameOf = [&Run](const char* Id)
	{
		const UK2Node_Event* const Event = Cast<UK2Node_Event>(Find(Run, Id));
		return Event ? ToStd(Event->GetFunctionName().ToString()) : "none";
	};
	EXPECT_EQ(NameOf("a"), "Fire");
	EXPECT_EQ(NameOf("b"), "Reload");
	EXPECT_EQ(NameOf("c"), "ReceiveActorBeginOverlap");
	EXPECT_EQ(NameOf("d"), "Own");
}

TEST(RequestCompletion, ATitleThatNamesNoEventIsNoName)
{
	for (const char* const Title : {"", "Custom Event", "Add Custom Event...", "Event"})
	{
		FPopulating Run;
		Run.Nodes(std::string(R"({"node_guid":"a","class_name":"K2Node_CustomEvent","menu_title":")") + Title + "\"}");
		EXPECT_THAT(Errors(*Run.Result), Contains("Event requests must include node_metadata.event_name")) << Title;
	}
}

TEST(RequestCompletion, AWireIntoItsTargetTellsWhoseAVariableIs)
{
	FStructuring Run(TEXT("/Script/Engine.Character"));
	Run.Components(R"({"name":"Arm","type":"SpringArmComponent"})");
	const std::string Arm = R"({"node_guid":"arm","menu_title":"Get Arm"},)";
	const std::string Exact =
		R"({"node_guid":"set","class_name":"K2Node_VariableSet","node_metadata":{"variable_name":"TargetArmLength","variable_source_class":"/Script/Engine.SpringArmComponent"}})";
	const std::string Titled = R"({"node_guid":"set","menu_title":"Set Target Arm Length"})";
	for (const std::string& Set : {Exact, Titled})
	{
		Run.Populate(R"("nodes":[)" + Arm + Set + R"(],"connections":[)" + Wire("arm", "Arm", "set", "Target") + "]");
		EXPECT_THAT(Run.Told(), IsEmpty()) << Set;
		EXPECT_EQ(NumLinks(Find(Run, "set"), TEXT("self")), 1) << Set;
	}
	Run.Populate(R"("nodes":[)" + Arm + Exact + R"(],"connections":[])");
	EXPECT_THAT(Run.Told(), Contains(HasSubstr("source_class=present, owner_guid=missing, owner_pin=missing")));
	Run.Populate(R"("nodes":[)" + Arm + Titled + "]");
	EXPECT_THAT(Run.Told(), Contains(HasSubstr("is a variable of class 'SpringArmComponent'")));
}

TEST(RequestCompletion, AFunctionsEndsAreThoseThatStand)
{
	FPopulating Run;
	RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph,
		R"({"path":")" + ToStd(Run.Blueprint.Path())
			+ R"(","functions":[{"name":"F","parameters":[{"name":"In","type":{"category":"int"}}],"return_type":{"category":"int"}}]})");
	Run.Populate(
		R"("nodes":[{"node_guid":"in","class_name":"K2Node_FunctionEntry"},{"node_guid":"out","class_name":"K2Node_FunctionResult","menu_title":"Return Node"}],"connections":[)"
			+ Wire("in", "then", "out", "execute") + "," + Wire("in", "In", "out", "Return Value") + "]",
		"F");
	UEdGraph& Graph = *Run.Blueprint->FunctionGraphs.Last();
	EXPECT_EQ(CountOf<UK2Node_FunctionResult>(Graph), 1);
	EXPECT_EQ(NumLinks(Find(Run, Graph, "out"), TEXT("ReturnValue")), 1);
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	// The one end is taken now: who asks for an end again wants another.
	Run.Populate(
		R"("nodes":[{"node_guid":"more","class_name":"K2Node_FunctionResult","menu_title":"Return Node"}])", "F");
	EXPECT_EQ(CountOf<UK2Node_FunctionResult>(Graph), 2);
}

TEST(RequestCompletion, ATimelinesNodeIsTheOneThatStands)
{
	FStructuring Run;
	Run.Timelines(R"({"name":"Swing","length":1,"curves":[{"name":"Alpha","points":[{"time":0,"value":0}]}]})");
	Run.Populate(
		R"("nodes":[{"node_guid":"t","class_name":"K2Node_Timeline","menu_title":"swing"},{"node_guid":"b","menu_title":"Event BeginPlay"}],"connections":[)"
		+ Wire("b", "then", "t", "Play From Start") + "]");
	EXPECT_THAT(Run.Told(), IsEmpty());
	EXPECT_EQ(CountOf<UK2Node_Timeline>(*Run.Blueprint->UbergraphPages[0]), 1);
	EXPECT_EQ(NumLinks(Find(Run, "t"), TEXT("PlayFromStart")), 1);
}

TEST(RequestCompletion, InputAndComponentEventsAreToldByTheirNames)
{
	FStructuring Run(TEXT("/Script/Engine.Character"));
	Run.Components(R"({"name":"Trigger","type":"BoxComponent"})");
	Run.Nodes(R"({"node_guid":"axis","menu_title":"InputAxis MoveForward"},
		{"node_guid":"look","class_name":"K2Node_InputAxisEvent","node_metadata":{"input_axis_name":"LookUp"}},
		{"node_guid":"fire","class_name":"K2Node_InputAction","menu_title":"Fire"},
		{"node_guid":"hit","class_name":"K2Node_ComponentBoundEvent","node_metadata":{"event_name":"OnComponentBeginOverlap","component_name":"Trigger"}})");
	EXPECT_THAT(Run.Refused(), IsEmpty());
	const auto* const Axis = Cast<UK2Node_InputAxisEvent>(Find(Run, "axis"));
	const auto* const Look = Cast<UK2Node_InputAxisEvent>(Find(Run, "look"));
	const auto* const Fire = Cast<UK2Node_InputAction>(Find(Run, "fire"));
	const auto* const Hit = Cast<UK2Node_ComponentBoundEvent>(Find(Run, "hit"));
	ASSERT_TRUE(Axis && Look && Fire && Hit);
	EXPECT_EQ(ToStd(Axis->InputAxisName.ToString()), "MoveForward");
	EXPECT_EQ(ToStd(Look->InputAxisName.ToString()), "LookUp");
	EXPECT_EQ(ToStd(Fire->InputActionName.ToString()), "Fire");
	EXPECT_EQ(ToStd(Hit->ComponentPropertyName.ToString()), "Trigger");
}

TEST(RequestCompletion, ASetNodePassesItsVariableOnByName)
{
	FStructuring Run;
	Run.Variables(R"("bReady":{"action":"add","type":{"category":"bool"}})");
	Run.Populate(
		R"("nodes":[{"node_guid":"set","class_name":"K2Node_VariableSet","node_metadata":{"variable_name":"bReady"}},{"node_guid":"if","menu_title":"Branch"}],"connections":[)"
		+ Wire("set", "Ready", "if", "Condition") + "]");
	EXPECT_THAT(Run.Told(), IsEmpty());
	EXPECT_EQ(NumLinks(Find(Run, "set"), TEXT("Output_Get")), 1);
	EXPECT_EQ(NumLinks(Find(Run, "set"), TEXT("bReady")), 0);
}

TEST(RequestCompletion, OfNamesakesTheOneWithThePinsIsMeant)
{
	FStructuring Run;
	Run.Components(R"({"name":"Cube","type":"StaticMeshComponent"})");
	Run.Populate(
		R"("nodes":[{"node_guid":"cube","menu_title":"Get Cube"},{"node_guid":"rot","menu_title":"Get Actor Rotation"},
		{"node_guid":"mid","menu_title":"Create Dynamic Material Instance","pins":[{"name":"Element Index","value":"1"}]},
		{"node_guid":"col","menu_title":"Set Vector Parameter Value","pins":[{"name":"Parameter Name","value":"Tint"}]},
		{"node_guid":"fwd","menu_title":"Get Forward Vector"},{"node_guid":"own","menu_title":"Get Forward Vector"}],"connections":[)"
		+ Wire("cube", "Cube", "mid", "Target") + "," + Wire("mid", "Return Value", "col", "Target") + ","
		+ Wire("rot", "Return Value", "fwd", "In Rot") + "," + Wire("cube", "Cube", "own", "Target") + "]");
	EXPECT_THAT(Run.Told(), IsEmpty());
	const UEdGraph& Graph = *Run.Blueprint->UbergraphPages[0];
	EXPECT_EQ(CountOf<UK2Node_CallFunction>(Graph), 5) << "what was tried and not taken is gone";
	EXPECT_EQ(NumLinks(Find(Run, "col"), TEXT("self")), 1);
	EXPECT_EQ(NumLinks(Find(Run, "fwd"), TEXT("InRot")), 1);
	EXPECT_EQ(NumLinks(Find(Run, "own"), TEXT("self")), 1);
}

TEST(RequestCompletion, ColorsGoByNameAndByHex)
{
	struct FRow
	{
		const char* Value;
		const char* Held;
	};
	for (const FRow& Row : {FRow{"Red", "(R=1.000000,G=0.000000,B=0.000000,A=1.000000)"},
			 FRow{"#00ff00", "(R=0.000000,G=1.000000,B=0.000000,A=1.000000)"},
			 FRow{"#0000FF00", "(R=0.000000,G=0.000000,B=1.000000,A=0.000000)"},
			 FRow{"mauve", "(R=0.000000,G=0.660000,B=1.000000,A=1.000000)"},
			 FRow{"#12345", "(R=0.000000,G=0.660000,B=1.000000,A=1.000000)"}})
	{
		FPopulating Run;
		Run.Nodes(std::string(R"({"node_guid":"p","menu_title":"Print String","pins":[{"name":"Text Color","value":")")
			+ Row.Value + "\"}]}");
		const UEdGraphNode* const Print = Find(Run, "p");
		ASSERT_TRUE(Print);
		EXPECT_EQ(ToStd(Print->FindPin(TEXT("TextColor"))->DefaultValue), Row.Held) << Row.Value;
	}
}
