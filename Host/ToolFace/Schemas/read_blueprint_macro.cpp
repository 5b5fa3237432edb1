#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintMacroSchema = {"read_blueprint_macro", "Read macro", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"macro_name": { "type": "string", "description": "Name of the macro." },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "macro_name"]
})json"};
