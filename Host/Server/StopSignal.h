#pragma once

#include <chrono>
#include <thread>

#include "Support/FileDescriptor.h"

/**
 * Turns SIGTERM, SIGINT and SIGHUP into a descriptor that becomes readable and stays so, and ignores SIGPIPE. One may
 * exist at a time. The handlers are put back when it goes. A SIGHUP that the process was started to ignore stays
 * ignored.
 */
class FStopSignal
{
public:
	FStopSignal();
	~FStopSignal();
	FStopSignal(const FStopSignal&) = delete;
	FStopSignal& operator=(const FStopSignal&) = delete;

	/** Readable once the process was asked to stop. */
	int GetDescriptor() const;

	bool IsRaised() const;
};

/**
 * Ends the process when it was asked to stop and has not done so by itself within the grace: a call may run for long,
 * or wait for something that never comes. Such an end is what a kill would be: a file is replaced whole or not at all,
 * so it harms no asset; only what was not saved yet is lost. Watches until it is destroyed.
 */
class FStopDeadline
{
public:
	explicit FStopDeadline(const FStopSignal& Stop, std::chrono::milliseconds Grace = std::chrono::milliseconds(1500));
	~FStopDeadline();
	FStopDeadline(const FStopDeadline&) = delete;
	FStopDeadline& operator=(const FStopDeadline&) = delete;

private:
	FFileDescriptor DoneReader;
	FFileDescriptor DoneWriter;
	std::thread Watcher;
};
