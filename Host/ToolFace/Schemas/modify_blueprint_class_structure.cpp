#include "ToolFace/ToolSchema.h"

const FToolSchema ModifyBlueprintClassStructureSchema = {
	"modify_blueprint_class_structure", "Change class structure", false, true, false, R"json({
	"type": "object",
	"description": "Give at least one of variables, components, interfaces, timelines and delegates; they are done in this order, and the Blueprint is saved. A bad entry is a warning and the rest is done.",
	"properties": {
		"path": { "$ref": "#/$defs/asset_path" },
		"variables": {
			"type": "object",
			"description": "Member variables by name: {\"Health\": {\"action\": \"add\", \"type\": {\"category\": \"float\"}, \"default_variable_value\": 100}}.",
			"additionalProperties": {
				"type": "object",
				"properties": {
					"action": {
						"type": "string",
						"enum": ["add", "modify", "remove"],
						"description": "Default modify, so a new variable needs add. modify with another type lets nodes follow. A variable that nodes use cannot be removed. Of an inherited property only the default can be modified."
					},
					"type": { "$ref": "#/$defs/pin_type" },
					"default_variable_value": {
						"description": "The default value: a number, text or flag; an enum entry by name; a class or asset by path; a struct as an object ({\"x\": 1, \"y\": 2, \"z\": 3}) or as text ((X=1.0,Y=0.0,Z=0.0)); an array or set as an array, a map as an object."
					},
					"category": { "type": "string" },
					"tooltip": { "type": "string" },
					"replication": {
						"type": "string",
						"enum": ["none", "replicated", "rep_notify"],
						"description": "rep_notify makes the function OnRep_<name> too; it goes with the variable."
					},
					"instance_editable": { "type": "boolean" },
					"expose_on_spawn": { "type": "boolean" },
					"blueprint_read_only": { "type": "boolean" },
					"save_game": { "type": "boolean" },
					"config": { "type": "boolean" },
					"private": { "type": "boolean" }
				}
			}
		},
		"components": {
			"type": "array",
			"description": "Components of an Actor Blueprint. Removals are done last.",
			"items": {
				"type": "object",
				"properties": {
					"name": { "type": "string", "description": "Of the parent class too, be it a Blueprint or code: modify gives an inherited component other properties in this Blueprint. One of code goes by its own name or by its variable's (CharacterMovement, Mesh)." },
					"action": { "type": "string", "enum": ["add", "modify", "remove"], "description": "Default add." },
					"type": { "type": "string", "description": "Component class, needed for add: StaticMeshComponent, BoxComponent, PointLightComponent, ..." },
					"attach_to": { "type": "string", "description": "Name of the parent component, which may be an inherited one. What stands behind it in the list is not there yet." },
					"properties": {
						"type": "object",
						"description": "Any editable property of the component by its own name, as JSON (objects change the members that they name) or as text, and these:",
						"additionalProperties": {},
						"properties": {
							"relative_location": {
								"type": "object",
								"properties": { "x": { "type": "number" }, "y": { "type": "number" }, "z": { "type": "number" } }
							},
							"relative_rotation": {
								"type": "object",
								"properties": { "pitch": { "type": "number" }, "yaw": { "type": "number" }, "roll": { "type": "number" } }
							},
							"relative_scale_3d": {
								"type": "object",
								"properties": { "x": { "type": "number" }, "y": { "type": "number" }, "z": { "type": "number" } }
							},
							"mobility": { "type": "string", "enum": ["Static", "Stationary", "Movable"] }
						}
					}
				},
				"required": ["name"]
			}
		},
		"interfaces": {
			"type": "array",
			"items": {
				"type": "object",
				"properties": {
					"name": { "type": "string", "description": "Name or path of the interface class or Blueprint interface." },
					"action": { "type": "string", "enum": ["add", "modify", "remove"], "description": "Default add." }
				},
				"required": ["name"]
			}
		},
		"timelines": {
			"type": "array",
			"items": {
				"type": "object",
				"properties": {
					"name": { "type": "string" },
					"action": { "type": "string", "enum": ["add", "modify", "remove"], "description": "Default add." },
					"length": { "type": "number", "description": "Seconds." },
					"b_loop": { "type": "boolean" },
					"b_replicated": { "type": "boolean" },
					"b_auto_play": { "type": "boolean", "description": "Plays from BeginPlay on." },
					"curves": {
						"type": "array",
						"items": {
							"type": "object",
							"properties": {
								"name": { "type": "string", "description": "The track's name." },
								"type": { "type": "string", "enum": ["Float", "FloatCurve", "Vector", "VectorCurve", "Linear", "LinearColor", "LinearColorCurve"], "description": "Default Float." },
								"action": { "type": "string", "enum": ["add", "modify", "remove"], "description": "Default add. Only Float curves can be modified." },
								"clear_keys": { "type": "boolean", "description": "On modify: drop the old keys first." },
								"points": {
									"type": "array",
									"items": {
										"type": "object",
										"properties": {
											"time": { "type": "number", "description": "Seconds from the start." },
											"value": {
												"anyOf": [
													{ "type": "number" },
													{
														"type": "object",
														"properties": {
															"x": { "type": "number" }, "y": { "type": "number" }, "z": { "type": "number" },
															"R": { "type": "number" }, "G": { "type": "number" }, "B": { "type": "number" }, "A": { "type": "number" }
														}
													}
												],
												"description": "Float: a number. Vector: x, y, z. LinearColor: R, G, B, A."
											}
										},
										"required": ["time", "value"]
									}
								}
							},
							"required": ["name"]
						}
					}
				},
				"required": ["name"]
			}
		},
		"delegates": {
			"type": "array",
			"description": "Event dispatchers.",
			"items": {
				"type": "object",
				"properties": {
					"name": { "type": "string" },
					"action": { "type": "string", "enum": ["add", "modify", "remove"], "description": "Default add. modify adds parameters to the signature." },
					"signature": {
						"type": "object",
						"properties": {
							"parameters": {
								"type": "array",
								"items": {
									"type": "object",
									"properties": {
										"name": { "type": "string" },
										"type": { "$ref": "#/$defs/pin_type" }
									},
									"required": ["name", "type"]
								}
							},
							"return_type": { "$ref": "#/$defs/pin_type", "description": "Best left out: many may listen, so nobody receives a result." }
						}
					}
				},
				"required": ["name"]
			}
		}
	},
	"required": ["path"]
})json"};
