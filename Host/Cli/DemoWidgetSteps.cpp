#include "Cli/DemoSteps.h"

const std::vector<FDemoStep>& GetDemoWidgetSteps()
{
	static const std::vector<FDemoStep> Steps = {
		{"A Widget Blueprint for a health bar", "bp_create_asset",
			R"({"path": "/Game/UI/WBP_HealthBar",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/UMG.UserWidget"}})"},
		{"The bar and a text over it, in one call; an animation for later", "ui_modify_widget_bp",
			R"({"path": "/Game/UI/WBP_HealthBar",
  "widget_tree": {
    "root_widget": {"name": "Frame", "class": "/Script/UMG.SizeBox",
      "properties": {"bOverride_WidthOverride": true, "WidthOverride": 320}},
    "widgets": [
      {"action": "add", "name": "Stack", "class": "Overlay", "parent": "Frame"},
      {"action": "add", "name": "Bar", "class": "ProgressBar", "parent": "Stack", "is_variable": true,
       "slot": {"HorizontalAlignment": "Fill", "VerticalAlignment": "Fill"},
       "properties": {"Percent": 1, "FillColorAndOpacity": {"R": 0.8, "G": 0.1, "B": 0.1, "A": 1}}},
      {"action": "add", "name": "HealthText", "class": "TextBlock", "parent": "Stack", "is_variable": true,
       "slot": {"HorizontalAlignment": "Center", "VerticalAlignment": "Center", "Padding": {"Left": 8, "Right": 8}},
       "properties": {"Text": "100", "Font": {"Size": 18}, "ColorAndOpacity": {"R": 1, "G": 1, "B": 1, "A": 1}}}]},
  "animations": [{"name": "Hurt", "action": "add"}]})"},
		{"A function that shows the health", "bp_create_graph",
			R"({"path": "/Game/UI/WBP_HealthBar",
  "functions": [{"name": "ShowHealth",
    "parameters": [{"name": "Percent", "type": {"category": "float"}}, {"name": "Shown", "type": {"category": "text"}}]}]})"},
		{"It fills the bar and writes the text; the function's entry stands there already", "bp_populate_graph",
			R"({"path": "/Game/UI/WBP_HealthBar", "graph_name": "ShowHealth",
  "nodes": [
    {"node_guid": "bar", "class_name": "K2Node_VariableGet", "node_metadata": {"variable_name": "Bar"}},
    {"node_guid": "fill", "class_name": "K2Node_CallFunction", "target_class": "ProgressBar", "target_function": "SetPercent"},
    {"node_guid": "text", "class_name": "K2Node_VariableGet", "node_metadata": {"variable_name": "HealthText"}},
    {"node_guid": "write", "class_name": "K2Node_CallFunction", "target_class": "TextBlock", "target_function": "SetText"}],
  "connections": [
    {"source_node_guid": "$Show Health", "source_pin_name": "then", "target_node_guid": "fill", "target_pin_name": "execute"},
    {"source_node_guid": "bar", "source_pin_name": "Bar", "target_node_guid": "fill", "target_pin_name": "self"},
    {"source_node_guid": "$Show Health", "source_pin_name": "Percent", "target_node_guid": "fill", "target_pin_name": "InPercent"},
    {"source_node_guid": "fill", "source_pin_name": "then", "target_node_guid": "write", "target_pin_name": "execute"},
    {"source_node_guid": "text", "source_pin_name": "HealthText", "target_node_guid": "write", "target_pin_name": "self"},
    {"source_node_guid": "$Show Health", "source_pin_name": "Shown", "target_node_guid": "write", "target_pin_name": "InText"}]})"},
		{"A Widget Blueprint for the main menu", "bp_create_asset",
			R"({"path": "/Game/UI/WBP_MainMenu",
  "blueprint_parent_class": {"type": "native", "parent_path": "/Script/UMG.UserWidget"}})"},
		{"Title, button and health bar in the middle of the screen, with the button's event; one property is misspelled",
			"ui_modify_widget_bp",
			R"({"path": "/Game/UI/WBP_MainMenu",
  "widget_tree": {
    "root_widget": {"name": "Canvas", "class": "/Script/UMG.CanvasPanel"},
    "widgets": [
      {"action": "add", "name": "Menu", "class": "VerticalBox", "parent": "Canvas",
       "slot": {"bAutoSize": true, "LayoutData": {"Alignment": {"X": 0.5, "Y": 0.5},
         "Anchors": {"Minimum": {"X": 0.5, "Y": 0.5}, "Maximum": {"X": 0.5, "Y": 0.5}}}}},
      {"action": "add", "name": "Title", "class": "TextBlock", "parent": "Menu",
       "properties": {"Text": "The Old House", "Font.Size": 48, "Justification": "Center"}},
      {"action": "add", "name": "PlayButton", "class": "Button", "parent": "Menu", "is_variable": true,
       "slot": {"Padding": {"Top": 24}, "HorizontalAlignment": "Fill", "Margin": 4}, "events": {"OnClicked": true}},
      {"action": "add", "name": "PlayLabel", "class": "TextBlock", "parent": "PlayButton", "properties": {"Text": "Play"}},
      {"action": "add", "name": "Health", "class": "WBP_HealthBar", "parent": "Menu"}]},
  "animations": [{"name": "FadeIn", "action": "add"}]})"},
		{"The button opens a level", "bp_populate_graph",
			R"json({"path": "/Game/UI/WBP_MainMenu", "graph_name": "EventGraph",
  "nodes": [{"node_guid": "open", "class_name": "K2Node_CallFunction",
    "target_class": "GameplayStatics", "target_function": "OpenLevel",
    "pins": [{"action": "modify", "name": "LevelName", "value": "OldHouse"}]}],
  "connections": [{"source_node_guid": "$On Clicked (PlayButton)", "source_pin_name": "then",
    "target_node_guid": "open", "target_pin_name": "execute"}]})json"},
		{"Compile both", "compile_blueprint",
			R"({"blueprint_paths": ["/Game/UI/WBP_HealthBar", "/Game/UI/WBP_MainMenu"]})"},
		{"Read the menu's tree, and the button in full", "read_blueprint_widget_tree",
			R"({"path": "/Game/UI/WBP_MainMenu", "widget_name": ["PlayButton"]})"},
	};
	return Steps;
}
