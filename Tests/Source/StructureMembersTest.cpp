#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintModifyClassStructureOperation.h"
#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Timeline.h"
#include "NodeTests.h"
#include "Standalone/EditorFaults.h"
#include "Structuring.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace StructureMembersTest
{
static UEdGraph* FindSignature(const FStructuring& Case, const TCHAR* Name)
{
	return FBlueprintEditorUtils::GetDelegateSignatureGraphByName(Case.Blueprint.Get(), Name);
}

static std::vector<std::string> ParameterNames(const UEdGraph* Graph)
{
	std::vector<std::string> Names;
	const UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph);
	for (const TSharedPtr<FUserPinInfo>& Pin : Entry->UserDefinedPins)
	{
		Names.push_back(ToStd(Pin->PinName.ToString()));
	}
	return Names;
}

static UTimelineTemplate* FindTimeline(const FStructuring& Case, const TCHAR* Name)
{
	return Case.Blueprint->FindTimelineTemplateByVariableName(Name);
}

static UK2Node_Timeline* FindNode(const FStructuring& Case, const TCHAR* Name)
{
	return FBlueprintEditorUtils::FindNodeForTimeline(Case.Blueprint.Get(), FindTimeline(Case, Name));
}

/** "time=value" of each key. */
static std::vector<std::string> Keys(const FRichCurve& Curve)
{
	std::vector<std::string> Texts;
	for (const FRichCurveKey& Key : Curve.GetConstRefOfKeys())
	{
		Texts.push_back(
			ToStd(FString::Printf(TEXT("%.2f=%.2f"), static_cast<double>(Key.Time), static_cast<double>(Key.Value))));
	}
	return Texts;
}
} // namespace StructureMembersTest

using namespace StructureMembersTest;

TEST(StructureInterfaces, ComeWithTheirFunctionsAndGoByAPartOfTheirPath)
{
	FStructuring Case;
	Case.Interfaces(R"({"name":"GameplayTagAssetInterface"},{"name":"/Script/Engine.Interface_AssetUserData"},
		{"name":"NoSuch"},{"name":"Actor"},{},{"name":"NoSuch","action":"remove"},{"name":"","action":"remove"},
		{"name":"IGameplayTagAssetInterface","action":"add"},{"name":"GameplayTagAssetInterface","action":"modify"},
		{"name":"Interface_PostProcessVolume","action":"modify"},{"name":"x","action":"bless"})");
	EXPECT_THAT(Case.Done(),
		ElementsAre(
			"Added interface: GameplayTagAssetInterface", "Added interface: /Script/Engine.Interface_AssetUserData"));
	EXPECT_THAT(Case.Told(),
		AllOf(Contains("Interface class not found: NoSuch (Check logs for available interfaces)"),
			Contains("Failed to add interface: Actor"),
			Contains("Interface 'Actor' was not added: Actor is no interface"),
			Contains("Interface entry missing 'name' field."),
			Contains("Interface 'IGameplayTagAssetInterface' already implemented, cannot add"),
			Contains("Interface already implemented (no modifications needed): GameplayTagAssetInterface"),
			Contains("Interface 'Interface_PostProcessVolume' not found for modification"),
			Contains("Unknown action 'bless' of interface 'x'; use add, modify or remove"),
			Contains("Interface not found for removal: NoSuch"), Contains("Interface not found for removal: ")));
	EXPECT_EQ(Case.Blueprint->ImplementedInterfaces.Num(), 2);
	EXPECT_THAT(Case.Faults(), IsEmpty());

	Case.Interfaces(R"({"name":"tagasset","action":"remove"})");
	EXPECT_THAT(Case.Done(), ElementsAre("Removed interface: tagasset"));
	ASSERT_EQ(Case.Blueprint->ImplementedInterfaces.Num(), 1);
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureInterfaces, FunctionsOfABlueprintInterfaceArriveAsGraphs)
{
	FStructuring Case;
	RunTool(TEXT("bp_create_asset"), R"({"path":"/Game/Tests/BPI_Bell","blueprint_parent_class":{"type":"native",
		"parent_path":"/Script/CoreUObject.Interface"}})");
	RunTool(TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BPI_Bell","functions":[{"name":"Use","parameters":[
		{"name":"By","type":{"category":"int"}}],"return_type":{"category":"bool"}},{"name":"Ring"}]})");
	Case.Interfaces(R"({"name":"BPI_Bell"})");
	EXPECT_THAT(Case.Told(), IsEmpty());
	ASSERT_EQ(Case.Blueprint->ImplementedInterfaces.Num(), 1);
	const TArray<TObjectPtr<UEdGraph>> Graphs = Case.Blueprint->ImplementedInterfaces[0].Graphs;
	ASSERT_EQ(Graphs.Num(), 1) << "what returns nothing is an event and needs none";
	EXPECT_EQ(Graphs[0]->GetName(), TEXT("Use"));
	EXPECT_TRUE(Case.Blueprint.Compiles());
	Case.Interfaces(R"({"name":"BPI_Bell","action":"remove"})");
	EXPECT_THAT(Case.Told(), IsEmpty());
	EXPECT_FALSE(IsValid(Graphs[0])) << "its functions go with it";

	// What an author put into it is named; and its functions' names are taken, and have to be free.
	Case.Interfaces(R"({"name":"BPI_Bell"})");
	Case.Nodes(R"({"node_guid":"p","class_name":"K2Node_CallFunction","target_class":"KismetSystemLibrary",
		"target_function":"PrintString"})",
		"Use");
	Case.Nodes(R"({"node_guid":"e","class_name":"K2Node_Event","node_metadata":{"event_name":"Ring"}})");
	Case.Variables(R"("Ring":{"action":"add","type":"int"})");
	EXPECT_THAT(Case.Told(), ElementsAre(StartsWith("The name 'Ring' is taken by a function")));
	Case.Interfaces(R"({"name":"BPI_Bell","action":"remove"})");
	EXPECT_THAT(Case.Told(),
		ElementsAre(AllOf(StartsWith("What implemented interface 'BPI_Bell' was removed with it: 'Event Ring"),
			EndsWith(", function 'Use' with 1 node(s)"))));
	Case.Variables(R"("Use":{"action":"add","type":"int"})");
	Case.Interfaces(R"({"name":"BPI_Bell"})");
	EXPECT_THAT(
		Case.Told(), ElementsAre("Failed to add interface: BPI_Bell", HasSubstr("by the name of its function 'Use'")));
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureInterfaces, ThoseOfTheParentAreNotImplementedTwice)
{
	FStructuring Case;
	Case.Interfaces(R"({"name":"GameplayTagAssetInterface"})");
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Kid","blueprint_parent_class":{"type":"blueprint",
		"parent_path":")"
			+ ToStd(Case.Blueprint.Path()) + R"("}})");
	const TSharedPtr<Morvane::FToolResult> Result = RunTool(TEXT("modify_blueprint_class_structure"),
		R"({"path":"/Game/Tests/BP_Kid","interfaces":[{"name":"GameplayTagAssetInterface"}]})");
	EXPECT_THAT(Warnings(*Result),
		ElementsAre("Failed to add interface: GameplayTagAssetInterface",
			HasSubstr("the parent class BP_Test_C implements it already")));
}

