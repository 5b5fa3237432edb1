#include "Cli/DemoSteps.h"

namespace
{
using FSteps = std::vector<FDemoStep>;

/** Each area has its own list; the stories follow one another. */
FSteps JoinSteps(FSteps Steps, std::initializer_list<const FSteps*> More)
{
	for (const FSteps* const List : More)
	{
		Steps.insert(Steps.end(), List->begin(), List->end());
	}
	return Steps;
}
} // namespace

const std::vector<FDemoStep>& GetDemoSteps()
{
	static const FSteps DoorSteps = {
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
		{"A function of the door, with an input and a result", "bp_create_graph",
			R"({"path": "/Game/Doors/BP_Door",
  "functions": [{"name": "CanOpen",
    "parameters": [{"name": "Strength", "type": {"category": "float"}}],
    "return_type": {"category": "bool"}}]})"},
		{"The event graph, asked for in exact and in loose words; one node and one pin are wrong", "bp_populate_graph",
			R"({"path": "/Game/Doors/BP_Door", "graph_name": "EventGraph",
  "nodes": [
    {"node_guid": "begin", "class_name": "K2Node_Event", "node_metadata": {"event_name": "ReceiveBeginPlay"}},
    {"node_guid": "check", "menu_title": "can open", "pins": [{"action": "modify", "name": "Strength", "value": "12.5"}]},
    {"node_guid": "branch", "menu_title": "if"},
    {"node_guid": "wait", "menu_title": "Delya"},
    {"node_guid": "turn", "menu_title": "add actor local rotation",
     "pins": [{"action": "modify", "name": "DeltaRotation", "value": "0, 90, 0"}]},
    {"node_guid": "say", "class_name": "K2Node_CallFunction",
     "target_class": "KismetSystemLibrary", "target_function": "PrintString",
     "pins": [{"action": "modify", "name": "InString", "value": "The door stays closed"}]},
    {"node_guid": "creak", "menu_title": "Play Squeaky Hinge"}],
  "connections": [
    {"source_node_guid": "begin", "source_pin_name": "then", "target_node_guid": "check", "target_pin_name": "execute"},
    {"source_node_guid": "check", "source_pin_name": "then", "target_node_guid": "branch", "target_pin_name": "execute"},
    {"source_node_guid": "check", "source_pin_name": "return value", "target_node_guid": "branch", "target_pin_name": "condition"},
    {"source_node_guid": "branch", "source_pin_name": "true", "target_node_guid": "wait", "target_pin_name": "execute"},
    {"source_node_guid": "wait", "source_pin_name": "then", "target_node_guid": "turn", "target_pin_name": "execute"},
    {"source_node_guid": "branch", "source_pin_name": "otherwise", "target_node_guid": "say", "target_pin_name": "execute"}]})"},
		{"Repaired: the sound by the name of its function, the pin by its own, on nodes that stand",
			"bp_populate_graph",
			R"({"path": "/Game/Doors/BP_Door", "graph_name": "EventGraph",
  "nodes": [{"node_guid": "creak", "menu_title": "Play Sound at Location"}],
  "connections": [
    {"source_node_guid": "$branch", "source_pin_name": "false", "target_node_guid": "$say", "target_pin_name": "execute"},
    {"source_node_guid": "$turn", "source_pin_name": "then", "target_node_guid": "creak", "target_pin_name": "execute"}]})"},
		{"Compile the door and the prompt", "compile_blueprint",
			R"({"blueprint_paths": ["/Game/Doors/BP_Door", "/Game/UI/WBP_Prompt"]})"},
		{"Read the event back", "read_blueprint_event",
			R"({"path": "/Game/Doors/BP_Door", "graph_name": "EventGraph", "event_name": "BeginPlay"})"},
		{"Read the whole door", "read_blueprint_schema", R"({"path": "/Game/Doors/BP_Door"})"},
		{"The same event for an agent that counts its tokens", "read_blueprint_event",
			R"({"path": "/Game/Doors/BP_Door", "graph_name": "EventGraph", "event_name": "BeginPlay", "detail": "lean"})"},
		{"Delete the heavy door", "delete_blueprint", R"({"path": "/Game/Doors/BP_HeavyDoor"})"},
	};
	static const FSteps Steps = JoinSteps(
		DoorSteps, {&GetDemoResourceSteps(), &GetDemoStructureSteps(), &GetDemoRepairSteps(), &GetDemoWidgetSteps()});
	return Steps;
}
