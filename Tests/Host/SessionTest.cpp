#include <csignal>

#include <sys/mount.h>

#include <gtest/gtest.h>

#include "Dom/JsonObject.h"
#include "Host/Process.h"
#include "Standalone/JsonUtf8.h"
#include "Support/TemporaryFolder.h"

namespace SessionTest
{
constexpr const char* Door =
	R"({"path":"/Game/Doors/BP_Door","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})";
constexpr const char* DoorFile = "Content/Doors/BP_Door.uatext";

static FProcessResult Call(const FTemporaryFolder& Project, const std::string& Tool, const std::string& Arguments,
	const std::string& Input = {})
{
	return RunMorvane({"call", Tool, Arguments, "--project", Project.Path()}, Input);
}

static TSharedPtr<FJsonObject> Parse(const std::string& Text)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	EXPECT_TRUE(JsonUtf8::Parse(Text, Object, Error)) << Text;
	return Object ? Object : TSharedPtr<FJsonObject>(MakeShared<FJsonObject>());
}

static std::string Join(const FJsonObject& Result, const TCHAR* Name)
{
	std::string Text;
	for (const TSharedPtr<FJsonValue>& Message : Result.GetArrayField(Name))
	{
		Text += (Text.empty() ? "" : "|") + ToUtf8(Message->AsString());
	}
	return Text;
}

static std::string ErrorsOf(const std::string& ResultJson)
{
	return Join(*Parse(ResultJson), TEXT("errors"));
}

static std::string Request(const int Id, const std::string& Method, const std::string& Params)
{
	return R"({"jsonrpc":"2.0","id":)" + std::to_string(Id) + R"(,"method":")" + Method + R"(","params":)" + Params
		+ "}\n";
}

static std::string CallRequest(const int Id, const std::string& Tool, const std::string& Arguments)
{
	return Request(Id, "tools/call", R"({"name":")" + Tool + R"(","arguments":)" + Arguments + "}");
}

/** The result object inside an answer. */
static TSharedPtr<FJsonObject> Structured(const std::string& Line)
{
	const TSharedPtr<FJsonObject> Result = Parse(Line)->GetObjectField(TEXT("result"));
	const TSharedPtr<FJsonObject> Object = Result ? Result->GetObjectField(TEXT("structuredContent")) : nullptr;
	EXPECT_TRUE(Object.IsValid()) << Line;
	return Object ? Object : TSharedPtr<FJsonObject>(MakeShared<FJsonObject>());
}
} // namespace SessionTest

TEST(Session, AssetLivesFromProcessToProcess)
{
	const FTemporaryFolder Project;
	const FProcessResult Created = SessionTest::Call(Project, "bp_create_asset", SessionTest::Door);
	EXPECT_EQ(Created.Status, 0) << Created.Output << Created.Errors;
	EXPECT_TRUE(Project.Exists(SessionTest::DoorFile));
	const TSharedPtr<FJsonObject> Result = SessionTest::Parse(Created.Output);
	EXPECT_TRUE(Result->GetBoolField(TEXT("success")));
	const TArray<TSharedPtr<FJsonValue>>& Modifications = Result->GetArrayField(TEXT("modifications"));
	ASSERT_EQ(Modifications.Num(), 1);
	EXPECT_EQ(ToUtf8(Modifications[0]->AsObject()->GetStringField(TEXT("tool"))), "read_blueprint_schema");

	const FProcessResult Again = SessionTest::Call(Project, "bp_create_asset", SessionTest::Door);
	EXPECT_EQ(Again.Status, 1) << Again.Output;
	EXPECT_NE(SessionTest::ErrorsOf(Again.Output), "");

	const FProcessResult Deleted = SessionTest::Call(Project, "delete_blueprint", R"({"path":"/Game/Doors/BP_Door"})");
	EXPECT_EQ(Deleted.Status, 0) << Deleted.Output << Deleted.Errors;
	EXPECT_FALSE(Project.Exists(SessionTest::DoorFile));
}

