#include "Server/LineWriter.h"

#include <algorithm>
#include <cerrno>
#include <climits>

#include <poll.h>
#include <unistd.h>

FLineWriter::FLineWriter(const int InOutput, const int InStopDescriptor)
	: Output(InOutput)
	, StopDescriptor(InStopDescriptor)
{
}

void FLineWriter::Send(FReply Reply)
{
	Reply.Text += '\n';
	const std::lock_guard Lock(Mutex);
	if (!bBroken && !WriteAll(Reply.Text))
	{
		bBroken = true;
	}
}

bool FLineWriter::WriteAll(std::string_view Bytes) const
{
	while (!Bytes.empty())
	{
		if (!WaitUntilWritable())
		{
			return false;
		}
		// A pipe that polls as writable takes this many bytes without blocking.
		const ssize_t Written = write(Output, Bytes.data(), std::min<size_t>(Bytes.size(), PIPE_BUF));
		if (Written < 0 && errno != EINTR && errno != EAGAIN)
		{
			return false;
		}
		Bytes.remove_prefix(static_cast<size_t>(std::max<ssize_t>(Written, 0)));
	}
	return true;
}

bool FLineWriter::WaitUntilWritable() const
{
	pollfd Polls[2] = {{Output, POLLOUT, 0}, {StopDescriptor, POLLIN, 0}};
	while (poll(Polls, StopDescriptor >= 0 ? 2 : 1, -1) < 0)
	{
		if (errno != EINTR)
		{
			return false;
		}
	}
	if (Polls[0].revents & POLLOUT)
	{
		return true;
	}
	// Only an error or the wish to stop is left; a failing write tells the former more precisely.
	return (Polls[0].revents & (POLLERR | POLLNVAL)) == 0 && (Polls[1].revents & POLLIN) == 0;
}
