#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintComponentSchema = {
	"read_blueprint_component", "Read component", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"component_name": { "type": "string", "description": "Name of the component, such as DefaultSceneRoot." },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "component_name"]
})json"};
