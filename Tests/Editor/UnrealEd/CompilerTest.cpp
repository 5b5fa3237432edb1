#include "CompileFaults.h"
#include "CompileLog.h"

#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_Knot.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace CompilerTests
{
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const TCHAR* System = TEXT("/Script/Engine.KismetSystemLibrary");
constexpr const TCHAR* Math = TEXT("/Script/Engine.KismetMathLibrary");
constexpr const TCHAR* Actor = TEXT("/Script/Engine.Actor");

static UEdGraphNode* BeginPlay(const FBlueprintBuilder& Blueprint)
{
	return FBlueprintEditorUtils::FindOverrideForFunction(
		Blueprint.Get(), FindObject<UClass>(nullptr, Actor), TEXT("ReceiveBeginPlay"));
}

/** Links as an author does, asking the schema. */
static void Connect(UEdGraphPin* From, UEdGraphPin* To)
{
	ASSERT_NE(From, nullptr);
	ASSERT_NE(To, nullptr);
	EXPECT_TRUE(From->GetSchema()->TryCreateConnection(From, To))
		<< ToStd(From->GetName()) << " to " << ToStd(To->GetName());
}

/** The next thing that happens after BeginPlay. */
static FNodeHandle Begin(const FBlueprintBuilder& Blueprint, FNodeHandle Node)
{
	Connect(BeginPlay(Blueprint)->FindPin(TEXT("then")), Node.Input(TEXT("execute")));
	return Node;
}

static FNodeHandle Print(const FBlueprintBuilder& Blueprint)
{
	return Blueprint.EventGraph().Call(System, TEXT("PrintString"));
}

static FNodeHandle Get(const FGraphBuilder& Graph, const TCHAR* Name)
{
	FGraphNodeCreator<UK2Node_VariableGet> Creator(*Graph.Get());
	UK2Node_VariableGet* const Node = Creator.CreateNode(false);
	Node->VariableReference.SetSelfMember(FName(Name));
	Creator.Finalize();
	return {Node};
}

static FNodeHandle CallOwn(const FGraphBuilder& Graph, const TCHAR* Name)
{
	FGraphNodeCreator<UK2Node_CallFunction> Creator(*Graph.Get());
	UK2Node_CallFunction* const Node = Creator.CreateNode(false);
	Node->FunctionReference.SetSelfMember(FName(Name));
	Creator.Finalize();
	return {Node};
}
} // namespace CompilerTests

using namespace CompilerTests;

TEST(Compiler, GoodBlueprintIsClean)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Text"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String));
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FNodeHandle First = Begin(Blueprint, Print(Blueprint));
	Connect(Get(Graph, TEXT("Text")).Output(TEXT("Text")), First.Input(TEXT("InString")));
	UK2Node_IfThenElse* const Branch = Graph.Add<UK2Node_IfThenElse>();
	Connect(First.Output(TEXT("then")), Branch->FindPin(TEXT("execute")));
	const FNodeHandle Delay = Graph.Call(System, TEXT("Delay"));
	Connect(Branch->FindPin(TEXT("then")), Delay.Input(TEXT("execute")));
	Graph.Comment(0, 0, 100, 100);
	Blueprint.Function(TEXT("Nothing"));
	EXPECT_THAT(CompileMessages(Blueprint.Get()), IsEmpty());
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
}

TEST_P(FCompileFault, IsFoundAndPointedAt)
{
	const FBlueprintBuilder Blueprint;
	GetParam().Make(Blueprint);
	EXPECT_THAT(CompileMessages(Blueprint.Get()), testing::ElementsAreArray(GetParam().Expected));
	const auto Has = [](const std::string& Severity)
	{
		return std::any_of(GetParam().Expected.begin(), GetParam().Expected.end(),
			[&Severity](const std::string& Message) { return Message.starts_with(Severity); });
	};
	EXPECT_EQ(Blueprint->Status, Has("error") ? BS_Error : Has("warning") ? BS_UpToDateWithWarnings : BS_UpToDate);
}

