// Nodes and pins that are wrong each in the way of its family.

#include "CompileFaults.h"
#include "CompileLog.h"
#include "CompileScene.h"
#include "K2Node_AddDelegate.h"
#include "K2Node_BreakStruct.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_GetClassDefaults.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_MakeArray.h"
#include "K2Node_MathExpression.h"
#include "K2Node_Message.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_Select.h"
#include "K2Node_SpawnActorFromClass.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_Timeline.h"
#include "UObject/Package.h"

#include <gmock/gmock.h>

namespace CompilerNodesTests
{
using FSchema = UEdGraphSchema_K2;

constexpr const TCHAR* System = TEXT("/Script/Engine.KismetSystemLibrary");
constexpr const TCHAR* Actor = TEXT("/Script/Engine.Actor");

static UClass* ClassAt(const TCHAR* Path)
{
	return FindObject<UClass>(nullptr, Path);
}

/** A node that runs when the game begins, in a scene of its own. */
template <class TNode>
void Run(const FBlueprintBuilder& Blueprint, void (*Bind)(TNode&))
{
	FCompileScene Scene(Blueprint);
	Scene.Event("begin", TEXT("ReceiveBeginPlay"));
	Scene.Add<TNode>("node", Bind);
	UEdGraphPin* const Execute = Cast<UK2Node>(Scene["node"])->GetExecPin();
	ASSERT_NE(Execute, nullptr);
	FGraphBuilder::Link(Scene.Pin("begin.then"), Execute);
}

/** A call that runs, with a text in a pin that nobody checked. */
static void RunCall(
	const FBlueprintBuilder& Blueprint, const TCHAR* Class, const TCHAR* Function, const char* Pin, const TCHAR* Value)
{
	FCompileScene Scene(Blueprint);
	Scene.Event("begin", TEXT("ReceiveBeginPlay"));
	Scene.Call("call", Class, Function);
	Scene.Wire({"begin.then > call.execute"});
	Scene.Pin(std::string("call.") + Pin)->DefaultValue = Value;
}
} // namespace CompilerNodesTests

using namespace CompilerNodesTests;

