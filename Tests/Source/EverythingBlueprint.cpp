#include "EverythingBlueprint.h"

#include "AnimGraphNode_StateMachine.h"
#include "AnimStateAliasNode.h"
#include "AnimStateConduitNode.h"
#include "AnimStateNode.h"
#include "AnimStateTransitionNode.h"
#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
#include "Components/SceneComponent.h"
#include "Curves/CurveBase.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_VariableGet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/GuidGenerator.h"
#include "WidgetBlueprint.h"

namespace EverythingBlueprint
{
namespace
{
using FSchema = UEdGraphSchema_K2;

FEdGraphPinType Type(FName Category, FName SubCategory = NAME_None, UObject* Object = nullptr)
{
	return FEdGraphPinType(Category, SubCategory, Object, EPinContainerType::None, false, FEdGraphTerminalType());
}

void AddVariables(UBlueprint& Blueprint)
{
	FEdGraphPinType Map = Type(FSchema::PC_Name);
	Map.ContainerType = EPinContainerType::Map;
	Map.PinValueType.TerminalCategory = FSchema::PC_Int;
	FEdGraphPinType Tags = Type(FSchema::PC_Name);
	Tags.ContainerType = EPinContainerType::Array;
	UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	FBlueprintEditorUtils::AddMemberVariable(
		&Blueprint, TEXT("Health"), Type(FSchema::PC_Real, FSchema::PC_Double), TEXT("75.5"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("bOpen"), Type(FSchema::PC_Boolean), TEXT("true"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("Tags_"), Tags);
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("Counts"), Map);
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("Where"),
		Type(FSchema::PC_Struct, NAME_None, TBaseStructure<FVector>::Get()),
		TEXT("(X=1.000000,Y=2.000000,Z=3.000000)"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("Goal"), Type(FSchema::PC_Object, NAME_None, Actor));
	FBlueprintEditorUtils::SetBlueprintOnlyEditableFlag(&Blueprint, TEXT("Health"), false);
	FBlueprintEditorUtils::SetVariableSaveGameFlag(&Blueprint, TEXT("Health"), true);
	FBlueprintEditorUtils::SetBlueprintPropertyReadOnlyFlag(&Blueprint, TEXT("Goal"), true);
	FBlueprintEditorUtils::SetBlueprintVariableMetaData(
		&Blueprint, TEXT("Health"), nullptr, FBlueprintMetadata::MD_Tooltip, TEXT("How much is left"));
	FBlueprintEditorUtils::SetBlueprintVariableMetaData(
		&Blueprint, TEXT("Goal"), nullptr, FBlueprintMetadata::MD_ExposeOnSpawn, TEXT("true"));
	FBlueprintEditorUtils::SetBlueprintVariableMetaData(
		&Blueprint, TEXT("bOpen"), nullptr, FBlueprintMetadata::MD_Private, TEXT("true"));
	FBlueprintEditorUtils::SetBlueprintVariableCategory(
		&Blueprint, TEXT("Health"), nullptr, FText::FromString(TEXT("Stats")));
	*FBlueprintEditorUtils::GetBlueprintVariablePropertyFlags(&Blueprint, TEXT("bOpen")) |= CPF_Net | CPF_RepNotify;
	FBlueprintEditorUtils::SetBlueprintVariableRepNotifyFunc(&Blueprint, TEXT("bOpen"), TEXT("OnRep_bOpen"));
	*FBlueprintEditorUtils::GetBlueprintVariablePropertyFlags(&Blueprint, TEXT("Where")) |= CPF_Net;
}

void AddComponents(UBlueprint& Blueprint)
{
	USimpleConstructionScript& Script = *Blueprint.SimpleConstructionScript;
	UClass* const Mesh = FindObject<UClass>(nullptr, TEXT("/Script/Engine.StaticMeshComponent"));
	UClass* const Light = FindObject<UClass>(nullptr, TEXT("/Script/Engine.PointLightComponent"));
	USCS_Node* const Door = Script.CreateNode(Mesh, TEXT("Door"));
	Script.AddNode(Door);
	USCS_Node* const Lamp = Script.CreateNode(Light, TEXT("Lamp"));
	Lamp->AttachToName = TEXT("Handle");
	Door->AddChildNode(Lamp);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}

UEdGraph* AddFunction(UBlueprint& Blueprint, const TCHAR* Name)
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, Name, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(&Blueprint, Graph, true, nullptr);
	return Graph;
}

void AddFunctions(UBlueprint& Blueprint)
{
	UEdGraph* const Graph = AddFunction(Blueprint, TEXT("OpenBy"));
	UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph);
	Entry->CreateUserDefinedPin(TEXT("Degrees"), Type(FSchema::PC_Real, FSchema::PC_Double), EGPD_Output);
	FGraphNodeCreator<UK2Node_FunctionResult> Creator(*Graph);
	UK2Node_FunctionResult* const Result = Creator.CreateNode();
	Creator.Finalize();
	Result->CreateUserDefinedPin(TEXT("ReturnValue"), Type(FSchema::PC_Boolean), EGPD_Input);
	FSchema::FindExecutionPin(*Entry, EGPD_Output)->MakeLinkTo(FSchema::FindExecutionPin(*Result, EGPD_Input));