const FFault Faults[] = {
	{"UnknownVariable", [](const FBlueprintBuilder& Blueprint) { Get(Blueprint.EventGraph(), TEXT("Absent")); },
		{"error: Could not find a variable named \"Absent\" in 'BP_Test_C'.\nMake sure 'BP_Test_C' has been compiled for Get Absent {Get Absent}"}},
	{"UnknownFunction",
		[](const FBlueprintBuilder& Blueprint) { Begin(Blueprint, CallOwn(Blueprint.EventGraph(), TEXT("Absent"))); },
		{"error: Could not find a function named \"Absent\" in 'BP_Test_C'.\nMake sure 'BP_Test_C' has been compiled for Absent {Absent}"}},
	{"RemovedVariable",
		[](const FBlueprintBuilder& Blueprint)
		{
			Blueprint.AddVariable(TEXT("Gone"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String));
			const FNodeHandle Node = Begin(Blueprint, Print(Blueprint));
			Connect(Get(Blueprint.EventGraph(), TEXT("Gone")).Output(TEXT("Gone")), Node.Input(TEXT("InString")));
			Blueprint->NewVariables.RemoveAt(0);
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
		},
		{"error: Could not find a variable named \"Gone\" in 'BP_Test_C'.\nMake sure 'BP_Test_C' has been compiled for Get Gone {Get Gone}"}},
	{"TargetNotLinked",
		[](const FBlueprintBuilder& Blueprint)
		{
			Begin(Blueprint,
				Blueprint.EventGraph().Call(TEXT("/Script/Engine.PrimitiveComponent"), TEXT("WakeAllRigidBodies")));
		},
		{"error: This blueprint (self) is not a Primitive Component, therefore ' Target ' must have a connection. {Wake All Rigid Bodies.self}"}},
	{"ReferenceNotLinked",
		[](const FBlueprintBuilder& Blueprint)
		{ Blueprint.EventGraph().Call(TEXT("/Script/Engine.KismetArrayLibrary"), TEXT("Array_Length")); },
		{"error: The value of pin Target Array on node Length is invalid: 'Target Array' must have an input wired into it (it is passed by reference, so there must be something to refer to) {Length.TargetArray; Length}"}},
	{"DelegateNotLinked",
		[](const FBlueprintBuilder& Blueprint)
		{ Begin(Blueprint, Blueprint.EventGraph().Call(System, TEXT("K2_SetTimerDelegate"))); },
		{"error: Event of Set Timer by Event must be connected to the event that is to be called {Set Timer by Event.Delegate; Set Timer by Event}"}},
	{"InvalidNumber",
		[](const FBlueprintBuilder& Blueprint)
		{
			const FNodeHandle Node = Begin(Blueprint, Blueprint.EventGraph().Call(System, TEXT("Delay")));
			Node.Input(TEXT("Duration"))->DefaultValue = TEXT("soon");
		},
		{"error: The value of pin Duration on node Delay is invalid: 'soon' is not a valid number {Delay.Duration; Delay}"}},
	{"InvalidEnum",
		[](const FBlueprintBuilder& Blueprint)
		{
			const FNodeHandle Node = Begin(
				Blueprint, Blueprint.EventGraph().Call(TEXT("/Script/Engine.Actor"), TEXT("SetTickGroup")));
			Node.Input(TEXT("NewTickGroup"))->DefaultValue = TEXT("TG_Never");
		},
		{"error: The value of pin New Tick Group on node Set Tick Group is invalid: 'TG_Never' is not an entry of the enum ETickingGroup (it has TG_PrePhysics, TG_DuringPhysics, TG_PostPhysics, TG_PostUpdateWork) {Set Tick Group.NewTickGroup; Set Tick Group}"}},
	{"InvalidStruct",
		[](const FBlueprintBuilder& Blueprint)
		{
			const FNodeHandle Node = Begin(Blueprint, Print(Blueprint));
			Node.Input(TEXT("TextColor"))->DefaultValue = TEXT("(R=red)");
		},
		{"error: The value of pin Text Color on node Print String is invalid: '(R=red)' is not a valid LinearColor: R: Missing number in: red) {Print String.TextColor; Print String}"}},
	{"ChangedVariableType",
		[](const FBlueprintBuilder& Blueprint)
		{
			Blueprint.AddVariable(TEXT("Value"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String));
			const FNodeHandle Node = Begin(Blueprint, Print(Blueprint));
			Connect(Get(Blueprint.EventGraph(), TEXT("Value")).Output(TEXT("Value")), Node.Input(TEXT("InString")));
			FBlueprintEditorUtils::ChangeMemberVariableType(
				Blueprint.Get(), TEXT("Value"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Boolean));
		},
		{"error: The type of Value on node Get Value was String and is Boolean now. Please break the old link or connect the new pin. {Get Value.Value; Get Value}"}},
	{"RemovedParameter",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const Function = Blueprint.Function(TEXT("Take")).Get();
			UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Function);
			Entry->CreateUserDefinedPin(
				TEXT("Words"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String), EGPD_Output);
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
			const FNodeHandle Call = Begin(Blueprint, CallOwn(Blueprint.EventGraph(), TEXT("Take")));
			const FNodeHandle Name = Blueprint.EventGraph().Call(System, TEXT("GetGameName"));
			Connect(Name.Output(TEXT("ReturnValue")), Call.Input(TEXT("Words")));
			Entry->RemoveUserDefinedPinByName(TEXT("Words"));
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
		},
		{"error: In use pin Words no longer exists on node Take . Please refresh node or break links to remove pin. {Take.Words; Take}"}},
	{"TwoEventsOfOneName",
		[](const FBlueprintBuilder& Blueprint)
		{
			for (int32 Index = 0; Index < 2; ++Index)
			{
				FGraphNodeCreator<UK2Node_CustomEvent> Creator(*Blueprint.EventGraph().Get());
				Creator.CreateNode(false)->CustomFunctionName = TEXT("Ring");
				Creator.Finalize();
			}
		},
		{"error: The name 'Ring' is used by more than one custom event; every member of a Blueprint needs a name of its own: Ring {Ring}"}},
	{"TwoOverridesOfOneEvent",
		[](const FBlueprintBuilder& Blueprint)
		{
			for (int32 Index = 0; Index < 2; ++Index)
			{
				FGraphNodeCreator<UK2Node_Event> Creator(*Blueprint.EventGraph().Get());
				UK2Node_Event* const Event = Creator.CreateNode(false);
				Event->EventReference.SetExternalMember(TEXT("ReceiveDestroyed"), FindObject<UClass>(nullptr, Actor));
				Event->bOverrideFunction = true;
				Creator.Finalize();
			}
		},
		{"error: Found more than one function with the same name: Event Destroyed and Event Destroyed {Event Destroyed; Event "
		 "Destroyed}"}},
	{"InterfaceFunctionWithoutEntry",
		[](const FBlueprintBuilder& Blueprint)
		{
			const UClass* const Interface = FindObject<UClass>(
				nullptr, TEXT("/Script/MovieScene.MovieSceneEasingFunction"));
			ASSERT_TRUE(FBlueprintEditorUtils::ImplementNewInterface(Blueprint.Get(), FTopLevelAssetPath(Interface)));
			FBlueprintEditorUtils::GetEntryNode(Blueprint->ImplementedInterfaces[0].Graphs[0])->DestroyNode();
		},
		{"error: Interface function 'OnEvaluate' of 'MovieSceneEasingFunction' is not implemented"}},
	{"EventNamedAsVariable",
		[](const FBlueprintBuilder& Blueprint)
		{
			Blueprint.AddVariable(TEXT("Ring"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String));
			FGraphNodeCreator<UK2Node_CustomEvent> Creator(*Blueprint.EventGraph().Get());
			Creator.CreateNode(false)->CustomFunctionName = TEXT("Ring");
			Creator.Finalize();
		},
		{"error: The name 'Ring' is used by a variable and by a custom event; every member of a Blueprint needs a name of its own: Ring {Ring}"}},
	{"VariableOfMissingType",
		[](const FBlueprintBuilder& Blueprint)
		{ Blueprint.AddVariable(TEXT("Lost"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Struct)); },
		{"error: The variable 'Lost' declared in 'BP_Test' has an invalid type: Structure"}},
	{"VariableDefault",
		[](const FBlueprintBuilder& Blueprint)
		{
			FBlueprintEditorUtils::AddMemberVariable(
				Blueprint.Get(), TEXT("Count"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int), TEXT("many"));
		},
		{"warning: The default value 'many' of the variable 'Count' is not a valid Integer"}},
	{"VariableOfTheParent",
		[](const FBlueprintBuilder& Blueprint)
		{
			FBPVariableDescription Variable;
			Variable.VarName = TEXT("bReplicates");
			Variable.VarType = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Boolean);
			Blueprint->NewVariables.Add(Variable);
		},
		{"error: The variable 'bReplicates' has the name of a variable of the parent class 'Actor'"}},
	{"FunctionWithoutEntry",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const Graph = Blueprint.Function(TEXT("Headless")).Get();
			FBlueprintEditorUtils::GetEntryNode(Graph)->DestroyNode();
		},
		{"error: Could not find a function entry node in the graph 'Headless'"}},
	{"EntryInEventGraph",
		[](const FBlueprintBuilder& Blueprint) { Blueprint.EventGraph().Add<UK2Node_FunctionEntry>(); },
		{"error: Event Graph starts a function and can only stand in the graph of one {Event Graph}"}},
	{"NeverExecuted", [](const FBlueprintBuilder& Blueprint) { Print(Blueprint); },
		{"note: Print String is never executed: nothing is connected to execute {Print String; Print String.execute}"}},
	{"NeverExecutedAndWrongInManyWays",
		[](const FBlueprintBuilder& Blueprint)
		{
			FGraphBuilder Graph = Blueprint.EventGraph();
			const FNodeHandle Adding = Graph.Call(TEXT("/Script/Engine.KismetArrayLibrary"), TEXT("Array_Add"));
			Print(Blueprint).Input(TEXT("Duration"))->DefaultValue = TEXT("soon");
			FGraphBuilder::Then(Adding, CallOwn(Graph, TEXT("Absent")));
			FGraphBuilder::Link(
				Get(Graph, TEXT("Gone")).Node->CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_String, TEXT("Gone")),
				Adding.Input(TEXT("NewItem")));
		},
		{"note: Add is never executed: nothing is connected to execute {Add; Add.execute}",
			"note: Print String is never executed: nothing is connected to execute {Print String; Print String.execute}"}},
	{"ValueOfWhatIsNeverExecuted",
		[](const FBlueprintBuilder& Blueprint)
		{
			FGraphNodeCreator<UK2Node_DynamicCast> Creator(*Blueprint.EventGraph().Get());
			UK2Node_DynamicCast* const CastNode = Creator.CreateNode(false);
			CastNode->TargetType = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
			Creator.Finalize();
			const FNodeHandle Destroy = Begin(Blueprint, Blueprint.EventGraph().Call(Actor, TEXT("K2_DestroyActor")));
			Connect(CastNode->GetCastResultPin(), Destroy.Input(TEXT("self")));
		},
		{"note: Cast To Actor is never executed: nothing is connected to execute {Cast To Actor; Cast To Actor.execute}",
			"warning: Cast To Actor is never executed, so Target of Destroy Actor reads a default instead of its value {Cast To Actor; Destroy Actor.self; Destroy Actor}"}},
	{"UnreachableRing",
		[](const FBlueprintBuilder& Blueprint)
		{
			const FNodeHandle First = Print(Blueprint);
			const FNodeHandle Second = Print(Blueprint);
			FGraphBuilder::Then(First, Second);
			FGraphBuilder::Then(Second, First);
		},
		{"note: Print String is never executed: nothing that is executed leads to execute {Print String; Print String.execute}"}},
	{"LatentInFunction",
		[](const FBlueprintBuilder& Blueprint)
		{
			FGraphBuilder Graph = Blueprint.Function(TEXT("Wait"));
			const FNodeHandle Delay = Graph.Call(System, TEXT("Delay"));
			Connect(
				FBlueprintEditorUtils::GetEntryNode(Graph.Get())->FindPin(TEXT("then")), Delay.Input(TEXT("execute")));
		},
		{"error: Delay is a latent action, which can only be used in an event graph or a macro, not in a function {Delay}"}},
	{"CastThatAlwaysFails",
		[](const FBlueprintBuilder& Blueprint)
		{
			FGraphNodeCreator<UK2Node_DynamicCast> Creator(*Blueprint.EventGraph().Get());
			UK2Node_DynamicCast* const CastNode = Creator.CreateNode(false);
			CastNode->TargetType = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Pawn"));
			Creator.Finalize();
			Begin(Blueprint, {CastNode});
			const FNodeHandle Component = Blueprint.EventGraph().Call(Actor, TEXT("K2_GetRootComponent"));
			Connect(Component.Output(TEXT("ReturnValue")), CastNode->GetCastSourcePin());
		},
		{"warning: 'Pawn' does not inherit from 'Scene Component' ( Cast To Pawn would always fail). {Cast To Pawn}"}},
	{"CastOfNothing",
		[](const FBlueprintBuilder& Blueprint)
		{
			FGraphNodeCreator<UK2Node_DynamicCast> Creator(*Blueprint.EventGraph().Get());
			UK2Node_DynamicCast* const CastNode = Creator.CreateNode(false);
			CastNode->TargetType = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Pawn"));
			Creator.Finalize();
			Begin(Blueprint, {CastNode});
		},
		{"warning: Cast To Pawn has nothing to cast: connect something to Object {Cast To Pawn; Cast To Pawn.Object}"}},
	{"PureRing",
		[](const FBlueprintBuilder& Blueprint)
		{
			const FNodeHandle First = Blueprint.EventGraph().Call(Math, TEXT("Not_PreBool"));
			const FNodeHandle Second = Blueprint.EventGraph().Call(Math, TEXT("Not_PreBool"));
			FGraphBuilder::Link(First.Output(TEXT("ReturnValue")), Second.Input(TEXT("A")));
			FGraphBuilder::Link(Second.Output(TEXT("ReturnValue")), First.Input(TEXT("A")));
		},
		{"error: Dependency cycle detected, preventing node NOT Boolean from being scheduled {NOT Boolean}"}},
};

INSTANTIATE_TEST_SUITE_P(Nodes, FCompileFault, testing::ValuesIn(Faults), FaultName);
