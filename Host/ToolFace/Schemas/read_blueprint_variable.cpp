#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintVariableSchema = {"read_blueprint_variable", "Read variable", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"variable_name": { "type": "string", "description": "Name of the variable." }
	},
	"required": ["path", "variable_name"]
})json"};
