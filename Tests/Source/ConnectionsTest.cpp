#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "K2Node.h"
#include "K2Node_MakeArray.h"
#include "Standalone/NativeClass.h"
#include "ToolResults.h"
#include "Utils/Graph/PinConnections.h"
#include "Utils/Report/GraphSession.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/** A node that says it is pure, whatever pins it is given. */
class UTestPureNode : public UK2Node
{
	EDITOR_CLASS(UTestPureNode, UK2Node)

public:
	bool IsNodePure() const override { return true; }
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override
	{
		return FText::FromString(TitleType == ENodeTitleType::ListView ? TEXT("Pure (list)") : TEXT("Pure (full)"));
	}
};

/** A schema that allows everything and then does nothing. */
class UTestIdleSchema : public UEdGraphSchema
{
	EDITOR_CLASS(UTestIdleSchema, UEdGraphSchema)

public:
	bool TryCreateConnection(UEdGraphPin*, UEdGraphPin*) const override { return false; }
};

IMPLEMENT_EDITOR_CLASS(UTestPureNode, "/Script/Tests", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UTestIdleSchema, "/Script/Tests", CLASS_None)
void UTestPureNode::DescribeClass(FClassDescriber&) {}
void UTestIdleSchema::DescribeClass(FClassDescriber&) {}

namespace ConnectionsTest
{
/** One graph with a result and a session, and the calls in short. */
struct FConnecting
{
	FGraphBuilder Graph;
	Morvane::FToolResult Result = MakeResult();
	FBPGraphSession Session{Result};

	bool Connect(const FNodeHandle& From, const TCHAR* Output, const FNodeHandle& To, const TCHAR* Input)
	{
		return FBlueprintPinUtils::ConnectPins(Graph.Get(), From, Output, To, Input, Result, &Session);
	}
	bool Disconnect(const FNodeHandle& From, const TCHAR* Output, const FNodeHandle& To, const TCHAR* Input)
	{
		return FBlueprintPinUtils::DisconnectPins(Graph.Get(), From, Output, To, Input, Result);
	}
	FNodeHandle K2(const TCHAR* InputCategory, const TCHAR* OutputCategory)
	{
		UK2Node* const Node = NewObject<UK2Node>(Graph.Get());
		Graph.Get()->AddNode(Node, false, false);
		Node->CreatePin(EGPD_Input, FName(InputCategory), TEXT("in"));
		Node->CreatePin(EGPD_Output, FName(OutputCategory), TEXT("out"));
		return {Node};
	}
	FNodeHandle Pure()
	{
		UTestPureNode* const Node = NewObject<UTestPureNode>(Graph.Get());
		Graph.Get()->AddNode(Node, false, false);
		Graph.AddPin(Node, EGPD_Input, TEXT("execute"), true);
		Graph.AddPin(Node, EGPD_Output, TEXT("then"), true);
		Graph.AddPin(Node, EGPD_Output, TEXT("out"));
		return {Node};
	}
};
} // namespace ConnectionsTest

using ConnectionsTest::FConnecting;

TEST(PinLookup, AHiddenAliasComesBehindTheNameItselfAndBeforeTheOtherDirection)
{
	FConnecting Case;
	const FNodeHandle Node = Case.Graph.Bare();
	Case.Graph.AddPin(Node, EGPD_Input, TEXT("self"))->bHidden = true;
	UEdGraphPin* const Named = Case.Graph.AddPin(Node, EGPD_Input, TEXT("Target"));
	EXPECT_EQ(FBlueprintPinUtils::FindPinWithAliases(Node, TEXT("target"), EGPD_Input, &Case.Session), Named);
	Node.Input(TEXT("self"))->bHidden = false;
	EXPECT_EQ(FBlueprintPinUtils::FindPinWithAliases(Node, TEXT("target"), EGPD_Input, &Case.Session),
		Node.Input(TEXT("self")));

	const FNodeHandle World = Case.Graph.Bare();
	UEdGraphPin* const Hidden = Case.Graph.AddPin(World, EGPD_Input, TEXT("WorldContextObject"));
	Hidden->bHidden = true;
	Case.Graph.AddPin(World, EGPD_Output, TEXT("World Context Object"));
	EXPECT_EQ(
		FBlueprintPinUtils::FindPinWithAliases(World, TEXT("world context object"), EGPD_Input, &Case.Session), Hidden);
	EXPECT_EQ(Telemetry(Case.Result).find("pin_direction_fallbacks"), std::string::npos);
}

