#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintVariableSchema = {"read_blueprint_variable", "Read variable", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"variable_name": { "type": "string", "description": "Name of the variable." },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "variable_name"]
})json"};
