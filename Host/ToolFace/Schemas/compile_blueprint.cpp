#include "ToolFace/ToolSchema.h"

const FToolSchema CompileBlueprintSchema = {"compile_blueprint", "Compile Blueprints", false, false, true, R"json({
	"type": "object",
	"properties": {
		"blueprint_paths": {
			"type": "array",
			"items": { "type": "string" },
			"description": "Paths of the Blueprints to compile, such as [\"/Game/Doors/BP_Door\"]. Each one that compiles is saved; each compiler message names the nodes and pins it is about."
		}
	},
	"required": ["blueprint_paths"]
})json"};