TEST(StructureDelegates, AVariableAndASignatureComeAndGoTogether)
{
	FStructuring Case;
	Case.Delegates(R"({"name":"OnOpened","signature":{"parameters":[
			{"name":"By","type":{"category":"object","sub_category_object":"Actor"}},
			{"name":"Odd","type":{"category":"nonsense"}}],"return_type":{"category":"int"}}},
		{"name":"onopened"},{"name":"OnOpened","action":"modify","signature":{"parameters":[
			{"name":"Speed","type":{"category":"float"}},{"name":"By","type":{"category":"int"}}]}},
		{"name":"OnOpened","action":"modify"},{"name":"UserConstructionScript"},{"name":"a/b"},{},
		{"name":"Zilch","action":"modify"},{"name":"Zilch","action":"remove"},{"name":"X","action":"ring"})");
	EXPECT_THAT(Case.Done(),
		ElementsAre("Created new delegate: OnOpened", "Modified delegate signature: OnOpened",
			"No changes made to delegate: OnOpened"));
	EXPECT_THAT(Case.Refused(), ElementsAre("A function with name 'UserConstructionScript' already exists"));
	EXPECT_THAT(Case.Told(),
		ElementsAre("Parameter 'Odd' of delegate 'OnOpened' has a type that could not be parsed; it was left out.",
			StartsWith("Delegate 'OnOpened' has a return type"), "Delegate 'onopened' already exists, cannot add",
			"Parameter 'By' of delegate 'OnOpened' is there with another type and keeps it.",
			"Failed to create signature graph for delegate: a/b", "Delegate entry missing 'name' field.",
			"Delegate 'Zilch' not found for modification",
			"Unknown action 'ring' of delegate 'X'; use add, modify or remove",
			"Delegate not found for removal: Zilch"));
	EXPECT_EQ(Case.Variable(TEXT("a/b")), nullptr) << "half a dispatcher is of no use";
	EXPECT_THAT(Case.Faults(), IsEmpty());
	ASSERT_NE(FindSignature(Case, TEXT("OnOpened")), nullptr);
	EXPECT_THAT(ParameterNames(FindSignature(Case, TEXT("OnOpened"))), ElementsAre("By", "Speed"));

	Case.Nodes(R"({"node_guid":"c","class_name":"K2Node_CallDelegate","node_metadata":{"delegate_name":"OnOpened"}})");
	Case.Variables(R"("OnOpened":{"action":"remove"})");
	EXPECT_THAT(Case.Told(), Contains("Variable 'OnOpened' is an event dispatcher; it is removed with 'delegates'"));
	Case.Delegates(R"({"name":"ONOPENED","action":"remove"})");
	EXPECT_THAT(Case.Done(), ElementsAre("Removed delegate: ONOPENED"));
	EXPECT_EQ(Case.Variable(TEXT("OnOpened")), nullptr);
	EXPECT_EQ(FindSignature(Case, TEXT("OnOpened")), nullptr);
}

