#include "ToolFace/Prompts.h"

#include <algorithm>

#include "Support/JsonText.h"

namespace PromptsPrivate
{
using Prompts::FArgument;
using Prompts::FPrompt;

static std::string ArgumentsJson(const FPrompt& Prompt)
{
	std::string Text = "[";
	for (const FArgument& Argument : Prompt.Arguments)
	{
		Text += Text.size() > 1 ? "," : "";
		Text += R"({"name":)" + JsonText::Quote(Argument.Name) + R"(,"description":)"
			+ JsonText::Quote(Argument.Description)
			+ (Argument.bRequired ? R"(,"required":true})" : R"(,"required":false})");
	}
	return Text + "]";
}

/** One line with its arguments in place; nothing when it needs one that is not given. */
static std::optional<std::string> FillLine(
	std::string_view Line, const std::function<std::optional<std::string>(std::string_view)>& ValueOf)
{
	std::string Filled;
	for (size_t Open = Line.find('{'); Open != std::string_view::npos; Open = Line.find('{'))
	{
		const size_t Close = Line.find('}', Open);
		const std::optional<std::string> Value = ValueOf(Line.substr(Open + 1, Close - Open - 1));
		if (!Value || Value->empty())
		{
			return std::nullopt;
		}
		Filled.append(Line.substr(0, Open)).append(*Value);
		Line.remove_prefix(Close + 1);
	}
	return Filled.append(Line);
}
} // namespace PromptsPrivate

const std::vector<Prompts::FPrompt>& Prompts::GetAll()
{
	static const FArgument Asset = {
		"asset", "Path of the Blueprint, such as /Game/Doors/BP_Door", true, ENameKind::BlueprintPath};
	static const FArgument NewAsset = {
		"asset", "Path of the new asset, such as /Game/Doors/BP_Door", true, ENameKind::FolderPath};
	static const std::vector<FPrompt> All = {
		{"make_actor", "Make an actor with a behaviour",
			"Creates a Blueprint, gives it components and variables, builds its graph and compiles it.",
			{NewAsset, {"behaviour", "What it does, in a sentence or two", true},
				{"parent", "Class that it derives from; Actor when left out", false, ENameKind::ParentClass}},
			R"text(Make the Blueprint {asset}. What it does: {behaviour}
Its parent class is {parent}.
Go about it so:
1. Look whether it exists: read_blueprint_schema on {asset}. If it does not, bp_create_asset with the parent class (an Actor unless told otherwise).
2. modify_blueprint_class_structure with all components, variables, timelines and dispatchers that the behaviour needs, in one call, each with action add. Meshes and materials of the engine go by path: morvane://assets?path=/Engine lists them.
3. Before you place a node whose pins you do not know by heart, look: morvane://menu?query=WORDS finds it, morvane://node?title=TITLE shows its pins.
4. bp_populate_graph with all nodes and wires of the event graph in one call.
5. Read the warnings. Mend only what failed.
6. compile_blueprint, and mend what it reports. Say in the end what the Blueprint does and what it does not.)text"},
		{"explain_blueprint", "Understand a Blueprint",
			"Reads a Blueprint and tells what it does, without changing anything.", {Asset},
			R"text(Explain the Blueprint {asset} to somebody who has not seen it.
Read morvane://blueprint{asset} (or read_blueprint_schema) for the overview, then each event and function that does something with read_blueprint_event and read_blueprint_function. Change nothing.
Tell: what it is for; its variables and components and who sets them; for each event what happens, in the order of execution; what it expects of other assets; what looks unfinished, unreachable or wrong, with the node ids.)text"},
		{"repair_compile", "Repair a Blueprint that does not compile",
			"Compiles a Blueprint, finds the cause of each error and mends it with as few changes as it takes.",
			{Asset},
			R"text(The Blueprint {asset} does not compile. Mend it.
1. compile_blueprint on {asset}; each message names its node and pin.
2. For each error read the graph around the node (read_blueprint_event, read_blueprint_function). Find the cause before you change anything: a variable or function that was renamed or removed, a pin whose type has changed, a link that is missing, a class that is gone.
3. Mend the cause with the least change: bp_modify_graph_nodes for nodes and values, bp_remove_graph_connections and bp_populate_graph for wires, modify_blueprint_class_structure for members. Never delete nodes only to silence an error.
4. Compile again, until no error is left. Tell for each error what the cause was and what you changed, and name what you could not decide.)text"},
		{"build_widget", "Build a menu or another widget",
			"Creates a Widget Blueprint, lays out its tree and wires its events.",
			{{"asset", "Path of the new widget, such as /Game/UI/WBP_MainMenu", true, ENameKind::FolderPath},
				{"content", "What it shows and what its buttons do", true}},
			R"text(Build the Widget Blueprint {asset}. What it shows and does: {content}
1. bp_create_asset with the native parent /Script/UMG.UserWidget.
2. ui_modify_widget_bp with the whole tree in one call, parents before their children: a root panel, is_variable true for each widget that graphs use, an OnClicked event for buttons that do something.
3. bp_populate_graph on EventGraph: the event nodes are there already and are found by title, such as "On Clicked (PlayButton)".
4. compile_blueprint. Read the tree back with read_blueprint_widget_tree and compare it with what was asked for.)text"},
		{"add_function", "Add a function to a Blueprint",
			"Makes a function with its parameters, fills it and compiles the Blueprint.",
			{Asset, {"function", "Name and purpose of the function, its inputs and its result", true}},
			R"text(Add this function to the Blueprint {asset}: {function}
1. read_blueprint_schema on {asset}, to use the members that exist.
2. bp_create_graph with the function's name, its parameters and its return_type.
3. bp_populate_graph with graph_name set to the function: "K2Node_FunctionEntry" and "K2Node_FunctionResult" name the nodes where it begins and ends, local_variables makes its local variables.
4. compile_blueprint, then read_blueprint_function and check each wire against what was asked for.)text"},
		{"review_project", "Review the Blueprints of a project",
			"Reads and compiles every Blueprint below a folder and reports what is wrong, without changing anything.",
			{{"folder", "Folder to review; all of the project when left out", false, ENameKind::FolderPath}},
			R"text(Review the Blueprints of this project. Change nothing.
Only those below {folder}.
1. morvane://assets?class=Blueprint lists them, with their parents.
2. compile_blueprint on all of them in a few calls; keep the messages.
3. For each that has graphs read the overview, and the events and functions that look suspicious: work on every tick, casts to concrete classes in many places, nodes that no event reaches, variables that nothing reads, functions that do the same.
4. Report by weight: errors first, then likely faults, then what would be simpler otherwise; each with asset, graph and node id.)text"},
	};
	return All;
}

