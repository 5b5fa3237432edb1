#include "AssetOperationBase.h"
#include "BlueprintFormatterService.h"
#include "BlueprintMatchingUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "HAL/PlatformTime.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "MorvaneSettings.h"
#include "PopulateRun.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Report/GraphTelemetry.h"
#include "Utils/Report/JsonTexts.h"
#include "Utils/Report/ShownNodes.h"
#include "Utils/Report/TrackedNames.h"

// The steps that tell what the run did, lay it out and save it.

namespace PopulateRunReport
{
static int32 CountLinks(const UEdGraphNode& Node)
{
	int32 Count = 0;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Count += Pin ? Pin->LinkedTo.Num() : 0;
	}
	return Count;
}

/** The object {Key: Values} as text: lists travel as text in the data. */
static FString ToText(const TCHAR* Key, TArray<TSharedPtr<FJsonValue>>&& Values)
{
	const TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetArrayField(Key, MoveTemp(Values));
	return FAssetOperationBase::SerializeJson(Object);
}

static int32 NumOf(const TArray<TSharedPtr<FJsonValue>>* Values)
{
	return Values ? Values->Num() : 0;
}
} // namespace PopulateRunReport

void FPopulateRun::ReportHalfConnectedNodes()
{
	TMap<FString, int32> ExpectedById;
	for (const FBPConnectionModification& Connection : Connections)
	{
		++ExpectedById.FindOrAdd(Connection.SourceNodeGuid);
		++ExpectedById.FindOrAdd(Connection.TargetNodeGuid);
	}
	for (const auto& [Id, Weak] : Session.GetCreatedNodesByRequestId())
	{
		const UEdGraphNode* const Node = Weak.Get();
		const int32 Expected = ExpectedById.FindRef(Id);
		const int32 Actual = Node ? PopulateRunReport::CountLinks(*Node) : 0;
		if (Node && Actual < Expected)
		{
			GraphTelemetry::RecordHalfConnectedNode(
				Result, Id, Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString(), Expected, Actual);
		}
	}
}

void FPopulateRun::SummarizeSession()
{
	// A run without nodes that had nothing to say has no telemetry, and stays so.
	const TSharedPtr<FJsonObject> Telemetry = GraphTelemetry::Find(Result);
	if (!Telemetry)
	{
		return;
	}
	const TArray<FString>& Blocked = Session.GetBlockedOperations();
	const TSharedRef<FJsonObject> Summary = MakeShared<FJsonObject>();
	Summary->SetNumberField(TEXT("nodes_created"), Session.GetCreatedNodesByRequestId().Num());
	Summary->SetNumberField(TEXT("nodes_failed"), Session.GetFailedRequestIds().Num());
	Summary->SetNumberField(TEXT("connections_attempted"), PopulateRunReport::NumOf(ConnectionValues));
	Summary->SetNumberField(TEXT("connections_successful"), NumConnected);
	Summary->SetNumberField(TEXT("connections_blocked"), Blocked.Num());
	Telemetry->SetObjectField(TEXT("session_summary"), Summary);
	if (!Blocked.IsEmpty())
	{
		Telemetry->SetArrayField(TEXT("blocked_operations"), ToJsonTexts(Blocked));
	}
}