const FFault NodeFaults[] = {
	{"SpawnWithoutClass",
		[](const FBlueprintBuilder& Blueprint)
		{ Run<UK2Node_SpawnActorFromClass>(Blueprint, [](UK2Node_SpawnActorFromClass&) {}); },
		{"error: Spawn node Spawn Actor from Class must have a Class specified. {Spawn Actor from Class; Spawn Actor from Class.Class}"}},
	{"OpenOperator",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene(Blueprint).Add<UK2Node_PromotableOperator>("add",
				[](UK2Node_PromotableOperator& Node) {
					Node.SetFromFunction(
						ClassAt(TEXT("/Script/Engine.KismetMathLibrary"))->FindFunctionByName(TEXT("Add_IntInt")));
				});
		},
		{"error: The type of A is undetermined. Connect something to Add to imply a specific type. {Add.A; Add}"}},
	{"OpenSelect", [](const FBlueprintBuilder& Blueprint) { FCompileScene(Blueprint).Add<UK2Node_Select>("select"); },
		{"error: The type of the options of Select is undetermined. Connect something to Return Value to imply a specific type. {Select; Select.ReturnValue}",
			"error: The type of Index is undetermined. Connect something to Select to imply a specific type. {Select.Index; Select}"}},
	{"OpenMakeArray",
		[](const FBlueprintBuilder& Blueprint) { FCompileScene(Blueprint).Add<UK2Node_MakeArray>("make"); },
		{"error: The type of Make Array is undetermined. Connect something to imply a specific type. {Make Array}"}},
	{"OpenLoop",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Macro("each", TEXT("ForEachLoop"));
			Scene.Wire({"begin.then > each.Exec"});
		},
		{"error: The type of Array is undetermined. Connect something to For Each Loop to imply a specific type. {For Each Loop.Array; For Each Loop}"}},
	{"PinWithoutName",
		[](const FBlueprintBuilder& Blueprint) { FCompileScene(Blueprint).Macro("flip", TEXT("FlipFlop")); },
		{"note: Flip Flop is never executed: nothing is connected to the unnamed pin {Flip Flop; Flip Flop.None}"}},
	{"SwitchWithoutEnum",
		[](const FBlueprintBuilder& Blueprint) { Run<UK2Node_SwitchEnum>(Blueprint, [](UK2Node_SwitchEnum&) {}); },
		{"error: Switch on (bad enum) must have a valid enum defined {Switch on (bad enum)}"}},
	{"StructGone",
		[](const FBlueprintBuilder& Blueprint) { FCompileScene(Blueprint).Add<UK2Node_BreakStruct>("break"); },
		{"error: Unknown structure at Break <unknown struct> {Break <unknown struct>}"}},
	{"CastToNothing",
		[](const FBlueprintBuilder& Blueprint) { Run<UK2Node_DynamicCast>(Blueprint, [](UK2Node_DynamicCast&) {}); },
		{"error: Node Bad cast node has an invalid target type, please delete and recreate it {Bad cast node}"}},
	{"MacroGone",
		[](const FBlueprintBuilder& Blueprint) { FCompileScene(Blueprint).Add<UK2Node_MacroInstance>("macro"); },
		{"error: Macro node Macro instance is pointing at an invalid macro graph. {Macro instance}"}},
	{"TimelineGone",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Add<UK2Node_Timeline>("time", [](UK2Node_Timeline& Node) { Node.TimelineName = TEXT("Swing"); });
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Wire({"begin.then > time.Play"});
		},
		{"error: Timeline node Swing has no template. Delete it and make it again. {Swing}"}},
	{"EventGone",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene(Blueprint).Add<UK2Node_Event>("event",
				[](UK2Node_Event& Node)
				{
					Node.EventReference.SetExternalMember(TEXT("ReceiveMoonlight"), ClassAt(Actor));
					Node.bOverrideFunction = true;
				});
		},
		{"error: Missing Event 'ReceiveMoonlight' in 'Actor' for Event ReceiveMoonlight {Event ReceiveMoonlight}"}},
	{"EventOfAnotherClass",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene(Blueprint).Add<UK2Node_Event>("event",
				[](UK2Node_Event& Node)
				{
					Node.EventReference.SetExternalMember(TEXT("OnJumped"), ClassAt(TEXT("/Script/Engine.Character")));
					Node.bOverrideFunction = true;
				});
		},
		{"error: Event 'OnJumped' is declared in 'Character', which is no parent of this Blueprint: Event OnJumped {Event OnJumped}"}},
	{"ComponentOfBoundEventGone",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene(Blueprint).Add<UK2Node_ComponentBoundEvent>("event",
				[](UK2Node_ComponentBoundEvent& Node)
				{
					Node.ComponentPropertyName = TEXT("Lamp");
					Node.DelegatePropertyName = TEXT("OnComponentHit");
					Node.DelegateOwnerClass = ClassAt(TEXT("/Script/Engine.PrimitiveComponent"));
				});
		},
		{"warning: On Component Hit (Lamp) does not have a valid matching component: there is no 'Lamp'. {On Component Hit (Lamp)}"}},
	{"DispatcherGone",
		[](const FBlueprintBuilder& Blueprint)
		{
			Run<UK2Node_AddDelegate>(
				Blueprint, [](UK2Node_AddDelegate& Node) { Node.DelegateReference.SetSelfMember(TEXT("OnOpened")); });
		},
		{"error: Could not find an event dispatcher named \"OnOpened\" in Bind Event to On Opened {Bind Event to On Opened}",
			"error: Event pin Event of Bind Event to On Opened must be connected to the event that is meant {Bind Event to On Opened.Delegate; Bind Event to On Opened}"}},
	{"NothingToBind",
		[](const FBlueprintBuilder& Blueprint)
		{
			Run<UK2Node_AddDelegate>(Blueprint,
				[](UK2Node_AddDelegate& Node) { Node.DelegateReference.SetSelfMember(TEXT("OnDestroyed")); });
		},
		{"error: Event pin Event of Bind Event to On Destroyed must be connected to the event that is meant {Bind Event to On Destroyed.Delegate; Bind Event to On Destroyed}"}},
	{"FunctionToBindGone",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Call("timer", System, TEXT("K2_SetTimerDelegate"));
			Scene.Add<UK2Node_CreateDelegate>("made");
			Scene.Wire({"begin.then > timer.execute", "made.OutputDelegate > timer.Delegate"});
			Cast<UK2Node_CreateDelegate>(Scene["made"])->SetFunction(TEXT("Nowhere"));
		},
		{"error: Create Event Error: The function or event 'Nowhere' could not be found in 'BP_Test_C'. {Create Event}"}},
	{"MessageToNobody",
		[](const FBlueprintBuilder& Blueprint)
		{
			Run<UK2Node_Message>(Blueprint,
				[](UK2Node_Message& Node)
				{
					UClass* const Interface = ClassAt(TEXT("/Script/UMG.UserListEntry"));
					Node.FunctionReference.SetExternalMember(TEXT("BP_OnEntryReleased"), Interface);
				});
		},
		{"warning: On Entry Released (Message) has no target: the message goes to nobody. Connect Target . {On Entry Released (Message); On Entry Released (Message).self}"}},
	{"WrongFormula",
		[](const FBlueprintBuilder& Blueprint)
		{ FCompileScene(Blueprint).Add<UK2Node_MathExpression>("formula")->RebuildExpression(TEXT("2*(x+")); },
		{"error: Parse error at character 6: expected a value, but the formula ends. (in 2*(x+ ) {2*(x+}"}},
	{"NoClassToReadDefaultsOf",
		[](const FBlueprintBuilder& Blueprint) { FCompileScene(Blueprint).Add<UK2Node_GetClassDefaults>("get"); },
		{"warning: No input class was given to Get Class Defaults {Get Class Defaults}"}},
	{"OutputToTwoNodes",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Print("one");
			Scene.Print("two");
			FGraphBuilder::Link(Scene.Pin("begin.then"), Scene.Pin("one.execute"));
			FGraphBuilder::Link(Scene.Pin("begin.then"), Scene.Pin("two.execute"));
		},
		{"error: then of Event BeginPlay leads to more than one node; use a Sequence to execute one after the other {Event BeginPlay.then; Event BeginPlay}"}},
	{"InputFromTwoNodes",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Print("print");
			Scene.Wire({"begin.then > print.execute"});
			for (const char* const Name : {"one", "two"})
			{
				Scene.Call(Name, System, TEXT("GetGameName"));
				FGraphBuilder::Link(Scene.Pin(std::string(Name) + ".ReturnValue"), Scene.Pin("print.InString"));
			}
		},
		{"error: In String of Print String is connected to more than one output; an input takes one value {Print String.InString; Print String}"}},
	{"LinkOfTypesThatDoNotGo",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Add<UK2Node_IfThenElse>("branch");
			Scene.Call("name", System, TEXT("GetGameName"));
			Scene.Wire({"begin.then > branch.execute"});
			FGraphBuilder::Link(Scene.Pin("name.ReturnValue"), Scene.Pin("branch.Condition"));
		},
		{"error: Return Value can't be connected to Condition since String is not compatible with Boolean. {Get Game Name.ReturnValue; Branch.Condition}"}},
	{"LinkAcrossGraphs",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			FCompileScene Other(Blueprint, Blueprint.Function(TEXT("Elsewhere")).Get());
			Other.Print("print");
			FGraphBuilder::Link(Scene.Pin("begin.then"), Other.Pin("print.execute"));
		},
		{"note: Print String is never executed: nothing that is executed leads to execute {Print String; Print String.execute}",
			"error: then is connected to a node outside its graph {Event BeginPlay.then}"}},
	{"NotABool",
		[](const FBlueprintBuilder& Blueprint)
		{ RunCall(Blueprint, Actor, TEXT("SetActorHiddenInGame"), "bNewHidden", TEXT("maybe")); },
		{"error: The value of pin New Hidden on node Set Actor Hidden in Game is invalid: 'maybe' is neither true nor false {Set Actor Hidden in Game.bNewHidden; Set Actor Hidden in Game}"}},
	{"NotAnInteger",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Call("pawn", TEXT("/Script/Engine.GameplayStatics"), TEXT("GetPlayerPawn"));
			Scene.Pin("pawn.PlayerIndex")->DefaultValue = TEXT("2.5");
		},
		{"error: The value of pin Player Index on node Get Player Pawn is invalid: '2.5' is not a valid integer {Get Player Pawn.PlayerIndex; Get Player Pawn}"}},
	{"EventThatIsNone",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene(Blueprint).Add<UK2Node_Event>("event",
				[](UK2Node_Event& Node)
				{
					Node.EventReference.SetExternalMember(TEXT("SetActorHiddenInGame"), ClassAt(Actor));
					Node.bOverrideFunction = true;
				});
		},
		{"error: Event Set Actor Hidden in Game stands for a function that cannot be overridden {Event Set Actor Hidden in Game}"}},
	{"NotAClassThatFits",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Call("find", TEXT("/Script/Engine.GameplayStatics"), TEXT("GetAllActorsOfClass"));
			Scene.Wire({"begin.then > find.execute"});
			Scene.Pin("find.ActorClass")->DefaultObject = ClassAt(TEXT("/Script/Engine.StaticMesh"));
		},
		{"error: The value of pin Actor Class on node Get All Actors Of Class is invalid: StaticMesh is not a child class of Actor {Get All Actors Of Class.ActorClass; Get All Actors Of Class}"}},
	{"NotAVector",
		[](const FBlueprintBuilder& Blueprint)
		{ RunCall(Blueprint, Actor, TEXT("K2_SetActorLocation"), "NewLocation", TEXT("up")); },
		{"error: The value of pin New Location on node Set Actor Location is invalid: 'up' is not a valid Vector: three numbers parted by commas are wanted {Set Actor Location.NewLocation; Set Actor Location}"}},
	{"DeprecatedFunction",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const Graph = Blueprint.Function(TEXT("Old")).Get();
			UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph);
			Entry->MetaData.bIsDeprecated = true;
			Entry->MetaData.DeprecationMessage = TEXT("Use New.");
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.CallOwn("old", TEXT("Old"));
			Scene.Wire({"begin.then > old.execute"});
		},
		{"warning: Old : Function 'Old' is deprecated. Use New. {Old}"}},
};

INSTANTIATE_TEST_SUITE_P(NodeFamilies, FCompileFault, testing::ValuesIn(NodeFaults), FaultName);
