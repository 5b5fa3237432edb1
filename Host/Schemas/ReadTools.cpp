#include "Schemas/ToolSchema.h"

// The reads of one item are asked alike: the asset and the item's name. A name that does not exist is no error; it is
// answered with "status": "not_found".

const FToolSchema ReadBlueprintSchemaSchema = {
	"read_blueprint_schema", "Read Blueprint overview", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" }
	},
	"required": ["path"]
})json"};

const FToolSchema ReadBlueprintVariableSchema = {"read_blueprint_variable", "Read variable", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"variable_name": { "type": "string", "description": "Name of the variable." }
	},
	"required": ["path", "variable_name"]
})json"};

const FToolSchema ReadBlueprintComponentSchema = {
	"read_blueprint_component", "Read component", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"component_name": { "type": "string", "description": "Name of the component, such as DefaultSceneRoot." }
	},
	"required": ["path", "component_name"]
})json"};

const FToolSchema ReadBlueprintFunctionSchema = {"read_blueprint_function", "Read function", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"function_name": { "type": "string", "description": "Name of the function. The answer holds its signature and its graph with all nodes, pins and links." }
	},
	"required": ["path", "function_name"]
})json"};

const FToolSchema ReadBlueprintInterfaceSchema = {
	"read_blueprint_interface", "Read interface", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"interface_name": { "type": "string", "description": "Name of an interface that the Blueprint implements." }
	},
	"required": ["path", "interface_name"]
})json"};

const FToolSchema ReadBlueprintEventSchema = {"read_blueprint_event", "Read event", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"graph_name": { "type": "string", "description": "The event graph, usually EventGraph. Needed, though all event graphs are searched." },
		"event_name": {
			"type": "string",
			"description": "The event's title as read_blueprint_schema shows it, or a part of it: Event BeginPlay, or BeginPlay, but not the function's name ReceiveBeginPlay. The answer holds every node that the event reaches, and the nodes that no event reaches."
		}
	},
	"required": ["path", "graph_name", "event_name"]
})json"};

const FToolSchema ReadBlueprintTimelineSchema = {"read_blueprint_timeline", "Read timeline", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"timeline_name": { "type": "string", "description": "Name of the timeline." }
	},
	"required": ["path", "timeline_name"]
})json"};

const FToolSchema ReadBlueprintDelegateSchema = {"read_blueprint_delegate", "Read delegate", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"delegate_name": { "type": "string", "description": "Name of the event dispatcher." }
	},
	"required": ["path", "delegate_name"]
})json"};

const FToolSchema ReadBlueprintMacroSchema = {"read_blueprint_macro", "Read macro", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"macro_name": { "type": "string", "description": "Name of the macro." }
	},
	"required": ["path", "macro_name"]
})json"};

const FToolSchema ReadBlueprintWidgetTreeSchema = {
	"read_blueprint_widget_tree", "Read widget tree", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"widget_name": {
			"anyOf": [{ "type": "string" }, { "type": "array", "items": { "type": "string" } }],
			"description": "Widgets to show with all their properties and slots. Leave out for the tree alone."
		}
	},
	"required": ["path"]
})json"};
