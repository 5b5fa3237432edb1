#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <sys/mman.h>
#include <unistd.h>

#include "Cli/CommandLine.h"
#include "Host/FakeToolHost.h"
#include "Host/Process.h"
#include "Support/TemporaryFolder.h"

namespace CommandLineTest
{
/** Puts standard output aside for a temporary file while it lives. */
class FCapturedOutput
{
public:
	FCapturedOutput()
		: Saved(dup(STDOUT_FILENO))
		, File(memfd_create("output", MFD_CLOEXEC))
	{
		std::fflush(stdout);
		dup2(File.Get(), STDOUT_FILENO);
	}
	~FCapturedOutput()
	{
		std::fflush(stdout);
		dup2(Saved.Get(), STDOUT_FILENO);
	}
	std::string Read() const
	{
		std::string Text(static_cast<size_t>(lseek(File.Get(), 0, SEEK_END)), '\0');
		EXPECT_EQ(pread(File.Get(), Text.data(), Text.size(), 0), static_cast<ssize_t>(Text.size()));
		return Text;
	}

private:
	FFileDescriptor Saved;
	FFileDescriptor File;
};

struct FOutcome
{
	int Status = -1;
	std::string Output;
	std::vector<FHostOptions> Started;
};

static FOutcome Run(const std::vector<std::string>& Words)
{
	FOutcome Outcome;
	const FCapturedOutput Captured;
	const FResultOutput Output;
	Outcome.Status = RunCommandLine(Words, Output,
		[&Outcome](const FHostOptions& Options)
		{
			Outcome.Started.push_back(Options);
			auto Tools = std::make_unique<FFakeToolHost>();
			Tools->Add("fail", [](std::string_view) { return FToolOutcome{R"({"success":false})", false}; });
			Tools->Add("chatty",
				[](std::string_view)
				{
					std::printf("stray text\n");
					std::fflush(stdout);
					return FFakeToolHost::Success("{}");
				});
			return Tools;
		});
	Outcome.Output = Captured.Read();
	return Outcome;
}

static std::string WriteFile(const std::string& Name, const std::string& Content)
{
	const std::string Path = ::testing::TempDir() + Name;
	std::ofstream(Path, std::ios::binary) << Content;
	return Path;
}

constexpr const char* EmptySuccess =
	R"({"success":true,"errors":[],"warnings":[],"messages":[],"data":{},"modifications":[]})"
	"\n";
} // namespace CommandLineTest

TEST(CommandLine, StatusTellsSuccessFailureAndMisuse)
{
	struct FCase
	{
		std::vector<std::string> Words;
		int Status;
	};
	const FCase Cases[] = {
		{{"call", "echo", "{}"}, 0},
		{{"call", "fail", "{}"}, 1},
		{{"call", "nope", "{}"}, 2},
		{{"call", "echo"}, 2},
		{{"call"}, 2},
		{{"call", "echo", "{}", "more"}, 2},
		{{"call", "echo", "@/no/such/file"}, 2},
		{{"call", "echo", "{}", "--project", "/no/such/parent/project"}, 2},
		{{"call", "echo", "{}", "--project", "/proc/version"}, 2},
		{{"call", "echo", "{}", "--seed", "x"}, 2},
		{{"call", "echo", "{}", "--no-such-option"}, 2},
		{{"run", "/no/such/file"}, 2},
		{{"run"}, 2},
		{{"tools"}, 0},
		{{"tools", "--json"}, 0},
		{{"serve", "--http", "8080"}, 2},
		{{"dance"}, 2},
		{{}, 2},
		{{"--help"}, 0},
		{{"call", "--help"}, 0},
		{{"--version"}, 0},
	};
	for (const FCase& Case : Cases)
	{
		std::string Label;
		for (const std::string& Word : Case.Words)
		{
			Label += Word + " ";
		}
		const CommandLineTest::FOutcome Outcome = CommandLineTest::Run(Case.Words);
		EXPECT_EQ(Outcome.Status, Case.Status) << Label;
		EXPECT_EQ(Outcome.Output.empty(), Case.Status == 2) << Label << Outcome.Output;
	}
}

TEST(CommandLine, ArgumentsComeAsTextOrFromAFile)
{
	const std::string File = CommandLineTest::WriteFile("arguments.json", "{\"from\":\"file\"}\n");
	EXPECT_NE(
		CommandLineTest::Run({"call", "echo", "@" + File}).Output.find(R"("data":{"from":"file"})"), std::string::npos);
	EXPECT_NE(CommandLineTest::Run({"call", "echo", R"({"a":1})"}).Output.find(R"("data":{"a":1})"), std::string::npos);
}

