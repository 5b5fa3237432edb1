#include "Standalone/FileRemoval.h"

#include "Misc/Paths.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace FileRemoval
{
static FString LastReason()
{
	return FromUtf8(std::strerror(errno));
}

/** Only an answer that says so makes a file one that is not there: a question that failed says nothing. */
static bool IsMissing(const std::string& Path)
{
	struct stat Info;
	return lstat(Path.c_str(), &Info) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

static bool Flush(const std::string& Folder)
{
	const int Handle = open(Folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
	// Some network disks cannot flush a folder and say so; what they promise is all there is.
	const bool bFlushed = Handle >= 0 && (fsync(Handle) == 0 || errno == EINVAL || errno == ENOTSUP);
	const int ErrorNumber = errno;
	if (Handle >= 0)
	{
		close(Handle);
	}
	errno = ErrorNumber;
	return bFlushed;
}
} // namespace FileRemoval

FString RemoveFileForGood(const FString& File)
{
	const std::string Path = ToUtf8(File);
	if (FileRemoval::IsMissing(Path))
	{
		return FString();
	}
	if (unlink(Path.c_str()) != 0 && errno != ENOENT)
	{
		return FString::Printf(TEXT("The file '%s' could not be deleted: %s."), *File, *FileRemoval::LastReason());
	}
	struct stat Info;
	if (lstat(Path.c_str(), &Info) == 0)
	{
		return FString::Printf(TEXT("The file '%s' could not be deleted: it is still there."), *File);
	}
	if (errno != ENOENT && errno != ENOTDIR)
	{
		return FString::Printf(
			TEXT("Whether the file '%s' is deleted cannot be told: %s."), *File, *FileRemoval::LastReason());
	}
	if (!FileRemoval::Flush(ToUtf8(FPaths::GetPath(File))))
	{
		return FString::Printf(
			TEXT(
				"The file '%s' is deleted, but its folder could not be flushed, so a power cut may bring it back: %s."),
			*File, *FileRemoval::LastReason());
	}
	return FString();
}
