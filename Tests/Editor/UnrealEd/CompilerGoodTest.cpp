// Blueprints as authors make them, with nothing wrong: the compiler has nothing to say to them.

#include "Blueprint/WidgetTree.h"
#include "CompileLog.h"
#include "CompileScene.h"
#include "Components/PanelWidget.h"
#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "EdGraphUtilities.h"
#include "Engine/TimelineTemplate.h"
#include "GraphText.h"
#include "K2Node_AddDelegate.h"
#include "K2Node_BreakStruct.h"
#include "K2Node_CallArrayFunction.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Composite.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_FormatText.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_GetArrayItem.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_InputKey.h"
#include "K2Node_Knot.h"
#include "K2Node_MakeArray.h"
#include "K2Node_MakeStruct.h"
#include "K2Node_MathExpression.h"
#include "K2Node_Message.h"
#include "K2Node_MultiGate.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_Select.h"
#include "K2Node_Self.h"
#include "K2Node_SpawnActorFromClass.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_SwitchInteger.h"
#include "K2Node_SwitchString.h"
#include "K2Node_Timeline.h"
#include "Source/EverythingBlueprint.h"
#include "WidgetBlueprint.h"

#include <gmock/gmock.h>

namespace CompilerGoodTests
{
using FSchema = UEdGraphSchema_K2;

constexpr const TCHAR* System = TEXT("/Script/Engine.KismetSystemLibrary");
constexpr const TCHAR* Math = TEXT("/Script/Engine.KismetMathLibrary");
constexpr const TCHAR* Arrays = TEXT("/Script/Engine.KismetArrayLibrary");
constexpr const TCHAR* Gameplay = TEXT("/Script/Engine.GameplayStatics");
constexpr const TCHAR* Actor = TEXT("/Script/Engine.Actor");
constexpr const TCHAR* Character = TEXT("/Script/Engine.Character");

static UClass* ClassAt(const TCHAR* Path)
{
	return FindObject<UClass>(nullptr, Path);
}

static FEdGraphPinType ListOf(const FName& Category)
{
	FEdGraphPinType Type = FBlueprintBuilder::Type(Category);
	Type.ContainerType = EPinContainerType::Array;
	return Type;
}

static void AddOperator(FCompileScene& Scene, const std::string& Name, const TCHAR* Function)
{
	Scene.Add<UK2Node_PromotableOperator>(Name,
		[Function](UK2Node_PromotableOperator& Node)
		{ Node.SetFromFunction(ClassAt(Math)->FindFunctionByName(Function)); });
}

static void AddDispatcher(const FBlueprintBuilder& Blueprint, const TCHAR* Name)
{
	FBlueprintEditorUtils::AddMemberVariable(Blueprint.Get(), Name, FBlueprintBuilder::Type(FSchema::PC_MCDelegate));
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint.Get(), Name, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	GetDefault<UEdGraphSchema_K2>()->CreateDefaultNodesForGraph(*Graph);
	GetDefault<UEdGraphSchema_K2>()->MarkFunctionEntryAsEditable(Graph, true);
	Blueprint->DelegateSignatureGraphs.Add(Graph);
	FBlueprintEditorUtils::GetEntryNode(Graph)->CreateUserDefinedPin(
		TEXT("By"), FBlueprintBuilder::Type(FSchema::PC_Name), EGPD_Output);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
}

struct FGood
{
	const char* Name;
	const TCHAR* Parent;
	void (*Make)(const FBlueprintBuilder& Blueprint);
};

static void PrintTo(const FGood& Good, std::ostream* Out)
{
	*Out << Good.Name;
}

class FGoodBlueprint : public testing::TestWithParam<FGood>
{
};
} // namespace CompilerGoodTests

using namespace CompilerGoodTests;

TEST_P(FGoodBlueprint, IsCleanHoweverOftenItIsCompiled)
{
	FBlueprintBuilder Blueprint(GetParam().Parent);
	GetParam().Make(Blueprint);
	EXPECT_THAT(CompileMessages(Blueprint.Get()), testing::IsEmpty());
	EXPECT_THAT(CompileMessages(Blueprint.Get()), testing::IsEmpty()) << "the second time";
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_THAT(CompileMessages(Blueprint.Get()), testing::IsEmpty()) << "read back";
}