TEST(Session, ProjectFolderIsMadeByTheFirstCall)
{
	const FTemporaryFolder Parent;
	const std::string Project = Parent.Path() / "New";
	EXPECT_EQ(RunMorvane({"tools", "--project", Project}).Status, 0);
	EXPECT_FALSE(Parent.Exists("New"));
	const FProcessResult Created = RunMorvane({"call", "bp_create_asset", SessionTest::Door, "--project", Project});
	EXPECT_EQ(Created.Status, 0) << Created.Output << Created.Errors;
	EXPECT_TRUE(Parent.Exists(std::string("New/") + SessionTest::DoorFile));
}

TEST(Session, BrokenArgumentsAreToldApartFromWrongOnes)
{
	const FTemporaryFolder Project;
	const std::string Deep = std::string(100'000, '[') + std::string(100'000, ']');
	constexpr const char* Unparsed = "Invalid JSON command|Failed to parse command JSON";
	struct FCase
	{
		const char* Label;
		std::string Arguments;
		const char* Errors;
		const char* Warning;
	};
	const FCase Cases[] = {
		{"empty", "", Unparsed, "The arguments are not JSON: The text is empty (line 1, character 1)"},
		{"no JSON", "{path", Unparsed, "The arguments are not JSON: "},
		{"array", "[]", Unparsed, ""},
		{"number", "7", Unparsed, ""},
		{"deep", "{\"path\":" + Deep + "}", Unparsed,
			"The arguments are not JSON: Arrays and objects are nested too deep (line 1, character 520)"},
		{"invalid UTF-8", "{\"path\":\"\xFF\"}", Unparsed,
			"The arguments are not JSON: The text is not valid UTF-8 (line 1, character 10)"},
		{"lone surrogate", R"({"path":"\udc00"})", Unparsed,
			"The arguments are not JSON: A string holds a bad escape sequence or a lone surrogate (line 1, character 9)"},
		{"huge integer", R"({"path":12345678901234567890123})", "Missing required field 'path'",
			"[Ignored] path must be a text and is a number; it was not read."},
		{"no path", "{}", "Missing required field 'path'", ""},
	};
	for (const FCase& Case : Cases)
	{
		const FProcessResult Run = SessionTest::Call(Project, "bp_create_asset", "-", Case.Arguments);
		EXPECT_EQ(Run.Status, 1) << Case.Label << Run.Errors;
		EXPECT_EQ(SessionTest::ErrorsOf(Run.Output), Case.Errors) << Case.Label;
		const std::string Warnings = SessionTest::Join(*SessionTest::Parse(Run.Output), TEXT("warnings"));
		EXPECT_EQ(Warnings.substr(0, std::string(Case.Warning).size()), Case.Warning) << Case.Label;
		EXPECT_EQ(Warnings.empty(), std::string(Case.Warning).empty()) << Case.Label << Warnings;
	}
	EXPECT_FALSE(Project.Exists("Content"));
}

TEST(Session, FiftyMegabytesOfArgumentsAreRead)
{
	const FTemporaryFolder Project;
	const std::string Arguments =
		std::string(SessionTest::Door).insert(1, R"("filler":")" + std::string(50u << 20, 'x') + "\",");
	const FProcessResult Run = SessionTest::Call(Project, "bp_create_asset", "-", Arguments);
	EXPECT_EQ(Run.Status, 0) << Run.Output.substr(0, 1000) << Run.Errors;
}

TEST(Session, FailedCallWritesNothing)
{
	const FTemporaryFolder Project;
	const FProcessResult Run = SessionTest::Call(Project, "bp_create_asset",
		R"({"path":"/Game/A","blueprint_parent_class":{"type":"native","parent_path":"Actor"}})");
	EXPECT_EQ(Run.Status, 1);
	EXPECT_EQ(SessionTest::ErrorsOf(Run.Output), "Parent class 'Actor' is not valid for Blueprint creation.");
	EXPECT_FALSE(Project.Exists("Content"));
}

