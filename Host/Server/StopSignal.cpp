#include "Server/StopSignal.h"

#include <atomic>
#include <cerrno>
#include <csignal>

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
struct sigaction OldPipe;

/** Runs as a signal handler: a write to a pipe is all that is allowed here. */
void Wake(int)
{
	const int SavedError = errno;
	const char Byte = 1;
	[[maybe_unused]] const ssize_t Written = write(WriteEnd, &Byte, 1);
	errno = SavedError;
}

void Install(const int Signal, void (*Handler)(int), struct sigaction* Old)
{
	struct sigaction Action = {};
	Action.sa_handler = Handler;
	Action.sa_flags = SA_RESTART;
	sigaction(Signal, &Action, Old);
}

/** Opens the pipe, or empties it of the signals of an earlier watch. */
void PreparePipe()
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
	StopSignalPrivate::Install(SIGPIPE, SIG_IGN, &StopSignalPrivate::OldPipe);
}

FStopSignal::~FStopSignal()
{
	sigaction(SIGTERM, &StopSignalPrivate::OldTerminate, nullptr);
	sigaction(SIGINT, &StopSignalPrivate::OldInterrupt, nullptr);
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
