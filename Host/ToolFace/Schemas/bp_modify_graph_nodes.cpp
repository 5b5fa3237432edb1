#include "ToolFace/ToolSchema.h"

const FToolSchema BpModifyGraphNodesSchema = {
	"bp_modify_graph_nodes", "Change or remove nodes", false, true, false, R"json({
	"type": "object",
	"description": "Changes or removes nodes that are in a graph, removes wires, edits local variables, makes a function pure, or deletes a graph. path names the Blueprint; blueprint_name must name the same asset, else nothing is changed. One bad entry is a warning and the rest is done; a call of which every entry failed says so in its last message.",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"blueprint_name": { "type": "string", "description": "The same asset again: its last name or its path. Another asset is an error." },
		"graph_name": { "type": "string", "description": "EventGraph, or the name of a function or other graph." },
		"action": {
			"type": "string",
			"enum": ["modify", "remove"],
			"description": "What to do with the graph itself: remove deletes it, with the node that shows it when it is collapsed or belongs to a state machine. Leave out to work on its nodes."
		},
		"nodes": {
			"type": "array",
			"items": {
				"type": "object",
				"properties": {
					"action": { "type": "string", "enum": ["modify", "remove"], "description": "Needed. New nodes are bp_populate_graph." },
					"node_guid": { "type": "string", "description": "Id of the node: its full guid or the 7-digit short id that reads return." },
					"menu_title": { "type": "string", "description": "A new title: the formula of a math expression or the name of a custom event; other nodes have no title of their own. The title that the node has is no request." },
					"comment": { "type": "string", "description": "The node's comment." },
					"position": {
						"type": "object",
						"properties": { "x": { "type": "number" }, "y": { "type": "number" } }
					},
					"metadata": {
						"type": "object",
						"description": "FunctionName points a function call at another function, of the class ClassName: a short name, a class path or a Blueprint; KismetSystemLibrary without it.",
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
									"description": "modify sets the value of an input without a wire, or gives a parameter another type; for a Create Event node the value is a function's name. add and remove change parameters (function entries and results, custom events, ends of macros and collapsed graphs) and the pins of Sequence, Select, switches, Make Array, Make Set, Make Map, operators and Format Text."
								},
								"name": { "type": "string", "description": "The pin; a new case of a switch is called after it: a text, a name or a gameplay tag." },
								"value": {
									"anyOf": [{ "type": "string" }, { "type": "number" }, { "type": "boolean" }, { "type": "array" }, { "type": "object" }],
									"description": "true, 42, 0.5, Hello, (X=0.0,Y=0.0,Z=100.0), an enum's entry, or the path of an asset or class that exists. Vectors, rotators, colors and transforms may be lists or objects with their parts."
								},
								"direction": {
									"type": "string",
									"enum": ["input", "output"],
									"description": "For add, the pin's own direction on the node, which the node knows by itself: a K2Node_FunctionEntry and an event take output pins (the function's inputs), a K2Node_FunctionResult takes input pins (its results)."
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
			"description": "Wires to remove, each with action remove and the nodes' real ids. Wires are made with bp_populate_graph.",
			"items": { "$ref": "#/$defs/connection" }
		},
		"local_variables": {
			"type": "object",
			"description": "Local variables of a function graph, by name.",
			"additionalProperties": { "$ref": "#/$defs/local_variable" }
		},
		"is_pure": { "type": "boolean", "description": "Makes the graph's function pure or not. The flow goes past calls that turn pure; those that turn back need wires." },
		"state_machine_name": { "type": "string", "description": "For animation graphs: the state machine in which graph_name is looked for." },
		"from_state_name": { "type": "string", "description": "With to_state_name: the graph is the rule of the transition between the two." },
		"to_state_name": { "type": "string" }
	},
	"required": ["path", "blueprint_name", "graph_name"]
})json"};
