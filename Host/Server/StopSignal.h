#pragma once

/**
 * Turns SIGTERM and SIGINT into a descriptor that becomes readable and stays so, and ignores SIGPIPE. One may exist at
 * a time. The handlers are put back when it goes.
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
