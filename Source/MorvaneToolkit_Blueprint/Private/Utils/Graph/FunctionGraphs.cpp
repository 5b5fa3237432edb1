#include "Utils/Graph/FunctionGraphs.h"

#include "BlueprintGraphUtils.h"
#include "BlueprintMatchingUtils.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/Script.h"
#include "Utils/Graph/EventNodes.h"
#include "Utils/Graph/MemberNames.h"
#include "Utils/Request/NewNames.h"

namespace FunctionGraphs
{
/** How far right of the entry a result node stands. */
constexpr int32 ResultOffset = 400;
/** Public, callable from Blueprints, and an event that Blueprints may bind. */
constexpr int32 DelegateSignatureFlags = FUNC_Public | FUNC_BlueprintCallable | FUNC_BlueprintEvent;
static_assert(DelegateSignatureFlags == 0x0C020000);

static UEdGraph* MakeGraph(UBlueprint& Blueprint, const FString& Name)
{
	return FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, FName(*Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
}

static FString GetSchemaName(const UEdGraph& Graph)
{
	const UEdGraphSchema* const Schema = Graph.GetSchema();
	return Schema ? Schema->GetClass()->GetName() : TEXT("Unknown");
}

static UK2Node_FunctionEntry* SpawnEntry(UEdGraph& Graph, const FString& Name)
{
	FGraphNodeCreator<UK2Node_FunctionEntry> Creator(Graph);
	UK2Node_FunctionEntry* const Entry = Creator.CreateNode(false);
	if (Entry)
	{
		// What a bare entry has always been given: none of the access or call flags that an author sets later.
		Entry->SetExtraFlags(8);
		Entry->CustomGeneratedFunctionName = FName(*Name);
		Creator.Finalize();
	}
	return Entry;
}

static UK2Node_FunctionResult* SpawnResult(UEdGraph& Graph, const UK2Node_FunctionEntry& Entry)
{
	FGraphNodeCreator<UK2Node_FunctionResult> Creator(Graph);
	UK2Node_FunctionResult* const Result = Creator.CreateNode(false);
	if (Result)
	{
		Result->NodePosX = Entry.NodePosX + ResultOffset;
		Result->NodePosY = Entry.NodePosY;
		Creator.Finalize();
	}
	return Result;
}

/** The Blueprint's event graph, made where there is none. Null after an error in the result. */
static UEdGraph* EnsureEventGraphFor(UBlueprint& Blueprint, const FString& FunctionName, Morvane::FToolResult& Result)
{
	if (UEdGraph* const EventGraph = FBlueprintEditorUtils::FindEventGraph(&Blueprint))
	{
		return EventGraph;
	}
	const FString Reason = MemberNames::WhyNoEventGraph(Blueprint);
	if (!Reason.IsEmpty())
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Failed to create event graph for %s (%s)"), *FunctionName, *Reason));
		return nullptr;
	}
	UEdGraph* const EventGraph = MakeGraph(Blueprint, UEdGraphSchema_K2::GN_EventGraph.ToString());
	FBlueprintEditorUtils::AddUbergraphPage(&Blueprint, EventGraph);
	Result.AddSuccessMessage(FString::Printf(TEXT("Created new event graph: %s, with graph_schema: %s"),
		*EventGraph->GetName(), *GetSchemaName(*EventGraph)));
	return EventGraph;
}

static EFunctionGraphOutcome TakeEventWay(UBlueprint& Blueprint, const FString& Name, const UFunction& Function,
	UClass* ParentClass, const FString& ParentName, Morvane::FToolResult& Result)
{
	UEdGraph* const EventGraph = EnsureEventGraphFor(Blueprint, Name, Result);
	if (!EventGraph)
	{
		return EFunctionGraphOutcome::Failure;
	}
	if (const UK2Node_Event* const Existing = FBlueprintEditorUtils::FindOverrideForFunction(
			&Blueprint, ParentClass, Function.GetFName()))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT(
				"The graph %s already exists as an event on this blueprint's EventGraph, overriding the parent class: %s. Instead of creating a function, continue implementing using this event: %s, or choose a different approach."),
			*Name, *ParentName, *FBlueprintNodeUtils::GetFullTitle(Existing)));
		return EFunctionGraphOutcome::HandledAsEvent;
	}
	const UK2Node_Event* const Event = FBlueprintEventNodeUtils::SpawnEventOverride(
		*EventGraph, Function, ParentClass, EventGraph->GetGoodPlaceForNewNode());
	if (!Event)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Failed to create event override node for %s (the graph '%s' took no node)"), *Name,
				*EventGraph->GetName()));
		return EFunctionGraphOutcome::Failure;
	}
	Result.AddSuccessMessage(FString::Printf(
		TEXT(
			"This graph is implemented as an Event on the parent class and must be an event on this blueprint as well. Instead of creating a function, an Event node %s was added as an override to Event %s in parent class %s. Continue implementing this as an event, or remove the node and choose a different approach."),
		*FBlueprintNodeUtils::GetFullTitle(Event), *Name, *ParentName));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	return EFunctionGraphOutcome::HandledAsEvent;
}