void FPopulateRun::FormatNodes()
{
	TArray<UEdGraphNode*> Touched = Session.GetCreatedNodes();
	const int32 NumCreated = Touched.Num();
	Touched.Append(Session.GetExistingModifiedNodes());
	if (Touched.IsEmpty())
	{
		return;
	}
	// Nothing is excluded: whoever is linked to a touched node counts as a neighbour, touched itself or not.
	const TSet<UEdGraphNode*> Neighbors = FBlueprintFormatterService::CollectNeighbors(Touched, {});
	TSet<UEdGraphNode*> Allowed;
	Allowed.Append(Touched);
	Allowed.Append(Neighbors);
	const TArray<UEdGraphNode*> ToFormat = Allowed.Array();

	const double Start = FPlatformTime::Seconds();
	FBlueprintFormatterService::FormatGraph(Graph, ToFormat);
	const double Duration = FPlatformTime::Seconds() - Start;

	if (const TSharedPtr<FJsonObject> Telemetry = GraphTelemetry::Find(Result))
	{
		Telemetry->SetNumberField(TEXT("format_time_ms"), Duration * 1000.0);
		Telemetry->SetNumberField(TEXT("nodes_formatted"), ToFormat.Num());
		Telemetry->SetNumberField(TEXT("nodes_created"), NumCreated);
		Telemetry->SetNumberField(TEXT("nodes_existing_modified"), Touched.Num() - NumCreated);
		Telemetry->SetNumberField(TEXT("neighbors_included"), Neighbors.Num());
	}
}

TSharedRef<FJsonObject> FPopulateRun::DescribeNode(const FBPCreatedNodeRecord& Record) const
{
	// As the node is called now: values and links may have given it another title than it was made with.
	const UEdGraphNode* const Node = Record.Node.Get();
	const FString Title = Node ? Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString() : Record.NodeTitle;
	const TSharedRef<FJsonObject> Json = MakeShared<FJsonObject>();
	Json->SetStringField(TEXT("request_guid"), Record.RequestId);
	Json->SetStringField(TEXT("node_guid"), Record.NodeGuid);
	Json->SetStringField(TEXT("class_name"), Record.ClassName);
	Json->SetStringField(TEXT("node_title"), Title);
	return Json;
}

