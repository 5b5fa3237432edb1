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
					"target_pin_name": { "type": "string", "description": "Its input pin." },
					"source_node_id": { "type": "string", "description": "Another name for source_node_guid, read when that is absent." },
					"target_node_id": { "type": "string", "description": "Another name for target_node_guid, read when that is absent." }
				},
				"required": ["action", "source_pin_name", "target_pin_name"]
			}
		},
		"state_machine_name": { "type": "string", "description": "For animation graphs: the state machine in which graph_name is looked for." },
		"from_state_name": { "type": "string", "description": "With to_state_name: the graph is the rule of the transition between the two." },
		"to_state_name": { "type": "string" }
	},
	"required": ["path", "blueprint_name", "graph_name", "connections"]
})json"};
