#include "EverythingBlueprint.h"

#include "AnimGraphNode_StateMachine.h"
#include "AnimStateAliasNode.h"
#include "AnimStateConduitNode.h"
#include "AnimStateNode.h"
#include "AnimStateTransitionNode.h"
#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
#include "Components/SceneComponent.h"
#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "GameFramework/Actor.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Composite.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_Literal.h"
#include "K2Node_VariableGet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Standalone/GuidGenerator.h"
#include "UObject/UnrealType.h"
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

/** A variable of each type, a default where one can be told as text. */
void AddTypes(UBlueprint& Blueprint)
{
	UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	UClass* const Interface = FindObject<UClass>(nullptr, TEXT("/Script/MovieScene.MovieSceneEasingFunction"));
	UEnum* const Enum = FindObject<UEnum>(nullptr, TEXT("/Script/Engine.EMovementMode"));
	UScriptStruct* const Vector = TBaseStructure<FVector>::Get();
	struct FRow
	{
		const TCHAR* Name;
		FEdGraphPinType Type;
		const TCHAR* Default;
	};
	for (const FRow& Row : {FRow{TEXT("AByte"), Type(FSchema::PC_Byte), TEXT("7")},
			 FRow{TEXT("AnEnum"), Type(FSchema::PC_Byte, NAME_None, Enum), TEXT("MOVE_Falling")},
			 FRow{TEXT("AnInt"), Type(FSchema::PC_Int), TEXT("-3")},
			 FRow{TEXT("AnInt64"), Type(FSchema::PC_Int64), TEXT("5000000000")},
			 FRow{TEXT("AFloat"), Type(FSchema::PC_Real, FSchema::PC_Float), TEXT("0.5")},
			 FRow{TEXT("AName"), Type(FSchema::PC_Name), TEXT("North")},
			 FRow{TEXT("AString"), Type(FSchema::PC_String), TEXT("say \"hi\"")},
			 FRow{TEXT("AText"), Type(FSchema::PC_Text), TEXT("Welcome")},
			 FRow{TEXT("AClass"), Type(FSchema::PC_Class, NAME_None, Actor), TEXT("/Script/Engine.Pawn")},
			 FRow{TEXT("ASoftObject"), Type(FSchema::PC_SoftObject, NAME_None, Actor), TEXT("")},
			 FRow{TEXT("ASoftClass"), Type(FSchema::PC_SoftClass, NAME_None, Actor), TEXT("")},
			 FRow{TEXT("AnInterface"), Type(FSchema::PC_Interface, NAME_None, Interface), TEXT("")}})
	{
		FBlueprintEditorUtils::AddMemberVariable(&Blueprint, Row.Name, Row.Type, Row.Default);
	}
	FEdGraphPinType Map = Type(FSchema::PC_Name);
	Map.ContainerType = EPinContainerType::Map;
	Map.PinValueType.TerminalCategory = FSchema::PC_Struct;
	Map.PinValueType.TerminalSubCategoryObject = Vector;
	FEdGraphPinType Array = Type(FSchema::PC_Int);
	Array.ContainerType = EPinContainerType::Array;
	FEdGraphPinType Set = Type(FSchema::PC_String);
	Set.ContainerType = EPinContainerType::Set;
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("AnArray"), Array, TEXT("(1,2,0)"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("ASet"), Set, TEXT("(\"a\",\"b\")"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("AMap"), Map);
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("AStruct"), Type(FSchema::PC_Struct, NAME_None, Vector),
		TEXT("(X=1.000000,Y=2.000000,Z=0.000000)"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("AnObject"), Type(FSchema::PC_Object, NAME_None, Actor));
}

/** A variable for each flag and metadata that reads tell. */
void AddFlaggedVariables(UBlueprint& Blueprint)
{
	FBlueprintEditorUtils::AddMemberVariable(
		&Blueprint, TEXT("Health"), Type(FSchema::PC_Real, FSchema::PC_Double), TEXT("75.5"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("bOpen"), Type(FSchema::PC_Boolean), TEXT("true"));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("Angle"), Type(FSchema::PC_Int));
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("Seed"), Type(FSchema::PC_Int));
	FBlueprintEditorUtils::SetBlueprintOnlyEditableFlag(&Blueprint, TEXT("Health"), false);
	FBlueprintEditorUtils::SetVariableSaveGameFlag(&Blueprint, TEXT("Health"), true);
	FBlueprintEditorUtils::SetBlueprintPropertyReadOnlyFlag(&Blueprint, TEXT("Seed"), true);
	const auto SetMetaData = [&Blueprint](const TCHAR* Variable, FName Key, const TCHAR* Value)
	{ FBlueprintEditorUtils::SetBlueprintVariableMetaData(&Blueprint, Variable, nullptr, Key, Value); };
	SetMetaData(TEXT("Health"), FBlueprintMetadata::MD_Tooltip, TEXT("How much is left"));
	SetMetaData(TEXT("Seed"), FBlueprintMetadata::MD_ExposeOnSpawn, TEXT("TRUE"));
	SetMetaData(TEXT("Angle"), FBlueprintMetadata::MD_ExposeOnSpawn, TEXT("false"));
	SetMetaData(TEXT("bOpen"), FBlueprintMetadata::MD_Private, TEXT("true"));
	FBlueprintEditorUtils::SetBlueprintVariableCategory(
		&Blueprint, TEXT("Health"), nullptr, FText::FromString(TEXT("Stats|Life")));
	*FBlueprintEditorUtils::GetBlueprintVariablePropertyFlags(&Blueprint, TEXT("bOpen")) |= CPF_Net | CPF_RepNotify;
	FBlueprintEditorUtils::SetBlueprintVariableRepNotifyFunc(&Blueprint, TEXT("bOpen"), TEXT("OnRep_bOpen"));
	*FBlueprintEditorUtils::GetBlueprintVariablePropertyFlags(&Blueprint, TEXT("Angle")) |= CPF_Net;
	*FBlueprintEditorUtils::GetBlueprintVariablePropertyFlags(&Blueprint, TEXT("Seed")) |= CPF_Config;
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

/** The interface's function gives a value, so it is a graph and no event. */
void AddInterface(UBlueprint& Blueprint)
{
	FBlueprintEditorUtils::ImplementNewInterface(
		&Blueprint, FTopLevelAssetPath(TEXT("/Script/MovieScene.MovieSceneEasingFunction")));
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
/** Nodes whose extras are their own: what a component tells, a reference to an object, a collapsed graph. */
void AddSpecialNodes(UBlueprint& Blueprint)
{
	UEdGraph* const Page = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, TEXT("Special"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddUbergraphPage(&Blueprint, Page);
	const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint.GeneratedClass);
	const FObjectProperty* const Door = FindFProperty<FObjectProperty>(Class, TEXT("Door"));
	const FMulticastDelegateProperty* const Hit = FindFProperty<FMulticastDelegateProperty>(
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.StaticMeshComponent")), TEXT("OnComponentHit"));
	Place<UK2Node_ComponentBoundEvent>(
		Page, 0, 0, [=](UK2Node_ComponentBoundEvent& Node) { Node.InitializeComponentBoundEventParams(Door, Hit); });
	Place<UK2Node_Literal>(Page, 0, 300, [](UK2Node_Literal&) {});
	UK2Node_Composite* const Composite = Place<UK2Node_Composite>(Page, 400, 300, [](UK2Node_Composite&) {});
	PlaceCall(Composite->BoundGraph, 200, 0, TEXT("/Script/Engine.Actor"), TEXT("GetActorTimeDilation"));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}
} // namespace

void SeedIds()
{
	FGuidGenerator::Seed(20);
}

void Fill(UBlueprint& Blueprint)
{
	AddFlaggedVariables(Blueprint);
	AddTypes(Blueprint);
	AddComponents(Blueprint);
	AddFunctions(Blueprint);
	AddDispatcher(Blueprint);
	AddTimeline(Blueprint);
	AddInterface(Blueprint);
	AddEvents(Blueprint);
	AddSpecialNodes(Blueprint);
}

void FillCharacter(UBlueprint& Blueprint)
{
	USimpleConstructionScript& Script = *Blueprint.SimpleConstructionScript;
	const USceneComponent* Mesh = nullptr;
	TArray<UActorComponent*> Components;
	static_cast<const AActor*>(Blueprint.GeneratedClass->GetDefaultObject())->GetComponents(Components);
	for (const UActorComponent* const Component : Components)
	{
		Mesh = Component->GetName().Contains(TEXT("Mesh")) ? Cast<USceneComponent>(Component) : Mesh;
	}
	USCS_Node* const Sword = Script.CreateNode(
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.StaticMeshComponent")), TEXT("Sword"));
	Sword->SetParent(Mesh);
	Sword->AttachToName = TEXT("hand_r");
	Script.AddNode(Sword);
	Script.AddNode(
		Script.CreateNode(FindObject<UClass>(nullptr, TEXT("/Script/Engine.RotatingMovementComponent")), TEXT("Spin")));
	UEdGraph* const Jump = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, TEXT("CanJumpInternal"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(
		&Blueprint, Jump, false, FindObject<UClass>(nullptr, TEXT("/Script/Engine.Character")));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
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