/** The pins of the only node of a class. */
template <class TNode>
static std::vector<std::string> PinsOf(const FStructuring& Case)
{
	TArray<TNode*> Nodes;
	FBlueprintEditorUtils::GetAllNodesOfClass(Case.Blueprint.Get(), Nodes);
	std::vector<std::string> Names;
	for (const UEdGraphPin* const Pin : Nodes.Num() == 1 ? Nodes[0]->Pins : TArray<UEdGraphPin*>())
	{
		Names.push_back(ToStd(Pin->GetName()));
	}
	return Names;
}

TEST(StructureDelegates, CallsAndBoundEventsFollowTheSignature)
{
	FStructuring Case;
	Case.Delegates(R"({"name":"OnHit","signature":{"parameters":[{"name":"By","type":{"category":"int"}}]}})");
	Case.Populate(
		R"("nodes":[{"node_guid":"c","menu_title":"Call OnHit"},{"node_guid":"b","menu_title":"Bind Event to OnHit"},
		{"node_guid":"e","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Struck"},
			"pins":[{"action":"add","name":"By","type":{"category":"int"}}]}],
		"connections":[{"source_node_guid":"e","source_pin_name":"OutputDelegate","target_node_guid":"b",
			"target_pin_name":"Delegate"}])");
	ASSERT_THAT(Case.Told(), IsEmpty());
	const std::string Modify =
		R"({"name":"OnHit","action":"modify","signature":{"parameters":[{"name":"Hard","type":{"category":"bool"}}]}})";
	Case.Delegates(Modify);
	EXPECT_THAT(Case.Told(), IsEmpty());
	EXPECT_THAT(PinsOf<UK2Node_CallDelegate>(Case), Contains("Hard"));
	EXPECT_THAT(PinsOf<UK2Node_CustomEvent>(Case), Contains("Hard"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	Case.Delegates(Modify);
	EXPECT_THAT(Case.Done(), ElementsAre("No changes made to delegate: OnHit"));
	EXPECT_THAT(Case.Tracked(), IsEmpty());

	// By the other road to a signature; and what lags behind by itself catches up in the compile.
	RunTool(TEXT("bp_create_graph"),
		R"({"path":")" + ToStd(Case.Blueprint.Path())
			+ R"(","functions":[{"name":"OnHit","is_delegate":true,"parameters":[{"name":"Third","type":{"category":"int"}}]}]})");
	EXPECT_THAT(PinsOf<UK2Node_CustomEvent>(Case), Contains("Third"));
	FEdGraphPinType Flag;
	Flag.PinCategory = UEdGraphSchema_K2::PC_Boolean;
	FBlueprintEditorUtils::GetEntryNode(FindSignature(Case, TEXT("OnHit")))
		->CreateUserDefinedPin(TEXT("Fourth"), Flag, EGPD_Output);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Case.Blueprint.Get());
	EXPECT_TRUE(Case.Blueprint.Compiles());
	EXPECT_THAT(PinsOf<UK2Node_CustomEvent>(Case), Contains("Fourth"));
}

TEST(StructureDelegates, HalfOfOneIsMadeWholeOrTakenAway)
{
	FStructuring Case;
	RunTool(TEXT("bp_create_graph"),
		R"({"path":")" + ToStd(Case.Blueprint.Path())
			+ R"(","functions":[{"name":"Left","is_delegate":true},{"name":"Right","is_delegate":true}]})");
	Case.Delegates(R"({"name":"Left"},{"name":"Right","action":"remove"})");
	EXPECT_THAT(Case.Done(), ElementsAre("Created new delegate: Left", "Removed delegate: Right"));
	EXPECT_NE(Case.Variable(TEXT("Left")), nullptr);
	EXPECT_EQ(FindSignature(Case, TEXT("Right")), nullptr);
	EXPECT_THAT(Case.Faults(), IsEmpty());

	FBlueprintEditorUtils::RemoveGraph(Case.Blueprint.Get(), FindSignature(Case, TEXT("Left")));
	Case.Delegates(R"({"name":"Left","action":"modify","signature":{"parameters":[]}})");
	EXPECT_THAT(Case.Told(), ElementsAre("Could not find signature graph for delegate: Left"));
}

