#include "Server/StdioServer.h"

#include <cerrno>
#include <thread>
#include <vector>

#include <poll.h>
#include <unistd.h>

#include "Server/CallQueue.h"
#include "Server/Dispatcher.h"
#include "Server/LineReader.h"
#include "Server/LineWriter.h"
#include "Server/MessageId.h"

namespace StdioServerPrivate
{
enum class EReadEnd
{
	EndOfInput,
	Stopped
};

/** Waits until the input has something or has ended; false when the process is asked to stop or the client has gone. */
static bool WaitForInput(const int Input, const int Output, const FStopSignal& Stop)
{
	// The output is polled for errors only: a client that left without closing our input is noticed there.
	pollfd Polls[3] = {{Input, POLLIN, 0}, {Stop.GetDescriptor(), POLLIN, 0}, {Output, 0, 0}};
	while (poll(Polls, 3, -1) < 0)
	{
		if (errno != EINTR)
		{
			return false;
		}
	}
	return (Polls[1].revents & POLLIN) == 0 && (Polls[2].revents & (POLLERR | POLLNVAL)) == 0;
}

static EReadEnd ReadMessages(const int Input, const int Output, const FStopSignal& Stop, FDispatcher& Dispatcher,
	const std::shared_ptr<FLineWriter>& Writer)
{
	FMessageIdScanner Skipped;
	FLineReader Lines(
		MaxMessageBytes, [&](const std::string_view Line) { Dispatcher.Receive(Line, Writer); },
		[&]
		{
			const std::string Text = "Invalid request: a message may be " + std::to_string(MaxMessageBytes)
				+ " bytes long at most";
			Writer->Send({RpcText::Error(Skipped.GetId(), RpcError::InvalidRequest, Text), RpcError::InvalidRequest});
			Skipped.Reset();
		},
		[&](const std::string_view Part) { Skipped.Feed(Part); });
	std::vector<char> Buffer(256u << 10);
	while (!Writer->IsBroken() && WaitForInput(Input, Output, Stop))
	{
		const ssize_t Count = read(Input, Buffer.data(), Buffer.size());
		if (Count > 0)
		{
			Lines.Feed({Buffer.data(), static_cast<size_t>(Count)});
		}
		else if (Count == 0 || (errno != EINTR && errno != EAGAIN))
		{
			Lines.Finish();
			return EReadEnd::EndOfInput;
		}
	}
	return EReadEnd::Stopped;
}
} // namespace StdioServerPrivate

FStdioServer::FStdioServer(IToolHost& InTools, const FStopSignal& InStop, const int InInput, const int InOutput)
	: Tools(InTools)
	, Stop(InStop)
	, Input(InInput)
	, Output(InOutput)
{
}

void FStdioServer::Run()
{
	FCallQueue Queue;
	FDispatcher Dispatcher(Tools, Queue);
	const auto Writer = std::make_shared<FLineWriter>(Output, Stop.GetDescriptor());
	std::thread Reader(
		[&]
		{
			const auto End = StdioServerPrivate::ReadMessages(Input, Output, Stop, Dispatcher, Writer);
			if (End == StdioServerPrivate::EReadEnd::EndOfInput)
			{
				Queue.Close();
			}
			else
			{
				Queue.Abort();
			}
		});
	while (std::optional<FQueuedCall> Call = Queue.Pop())
	{
		Call->Run();
		// The reader may be waiting for room in the queue, or be done, and see neither.
		if (Writer->IsBroken() || Stop.IsRaised())
		{
			Queue.Abort();
		}
	}
	Reader.join();
	Dispatcher.EndSubscriptions();
}