void FPopulateRun::DescribeCreatedNodes()
{
	if (!Session.HasCreatedNodes())
	{
		return;
	}
	TArray<TSharedPtr<FJsonValue>> Elements;
	if (!Trace)
	{
		for (const FBPCreatedNodeRecord& Record : Session.GetCreatedRecords())
		{
			Elements.Add(MakeShared<FJsonValueObject>(DescribeNode(Record)));
		}
		Result.SetData(TEXT("created_nodes"), PopulateRunReport::ToText(TEXT("nodes"), MoveTemp(Elements)));
		return;
	}
	for (const FBPCreatedNodeRecord& Record : Session.GetCreatedRecords())
	{
		TArray<FString> Titles;
		for (const UEdGraphNode* const Event : Trace->EventsOf(Record.Node.Get()))
		{
			Titles.Add(Event->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
		}
		AvailableEvents.Append(Titles);
		const TSharedRef<FJsonObject> Json = DescribeNode(Record);
		Json->SetArrayField(TEXT("attached_to_events"), ToJsonTexts(Titles));
		Elements.Add(MakeShared<FJsonValueObject>(Json));
	}
	Result.SetData(TEXT("nodes_attached_to_events"), PopulateRunReport::ToText(TEXT("nodes"), MoveTemp(Elements)));
}

void FPopulateRun::MarkModified()
{
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	if (LastNode && GetDefault<UMorvaneSettings>()->bFocusOnModifiedNode)
	{
		FKismetEditorUtilities::BringKismetToFocusAttentionOnObject(LastNode);
	}
}

void FPopulateRun::TrackChanges()
{
	using namespace Morvane;
	TSet<FString> Shown;
	for (const UEdGraphNode* const Node : Session.GetCreatedNodes())
	{
		Shown.Append(ShownNodes::WithNeighbors(*Node));
	}
	for (const UEdGraphNode* const Node : Session.GetExistingModifiedNodes())
	{
		Shown.Append(ShownNodes::Of(*Node));
	}
	for (const FString& NodeGuid : Shown)
	{
		Result.AddShownNode(NodeGuid);
	}
	if (!AvailableEvents.IsEmpty())
	{
		TrackEvents(ToolInfo::FieldName_EventName, AvailableEvents);
	}
	else
	{
		// Only then: a read of the events shows the floating nodes as well.
		TrackEvents(ToolInfo::FieldName_FloatingNodeName, FloatingNodes);
	}
	TrackNames(ToolInfo::ToolName_ReadBlueprintFunction, ToolInfo::FieldName_FunctionName, TouchedFunctions);
	TrackNames(ToolInfo::ToolName_ReadBlueprintDelegate, ToolInfo::FieldName_DelegateName, TouchedDelegates);
	TrackNames(ToolInfo::ToolName_ReadBlueprintMacro, ToolInfo::FieldName_MacroName, TouchedMacros);
}

void FPopulateRun::TrackEvents(const TCHAR* NameField, const TSet<FString>& Names)
{
	using namespace Morvane;
	if (Names.IsEmpty())
	{
		return;
	}
	TArray<TSharedPtr<FJsonValue>> Events;
	for (const FString& Name : Names)
	{
		const TSharedRef<FJsonObject> Event = MakeShared<FJsonObject>();
		Event->SetStringField(ToolInfo::FieldName_GraphName, GraphName);
		Event->SetStringField(NameField, Name);
		Events.Add(MakeShared<FJsonValueObject>(Event));
	}
	const TSharedPtr<FJsonObject> Parameters = MakeShared<FJsonObject>();
	Parameters->SetStringField(ToolInfo::FieldName_Path, Path);
	Parameters->SetArrayField(ToolInfo::FieldName_Events, MoveTemp(Events));
	Result.TrackModification(ToolInfo::ToolName_ReadBlueprintEvent, Parameters);
}

void FPopulateRun::TrackNames(const TCHAR* ReadTool, const TCHAR* NameField, const TSet<FString>& Names)
{
	::TrackNames(ReadTool, Path, NameField, Names.Array(), Result);
}

void FPopulateRun::ReportCounts()
{
	// With the sizes at hand: what was not asked to be added counts as failed, too.
	const int32 NumNodes = Nodes.Num();
	const int32 NumConnections = PopulateRunReport::NumOf(ConnectionValues);
	const int32 NumCreated = Session.GetCreatedRecords().Num();
	const int32 NumNodesFailed = NumNodes - NumCreated;
	const int32 NumConnectionsFailed = NumConnections - NumConnected;
	if (NumNodesFailed == 0 && NumConnectionsFailed == 0)
	{
		Result.AddSuccessMessage(FString::Printf(
			TEXT("Created %d nodes and %d connections in graph '%s'"), NumCreated, NumConnected, *GraphName));
	}
	else
	{
		Result.AddSuccessMessage(FString::Printf(
			TEXT(
				"Created %d/%d nodes and %d/%d connections in graph '%s' (%d node(s) failed, %d connection(s) failed)"),
			NumCreated, NumNodes, NumConnected, NumConnections, *GraphName, NumNodesFailed, NumConnectionsFailed));
	}
	Result.SetData(TEXT("nodes_created"), FString::FromInt(NumCreated));
	Result.SetData(TEXT("nodes_failed"), FString::FromInt(NumNodesFailed));
	Result.SetData(TEXT("connections_created"), FString::FromInt(NumConnected));
	Result.SetData(TEXT("connections_failed"), FString::FromInt(NumConnectionsFailed));
}

void FPopulateRun::ListCreatedNodes()
{
	if (!Session.HasCreatedNodes())
	{
		return;
	}
	TArray<TSharedPtr<FJsonValue>> Items;
	for (const FBPCreatedNodeRecord& Record : Session.GetCreatedRecords())
	{
		Items.Add(MakeShared<FJsonValueObject>(DescribeNode(Record)));
	}
	Result.SetData(TEXT("created_nodes_summary"), PopulateRunReport::ToText(TEXT("items"), MoveTemp(Items)));
}

void FPopulateRun::Save()
{
	Blueprint->MarkPackageDirty();
	Blueprint->PostEditChange();
	bSaved = FAssetOperationBase::SaveAsset(Blueprint, Result);
	if (bSaved)
	{
		Result.FinalizeModifications();
	}
}