TEST(StructureTimelines, TracksOfTheThreeKindsWithTheirNode)
{
	FStructuring Case;
	Case.Timelines(R"({"name":"Open","length":2,"b_loop":"true","b_replicated":true,"curves":[
		{"name":"Angle","points":[{"time":0,"value":0},{"time":2,"value":"90"}]},
		{"name":"Place","type":"VECTORCURVE","points":[{"time":0,"value":{"x":1,"y":2,"z":3}},{"time":1,"value":[4,5,6]}]},
		{"name":"Tint","type":"linear","points":[{"time":0,"value":{"R":1,"g":0,"B":0}},{"time":1,"value":[0,0.5,1]},
			{"time":2,"value":[0,0,0,0.25]}]}]},{"name":"Wait"})");
	EXPECT_THAT(Case.Told(), IsEmpty());
	EXPECT_THAT(Case.Done(),
		ElementsAre("Created new timeline: Open", "Added float curve 'Angle' to timeline 'Open'",
			"Added vector curve 'Place' to timeline 'Open'", "Added linear color curve 'Tint' to timeline 'Open'",
			"Created new timeline: Wait"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	const UTimelineTemplate* const Open = FindTimeline(Case, TEXT("Open"));
	ASSERT_NE(Open, nullptr);
	EXPECT_EQ(Open->TimelineLength, 2.0f);
	EXPECT_TRUE(Open->bLoop && Open->bReplicated);
	EXPECT_THAT(Keys(Open->FloatTracks[0].CurveFloat->FloatCurve), ElementsAre("0.00=0.00", "2.00=90.00"));
	EXPECT_THAT(Keys(Open->VectorTracks[0].CurveVector->FloatCurves[2]), ElementsAre("0.00=3.00", "1.00=6.00"));
	EXPECT_THAT(Keys(Open->LinearColorTracks[0].CurveLinearColor->FloatCurves[3]),
		ElementsAre("0.00=1.00", "1.00=1.00", "2.00=0.25"))
		<< "a colour without alpha is opaque";
	const UK2Node_Timeline* const Node = FindNode(Case, TEXT("Open"));
	ASSERT_NE(Node, nullptr);
	EXPECT_TRUE(Node->bLoop);
	for (const TCHAR* const Pin : {TEXT("Angle"), TEXT("Place"), TEXT("Tint")})
	{
		EXPECT_NE(Node->GetTrackPin(Pin), nullptr) << ToStd(Pin);
	}
	EXPECT_NE(FindNode(Case, TEXT("Wait")), nullptr);
	// One setting alone is a change, each of them, and none the second time.
	for (const char* const Setting : {R"("length":3)", R"("b_loop":false)", R"("b_replicated":false)"})
	{
		for (const char* const Said : {"Modified timeline: Open", "No changes made to timeline: Open"})
		{
			Case.Timelines(R"({"name":"open","action":"modify",)" + std::string(Setting) + "}");
			EXPECT_THAT(Case.Done(), ElementsAre(std::string(Said).substr(0, std::string(Said).size() - 4) + "open"))
				<< Setting;
			EXPECT_EQ(Case.Tracked().size(), Said[0] == 'M' ? 1u : 0u) << Setting;
		}
	}
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_FALSE(FindTimeline(Case, TEXT("Open"))->bLoop || FindTimeline(Case, TEXT("Open"))->bReplicated);
}

TEST(StructureTimelines, EntriesThatCannotBeDoneAreTold)
{
	FStructuring Case;
	Case.Variables(R"("Taken":{"action":"add","type":"int"})");
	Case.Timelines(
		R"({"name":"T","length":3,"speed":2,"curves":[{"name":"A","points":[{"time":0,"value":1}]},{"name":"A"},{},
			{"name":"Play"},{"name":"S","type":"Spiral"},{"name":"V","type":"Vector","points":[{"time":0,"value":5},
			{"time":"x","value":[1,2,3]},7,{"time":0,"value":[1,2,3]}]},{"name":"N","action":"modify"}]},
		{"name":"T","length":9},{"name":"Taken"},{"name":"a/b"},{"name":""},{},{"name":"G","action":"modify"},
		{"name":"G","action":"remove"},{"name":"G","action":"play"},
		{"name":"T","action":"modify","length":-1,"b_loop":"maybe","curves":[{"name":"V","action":"modify",
			"points":[{"time":1,"value":2}]},{"name":"N","action":"remove"}]})");
	EXPECT_THAT(Case.Refused(), IsEmpty());
	EXPECT_THAT(Case.Told(),
		ElementsAre(StartsWith("Unknown key 'speed' of timeline 'T' was ignored"),
			"Curve 'A' already exists in timeline 'T', cannot add", "Curve entry missing 'name' field.",
			"Curve 'Play' was not added to timeline 'T': timeline nodes have a pin of that name",
			"'Spiral', given for 'type' of curve 'S', is not Float, Vector or LinearColor; it was left out",
			StartsWith("Point 0 of curve 'V' in timeline 'T' was left out"),
			StartsWith("Point 1 of curve 'V' in timeline 'T' was left out"),
			StartsWith("Point 2 of curve 'V' in timeline 'T' was left out"),
			"Curve 'N' not found in timeline 'T' for modification", "Timeline 'T' already exists, cannot add",
			HasSubstr("for name 'Taken'"), HasSubstr("for name 'a/b'"), HasSubstr("for name ''"),
			"Timeline entry missing 'name' field.", "Timeline 'G' not found for modification",
			"Unknown action 'play' of timeline 'G'; use add, modify or remove",
			"-1, given for 'length' of timeline 'T', is not a number above 0; it was left out",
			"'maybe', given for 'b_loop' of timeline 'T', is not true or false; it was left out",
			"Curve 'V' in timeline 'T' is not a float curve of its own and was left as it is",
			"Timeline 'G' not found for removal", "Curve 'N' not found in timeline 'T' for removal"));
	EXPECT_EQ(FindTimeline(Case, TEXT("T"))->TimelineLength, 3.0f);
	EXPECT_THAT(
		Keys(FindTimeline(Case, TEXT("T"))->VectorTracks[0].CurveVector->FloatCurves[0]), ElementsAre("0.00=1.00"));
	EXPECT_THAT(Case.Done(), Contains("No changes made to timeline: T"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureTimelines, NumbersThatNoKeyHoldsAreLeftOut)
{
	FStructuring Case;
	Case.Timelines(R"({"name":"T","length":1e39,"b_auto_play":"yes","curves":[
		{"name":"C","points":[{"time":1e39,"value":1},{"time":1,"value":-1e39},{"time":2,"value":3}]}]})");
	EXPECT_THAT(Case.Told(),
		ElementsAre(HasSubstr("given for 'length' of timeline 'T'"), StartsWith("Point 0 of curve 'C'"),
			StartsWith("Point 1 of curve 'C'")));
	const UTimelineTemplate* const Timeline = FindTimeline(Case, TEXT("T"));
	ASSERT_NE(Timeline, nullptr);
	EXPECT_EQ(Timeline->TimelineLength, 5.0f);
	EXPECT_TRUE(Timeline->bAutoPlay);
	EXPECT_THAT(Keys(Timeline->FloatTracks[0].CurveFloat->FloatCurve), ElementsAre("2.00=3.00"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureTimelines, NodesFollowAndLostLinksAreNamed)
{
	FStructuring Case;
	Case.Timelines(R"({"name":"T","curves":[{"name":"A","points":[{"time":0,"value":1}]},
		{"name":"B","points":[{"time":0,"value":1}]}]})");
	UK2Node_Timeline* const Node = FindNode(Case, TEXT("T"));
	const FNodeHandle Print = Case.Blueprint.EventGraph().Call(NodeTests::System, TEXT("Delay"));
	ASSERT_TRUE(NodeTests::Connect(Node->GetTrackPin(TEXT("A")), Print.Input(TEXT("Duration"))));
	ASSERT_TRUE(NodeTests::Connect(Node->GetUpdatePin(), Print.Input(TEXT("execute"))));
	Case.Timelines(R"({"name":"T","action":"modify","curves":[{"name":"A","action":"remove"},
		{"name":"C","points":[{"time":1,"value":1}]},
		{"name":"B","action":"modify","clear_keys":true,"points":[{"time":2,"value":5}]}]})");
	EXPECT_THAT(Case.Done(),
		ElementsAre("Added float curve 'C' to timeline 'T'", "Modified float curve 'B' in timeline 'T'",
			"Modified timeline: T", "Also removed curve: A from timeline: T"));
	EXPECT_THAT(Case.Told(),
		ElementsAre(AllOf(StartsWith("Timeline 'T' changed its curves: the link between pin 'A' of 'T'"),
			HasSubstr("and pin 'Duration' of 'Delay'"))));
	EXPECT_EQ(FindNode(Case, TEXT("T"))->GetTrackPin(TEXT("A")), nullptr);
	EXPECT_NE(FindNode(Case, TEXT("T"))->GetTrackPin(TEXT("C")), nullptr);
	EXPECT_FALSE(FindNode(Case, TEXT("T"))->GetUpdatePin()->LinkedTo.IsEmpty());
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_THAT(Keys(FindTimeline(Case, TEXT("T"))->FloatTracks[0].CurveFloat->FloatCurve), ElementsAre("2.00=5.00"));

	Case.Timelines(R"({"name":"T","action":"remove"},{"name":"T2","action":"remove"})");
	EXPECT_THAT(Case.Done(), ElementsAre("Removed timeline: T", "Removed timeline node for: T"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_TRUE(Case.Blueprint->Timelines.IsEmpty());
	Case.Timelines(R"({"name":"T"})");
	EXPECT_THAT(Case.Told(), IsEmpty()) << "the name of a removed timeline is free";
}

TEST(StructureTimelines, ValidationFindsWhatLooksWrong)
{
	FStructuring Case;
	Case.Timelines(R"({"name":"T","length":2,"curves":[
		{"name":"F","points":[{"time":2,"value":1},{"time":2,"value":3},{"time":2.5,"value":1}]},{"name":"E"},
		{"name":"V","type":"Vector","points":[{"time":3,"value":[1,2,3]}]},{"name":"VE","type":"Vector"},
		{"name":"C","type":"LinearColor","points":[{"time":1,"value":[1,2,3,4]},{"time":1,"value":[1,2,3,4]}]}]})");
	const auto Beyond = [](const std::string& What)
	{ return "Timeline 'T' " + What + " has key at time 3.00 beyond timeline length 2.00"; };
	EXPECT_THAT(Case.Told(),
		ElementsAre("Timeline 'T' float curve 'F' has duplicate key at time 2.00",
			"Timeline 'T' float curve 'F' has key at time 2.50 beyond timeline length 2.00",
			"Timeline 'T' has empty float curve 'E'", Beyond("vector curve 'V' X component"),
			Beyond("vector curve 'V' Y component"), Beyond("vector curve 'V' Z component"),
			"Timeline 'T' vector curve 'VE' has empty X component",
			"Timeline 'T' vector curve 'VE' has empty Y component",
			"Timeline 'T' vector curve 'VE' has empty Z component",
			"Timeline 'T' linear color curve 'C' R component has duplicate key at time 1.00",
			"Timeline 'T' linear color curve 'C' G component has duplicate key at time 1.00",
			"Timeline 'T' linear color curve 'C' B component has duplicate key at time 1.00",
			"Timeline 'T' linear color curve 'C' A component has duplicate key at time 1.00"));
	UTimelineTemplate* const Timeline = FindTimeline(Case, TEXT("T"));
	for (int32 Index = Timeline->FloatTracks.Num() - 1; Index >= 0; --Index)
	{
		Timeline->FloatTracks[Index].CurveFloat = nullptr;
	}
	Timeline->VectorTracks[0].CurveVector = nullptr;
	Timeline->VectorTracks.RemoveAt(1);
	Timeline->LinearColorTracks[0].CurveLinearColor = nullptr;
	Morvane::FToolResult Found = MakeResult();
	FBlueprintCreateModifyRemoveUtils::ValidateTimelineCurves(Case.Blueprint.Get(), Found);
	EXPECT_THAT(Warnings(Found),
		ElementsAre("Timeline 'T' has null float curve 'F'", "Timeline 'T' has null float curve 'E'",
			"Timeline 'T' has null vector curve 'V'", "Timeline 'T' has null linear color curve 'C'"));
}

