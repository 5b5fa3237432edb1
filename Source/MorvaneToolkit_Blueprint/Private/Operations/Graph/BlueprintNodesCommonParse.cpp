#include "BlueprintNodesCommonOperation.h"

#include "JsonReading.h"
#include "Operations/Graph/GraphModification.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Graph/LocalVariables.h"
#include "Utils/Request/RecordWords.h"

// The strict, whole-request parser. It refuses where the parsers of the populate run leave a default.

namespace BlueprintNodesCommonParse
{
static void ReportUnknownAction(const FString& Word, Morvane::FToolResult& Result)
{
	Result.AddErrorMessage(
		FString::Printf(TEXT("Invalid action field: %s. Must be 'add', 'modify', or 'remove'"), *Word));
}

/** Leaves the action as it was when the key is absent. False, reported, when its word is not known. */
static bool ReadNodeAction(const FJsonObject& Json, EBPNodeAction& InOutAction, Morvane::FToolResult& Result)
{
	FString Word;
	if (!MorvaneJson::TryGetStringField(Json, TEXT("action"), Word))
	{
		return true;
	}
	const TOptional<EBPNodeAction> Action = RecordWords::ToNodeAction(Word);
	if (!Action)
	{
		ReportUnknownAction(Word, Result);
		return false;
	}
	InOutAction = *Action;
	return true;
}

static bool ParsePin(const FJsonObject& Json, FBPPinModification& OutRecord, Morvane::FToolResult& Result)
{
	if (!ReadNodeAction(Json, OutRecord.Action, Result))
	{
		return false;
	}
	RecordWords::ReadString(Json, TEXT("name"), OutRecord.Name);
	OutRecord.bHasValue = RecordWords::ReadValue(Json.TryGetField(TEXT("value")), OutRecord.Value);
	RecordWords::ReadString(Json, TEXT("direction"), OutRecord.Direction);
	const TSharedPtr<FJsonObject>* Type = nullptr;
	if (Json.TryGetObjectField(TEXT("type"), Type))
	{
		OutRecord.Type = RecordWords::ReadPinType(**Type);
	}
	return true;
}

static bool ParseConnection(const FJsonObject& Json, FBPConnectionModification& OutRecord, Morvane::FToolResult& Result)
{
	FString Word;
	if (MorvaneJson::TryGetStringField(Json, TEXT("action"), Word))
	{
		const TOptional<EBPConnectionAction> Action = RecordWords::ToConnectionAction(Word);
		if (!Action)
		{
			ReportUnknownAction(Word, Result);
			return false;
		}
		OutRecord.Action = *Action;
	}
	RecordWords::ReadString(Json, TEXT("source_node_guid"), TEXT("source_node_id"), OutRecord.SourceNodeGuid);
	RecordWords::ReadString(Json, TEXT("source_pin_name"), OutRecord.SourcePinName);
	RecordWords::ReadString(Json, TEXT("target_node_guid"), TEXT("target_node_id"), OutRecord.TargetNodeGuid);
	RecordWords::ReadString(Json, TEXT("target_pin_name"), OutRecord.TargetPinName);
	return true;
}

/** Reads the objects of an array, one record each. False when one of them was refused. */
template <typename TRecord, typename FParse>
bool ParseEntries(const FJsonObject& Json, const TCHAR* Key, TArray<TRecord>& OutRecords, const FParse& Parse)
{
	const TArray<TSharedPtr<FJsonValue>>* Values = nullptr;
	if (!Json.TryGetArrayField(Key, Values))
	{
		return true;
	}
	for (const TSharedPtr<FJsonValue>& Value : *Values)
	{
		const TSharedPtr<FJsonObject>* Object = nullptr;
		if (!Value || !Value->TryGetObject(Object))
		{
			continue;
		}
		TRecord Record;
		if (!Parse(**Object, Record))
		{
			return false;
		}
		OutRecords.Add(MoveTemp(Record));
	}
	return true;
}

static bool ParseNode(
	const FJsonObject& Json, const FString& GraphName, FBPNodeModification& OutRecord, Morvane::FToolResult& Result)
{
	if (!ReadNodeAction(Json, OutRecord.Action, Result))
	{
		return false;
	}
	RecordWords::ReadString(Json, TEXT("node_guid"), OutRecord.NodeGuid);
	RecordWords::ReadString(Json, TEXT("menu_title"), OutRecord.MenuTitle);
	if (!OutRecord.MenuTitle.IsEmpty() && OutRecord.MenuTitle.Equals(GraphName, ESearchCase::IgnoreCase))
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT("Graph name %s cannot be the same as Node's menu title %s"), *GraphName, *OutRecord.MenuTitle));
		return false;
	}
	RecordWords::ReadString(Json, TEXT("class_name"), OutRecord.ClassName);
	RecordWords::ReadString(Json, TEXT("menu_category"), OutRecord.MenuCategory);
	RecordWords::ReadString(Json, TEXT("target_class"), OutRecord.TargetClass);
	MorvaneJson::TryGetBoolField(Json, TEXT("exact_match"), OutRecord.bExactMatch);
	RecordWords::ReadPosition(Json, OutRecord);
	FString Text;
	if (MorvaneJson::TryGetStringField(Json, TEXT("comment"), Text))
	{
		OutRecord.Comment = Text;
	}
	OutRecord.Metadata = RecordWords::ReadStringMap(Json, TEXT("metadata"));
	return ParseEntries(Json, TEXT("pins"), OutRecord.Pins,
		[&Result](const FJsonObject& Pin, FBPPinModification& Record) { return ParsePin(Pin, Record, Result); });
}
} // namespace BlueprintNodesCommonParse

