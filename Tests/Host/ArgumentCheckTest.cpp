// What a call says and no tool reads is told, with its place; what a tool has told by itself is not told twice.

#include "ToolFace/ArgumentCheck.h"

#include <regex>
#include <set>

#include "Populating.h"
#include "Server/Identity.h"
#include "Session/EditorModules.h"
#include "ToolFace/ToolListing.h"
#include "ToolFace/ToolSchema.h"

using testing::HasSubstr;
using testing::IsEmpty;

namespace ArgumentCheckTest
{
/** What a call by way of the host warns of: the tool's own warnings, then those of the check. */
static std::vector<std::string> WarningsOf(const std::string& Tool, const std::string& Arguments)
{
	const TSharedPtr<Morvane::FToolResult> Result = RunTool(UTF8_TO_TCHAR(Tool.c_str()), Arguments);
	ArgumentCheck::AddWarnings(Tool, *Json(Arguments), *Result);
	return Warnings(*Result);
}

static std::string Populate(const std::string& Members)
{
	return R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph",)" + Members + "}";
}

static std::set<std::string> ListedNames()
{
	EditorModules::StartTools();
	std::set<std::string> Names;
	for (const FString& Name : FMorvaneToolkitModule::GetToolExecutor()->GetToolNames())
	{
		Names.insert(ToStd(Name));
	}
	return Names;
}

/** Everything in the text that is written like the name of a tool. */
static std::set<std::string> ToolNamesIn(const std::string& Text)
{
	static const std::regex Word("\\b(bp|ui|read_blueprint|modify_blueprint|delete|compile)_[a-z_]+");
	std::set<std::string> Names;
	for (std::sregex_iterator It(Text.begin(), Text.end(), Word); It != std::sregex_iterator(); ++It)
	{
		Names.insert(It->str());
	}
	return Names;
}

/** The JSON objects that stand in a description as examples. */
static std::vector<std::string> ExamplesIn(const std::string& Text)
{
	std::vector<std::string> Examples;
	for (std::size_t At = Text.find("{\""); At != std::string::npos; At = Text.find("{\"", At))
	{
		int Depth = 0;
		std::size_t End = At;
		do
		{
			Depth += Text[End] == '{' ? 1 : Text[End] == '}' ? -1 : 0;
		} while (++End < Text.size() && Depth > 0);
		Examples.push_back(Text.substr(At, End - At));
		At = End;
	}
	return Examples;
}
} // namespace ArgumentCheckTest

using namespace ArgumentCheckTest;

TEST(ArgumentCheck, WhatATwinToolReadsIsNotSaidToBeIgnored)
{
	const FBlueprintBuilder Blueprint;
	ASSERT_TRUE(Blueprint.Save());
	EXPECT_THAT(WarningsOf("bp_remove_graph_connections",
					R"({"path":"/Game/Tests/BP_Test","blueprint_name":"BP_Test","graph_name":"EventGraph",
			"nodes":[{"action":"remove","node_guid":"1234567"}]})"),
		testing::ElementsAre("Node 1234567 not found"));
	EXPECT_THAT(
		WarningsOf("bp_create_graph", R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"F"}],"nodes":[]})"),
		testing::Contains(HasSubstr("has no key 'nodes'")));
}

TEST(ArgumentCheck, WhatIsNotReadIsToldWithItsPlaceAndReason)
{
	const FBlueprintBuilder Blueprint;
	const struct
	{
		std::string Members;
		std::vector<std::string> Expected;
	} Cases[] = {
		{R"("nodes":[{"node_guid":"p","menu_title":"Print String","node_name":"x"}])",
			{"[Ignored] nodes[0] ('p') has no key 'node_name'; it was not read. It takes node_guid, action, class_name, "
			 "target_class, target_function, menu_title, menu_category, node_metadata, position, pins."}},
		{R"("nodes":[{"node_guid":"p","menu_title":"Print String","pins":[{"name":"InString","Value":"x","value":"y"}]}])",
			{"[Ignored] nodes[0] ('p').pins[0] ('InString') has no key 'Value'; it was not read. Did you mean 'value'?"}},
		{R"("nodes":[7,{"menu_title":"Print String"}],"graphname":"x")",
			{"[Ignored] nodes[0] must be an object and is a number; it was not read.",
				"[Ignored] The call has no key 'graphname'; it was not read. Did you mean 'graph_name'?"}},
		{R"("nodes":[{"node_guid":5,"menu_title":"Print String","pins":{"InString":"x"}}])",
			{"[Ignored] nodes[0].node_guid must be a text and is a number; it was not read.",
				"[Ignored] nodes[0].pins must be a list and is an object; it was not read."}},
		{R"("nodes":[{"node_guid":"p","menu_title":"Print String","node_metadata":{"eventname":"x"}}])",
			{"[Ignored] nodes[0] ('p').node_metadata has no key 'eventname'; it was not read. Did you mean 'event_name'?"}},
		{R"("nodes":[{"node_guid":"p","menu_title":"Print String"}],"connections":[null])",
			{"[Ignored] connections[0] must be an entry and is null; it was not read."}},
		{R"("nodes":[{"menu_title":"Print String","pins":[{"name":"Duration","value":[1]}]}])",
			{"'(1)' is not a valid number", "[Failure] Pin 'Duration' of node 'Print String' ("}},
		{R"("nodes":[{"menu_title":"Print String","node_metadata":{"minimum_confidence":0.5,"allow_duplicate":true},"position":{"x":1}}],"graph_type":null)",
			{}},
		{R"("graph_type":"Event","nodes":[{"menu_title":"Print String","action":"ADD"}])", {}},
	};
	for (const auto& Case : Cases)
	{
		const std::vector<std::string> Told = WarningsOf("bp_populate_graph", Populate(Case.Members));
		ASSERT_EQ(Told.size(), Case.Expected.size()) << Case.Members << testing::PrintToString(Told);
		for (std::size_t Index = 0; Index < Told.size(); ++Index)
		{
			EXPECT_THAT(Told[Index], testing::StartsWith(Case.Expected[Index])) << Case.Members;
		}
	}
}