TEST(ClassStructure, AWholeClassFromOneCallAndNothingFromTheSecond)
{
	FStructuring Case;
	std::string Variables;
	for (int32 Index = 0; Index < 30; ++Index)
	{
		static const char* const Types[] = {"bool", "int", "int64", "byte", "float", "double", "name", "string", "text",
			"vector", "rotator", "transform", "LinearColor", "Actor", "EMovementMode"};
		Variables += (Index > 0 ? "," : "") + std::string("\"V") + std::to_string(Index)
			+ R"(":{"action":"add","type":{"category":")" + Types[Index % 15] + "\""
			+ (Index >= 15 ? R"(,"container_type":"array")" : "") + "}"
			+ (Index == 1 ? R"(,"replication":"rep_notify")" : "") + "}";
	}
	std::string Components;
	for (int32 Index = 0; Index < 12; ++Index)
	{
		Components += (Index > 0 ? "," : "") + std::string(R"({"name":"C)") + std::to_string(Index)
			+ R"(","type":"StaticMeshComponent","attach_to":")"
			+ (Index < 4 ? std::string("DefaultSceneRoot") : "C" + std::to_string(Index - 4)) + "\"}";
	}
	const std::string Members = R"("variables":{)" + Variables + R"(},"components":[)" + Components
		+ R"(],"interfaces":[{"name":"GameplayTagAssetInterface"},{"name":"Interface_AssetUserData"}],
		"timelines":[{"name":"T0","curves":[{"name":"A","points":[{"time":0,"value":1}]}]},{"name":"T1"},{"name":"T2"},
			{"name":"T3"}],
		"delegates":[{"name":"D0","signature":{"parameters":[{"name":"By","type":{"category":"int"}}]}},{"name":"D1"},
			{"name":"D2"}])";
	Case.Change(Members);
	EXPECT_THAT(Case.Refused(), IsEmpty());
	EXPECT_THAT(Case.Told(), IsEmpty());
	EXPECT_EQ(Successes(*Case.Result).back(), "Successfully modified class structure in Blueprint: BP_Test");
	EXPECT_THAT(Case.Told(), IsEmpty());
	EXPECT_TRUE(Case.Telemetry() && Case.Telemetry()->HasField(TEXT("duration_ms")));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_EQ(Case.Blueprint->NewVariables.Num(), 33);
	EXPECT_EQ(Case.Blueprint->SimpleConstructionScript->GetAllNodes().Num(), 13);
	EXPECT_EQ(Case.Blueprint->ImplementedInterfaces.Num(), 2);
	EXPECT_EQ(Case.Blueprint->Timelines.Num(), 4);

	const std::string Before = ReadBlueprintFile(Case.Blueprint);
	Case.Change(Members);
	EXPECT_EQ(ReadBlueprintFile(Case.Blueprint), Before);
	EXPECT_THAT(Case.Told(), SizeIs(30 + 12 + 2 + 4 + 3 + 1));
	EXPECT_THAT(Case.Told(),
		AllOf(Contains("Variable 'V7' already exists, cannot add"),
			Contains("Component 'C3' already exists, cannot add"), Contains("Timeline 'T0' already exists, cannot add"),
			Contains("Delegate 'D2' already exists, cannot add")));
	EXPECT_TRUE(Case.Result->GetModifications().IsEmpty());
}

TEST(ClassStructure, WhatTheCallMustHave)
{
	FStructuring Case;
	EXPECT_THAT(Errors(*RunTool(TEXT("modify_blueprint_class_structure"), R"({"variables":{}})")),
		ElementsAre("Missing required field 'path'"));
	EXPECT_THAT(Errors(*RunTool(TEXT("modify_blueprint_class_structure"), R"({"path":"/Game/None","variables":{}})")),
		Contains("Failed to find or load blueprint: /Game/None"));
	const std::string Before = ReadBlueprintFile(Case.Blueprint);
	Case.Change(R"("varables":{},"components":null)");
	EXPECT_THAT(Case.Refused(),
		ElementsAre("At least one of variables, components, interfaces, timelines, or delegates must be provided"));
	EXPECT_THAT(Case.Told(), ElementsAre(HasSubstr("did you mean 'variables'?")));
	EXPECT_EQ(ReadBlueprintFile(Case.Blueprint), Before);
	Case.Change(R"("variables":5,"components":"x","delegates":[{"name":"D"}])");
	EXPECT_THAT(Case.Refused(),
		ElementsAre("Field 'variables' must be an object keyed by name",
			"Field 'components' must be an array of objects with a name"));
	EXPECT_NE(Case.Variable(TEXT("D")), nullptr) << "the others are done and saved";
}

TEST(ClassStructure, EntriesComeAsAListOrByName)
{
	FStructuring Case;
	Case.Change(R"("variables":[{"name":"A","action":"add","type":"int"},{"name":"a","default_variable_value":7},{},
			{"name":"B","action":"add","type":"int"}],"components":{"name":"C","type":"BoxComponent"},
		"timelines":{"T":{"length":3},"U":{}},"delegates":{"D":{"action":null,"signature":null}})");
	EXPECT_THAT(Case.Refused(), IsEmpty());
	EXPECT_THAT(Case.Told(),
		ElementsAre(
			"Variable entry missing 'name' field.", "Some class structure modifications failed in Blueprint: BP_Test"));
	EXPECT_EQ(Case.Default(TEXT("A")), "7") << "a later entry of a name builds on the earlier one";
	EXPECT_TRUE(Case.Variable(TEXT("B")) && Case.Component(TEXT("C")) && Case.Variable(TEXT("D")));
	ASSERT_TRUE(FindTimeline(Case, TEXT("T")) && FindTimeline(Case, TEXT("U")));
	EXPECT_EQ(FindTimeline(Case, TEXT("T"))->TimelineLength, 3.0f);
	Case.Change(R"("components":{"name":5,"Box":{"type":"BoxComponent"}})");
	EXPECT_THAT(Case.Refused(), ElementsAre("Field 'components' must be an array of objects with a name"));
	Case.Change(R"("variables":{"A":{"action":"remove"},"a":{"action":"remove"}})");
	EXPECT_THAT(Case.Done(), ElementsAre("Removed variable: A"));
	EXPECT_THAT(Case.Told(), Contains("Variable 'a' not found for removal"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(ClassStructure, ARefusedCheckOutChangesNothing)
{
	FStructuring Case;
	const std::string Before = ReadBlueprintFile(Case.Blueprint);
	const EditorFaults::FRefuseCheckOut Refuse(TEXT("locked by Ann"));
	Case.Variables(R"("A":{"action":"add","type":"int"})");
	EXPECT_THAT(
		Case.Refused(), ElementsAre("Cannot modify Blueprint - source control checkout failed:\nlocked by Ann"));
	EXPECT_TRUE(Case.Blueprint->NewVariables.IsEmpty());
	EXPECT_EQ(ReadBlueprintFile(Case.Blueprint), Before);
}

TEST(ClassStructure, AFailedSaveIsNoSuccess)
{
	FStructuring Case;
	const EditorFaults::FFailSaves Fail(TEXT("disk full"));
	Case.Variables(R"("A":{"action":"add","type":"int"})");
	EXPECT_THAT(Case.Refused(), Not(IsEmpty()));
	EXPECT_THAT(Successes(*Case.Result), Not(Contains(StartsWith("Successfully"))));
}

TEST(ClassStructure, OperationsOfOneKindSaveOnlyWhatIsWhole)
{
	struct FRow
	{
		void (*Execute)(const FJsonObject&, Morvane::FToolResult&);
		const char* Field;
		const char* Good;
		const char* Said;
	};
	for (const FRow& Row :
		{FRow{&FBlueprintVariableCreateModifyRemoveOperation::Execute, "variables",
			 R"({"A":{"action":"add","type":"int"}})", "Successfully modified variables in Blueprint: BP_Test"},
			FRow{&FBlueprintComponentCreateModifyRemoveOperation::Execute, "components",
				R"([{"name":"A","type":"BoxComponent"}])", "Successfully modified components in Blueprint: BP_Test"},
			FRow{&FBlueprintInterfaceCreateModifyRemoveOperation::Execute, "interfaces",
				R"([{"name":"GameplayTagAssetInterface"}])", "Successfully modified interfaces in Blueprint: BP_Test"},
			FRow{&FBlueprintTimelineCreateModifyRemoveOperation::Execute, "timelines", R"([{"name":"A"}])",
				"Successfully created timelines in Blueprint: BP_Test"},
			FRow{&FBlueprintDelegateCreateModifyRemoveOperation::Execute, "delegates", R"([{"name":"A"}])",
				"Successfully created delegates in Blueprint: BP_Test"}})
	{
		FStructuring Case;
		const std::string Path = R"({"path":")" + ToStd(Case.Blueprint.Path()) + "\"";
		const std::string Before = ReadBlueprintFile(Case.Blueprint);
		Morvane::FToolResult Missing = MakeResult();
		Row.Execute(*Json(Path + "}"), Missing);
		EXPECT_THAT(Errors(Missing), ElementsAre(std::string("Missing required field '") + Row.Field + "'"));
		EXPECT_EQ(ReadBlueprintFile(Case.Blueprint), Before);
		Morvane::FToolResult Good = MakeResult();
		Row.Execute(*Json(Path + ",\"" + Row.Field + "\":" + Row.Good + "}"), Good);
		EXPECT_EQ(Successes(Good).back(), Row.Said);
		EXPECT_EQ(Good.GetModifications().Num(), 1) << Row.Field;
		EXPECT_NE(ReadBlueprintFile(Case.Blueprint), Before) << Row.Field;
	}
	FStructuring Case;
	const std::string Before = ReadBlueprintFile(Case.Blueprint);
	Morvane::FToolResult Partly = MakeResult();
	FBlueprintVariableCreateModifyRemoveOperation::Execute(
		*Json(R"({"path":")" + ToStd(Case.Blueprint.Path())
			+ R"(","variables":{"A":{"action":"add","type":"int"},"B":{"action":"remove"}}})"),
		Partly);
	EXPECT_THAT(Successes(Partly), Not(Contains(StartsWith("Successfully"))));
	EXPECT_EQ(ReadBlueprintFile(Case.Blueprint), Before);
}