bool FBlueprintNodesCommonOperation::ParseJsonToModification(
	const FJsonObject& Json, FBPGraphModification& OutModification, Morvane::FToolResult& Result)
{
	using namespace BlueprintNodesCommonParse;
	FString ActionWord;
	if (MorvaneJson::TryGetStringField(Json, TEXT("action"), ActionWord))
	{
		OutModification.GraphAction = RecordWords::ToNodeAction(ActionWord);
		if (!OutModification.GraphAction)
		{
			ReportUnknownAction(ActionWord, Result);
			return false;
		}
	}
	RecordWords::ReadString(Json, Morvane::ToolInfo::FieldName_Path, OutModification.Path);
	if (!MorvaneJson::TryGetStringField(Json, TEXT("blueprint_name"), OutModification.BlueprintName))
	{
		Result.AddErrorMessage(TEXT("JSON missing required field: blueprint_name"));
		return false;
	}
	if (!MorvaneJson::TryGetStringField(Json, TEXT("graph_name"), OutModification.GraphName))
	{
		Result.AddErrorMessage(TEXT("JSON missing required field: graph_name"));
		return false;
	}
	RecordWords::ReadString(Json, TEXT("state_machine_name"), OutModification.StateMachineName);
	RecordWords::ReadString(Json, TEXT("from_state_name"), OutModification.FromStateName);
	RecordWords::ReadString(Json, TEXT("to_state_name"), OutModification.ToStateName);
	bool bIsPure = false;
	if (MorvaneJson::TryGetBoolField(Json, TEXT("is_pure"), bIsPure))
	{
		OutModification.bIsPure = bIsPure;
	}

	const auto ParseOneNode = [&OutModification, &Result](const FJsonObject& Entry, FBPNodeModification& Record)
	{ return ParseNode(Entry, OutModification.GraphName, Record, Result); };
	const auto ParseOneConnection = [&Result](const FJsonObject& Entry, FBPConnectionModification& Record)
	{ return ParseConnection(Entry, Record, Result); };
	const TCHAR* const NodesKey = Json.HasTypedField<EJson::Array>(TEXT("_internal_nodes")) ? TEXT("_internal_nodes")
																							: TEXT("nodes");
	return ParseEntries(Json, TEXT("nodes_to_search"), OutModification.NodesToSearch, ParseOneNode)
		&& ParseEntries(Json, NodesKey, OutModification.Nodes, ParseOneNode)
		&& ParseEntries(Json, TEXT("connections"), OutModification.Connections, ParseOneConnection)
		&& FBlueprintLocalVariableUtils::Parse(
			Json.TryGetField(TEXT("local_variables")), OutModification.LocalVariables, Result);
}
