#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintTimelineSchema = {"read_blueprint_timeline", "Read timeline", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"timeline_name": { "type": "string", "description": "Name of the timeline." },
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "timeline_name"]
})json"};
