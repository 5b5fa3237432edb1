#include "Server/CallQueue.h"

#include <algorithm>

FCallQueue::FCallQueue(const size_t InMaxCalls, const size_t InMaxBytes)
	: MaxCalls(InMaxCalls)
	, MaxBytes(InMaxBytes)
{
}

bool FCallQueue::IsFull(const size_t MoreBytes) const
{
	return !Calls.empty() && (Calls.size() >= MaxCalls || WaitingBytes + MoreBytes > MaxBytes);
}

bool FCallQueue::Push(FQueuedCall Call)
{
	std::unique_lock Lock(Mutex);
	Changed.wait(Lock, [this, &Call] { return bClosed || !IsFull(Call.Bytes); });
	if (bClosed)
	{
		return false;
	}
	WaitingBytes += Call.Bytes;
	Calls.push_back(std::move(Call));
	Changed.notify_all();
	return true;
}

std::optional<FQueuedCall> FCallQueue::Pop()
{
	std::unique_lock Lock(Mutex);
	Changed.wait(Lock, [this] { return bClosed || !Calls.empty(); });
	if (Calls.empty())
	{
		return std::nullopt;
	}
	FQueuedCall Call = std::move(Calls.front());
	Calls.pop_front();
	WaitingBytes -= Call.Bytes;
	Changed.notify_all();
	return Call;
}

bool FCallQueue::Cancel(const IReplySink* Sink, const std::string& Id)
{
	const std::lock_guard Lock(Mutex);
	const auto Waiting = std::find_if(
		Calls.begin(), Calls.end(), [&](const FQueuedCall& Call) { return Call.Sink.get() == Sink && Call.Id == Id; });
	if (Waiting == Calls.end())
	{
		return false;
	}
	WaitingBytes -= Waiting->Bytes;
	Calls.erase(Waiting);
	Changed.notify_all();
	return true;
}

void FCallQueue::Close()
{
	const std::lock_guard Lock(Mutex);
	bClosed = true;
	Changed.notify_all();
}

void FCallQueue::Abort()
{
	const std::lock_guard Lock(Mutex);
	bClosed = true;
	Calls.clear();
	WaitingBytes = 0;
	Changed.notify_all();
}