TEST(PinLookup, OnlyPinsThatCanBeHadAreOffered)
{
	FConnecting Case;
	const FNodeHandle Node = Case.Graph.Bare();
	for (const TCHAR* const Name : {TEXT("First"), TEXT("Gone"), TEXT("Hidden"), TEXT("Last")})
	{
		Case.Graph.AddPin(Node, EGPD_Input, Name);
	}
	Case.Graph.AddPin(Node, EGPD_Output, TEXT("Out"));
	Node.Input(TEXT("Gone"))->bOrphanedPin = true;
	Node.Input(TEXT("Hidden"))->bHidden = true;
	EXPECT_THAT(ToStdList(FBlueprintPinUtils::RecordLookupFailure(*Node.Node, TEXT("Nope"), EGPD_Input, Case.Result)),
		ElementsAre("First", "Last"));
	EXPECT_THAT(Telemetry(Case.Result), HasSubstr(R"("asked":"Nope","available":["First","Last"])"));
}

TEST(PinLookup, AliasThenNameThenTheOtherDirection)
{
	FConnecting Case;
	const FNodeHandle Node = Case.Graph.Bare();
	for (const TCHAR* const Name : {TEXT("self"), TEXT("execute"), TEXT("Target"), TEXT("Context"), TEXT("Value")})
	{
		Case.Graph.AddPin(Node, EGPD_Input, Name);
	}
	for (const TCHAR* const Name : {TEXT("then"), TEXT("else"), TEXT("Completed"), TEXT("ReturnValue"), TEXT("Both")})
	{
		Case.Graph.AddPin(Node, EGPD_Output, Name);
	}
	Case.Graph.AddPin(Node, EGPD_Input, TEXT("Both"));
	Node->Pins.Insert(nullptr, 0);

	struct FRow
	{
		const TCHAR* Requested;
		EEdGraphPinDirection Direction;
		const TCHAR* Expected;
		int32 Fallbacks;
	};
	const FRow Rows[] = {
		{TEXT("Then"), EGPD_Output, TEXT("then"), 0},
		{TEXT("TRUE"), EGPD_Output, TEXT("then"), 0},
		{TEXT("false"), EGPD_Output, TEXT("else"), 0},
		{TEXT("Execute"), EGPD_Input, TEXT("execute"), 0},
		{TEXT("completed"), EGPD_Output, TEXT("Completed"), 0},
		{TEXT("Return Value"), EGPD_Output, TEXT("ReturnValue"), 0},
		{TEXT("World Context Object"), EGPD_Input, TEXT("Context"), 0},
		{TEXT("target"), EGPD_Input, TEXT("self"), 0}, // though a pin has that very name
		{TEXT("Both"), EGPD_Input, TEXT("Both"), 0},
		{TEXT("value"), EGPD_Output, TEXT("Value"), 1},
		{TEXT("return value"), EGPD_Input, nullptr, 0}, // aliases are not tried the other way
		{TEXT("target"), EGPD_Output, TEXT("Target"), 1},
		{TEXT("missing"), EGPD_Input, nullptr, 0},
		{TEXT(""), EGPD_Input, nullptr, 0},
		{TEXT("Value"), EGPD_MAX, nullptr, 0},
	};
	for (const FRow& Row : Rows)
	{
		Morvane::FToolResult Result = MakeResult();
		FBPGraphSession Session(Result);
		const UEdGraphPin* const Pin = FBlueprintPinUtils::FindPinWithAliases(
			Node, Row.Requested, Row.Direction, &Session);
		EXPECT_EQ(Pin ? Pin->GetName() : FString(), FString(Row.Expected)) << ToStd(Row.Requested);
		EXPECT_EQ(Telemetry(Result), Row.Fallbacks ? R"({"pin_direction_fallbacks":1})" : "null")
			<< ToStd(Row.Requested);
		EXPECT_EQ(FBlueprintPinUtils::FindPinWithAliases(Node, Row.Requested, Row.Direction, nullptr), Pin);
	}
	EXPECT_EQ(FBlueprintPinUtils::FindPinWithAliases(nullptr, TEXT("then"), EGPD_Output, nullptr), nullptr);
	Node->Pins.RemoveAll([](const UEdGraphPin* Pin) { return !Pin; });
}

