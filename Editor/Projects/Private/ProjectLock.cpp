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
static std::string HostName()
{
	char Name[256] = {};
	return gethostname(Name, sizeof(Name) - 1) == 0 ? std::string(Name) : std::string("unknown");
}

static std::string ReadAll(int Handle)
{
	char Text[512];
	const ssize_t Count = pread(Handle, Text, sizeof(Text), 0);
	return Count > 0 ? std::string(Text, static_cast<std::size_t>(Count)) : std::string();
}

static bool IsSame(const struct stat& Left, const struct stat& Right)
{
	return Left.st_ino == Right.st_ino && Left.st_dev == Right.st_dev;
}

/** "PID HOST" as text for a message. */
static FString Describe(const std::string& Owner)
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

/** A file that is there is opened as it is: what a link leads to is not ours to write, and a pipe would wait. */
int FProjectLock::OpenFile() const
{
	const int Made = open(Path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644);
	return Made >= 0 || errno != EEXIST ? Made : open(Path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
}

FProjectLock::EOutcome FProjectLock::TakeOnce(FString& OutOwner, bool& bOutRetry)
{
	const int Opened = OpenFile();
	if (Opened < 0)
	{
		const bool bLink = errno == ELOOP;
		bOutRetry = errno == ENOENT;
		OutOwner = bLink ? FString(TEXT("a link stands in the place of its lock file"))
						 : FromUtf8(std::strerror(errno));
		return errno == EROFS || errno == EACCES ? EOutcome::ReadOnly : EOutcome::Failed;
	}
	const EOutcome Outcome = TakeOpened(Opened, OutOwner, bOutRetry);
	if (Outcome == EOutcome::Taken)
	{
		Handle = Opened;
		OwnerProcess = getpid();
		WriteOwner();
	}
	else
	{
		close(Opened);
	}
	return Outcome;
}

FProjectLock::EOutcome FProjectLock::TakeOpened(int Opened, FString& OutOwner, bool& bOutRetry)
{
	struct stat Mine;
	if (fstat(Opened, &Mine) != 0 || !S_ISREG(Mine.st_mode))
	{
		OutOwner = TEXT("its lock file is no file");
		return EOutcome::Failed;
	}
	const bool bLocked = flock(Opened, LOCK_EX | LOCK_NB) == 0;
	const bool bHasLocks = bLocked || errno == EWOULDBLOCK;
	const std::string Owner = ProjectLocks::ReadAll(Opened);
	if (bHasLocks ? !bLocked : !IsOwnerGone(Owner))
	{
		OutOwner = ProjectLocks::Describe(Owner);
		return EOutcome::Held;
	}
	struct stat Present;
	const bool bStands = lstat(Path.c_str(), &Present) == 0 && ProjectLocks::IsSame(Mine, Present);
	if (bStands && Mine.st_nlink > 1)
	{
		// Another name of the file may lie anywhere; its text is not ours to write.
		unlink(Path.c_str());
	}
	bOutRetry = !bStands || Mine.st_nlink > 1;
	return bOutRetry ? EOutcome::Failed : EOutcome::Taken;
}

FProjectLock::EOutcome FProjectLock::TakeFolder(const std::string& InPath, FString& OutOwner)
{
	Release();
	Path = InPath;
	const int Opened = open(Path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
	if (Opened >= 0 && flock(Opened, LOCK_EX | LOCK_NB) == 0)
	{
		Handle = Opened;
		OwnerProcess = getpid();
		bIsFolder = true;
		return EOutcome::Taken;
	}
	const bool bHeld = Opened >= 0 && errno == EWOULDBLOCK;
	OutOwner = bHeld ? FString(TEXT("another process")) : FromUtf8(std::strerror(errno));
	if (Opened >= 0)
	{
		close(Opened);
	}
	return bHeld ? EOutcome::Held : EOutcome::Failed;
}

bool FProjectLock::IsHeldByOther(const std::string& File, FString& OutOwner)
{
	const int Opened = open(File.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
	const bool bHeld = Opened >= 0 && flock(Opened, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
	if (bHeld)
	{
		OutOwner = ProjectLocks::Describe(ProjectLocks::ReadAll(Opened));
	}
	if (Opened >= 0)
	{
		close(Opened);
	}
	return bHeld;
}

bool FProjectLock::IsHeld() const
{
	struct stat Mine;
	struct stat Present;
	return Handle >= 0 && fstat(Handle, &Mine) == 0 && lstat(Path.c_str(), &Present) == 0
		&& ProjectLocks::IsSame(Mine, Present);
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
	if (Handle < 0)
	{
		return;
	}
	if (!bIsFolder && OwnerProcess == getpid() && IsHeld())
	{
		unlink(Path.c_str());
	}
	close(Handle);
	Handle = -1;
	bIsFolder = false;
}