	UEdGraph* const Macro = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, TEXT("Twice"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddMacroGraph(&Blueprint, Macro, true, nullptr);
}

void AddDispatcher(UBlueprint& Blueprint)
{
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("OnOpened"), Type(FSchema::PC_MCDelegate));
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, TEXT("OnOpened"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	Schema->CreateDefaultNodesForGraph(*Graph);
	Schema->AddExtraFunctionFlags(Graph, FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public);
	Schema->MarkFunctionEntryAsEditable(Graph, true);
	Blueprint.DelegateSignatureGraphs.Add(Graph);
	FBlueprintEditorUtils::GetEntryNode(Graph)->CreateUserDefinedPin(TEXT("By"), Type(FSchema::PC_Name), EGPD_Output);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}

void AddTimeline(UBlueprint& Blueprint)
{
	UTimelineTemplate* const Timeline = FBlueprintEditorUtils::AddNewTimeline(&Blueprint, TEXT("Swing"));
	Timeline->TimelineLength = 1.5f;
	Timeline->bLoop = true;
	FTTFloatTrack Track;
	Track.CurveFloat = NewObject<UCurveFloat>(Timeline, TEXT("Angle"));
	Track.CurveFloat->FloatCurve.AddKey(0.0f, 0.0f);
	Track.CurveFloat->FloatCurve.AddKey(1.5f, 90.0f);
	Track.SetTrackName(TEXT("Angle"), Timeline);
	Timeline->FloatTracks.Add(Track);
}

template <class T>
T* Place(UEdGraph* Graph, int32 X, int32 Y, TFunctionRef<void(T&)> Bind)
{
	FGraphNodeCreator<T> Creator(*Graph);
	T* const Node = Creator.CreateNode();
	Bind(*Node);
	Creator.Finalize();
	Node->NodePosX = X;
	Node->NodePosY = Y;
	return Node;
}

UK2Node_CallFunction* PlaceCall(UEdGraph* Graph, int32 X, int32 Y, const TCHAR* Class, const TCHAR* Function)
{
	return Place<UK2Node_CallFunction>(Graph, X, Y,
		[=](UK2Node_CallFunction& Node)
		{ Node.SetFromFunction(FindObject<UClass>(nullptr, Class)->FindFunctionByName(Function)); });
}

/** A custom event that branches on a variable and prints; a comment; a call that nothing reaches. */
void AddEvents(UBlueprint& Blueprint)
{
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UEdGraph* const Page = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, TEXT("Doors"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddUbergraphPage(&Blueprint, Page);
	UK2Node_CustomEvent* const Event = Place<UK2Node_CustomEvent>(
		Page, 0, 0, [](UK2Node_CustomEvent& Node) { Node.CustomFunctionName = TEXT("Knock"); });
	UK2Node_IfThenElse* const Branch = Place<UK2Node_IfThenElse>(Page, 300, 0, [](UK2Node_IfThenElse&) {});
	UK2Node_VariableGet* const Get = Place<UK2Node_VariableGet>(
		Page, 60, 140, [](UK2Node_VariableGet& Node) { Node.VariableReference.SetSelfMember(TEXT("bOpen")); });
	UK2Node_CallFunction* const Print = PlaceCall(
		Page, 600, 0, TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	Print->NodeComment = TEXT("says so");
	PlaceCall(Page, 600, 400, TEXT("/Script/Engine.Actor"), TEXT("K2_DestroyActor"));
	Place<UEdGraphNode_Comment>(
		Page, -50, -100, [](UEdGraphNode_Comment& Node) { Node.NodeComment = TEXT("Knocking"); });
	Schema.TryCreateConnection(Event->FindPin(FSchema::PN_Then), Branch->GetExecPin());
	Schema.TryCreateConnection(Branch->GetThenPin(), Print->GetExecPin());
	Schema.TryCreateConnection(Get->GetValuePin(), Branch->FindPin(FSchema::PN_Condition));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}
} // namespace

void SeedIds()
{
	FGuidGenerator::Seed(20);
}

void Fill(UBlueprint& Blueprint)
{
	AddVariables(Blueprint);
	AddComponents(Blueprint);
	AddFunctions(Blueprint);
	AddDispatcher(Blueprint);
	AddTimeline(Blueprint);
	AddEvents(Blueprint);
}

namespace
{
UAnimGraphNode_StateMachine* PlaceMachine(UEdGraph* Graph, const FString& Name)
{
	UAnimGraphNode_StateMachine* const Machine = Place<UAnimGraphNode_StateMachine>(
		Graph, -300, 0, [](UAnimGraphNode_StateMachine&) {});
	Machine->OnRenameNode(Name);
	return Machine;
}
} // namespace

void FillStateMachines(UBlueprint& Blueprint, int32 Depth)
{
	UEdGraph* Graph = nullptr;
	for (UEdGraph* const Function : Blueprint.FunctionGraphs)
	{
		Graph = Function->GetFName() == FSchema::GN_AnimGraph ? Function : Graph;
	}
	for (int32 Level = 0; Level < Depth; ++Level)
	{
		UAnimGraphNode_StateMachine* const Machine = PlaceMachine(Graph, FString::Printf(TEXT("Machine%d"), Level));
		UEdGraph* const States = Machine->EditorStateMachineGraph;
		UAnimStateNode* const Idle = Place<UAnimStateNode>(States, 0, 0, [](UAnimStateNode&) {});
		Idle->OnRenameNode(FString::Printf(TEXT("Idle%d"), Level));
		if (Level == 0)
		{
			UAnimStateNode* const Run = Place<UAnimStateNode>(States, 300, 0, [](UAnimStateNode&) {});
			Run->OnRenameNode(TEXT("Run"));
			UAnimStateConduitNode* const Conduit = Place<UAnimStateConduitNode>(
				States, 300, 200, [](UAnimStateConduitNode&) {});
			Conduit->OnRenameNode(TEXT("Crossing"));
			UAnimStateAliasNode* const Alias = Place<UAnimStateAliasNode>(States, 0, 200, [](UAnimStateAliasNode&) {});
			Alias->OnRenameNode(TEXT("Any"));
			Alias->GetAliasedStates().Add(Idle);
			States->GetSchema()->TryCreateConnection(Idle->GetOutputPin(), Run->GetInputPin());
		}
		Graph = Idle->BoundGraph;
	}
}

void FillWidgets(UBlueprint& Blueprint)
{
	UWidgetBlueprint& Widget = *CastChecked<UWidgetBlueprint>(&Blueprint);
	const auto Make = [&Widget](const TCHAR* Class, const TCHAR* Name)
	{ return Widget.WidgetTree->ConstructWidget(FindObject<UClass>(nullptr, Class), Name); };
	UPanelWidget* const Root = CastChecked<UPanelWidget>(Make(TEXT("/Script/UMG.CanvasPanel"), TEXT("Root")));
	Widget.WidgetTree->RootWidget = Root;
	UPanelWidget* const Box = CastChecked<UPanelWidget>(Make(TEXT("/Script/UMG.VerticalBox"), TEXT("Box")));
	Root->AddChild(Box);
	UWidget* const Title = Make(TEXT("/Script/UMG.TextBlock"), TEXT("Title"));
	Title->bIsVariable = false;
	Box->AddChild(Title);
	Box->AddChild(Make(TEXT("/Script/UMG.Button"), TEXT("Ok")));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}
} // namespace EverythingBlueprint