TEST(ClassStructure, AMissingBlueprintIsToldByEachRoutine)
{
	using FUtils = FBlueprintCreateModifyRemoveUtils;
	Morvane::FToolResult Result = MakeResult();
	EXPECT_FALSE(FUtils::CreateModifyRemoveBlueprintVariables(nullptr, FJsonObject(), Result));
	EXPECT_FALSE(FUtils::CreateModifyRemoveBlueprintComponent(nullptr, {}, Result));
	EXPECT_FALSE(FUtils::CreateModifyRemoveBlueprintTimeline(nullptr, {}, Result));
	EXPECT_FALSE(FUtils::CreateModifyRemoveBlueprintInterface(nullptr, {}, Result));
	EXPECT_FALSE(FUtils::CreateModifyRemoveBlueprintDelegate(nullptr, {}, Result));
	EXPECT_EQ(Errors(Result), std::vector<std::string>(3, "Invalid Blueprint provided."));
	EXPECT_EQ(Warnings(Result), std::vector<std::string>(2, "Invalid Blueprint provided."));
	FStructuring Case;
	Case.Blueprint->GeneratedClass = nullptr;
	Morvane::FToolResult Classless = MakeResult();
	EXPECT_FALSE(FUtils::CreateModifyRemoveBlueprintVariables(Case.Blueprint.Get(), FJsonObject(), Classless));
	EXPECT_THAT(Errors(Classless), ElementsAre("Blueprint doesn't have a valid generated class."));
}
