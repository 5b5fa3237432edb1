#include "ToolFace/ToolSchema.h"

const FToolSchema DeleteBlueprintSchema = {"delete_blueprint", "Delete Blueprint asset", false, true, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" }
	},
	"required": ["path"]
})json"};
