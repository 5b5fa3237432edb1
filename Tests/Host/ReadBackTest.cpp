#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "Dom/JsonObject.h"
#include "Host/Process.h"
#include "Standalone/JsonUtf8.h"
#include "Support/TemporaryFolder.h"

namespace ReadBackTest
{
constexpr const char* Create =
	R"({"path":"/Game/Doors/BP_Door","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})";
constexpr const char* Populate =
	R"({"path":"/Game/Doors/BP_Door","graph_name":"EventGraph","nodes":[)"
	R"({"node_guid":"e","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Knock"}},)"
	R"({"node_guid":"b","class_name":"K2Node_IfThenElse","menu_title":"Branch",)"
	R"("pins":[{"action":"modify","name":"Condition","value":"false"}]},)"
	R"({"node_guid":"p","class_name":"K2Node_CallFunction","menu_title":"Print String",)"
	R"("pins":[{"action":"modify","name":"InString","value":"Who is there?"}]}],"connections":[)"
	R"({"source_node_guid":"e","source_pin_name":"then",)"
	R"("target_node_guid":"b","target_pin_name":"execute"},)"
	R"({"source_node_guid":"b","source_pin_name":"else",)"
	R"("target_node_guid":"p","target_pin_name":"execute"}]})";
constexpr const char* ReadEvent = R"({"path":"/Game/Doors/BP_Door","graph_name":"EventGraph","event_name":"Knock"})";
constexpr const char* ReadSchema = R"({"path":"/Game/Doors/BP_Door"})";

static std::string Line(const std::string& Tool, const std::string& Arguments)
{
	return R"({"tool":")" + Tool + R"(","arguments":)" + Arguments + "}\n";
}

/** The result objects of the lines of a script, all run by one process. */
static std::vector<std::string> RunScript(const FTemporaryFolder& Project, const std::string& Script)
{
	const std::string File = Project.Path() / "Script.jsonl";
	std::ofstream(File) << Script;
	const FProcessResult Result = RunMorvane({"run", File, "--project", Project.Path()});
	EXPECT_EQ(Result.Status, 0) << Result.Output << Result.Errors;
	std::vector<std::string> Lines;
	std::istringstream Stream(Result.Output);
	for (std::string Text; std::getline(Stream, Text);)
	{
		Lines.push_back(Text + "\n");
	}
	return Lines;
}

static std::string Call(const FTemporaryFolder& Project, const std::string& Tool, const std::string& Arguments)
{
	const FProcessResult Result = RunMorvane({"call", Tool, Arguments, "--project", Project.Path()});
	EXPECT_EQ(Result.Status, 0) << Result.Output << Result.Errors;
	return Result.Output;
}

static TSharedPtr<FJsonObject> Parse(const std::string& Text)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	EXPECT_TRUE(JsonUtf8::Parse(Text, Object, Error)) << Text;
	return Object ? Object : TSharedPtr<FJsonObject>(MakeShared<FJsonObject>());
}

/** The document that a read tool answered. */
static TSharedPtr<FJsonObject> Content(const std::string& Result)
{
	const TSharedPtr<FJsonObject> Data = Parse(Result)->GetObjectField(TEXT("data"));
	return Parse(ToUtf8(Data ? Data->GetStringField(TEXT("content")) : FString(TEXT("{}"))));
}

static std::string Text(const FJsonObject& Object)
{
	std::string Json;
	JsonUtf8::Write(Object, Json);
	return Json;
}
} // namespace ReadBackTest

TEST(ReadBack, WhatWasPopulatedIsReadInThisProcessAndInTheNextAndAfterACompile)
{
	using namespace ReadBackTest;
	const FTemporaryFolder Project;
	const std::vector<std::string> Results = RunScript(Project,
		Line("bp_create_asset", Create) + Line("bp_populate_graph", Populate) + Line("read_blueprint_event", ReadEvent)
			+ Line("read_blueprint_schema", ReadSchema));
	ASSERT_EQ(Results.size(), 4u);

	// The flow holds the three nodes, with the values and links that were asked for.
	const std::string Event = Text(*Content(Results[2]));
	for (const char* const Told : {R"("menu_title":"Knock")", R"("value":"Who is there?")",
			 R"("name":"Condition","value":"false")", R"("node_title":"Print String")", R"("pin_name":"else")"})
	{
		EXPECT_NE(Event.find(Told), std::string::npos) << Told << "\n" << Event;
	}

	// The edit handed the same document back.
	const TArray<TSharedPtr<FJsonValue>> Modifications = Parse(Results[1])->GetArrayField(TEXT("modifications"));
	ASSERT_EQ(Modifications.Num(), 1) << Results[1];
	const FJsonObject& Modification = *Modifications[0]->AsObject();
	EXPECT_EQ(ToUtf8(Modification.GetStringField(TEXT("tool"))), "read_blueprint_event");
	ASSERT_TRUE(Modification.GetObjectField(TEXT("content")).IsValid());
	EXPECT_EQ(Text(*Modification.GetObjectField(TEXT("content"))), Event);

	EXPECT_EQ(Call(Project, "read_blueprint_event", ReadEvent), Results[2]);
	EXPECT_EQ(Call(Project, "read_blueprint_schema", ReadSchema), Results[3]);
	Call(Project, "compile_blueprint", R"({"blueprint_paths":["/Game/Doors/BP_Door"]})");
	EXPECT_EQ(Call(Project, "read_blueprint_event", ReadEvent), Results[2]);
	EXPECT_EQ(Call(Project, "read_blueprint_schema", ReadSchema), Results[3]);
}
