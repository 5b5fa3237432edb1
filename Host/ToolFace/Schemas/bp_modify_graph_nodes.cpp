#include "ToolFace/ToolSchema.h"

const FToolSchema BpModifyGraphNodesSchema = {
	"bp_modify_graph_nodes", "Change or remove nodes", false, true, false, R"json({
	"type": "object",
	"description": "Changes or removes nodes that are in a graph, removes wires, and edits local variables. One bad entry is a warning and the rest is done.",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"blueprint_name": { "type": "string", "description": "The same asset again: its path or name." },
		"graph_name": { "type": "string", "description": "EventGraph, or the name of a function or other graph." },
		"action": {
			"type": "string",
			"enum": ["modify", "remove"],
			"description": "What to do with the graph itself: remove deletes it. Leave out to work on its nodes."
		},
		"nodes": {
			"type": "array",
			"items": {
				"type": "object",
				"properties": {
					"action": { "type": "string", "enum": ["modify", "remove"], "description": "Needed. New nodes are bp_populate_graph." },
					"node_guid": { "type": "string", "description": "Id of the node: its full guid or the 7-digit short id that reads return." },
					"new_title": { "type": "string", "description": "A new title, for math expressions and custom events." },
					"comment": { "type": "string", "description": "The node's comment." },
					"position": {
						"type": "object",
						"properties": { "x": { "type": "number" }, "y": { "type": "number" } }
					},
					"metadata": {
						"type": "object",
						"description": "FunctionName (with ClassName) points a function call at another function.",
						"properties": {
							"FunctionName": { "type": "string" },
							"ClassName": { "type": "string" }
						},
						"additionalProperties": { "type": "string" }
					},
					"pins": {
						"type": "array",
						"items": {
							"type": "object",
							"properties": {
								"action": {
									"type": "string",
									"enum": ["add", "modify", "remove"],
									"description": "modify sets the value of an input without a wire. add and remove change the pins of function entries and results, custom events, Sequence, Select and tag switches."
								},
								"name": { "type": "string" },
								"value": { "type": "string", "description": "As text: true, 42, 0.5, Hello, (X=0.0,Y=0.0,Z=100.0), an enum's value name, or a path." },
								"direction": {
									"type": "string",
									"enum": ["input", "output"],
									"description": "For add, the pin's own direction on the node: a K2Node_FunctionEntry and an event take output pins (the function's inputs), a K2Node_FunctionResult takes input pins (its results)."
								},
								"type": { "$ref": "#/$defs/pin_type" }
							},
							"required": ["action", "name"]
						}
					}
				},
				"required": ["action", "node_guid"]
			}
		},
		"connections": {
			"type": "array",
			"description": "Wires to remove, each with action remove. Wires are made with bp_populate_graph.",
			"items": { "$ref": "#/$defs/connection" }
		},
		"local_variables": {
			"type": "object",
			"description": "Local variables of a function graph, by name.",
			"additionalProperties": { "$ref": "#/$defs/local_variable" }
		},
		"is_pure": { "type": "boolean", "description": "Makes the function pure or not." },
		"state_machine_name": { "type": "string", "description": "For animation graphs: the state machine." },
		"from_state_name": { "type": "string" },
		"to_state_name": { "type": "string" }
	},
	"required": ["path", "blueprint_name", "graph_name"]
})json"};
