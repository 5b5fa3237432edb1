#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintFunctionSchema = {"read_blueprint_function", "Read function", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"function_name": { "type": "string", "description": "Name of the function. The answer holds its signature and its graph with all nodes, pins and links." },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "function_name"]
})json"};
