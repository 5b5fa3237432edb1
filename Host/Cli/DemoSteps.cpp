#include "Cli/DemoSteps.h"

const std::vector<FDemoStep>& GetDemoSteps()
{
	static const std::vector<FDemoStep> Steps = {
		{"A plain Blueprint, derived from Actor", "bp_create_asset",
			R"({"path": "/Game/Doors/BP_Door",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/Engine.Actor"}})"},
		{"A Widget Blueprint", "bp_create_asset",
			R"({"path": "/Game/UI/WBP_Prompt",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/UMG.UserWidget"}})"},
		{"An Animation Blueprint", "bp_create_asset",
			R"({"path": "/Game/Animation/ABP_Guard",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/Engine.AnimInstance"}})"},
		{"A Behavior Tree Task", "bp_create_asset",
			R"({"path": "/Game/AI/BTT_OpenDoor",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/AIModule.BTTask_BlueprintBase"}})"},
		{"A door derived from the door", "bp_create_asset",
			R"({"path": "/Game/Doors/BP_HeavyDoor",
  "blueprint_parent_class": {"type": "blueprint", "parent_path": "BP_Door"}})"},
		{"Members of the door: variables, components, a dispatcher", "modify_blueprint_class_structure",
			R"({"path": "/Game/Doors/BP_Door",
  "variables": {
    "IsOpen": {"action": "add", "type": {"category": "bool"}, "default_variable_value": false, "category": "Door"},
    "OpenAngle": {"action": "add", "type": {"category": "float"}, "default_variable_value": 90, "instance_editable": true}},
  "components": [
    {"name": "Frame", "type": "StaticMeshComponent"},
    {"name": "Trigger", "type": "BoxComponent", "attach_to": "Frame",
     "properties": {"relative_location": {"x": 0, "y": 0, "z": 100}}}],
  "delegates": [{"name": "OnOpened"}]})"},
		{"A function with an input and a result", "bp_create_graph",
			R"({"path": "/Game/Doors/BP_Door",
  "functions": [{"name": "CanOpen",
    "parameters": [{"name": "Strength", "type": {"category": "float"}}],
    "return_type": {"category": "bool"}}]})"},
		{"Logic in the event graph: when play begins and the door is closed, say so", "bp_populate_graph",
			R"({"path": "/Game/Doors/BP_Door", "graph_name": "EventGraph",
  "nodes": [
    {"node_guid": "begin", "class_name": "K2Node_Event", "node_metadata": {"event_name": "ReceiveBeginPlay"}},
    {"node_guid": "open", "class_name": "K2Node_VariableGet", "node_metadata": {"variable_name": "IsOpen"}},
    {"node_guid": "branch", "class_name": "K2Node_IfThenElse", "menu_title": "Branch"},
    {"node_guid": "print", "class_name": "K2Node_CallFunction",
     "target_class": "KismetSystemLibrary", "target_function": "PrintString",
     "pins": [{"action": "modify", "name": "InString", "value": "The door is closed"}]}],
  "connections": [
    {"source_node_guid": "begin", "source_pin_name": "then", "target_node_guid": "branch", "target_pin_name": "execute"},
    {"source_node_guid": "open", "source_pin_name": "IsOpen", "target_node_guid": "branch", "target_pin_name": "Condition"},
    {"source_node_guid": "branch", "source_pin_name": "false", "target_node_guid": "print", "target_pin_name": "execute"}]})"},
		{"A button in the widget, with an event for its click", "ui_modify_widget_bp",
			R"({"path": "/Game/UI/WBP_Prompt",
  "widget_tree": {
    "root_widget": {"name": "Root", "class": "/Script/UMG.VerticalBox"},
    "widgets": [
      {"action": "add", "name": "Open", "class": "/Script/UMG.Button", "parent": "Root", "is_variable": true,
       "events": {"OnClicked": true}},
      {"action": "add", "name": "Label", "class": "/Script/UMG.TextBlock", "parent": "Open",
       "properties": {"Text": "Open the door", "Font.Size": 18}}]}})"},
		{"Compile both", "compile_blueprint", R"({"blueprint_paths": ["/Game/Doors/BP_Door", "/Game/UI/WBP_Prompt"]})"},
		{"Read the event back", "read_blueprint_event",
			R"({"path": "/Game/Doors/BP_Door", "graph_name": "EventGraph", "event_name": "BeginPlay"})"},
		{"Read the whole door", "read_blueprint_schema", R"({"path": "/Game/Doors/BP_Door"})"},
		{"Delete the heavy door", "delete_blueprint", R"({"path": "/Game/Doors/BP_HeavyDoor"})"},
	};
	return Steps;
}
