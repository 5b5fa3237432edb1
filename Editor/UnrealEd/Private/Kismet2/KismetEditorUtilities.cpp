#include "Kismet2/KismetEditorUtilities.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "Compiler/BlueprintCompiler.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Editor.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "GameFramework/Actor.h"
#include "K2Node_CallParentFunction.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Event.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Standalone/BlueprintKinds.h"
#include "UObject/Package.h"

bool FKismetEditorUtilities::IsClassABlueprintInterface(const UClass* Class)
{
	return Class && Class->HasAnyClassFlags(CLASS_Interface) && !Class->HasAnyClassFlags(CLASS_NewerVersionExists);
}

bool FKismetEditorUtilities::CanBlueprintImplementInterface(const UBlueprint* Blueprint, const UClass* Class)
{
	static const FName CannotImplement(TEXT("CannotImplementInterfaceInBlueprint"));
	return Blueprint && IsClassABlueprintInterface(Class) && !Class->HasMetaData(CannotImplement);
}

bool FKismetEditorUtilities::CanCreateBlueprintOfClass(const UClass* Class)
{
	if (!Class || Class->HasAnyClassFlags(static_cast<EClassFlags>(CLASS_Deprecated | CLASS_NewerVersionExists)))
	{
		return false;
	}
	if (Class == UObject::StaticClass() || Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
	{
		return true;
	}
	// The nearest class that says anything decides.
	for (const UClass* Above = Class; Above; Above = Above->GetSuperClass())
	{
		if (Above->HasMetaData(FBlueprintMetadata::MD_IsBlueprintBase))
		{
			return Above->GetBoolMetaData(FBlueprintMetadata::MD_IsBlueprintBase);
		}
	}
	return false;
}

namespace BlueprintCreation
{
static void AddEventGraph(UBlueprint& Blueprint)
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, UEdGraphSchema_K2::GN_EventGraph, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	Graph->bAllowDeletion = false;
	FBlueprintEditorUtils::AddUbergraphPage(&Blueprint, Graph);
	int32 NodePosY = 0;
	for (const BlueprintKinds::FDefaultEvent& Event : BlueprintKinds::GetDefaultEvents(Blueprint.ParentClass.Get()))
	{
		UK2Node_Event* const Node = FKismetEditorUtilities::AddDefaultEventNode(
			&Blueprint, Graph, FName(Event.Name), Event.Class, NodePosY);
		if (Node)
		{
			Node->MakeAutomaticallyPlacedGhostNode();
		}
	}
}

static void AddConstructionScript(UBlueprint& Blueprint)
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(&Blueprint,
		UEdGraphSchema_K2::FN_UserConstructionScript, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph(&Blueprint, Graph, false, AActor::StaticClass());
	Graph->bAllowDeletion = false;
}

static void AddComponentScript(UBlueprint& Blueprint)
{
	Blueprint.SimpleConstructionScript = NewObject<USimpleConstructionScript>(
		FBlueprintClassBuilder::EnsureClass(Blueprint), TEXT("SimpleConstructionScript_0"), RF_Transactional);
	Blueprint.SimpleConstructionScript->ValidateSceneRootNodes();
}
} // namespace BlueprintCreation

UBlueprint* FKismetEditorUtilities::CreateBlueprint(UClass* ParentClass, UObject* Outer, const FName NewBPName,
	EBlueprintType BlueprintType, TSubclassOf<UBlueprint> BlueprintClassType, TSubclassOf<UBlueprintGeneratedClass>,
	FName)
{
	UBlueprint* const Blueprint = NewObject<UBlueprint>(Outer, BlueprintClassType.Get(), NewBPName,
		static_cast<EObjectFlags>(RF_Public | RF_Standalone | RF_Transactional));
	Blueprint->ParentClass = ParentClass;
	Blueprint->BlueprintType = BlueprintType;
	Blueprint->BlueprintGuid = FGuid::NewGuid();
	Blueprint->Status = BS_BeingCreated;
	FBlueprintClassBuilder::EnsureClass(*Blueprint);
	Blueprint->bSkeletonIsStale = true;
	if (FBlueprintEditorUtils::IsActorBased(Blueprint) && BlueprintType == BPTYPE_Normal)
	{
		BlueprintCreation::AddComponentScript(*Blueprint);
		BlueprintCreation::AddConstructionScript(*Blueprint);
	}
	if (Blueprint->SupportsEventGraphs())
	{
		BlueprintCreation::AddEventGraph(*Blueprint);
	}
	BlueprintKinds::FinishCreation(*Blueprint);
	FBlueprintClassBuilder::Build(*Blueprint);
	Blueprint->Status = BS_UpToDate;
	Blueprint->MarkPackageDirty();
	return Blueprint;
}

