#pragma once

#include "CoreMinimal.h"

/** Names that several modules share. A key that one unit alone reads is spelled there. */
namespace Morvane::ToolInfo
{
inline constexpr const TCHAR* ToolName_ReadBlueprintSchema = TEXT("read_blueprint_schema");
inline constexpr const TCHAR* ToolName_ReadBlueprintVariable = TEXT("read_blueprint_variable");
inline constexpr const TCHAR* ToolName_ReadBlueprintComponent = TEXT("read_blueprint_component");
inline constexpr const TCHAR* ToolName_ReadBlueprintFunction = TEXT("read_blueprint_function");
inline constexpr const TCHAR* ToolName_ReadBlueprintInterface = TEXT("read_blueprint_interface");
inline constexpr const TCHAR* ToolName_ReadBlueprintEvent = TEXT("read_blueprint_event");
inline constexpr const TCHAR* ToolName_ReadBlueprintTimeline = TEXT("read_blueprint_timeline");
inline constexpr const TCHAR* ToolName_ReadBlueprintDelegate = TEXT("read_blueprint_delegate");
inline constexpr const TCHAR* ToolName_ReadBlueprintMacro = TEXT("read_blueprint_macro");
inline constexpr const TCHAR* ToolName_ReadBlueprintWidgetTree = TEXT("read_blueprint_widget_tree");
inline constexpr const TCHAR* ToolName_ModifyBlueprintClassStructure = TEXT("modify_blueprint_class_structure");
inline constexpr const TCHAR* ToolName_UIModifyWidgetBP = TEXT("ui_modify_widget_bp");
inline constexpr const TCHAR* ToolName_BPPopulateGraph = TEXT("bp_populate_graph");
inline constexpr const TCHAR* ToolName_BPCreateGraph = TEXT("bp_create_graph");
inline constexpr const TCHAR* ToolName_BPModifyGraphNodes = TEXT("bp_modify_graph_nodes");
inline constexpr const TCHAR* ToolName_BPRemoveGraphConnections = TEXT("bp_remove_graph_connections");
inline constexpr const TCHAR* ToolName_BPCreateAsset = TEXT("bp_create_asset");
inline constexpr const TCHAR* ToolName_DeleteBlueprint = TEXT("delete_blueprint");
inline constexpr const TCHAR* ToolName_CompileBlueprint = TEXT("compile_blueprint");

inline constexpr const TCHAR* CategoryName_Blueprint = TEXT("Blueprint");

inline constexpr const TCHAR* FieldName_ReadTool = TEXT("read_tool");
inline constexpr const TCHAR* FieldName_Path = TEXT("path");
inline constexpr const TCHAR* FieldName_GraphName = TEXT("graph_name");
inline constexpr const TCHAR* FieldName_EventName = TEXT("event_name");
inline constexpr const TCHAR* FieldName_FloatingNodeName = TEXT("floating_node_name");
inline constexpr const TCHAR* FieldName_Events = TEXT("events");
inline constexpr const TCHAR* FieldName_FunctionName = TEXT("function_name");
inline constexpr const TCHAR* FieldName_DelegateName = TEXT("delegate_name");
inline constexpr const TCHAR* FieldName_VariableName = TEXT("variable_name");
inline constexpr const TCHAR* FieldName_ComponentName = TEXT("component_name");
inline constexpr const TCHAR* FieldName_Components = TEXT("components");
inline constexpr const TCHAR* FieldName_InterfaceName = TEXT("interface_name");
inline constexpr const TCHAR* FieldName_Interfaces = TEXT("interfaces");
inline constexpr const TCHAR* FieldName_TimelineName = TEXT("timeline_name");
inline constexpr const TCHAR* FieldName_Timelines = TEXT("timelines");
inline constexpr const TCHAR* FieldName_Delegates = TEXT("delegates");
inline constexpr const TCHAR* FieldName_MacroName = TEXT("macro_name");
inline constexpr const TCHAR* FieldName_WidgetName = TEXT("widget_name");

/** How much a read shows: everything, or what an agent cannot do without. */
inline constexpr const TCHAR* FieldName_Detail = TEXT("detail");
inline constexpr const TCHAR* Detail_Lean = TEXT("lean");
inline constexpr const TCHAR* Detail_Full = TEXT("full");
/** Guids of the nodes that a read of a change is narrowed to. */
inline constexpr const TCHAR* FieldName_OnlyNodes = TEXT("only_nodes");
} // namespace Morvane::ToolInfo