/**
 * Whether requests may add to the graph as to a function: it is one, of the Blueprint itself or of an interface. Event
 * graphs, macros, dispatchers, animation graphs and what is nested in any graph keep their names to themselves, since
 * an entry would break them.
 */
static bool CanHoldFunction(const UBlueprint& Blueprint, const UEdGraph* Graph, const UEdGraph* TopGraph)
{
	const UEdGraphSchema* const Schema = Graph->GetSchema();
	return Graph == TopGraph && Schema && Schema->GetGraphType(Graph) == GT_Function
		&& !FBlueprintGraphUtils::IsDelegateSignatureGraph(&Blueprint, Graph);
}

static bool ReportNoGraph(const FString& Name, const FString& Reason, Morvane::FToolResult& Result)
{
	Result.AddErrorMessage(FString::Printf(TEXT("Failed to create function graph: %s (%s)"), *Name, *Reason));
	return false;
}

/** The type under which the node has the pin already; null when it has none of the name. */
static const FEdGraphPinType* FindDeclaredType(const UK2Node_EditablePinBase& Node, FName Name)
{
	for (const TSharedPtr<FUserPinInfo>& Pin : Node.UserDefinedPins)
	{
		if (Pin && Pin->PinName == Name)
		{
			return &Pin->PinType;
		}
	}
	return nullptr;
}

/**
 * What stands already with this name and type is what the request means, so that a batch may be sent again; the
 * signature of an override is fixed, whatever type is asked for.
 */
static void AddPin(UK2Node_EditablePinBase& Node, FName Name, const FEdGraphPinType& Type,
	EEdGraphPinDirection Direction, Morvane::FToolResult& Result)
{
	const FEdGraphPinType* const Declared = FindDeclaredType(Node, Name);
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Exec || Type.PinCategory == UEdGraphSchema_K2::PC_Wildcard)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Parameter '%s' of '%s' was left out: a function has none of the type %s."),
				*Name.ToString(), *Node.GetGraph()->GetName(), *UEdGraphSchema_K2::TypeToText(Type).ToString()));
		return;
	}
	const bool bIsDone = Node.bIsEditable ? Declared && *Declared == Type : Node.FindPin(Name, Direction) != nullptr;
	if (bIsDone)
	{
		return;
	}
	const UEdGraphPin* const Pin = Node.CreateUserDefinedPin(Name, Type, Direction, true);
	if (Pin && Declared)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Parameter '%s' of '%s' stands already with another type; '%s' was added beside it."),
				*Name.ToString(), *Node.GetGraph()->GetName(), *Pin->GetName()));
	}
}
} // namespace FunctionGraphs

