#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintInterfaceSchema = {
	"read_blueprint_interface", "Read interface", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"interface_name": { "type": "string", "description": "Name of an interface that the Blueprint implements." },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "interface_name"]
})json"};
