#include "ToolFace/ToolSchema.h"

const FToolSchema ReadBlueprintEventSchema = {"read_blueprint_event", "Read event", true, false, true, R"json({
	"type": "object",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"graph_name": { "type": "string", "description": "The event graph, usually EventGraph. Needed, though all event graphs are searched." },
		"event_name": {
			"type": "string",
			"description": "The event's title as read_blueprint_schema shows it, or a part of it: Event BeginPlay, or BeginPlay, but not the function's name ReceiveBeginPlay. The answer holds every node that the event reaches, and the nodes that no event reaches."
		},
		"detail": { "$ref": "#/$defs/read_detail" }
	},
	"required": ["path", "graph_name", "event_name"]
})json"};
