#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "Server/Reply.h"

/** One tool call that waits for the game thread. */
struct FQueuedCall
{
	FReplySinkPtr Sink;
	std::string Id;
	/** What the call keeps in memory while it waits. */
	size_t Bytes = 0;
	std::function<void()> Run;
};

/**
 * The calls that wait for the game thread, in order of arrival. Any thread may push, one thread pops.
 *
 * The queue is bounded in number and in bytes. A full queue makes Push wait, so that a client which sends faster than
 * its calls run is slowed down by its pipe and loses nothing.
 */
class FCallQueue
{
public:
	explicit FCallQueue(size_t InMaxCalls = 1024, size_t InMaxBytes = 128u << 20);

	/** Waits while the queue is full; false when it was closed and the call is dropped. One call always fits. */
	bool Push(FQueuedCall Call);

	/** Waits for a call; nothing once the queue is closed and empty. */
	std::optional<FQueuedCall> Pop();

	/** Takes a waiting call out; false when there is none of that sink and id, because it runs already or never was. */
	bool Cancel(const IReplySink* Sink, const std::string& Id);

	/** No further calls; those that wait are still handed out. */
	void Close();

	/** No further calls, and those that wait are dropped. */
	void Abort();

private:
	bool IsFull(size_t MoreBytes) const;

	std::mutex Mutex;
	std::condition_variable Changed;
	std::deque<FQueuedCall> Calls;
	size_t WaitingBytes = 0;
	const size_t MaxCalls;
	const size_t MaxBytes;
	bool bClosed = false;
};
