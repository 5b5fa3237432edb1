#include "Package/AtomicFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace AtomicFile
{
namespace Steps
{
/** An open file that is closed on every way out. */
class FDescriptor
{
public:
	explicit FDescriptor(int InHandle)
		: Handle(InHandle)
	{
	}
	~FDescriptor()
	{
		if (Handle >= 0)
		{
			close(Handle);
		}
	}
	FDescriptor(const FDescriptor&) = delete;
	FDescriptor& operator=(const FDescriptor&) = delete;
	int Get() const { return Handle; }
	bool IsOpen() const { return Handle >= 0; }
	bool Close()
	{
		const int Closing = Handle;
		Handle = -1;
		return close(Closing) == 0;
	}

private:
	int Handle;
};

FString ReasonOf(int ErrorNumber)
{
	return FromUtf8(std::strerror(ErrorNumber));
}

bool Fail(FString& OutError, const TCHAR* What)
{
	OutError = FString::Printf(TEXT("%s: %s"), What, *ReasonOf(errno));
	return false;
}

std::string FolderOf(const std::string& Path)
{
	const std::size_t Slash = Path.rfind('/');
	return Slash == std::string::npos ? std::string(".") : Slash == 0 ? std::string("/") : Path.substr(0, Slash);
}

std::string TemporaryBeside(const std::string& Path)
{
	const std::size_t Slash = Path.rfind('/');
	const std::size_t Start = Slash == std::string::npos ? 0 : Slash + 1;
	return Path.substr(0, Start) + "." + Path.substr(Start) + ".tmp";
}

bool WriteAll(int Handle, std::string_view Bytes)
{
	while (!Bytes.empty())
	{
		const ssize_t Written = write(Handle, Bytes.data(), Bytes.size());
		if (Written < 0 && errno != EINTR)
		{
			return false;
		}
		Bytes.remove_prefix(Written > 0 ? static_cast<std::size_t>(Written) : 0);
	}
	return true;
}

bool FlushFolder(const std::string& Folder)
{
	FDescriptor Handle(open(Folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
	return Handle.IsOpen() && fsync(Handle.Get()) == 0;
}

/** The temporary file, complete and on the disk. */
bool WriteTemporary(
	const std::string& Path, mode_t Mode, std::initializer_list<std::string_view> Pieces, FString& OutError)
{
	FDescriptor Handle(open(Path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, Mode));
	if (!Handle.IsOpen())
	{
		return Fail(OutError, TEXT("the temporary file beside it cannot be made"));
	}
	struct stat Info;
	if (fstat(Handle.Get(), &Info) != 0 || !S_ISREG(Info.st_mode))
	{
		OutError = TEXT("the temporary file beside it cannot be made: something that is no file has its name");
		return false;
	}
	for (const std::string_view Piece : Pieces)
	{
		if (!WriteAll(Handle.Get(), Piece))
		{
			return Fail(OutError, TEXT("writing failed"));
		}
	}
	if (fchmod(Handle.Get(), Mode) != 0 || fsync(Handle.Get()) != 0 || !Handle.Close())
	{
		return Fail(OutError, TEXT("writing failed"));
	}
	return true;
}

mode_t ModeFor(const std::string& Path)
{
	struct stat Info;
	return stat(Path.c_str(), &Info) == 0 ? Info.st_mode & 07777 : 0644;
}
} // namespace Steps
using namespace Steps;

bool Write(const std::string& Path, std::initializer_list<std::string_view> Pieces, FString& OutError)
{
	const std::string Temporary = TemporaryBeside(Path);
	if (!WriteTemporary(Temporary, ModeFor(Path), Pieces, OutError))
	{
		unlink(Temporary.c_str());
		return false;
	}
	if (rename(Temporary.c_str(), Path.c_str()) != 0)
	{
		Fail(OutError, TEXT("the new file cannot take its place"));
		unlink(Temporary.c_str());
		return false;
	}
	// The new file stands by now; a folder that cannot be flushed, as on some network disks, does not undo that.
	FlushFolder(FolderOf(Path));
	return true;
}

bool MakeFolders(const std::string& Folder, FString& OutError)
{
	struct stat Info;
	if (stat(Folder.c_str(), &Info) == 0)
	{
		errno = ENOTDIR;
		return S_ISDIR(Info.st_mode) || Fail(OutError, TEXT("its folder cannot be made"));
	}
	const std::string Parent = FolderOf(Folder);
	if (Parent != Folder && !MakeFolders(Parent, OutError))
	{
		return false;
	}
	if (mkdir(Folder.c_str(), 0755) != 0 && errno != EEXIST)
	{
		return Fail(OutError, TEXT("its folder cannot be made"));
	}
	FlushFolder(Parent);
	return true;
}

bool Read(const std::string& Path, std::string& OutBytes, FString& OutError)
{
	return ReadStart(Path, std::string::npos, OutBytes, OutError);
}

bool ReadStart(const std::string& Path, std::size_t MaxBytes, std::string& OutBytes, FString& OutError)
{
	OutBytes.clear();
	// A pipe under an asset's name has no end to wait for.
	FDescriptor Handle(open(Path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
	struct stat Info;
	if (!Handle.IsOpen() || fstat(Handle.Get(), &Info) != 0)
	{
		return Fail(OutError, TEXT("it cannot be opened"));
	}
	if (!S_ISREG(Info.st_mode))
	{
		OutError = TEXT("it is no file");
		return false;
	}
	OutBytes.resize(std::min(MaxBytes, static_cast<std::size_t>(Info.st_size)));
	std::size_t Filled = 0;
	while (Filled < OutBytes.size())
	{
		const ssize_t Count = read(Handle.Get(), OutBytes.data() + Filled, OutBytes.size() - Filled);
		if (Count < 0 && errno != EINTR)
		{
			return Fail(OutError, TEXT("reading failed"));
		}
		if (Count == 0)
		{
			break;
		}
		Filled += Count > 0 ? static_cast<std::size_t>(Count) : 0;
	}
	OutBytes.resize(Filled);
	return true;
}

FStamp StampOf(const std::string& Path)
{
	struct stat Info;
	if (stat(Path.c_str(), &Info) != 0)
	{
		return FStamp();
	}
	return {static_cast<int64>(Info.st_mtim.tv_sec), static_cast<int64>(Info.st_mtim.tv_nsec),
		static_cast<int64>(Info.st_size), static_cast<uint64>(Info.st_ino)};
}
} // namespace AtomicFile
