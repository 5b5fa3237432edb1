#include "Support/ResultOutput.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace ResultOutputPrivate
{
/**
 * A process may be started with its standard descriptors closed; the next file opened must not take their place. True
 * when standard output was there.
 */
static bool OpenMissingDescriptors()
{
	const bool bHasOutput = fcntl(STDOUT_FILENO, F_GETFD) >= 0;
	for (int Handle = STDIN_FILENO; Handle <= STDERR_FILENO; ++Handle)
	{
		if (fcntl(Handle, F_GETFD) < 0)
		{
			// open() takes the lowest free descriptor, which is this one.
			[[maybe_unused]] const int Opened = open("/dev/null", O_RDWR);
		}
	}
	return bHasOutput;
}
} // namespace ResultOutputPrivate

FResultOutput::FResultOutput()
{
	std::fflush(stdout);
	ErrorNumber = ResultOutputPrivate::OpenMissingDescriptors() ? 0 : EBADF;
	// A reader that has gone is an error of the write, not the end of the process in the middle of a save.
	std::signal(SIGPIPE, SIG_IGN);
	Output = FFileDescriptor(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
	dup2(STDERR_FILENO, STDOUT_FILENO);
}

bool FResultOutput::WriteLine(const std::string_view Line) const
{
	if (ErrorNumber != 0)
	{
		return false;
	}
	std::string Text;
	Text.reserve(Line.size() + 1);
	Text.append(Line).append("\n");
	for (std::string_view Rest = Text; !Rest.empty();)
	{
		const ssize_t Written = write(Output.Get(), Rest.data(), Rest.size());
		if (Written < 0 && errno != EINTR)
		{
			ErrorNumber = errno;
			return false;
		}
		Rest.remove_prefix(Written > 0 ? static_cast<size_t>(Written) : 0);
	}
	return true;
}