const FGood GoodBlueprints[] = {
	{"Fresh", Actor, [](const FBlueprintBuilder&) {}},
	{"FlowControl", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Add<UK2Node_ExecutionSequence>("sequence");
			Scene.Macro("for", TEXT("ForLoop"));
			Scene.Macro("while", TEXT("WhileLoop"));
			Scene.Macro("once", TEXT("DoOnce"));
			Scene.Macro("flip", TEXT("FlipFlop"));
			Scene.Macro("gate", TEXT("Gate"));
			Scene.Macro("times", TEXT("Do N"));
			Scene.Add<UK2Node_MultiGate>("multi");
			Scene.Add<UK2Node_SwitchInteger>("switch");
			Scene.Add<UK2Node_Knot>("knot");
			Scene.Print("print");
			Scene.Call("random", Math, TEXT("RandomBool"));
			Scene.Type("for.LastIndex", TEXT("9"));
			Scene.Wire({"begin.then > sequence.execute", "sequence.then_0 > for.execute", "for.LoopBody > once.execute",
				"once.Completed > knot.InputPin", "knot.OutputPin > flip.None", "sequence.then_1 > while.execute",
				"random.ReturnValue > while.Condition", "while.LoopBody > gate.Enter", "while.Completed > times.Enter",
				"gate.Exit > multi.execute", "for.Completed > switch.execute", "for.Index > switch.Selection"});
			Scene.Wire({"multi.Out 0 > print.execute"});
		}},
	{"Arrays", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			Blueprint.AddVariable(TEXT("Names"), ListOf(FSchema::PC_String));
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Get("names", TEXT("Names"));
			Scene.Set("set", TEXT("Names"));
			Scene.Add<UK2Node_MakeArray>("make");
			Scene.Macro("each", TEXT("ForEachLoop"));
			Scene.Print("print");
			Scene.Add<UK2Node_GetArrayItem>("item");
			for (const auto& [Name, Function] :
				{std::pair("add", TEXT("Array_Add")), std::pair("length", TEXT("Array_Length"))})
			{
				Scene.Add<UK2Node_CallArrayFunction>(Name,
					[Function = Function](UK2Node_CallArrayFunction& Node)
					{ Node.SetFromFunction(ClassAt(Arrays)->FindFunctionByName(Function)); });
			}
			Scene.Call("text", System, TEXT("GetGameName"));
			Scene.Print("last");
			Scene.Wire({"text.ReturnValue > make.[0]", "make.Array > set.Names", "begin.then > set.execute",
				"set.then > add.execute", "names.Names > add.TargetArray", "add.then > each.Exec",
				"names.Names > each.Array", "each.LoopBody > print.execute", "each.Array Element > print.InString",
				"names.Names > length.TargetArray", "names.Names > item.Array", "each.Completed > last.execute",
				"item.Output > last.InString"});
			Scene.Type("add.NewItem", TEXT("one more"));
		}},
	{"CastsAndTargets", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Add<UK2Node_DynamicCast>(
				"cast", [](UK2Node_DynamicCast& Node) { Node.TargetType = ClassAt(Character); });
			Scene.Call("pawn", Gameplay, TEXT("GetPlayerPawn"));
			Scene.Call("jump", Character, TEXT("Jump"));
			Scene.Call("wait", System, TEXT("Delay"));
			Scene.Call("gone", Actor, TEXT("K2_DestroyActor"));
			Scene.Add<UK2Node_Self>("self");
			Scene.Wire({"begin.then > cast.execute", "pawn.ReturnValue > cast.Object", "cast.then > jump.execute",
				"cast.AsCharacter > jump.self", "cast.CastFailed > wait.execute", "wait.then > gone.execute",
				"self.self > gone.self"});
			Scene.Type("wait.Duration", TEXT("0.5"));
		}},
	{"Numbers", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			Blueprint.AddVariable(TEXT("Speed"), FBlueprintBuilder::Type(FSchema::PC_Int));
			FCompileScene Scene(Blueprint);
			Scene.Event("tick", TEXT("ReceiveTick"));
			Scene.Get("speed", TEXT("Speed"));
			AddOperator(Scene, "times", TEXT("Multiply_DoubleDouble"));
			AddOperator(Scene, "more", TEXT("Greater_DoubleDouble"));
			Scene
				.Add<UK2Node_MathExpression>(
					"formula", [](UK2Node_MathExpression& Node) { Node.Expression = TEXT("2*x+1"); })
				->RebuildExpression(TEXT("2*x+1"));
			Scene.Add<UK2Node_IfThenElse>("branch");
			Scene.Wire({"tick.DeltaSeconds > times.A", "speed.Speed > times.B", "times.ReturnValue > formula.x",
				"formula.ReturnValue > more.A", "more.ReturnValue > branch.Condition", "tick.then > branch.execute"});
			Scene.Type("more.B", TEXT("3.5"));
		}},
	{"Structs", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Call("location", Actor, TEXT("K2_GetActorLocation"));
			Scene.Call("break", Math, TEXT("BreakVector"));
			Scene.Call("make", Math, TEXT("MakeVector"));
			Scene.Call("place", Actor, TEXT("K2_SetActorLocation"));
			Scene.Add<UK2Node_SpawnActorFromClass>("spawn");
			Scene.Call("transform", Math, TEXT("MakeTransform"));
			Scene.Pin("spawn.Class")->GetSchema()->TrySetDefaultObject(*Scene.Pin("spawn.Class"), ClassAt(Character));
			Scene.Wire({"begin.then > place.execute", "location.ReturnValue > break.InVec", "break.X > make.X",
				"break.Y > make.Z", "make.ReturnValue > place.NewLocation", "place.then > spawn.execute",
				"make.ReturnValue > transform.Location", "transform.ReturnValue > spawn.SpawnTransform"});
			GetDefault<UEdGraphSchema_K2>()->SplitPin(Scene.Pin("transform.Rotation"));
		}},
	{"Dispatcher", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			AddDispatcher(Blueprint, TEXT("OnOpened"));
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.CustomEvent("opened", TEXT("HandleOpened"))
				->CreateUserDefinedPin(TEXT("By"), FBlueprintBuilder::Type(FSchema::PC_Name), EGPD_Output);
			Scene.CustomEvent("timer", TEXT("HandleTimer"));
			Scene.Add<UK2Node_AddDelegate>(
				"bind", [](UK2Node_AddDelegate& Node) { Node.DelegateReference.SetSelfMember(TEXT("OnOpened")); });
			Scene.Add<UK2Node_CallDelegate>(
				"call", [](UK2Node_CallDelegate& Node) { Node.DelegateReference.SetSelfMember(TEXT("OnOpened")); });
			Scene.Call("start", System, TEXT("K2_SetTimerDelegate"));
			Scene.Add<UK2Node_CreateDelegate>("made");
			Scene.Wire({"begin.then > bind.execute", "opened.OutputDelegate > bind.Delegate",
				"bind.then > call.execute", "call.then > start.execute", "made.OutputDelegate > start.Delegate"});
			Cast<UK2Node_CreateDelegate>(Scene["made"])->SetFunction(TEXT("HandleTimer"));
			Scene.Type("call.By", TEXT("Ada"));
		}},
	{"FunctionsAndMacros", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			Blueprint.AddVariable(TEXT("Total"), FBlueprintBuilder::Type(FSchema::PC_Int));
			UEdGraph* const Graph = Blueprint.Function(TEXT("Sum")).Get();
			FBlueprintEditorUtils::GetEntryNode(Graph)->CreateUserDefinedPin(
				TEXT("More"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Output);
			FBlueprintEditorUtils::AddLocalVariable(
				Blueprint.Get(), Graph, TEXT("Held"), FBlueprintBuilder::Type(FSchema::PC_Int), TEXT("4"));
			FCompileScene Inner(Blueprint, Graph);
			Inner.Add<UK2Node_FunctionResult>("result")->CreateUserDefinedPin(
				TEXT("ReturnValue"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Input);
			Inner.Get("total", TEXT("Total"));
			Inner.Set("set", TEXT("Total"));
			AddOperator(Inner, "add", TEXT("Add_IntInt"));
			Inner.Add<UK2Node_VariableGet>("held",
				[Graph](UK2Node_VariableGet& Node)
				{ Node.VariableReference.SetLocalMember(TEXT("Held"), Graph->GetName(), FGuid()); });
			Inner.Wire({"total.Total > add.A", "held.Held > add.B", "add.ReturnValue > set.Total",
				"entry.then > set.execute", "set.then > result.execute", "entry.More > result.ReturnValue"});
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.CallOwn("sum", TEXT("Sum"));
			Scene.Add<UK2Node_SwitchString>("switch");
			Scene.Add<UK2Node_Select>("select");
			Scene.Call("text", TEXT("/Script/Engine.KismetStringLibrary"), TEXT("Conv_IntToString"));
			Scene.Call("choice", Math, TEXT("RandomBool"));
			Scene.Wire({"begin.then > sum.execute", "sum.ReturnValue > text.InInt",
				"text.ReturnValue > select.Option 0", "choice.ReturnValue > select.Index",
				"select.ReturnValue > switch.Selection", "sum.then > switch.execute"});
			Scene.Type("sum.More", TEXT("12"));
		}},
	{"Timeline", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			UTimelineTemplate* const Swing = FBlueprintEditorUtils::AddNewTimeline(Blueprint.Get(), TEXT("Swing"));
			FTTFloatTrack Track;
			Track.CurveFloat = NewObject<UCurveFloat>(Swing, TEXT("Angle"));
			Track.SetTrackName(TEXT("Angle"), Swing);
			Swing->FloatTracks.Add(Track);
			UTimelineTemplate* const Idle = FBlueprintEditorUtils::AddNewTimeline(Blueprint.Get(), TEXT("Idle"));
			Idle->bAutoPlay = true;
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			for (const TCHAR* const Name : {TEXT("Swing"), TEXT("Idle")})
			{
				Scene.Add<UK2Node_Timeline>(
					ToStd(Name), [Name](UK2Node_Timeline& Node) { Node.TimelineName = FName(Name); });
			}
			Scene.Call("turn", Math, TEXT("MakeRotator"));
			Scene.Call("set", Actor, TEXT("K2_SetActorRotation"));
			Scene.Print("print");
			Scene.Wire({"begin.then > Swing.PlayFromStart", "Swing.Angle > turn.Yaw",
				"turn.ReturnValue > set.NewRotation", "Swing.Update > set.execute", "Idle.Update > print.execute"});
		}},
	{"InputAndText", TEXT("/Script/Engine.PlayerController"),
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Add<UK2Node_InputKey>("key", [](UK2Node_InputKey& Node) { Node.InputKey = FKey(TEXT("SpaceBar")); });
			Scene.Add<UK2Node_FormatText>("format");
			Scene.Call("print", System, TEXT("PrintText"));
			Scene.Type("format.Format", TEXT("Hello {Name}"));
			Scene.Wire({"key.Pressed > print.execute", "format.Result > print.InText"});
		}},
	{"Collapsed", Actor,
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			UK2Node_Composite* const Composite = Scene.Add<UK2Node_Composite>("composite");
			FGraphBuilder(Composite->BoundGraph).Call(Math, TEXT("RandomBool"));
		}},
	{"Widget", TEXT("/Script/UMG.UserWidget"),
		[](const FBlueprintBuilder& Blueprint)
		{
			EverythingBlueprint::FillWidgets(*Blueprint.Get());
			FCompileScene Scene(Blueprint);
			Scene.Event("construct", TEXT("Construct"));
			Scene.Get("ok", TEXT("Ok"));
			Scene.Call("enable", TEXT("/Script/UMG.Widget"), TEXT("SetIsEnabled"));
			Scene.Wire({"construct.then > enable.execute", "ok.Ok > enable.self"});
			const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint->GeneratedClass);
			const FObjectProperty* const Button = FindFProperty<FObjectProperty>(Class, TEXT("Ok"));
			const FMulticastDelegateProperty* const Clicked = FindFProperty<FMulticastDelegateProperty>(
				ClassAt(TEXT("/Script/UMG.Button")), TEXT("OnClicked"));
			Scene.Add<UK2Node_ComponentBoundEvent>("clicked",
				[=](UK2Node_ComponentBoundEvent& Node) { Node.InitializeComponentBoundEventParams(Button, Clicked); });
			Scene.Call("remove", TEXT("/Script/UMG.Widget"), TEXT("RemoveFromParent"));
			Scene.Wire({"clicked.then > remove.execute"});
		}},
	{"Animation", TEXT("/Script/Engine.AnimInstance"),
		[](const FBlueprintBuilder& Blueprint)
		{
			EverythingBlueprint::FillStateMachines(*Blueprint.Get(), 3);
			FCompileScene Scene(Blueprint);
			Scene.Event("update", TEXT("BlueprintUpdateAnimation"));
			Scene.Call("owner", TEXT("/Script/Engine.AnimInstance"), TEXT("TryGetPawnOwner"));
			Scene.Macro("valid", TEXT("IsValid"));
			Scene.Wire({"update.then > valid.exec", "owner.ReturnValue > valid.InputObject"});
		}},
	{"Task", TEXT("/Script/AIModule.BTTask_BlueprintBase"),
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("execute", TEXT("ReceiveExecuteAI"));
			Scene.Call("finish", TEXT("/Script/AIModule.BTTask_BlueprintBase"), TEXT("FinishExecute"));
			Scene.Wire({"execute.then > finish.execute"});
			Scene.Type("finish.bSuccess", TEXT("true"));
		}},
};

