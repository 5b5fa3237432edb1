#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Dom/JsonObject.h"
#include "Host/Process.h"
#include "Standalone/JsonUtf8.h"
#include "Support/TemporaryFolder.h"

using testing::HasSubstr;
using testing::Not;

namespace SharedFilesTest
{
constexpr const char* Door =
	R"({"path":"/Game/BP_Door","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})";
constexpr const char* DoorFile = "Content/BP_Door.uatext";
constexpr const char* DoorTemporary = "Content/.BP_Door.uatext.tmp";

/** A server on a project, called as an agent calls it. */
class FServer
{
public:
	explicit FServer(const FTemporaryFolder& Project)
		: Process({"serve", "--project", Project.Path()})
	{
	}

	/** The answer, as the text of one line. */
	std::string Call(const std::string& Tool, const std::string& Arguments)
	{
		Process.Send(R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":")" + Tool + R"(","arguments":)"
			+ Arguments + "}}\n");
		const std::string Line = Process.Receive();
		const std::size_t Start = Line.find(R"("structuredContent":)");
		return Start == std::string::npos ? "no answer: " + Line : Line.substr(Start);
	}

private:
	FMorvaneProcess Process;
};

constexpr const char* Succeeded = R"("structuredContent":{"success":true)";
constexpr const char* Failed = R"("structuredContent":{"success":false)";

static std::string AddFunction(const std::string& Name)
{
	return R"({"path":"/Game/BP_Door","functions":[{"name":")" + Name + R"("}]})";
}

/** Two linked nodes, one of which needs a conversion in between, and a variable. */
static std::string Nodes(const std::string& Text)
{
	return R"({"path":"/Game/BP_Door","graph_name":"Work","local_variables":[{"name":"Count","type":{"category":"int"}}],)"
		   R"("nodes":[{"node_guid":"a","class_name":"K2Node_CallFunction","target_class":"/Script/Engine.KismetMathLibrary","target_function":"Abs_Int"},)"
		   R"({"node_guid":"b","class_name":"K2Node_CallFunction","target_class":"/Script/Engine.KismetSystemLibrary","target_function":"PrintString","pins":[{"action":"modify","name":"InString","value":")"
		+ Text
		+ R"("}]}],"connections":[{"source_node_guid":"a","source_pin_name":"ReturnValue","target_node_guid":"b","target_pin_name":"InString"}]})";
}

static std::size_t Count(const std::string& Text, const std::string& Part)
{
	std::size_t Number = 0;
	for (std::size_t At = Text.find(Part); At != std::string::npos; At = Text.find(Part, At + 1))
	{
		++Number;
	}
	return Number;
}

/** What another process makes of the project's door, in a project of its own. */
static std::string Theirs(const FTemporaryFolder& Project, const std::string& Function)
{
	const FTemporaryFolder Other;
	Other.Write(DoorFile, Project.Read(DoorFile));
	RunMorvane({"call", "bp_create_graph", AddFunction(Function), "--project", Other.Path()});
	return Other.Read(DoorFile);
}
} // namespace SharedFilesTest

using namespace SharedFilesTest;

TEST(SharedFiles, AChangedFileIsReadAfreshBeforeTheNextChange)
{
	const FTemporaryFolder Project;
	FServer Server(Project);
	ASSERT_THAT(Server.Call("bp_create_asset", Door), HasSubstr(Succeeded));
	ASSERT_THAT(
		Server.Call("bp_create_asset",
			R"({"path":"/Game/BP_Child","blueprint_parent_class":{"type":"blueprint","parent_path":"/Game/BP_Door"}})"),
		HasSubstr(Succeeded));
	Project.Write(DoorFile, Theirs(Project, "Theirs"));
	EXPECT_THAT(Server.Call("read_blueprint_schema", R"({"path":"/Game/BP_Child"})"), HasSubstr(Succeeded));
	EXPECT_THAT(Server.Call("bp_create_graph", AddFunction("Mine")), HasSubstr(Succeeded));
	const std::string Both = Project.Read(DoorFile);
	EXPECT_THAT(Both, HasSubstr("Name=\"Theirs\""));
	EXPECT_THAT(Both, HasSubstr("Name=\"Mine\""));
	EXPECT_THAT(Server.Call("compile_blueprint", R"({"blueprint_paths":["/Game/BP_Child"]})"), HasSubstr(Succeeded));
}

TEST(SharedFiles, ADeletedFileIsToldAndAConflictIsNamed)
{
	const FTemporaryFolder Project;
	FServer Server(Project);
	ASSERT_THAT(Server.Call("bp_create_asset", Door), HasSubstr(Succeeded));
	const std::string Good = Project.Read(DoorFile);

	Project.Write(DoorFile, "<<<<<<< HEAD\n" + Good + "=======\n" + Good + ">>>>>>> theirs\n");
	for (const char* const Tool : {"read_blueprint_schema", "delete_blueprint"})
	{
		const std::string Answer = Server.Call(Tool, R"({"path":"/Game/BP_Door"})");
		EXPECT_THAT(Answer, HasSubstr(Failed)) << Tool;
		EXPECT_THAT(Answer, HasSubstr("has merge conflict markers (line 1)")) << Tool;
	}
	EXPECT_THAT(Server.Call("bp_create_graph", AddFunction("Mine")), HasSubstr(Failed));
	EXPECT_THAT(Project.Read(DoorFile), HasSubstr("<<<<<<< HEAD"));

	Project.Write(DoorFile, Good);
	EXPECT_THAT(Server.Call("read_blueprint_schema", R"({"path":"/Game/BP_Door"})"), HasSubstr(Succeeded));
	std::filesystem::remove(Project.Path() / DoorFile);
	const std::string Answer = Server.Call("read_blueprint_schema", R"({"path":"/Game/BP_Door"})");
	EXPECT_THAT(Answer, HasSubstr(Failed));
	EXPECT_THAT(Answer, HasSubstr("'/Game/BP_Door' is gone: another program has deleted "));
	EXPECT_FALSE(Project.Exists(DoorFile));
	EXPECT_THAT(Server.Call("bp_create_asset", Door), HasSubstr(Succeeded));
}