bool FBlueprintFunctionGraphUtils::EnsureFunctionGraph(UBlueprint* Blueprint, const FString& Name, UEdGraph*& OutGraph,
	UK2Node_FunctionEntry*& OutEntry, UK2Node_FunctionResult*& OutResult, Morvane::FToolResult& Result,
	bool bWantsResultNode)
{
	OutGraph = nullptr;
	OutEntry = nullptr;
	OutResult = nullptr;
	if (!Blueprint || Name.IsEmpty())
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint or FunctionName"));
		return false;
	}
	// Functions of interfaces have to stand as graphs before the search for one.
	FBlueprintEditorUtils::ConformImplementedInterfaces(Blueprint);

	UEdGraph* TopGraph = nullptr;
	UEdGraph* Graph = FBlueprintMatchingUtils::FindGraphByName(Blueprint, Name, &TopGraph);
	if (Graph && !FunctionGraphs::CanHoldFunction(*Blueprint, Graph, TopGraph))
	{
		return FunctionGraphs::ReportNoGraph(
			Name, MemberNames::DescribeGraph(*Blueprint, *Graph) + TEXT(" has this name already"), Result);
	}
	if (!Graph)
	{
		const EFunctionGraphOutcome Outcome = CreateOrOverride(*Blueprint, Name, Graph, Result);
		if (Outcome != EFunctionGraphOutcome::GraphCreated)
		{
			return Outcome == EFunctionGraphOutcome::HandledAsEvent;
		}
	}

	OutGraph = Graph;
	OutEntry = FBlueprintGraphUtils::FindFunctionEntry(Graph);
	OutEntry = OutEntry ? OutEntry : FunctionGraphs::SpawnEntry(*Graph, Name);
	if (!OutEntry)
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT("Failed to create FunctionEntry node (the graph '%s' took no node)"), *Graph->GetName()));
		return false;
	}
	OutResult = FBlueprintGraphUtils::FindFunctionResult(Graph);
	if (!OutResult && bWantsResultNode)
	{
		OutResult = FunctionGraphs::SpawnResult(*Graph, *OutEntry);
	}
	return true;
}

EFunctionGraphOutcome FBlueprintFunctionGraphUtils::CreateOrOverride(
	UBlueprint& Blueprint, const FString& Name, UEdGraph*& OutGraph, Morvane::FToolResult& Result)
{
	UFunction* Function = nullptr;
	UClass* const ParentClass = FBlueprintEditorUtils::GetOverrideFunctionClass(&Blueprint, FName(*Name), &Function);
	const FString ParentName = ParentClass ? ParentClass->GetName() : TEXT("Unknown");
	if (Function)
	{
		TSet<FName> GraphNames;
		FBlueprintEditorUtils::GetAllGraphNames(&Blueprint, GraphNames);
		if (UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(Function) && !GraphNames.Contains(Function->GetFName()))
		{
			return FunctionGraphs::TakeEventWay(Blueprint, Name, *Function, ParentClass, ParentName, Result);
		}
	}

	FString Obstacle = Function ? FString() : MemberNames::DescribeObstacle(Blueprint, Name);
	Obstacle = Blueprint.BlueprintType == BPTYPE_MacroLibrary ? TEXT("a macro library has no functions") : Obstacle;
	if (!Obstacle.IsEmpty())
	{
		FunctionGraphs::ReportNoGraph(Name, Obstacle, Result);
		return EFunctionGraphOutcome::Failure;
	}
	UEdGraph* const Graph = FunctionGraphs::MakeGraph(Blueprint, Name);
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(&Blueprint, Graph, !Function, Function ? ParentClass : nullptr);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	if (Function)
	{
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Overriding function: %s in parent class: %s"), *Name, *ParentName));
	}
	else
	{
		Result.AddSuccessMessage(FString::Printf(TEXT("Created new function graph: %s, with graph_schema: %s"), *Name,
			*FunctionGraphs::GetSchemaName(*Graph)));
	}
	OutGraph = Graph;
	return EFunctionGraphOutcome::GraphCreated;
}