INSTANTIATE_TEST_SUITE_P(All, FGoodBlueprint, testing::ValuesIn(GoodBlueprints),
	[](const testing::TestParamInfo<FGood>& Good) { return Good.param.Name; });

TEST(CompilerMacros, TheStandardLibraryIsClean)
{
	const FBlueprintBuilder Blueprint;
	EXPECT_THAT(CompileMessages(StandardMacros::GetLibrary()), testing::IsEmpty());
}

TEST(CompilerSamples, AnEditorsOwnGraphsLackOnlyWhatWasLeftBehind)
{
	const auto NoVariable = [](const std::string& Name, const std::string& Title)
	{
		return "error: Could not find a variable named \"" + Name
			+ "\" in 'BP_Test_C'.\nMake sure 'BP_Test_C' has been compiled for " + Title + " {" + Title + "}";
	};
	const auto NoFunction = [](const std::string& Name, const std::string& Title)
	{
		return "error: Could not find a function named \"" + Name
			+ "\" in 'None'.\nMake sure 'None' has been compiled for " + Title + " {" + Title + "}";
	};
	const std::string NoStruct = "error: Unknown structure at Make <unknown struct> {Make <unknown struct>}";
	const std::string Loose =
		"note: Print String is never executed: nothing is connected to execute {Print String; Print String.execute}";
	const std::pair<const char*, std::vector<std::string>> Samples[] = {
		{"async-call-and-append",
			{"note: Async Task: Missing Function is never executed: nothing is connected to execute {Async Task: Missing "
			 "Function; Async Task: Missing Function.execute}"}},
		{"construction-lights",
			{NoVariable("PointLight2", "Get Point Light 2"), NoVariable("Brightness", "Get Brightness"),
				NoVariable("Color", "Get Color"), NoVariable("Inner Cone Angle", "Get Inner Cone Angle"),
				NoVariable("Outer Cone Angle", "Get Outer Cone Angle")}},
		{"function-reparent-loop", {NoVariable("Title", "Get Title"), NoVariable("Message", "Get Message")}},
		{"input-keys-and-structs",
			{"error: Node Get Subsystem must have a class specified. {Get Subsystem}",
				NoFunction("EndCapture", "End Capture"), NoFunction("BeginCapture", "Begin Capture"), NoStruct,
				NoStruct, NoStruct}},
		{"knots-and-print", {Loose, Loose}},
	};
	for (const auto& [Name, Expected] : Samples)
	{
		const FBlueprintBuilder Blueprint;
		const std::string Text = ReadTestData("Graphs/" + std::string(Name) + ".txt");
		const bool bFunction = Text.find("K2Node_FunctionEntry") != std::string::npos;
		UEdGraph* const Graph = (bFunction ? Blueprint.Function(TEXT("Sample")) : Blueprint.EventGraph()).Get();
		TSet<UEdGraphNode*> Nodes;
		FEdGraphUtilities::ImportNodesFromText(Graph, FString(UTF8_TO_TCHAR(Text.c_str())), Nodes);
		FEdGraphUtilities::PostProcessPastedNodes(Nodes);
		EXPECT_THAT(CompileMessages(Blueprint.Get()), testing::ElementsAreArray(Expected)) << Name;
	}
}