TEST(Connect, MakesALinkAndSaysNothing)
{
	FConnecting Case;
	const FNodeHandle From = Case.K2(TEXT("exec"), TEXT("int"));
	const FNodeHandle To = Case.K2(TEXT("int"), TEXT("exec"));
	EXPECT_TRUE(Case.Connect(From, TEXT("OUT"), To, TEXT("in")));
	EXPECT_TRUE(From.Output(TEXT("out"))->IsLinkedTo(To.Input(TEXT("in"))));
	EXPECT_THAT(Warnings(Case.Result), IsEmpty());
	EXPECT_EQ(Telemetry(Case.Result), "null");
}

TEST(Connect, PinsThatAreNotThereAreNamedAndTheSourceGoesFirst)
{
	FConnecting Case;
	const FNodeHandle Pure = Case.Pure();
	const FNodeHandle Other = Case.K2(TEXT("int"), TEXT("int"));
	EXPECT_FALSE(Case.Connect(Pure, TEXT("nope"), Other, TEXT("neither")));
	EXPECT_FALSE(Case.Connect(Other, TEXT("out"), Pure, TEXT("gone")));
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre("[Failure] Source pin 'nope' not found on node 'Pure (full)'",
			"[Failure] Target pin 'gone' not found on node 'Pure (full)'"));
	EXPECT_EQ(Telemetry(Case.Result),
		"{\"pin_lookup_failures\":[{\"node\":\"Pure (full)\",\"asked\":\"nope\",\"available\":[\"then\",\"out\"]},"
		"{\"node\":\"Pure (full)\",\"asked\":\"gone\",\"available\":[\"execute\"]}]}");
}

TEST(Connect, ANullGraphIsAnError)
{
	FConnecting Case;
	EXPECT_FALSE(
		FBlueprintPinUtils::ConnectPins(nullptr, nullptr, TEXT("a"), nullptr, TEXT("b"), Case.Result, nullptr));
	EXPECT_THAT(Errors(Case.Result), ElementsAre("Graph is null"));
}

TEST(Connect, PureNodesHaveNoExecutionFlow)
{
	FConnecting Case;
	const FNodeHandle Pure = Case.Pure();
	const FNodeHandle Exec = Case.K2(TEXT("exec"), TEXT("exec"));
	EXPECT_FALSE(Case.Connect(Pure, TEXT("then"), Exec, TEXT("in")));
	EXPECT_FALSE(Case.Connect(Exec, TEXT("out"), Pure, TEXT("execute")));
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(
			"[Failure] Attempted to connect execution pin on pure node 'Pure (list)'. Pure nodes have no execution flow.",
			"[Failure] Attempted to connect execution pin to pure node 'Pure (list)'. Pure nodes have no execution flow."));
	EXPECT_EQ(Telemetry(Case.Result), "null") << "no connection_failures";
	const FNodeHandle Int = Case.K2(TEXT("int"), TEXT("int"));
	EXPECT_TRUE(Case.Connect(Pure, TEXT("out"), Int, TEXT("in"))) << "a data pin takes the ordinary road";
}

TEST(Connect, ARefusalOfTheSchemaIsToldThreeTimes)
{
	FConnecting Case;
	const FNodeHandle From = Case.K2(TEXT("exec"), TEXT("exec"));
	const FNodeHandle To = Case.K2(TEXT("int"), TEXT("int"));
	EXPECT_FALSE(Case.Connect(From, TEXT("out"), To, TEXT("in")));
	ASSERT_EQ(Warnings(Case.Result).size(), 1u);
	const std::string Warning = Warnings(Case.Result)[0];
	ASSERT_THAT(Warning, StartsWith("[Failure] Schema forbids connection: "));
	const std::string Reason = Warning.substr(std::string("[Failure] Schema forbids connection: ").size());
	EXPECT_THAT(Reason, Not(IsEmpty()));
	const TSharedRef<FJsonObject> Failure =
		Json(Telemetry(Case.Result))->GetArrayField(TEXT("connection_failures"))[0]->AsObject().ToSharedRef();
	EXPECT_EQ(ToStd(Failure->GetStringField(TEXT("reason"))), Reason);
	EXPECT_EQ(ToStd(Failure->GetStringField(TEXT("source_pin"))), "out");
	const TSharedPtr<FJsonObject> Validation =
		Json(Telemetry(Case.Result))->GetArrayField(TEXT("validation_failures"))[0]->AsObject();
	EXPECT_EQ(ToStd(Validation->GetStringField(TEXT("message"))), Warning);
	EXPECT_EQ(From.Output(TEXT("out"))->LinkedTo.Num(), 0);
}

