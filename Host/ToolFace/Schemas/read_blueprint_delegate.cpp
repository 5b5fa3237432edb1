#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintDelegateSchema = {"read_blueprint_delegate", "Read delegate", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"delegate_name": { "type": "string", "description": "Name of the event dispatcher." },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "delegate_name"]
})json"};