const Prompts::FPrompt* Prompts::Find(const std::string_view Name)
{
	const std::vector<FPrompt>& All = GetAll();
	const auto Found = std::find_if(All.begin(), All.end(), [Name](const FPrompt& One) { return One.Name == Name; });
	return Found != All.end() ? &*Found : nullptr;
}

const Prompts::FArgument* Prompts::FindArgument(const FPrompt& Prompt, const std::string_view Name)
{
	const auto Found = std::find_if(
		Prompt.Arguments.begin(), Prompt.Arguments.end(), [Name](const FArgument& One) { return One.Name == Name; });
	return Found != Prompt.Arguments.end() ? &*Found : nullptr;
}

std::string Prompts::Json()
{
	std::string Text = "[";
	for (const FPrompt& Prompt : GetAll())
	{
		Text += Text.size() > 1 ? "," : "";
		Text += R"({"name":)" + JsonText::Quote(Prompt.Name) + R"(,"title":)" + JsonText::Quote(Prompt.Title)
			+ R"(,"description":)" + JsonText::Quote(Prompt.Description) + R"(,"arguments":)"
			+ PromptsPrivate::ArgumentsJson(Prompt) + "}";
	}
	return Text + "]";
}

std::string Prompts::Fill(
	const FPrompt& Prompt, const std::function<std::optional<std::string>(std::string_view)>& ValueOf)
{
	std::string Filled;
	for (std::string_view Rest = Prompt.Text; !Rest.empty();)
	{
		const std::string_view Line = Rest.substr(0, Rest.find('\n'));
		Rest.remove_prefix(std::min(Line.size() + 1, Rest.size()));
		if (const std::optional<std::string> Whole = PromptsPrivate::FillLine(Line, ValueOf))
		{
			Filled += (Filled.empty() ? "" : "\n") + *Whole;
		}
	}
	return Filled;
}
