// What a client waits for: the start of the program to its first answer, and one small call to a server that runs.

#include "Support/FileDescriptor.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace HostBench
{
/** The program with a pipe at each end. */
class FServer
{
public:
	explicit FServer(std::vector<std::string> Words)
	{
		int In[2];
		int Out[2];
		if (pipe2(In, O_CLOEXEC) != 0 || pipe2(Out, O_CLOEXEC) != 0)
		{
			return;
		}
		const FFileDescriptor TheirInput(In[0]);
		const FFileDescriptor TheirOutput(Out[1]);
		Input = FFileDescriptor(In[1]);
		Output = FFileDescriptor(Out[0]);
		posix_spawn_file_actions_t Actions;
		posix_spawn_file_actions_init(&Actions);
		posix_spawn_file_actions_adddup2(&Actions, TheirInput.Get(), STDIN_FILENO);
		posix_spawn_file_actions_adddup2(&Actions, TheirOutput.Get(), STDOUT_FILENO);
		std::string Program = MORVANE_PROGRAM;
		std::vector<char*> Arguments = {Program.data()};
		for (std::string& Word : Words)
		{
			Arguments.push_back(Word.data());
		}
		Arguments.push_back(nullptr);
		posix_spawn(&Id, MORVANE_PROGRAM, &Actions, nullptr, Arguments.data(), environ);
		posix_spawn_file_actions_destroy(&Actions);
	}
	~FServer() { End(); }

	/** False when no whole line came back. */
	bool Ask(const std::string& Line) const
	{
		return write(Input.Get(), Line.data(), Line.size()) == static_cast<ssize_t>(Line.size()) && ReadLine();
	}
	bool ReadLine() const
	{
		char Buffer[65536];
		for (ssize_t Count = 0; (Count = read(Output.Get(), Buffer, sizeof(Buffer))) > 0;)
		{
			if (Buffer[Count - 1] == '\n')
			{
				return true;
			}
		}
		return false;
	}
	/** The most memory that the process has had, in kilobytes. */
	long End()
	{
		Input.Reset();
		rusage Usage = {};
		if (Id > 0)
		{
			wait4(Id, nullptr, 0, &Usage);
			Id = -1;
		}
		return Usage.ru_maxrss;
	}

private:
	FFileDescriptor Input;
	FFileDescriptor Output;
	pid_t Id = -1;
};

constexpr const char* Initialize =
	"{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"initialize\",\"params\":{\"protocolVersion\":\"2025-11-25\"}}\n";
constexpr const char* Ping = "{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"ping\"}\n";
/** The smallest call: it fails for want of a path. */
constexpr const char* EmptyCall =
	"{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"tools/call\",\"params\":{\"name\":\"bp_create_asset\",\"arguments\":{}}}\n";

static std::string MakeProject()
{
	std::string Pattern = (std::filesystem::temp_directory_path() / "host-bench-XXXXXX").string();
	return mkdtemp(Pattern.data()) ? Pattern : std::string();
}
} // namespace HostBench

static void HostStartToHandshake(benchmark::State& State)
{
	for (auto _ : State)
	{
		const HostBench::FServer Server({"serve"});
		if (!Server.Ask(HostBench::Initialize))
		{
			State.SkipWithError("no answer");
		}
	}
}
BENCHMARK(HostStartToHandshake)->Unit(benchmark::kMillisecond)->UseRealTime();

static void HostStartToFirstResult(benchmark::State& State)
{
	const std::string Project = HostBench::MakeProject();
	int64_t Round = 0;
	for (auto _ : State)
	{
		const std::string Path = Project + "/" + std::to_string(Round++);
		const std::string Arguments =
			R"({"path":"/Game/BP_X","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})";
		HostBench::FServer Process({"call", "bp_create_asset", Arguments, "--project", Path});
		if (!Process.ReadLine())
		{
			State.SkipWithError("no answer");
		}
		State.PauseTiming();
		State.counters["peak_kB"] = static_cast<double>(Process.End());
		std::filesystem::remove_all(Path);
		State.ResumeTiming();
	}
	std::filesystem::remove_all(Project);
}
BENCHMARK(HostStartToFirstResult)->Unit(benchmark::kMillisecond)->UseRealTime();

static void HostRoundTrip(benchmark::State& State)
{
	const std::string Project = HostBench::MakeProject();
	{
		const HostBench::FServer Server({"serve", "--project", Project});
		const std::string Message = State.range(0) == 0 ? HostBench::Ping : HostBench::EmptyCall;
		for (auto _ : State)
		{
			if (!Server.Ask(Message))
			{
				State.SkipWithError("no answer");
			}
		}
	}
	std::filesystem::remove_all(Project);
}
BENCHMARK(HostRoundTrip)->ArgName("call")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();
