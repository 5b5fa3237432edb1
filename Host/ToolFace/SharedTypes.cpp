#include "ToolFace/ToolSchema.h"

#include <algorithm>
#include <array>
#include <utility>

namespace SharedTypesPrivate
{
constexpr std::string_view AssetPath = R"json({
	"type": "string",
	"description": "Path of the Blueprint asset, such as /Game/Doors/BP_Door. /Game/ is the project's Content folder. Give the whole path; not every tool takes a bare name."
})json";

constexpr std::string_view PinType = R"json({
	"type": "object",
	"description": "A type of a pin, variable or parameter. Examples: {\"category\":\"bool\"}; {\"category\":\"float\"}; {\"category\":\"struct\",\"sub_category_object\":\"/Script/CoreUObject.Vector\"}; {\"category\":\"object\",\"sub_category_object\":\"/Script/Engine.Actor\"}; a list of names {\"category\":\"name\",\"container_type\":\"array\"}; a map {\"category\":\"string\",\"container_type\":\"map\",\"value_type\":{\"category\":\"int\"}}.",
	"properties": {
		"category": {
			"type": "string",
			"description": "bool, byte, int, int64, real, float, double, string, name, text, struct, object, class, softobject, softclass, interface, delegate, mcdelegate, exec or wildcard. float and double are short for real with that sub_category. An enum is a byte with the enum as sub_category_object."
		},
		"sub_category": {
			"type": "string",
			"description": "For category real: float or double. Leave out otherwise."
		},
		"sub_category_object": {
			"type": "string",
			"description": "Path of the struct, class or enum: /Script/CoreUObject.Vector, /Script/Engine.Actor, or for a Blueprint's class /Game/Doors/BP_Door.BP_Door_C."
		},
		"container_type": {
			"type": "string",
			"enum": ["array", "set", "map"],
			"description": "Leave out for a single value. For a map the type itself is the key's, value_type the value's."
		},
		"container": {
			"type": "string",
			"description": "Another name for container_type, read when that is absent."
		},
		"value_type": {
			"description": "The type of a map's values: an object like this one, or its category alone.",
			"anyOf": [
				{
					"type": "object",
					"properties": {
						"category": { "type": "string" },
						"sub_category": { "type": "string" },
						"sub_category_object": { "type": "string" },
						"is_const": { "type": "boolean" },
						"is_weak_pointer": { "type": "boolean" },
						"is_u_object_wrapper": { "type": "boolean" }
					}
				},
				{ "type": "string" }
			]
		},
		"is_reference": { "type": "boolean", "description": "Pass by reference." },
		"is_const": { "type": "boolean" },
		"is_weak_pointer": { "type": "boolean" },
		"is_u_object_wrapper": { "type": "boolean", "description": "A class or object type wrapped as TSubclassOf or TObjectPtr." }
	},
	"required": ["category"]
})json";

constexpr std::string_view LocalVariable = R"json({
	"type": "object",
	"description": "What to do with the local variable of this name.",
	"properties": {
		"action": { "type": "string", "enum": ["add", "modify", "remove"], "description": "Default add." },
		"type": { "$ref": "#/$defs/pin_type" },
		"default_variable_value": {
			"anyOf": [{ "type": "string" }, { "type": "number" }, { "type": "boolean" }],
			"description": "The default value. Structs in text form, such as (X=1.0,Y=0.0,Z=0.0)."
		}
	}
})json";

