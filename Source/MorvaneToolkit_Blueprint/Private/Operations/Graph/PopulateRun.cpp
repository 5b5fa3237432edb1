#include "PopulateRun.h"

#include "AssetOperationBase.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintMatchingUtils.h"
#include "BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Operations/Frame/OperationFrame.h"
#include "RequestCompletion.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Graph/FunctionGraphs.h"
#include "Utils/Graph/LocalVariables.h"
#include "Utils/Graph/PinConnections.h"
#include "Utils/Report/GraphTelemetry.h"
#include "Utils/Request/PopulateRecords.h"
#include "Utils/Request/RequiredField.h"

// The steps that change the Blueprint. What is said about them stands in PopulateRunReport.cpp.

namespace PopulateRun
{
/** An array of another type, and an empty one, is none. */
static const TArray<TSharedPtr<FJsonValue>>* FindArray(const FJsonObject& Json, const TCHAR* Key)
{
	const TArray<TSharedPtr<FJsonValue>>* Values = nullptr;
	return Json.TryGetArrayField(Key, Values) && !Values->IsEmpty() ? Values : nullptr;
}

static bool IsMainEventGraph(const FString& Name)
{
	return Name.Equals(UEdGraphSchema_K2::GN_EventGraph.ToString(), ESearchCase::IgnoreCase);
}
} // namespace PopulateRun

FPopulateRun::FPopulateRun(const FJsonObject& InArgs, Morvane::FToolResult& InResult)
	: Args(InArgs)
	, Result(InResult)
	, Session(InResult)
	, Pins(Session, InResult)
{
}

FPopulateRun::~FPopulateRun()
{
	if (!bSaved)
	{
		Made.Keep();
	}
}

bool FPopulateRun::ReadArguments()
{
	using namespace Morvane;
	if (!RequireStringField(Args, ToolInfo::FieldName_Path, Path, Result)
		|| !RequireStringField(Args, TEXT("graph_name"), GraphName, Result))
	{
		return false;
	}
	FString GraphType = TEXT("function");
	MorvaneJson::TryGetStringField(Args, TEXT("graph_type"), GraphType);
	bIsEventGraph = GraphType.Equals(TEXT("event"), ESearchCase::IgnoreCase)
		|| PopulateRun::IsMainEventGraph(GraphName);
	NodeValues = PopulateRun::FindArray(Args, TEXT("nodes"));
	ConnectionValues = PopulateRun::FindArray(Args, TEXT("connections"));
	if (Args.HasField(TEXT("functions")))
	{
		Result.AddErrorMessage(TEXT(
			"'functions' array is no longer supported in bp_populate_graph. Use bp_create_graph for function/delegate creation."));
		return false;
	}
	if (!NodeValues && !ConnectionValues)
	{
		Result.AddErrorMessage(TEXT("No operations specified - must provide 'nodes' or 'connections' array"));
		return false;
	}
	return true;
}

bool FPopulateRun::LoadOrCreateBlueprint()
{
	Blueprint = OperationFrame::LoadOrMake(Path, Result,
		[this](UBlueprint& New, FString& OutReason) { return bIsEventGraph || CreateFunction(New, OutReason); });
	if (!Blueprint)
	{
		return false;
	}
	Path = FBlueprintUtils::GetBlueprintPath(Blueprint);
	return true;
}

bool FPopulateRun::CreateFunction(UBlueprint& InBlueprint, FString& OutReason) const
{
	// A result of its own: what becomes of the graph is a detail of the creation, told by its reason alone.
	Morvane::FToolResult Creation(Result.GetCommand());
	UEdGraph* FunctionGraph = nullptr;
	UK2Node_FunctionEntry* Entry = nullptr;
	UK2Node_FunctionResult* ResultNode = nullptr;
	if (FBlueprintFunctionGraphUtils::EnsureFunctionGraph(
			&InBlueprint, GraphName, FunctionGraph, Entry, ResultNode, Creation, false))
	{
		return true;
	}
	OutReason = FString::Join(Creation.GetErrorMessages(), TEXT(" "));
	return false;
}

bool FPopulateRun::FindGraph()
{
	if (bIsEventGraph)
	{
		Graph = FBlueprintGraphUtils::EnsureEventGraph(Blueprint, GraphName, Result);
		GraphName = Graph ? Graph->GetName() : GraphName;
		return Graph != nullptr;
	}
	Graph = FBlueprintMatchingUtils::FindGraphByName(Blueprint, GraphName);
	if (!Graph)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Graph '%s' not found in blueprint"), *GraphName));
		return false;
	}
	// An event graph is one also where the request does not say so.
	bIsEventGraph = FBlueprintGraphUtils::IsUbergraphPage(Blueprint, Graph);
	GraphName = bIsEventGraph ? Graph->GetName() : GraphName;
	return CanHoldNodes();
}

