#include "ToolFace/ToolSchema.h"

const FToolSchema BpRemoveGraphConnectionsSchema = {
	"bp_remove_graph_connections", "Remove wires", false, true, false, R"json({
	"type": "object",
	"description": "Removes wires between nodes that are in a graph; the nodes stay. path names the Blueprint; blueprint_name must name the same asset, else nothing is changed. One bad entry is a warning and the rest is done.",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"blueprint_name": { "type": "string", "description": "The same asset again: its last name or its path. Another asset is an error." },
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