TEST(ArgumentCheck, WhatTheToolHasToldIsNotToldTwice)
{
	const FBlueprintBuilder Blueprint;
	const struct
	{
		const char* Tool;
		std::string Arguments;
		std::size_t Expected;
	} Cases[] = {
		{"bp_populate_graph", Populate(R"("nodes":[{"node_guid":"m","action":"remove"}])"), 1},
		{"bp_populate_graph", Populate(R"("nodes":[{"menu_title":"Delay"}],"functions":[])"), 0},
		{"bp_populate_graph", Populate(R"("nodes":[{"menu_title":"Delay"}],"local_variables":{"X":5})"), 0},
		{"bp_create_graph", R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"A"},3]})", 0},
		{"bp_create_graph",
			R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"B","return_type":"int","parameters":[{"name":"P","type":"int"}]}]})",
			2},
		{"modify_blueprint_class_structure",
			R"({"path":"/Game/Tests/BP_Test","variables":{"V":{"action":"add","type":"float","default_variable_value":"2"}},)"
			R"("components":[{"name":"Box","type":"BoxComponent","properties":{"relative_location":[1,2,3]}}]})",
			0},
		{"modify_blueprint_class_structure",
			R"({"path":"/Game/Tests/BP_Test","variables":[{"name":"X","action":"add","type":"float"}],)"
			R"("components":{"Lamp":{"type":"PointLight","properties":{"relative_location":{"X":1}}}},)"
			R"("timelines":[{"name":"T","curves":[{"name":"C","type":"linear","points":[{"time":0,"value":{"r":1}}]}]}]})",
			0},
		{"modify_blueprint_class_structure",
			R"({"path":"/Game/Tests/BP_Test","variables":{"W":{"action":"add","type":"int","colour":"red"}}})", 1},
		{"bp_create_graph",
			R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"C","is_rep_notify":true,"parameters":[{"name":"P","direction":"output","type":{"category":"int"}}]}]})",
			2},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(WarningsOf(Case.Tool, Case.Arguments).size(), Case.Expected)
			<< Case.Arguments << testing::PrintToString(WarningsOf(Case.Tool, Case.Arguments));
	}
}

TEST(ArgumentCheck, AFloodIsCounted)
{
	const FBlueprintBuilder Blueprint;
	std::string List;
	for (int Index = 0; Index < 100; ++Index)
	{
		List += std::string(Index ? "," : "") + R"({"menu_title":"Delay","colour":"red"})";
	}
	const std::vector<std::string> Told = WarningsOf("bp_populate_graph", Populate("\"nodes\":[" + List + "]"));
	EXPECT_EQ(Told.size(), 26U);
	EXPECT_EQ(Told.back(), "[Ignored] 75 more of the arguments were not read.");
}

TEST(ArgumentCheck, EveryToolIsChecked)
{
	const FBlueprintBuilder Blueprint;
	for (const std::string& Name : ListedNames())
	{
		EXPECT_THAT(WarningsOf(Name, R"({"colour":"red"})"),
			testing::Contains(HasSubstr("[Ignored] The call has no key 'colour'; it was not read.")))
			<< Name;
	}
}

TEST(AgentTexts, NameOnlyToolsThatAreListed)
{
	const std::set<std::string> Listed = ListedNames();
	// A tool that is described and not registered yet may be named; when all are, this is none.
	std::set<std::string> Known = Listed;
	std::string Texts(Identity::Instructions());
	for (const FToolSchema* const Schema : ToolSchemas::All())
	{
		Known.insert(std::string(Schema->Name));
		Texts += ToolListing::InputSchemaJson(std::string(Schema->Name));
	}
	for (const std::string& Name : ToolNamesIn(Texts))
	{
		EXPECT_TRUE(Known.contains(Name)) << Name << " is named to agents and is no tool";
	}
	for (const std::string& Name : Listed)
	{
		EXPECT_NE(ToolSchemas::Find(Name), nullptr) << Name << " is listed without a schema";
	}
}

TEST(AgentTexts, TheNodesThatTheyShowAreMade)
{
	FPopulating Run;
	const TSharedPtr<FJsonObject> Node = Json(std::string(ToolSchemas::SharedType("new_node")));
	std::string List;
	int Count = 0;
	for (const std::string& Example : ExamplesIn(ToStd(Node->GetStringField(TEXT("description")))))
	{
		List += (Count++ ? "," : "") + Example;
	}
	ASSERT_GT(Count, 3);
	const std::string Arguments = Populate("\"nodes\":[" + List + "]");
	EXPECT_THAT(WarningsOf("bp_populate_graph", Arguments), IsEmpty());
	Run.Nodes(List);
	EXPECT_EQ(Run.Data(TEXT("nodes_created")), std::to_string(Count));
}
