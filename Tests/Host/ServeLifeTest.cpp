#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Host/FakeToolHost.h"
#include "Host/Process.h"
#include "Server/CallQueue.h"
#include "Server/StdioServer.h"
#include "Support/FileDescriptor.h"

namespace ServeLifeTest
{
static std::string Request(const int Id, const std::string& Method, const std::string& Params = "{}")
{
	return R"({"jsonrpc":"2.0","id":)" + std::to_string(Id) + R"(,"method":")" + Method + R"(","params":)" + Params
		+ "}\n";
}

static std::string Call(const int Id, const std::string& Tool)
{
	return Request(Id, "tools/call", R"({"name":")" + Tool + "\"}");
}

/** A server on a thread of its own, spoken to through two pipes. */
class FServer
{
public:
	explicit FServer(IToolHost& Tools)
	{
		int In[2];
		int Out[2];
		EXPECT_EQ(pipe2(In, O_CLOEXEC), 0);
		EXPECT_EQ(pipe2(Out, O_CLOEXEC), 0);
		ServerIn = FFileDescriptor(In[0]);
		ToServer = FFileDescriptor(In[1]);
		FromServer = FFileDescriptor(Out[0]);
		ServerOut = FFileDescriptor(Out[1]);
		Thread = std::thread([this, &Tools] { FStdioServer(Tools, Stop, ServerIn.Get(), ServerOut.Get()).Run(); });
	}
	~FServer()
	{
		HangUp();
		FromServer.Reset();
		Join();
	}

	void Send(const std::string& Text) const
	{
		EXPECT_EQ(write(ToServer.Get(), Text.data(), Text.size()), static_cast<ssize_t>(Text.size()));
	}
	/** The next line without its end; empty after ten seconds or at the end of the output. */
	std::string Receive() { return ReceiveLine(FromServer.Get(), Pending); }
	/** The id of the next answer, -1 when there is none. */
	int ReceiveId()
	{
		const std::string Line = Receive();
		int Id = -1;
		std::sscanf(Line.c_str(), R"({"jsonrpc":"2.0","id":%d,)", &Id);
		return Id;
	}
	void HangUp() { ToServer.Reset(); }
	void StopReading() { FromServer.Reset(); }
	void Join()
	{
		if (Thread.joinable())
		{
			Thread.join();
		}
		ServerOut.Reset();
	}

private:
	const FStopSignal Stop;
	FFileDescriptor ServerIn;
	FFileDescriptor ToServer;
	FFileDescriptor FromServer;
	FFileDescriptor ServerOut;
	std::string Pending;
	std::thread Thread;
};

/** A tool that says when it runs and ends when it is let go. */
struct FSlowTool
{
	explicit FSlowTool(FFakeToolHost& Tools)
	{
		Tools.Add("slow",
			[this](std::string_view)
			{
				Started.Open();
				EXPECT_TRUE(Finish.Wait());
				return FFakeToolHost::Success("{}");
			});
	}
	FGate Started;
	FGate Finish;
};
} // namespace ServeLifeTest

TEST(ServeLife, PingIsAnsweredWhileAToolRuns)
{
	FFakeToolHost Tools;
	ServeLifeTest::FSlowTool Slow(Tools);
	ServeLifeTest::FServer Server(Tools);
	Server.Send(ServeLifeTest::Call(1, "slow"));
	ASSERT_TRUE(Slow.Started.Wait());
	Server.Send(ServeLifeTest::Request(2, "ping") + ServeLifeTest::Request(3, "tools/list"));
	EXPECT_EQ(Server.ReceiveId(), 2);
	EXPECT_EQ(Server.ReceiveId(), 3);
	Slow.Finish.Open();
	EXPECT_EQ(Server.ReceiveId(), 1);
}

TEST(ServeLife, WaitingCallIsCancelledWithoutAnAnswer)
{
	FFakeToolHost Tools;
	ServeLifeTest::FSlowTool Slow(Tools);
	ServeLifeTest::FServer Server(Tools);
	Server.Send(ServeLifeTest::Call(1, "slow"));
	ASSERT_TRUE(Slow.Started.Wait());
	Server.Send(ServeLifeTest::Call(2, "echo") + ServeLifeTest::Call(3, "echo"));
	Server.Send(
		R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":2,"reason":"changed my mind"}})"
		"\n");
	Server.Send(ServeLifeTest::Request(4, "ping"));
	EXPECT_EQ(Server.ReceiveId(), 4);
	Slow.Finish.Open();
	EXPECT_EQ(Server.ReceiveId(), 1);
	EXPECT_EQ(Server.ReceiveId(), 3);
	Server.HangUp();
	Server.Join();
	EXPECT_EQ(Server.Receive(), "");
	EXPECT_EQ(Tools.Calls, (std::vector<std::string>{"slow", "echo"}));
}

TEST(ServeLife, CallsRunInTheOrderOfArrival)
{
	FFakeToolHost Tools;
	ServeLifeTest::FServer Server(Tools);
	std::string Burst;
	for (int Id = 0; Id < 300; ++Id)
	{
		Burst += ServeLifeTest::Call(Id, "echo");
	}
	Server.Send(Burst);
	for (int Id = 0; Id < 300; ++Id)
	{
		ASSERT_EQ(Server.ReceiveId(), Id);
	}
}

