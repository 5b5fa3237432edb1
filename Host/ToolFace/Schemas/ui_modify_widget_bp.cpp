#include "ToolFace/ToolSchema.h"

const FToolSchema UiModifyWidgetBpSchema = {"ui_modify_widget_bp", "Edit widget tree and animations", false, true,
	false,
	R"json({
	"type": "object",
	"description": "Give widget_tree, animations or both. Operations run in order; the first that fails ends the call, and nothing is saved then. The asset is saved and compiled at the end.",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"widget_tree": {
			"type": "object",
			"properties": {
				"root_widget": {
					"type": "object",
					"description": "A widget that becomes the root and takes over the children of the old one, or with action modify a change of the root.",
					"properties": {
						"action": { "type": "string", "enum": ["add", "modify"] },
						"name": { "type": "string" },
						"class": { "type": "string", "description": "Widget class, usually a panel: /Script/UMG.CanvasPanel, /Script/UMG.VerticalBox, /Script/UMG.Overlay." },
						"is_variable": { "type": "boolean" },
						"properties": { "$ref": "#/$defs/widget_properties" },
						"events": {
							"type": "object",
							"description": "As for other widgets.",
							"additionalProperties": { "type": "boolean" }
						}
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
							"class": { "type": "string", "description": "For add: /Script/UMG.Button, TextBlock, Image, ... or a Widget Blueprint's path." },
							"parent": { "type": "string", "description": "For add and reorder: name of the panel that holds it. A Button, Border, SizeBox and their like hold one child." },
							"named_slot": { "type": "string", "description": "For add and reorder, where parent is no panel but leaves places open by name: Header or Body of an ExpandableArea, a NamedSlot's name of a Widget Blueprint that stands in the tree. Each holds one widget. Without parent, in a child Widget Blueprint that has no root of its own: a NamedSlot of the one above." },
							"index": { "type": "number", "description": "For reorder: place among the children; left out means last." },
							"is_variable": { "type": "boolean", "description": "true lets graphs use the widget as a variable; events need it. Buttons, images and inputs are variables by themselves; panels, borders and texts are not." },
							"properties": { "$ref": "#/$defs/widget_properties" },
							"slot": {
								"type": "object",
								"description": "Properties of the widget's place in its parent, which depend on the kind of panel: Padding {\"Left\":4,\"Top\":4,\"Right\":4,\"Bottom\":4}, HorizontalAlignment (Left, Center, Right, Fill), VerticalAlignment (Top, Center, Bottom, Fill), Size {\"SizeRule\":\"Fill\",\"Value\":1} in boxes. In a canvas LayoutData {\"Anchors\":{\"Minimum\":{\"X\":0.5,\"Y\":0.5},\"Maximum\":{\"X\":0.5,\"Y\":0.5}},\"Alignment\":{\"X\":0.5,\"Y\":0.5}}, bAutoSize, ZOrder. One level into a struct by a dot: \"LayoutData.Offsets\". After a wrong name the warning lists the right ones."
							},
							"events": {
								"type": "object",
								"description": "Event nodes to make in the event graph, such as {\"OnClicked\": true}: any event dispatcher of the widget's class.",
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
					"action": { "type": "string", "enum": ["add", "remove"], "description": "add makes an empty animation of five seconds; a name that is in use gets a number." }
				},
				"required": ["name", "action"]
			}
		}
	},
	"required": ["path"]
})json"};
