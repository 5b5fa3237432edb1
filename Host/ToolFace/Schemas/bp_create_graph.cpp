#include "ToolFace/ToolSchema.h"

const FToolSchema BpCreateGraphSchema = {"bp_create_graph", "Create functions and delegate signatures", false, true,
	false,
	R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"functions": {
			"type": "array",
			"minItems": 1,
			"description": "Functions to create or to add parameters to. A name that the parent class implements becomes an override, or an event node in the event graph where the parent's function is an event; the messages say which.",
			"items": {
				"type": "object",
				"properties": {
					"name": { "type": "string", "description": "Name of the function." },
					"parameters": {
						"type": "array",
						"items": {
							"type": "object",
							"properties": {
								"name": { "type": "string" },
								"type": { "$ref": "#/$defs/pin_type" },
								"direction": {
									"type": "string",
									"description": "Leave out: that makes an input of the function. The word is taken as the pin's own direction on the entry node, so \"input\" does not make a function input. Results go into return_type."
								}
							},
							"required": ["name", "type"]
						}
					},
					"return_type": { "$ref": "#/$defs/pin_type" },
					"is_delegate": { "type": "boolean", "description": "true makes the signature of an event dispatcher instead of a function. The variable that is called and bound is not made by this." },
					"is_rep_notify": { "type": "boolean" },
					"replicated_property": { "type": "string" }
				},
				"required": ["name"]
			}
		}
	},
	"required": ["path", "functions"]
})json"};
