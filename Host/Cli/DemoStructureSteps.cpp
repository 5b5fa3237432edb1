#include "Cli/DemoSteps.h"

const std::vector<FDemoStep>& GetDemoStructureSteps()
{
	static const std::vector<FDemoStep> Steps = {
		{"An interface for what can be switched", "bp_create_asset",
			R"({"path": "/Game/Lanterns/BPI_Switch",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/CoreUObject.Interface"}})"},
		{"Its one function", "bp_create_graph",
			R"({"path": "/Game/Lanterns/BPI_Switch",
  "functions": [{"name": "IsLit", "return_type": {"category": "bool"}}]})"},
		{"A lamp, with nothing in it yet", "bp_create_asset",
			R"({"path": "/Game/Lanterns/BP_Lantern",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/Engine.Actor"}})"},
		{"A whole class in one call; one key is misspelt", "modify_blueprint_class_structure",
			R"({"path": "/Game/Lanterns/BP_Lantern",
  "variables": {
    "Lit": {"action": "add", "type": {"category": "bool"}, "replication": "rep_notify", "category": "Lamp"},
    "Brightness": {"action": "add", "type": {"category": "float"}, "default_variable_value": 5000,
      "instance_editable": true, "category": "Lamp", "tooltip": "How bright the bulb is when it is lit"},
    "Colours": {"action": "add", "type": {"category": "LinearColor", "container_type": "array"},
      "default_variable_value": [{"R": 1, "G": 0.8, "B": 0.5}, "#FFFFFF"]},
    "Tags": {"default_variable_value": ["lamp"]}},
  "components": [
    {"name": "Post", "type": "StaticMeshComponent", "attach_to": "DefaultSceneRoot",
     "properties": {"mobility": "Movable", "BodyInstance": {"CollisionProfileName": "BlockAll"}}},
    {"name": "Bulb", "type": "PointLightComponent", "attach_to": "Post",
     "properties": {"relativ_location": {"z": 180}, "Intensity": 0, "LightColor": "#FFD080"}}],
  "interfaces": [{"name": "BPI_Switch"}],
  "timelines": [{"name": "Glow", "length": 2,
    "curves": [{"name": "Level", "points": [{"time": 0, "value": 0}, {"time": 2, "value": 1}]}]}],
  "delegates": [{"name": "OnLit", "signature": {"parameters": [
    {"name": "By", "type": {"category": "object", "sub_category_object": "Actor"}}]}}]})"},
		{"The key as it should be, and the post a little up", "modify_blueprint_class_structure",
			R"({"path": "/Game/Lanterns/BP_Lantern",
  "components": [
    {"name": "Bulb", "action": "modify", "properties": {"relative_location": {"z": 180}}},
    {"name": "Post", "action": "modify", "properties": {"relative_location": {"z": 10}}}]})"},
		{"What stands there now, the timeline's node among it", "read_blueprint_schema",
			R"({"path": "/Game/Lanterns/BP_Lantern"})"},
		{"A graph that uses all of it", "bp_populate_graph",
			R"json({"path": "/Game/Lanterns/BP_Lantern", "graph_name": "EventGraph",
  "nodes": [
    {"node_guid": "begin", "class_name": "K2Node_Event", "node_metadata": {"event_name": "ReceiveBeginPlay"}},
    {"node_guid": "light", "class_name": "K2Node_VariableSet", "node_metadata": {"variable_name": "Lit"},
     "pins": [{"action": "modify", "name": "Lit", "value": "true"}]},
    {"node_guid": "tell", "menu_title": "Call On Lit"},
    {"node_guid": "bulb", "menu_title": "Get Bulb"},
    {"node_guid": "bright", "class_name": "K2Node_VariableGet", "node_metadata": {"variable_name": "Brightness"}},
    {"node_guid": "scale", "class_name": "K2Node_CallFunction", "target_class": "KismetMathLibrary",
     "target_function": "Lerp"},
    {"node_guid": "set", "class_name": "K2Node_CallFunction", "target_class": "LightComponent",
     "target_function": "SetIntensity"}],
  "connections": [
    {"source_node_guid": "begin", "source_pin_name": "then", "target_node_guid": "light", "target_pin_name": "execute"},
    {"source_node_guid": "light", "source_pin_name": "then", "target_node_guid": "tell", "target_pin_name": "execute"},
    {"source_node_guid": "tell", "source_pin_name": "then", "target_node_guid": "$Glow", "target_pin_name": "PlayFromStart"},
    {"source_node_guid": "$Glow", "source_pin_name": "Update", "target_node_guid": "set", "target_pin_name": "execute"},
    {"source_node_guid": "$Glow", "source_pin_name": "Level", "target_node_guid": "scale", "target_pin_name": "Alpha"},
    {"source_node_guid": "bright", "source_pin_name": "Brightness", "target_node_guid": "scale", "target_pin_name": "B"},
    {"source_node_guid": "scale", "source_pin_name": "ReturnValue", "target_node_guid": "set", "target_pin_name": "NewIntensity"},
    {"source_node_guid": "bulb", "source_pin_name": "Bulb", "target_node_guid": "set", "target_pin_name": "self"}]})json"},
		{"The interface's function answers", "bp_populate_graph",
			R"({"path": "/Game/Lanterns/BP_Lantern", "graph_name": "IsLit",
  "nodes": [{"node_guid": "lit", "class_name": "K2Node_VariableGet", "node_metadata": {"variable_name": "Lit"}}],
  "connections": [
    {"source_node_guid": "lit", "source_pin_name": "Lit", "target_node_guid": "$Return Node", "target_pin_name": "ReturnValue"}]})"},
		{"A variable in use is not taken away", "modify_blueprint_class_structure",
			R"({"path": "/Game/Lanterns/BP_Lantern", "variables": {"Brightness": {"action": "remove"}}})"},
		{"Compile the lamp", "compile_blueprint", R"({"blueprint_paths": ["/Game/Lanterns/BP_Lantern"]})"},
	};
	return Steps;
}