TEST(Connect, AnAttemptThatFailsIsToldWithItsEnds)
{
	FConnecting Case;
	Case.Graph.Get()->Schema = UTestIdleSchema::StaticClass();
	const FNodeHandle From = Case.Pure();
	const FNodeHandle To = Case.K2(TEXT("int"), TEXT("int"));
	EXPECT_FALSE(Case.Connect(From, TEXT("OUT"), To, TEXT("in")));
	EXPECT_THAT(
		Warnings(Case.Result), ElementsAre(StartsWith("[Failure] TryCreateConnection failed: Pure (full).out -> ")));
	EXPECT_THAT(Telemetry(Case.Result),
		AllOf(HasSubstr("TryCreateConnection returned false"), HasSubstr("validation_failures")));
}

TEST(Disconnect, BothEndsAreTold)
{
	FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	Morvane::FToolResult Result = MakeResult();
	const FNodeHandle Source = Graph.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("GetGameTimeInSeconds"));
	const FNodeHandle Target = {Graph.Add<UK2Node_MakeArray>()};
	ASSERT_TRUE(Source.Output(TEXT("ReturnValue"))
					->GetSchema()
					->TryCreateConnection(Source.Output(TEXT("ReturnValue")), Target.Input(TEXT("[0]"))));
	EXPECT_EQ(Target.Output(TEXT("Array"))->PinType.PinCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_TRUE(
		FBlueprintPinUtils::DisconnectPins(Graph.Get(), Source, TEXT("ReturnValue"), Target, TEXT("[0]"), Result));
	EXPECT_EQ(Target.Output(TEXT("Array"))->PinType.PinCategory, UEdGraphSchema_K2::PC_Wildcard)
		<< "what took its type from the link has none again";
}

TEST(Disconnect, BreaksTheLinkOrSaysThatThereIsNone)
{
	FConnecting Case;
	const FNodeHandle From = Case.Pure();
	const FNodeHandle To = Case.K2(TEXT("int"), TEXT("int"));
	Case.Graph.Link(From.Output(TEXT("out")), To.Input(TEXT("in")));
	EXPECT_TRUE(Case.Disconnect(From, TEXT("out"), To, TEXT("in")));
	EXPECT_EQ(To.Input(TEXT("in"))->LinkedTo.Num(), 0);
	EXPECT_THAT(Successes(Case.Result), ElementsAre(StartsWith("Removed connection: Pure (full).out -> ")));
	EXPECT_TRUE(Case.Disconnect(From, TEXT("out"), To, TEXT("in"))) << "nothing remains to be removed";
	EXPECT_FALSE(Case.Disconnect(From, TEXT("x"), To, TEXT("in")));
	EXPECT_FALSE(Case.Disconnect(From, TEXT("out"), To, TEXT("y")));
	EXPECT_FALSE(FBlueprintPinUtils::DisconnectPins(nullptr, From, TEXT("out"), To, TEXT("in"), Case.Result));
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(StartsWith("No connection found between Pure (full).out and "),
			"[Failure] Source pin 'x' not found on node 'Pure (full)'",
			StartsWith("[Failure] Target pin 'y' not found on node '"), "[Failure] Graph is null"));
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
}

TEST(PinDefault, AcceptedValuesStandAndRefusedOnesLeaveTheOld)
{
	struct FRow
	{
		const TCHAR* Category;
		const TCHAR* Good;
		const TCHAR* Bad;
	};
	for (const FRow& Row : {FRow{TEXT("int"), TEXT("5"), TEXT("five")}, {TEXT("bool"), TEXT("true"), TEXT("maybe")}})
	{
		FConnecting Case;
		UEdGraphPin* const Pin = Case.K2(Row.Category, TEXT("int")).Input(TEXT("in"));
		EXPECT_TRUE(FBlueprintPinUtils::SetPinDefaultValue(Pin, Row.Good, Case.Result));
		EXPECT_EQ(Pin->DefaultValue, Row.Good);
		EXPECT_THAT(Warnings(Case.Result), IsEmpty());
		EXPECT_FALSE(FBlueprintPinUtils::SetPinDefaultValue(Pin, Row.Bad, Case.Result)) << ToStd(Row.Bad);
		EXPECT_EQ(Pin->DefaultValue, Row.Good);
		EXPECT_EQ(Warnings(Case.Result).size(), 1u);
	}
}