TEST(Session, AssetThatCannotBeWrittenIsNotThereAfterTheCall)
{
	const FTemporaryFolder Project;
	Project.Write("Content", "a file where a folder should be");
	const FProcessResult Run = SessionTest::Call(Project, "bp_create_asset", SessionTest::Door);
	EXPECT_EQ(Run.Status, 1) << Run.Output;
	EXPECT_EQ(SessionTest::ErrorsOf(Run.Output).find("Failed to save asset '/Game/Doors/BP_Door': "), 0u) << Run.Output;
	const TSharedPtr<FJsonObject> Result = SessionTest::Parse(Run.Output);
	EXPECT_TRUE(Result->GetArrayField(TEXT("modifications")).IsEmpty()) << Run.Output;
	EXPECT_FALSE(Result->HasField(TEXT("unsaved"))) << Run.Output;
	EXPECT_EQ(Run.Errors.find("Not saved and lost"), std::string::npos) << Run.Errors;
	EXPECT_EQ(Project.Read("Content"), "a file where a folder should be");
}

TEST(Session, AFailedCallThatMadeItsBlueprintLeavesNone)
{
	const FTemporaryFolder Project;
	const FProcessResult Run = RunMorvane({"run", "-", "--project", Project.Path()},
		R"({"tool":"bp_create_graph","arguments":{"path":"/Game/BP_A","functions":[{"name":"F"},7]}})"
		"\n"
		R"({"tool":"read_blueprint_schema","arguments":{"path":"/Game/BP_A"}})"
		"\n");
	EXPECT_EQ(Run.Status, 1) << Run.Output;
	EXPECT_NE(Run.Output.find("Blueprint does not exist: /Game/BP_A"), std::string::npos) << Run.Output;
	EXPECT_EQ(Run.Output.find("\"unsaved\""), std::string::npos) << Run.Output;
	EXPECT_FALSE(Project.Exists("Content"));
	EXPECT_EQ(Run.Errors.find("Not saved and lost"), std::string::npos) << Run.Errors;
}

TEST(Session, AFileThatIsPassedOverIsToldOfWhereItIsAskedFor)
{
	const FTemporaryFolder Project;
	SessionTest::Call(Project, "bp_create_asset", SessionTest::Door);
	Project.Write("Content/Copy.uatext", Project.Read(SessionTest::DoorFile));
	const FProcessResult Run = SessionTest::Call(Project, "read_blueprint_schema", R"({"path":"/Game/Copy"})");
	EXPECT_EQ(Run.Status, 1);
	EXPECT_NE(SessionTest::ErrorsOf(Run.Output).find("', not '/Game/Copy'"), std::string::npos) << Run.Output;
}

TEST(Session, FullDiskLosesTheNewAssetOnly)
{
	const FTemporaryFolder Project;
	if (mount("none", Project.Path().c_str(), "tmpfs", 0, "size=64k") != 0)
	{
		GTEST_SKIP() << "needs the right to mount a file system";
	}
	const FProcessResult First = SessionTest::Call(Project, "bp_create_asset", SessionTest::Door);
	EXPECT_EQ(First.Status, 0) << First.Output;
	const std::string Before = Project.Read(SessionTest::DoorFile);
	std::string Filler(64u << 10, 'x');
	while (!Filler.empty() && Project.Read("filler").size() != Filler.size())
	{
		Project.Write("filler", Filler);
		Filler.resize(Filler.size() - 4096);
	}
	const FProcessResult Second = SessionTest::Call(Project, "bp_create_asset",
		R"({"path":"/Game/BP_Other","blueprint_parent_class":{"type":"blueprint","parent_path":"BP_Door"}})");
	EXPECT_EQ(Second.Status, 1) << Second.Output;
	EXPECT_NE(SessionTest::ErrorsOf(Second.Output).find("No space left"), std::string::npos) << Second.Output;
	EXPECT_FALSE(Project.Exists("Content/BP_Other.uatext"));
	EXPECT_EQ(Project.Read(SessionTest::DoorFile), Before);
	EXPECT_EQ(umount(Project.Path().c_str()), 0);
}