TEST(CommandLine, OptionsStandAnywhere)
{
	const std::string Project = ::testing::TempDir();
	for (const std::vector<std::string>& Words :
		{std::vector<std::string>{"call", "echo", "{}", "--project", Project, "--seed", "7"},
			std::vector<std::string>{"--project", Project, "--seed", "7", "call", "echo", "{}"},
			std::vector<std::string>{"call", "--project=" + Project, "--seed=7", "echo", "{}"}})
	{
		const CommandLineTest::FOutcome Outcome = CommandLineTest::Run(Words);
		EXPECT_EQ(Outcome.Status, 0);
		ASSERT_EQ(Outcome.Started.size(), 1u);
		EXPECT_EQ(Outcome.Started[0].ProjectDir, Project);
		EXPECT_EQ(Outcome.Started[0].Seed, 7u);
	}
}

TEST(CommandLine, PrettyResultsTakeSeveralLines)
{
	EXPECT_EQ(CommandLineTest::Run({"call", "fail", "{}", "--pretty"}).Output, "{\n\t\"success\": false\n}\n");
}

TEST(CommandLine, StrayOutputStaysOutOfTheResults)
{
	EXPECT_EQ(CommandLineTest::Run({"call", "chatty", "{}"}).Output, CommandLineTest::EmptySuccess);
}

TEST(CommandLine, ScriptGoesOnAfterAFailure)
{
	const std::string Script = CommandLineTest::WriteFile("script.jsonl",
		R"({"tool":"echo","arguments":{}})"
		"\n\n"
		R"({"tool":"fail"})"
		"\r\nnot json\n[1]\n{}\n"
		R"({"tool":"echo"})");
	const CommandLineTest::FOutcome Outcome = CommandLineTest::Run({"run", Script});
	EXPECT_EQ(Outcome.Status, 1);
	const auto Failure = [](const std::string& Text)
	{
		return R"({"success":false,"errors":[")" + Text
			+ R"("],"warnings":[],"messages":[],"data":{},"modifications":[]})" + "\n";
	};
	EXPECT_EQ(Outcome.Output,
		std::string(CommandLineTest::EmptySuccess) + "{\"success\":false}\n"
			+ Failure("The line is not JSON: Unknown word, expected a value (line 1, character 1)")
			+ Failure("The line is not a JSON object") + Failure(R"(The line has no \"tool\")")
			+ CommandLineTest::EmptySuccess);
	const std::string Good = CommandLineTest::WriteFile("good.jsonl", "{\"tool\":\"echo\"}\n");
	EXPECT_EQ(CommandLineTest::Run({"run", Good}).Status, 0);
}

namespace CommandLineTest
{
/** The status of the program when a shell redirects it, and what it says on standard error. */
static FProcessResult RunShell(const std::string& Words)
{
	FProcessResult Result;
	const std::string Command = GetMorvanePath() + " " + Words;
	FILE* const Pipe = popen(("{ " + Command + " ; } 2>&1").c_str(), "r");
	char Buffer[4096];
	while (const size_t Count = fread(Buffer, 1, sizeof(Buffer), Pipe))
	{
		Result.Errors.append(Buffer, Count);
	}
	Result.Status = WEXITSTATUS(pclose(Pipe));
	return Result;
}
} // namespace CommandLineTest

TEST(CommandLine, AResultThatCannotBeWrittenIsNoSuccess)
{
	const FTemporaryFolder Project;
	Project.Write("script", "{\"tool\":\"x\"}\n");
	const std::string Where = " --project " + Project.Path().string();
	const std::string Door =
		R"('{"path":"/Game/A","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}}')";
	const struct
	{
		const char* Label;
		std::string Words;
		const char* Reason;
	} Cases[] = {
		{"call, disk full", "call bp_create_asset " + Door + Where + " >/dev/full", "No space left on device"},
		{"call, closed", "call read_blueprint_schema '{\"path\":\"/Game/A\"}'" + Where + " >&-", "Bad file descriptor"},
		{"tools", "tools >/dev/full", "No space left on device"},
		{"tools as JSON", "tools --json >/dev/full", "No space left on device"},
		{"help", "--help >/dev/full", "No space left on device"},
		{"version", "--version >/dev/full", "No space left on device"},
		{"menu", "menu" + Where + " >/dev/full", "No space left on device"},
		{"node", "node '{\"class\":\"K2Node_IfThenElse\"}' >/dev/full", "No space left on device"},
		{"copy", "copy /Game/A EventGraph" + Where + " >/dev/full", "No space left on device"},
		{"run", "run " + (Project.Path() / "script").string() + Where + " >/dev/full", "No space left on device"},
	};
	for (const auto& Case : Cases)
	{
		const FProcessResult Run = CommandLineTest::RunShell(Case.Words);
		EXPECT_EQ(Run.Status, 1) << Case.Label << Run.Errors;
		EXPECT_NE(Run.Errors.find(std::string("The result could not be written: ") + Case.Reason), std::string::npos)
			<< Case.Label << Run.Errors;
	}
	EXPECT_TRUE(Project.Exists("Content/A.uatext")) << "what the tool did stands";
	EXPECT_FALSE(Project.Exists(".editor.lock")) << "the process has ended in order";
}
