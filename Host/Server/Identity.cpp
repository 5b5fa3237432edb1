#include "Server/Identity.h"

#include "Support/JsonText.h"

const std::string& Identity::ServerInfoJson()
{
	static const std::string Text = R"({"name":)" + JsonText::Quote(Name)
		+ R"(,"title":"Morvane Blueprint tools","version":)" + JsonText::Quote(Version)
		+ R"(,"description":"Creates, reads, edits and compiles Unreal Blueprint assets of a project folder."})";
	return Text;
}

std::string_view Identity::CapabilitiesJson()
{
	return R"({"tools":{},"resources":{},"prompts":{},"completions":{}})";
}

std::string_view Identity::Instructions()
{
	return "Tools for Unreal Engine Blueprint assets. Asset paths look like /Game/Folder/BP_Name.\n"
		   "A usual session: bp_create_asset makes the asset; modify_blueprint_class_structure adds variables, components, "
		   "interfaces, timelines and dispatchers, each with \"action\" \"add\"; bp_create_graph adds functions; "
		   "bp_populate_graph places nodes and wires them, all of one graph in one call; compile_blueprint checks and saves. "
		   "ui_modify_widget_bp builds a Widget Blueprint's tree. bp_modify_graph_nodes and bp_remove_graph_connections change "
		   "and remove what stands in a graph.\n"
		   "Read before you edit: read_blueprint_schema gives the overview, the other read tools one item with its nodes. Node ids "
		   "in read results are the first 7 hex digits of the node's guid and can be used wherever a node id is asked for.\n"
		   "Look up what you do not know by heart, it changes nothing: the resource morvane://menu?query=WORDS lists actions of the "
		   "graph menu with the request that places each, morvane://node?title=TITLE shows a node's pins before it is placed, "
		   "morvane://assets lists the project's assets (path=/Engine the engine's), morvane://blueprint/Game/Folder/BP_Name shows "
		   "a Blueprint. Prompts guide the usual sessions.\n"
		   "Name nodes exactly where you can: class_name \"K2Node_CallFunction\" with target_class and target_function never "
		   "guesses, menu_title does. Pins go by their own names as reads show them, which for calls are the names of the "
		   "function's parameters (InString); a label of the editor (In String) is understood where one pin alone is shown so. "
		   "Exec pins are execute and then, a result is ReturnValue, the object that a function is called on is self.\n"
		   "A call may succeed in part: \"success\" is true, and \"warnings\" tell what failed, what was not read and how to ask "
		   "better; the pins that a node has stand under pin_lookup_failures in the telemetry. Mend only what failed; what is "
		   "reported as created stands. \"modifications\" shows the changed items as they are now.";
}