constexpr std::string_view NewNode = R"json({
	"type": "object",
	"description": "One node to add. Exact forms first, for they never guess; without one the best match in the action menu is taken. Exact forms: a function call is class_name K2Node_CallFunction with target_class and target_function, such as {\"class_name\":\"K2Node_CallFunction\",\"target_class\":\"KismetSystemLibrary\",\"target_function\":\"PrintString\"}; a cast is K2Node_DynamicCast with the class as target_class and any text as target_function; an event of the parent class is K2Node_Event with node_metadata.event_name ReceiveBeginPlay, ReceiveTick, ReceiveActorBeginOverlap, ...; an own event is K2Node_CustomEvent with node_metadata.event_name; where a function begins and ends, K2Node_FunctionEntry and K2Node_FunctionResult are the nodes that stand there; a variable is K2Node_VariableGet or K2Node_VariableSet with node_metadata.variable_name; a call of the parent's version is K2Node_CallParentFunction with target_function. Flow nodes go by class_name and menu_title: {\"class_name\":\"K2Node_IfThenElse\",\"menu_title\":\"Branch\"}, {\"class_name\":\"K2Node_ExecutionSequence\",\"menu_title\":\"Sequence\"}, {\"class_name\":\"K2Node_MacroInstance\",\"menu_title\":\"For Each Loop\"}.",
	"properties": {
		"node_guid": {
			"type": "string",
			"description": "Your own id of this node, any text. Connections of this request name the node by it. The node's real guid comes back in created_nodes_summary and is what later calls need."
		},
		"action": { "type": "string", "enum": ["add"], "description": "Default add. Changing and removing nodes is bp_modify_graph_nodes." },
		"class_name": { "type": "string", "description": "Class of the node, such as K2Node_CallFunction." },
		"target_class": {
			"type": "string",
			"description": "Class that owns the function, by short name (KismetMathLibrary, Actor, Character), by path (/Script/Engine.Actor) or, for a Blueprint, by its asset path. With target_function set too there is no fallback: a wrong name fails."
		},
		"target_function": {
			"type": "string",
			"description": "The function's own name, not its title: PrintString, K2_SetActorLocation, Add_DoubleDouble, EqualEqual_IntInt."
		},
		"menu_title": {
			"type": "string",
			"description": "Title in the action menu, such as Branch. Also the choice among overloaded functions, and the expression of a K2Node_MathExpression."
		},
		"menu_category": { "type": "string", "description": "Category in the action menu. A hint only." },
		"node_metadata": {
			"type": "object",
			"description": "Further facts, each a text.",
			"properties": {
				"event_name": { "type": "string", "description": "For events: the parent's event function (ReceiveBeginPlay), the name it is shown by (BeginPlay), or the name of a new custom event. An event that exists is used again." },
				"allow_duplicate": { "anyOf": [{ "type": "string" }, { "type": "boolean" }], "description": "true makes a second custom event of a name that exists." },
				"replicates": { "type": "string", "enum": ["server", "client", "multicast", "none"], "description": "For custom events: where a call of it is executed." },
				"reliable": { "anyOf": [{ "type": "string" }, { "type": "boolean" }], "description": "For replicated custom events." },
				"variable_name": { "type": "string", "description": "For variable nodes: a variable of the Blueprint or its parents, a component, a widget, or a local variable of the function. It must exist, or be a local of this call; modify_blueprint_class_structure makes variables." },
				"variable_source_class": { "type": "string", "description": "For a variable of another object: the class that has it, /Script/Engine.Character or /Game/Doors/BP_Door. Whose it is comes from a wire into the node's target, or from the next two keys." },
				"property_owner_node_guid": { "type": "string", "description": "The node whose output is that object: a node_guid of this request or an id in the graph." },
				"owner_pin_name": { "type": "string", "description": "That node's output pin, such as ReturnValue." },
				"component_name": { "type": "string", "description": "For K2Node_ComponentBoundEvent, with event_name: the component or widget whose event it is, such as Trigger and OnComponentBeginOverlap." },
				"timeline_name": { "type": "string", "description": "For K2Node_Timeline: a timeline of the Blueprint; its node stands in the graph and is used." },
				"input_axis_name": { "type": "string", "description": "For K2Node_InputAxisEvent: the axis of the project's input settings." },
				"input_action_name": { "type": "string", "description": "For K2Node_InputAction: the action of the project's input settings." },
				"binding_function": { "type": "string", "description": "For K2Node_CreateDelegate: the function to bind." },
				"state_name": { "type": "string", "description": "For a new animation state: its name." },
				"minimum_confidence": { "anyOf": [{ "type": "string" }, { "type": "number" }], "description": "How good a menu match must be, 0.0 to 1.0; default 0.6." }
			}
		},
		"position": {
			"type": "object",
			"description": "Where the node goes; only events, variables and calls of the parent's version keep it, the others are laid out.",
			"properties": { "x": { "type": "number" }, "y": { "type": "number" } }
		},
		"pins": {
			"type": "array",
			"description": "Values of input pins: {\"name\":\"InString\",\"value\":\"Hello\"}. Pins go by their own names: the parameters of the function (InString, NewLocation, bSweep), self for the object it is called on, Condition of a Branch, Duration of a Delay, Class and SpawnTransform of Spawn Actor from Class, the variable's name on its set node. A name that is not found is told with the pins there are.",
			"items": { "$ref": "#/$defs/new_pin" }
		}
	}
})json";

