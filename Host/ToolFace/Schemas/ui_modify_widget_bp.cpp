#include "ToolFace/ToolSchema.h"

const FToolSchema UiModifyWidgetBpSchema = {"ui_modify_widget_bp", "Edit widget tree and animations", false, true,
	false,
	R"json({
	"type": "object",
	"description": "Give widget_tree, animations or both. Operations run in order and the first that fails ends the call.",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"widget_tree": {
			"type": "object",
			"properties": {
				"root_widget": {
					"type": "object",
					"description": "A widget that becomes the root, or with action modify a change of the root.",
					"properties": {
						"action": { "type": "string", "enum": ["add", "modify"] },
						"name": { "type": "string" },
						"class": { "type": "string", "description": "Widget class, usually a panel: /Script/UMG.CanvasPanel, /Script/UMG.VerticalBox, /Script/UMG.Overlay." },
						"is_variable": { "type": "boolean" },
						"properties": { "$ref": "#/$defs/widget_properties" }
					},
					"required": ["name"]
				},
				"widgets": {
					"type": "array",
					"description": "Parents before their children.",
					"items": {
						"type": "object",
						"properties": {
							"action": { "type": "string", "enum": ["add", "modify", "reorder", "remove"], "description": "Needed." },
							"name": { "type": "string" },
							"class": { "type": "string", "description": "For add: /Script/UMG.Button, /Script/UMG.TextBlock, /Script/UMG.Image, ... or a Widget Blueprint's path." },
							"parent": { "type": "string", "description": "For add and reorder: name of the panel that holds it." },
							"index": { "type": "number", "description": "For reorder: place among the children; left out means last." },
							"is_variable": { "type": "boolean", "description": "true lets graphs use the widget as a variable; events need it." },
							"properties": { "$ref": "#/$defs/widget_properties" },
							"slot": {
								"type": "object",
								"description": "Properties of the widget's place in its parent, which depend on the kind of panel: Padding {\"Left\":4,\"Top\":4,\"Right\":4,\"Bottom\":4}, HorizontalAlignment (Left, Center, Right, Fill), VerticalAlignment (Top, Center, Bottom, Fill), Size {\"SizeRule\":\"Fill\",\"Value\":1} in boxes. One level into a struct by a dot: \"LayoutData.Offsets\". After a wrong name the warning lists the right ones."
							},
							"events": {
								"type": "object",
								"description": "Event nodes to make in the event graph, such as {\"OnClicked\": true}.",
								"additionalProperties": { "type": "boolean" }
							}
						},
						"required": ["action", "name"]
					}
				}
			}
		},
		"animations": {
			"type": "array",
			"items": {
				"type": "object",
				"properties": {
					"name": { "type": "string" },
					"action": { "type": "string", "enum": ["add", "remove"], "description": "add makes an empty animation of five seconds." }
				},
				"required": ["name", "action"]
			}
		}
	},
	"required": ["path"]
})json"};