TEST(Session, DamagedFileIsExplainedAndLeftAlone)
{
	const FTemporaryFolder Project;
	Project.Write(SessionTest::DoorFile, "uatext 1\nChecksum=0\n");
	const FProcessResult Read = SessionTest::Call(
		Project, "read_blueprint_variable", R"({"path":"/Game/Doors/BP_Door","variable_name":"X"})");
	EXPECT_EQ(Read.Status, 1) << Read.Output;
	EXPECT_NE(Read.Output.find("BP_Door.uatext"), std::string::npos) << Read.Output;
	EXPECT_EQ(Project.Read(SessionTest::DoorFile), "uatext 1\nChecksum=0\n");
}

TEST(Session, AFaultOfAFileIsToldOnce)
{
	const FTemporaryFolder Project;
	Project.Write(SessionTest::DoorFile, "uatext 1\nChecksum=0\n");
	const std::string Fault = Project.Path().string() + "/" + SessionTest::DoorFile
		+ ": the file is truncated within its header";
	// One tool quotes it among its errors, the other says only that there is no such Blueprint.
	const TSharedPtr<FJsonObject> Quoted = SessionTest::Parse(
		SessionTest::Call(Project, "read_blueprint_schema", R"({"path":"/Game/Doors/BP_Door"})").Output);
	EXPECT_NE(SessionTest::Join(*Quoted, TEXT("errors")).find(Fault), std::string::npos);
	EXPECT_EQ(SessionTest::Join(*Quoted, TEXT("warnings")), "");
	const TSharedPtr<FJsonObject> Silent = SessionTest::Parse(
		SessionTest::Call(Project, "read_blueprint_variable", R"({"path":"/Game/Doors/BP_Door","variable_name":"X"})")
			.Output);
	EXPECT_EQ(SessionTest::Join(*Silent, TEXT("errors")).find(Fault), std::string::npos);
	EXPECT_EQ(SessionTest::Join(*Silent, TEXT("warnings")), Fault);
}

TEST(Session, ServerStartsWithoutTouchingTheProject)
{
	const FTemporaryFolder Parent;
	const std::string Project = Parent.Path() / "New";
	const FProcessResult Run = RunMorvane({"serve", "--project", Project},
		SessionTest::Request(1, "initialize", R"({"protocolVersion":"2025-11-25"})")
			+ SessionTest::Request(2, "tools/list", "{}"));
	EXPECT_EQ(Run.Status, 0) << Run.Errors;
	EXPECT_FALSE(Parent.Exists("New"));
	EXPECT_EQ(Run.Errors, "");
}

TEST(Session, ScriptIsServedFromAFile)
{
	const FTemporaryFolder Project;
	const FProcessResult Run = RunMorvane({"serve", "--project", Project.Path()},
		SessionTest::CallRequest(1, "bp_create_asset", SessionTest::Door)
			+ SessionTest::CallRequest(2, "bp_create_asset", "{}"));
	EXPECT_EQ(Run.Status, 0) << Run.Errors;
	EXPECT_TRUE(Project.Exists(SessionTest::DoorFile));
	EXPECT_EQ(std::count(Run.Output.begin(), Run.Output.end(), '\n'), 2) << Run.Output;
}

TEST(Session, OneProcessOwnsAProjectAtATime)
{
	const FTemporaryFolder Project;
	FMorvaneProcess Owner({"serve", "--project", Project.Path()});
	FMorvaneProcess Other({"serve", "--project", Project.Path()});
	Owner.Send(SessionTest::CallRequest(1, "bp_create_asset", SessionTest::Door));
	EXPECT_TRUE(SessionTest::Structured(Owner.Receive())->GetBoolField(TEXT("success")));

	Other.Send(SessionTest::Request(1, "tools/list", "{}"));
	EXPECT_NE(Other.Receive(), "");
	Other.Send(SessionTest::CallRequest(2, "delete_blueprint", R"({"path":"/Game/Doors/BP_Door"})"));
	const TSharedPtr<FJsonObject> Refused = SessionTest::Structured(Other.Receive());
	EXPECT_FALSE(Refused->GetBoolField(TEXT("success")));
	EXPECT_NE(SessionTest::Join(*Refused, TEXT("errors")), "");
	EXPECT_TRUE(Project.Exists(SessionTest::DoorFile));

	Owner.HangUp();
	EXPECT_EQ(Owner.Wait(), 0);
	Other.Send(SessionTest::CallRequest(3, "delete_blueprint", R"({"path":"/Game/Doors/BP_Door"})"));
	EXPECT_TRUE(SessionTest::Structured(Other.Receive())->GetBoolField(TEXT("success")));
	Other.Signal(SIGTERM);
	EXPECT_EQ(Other.Wait(), 0);
}

