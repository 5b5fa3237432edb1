#include "Server/StopSignal.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace StopSignalPrivate
{
/**
 * Opened once and never closed: a handler may still run on another thread when the signals are given back, and must not
 * write into whatever has got its descriptor by then.
 */
int ReadEnd = -1;
std::atomic<int> WriteEnd = -1;

struct sigaction OldTerminate;
struct sigaction OldInterrupt;
struct sigaction OldHangUp;
struct sigaction OldPipe;

/** Runs as a signal handler: a write to a pipe is all that is allowed here. */
static void Wake(int)
{
	const int SavedError = errno;
	const char Byte = 1;
	[[maybe_unused]] const ssize_t Written = write(WriteEnd, &Byte, 1);
	errno = SavedError;
}

static void Install(const int Signal, void (*Handler)(int), struct sigaction* Old)
{
	struct sigaction Action = {};
	Action.sa_handler = Handler;
	Action.sa_flags = SA_RESTART;
	sigaction(Signal, &Action, Old);
}

/** Opens the pipe, or empties it of the signals of an earlier watch. */
static void PreparePipe()
{
	int Ends[2] = {-1, -1};
	if (ReadEnd < 0 && pipe2(Ends, O_CLOEXEC | O_NONBLOCK) == 0)
	{
		ReadEnd = Ends[0];
		WriteEnd = Ends[1];
	}
	char Byte = 0;
	while (read(ReadEnd, &Byte, 1) > 0)
	{
	}
}
} // namespace StopSignalPrivate

FStopSignal::FStopSignal()
{
	StopSignalPrivate::PreparePipe();
	StopSignalPrivate::Install(SIGTERM, StopSignalPrivate::Wake, &StopSignalPrivate::OldTerminate);
	StopSignalPrivate::Install(SIGINT, StopSignalPrivate::Wake, &StopSignalPrivate::OldInterrupt);
	StopSignalPrivate::Install(SIGHUP, StopSignalPrivate::Wake, &StopSignalPrivate::OldHangUp);
	if (StopSignalPrivate::OldHangUp.sa_handler == SIG_IGN)
	{
		// Started so as to outlive its terminal.
		sigaction(SIGHUP, &StopSignalPrivate::OldHangUp, nullptr);
	}
	StopSignalPrivate::Install(SIGPIPE, SIG_IGN, &StopSignalPrivate::OldPipe);
}

FStopSignal::~FStopSignal()
{
	sigaction(SIGTERM, &StopSignalPrivate::OldTerminate, nullptr);
	sigaction(SIGINT, &StopSignalPrivate::OldInterrupt, nullptr);
	sigaction(SIGHUP, &StopSignalPrivate::OldHangUp, nullptr);
	sigaction(SIGPIPE, &StopSignalPrivate::OldPipe, nullptr);
}

int FStopSignal::GetDescriptor() const
{
	return StopSignalPrivate::ReadEnd;
}

bool FStopSignal::IsRaised() const
{
	pollfd Poll = {GetDescriptor(), POLLIN, 0};
	return poll(&Poll, 1, 0) > 0;
}

namespace StopSignalPrivate
{
/** Answers whether the descriptor was readable within the time; a negative time waits for ever. */
static bool WaitFor(const int Descriptor, const int Other, const int Milliseconds)
{
	pollfd Polls[2] = {{Descriptor, POLLIN, 0}, {Other, POLLIN, 0}};
	const nfds_t Count = Other >= 0 ? 2 : 1;
	int Ready = poll(Polls, Count, Milliseconds);
	while (Ready < 0 && errno == EINTR)
	{
		Ready = poll(Polls, Count, Milliseconds);
	}
	return (Polls[0].revents & POLLIN) != 0;
}

static void WatchUntilDone(const int Stop, const int Done, const std::chrono::milliseconds Grace)
{
	const bool bDone = WaitFor(Done, Stop, -1) || WaitFor(Done, -1, static_cast<int>(Grace.count()));
	if (!bDone)
	{
		constexpr std::string_view Words = "morvane: stopped while a call was running; what it had not saved is lost\n";
		[[maybe_unused]] const ssize_t Written = write(STDERR_FILENO, Words.data(), Words.size());
		// Neither destructors nor buffers: they belong to threads that run still.
		_exit(1);
	}
}
} // namespace StopSignalPrivate

FStopDeadline::FStopDeadline(const FStopSignal& Stop, const std::chrono::milliseconds Grace)
{
	int Ends[2] = {-1, -1};
	if (pipe2(Ends, O_CLOEXEC) != 0)
	{
		return;
	}
	DoneReader = FFileDescriptor(Ends[0]);
	DoneWriter = FFileDescriptor(Ends[1]);
	Watcher = std::thread(&StopSignalPrivate::WatchUntilDone, Stop.GetDescriptor(), DoneReader.Get(), Grace);
}

FStopDeadline::~FStopDeadline()
{
	const char Byte = 1;
	if (Watcher.joinable() && write(DoneWriter.Get(), &Byte, 1) == 1)
	{
		Watcher.join();
	}
}
