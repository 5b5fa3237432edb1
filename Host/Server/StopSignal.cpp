#include "Server/StopSignal.h"

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace StopSignalPrivate
{
std::atomic<int> WakeDescriptor = -1;

struct sigaction OldTerminate;
struct sigaction OldInterrupt;
struct sigaction OldPipe;

/** Runs as a signal handler: a write to a pipe is all that is allowed here. */
void Wake(int)
{
	const int SavedError = errno;
	const char Byte = 1;
	[[maybe_unused]] const ssize_t Written = write(WakeDescriptor, &Byte, 1);
	errno = SavedError;
}

void Install(const int Signal, void (*Handler)(int), struct sigaction* Old)
{
	struct sigaction Action = {};
	Action.sa_handler = Handler;
	Action.sa_flags = SA_RESTART;
	sigaction(Signal, &Action, Old);
}
} // namespace StopSignalPrivate

FStopSignal::FStopSignal()
{
	int Ends[2] = {-1, -1};
	if (pipe2(Ends, O_CLOEXEC | O_NONBLOCK) == 0)
	{
		ReadEnd = FFileDescriptor(Ends[0]);
		WriteEnd = FFileDescriptor(Ends[1]);
	}
	StopSignalPrivate::WakeDescriptor = WriteEnd.Get();
	StopSignalPrivate::Install(SIGTERM, StopSignalPrivate::Wake, &StopSignalPrivate::OldTerminate);
	StopSignalPrivate::Install(SIGINT, StopSignalPrivate::Wake, &StopSignalPrivate::OldInterrupt);
	StopSignalPrivate::Install(SIGPIPE, SIG_IGN, &StopSignalPrivate::OldPipe);
}

FStopSignal::~FStopSignal()
{
	sigaction(SIGTERM, &StopSignalPrivate::OldTerminate, nullptr);
	sigaction(SIGINT, &StopSignalPrivate::OldInterrupt, nullptr);
	sigaction(SIGPIPE, &StopSignalPrivate::OldPipe, nullptr);
	StopSignalPrivate::WakeDescriptor = -1;
}

bool FStopSignal::IsRaised() const
{
	pollfd Poll = {ReadEnd.Get(), POLLIN, 0};
	return poll(&Poll, 1, 0) > 0;
}

void FStopSignal::Raise()
{
	StopSignalPrivate::Wake(SIGTERM);
}
