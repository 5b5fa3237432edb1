#pragma once

#include <cstddef>
#include <memory>

#include "Server/StopSignal.h"
#include "ToolFace/ToolHost.h"

/** Longest message that is read; a longer line is skipped and answered with an error. */
constexpr size_t MaxMessageBytes = 16u << 20;

/**
 * Serves one client over two descriptors, one message a line, until the input ends, the process is asked to stop or the
 * client is gone.
 *
 * The calling thread is the game thread and runs the tools. A second thread reads, so that a ping is answered and a
 * waiting call is cancelled while a tool runs. At the end of the input everything that was read is answered first; when
 * the process is asked to stop, the call that runs is finished and the waiting ones are dropped.
 */
class FStdioServer
{
public:
	/** Everything given must outlive the server; neither descriptor is closed. */
	FStdioServer(IToolHost& InTools, const FStopSignal& InStop, int InInput, int InOutput);

	void Run();

private:
	IToolHost& Tools;
	const FStopSignal& Stop;
	const int Input;
	const int Output;
};