constexpr std::string_view NewPin = R"json({
	"type": "object",
	"description": "One pin of a new node: a value to set, or a pin to add.",
	"properties": {
		"action": {
			"type": "string",
			"enum": ["modify", "add"],
			"description": "modify sets the value of an input without a wire, and is what a record with a value means when it says nothing. add, with a type, gives a K2Node_CustomEvent, K2Node_FunctionEntry or K2Node_FunctionResult a parameter; without one it gives a Sequence, Make Array and their like their next pin, such as then_2."
		},
		"name": { "type": "string", "description": "The pin's own name. Case is ignored." },
		"value": {
			"anyOf": [{ "type": "string" }, { "type": "number" }, { "type": "boolean" }, { "type": "array" }, { "type": "object" }],
			"description": "true, 42, 0.5, Hello, an enum's entry, or the path of an asset or class. A vector, rotator, color or transform as text (0,90,0 or (X=0,Y=0,Z=100)), as a list or as an object with its parts."
		},
		"type": { "$ref": "#/$defs/pin_type" }
	},
	"required": ["name"]
})json";

constexpr std::string_view Connection = R"json({
	"type": "object",
	"description": "A wire from an output pin to an input pin.",
	"properties": {
		"action": { "type": "string", "enum": ["add", "create", "remove"], "description": "add and create are the same; default add." },
		"source_node_guid": {
			"type": "string",
			"description": "The node that the wire leaves: a node_guid of this request, or the id of a node that is in the graph (full guid or the 7-digit short id that reads return)."
		},
		"source_pin_name": {
			"type": "string",
			"description": "An output pin. Exec outputs: then; of a Branch true or false; of a Sequence then_0, then_1; of a loop LoopBody or completed; of a cast then or CastFailed. Results: ReturnValue, or the parameter's name; of a get node the variable's name; of a cast As and the class as the editor shows it, AsPawn or AsBP Door. Case is ignored."
		},
		"target_node_guid": { "type": "string", "description": "The node that the wire enters." },
		"target_pin_name": {
			"type": "string",
			"description": "An input pin. The exec input is execute. The object that a function is called on is self (or target). Otherwise the parameter's name, such as InString or Condition."
		},
		"source_node_id": { "type": "string", "description": "Another name for source_node_guid, read when that is absent." },
		"target_node_id": { "type": "string", "description": "Another name for target_node_guid, read when that is absent." }
	},
	"required": ["source_pin_name", "target_pin_name"]
})json";

constexpr std::string_view ReadDetail = R"json({
	"type": "string",
	"enum": ["full", "lean"],
	"description": "Default full. lean is a third of the size: pins with a link or a set value alone, links as id.pin, no direction for inputs and then, types as short text, no class_name for calls and getters, no positions, nothing that the call said or that is as in a new item; what only has a name is that name. Ids and values are those of full."
})json";

constexpr std::string_view WidgetProperties = R"json({
	"type": "object",
	"description": "Properties of the widget by name: {\"Text\":\"Start\",\"ColorAndOpacity\":{\"R\":1,\"G\":1,\"B\":1,\"A\":1},\"Font.Size\":24,\"Visibility\":\"Hidden\"}. Structs may be objects with the members to set, in any depth: {\"Brush\":{\"TintColor\":{\"R\":1}}}; one level into a struct also goes by a dot; else the text form, such as (X=1.0,Y=2.0). Enums take the value's name, lists their text: (\"a\",\"b\")."
})json";

constexpr std::array<std::pair<std::string_view, std::string_view>, 8> Types = {{
	{"asset_path", AssetPath},
	{"pin_type", PinType},
	{"local_variable", LocalVariable},
	{"new_node", NewNode},
	{"new_pin", NewPin},
	{"connection", Connection},
	{"read_detail", ReadDetail},
	{"widget_properties", WidgetProperties},
}};
} // namespace SharedTypesPrivate

std::string_view ToolSchemas::SharedType(const std::string_view Name)
{
	const auto& Types = SharedTypesPrivate::Types;
	const auto Known = std::find_if(
		Types.begin(), Types.end(), [Name](const auto& Type) { return Type.first == Name; });
	return Known != Types.end() ? Known->second : std::string_view();
}
