#include "ToolFace/ToolSchema.h"

const FToolSchema BpCreateAssetSchema = {"bp_create_asset", "Create Blueprint asset", false, false, false, R"json({
	"type": "object",
	"properties": {
		"path": {
			"type": "string",
			"description": "Path of the new asset, such as /Game/Doors/BP_Door. The folder need not exist; an asset at the path is never replaced."
		},
		"blueprint_parent_class": {
			"type": "object",
			"description": "The class to derive from. It decides the kind of asset: a child of /Script/UMG.UserWidget makes a Widget Blueprint, /Script/Engine.AnimInstance an Animation Blueprint, /Script/AIModule.BTTask_BlueprintBase a Behavior Tree Task, any other a plain Blueprint.",
			"properties": {
				"type": {
					"type": "string",
					"enum": ["native", "blueprint"],
					"description": "native for a class of the engine or of the project's code, blueprint for a Blueprint asset."
				},
				"parent_path": {
					"type": "string",
					"description": "native: the full class path, such as /Script/Engine.Actor, /Script/Engine.Character or /Script/UMG.UserWidget; a short name is refused. blueprint: the asset's path or bare name."
				}
			},
			"required": ["type", "parent_path"]
		}
	},
	"required": ["path", "blueprint_parent_class"]
})json"};