bool FPopulateRun::CanHoldNodes() const
{
	if (Blueprint->BlueprintType != BPTYPE_Interface)
	{
		return true;
	}
	Result.AddErrorMessage(FString::Printf(
		TEXT(
			"Graph '%s' belongs to an interface, whose functions have no body. Declare parameters and a return_type with bp_create_graph, and fill the function in a Blueprint that implements the interface."),
		*GraphName));
	return false;
}

void FPopulateRun::OpenForEdit()
{
	Blueprint->Modify();
	Graph->Modify();
}

bool FPopulateRun::ReadLocalVariables()
{
	return FBlueprintLocalVariableUtils::Parse(Args.TryGetField(TEXT("local_variables")), LocalVariables, Result);
}

void FPopulateRun::ReadNodes()
{
	if (!NodeValues)
	{
		return;
	}
	// A run with nodes has telemetry, whatever becomes of them.
	GraphTelemetry::Ensure(Result);
	Nodes.Reserve(NodeValues->Num());
	for (const TSharedPtr<FJsonValue>& Value : *NodeValues)
	{
		FBPNodeModification Record;
		if (PopulateRecords::ParseNode(Value, Record))
		{
			Nodes.Add(MoveTemp(Record));
		}
	}
	RequestCompletion::Complete(Nodes, ConnectionValues);
}

void FPopulateRun::TakeBackUnsavedRun()
{
	UnsavedRuns::TakeBack(*Blueprint, *Graph, Nodes, LocalVariables);
	Made.Begin(*Graph);
}

bool FPopulateRun::ApplyLocalVariables()
{
	if (LocalVariables.IsEmpty())
	{
		return true;
	}
	Made.AddLocalVariables(LocalVariables);
	FBPLocalVariableOutcome Outcome;
	if (!FBlueprintLocalVariableUtils::Apply(Blueprint, Graph, LocalVariables, Outcome, Result))
	{
		return false;
	}
	FBlueprintLocalVariableUtils::WriteTelemetry(Outcome, Result);
	return true;
}

bool FPopulateRun::IsCustomEventRequest(const FBPNodeModification& Record)
{
	return Record.Action == EBPNodeAction::Add
		&& Record.ClassName.Equals(TEXT("K2Node_CustomEvent"), ESearchCase::IgnoreCase);
}

void FPopulateRun::SpawnCustomEvents()
{
	for (const FBPNodeModification& Record : Nodes)
	{
		const UEdGraphNode* const Node = IsCustomEventRequest(Record) ? SpawnNode(Record) : nullptr;
		if (Node)
		{
			AvailableEvents.Add(Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
		}
	}
}

void FPopulateRun::SpawnOtherNodes()
{
	for (const FBPNodeModification& Record : Nodes)
	{
		if (Record.Action != EBPNodeAction::Add)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"[Warning] Node '%s' was skipped: '%s' does nothing here; bp_modify_graph_nodes changes and removes nodes."),
				*Record.NodeGuid, Record.Action == EBPNodeAction::Modify ? TEXT("modify") : TEXT("remove")));
		}
		else if (!IsCustomEventRequest(Record))
		{
			SpawnNode(Record);
		}
	}
}

void FPopulateRun::EnsureMenu(const FBPNodeModification& Record)
{
	if (!Menu && !FBlueprintSpawnWaterfall::IsEventRequest(Record))
	{
		Menu = FBlueprintCamMatching::BuildSharedCAM(*Graph, Result);
	}
}

UEdGraphNode* FPopulateRun::SpawnNode(const FBPNodeModification& Record)
{
	EnsureMenu(Record);
	UEdGraphNode* const Node = FBlueprintSpawnWaterfall::CreateNodeFromRecord(
		Graph, Record, Blueprint, Menu, Result, Lookups, &Session.GetCreatedNodesByRequestId());
	if (!Node)
	{
		Session.RecordFailedId(Record.NodeGuid);
		return nullptr;
	}
	Session.RecordCreatedNode(Record.NodeGuid, Node);
	Made.AddNode(Record, *Node);
	LastNode = Node;
	Pins.Apply(*Blueprint, *Node, Record);
	return Node;
}

