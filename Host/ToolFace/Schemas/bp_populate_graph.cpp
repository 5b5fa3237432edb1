#include "ToolFace/ToolSchema.h"

const FToolSchema BpPopulateGraphSchema = {
	"bp_populate_graph", "Add nodes and wires to a graph", false, true, false, R"json({
	"type": "object",
	"description": "Adds nodes to one graph, sets pin values and wires pins, all in one call. A node or wire that fails is reported as a warning and the rest is done. Give nodes, connections or both.",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"graph_name": {
			"type": "string",
			"description": "EventGraph, or the name of a function, macro or other graph that exists. Make functions with bp_create_graph first."
		},
		"graph_type": {
			"type": "string",
			"enum": ["function", "event"],
			"description": "event for an event graph of another name than EventGraph, which is then made if need be. Default function."
		},
		"nodes": {
			"type": "array",
			"items": { "$ref": "#/$defs/new_node" }
		},
		"connections": {
			"type": "array",
			"items": { "$ref": "#/$defs/connection" }
		},
		"local_variables": {
			"description": "Local variables of a function graph, by name: {\"Count\": {\"type\": {\"category\": \"int\"}, \"default_variable_value\": 0}}. Nodes of this call may use them.",
			"anyOf": [
				{ "type": "object", "additionalProperties": { "$ref": "#/$defs/local_variable" } },
				{ "type": "array" }
			]
		}
	},
	"required": ["path", "graph_name"]
})json"};
