#include "Server/Identity.h"

#include "Support/JsonText.h"

const std::string& Identity::ServerInfoJson()
{
	static const std::string Text = R"({"name":)" + JsonText::Quote(Name)
		+ R"(,"title":"Morvane Blueprint tools","version":)" + JsonText::Quote(Version)
		+ R"(,"description":"Creates, reads, edits and compiles Unreal Blueprint assets of a project folder."})";
	return Text;
}

std::string_view Identity::Instructions()
{
	return "Tools for Unreal Engine Blueprint assets. Asset paths look like /Game/Folder/BP_Name.\n"
		   "A usual session: bp_create_asset makes the asset; modify_blueprint_class_structure adds variables, components, "
		   "interfaces, timelines and delegates; bp_create_graph adds functions; bp_populate_graph places nodes and wires them, "
		   "all of one graph in one call; compile_blueprint checks and saves.\n"
		   "Read before you edit: read_blueprint_schema gives the overview, the other read tools one item with its nodes. Node ids "
		   "in read results are the first 7 hex digits of the node's guid and can be used wherever a node id is asked for.\n"
		   "A call may succeed in part: \"success\" is true, and \"warnings\" tell what failed and how to ask better. Mend only "
		   "what failed; what is reported as created stands. \"modifications\" shows the changed items as they are now.\n"
		   "Name node classes exactly where you can: class_name \"K2Node_CallFunction\" with target_class and target_function never "
		   "guesses, menu_title does.";
}
