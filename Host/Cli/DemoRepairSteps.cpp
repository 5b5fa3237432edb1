#include "Cli/DemoSteps.h"

const std::vector<FDemoStep>& GetDemoRepairSteps()
{
	static const std::vector<FDemoStep> Steps = {
		{"A lamp", "bp_create_asset",
			R"({"path": "/Game/Lamps/BP_Lamp",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/Engine.Actor"}})"},
		{"Its graph, with a wrong node, a wrong value and a wrong link: the lamp destroys itself at once",
			"bp_populate_graph",
			R"({"path": "/Game/Lamps/BP_Lamp", "graph_name": "EventGraph",
  "nodes": [
    {"node_guid": "start", "class_name": "K2Node_Event", "node_metadata": {"event_name": "ReceiveBeginPlay"}},
    {"node_guid": "dim", "class_name": "K2Node_CustomEvent", "node_metadata": {"event_name": "Dim"}},
    {"node_guid": "hide", "class_name": "K2Node_CallFunction", "target_class": "Actor", "target_function": "K2_DestroyActor"},
    {"node_guid": "tell", "class_name": "K2Node_CallFunction",
     "target_class": "KismetSystemLibrary", "target_function": "PrintString",
     "pins": [{"action": "modify", "name": "InString", "value": "Lihgt on"}]},
    {"node_guid": "level", "class_name": "K2Node_CallFunction", "target_class": "KismetMathLibrary", "target_function": "RandomFloat"}],
  "connections": [
    {"source_node_guid": "start", "source_pin_name": "then", "target_node_guid": "hide", "target_pin_name": "execute"}]})"},
		{"The event gets a parameter, of the wrong type", "bp_modify_graph_nodes",
			R"({"path": "/Game/Lamps/BP_Lamp", "blueprint_name": "BP_Lamp", "graph_name": "EventGraph",
  "nodes": [{"action": "modify", "node_guid": "$dim",
    "pins": [{"action": "add", "name": "Amount", "type": {"category": "name"}}]}]})"},
		{"So the call of the event does not take the level", "bp_populate_graph",
			R"({"path": "/Game/Lamps/BP_Lamp", "graph_name": "EventGraph",
  "nodes": [{"node_guid": "calldim", "class_name": "K2Node_CallFunction", "target_class": "BP_Lamp", "target_function": "Dim"}],
  "connections": [
    {"source_node_guid": "$level", "source_pin_name": "ReturnValue", "target_node_guid": "calldim", "target_pin_name": "Amount"}]})"},
		{"Mended in one call: another function, the right word, the right type; one of the ids is wrong",
			"bp_modify_graph_nodes",
			R"({"path": "/Game/Lamps/BP_Lamp", "blueprint_name": "/Game/Lamps/BP_Lamp", "graph_name": "EventGraph",
  "nodes": [
    {"action": "modify", "node_guid": "$hide", "metadata": {"ClassName": "Actor", "FunctionName": "SetActorHiddenInGame"},
     "pins": [{"action": "modify", "name": "bNewHidden", "value": "true"}]},
    {"action": "modify", "node_guid": "$tell", "comment": "for testers",
     "pins": [{"action": "modify", "name": "InString", "value": "Light on"}]},
    {"action": "modify", "node_guid": "$dim",
     "pins": [{"action": "modify", "name": "Amount", "type": {"category": "float"}}]},
    {"action": "remove", "node_guid": "0000000"}]})"},
		{"The wrong link goes", "bp_remove_graph_connections",
			R"({"path": "/Game/Lamps/BP_Lamp", "blueprint_name": "BP_Lamp", "graph_name": "EventGraph",
  "connections": [{"action": "remove",
    "source_node_guid": "$start", "source_pin_name": "then", "target_node_guid": "$hide", "target_pin_name": "execute"}]})"},
		{"And the right ones come", "bp_populate_graph",
			R"({"path": "/Game/Lamps/BP_Lamp", "graph_name": "EventGraph",
  "connections": [
    {"source_node_guid": "$start", "source_pin_name": "then", "target_node_guid": "$tell", "target_pin_name": "execute"},
    {"source_node_guid": "$tell", "source_pin_name": "then", "target_node_guid": "$calldim", "target_pin_name": "execute"},
    {"source_node_guid": "$level", "source_pin_name": "ReturnValue", "target_node_guid": "$calldim", "target_pin_name": "Amount"},
    {"source_node_guid": "$dim", "source_pin_name": "then", "target_node_guid": "$hide", "target_pin_name": "execute"}]})"},
		{"It compiles clean", "compile_blueprint", R"({"blueprint_paths": ["/Game/Lamps/BP_Lamp"]})"},
		{"And reads as it was meant", "read_blueprint_event",
			R"({"path": "/Game/Lamps/BP_Lamp", "graph_name": "EventGraph", "event_name": "Dim"})"},
	};
	return Steps;
}
