#include "ToolFace/ToolSchema.h"

const FToolSchema BpRemoveGraphConnectionsSchema = {
	"bp_remove_graph_connections", "Remove wires", false, true, false, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"blueprint_name": { "type": "string", "description": "The same asset again: its path or name." },
		"graph_name": { "type": "string", "description": "EventGraph, or the name of a function or other graph." },
		"connections": {
			"type": "array",
			"description": "The wires to remove. Each needs action remove.",
			"items": {
				"type": "object",
				"properties": {
					"action": { "type": "string", "enum": ["remove"] },
					"source_node_guid": { "type": "string", "description": "The node that the wire leaves: its full guid or the 7-digit short id that reads return." },
					"source_pin_name": { "type": "string", "description": "Its output pin." },
					"target_node_guid": { "type": "string", "description": "The node that the wire enters." },
					"target_pin_name": { "type": "string", "description": "Its input pin." }
				},
				"required": ["action", "source_node_guid", "source_pin_name", "target_node_guid", "target_pin_name"]
			}
		}
	},
	"required": ["path", "blueprint_name", "graph_name", "connections"]
})json"};
