#pragma once

#include "CoreMinimal.h"

#include <string>

/**
 * A file that says which process owns a folder. The kernel's lock on it ends with the process, however that dies, so a
 * lock is never left behind; the text in the file tells others whom to look for. Where the file system has no locks,
 * the text decides: an owner on this machine that is not running any more is taken over from.
 */
class FProjectLock
{
public:
	FProjectLock() = default;
	~FProjectLock() { Release(); }
	FProjectLock(const FProjectLock&) = delete;
	FProjectLock& operator=(const FProjectLock&) = delete;

	enum class EOutcome
	{
		Taken,
		/** Another process has it; OutOwner says which. */
		Held,
		/** The folder cannot be written to. */
		ReadOnly,
		Failed,
	};
	EOutcome Take(const std::string& InPath, FString& OutOwner);
	void Release();

private:
	EOutcome TakeOnce(FString& OutOwner, bool& bOutRetry);
	bool IsOwnerGone(const std::string& Owner) const;
	void WriteOwner() const;

	std::string Path;
	int Handle = -1;
};