TEST(Session, ProjectOfAKilledProcessIsTakenOver)
{
	const FTemporaryFolder Project;
	{
		FMorvaneProcess Victim({"serve", "--project", Project.Path()});
		Victim.Send(SessionTest::CallRequest(1, "bp_create_asset", SessionTest::Door));
		EXPECT_TRUE(SessionTest::Structured(Victim.Receive())->GetBoolField(TEXT("success")));
		Victim.Signal(SIGKILL);
		EXPECT_EQ(Victim.Wait(), 128 + SIGKILL);
	}
	const FProcessResult Run = SessionTest::Call(Project, "delete_blueprint", R"({"path":"/Game/Doors/BP_Door"})");
	EXPECT_EQ(Run.Status, 0) << Run.Output << Run.Errors;
}

TEST(Session, EveryListedToolAnswersNonsenseWithAFailedResult)
{
	const FTemporaryFolder Project;
	FMorvaneProcess Server({"serve", "--project", Project.Path()});
	Server.Send(SessionTest::Request(1, "tools/list", "{}"));
	const TSharedPtr<FJsonObject> List = SessionTest::Parse(Server.Receive())->GetObjectField(TEXT("result"));
	ASSERT_TRUE(List.IsValid());
	const TArray<TSharedPtr<FJsonValue>>& Tools = List->GetArrayField(TEXT("tools"));
	EXPECT_GE(Tools.Num(), 2);
	for (const TSharedPtr<FJsonValue>& Tool : Tools)
	{
		const std::string Name = ToUtf8(Tool->AsObject()->GetStringField(TEXT("name")));
		EXPECT_TRUE(Tool->AsObject()->HasField(TEXT("annotations"))) << Name << " has no schema";
		for (const char* Arguments :
			{"{}", R"({"path":7,"graph_name":[],"functions":true,"nodes":{},"blueprint_paths":"x"})"})
		{
			Server.Send(SessionTest::CallRequest(2, Name, Arguments));
			const std::string Line = Server.Receive();
			const TSharedPtr<FJsonObject> Result = SessionTest::Parse(Line)->GetObjectField(TEXT("result"));
			ASSERT_TRUE(Result.IsValid()) << Name << Line;
			EXPECT_TRUE(Result->GetBoolField(TEXT("isError"))) << Name << Line;
			const TSharedPtr<FJsonObject> Content = Result->GetObjectField(TEXT("structuredContent"));
			EXPECT_FALSE(Content->GetBoolField(TEXT("success"))) << Name << Line;
			const TSharedPtr<FJsonObject> Text = Result->GetArrayField(TEXT("content"))[0]->AsObject();
			std::string Written;
			JsonUtf8::Write(*Content, Written);
			EXPECT_EQ(ToUtf8(Text->GetStringField(TEXT("text"))), Written) << Name;
		}
	}
}

TEST(Session, SeedMakesFilesRepeatable)
{
	std::string Files[3];
	const char* const Seeds[] = {"1", "1", "2"};
	for (int32 Round = 0; Round < 3; ++Round)
	{
		const FTemporaryFolder Project;
		RunMorvane({"call", "bp_create_asset", SessionTest::Door, "--project", Project.Path(), "--seed", Seeds[Round]});
		Files[Round] = Project.Read(SessionTest::DoorFile);
		EXPECT_NE(Files[Round], "");
	}
	EXPECT_EQ(Files[0], Files[1]);
	EXPECT_NE(Files[0], Files[2]);
}