TEST(PinDefault, ARefusedObjectLeavesTheOldObject)
{
	FConnecting Case;
	const FNodeHandle Node = Case.K2(TEXT("object"), TEXT("int"));
	UEdGraphPin* const Pin = Node.Input(TEXT("in"));
	Pin->PinType.PinSubCategoryObject = UEdGraph::StaticClass();
	Pin->DefaultObject = Case.Graph.Get();
	EXPECT_FALSE(FBlueprintPinUtils::SetPinDefaultValue(Pin, TEXT("/Script/CoreUObject.Object"), Case.Result));
	EXPECT_EQ(Pin->DefaultObject.Get(), Case.Graph.Get());
}

TEST(PinDefault, ALinkedPinIsNeverForced)
{
	FConnecting Case;
	const FNodeHandle From = Case.K2(TEXT("int"), TEXT("int"));
	const FNodeHandle To = Case.K2(TEXT("int"), TEXT("int"));
	Case.Graph.Link(From.Output(TEXT("out")), To.Input(TEXT("in")));
	To.Input(TEXT("in"))->DefaultValue = TEXT("3");
	EXPECT_FALSE(FBlueprintPinUtils::SetPinDefaultValue(To.Input(TEXT("in")), TEXT("4"), Case.Result));
	EXPECT_EQ(To.Input(TEXT("in"))->DefaultValue, TEXT("3"));
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(
			"Failed to set value of pin 'in' to '4'. Pin is connected to another pin. Break the connection if you want to set a manual value."));
	EXPECT_FALSE(FBlueprintPinUtils::SetPinDefaultValue(nullptr, TEXT("4"), Case.Result)) << "silent for null";
	EXPECT_EQ(Warnings(Case.Result).size(), 1u);
}

TEST(PinDefault, APinThatNeedsAWireGetsAHint)
{
	FConnecting Case;
	UEdGraphPin* const Pin = Case.K2(TEXT("name"), TEXT("int")).Input(TEXT("in"));
	Pin->PinType.bIsReference = true;
	Pin->bDefaultValueIsIgnored = true;
	EXPECT_FALSE(FBlueprintPinUtils::SetPinDefaultValue(Pin, TEXT("Hips"), Case.Result));
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(HasSubstr("must have an input wired into"),
			"You can use Make literal Name node to set the value and connect it to this pin"));
}

TEST(PinTypeConversion, WordsBecomeAType)
{
	const FGraphBuilder Editor; // the object is looked up among the editor's classes
	FBPPinType Record;
	Record.Category = TEXT("object");
	Record.SubCategoryObject = TEXT("/Script/Engine.EdGraph");
	Record.ContainerType = TEXT("MAP");
	Record.ValueType = MakeShared<FBPPinType>();
	Record.ValueType->Category = TEXT("float");
	const FEdGraphPinType Type = FBlueprintPinUtils::ConvertPinType(Record);
	EXPECT_EQ(Type.PinCategory, UEdGraphSchema_K2::PC_Object);
	EXPECT_EQ(Type.PinSubCategoryObject.Get(), UEdGraph::StaticClass());
	EXPECT_TRUE(Type.IsMap());
	EXPECT_EQ(Type.PinValueType.TerminalCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_EQ(Type.PinValueType.TerminalSubCategory, UEdGraphSchema_K2::PC_Float);

	struct FRow
	{
		const TCHAR* Container;
		EPinContainerType Expected;
	};
	for (const FRow& Row : {FRow{TEXT("Array"), EPinContainerType::Array}, {TEXT("set"), EPinContainerType::Set},
			 {TEXT("list"), EPinContainerType::None}, {TEXT(""), EPinContainerType::None}})
	{
		FBPPinType Container;
		Container.Category = TEXT("int");
		Container.ContainerType = Row.Container;
		EXPECT_EQ(FBlueprintPinUtils::ConvertPinType(Container).ContainerType, Row.Expected) << ToStd(Row.Container);
	}
}
