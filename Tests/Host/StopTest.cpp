// Asked to stop, the server stops: whatever it does, and soon.

#include <chrono>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/Process.h"
#include "Server/StopSignal.h"
#include "TemporaryFolder.h"

using testing::HasSubstr;

namespace StopTest
{
using FClock = std::chrono::steady_clock;

constexpr const char* Ping = R"({"jsonrpc":"2.0","id":1,"method":"ping"})"
							 "\n";

/** Seconds until the process has ended after the signal. */
static double TimeToEnd(FMorvaneProcess& Process, int Signal, int& OutStatus)
{
	const FClock::time_point Start = FClock::now();
	Process.Signal(Signal);
	OutStatus = Process.Wait();
	return std::chrono::duration<double>(FClock::now() - Start).count();
}

static std::string Call(const std::string& Tool, const std::string& Arguments)
{
	return R"({"jsonrpc":"2.0","id":2,"method":"tools/call","params":{"name":")" + Tool + R"(","arguments":)"
		+ Arguments + "}}\n";
}

static std::vector<std::string> Serve(const FTemporaryFolder& Folder)
{
	return {"serve", "--project", Folder.Path().string()};
}
} // namespace StopTest

using namespace StopTest;

TEST(Stop, AnIdleServerStopsOnEverySignal)
{
	for (const int Signal : {SIGTERM, SIGINT, SIGHUP})
	{
		const FTemporaryFolder Folder;
		FMorvaneProcess Process(Serve(Folder));
		Process.Send(Ping);
		EXPECT_NE(Process.Receive(), "");
		int Status = -1;
		EXPECT_LT(TimeToEnd(Process, Signal, Status), 2.0) << Signal;
		EXPECT_EQ(Status, 0) << Signal;
	}
}

TEST(Stop, AServerWhoseAnswersNobodyReadsStops)
{
	const FTemporaryFolder Folder;
	FMorvaneProcess Process(Serve(Folder));
	std::string Lists;
	for (int Index = 0; Index < 20; ++Index)
	{
		Lists += R"({"jsonrpc":"2.0","id":1,"method":"tools/list"})"
				 "\n";
	}
	Process.Send(Ping);
	EXPECT_NE(Process.Receive(), "");
	Process.Send(Lists);
	std::this_thread::sleep_for(std::chrono::milliseconds(200));
	int Status = -1;
	EXPECT_LT(TimeToEnd(Process, SIGTERM, Status), 2.0);
}

TEST(Stop, ACallThatDoesNotEndIsCutOffAndTold)
{
	GTEST_FLAG_SET(death_test_style, "threadsafe");
	EXPECT_EXIT(
		{
			const FStopSignal Stop;
			const FStopDeadline Deadline(Stop, std::chrono::milliseconds(100));
			raise(SIGHUP);
			std::this_thread::sleep_for(std::chrono::seconds(30));
		},
		testing::ExitedWithCode(1), "stopped while a call was running; what it had not saved is lost");
}

TEST(Stop, AnEndWithinTheGraceIsLeftAlone)
{
	const FStopSignal Stop;
	{
		const FStopDeadline Unused(Stop, std::chrono::milliseconds(50));
	}
	const FStopDeadline Deadline(Stop, std::chrono::seconds(10));
	raise(SIGINT);
	EXPECT_TRUE(Stop.IsRaised());
}

TEST(Stop, APipeInPlaceOfAFileHangsNothing)
{
	// One in the place of the asset is the user's, one under the temporary name is swept as what a killed process left.
	constexpr std::pair<const char*, bool> Cases[] = {{"BP_Pipe.uatext", true}, {".BP_Pipe.uatext.tmp", false}};
	for (const auto& [Name, bIsError] : Cases)
	{
		const FTemporaryFolder Folder;
		const std::string Content = Folder.Path().string() + "/Content";
		ASSERT_EQ(mkdir(Content.c_str(), 0755), 0);
		ASSERT_EQ(mkfifo((Content + "/" + Name).c_str(), 0644), 0);
		FMorvaneProcess Process(Serve(Folder));
		Process.Send(Call("bp_populate_graph",
			R"({"path":"/Game/BP_Pipe","graph_name":"EventGraph","nodes":[{"menu_title":"Branch"}]})"));
		EXPECT_THAT(Process.Receive(), HasSubstr(bIsError ? R"("isError":true)" : R"("isError":false)")) << Name;
		Process.Send(Call("read_blueprint_schema", R"({"path":"/Game/BP_Pipe"})"));
		EXPECT_THAT(Process.Receive(), HasSubstr(R"("id":2)")) << Name;
		int Status = -1;
		EXPECT_LT(TimeToEnd(Process, SIGTERM, Status), 2.0) << Name;
	}
}