TEST(ServeLife, EverythingReadIsAnsweredAfterTheInputEnds)
{
	FFakeToolHost Tools;
	ServeLifeTest::FSlowTool Slow(Tools);
	ServeLifeTest::FServer Server(Tools);
	Server.Send(ServeLifeTest::Call(1, "slow") + ServeLifeTest::Call(2, "echo"));
	ASSERT_TRUE(Slow.Started.Wait());
	Server.HangUp();
	Slow.Finish.Open();
	EXPECT_EQ(Server.ReceiveId(), 1);
	EXPECT_EQ(Server.ReceiveId(), 2);
	Server.Join();
	EXPECT_EQ(Server.Receive(), "");
}

TEST(ServeLife, SignalFinishesTheRunningCallAndDropsTheRest)
{
	FFakeToolHost Tools;
	ServeLifeTest::FSlowTool Slow(Tools);
	ServeLifeTest::FServer Server(Tools);
	Server.Send(ServeLifeTest::Call(1, "slow") + ServeLifeTest::Call(2, "echo"));
	ASSERT_TRUE(Slow.Started.Wait());
	std::raise(SIGTERM);
	Slow.Finish.Open();
	EXPECT_EQ(Server.ReceiveId(), 1);
	Server.Join();
	EXPECT_EQ(Server.Receive(), "");
	EXPECT_EQ(Tools.Calls, std::vector<std::string>{"slow"});
}

TEST(ServeLife, IdleServerStopsOnASignal)
{
	FFakeToolHost Tools;
	ServeLifeTest::FServer Server(Tools);
	Server.Send(ServeLifeTest::Request(1, "ping"));
	EXPECT_EQ(Server.ReceiveId(), 1);
	std::raise(SIGTERM);
	Server.Join();
	EXPECT_EQ(Server.Receive(), "");
}

TEST(ServeLife, ClientThatIsGoneEndsTheServer)
{
	FFakeToolHost Tools;
	ServeLifeTest::FServer Idle(Tools);
	Idle.StopReading();
	Idle.Join();
}

TEST(ServeLife, ClientThatLeavesDuringACallEndsTheServerAfterIt)
{
	FFakeToolHost Tools;
	ServeLifeTest::FSlowTool Slow(Tools);
	ServeLifeTest::FServer Busy(Tools);
	Busy.Send(ServeLifeTest::Call(1, "slow") + ServeLifeTest::Call(2, "echo"));
	ASSERT_TRUE(Slow.Started.Wait());
	Busy.StopReading();
	Slow.Finish.Open();
	Busy.Join();
	EXPECT_EQ(Tools.Calls, std::vector<std::string>{"slow"});
}

TEST(ServeLife, ClientThatDoesNotReadDoesNotKeepTheServerFromStopping)
{
	FFakeToolHost Tools;
	const std::string Big = "\"" + std::string(1u << 20, 'x') + "\"";
	FGate Started;
	Tools.Add("big",
		[&](std::string_view)
		{
			Started.Open();
			return FFakeToolHost::Success(Big);
		});
	ServeLifeTest::FServer Server(Tools);
	Server.Send(ServeLifeTest::Call(1, "big"));
	ASSERT_TRUE(Started.Wait());
	std::raise(SIGTERM);
	Server.Join();
}

TEST(CallQueue, FullQueueMakesTheSenderWait)
{
	FCallQueue Queue(2, 100);
	ASSERT_TRUE(Queue.Push({nullptr, "1", 60, [] {}}));
	std::thread Sender([&Queue] { EXPECT_TRUE(Queue.Push({nullptr, "2", 60, [] {}})); });
	EXPECT_EQ(Queue.Pop()->Id, "1");
	EXPECT_EQ(Queue.Pop()->Id, "2");
	Sender.join();
	// A call larger than the whole bound must not wait for ever.
	EXPECT_TRUE(Queue.Push({nullptr, "3", 1000, [] {}}));
	Queue.Close();
	EXPECT_FALSE(Queue.Push({nullptr, "4", 1, [] {}}));
	EXPECT_EQ(Queue.Pop()->Id, "3");
	EXPECT_FALSE(Queue.Pop().has_value());
}

TEST(CallQueue, ACancelledCallMakesRoomForAsManyBytes)
{
	FCallQueue Queue(100, 100);
	ASSERT_TRUE(Queue.Push({nullptr, "cancelled", 70, [] {}}));
	ASSERT_TRUE(Queue.Push({nullptr, "first", 10, [] {}}));
	EXPECT_TRUE(Queue.Cancel(nullptr, "cancelled"));
	EXPECT_FALSE(Queue.Cancel(nullptr, "cancelled"));
	std::atomic<bool> bTaken = false;
	std::thread Sender(
		[&Queue, &bTaken]
		{
			EXPECT_TRUE(Queue.Push({nullptr, "second", 90, [] {}}));
			bTaken = true;
		});
	for (int Wait = 0; Wait < 1000 && !bTaken; ++Wait)
	{
		std::this_thread::sleep_for(std::chrono::milliseconds(10));
	}
	EXPECT_TRUE(bTaken) << "ten bytes and ninety fit into a hundred";
	EXPECT_EQ(Queue.Pop()->Id, "first");
	EXPECT_EQ(Queue.Pop()->Id, "second");
	Sender.join();
}

TEST(CallQueue, AbortReleasesASenderThatWaits)
{
	FCallQueue Queue(1, 100);
	ASSERT_TRUE(Queue.Push({nullptr, "1", 1, [] {}}));
	std::thread Sender([&Queue] { EXPECT_FALSE(Queue.Push({nullptr, "2", 1, [] {}})); });
	Queue.Abort();
	Sender.join();
	EXPECT_FALSE(Queue.Pop().has_value());
}
