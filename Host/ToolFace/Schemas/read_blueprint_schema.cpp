#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintSchemaSchema = {
	"read_blueprint_schema", "Read Blueprint overview", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path"]
})json"};
