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
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolResult.h"
#include "UObject/Script.h"
#include "Utils/Graph/EventNodes.h"

namespace FunctionGraphs
{
/** How far right of the entry a result node stands. */
constexpr int32 ResultOffset = 400;
/** Public, callable from Blueprints, and an event that Blueprints may bind. */
constexpr int32 DelegateSignatureFlags = FUNC_Public | FUNC_BlueprintCallable | FUNC_BlueprintEvent;
static_assert(DelegateSignatureFlags == 0x0C020000);

UEdGraph* MakeGraph(UBlueprint& Blueprint, const FString& Name)
{
	return FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, FName(*Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
}

FString GetSchemaName(const UEdGraph& Graph)
{
	const UEdGraphSchema* const Schema = Graph.GetSchema();
	return Schema ? Schema->GetClass()->GetName() : TEXT("Unknown");
}

UK2Node_FunctionEntry* SpawnEntry(UEdGraph& Graph, const FString& Name)
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

UK2Node_FunctionResult* SpawnResult(UEdGraph& Graph, const UK2Node_FunctionEntry& Entry)
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
UEdGraph* EnsureEventGraphFor(UBlueprint& Blueprint, const FString& FunctionName, Morvane::FToolResult& Result)
{
	if (UEdGraph* const EventGraph = FBlueprintEditorUtils::FindEventGraph(&Blueprint))
	{
		return EventGraph;
	}
	UEdGraph* const EventGraph = MakeGraph(Blueprint, UEdGraphSchema_K2::GN_EventGraph.ToString());
	if (!EventGraph)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to create event graph for %s"), *FunctionName));
		return nullptr;
	}
	FBlueprintEditorUtils::AddUbergraphPage(&Blueprint, EventGraph);
	Result.AddSuccessMessage(FString::Printf(TEXT("Created new event graph: %s, with graph_schema: %s"),
		*EventGraph->GetName(), *GetSchemaName(*EventGraph)));
	return EventGraph;
}

EFunctionGraphOutcome TakeEventWay(UBlueprint& Blueprint, const FString& Name, const UFunction& Function,
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
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to create event override node for %s"), *Name));
		return EFunctionGraphOutcome::Failure;
	}
	Result.AddSuccessMessage(FString::Printf(
		TEXT(
			"This graph is implemented as an Event on the parent class and must be an event on this blueprint as well. Instead of creating a function, an Event node %s was added as an override to Event %s in parent class %s. Continue implementing this as an event, or remove the node and choose a different approach."),
		*FBlueprintNodeUtils::GetFullTitle(Event), *Name, *ParentName));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	return EFunctionGraphOutcome::HandledAsEvent;
}

/** A graph with an entry that requests may add to. An event graph or a macro keeps its name to itself. */
bool CanHoldFunction(const UBlueprint& Blueprint, const UEdGraph* Graph, const UEdGraph* TopGraph)
{
	return FBlueprintGraphUtils::FindFunctionEntry(Graph)
		|| (!FBlueprintGraphUtils::IsUbergraphPage(&Blueprint, TopGraph)
			&& !Blueprint.MacroGraphs.ContainsByPredicate(
				[TopGraph](const UEdGraph* Macro) { return Macro == TopGraph; }));
}

/** Whether a new function may have the name: it is free, short enough, and holds nothing that a path cannot. */
bool IsFreeFunctionName(const UBlueprint& Blueprint, const FString& Name)
{
	return FKismetNameValidator(&Blueprint).IsValid(Name) == EValidatorResult::Ok;
}

/** The signature of an override is fixed, so what it has already is what the request means. */
void AddPin(UK2Node_EditablePinBase& Node, FName Name, const FEdGraphPinType& Type, EEdGraphPinDirection Direction)
{
	const bool bIsFixed = !Node.bIsEditable;
	if (!bIsFixed || !Node.FindPin(Name, Direction))
	{
		Node.CreateUserDefinedPin(Name, Type, Direction, true);
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
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to create function graph: %s"), *Name));
		return false;
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
		Result.AddErrorMessage(TEXT("Failed to create FunctionEntry node"));
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

	const bool bNameIsFit = Function || FunctionGraphs::IsFreeFunctionName(Blueprint, Name);
	UEdGraph* const Graph = bNameIsFit ? FunctionGraphs::MakeGraph(Blueprint, Name) : nullptr;
	if (!Graph)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to create function graph: %s"), *Name));
		return EFunctionGraphOutcome::Failure;
	}
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
		FunctionGraphs::AddPin(*Entry, FName(*Parameter.Name), Parameter.Type, bInput ? EGPD_Input : EGPD_Output);
	}
	if (Request.bHasReturnType)
	{
		UK2Node_FunctionResult* ResultNode = FBlueprintGraphUtils::FindFunctionResult(Graph);
		ResultNode = ResultNode ? ResultNode : FunctionGraphs::SpawnResult(*Graph, *Entry);
		if (ResultNode && Request.ReturnType)
		{
			FunctionGraphs::AddPin(*ResultNode, UEdGraphSchema_K2::PN_ReturnValue, *Request.ReturnType, EGPD_Input);
		}
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
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
	UEdGraph* const Graph = Existing ? nullptr : FunctionGraphs::MakeGraph(*Blueprint, Name);
	if (!Graph)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to create delegate signature graph: %s"), *Name));
		return false;
	}
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
