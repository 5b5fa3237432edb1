#pragma once

#include <atomic>
#include <mutex>
#include <string_view>

#include "Server/Reply.h"

/**
 * Writes one message a line, whole lines at a time, from any thread. Gives up for good when the reader has gone, or
 * when it does not read any more and the process is asked to stop; from then on everything sent is dropped.
 */
class FLineWriter : public IReplySink
{
public:
	/** StopDescriptor becomes readable when a write may no longer wait. It may be negative. */
	FLineWriter(int InOutput, int InStopDescriptor);

	void Send(FReply Reply) override;

	bool IsBroken() const { return bBroken; }

private:
	bool WriteAll(std::string_view Bytes) const;
	bool WaitUntilWritable() const;

	const int Output;
	const int StopDescriptor;
	std::mutex Mutex;
	std::atomic<bool> bBroken = false;
};