bool FBlueprintFunctionGraphUtils::ConfigureGraphSignature(
	UBlueprint* Blueprint, UEdGraph* Graph, const FBPFunctionModification& Request, Morvane::FToolResult& Result)
{
	if (!Blueprint || !Graph)
	{
		Result.AddErrorMessage(TEXT("Invalid parameters for ConfigureGraphSignature"));
		return false;
	}
	UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(Graph);
	if (!Entry)
	{
		Result.AddErrorMessage(TEXT("No FunctionEntry node found in function graph"));
		return false;
	}
	for (const FBPParameterModification& Parameter : Request.Parameters)
	{
		// The word is the pin's own direction on the entry node, where a function's inputs are outputs. So it is the
		// default, and not the word "input", that asks for a function input; what an entry makes of the other wish is
		// its own affair. Held by CreateGraph.DirectionWords.
		const bool bInput = Parameter.Direction.Equals(TEXT("input"), ESearchCase::IgnoreCase);
		const FString Fault = NewNames::FindFault(Parameter.Name);
		if (!Fault.IsEmpty())
		{
			Result.AddErrorMessage(
				FString::Printf(TEXT("%s for parameter '%s' of '%s'"), *Fault, *Parameter.Name, *Graph->GetName()));
			continue;
		}
		FunctionGraphs::AddPin(
			*Entry, FName(*Parameter.Name), Parameter.Type, bInput ? EGPD_Input : EGPD_Output, Result);
	}
	if (Request.bHasReturnType)
	{
		UK2Node_FunctionResult* ResultNode = FBlueprintGraphUtils::FindFunctionResult(Graph);
		ResultNode = ResultNode ? ResultNode : FunctionGraphs::SpawnResult(*Graph, *Entry);
		if (ResultNode && Request.ReturnType)
		{
			FunctionGraphs::AddPin(
				*ResultNode, UEdGraphSchema_K2::PN_ReturnValue, *Request.ReturnType, EGPD_Input, Result);
		}
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

int32 FBlueprintFunctionGraphUtils::CountEnds(const UEdGraph& Graph)
{
	int32 Count = 0;
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		Count += Node && Node->IsA<UK2Node_FunctionTerminator>() ? 1 + Node->Pins.Num() : 0;
	}
	return Count;
}

bool FBlueprintFunctionGraphUtils::EnsureDelegateSignature(
	UBlueprint* Blueprint, const FString& Name, UEdGraph*& OutGraph, Morvane::FToolResult& Result)
{
	OutGraph = nullptr;
	if (!Blueprint || Name.IsEmpty())
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint or DelegateName"));
		return false;
	}
	UEdGraph* const Existing = FBlueprintMatchingUtils::FindGraphByName(Blueprint, Name);
	if (Existing && FBlueprintGraphUtils::IsDelegateSignatureGraph(Blueprint, Existing))
	{
		OutGraph = Existing;
		return true;
	}
	FString Obstacle = MemberNames::WhyNoDispatchers(*Blueprint);
	if (Obstacle.IsEmpty() && Existing)
	{
		Obstacle = MemberNames::DescribeGraph(*Blueprint, *Existing) + TEXT(" has this name already");
	}
	Obstacle = Obstacle.IsEmpty() ? NewNames::FindFault(Name) : Obstacle;
	if (!Obstacle.IsEmpty())
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Failed to create delegate signature graph: %s (%s)"), *Name, *Obstacle));
		return false;
	}
	UEdGraph* const Graph = FunctionGraphs::MakeGraph(*Blueprint, Name);
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	Graph->bEditable = false;
	Schema->CreateDefaultNodesForGraph(*Graph);
	if (!FBlueprintGraphUtils::FindFunctionEntry(Graph))
	{
		Schema->CreateFunctionGraphTerminators(*Graph, static_cast<UClass*>(nullptr));
	}
	Schema->AddExtraFunctionFlags(Graph, FunctionGraphs::DelegateSignatureFlags);
	Schema->MarkFunctionEntryAsEditable(Graph, true);
	Blueprint->DelegateSignatureGraphs.Add(Graph);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	OutGraph = Graph;
	return true;
}