TEST(SharedFiles, AFailedSaveIsToldAndARetryMakesNothingTwice)
{
	const FTemporaryFolder Project;
	FServer Server(Project);
	ASSERT_THAT(Server.Call("bp_create_asset", Door), HasSubstr(Succeeded));
	ASSERT_THAT(Server.Call("bp_create_graph", AddFunction("Work")), HasSubstr(Succeeded));
	const std::string Good = Project.Read(DoorFile);
	std::filesystem::create_directories(Project.Path() / DoorTemporary);
	for (int32 Try = 0; Try < 3; ++Try)
	{
		const std::string Answer = Server.Call("bp_populate_graph", Nodes("first"));
		EXPECT_THAT(Answer, HasSubstr("Failed to save asset '/Game/BP_Door': "));
		EXPECT_THAT(Answer, Not(HasSubstr("already exists")));
		EXPECT_THAT(Answer, HasSubstr(R"("modifications":[],"unsaved":["/Game/BP_Door"])"));
		EXPECT_EQ(Project.Read(DoorFile), Good);
	}
	std::filesystem::remove(Project.Path() / DoorTemporary);
	const std::string Answer = Server.Call("bp_populate_graph", Nodes("second"));
	EXPECT_THAT(Answer, HasSubstr(Succeeded));
	EXPECT_THAT(Answer, Not(HasSubstr("\"unsaved\"")));
	const std::string Saved = Project.Read(DoorFile);
	EXPECT_EQ(Count(Saved, "MemberName=\"PrintString\""), 1u);
	EXPECT_EQ(Count(Saved, "MemberName=\"Abs_Int\""), 1u);
	EXPECT_EQ(Count(Saved, "MemberName=\"Conv_IntToString\""), 1u);
	EXPECT_EQ(Count(Saved, "VarName=\"Count\""), 1u);

	EXPECT_THAT(
		Server.Call("bp_populate_graph",
			R"({"path":"/Game/BP_Door","graph_name":"Work","nodes":[{"node_guid":"a","class_name":"K2Node_CallFunction","target_class":"/Script/Engine.KismetMathLibrary","target_function":"Abs_Int"}]})"),
		HasSubstr(Succeeded))
		<< "a saved run is a settled matter: its ids are free again";
	EXPECT_EQ(Count(Project.Read(DoorFile), "MemberName=\"Abs_Int\""), 2u);
}

TEST(SharedFiles, AnotherRequestWithTheSameIdsTakesNothingBack)
{
	const FTemporaryFolder Project;
	FServer Server(Project);
	ASSERT_THAT(Server.Call("bp_create_asset", Door), HasSubstr(Succeeded));
	std::filesystem::create_directories(Project.Path() / DoorTemporary);
	const auto Call = [&](const std::string& Function)
	{
		return Server.Call("bp_populate_graph",
			R"({"path":"/Game/BP_Door","graph_name":"EventGraph","nodes":[{"node_guid":"a","class_name":"K2Node_CallFunction","target_class":"/Script/Engine.KismetMathLibrary","target_function":")"
				+ Function + R"("}]})");
	};
	EXPECT_THAT(Call("Abs_Int"), HasSubstr("unsaved"));
	std::filesystem::remove(Project.Path() / DoorTemporary);
	EXPECT_THAT(Call("FCeil"), HasSubstr(Succeeded));
	EXPECT_EQ(Count(Project.Read(DoorFile), "MemberName=\"Abs_Int\""), 1u);
	EXPECT_EQ(Count(Project.Read(DoorFile), "MemberName=\"FCeil\""), 1u);
}

TEST(SharedFiles, ARefusedSaveSaysHowToGoOn)
{
	const FTemporaryFolder Project;
	FServer Server(Project);
	ASSERT_THAT(Server.Call("bp_create_asset", Door), HasSubstr(Succeeded));
	std::filesystem::create_directories(Project.Path() / DoorTemporary);
	EXPECT_THAT(Server.Call("bp_create_graph", AddFunction("Mine")), HasSubstr("unsaved"));
	std::filesystem::remove(Project.Path() / DoorTemporary);
	const std::string Foreign = Theirs(Project, "Theirs");
	Project.Write(DoorFile, Foreign);

	const std::string Refused = Server.Call("bp_create_graph", AddFunction("Mine"));
	EXPECT_THAT(Refused, HasSubstr("another program has changed the file since it was read here"));
	EXPECT_THAT(Refused, HasSubstr(R"("unsaved":["/Game/BP_Door"])"));
	EXPECT_EQ(Project.Read(DoorFile), Foreign);
	const std::string Again = Server.Call("bp_create_graph", AddFunction("Mine"));
	EXPECT_THAT(Again, HasSubstr(Succeeded));
	EXPECT_THAT(Again, HasSubstr("what stood changed in memory and could not be saved is dropped"));
	EXPECT_THAT(Project.Read(DoorFile), HasSubstr("Name=\"Theirs\""));
	EXPECT_THAT(Project.Read(DoorFile), HasSubstr("Name=\"Mine\""));
}
