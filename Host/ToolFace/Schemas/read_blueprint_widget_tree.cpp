#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintWidgetTreeSchema = {
	"read_blueprint_widget_tree", "Read widget tree", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"widget_name": {
			"anyOf": [{ "type": "string" }, { "type": "array", "items": { "type": "string" } }],
			"description": "Widgets to show with all their properties and slots. Leave out for the tree alone."
		},
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path"]
})json"};
