#include "ProjectLock.h"

#include "HAL/PlatformProcess.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ProjectLocks
{
std::string HostName()
{
	char Name[256] = {};
	return gethostname(Name, sizeof(Name) - 1) == 0 ? std::string(Name) : std::string("unknown");
}

std::string ReadAll(int Handle)
{
	char Text[512];
	const ssize_t Count = pread(Handle, Text, sizeof(Text), 0);
	return Count > 0 ? std::string(Text, static_cast<std::size_t>(Count)) : std::string();
}

/** "PID HOST" as text for a message. */
FString Describe(const std::string& Owner)
{
	const std::size_t Blank = Owner.find(' ');
	if (Blank == std::string::npos)
	{
		return TEXT("another process");
	}
	const std::string Host = Owner.substr(Blank + 1, Owner.find('\n') - Blank - 1);
	return FString::Printf(TEXT("process %s on %s"), *FromUtf8(Owner.substr(0, Blank)), *FromUtf8(Host));
}
} // namespace ProjectLocks

FProjectLock::EOutcome FProjectLock::Take(const std::string& InPath, FString& OutOwner)
{
	Release();
	Path = InPath;
	// The file can go away between opening and locking it, when its owner closes; then the lock is on nothing and is
	// tried again.
	constexpr int32 MaxTries = 100;
	for (int32 Try = 0; Try < MaxTries; ++Try)
	{
		bool bRetry = false;
		const EOutcome Outcome = TakeOnce(OutOwner, bRetry);
		if (!bRetry)
		{
			return Outcome;
		}
	}
	OutOwner = TEXT("another process");
	return EOutcome::Held;
}

FProjectLock::EOutcome FProjectLock::TakeOnce(FString& OutOwner, bool& bOutRetry)
{
	const int Opened = open(Path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644);
	if (Opened < 0)
	{
		OutOwner = FromUtf8(std::strerror(errno));
		return errno == EROFS || errno == EACCES ? EOutcome::ReadOnly : EOutcome::Failed;
	}
	const bool bLocked = flock(Opened, LOCK_EX | LOCK_NB) == 0;
	const bool bHasLocks = bLocked || errno == EWOULDBLOCK;
	const std::string Owner = ProjectLocks::ReadAll(Opened);
	if (bHasLocks ? !bLocked : !IsOwnerGone(Owner))
	{
		OutOwner = ProjectLocks::Describe(Owner);
		close(Opened);
		return EOutcome::Held;
	}
	struct stat Mine;
	struct stat Present;
	if (fstat(Opened, &Mine) != 0 || stat(Path.c_str(), &Present) != 0 || Mine.st_ino != Present.st_ino)
	{
		close(Opened);
		bOutRetry = true;
		return EOutcome::Failed;
	}
	Handle = Opened;
	WriteOwner();
	return EOutcome::Taken;
}

bool FProjectLock::IsOwnerGone(const std::string& Owner) const
{
	uint32 ProcessId = 0;
	const std::from_chars_result Parsed = std::from_chars(Owner.data(), Owner.data() + Owner.size(), ProcessId);
	if (Parsed.ec != std::errc())
	{
		return true;
	}
	const std::string Host(Parsed.ptr, Owner.data() + Owner.size());
	return Host == " " + ProjectLocks::HostName() + "\n" && !FPlatformProcess::IsApplicationRunning(ProcessId);
}

void FProjectLock::WriteOwner() const
{
	const std::string Text = std::to_string(getpid()) + " " + ProjectLocks::HostName() + "\n";
	// The lock holds without its text; that only names the owner to others.
	if (ftruncate(Handle, 0) == 0 && pwrite(Handle, Text.data(), Text.size(), 0) < 0)
	{
		UE_LOG(LogTemp, Verbose, TEXT("%s: the owner could not be noted"), *FromUtf8(Path));
	}
}

void FProjectLock::Release()
{
	if (Handle >= 0)
	{
		unlink(Path.c_str());
		close(Handle);
		Handle = -1;
	}
}
