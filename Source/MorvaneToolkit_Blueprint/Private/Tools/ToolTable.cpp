#include "ToolTable.h"

#include "BlueprintCompileOperation.h"
#include "BlueprintCreateOperation.h"
#include "BlueprintGraphCreateOperation.h"
#include "BlueprintGraphModifyOperation.h"
#include "BlueprintModifyBlueprintNodesOperation.h"
#include "BlueprintModifyClassStructureOperation.h"
#include "BlueprintReadOperations.h"
#include "BlueprintRemoveBlueprintConnectionsOperation.h"
#include "BlueprintRemoveOperation.h"
#include "Containers/ArrayView.h"
#include "ToolAdapter.h"
#include "ToolInfo.h"
#include "WidgetBlueprintModifyOperation.h"

namespace ToolTableRows
{
template <const TCHAR* const& ToolName, FToolOperation Operation>
constexpr FToolRow MakeRow(EToolKind Kind, const TCHAR* SubOperation, const TCHAR* Parameters, const TCHAR* Description)
{
	return {ToolName, Kind, SubOperation, Parameters, Description,
		[](const FString& ParametersText, const FString& DescriptionText, const FString& Metadata) -> TSharedPtr<ITool>
		{ return MakeShared<TToolAdapter<ToolName, Operation>>(ParametersText, DescriptionText, Metadata); }};
}

// The order is that of registration, which the host shows. Descriptions are read by agents, word for word.
// clang-format off
constexpr FToolRow Rows[] = {
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintSchema, &FBlueprintReadSchemaOperation::Execute>(EToolKind::Read, TEXT("schema"), TEXT("{}"),
		TEXT("Read comprehensive Blueprint schema including variables with types, components with classes, functions with signatures, interfaces with functions, event graphs with event nodes and signatures, timelines, delegates with parameters, and tags")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintVariable, &FBlueprintVariableReadOperation::Execute>(EToolKind::Read, TEXT("variable"), TEXT("{}"),
		TEXT("Read a specific Blueprint variable with full details including type, default value, category, replication settings, and metadata")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintComponent, &FBlueprintComponentReadOperation::Execute>(EToolKind::Read, TEXT("component"), TEXT("{}"),
		TEXT("Read a specific Blueprint component with full details including class, parent component, relative transform (location, rotation, scale), and hierarchy")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintFunction, &FBlueprintFunctionReadOperation::Execute>(EToolKind::Read, TEXT("function"), TEXT("{}"),
		TEXT("Read a specific Blueprint function with full details including inputs, outputs, category, access specifier, and metadata")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintInterface, &FBlueprintInterfaceReadOperation::Execute>(EToolKind::Read, TEXT("interface"), TEXT("{}"),
		TEXT("Read a specific Blueprint interface with full details including interface name, class path, and complete graph serialization with nodes and connections")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintEvent, &FBlueprintEventReadOperation::Execute>(EToolKind::Read, TEXT("event"), TEXT("{}"),
		TEXT("Read a specific Blueprint event from an event graph with full details including event node, inputs, outputs, and connections")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintTimeline, &FBlueprintTimelineReadOperation::Execute>(EToolKind::Read, TEXT("timeline"), TEXT("{}"),
		TEXT("Read a specific Blueprint timeline with comprehensive details including all track types (float, vector, event, color) with curve paths, external curve names, length mode, and playback settings")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintDelegate, &FBlueprintDelegateReadOperation::Execute>(EToolKind::Read, TEXT("delegate"), TEXT("{}"),
		TEXT("Read a specific Blueprint delegate graph with full details including delegate name and parameter signatures")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintMacro, &FBlueprintMacroReadOperation::Execute>(EToolKind::Read, TEXT("macro"), TEXT("{}"),
		TEXT("Read a specific Blueprint macro with full details including macro graph with nodes, connections, inputs, and outputs")),
	MakeRow<Morvane::ToolInfo::ToolName_ReadBlueprintWidgetTree, &FWidgetBlueprintWidgetTreeReadOperation::Execute>(EToolKind::Read, TEXT("widget_tree"), TEXT("{}"),
		TEXT("Read Widget Blueprint widget tree. Returns widget_hierarchy (lightweight skeleton with names, classes, is_variable, and children structure) and optionally widgets dict with full details (properties, slots) for specific widget(s) if name parameter is provided.")),
	MakeRow<Morvane::ToolInfo::ToolName_ModifyBlueprintClassStructure, &FBlueprintModifyClassStructureOperation::Execute>(EToolKind::Modify, nullptr, TEXT(""),
		TEXT("Modifies Blueprint class structure including variables, components, interfaces, timelines, and delegates. This consolidated tool replaces the individual variable/component/interface/timeline/delegate modification tools.")),
	MakeRow<Morvane::ToolInfo::ToolName_UIModifyWidgetBP, &FWidgetBlueprintModifyOperation::Execute>(EToolKind::Modify, nullptr, TEXT(""),
		TEXT("Modify Widget Blueprint widget tree (add/modify/remove/reorder widgets with properties, slots, events) and animations (add/remove). Supports root widget replacement, nested widget hierarchies, slot layout properties (anchors, padding, alignment), widget property configuration, event node creation (OnClicked, OnPressed, etc.), and animation timeline management.")),
	MakeRow<Morvane::ToolInfo::ToolName_BPPopulateGraph, &FBlueprintGraphModifyOperation::Execute>(EToolKind::Modify, nullptr, TEXT(""),
		TEXT("[INTERNAL TOOL] Create/modify Blueprint graph nodes with waterfall spawning (deterministic → CAM context → CAM global). For manual testing via console commands and automation tests. Supports target_class/target_function for exact node creation, class_name/menu_title/menu_category for CAM filtering.")),
	MakeRow<Morvane::ToolInfo::ToolName_BPCreateGraph, &FBlueprintGraphCreateOperation::Execute>(EToolKind::Modify, nullptr, TEXT(""),
		TEXT("[INTERNAL TOOL] Create or configure Blueprint functions and delegate signatures (no node operations). Accepts batched 'functions' array with optional parameters/return_type metadata. Use with bp_populate_graph for node/connection workflows to maintain separation of concerns.")),
	MakeRow<Morvane::ToolInfo::ToolName_BPModifyGraphNodes, &FBlueprintModifyBlueprintNodesOperation::Execute>(EToolKind::Modify, nullptr, TEXT(""),
		TEXT("Modifies existing nodes in a Blueprint, Animation Blueprint, Widget Blueprint, or Behavior Tree Task function graph or Event Graph. Use this to change node properties, modify/add/remove pins, or update node titles and comments. CRITICAL: Function entry and result nodes have specific pin direction constraints - 'K2Node_FunctionEntry' can ONLY have 'Output' pins (for function input parameters), and 'K2Node_FunctionResult' can ONLY have 'Input' pins (for function return values). Event nodes can only have output pins.")),
	MakeRow<Morvane::ToolInfo::ToolName_BPRemoveGraphConnections, &FBlueprintRemoveBlueprintConnectionsOperation::Execute>(EToolKind::Modify, nullptr, TEXT(""),
		TEXT("Removes connections between nodes in a Blueprint, Animation Blueprint, Widget Blueprint, or Behavior Tree Task function graph or Event Graph. Use this to break incorrect connections without recreating nodes.")),
	MakeRow<Morvane::ToolInfo::ToolName_BPCreateAsset, &FBlueprintCreateOperation::Execute>(EToolKind::Create, nullptr, TEXT(""),
		TEXT("Creates a new Unreal Engine Blueprint, Animation Blueprint, Widget Blueprint, or Behavior Tree Task asset at the specified path with the specified parent class")),
	MakeRow<Morvane::ToolInfo::ToolName_DeleteBlueprint, &FBlueprintRemoveOperation::Execute>(EToolKind::Delete, nullptr, TEXT("{}"),
		TEXT("Remove a Blueprint asset from the project")),
	MakeRow<Morvane::ToolInfo::ToolName_CompileBlueprint, &FBlueprintCompileOperation::Execute>(EToolKind::Compile, nullptr, TEXT(""),
		TEXT("Compile one or more Blueprint assets. Takes an array of Blueprint paths and compiles each Blueprint, reporting compilation results including errors and warnings.")),
};
// clang-format on

static const TCHAR* GetKindWord(EToolKind Kind)
{
	switch (Kind)
	{
	case EToolKind::Read:
		return TEXT("read");
	case EToolKind::Modify:
		return TEXT("modify");
	case EToolKind::Create:
		return TEXT("create");
	case EToolKind::Delete:
		return TEXT("delete");
	case EToolKind::Compile:
		return TEXT("compile");
	}
	return TEXT("");
}
} // namespace ToolTableRows

TArrayView<const FToolRow> ToolTable::GetRows()
{
	return ToolTableRows::Rows;
}

FString ToolTable::MakeMetadata(const FToolRow& Row)
{
	FString Metadata(TEXT("{\n"));
	Metadata += FString::Printf(TEXT("\"operation_type\": \"%s\",\n"), ToolTableRows::GetKindWord(Row.Kind));
	Metadata += Row.SubOperation ? TEXT("\"data_type\": \"Blueprint\",\n") : TEXT("\"data_type\": \"Blueprint\"\n");
	if (Row.SubOperation)
	{
		Metadata += FString::Printf(TEXT("\"sub_operation\": \"%s\"\n"), Row.SubOperation);
	}
	Metadata += TEXT("}");
	return Metadata;
}

TSharedPtr<ITool> ToolTable::MakeTool(const FToolRow& Row)
{
	return Row.Make(Row.Parameters, Row.Description, MakeMetadata(Row));
}