void FPopulateRun::ReadConnections()
{
	if (!ConnectionValues)
	{
		return;
	}
	for (const TSharedPtr<FJsonValue>& Value : *ConnectionValues)
	{
		FBPConnectionModification Connection;
		if (!PopulateRecords::ParseConnection(Value, Connection))
		{
			continue;
		}
		if (Connection.Action == EBPConnectionAction::Add)
		{
			Connections.Add(MoveTemp(Connection));
			continue;
		}
		Result.AddWarningMessage(FString::Printf(
			TEXT(
				"[Warning] Connection %s.%s -> %s.%s was skipped: 'remove' does nothing here; bp_remove_graph_connections removes wires."),
			*Connection.SourceNodeGuid, *Connection.SourcePinName, *Connection.TargetNodeGuid,
			*Connection.TargetPinName));
	}
}

void FPopulateRun::ConnectPins()
{
	ReadConnections();
	for (const FBPConnectionModification& Connection : Connections)
	{
		Connect(Connection);
	}
	Pins.Finish();
}

void FPopulateRun::Connect(const FBPConnectionModification& Connection)
{
	// Both ends before the test: a connection without either is blocked twice.
	UEdGraphNode* const Source = ResolveEnd(TEXT("Source"), Connection.SourceNodeGuid, Connection);
	UEdGraphNode* const Target = ResolveEnd(TEXT("Target"), Connection.TargetNodeGuid, Connection);
	if (!Source || !Target)
	{
		return;
	}
	if (FBlueprintPinUtils::ConnectPins(
			Graph, Source, Connection.SourcePinName, Target, Connection.TargetPinName, Result, &Session))
	{
		++NumConnected;
		Session.RecordExistingNode(Source);
		Session.RecordExistingNode(Target);
	}
}

UEdGraphNode* FPopulateRun::ResolveEnd(
	const TCHAR* Label, const FString& Id, const FBPConnectionModification& Connection)
{
	if (UEdGraphNode* const Created = Session.FindNode(Id))
	{
		return Created;
	}
	if (!NodeIds)
	{
		NodeIds = MakeUnique<FNodeIdIndex>(*Graph);
	}
	if (UEdGraphNode* const Existing = NodeIds->Find(Id))
	{
		return Existing;
	}
	// A node that failed to spawn and an id that was never right read alike.
	const FString Text = FString::Printf(TEXT("Connection blocked: %s node '%s' not found (%s.%s -> %s.%s)"), Label,
		*Id, *Connection.SourceNodeGuid, *Connection.SourcePinName, *Connection.TargetNodeGuid,
		*Connection.TargetPinName);
	Session.AddBlockedOperation(Text);
	Result.AddWarningMessage(Text);
	return nullptr;
}

void FPopulateRun::TraceTouchedNodes()
{
	TArray<UEdGraphNode*> Touched = Session.GetCreatedNodes();
	Touched.Append(Session.GetExistingModifiedNodes());
	if (Touched.IsEmpty())
	{
		return;
	}
	if (!bIsEventGraph)
	{
		TouchTopGraph();
		return;
	}
	// One trace for all of them, now that the last link stands.
	Trace = MakeUnique<FEventTrace>(*Graph);
	for (UEdGraphNode* const Node : Touched)
	{
		TraceNode(*Node);
	}
}

void FPopulateRun::TouchTopGraph()
{
	UEdGraph* const Top = FBlueprintEditorUtils::GetTopLevelGraph(Graph);
	if (FBlueprintGraphUtils::IsUbergraphPage(Blueprint, Top))
	{
		// Collapsed into an event graph: the node that shows the graph belongs to events there.
		UEdGraph* Nested = Graph;
		while (Nested->GetParentGraph() != Top)
		{
			Nested = Nested->GetParentGraph();
		}
		GraphName = Top->GetName();
		if (UEdGraphNode* const Shown = Nested->GetTypedOuter<UEdGraphNode>())
		{
			Trace = MakeUnique<FEventTrace>(*Top);
			TraceNode(*Shown);
			Trace.Reset();
		}
		return;
	}
	const FString Name = Top == Graph ? GraphName : Top->GetName();
	if (FBlueprintGraphUtils::IsDelegateSignatureGraph(Blueprint, Top))
	{
		TouchedDelegates.Add(Name);
		return;
	}
	const bool bIsMacro = Blueprint->MacroGraphs.ContainsByPredicate(
		[Top](const UEdGraph* Macro) { return Macro == Top; });
	// Graphs of interfaces and animation graphs are read as functions.
	(bIsMacro ? TouchedMacros : TouchedFunctions).Add(Name);
}

void FPopulateRun::TraceNode(UEdGraphNode& Node)
{
	const TArray<UEdGraphNode*> Events = Trace->EventsOf(&Node);
	for (const UEdGraphNode* const Event : Events)
	{
		AvailableEvents.Add(Event->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
	}
	if (Events.IsEmpty())
	{
		FloatingNodes.Add(Node.GetNodeTitle(ENodeTitleType::FullTitle).ToString());
	}
}