UBlueprint* FKismetEditorUtilities::CreateBlueprint(
	UClass* ParentClass, UObject* Outer, const FName NewBPName, EBlueprintType BlueprintType, FName CallingContext)
{
	UClass* const BlueprintClass = BlueprintKinds::GetBlueprintClass(ParentClass);
	return CreateBlueprint(ParentClass, Outer, NewBPName, BlueprintType, BlueprintClass,
		UBlueprintGeneratedClass::StaticClass(), CallingContext);
}

namespace BlueprintCreation
{
/** An event that a parent Blueprint implements starts with a call of what that does, handed every parameter. */
static void AddParentCall(UBlueprint& Blueprint, UK2Node_Event& Event)
{
	UEdGraph& Graph = *Event.GetGraph();
	const UClass* const Parent = Blueprint.ParentClass.Get();
	const UFunction* const Function = Parent ? Parent->FindFunctionByName(Event.GetFunctionName()) : nullptr;
	if (!Function || !UBlueprint::GetBlueprintFromClass(Function->GetOwnerClass()))
	{
		return;
	}
	FGraphNodeCreator<UK2Node_CallParentFunction> Creator(Graph);
	UK2Node_CallParentFunction* const Call = Creator.CreateNode();
	Call->SetFromFunction(Function);
	constexpr int32 Gap = 200;
	Call->NodePosX = Event.NodePosX + Event.NodeWidth + Gap;
	Call->NodePosY = Event.NodePosY;
	Creator.Finalize();
	for (UEdGraphPin* const Pin : Event.Pins)
	{
		const FName Name = UEdGraphSchema_K2::IsExecPin(*Pin) ? UEdGraphSchema_K2::PN_Execute : Pin->PinName;
		UEdGraphPin* const Input = Pin->Direction == EGPD_Output ? Call->FindPin(Name, EGPD_Input) : nullptr;
		if (Input)
		{
			Pin->MakeLinkTo(Input);
		}
	}
	Call->MakeAutomaticallyPlacedGhostNode();
}
} // namespace BlueprintCreation

UK2Node_Event* FKismetEditorUtilities::AddDefaultEventNode(
	UBlueprint* InBlueprint, UEdGraph* InGraph, FName InEventName, UClass* InEventClass, int32& InOutNodePosY)
{
	const UFunction* const Function = InEventClass ? InEventClass->FindFunctionByName(InEventName) : nullptr;
	if (!Function || FBlueprintEditorUtils::FindOverrideForFunction(InBlueprint, InEventClass, InEventName))
	{
		return nullptr;
	}
	FGraphNodeCreator<UK2Node_Event> Creator(*InGraph);
	UK2Node_Event* const Node = Creator.CreateNode();
	Node->EventReference.SetExternalMember(InEventName, Function->GetOwnerClass());
	Node->bOverrideFunction = true;
	Node->NodePosY = InOutNodePosY;
	Creator.Finalize();
	BlueprintCreation::AddParentCall(*InBlueprint, *Node);
	// Room for the comment bubble that a ghost event shows.
	InOutNodePosY += 208;
	return Node;
}

void FKismetEditorUtilities::CompileBlueprint(
	UBlueprint* BlueprintObj, EBlueprintCompileOptions, FCompilerResultsLog* pResults)
{
	FBlueprintCompiler::Compile(BlueprintObj, pResults);
}

namespace EditorFocus
{
TWeakObjectPtr<const UObject> Last;
}

void FKismetEditorUtilities::BringKismetToFocusAttentionOnObject(const UObject* ObjectToFocus, bool)
{
	EditorFocus::Last = ObjectToFocus;
}

const UK2Node_Event* FKismetEditorUtilities::FindBoundEventForComponent(
	const UBlueprint* Blueprint, FName EventName, FName PropertyName)
{
	TArray<UK2Node_ComponentBoundEvent*> Events;
	FBlueprintEditorUtils::GetAllNodesOfClass(Blueprint, Events);
	for (const UK2Node_ComponentBoundEvent* const Event : Events)
	{
		if (Event->ComponentPropertyName == PropertyName && Event->DelegatePropertyName == EventName)
		{
			return Event;
		}
	}
	return nullptr;
}

void FKismetEditorUtilities::CreateNewBoundEventForClass(
	UClass* Class, FName EventName, UBlueprint* Blueprint, FObjectProperty* ComponentProperty)
{
	const FMulticastDelegateProperty* const Delegate = FindFProperty<FMulticastDelegateProperty>(Class, EventName);
	UEdGraph* const Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	if (!Delegate || !Graph || !ComponentProperty)
	{
		return;
	}
	const FVector2D Place = Graph->GetGoodPlaceForNewNode();
	FGraphNodeCreator<UK2Node_ComponentBoundEvent> Creator(*Graph);
	UK2Node_ComponentBoundEvent* const Node = Creator.CreateNode();
	Node->InitializeComponentBoundEventParams(ComponentProperty, Delegate);
	Node->NodePosX = static_cast<int32>(Place.X);
	Node->NodePosY = static_cast<int32>(Place.Y);
	Creator.Finalize();
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
}

UEditorEngine* GEditor = nullptr;
