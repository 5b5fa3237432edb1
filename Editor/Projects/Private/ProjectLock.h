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
	/** The kernel's lock on a folder itself, for one that no file can be made in. */
	EOutcome TakeFolder(const std::string& InPath, FString& OutOwner);
	/** Gives back what is this process's own: not a file that another owner has put in the place, nor a parent's. */
	void Release();
	/** Whether what was taken still stands at the path, so that others are kept out by it. */
	bool IsHeld() const;
	/** Whether another process has the lock on a file. Takes it for a moment. */
	static bool IsHeldByOther(const std::string& File, FString& OutOwner);

private:
	int OpenFile() const;
	EOutcome TakeOnce(FString& OutOwner, bool& bOutRetry);
	EOutcome TakeOpened(int Opened, FString& OutOwner, bool& bOutRetry);
	bool IsOwnerGone(const std::string& Owner) const;
	void WriteOwner() const;

	std::string Path;
	int Handle = -1;
	int OwnerProcess = -1;
	bool bIsFolder = false;
};
