#include "Files/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
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

private:
	int Handle;
};

static FString ReasonOf(int ErrorNumber)
{
	return FromUtf8(std::strerror(ErrorNumber));
}

static bool Fail(FString& OutError, const TCHAR* What)
{
	OutError = FString::Printf(TEXT("%s: %s"), What, *ReasonOf(errno));
	return false;
}

static std::string FolderOf(const std::string& Path)
{
	const std::size_t Slash = Path.rfind('/');
	return Slash == std::string::npos ? std::string(".") : Slash == 0 ? std::string("/") : Path.substr(0, Slash);
}

static std::string TemporaryBeside(const std::string& Path)
{
	const std::size_t Slash = Path.rfind('/');
	const std::size_t Start = Slash == std::string::npos ? 0 : Slash + 1;
	return Path.substr(0, Start) + "." + Path.substr(Start) + ".tmp";
}

static bool WriteAll(int Handle, std::string_view Bytes)
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

static bool FlushFolder(const std::string& Folder)
{
	FDescriptor Handle(open(Folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
	return Handle.IsOpen() && fsync(Handle.Get()) == 0;
}

static FStamp StampFrom(const struct stat& Info)
{
	FStamp Stamp;
	Stamp.Seconds = static_cast<int64>(Info.st_mtim.tv_sec);
	Stamp.Nanoseconds = static_cast<int64>(Info.st_mtim.tv_nsec);
	Stamp.ChangeSeconds = static_cast<int64>(Info.st_ctim.tv_sec);
	Stamp.ChangeNanoseconds = static_cast<int64>(Info.st_ctim.tv_nsec);
	Stamp.Size = static_cast<int64>(Info.st_size);
	Stamp.Device = static_cast<uint64>(Info.st_dev);
	Stamp.Node = static_cast<uint64>(Info.st_ino);
	return Stamp;
}

/** A name that is taken, by what a killed process left or by a link to elsewhere, is given up and never written
 * through. */
static int OpenTemporary(const std::string& Path, mode_t Mode)
{
	constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
	const int Handle = open(Path.c_str(), Flags, Mode);
	if (Handle >= 0 || errno != EEXIST || unlink(Path.c_str()) != 0)
	{
		return Handle;
	}
	return open(Path.c_str(), Flags, Mode);
}

/** The bytes of the temporary file, complete and on the disk. */
static bool WriteTemporary(
	const FDescriptor& Handle, mode_t Mode, std::initializer_list<std::string_view> Pieces, FString& OutError)
{
	if (!Handle.IsOpen())
	{
		return Fail(OutError, TEXT("the temporary file beside it cannot be made"));
	}
	for (const std::string_view Piece : Pieces)
	{
		if (!WriteAll(Handle.Get(), Piece))
		{
			return Fail(OutError, TEXT("writing failed"));
		}
	}
	if (fchmod(Handle.Get(), Mode) != 0 || fsync(Handle.Get()) != 0)
	{
		return Fail(OutError, TEXT("writing failed"));
	}
	return true;
}

/**
 * The last step of a write. Between the look and the rename another program has some microseconds left, since no system
 * call replaces one certain file; where none stood the kernel itself refuses to replace.
 */
static bool TakePlace(const std::string& Temporary, const std::string& Path, const FStamp& Replaced, FString& OutError)
{
	if (Replaced.IsValid())
	{
		if (StampOf(Path) != Replaced)
		{
			OutError = TEXT("another program has changed the file just now");
			return false;
		}
		return rename(Temporary.c_str(), Path.c_str()) == 0
			|| Fail(OutError, TEXT("the new file cannot take its place"));
	}
	if (renameat2(AT_FDCWD, Temporary.c_str(), AT_FDCWD, Path.c_str(), RENAME_NOREPLACE) == 0)
	{
		return true;
	}
	// Some network disks know no such rename.
	const bool bUnknown = errno == EINVAL || errno == ENOSYS;
	if (bUnknown && !StampOf(Path).IsValid() && rename(Temporary.c_str(), Path.c_str()) == 0)
	{
		return true;
	}
	if (errno == EEXIST)
	{
		OutError = TEXT("another program has made a file of that name just now");
		return false;
	}
	return Fail(OutError, TEXT("the new file cannot take its place"));
}

static mode_t ModeFor(const std::string& Path)
{
	struct stat Info;
	return stat(Path.c_str(), &Info) == 0 ? Info.st_mode & 07777 : 0644;
}
} // namespace Steps
using namespace Steps;

bool Write(const std::string& Path, std::initializer_list<std::string_view> Pieces, const FStamp& Replaced,
	FStamp& OutStamp, FString& OutError)
{
	const std::string Temporary = TemporaryBeside(Path);
	const mode_t Mode = ModeFor(Path);
	FDescriptor Handle(OpenTemporary(Temporary, Mode));
	if (!WriteTemporary(Handle, Mode, Pieces, OutError) || !TakePlace(Temporary, Path, Replaced, OutError))
	{
		if (Handle.IsOpen())
		{
			unlink(Temporary.c_str());
		}
		return false;
	}
	// By its handle: another file may bear the name by now. The rename may have changed the stamp.
	struct stat Info;
	OutStamp = fstat(Handle.Get(), &Info) == 0 ? StampFrom(Info) : FStamp();
	// The new file stands by now; a folder that cannot be flushed, as on some network disks, does not undo that.
	FlushFolder(FolderOf(Path));
	return true;
}

bool IsTemporaryName(std::string_view Name, std::string_view Extension)
{
	constexpr std::string_view End = ".tmp";
	return Name.size() > 1 + Extension.size() + End.size() && Name.front() == '.' && Name.ends_with(End)
		&& Name.substr(0, Name.size() - End.size()).ends_with(Extension);
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

bool Read(const std::string& Path, std::string& OutBytes, FString& OutError, FStamp* OutStamp)
{
	return ReadStart(Path, std::string::npos, OutBytes, OutError, OutStamp);
}

bool ReadPart(const std::string& Path, int64 Offset, std::size_t Size, std::string& OutBytes)
{
	OutBytes.clear();
	const FDescriptor Handle(open(Path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
	struct stat Info;
	if (!Handle.IsOpen() || fstat(Handle.Get(), &Info) != 0 || !S_ISREG(Info.st_mode) || Offset < 0
		|| Offset > Info.st_size || Size > static_cast<std::size_t>(Info.st_size - Offset))
	{
		return false;
	}
	OutBytes.resize(Size);
	std::size_t Filled = 0;
	while (Filled < Size)
	{
		const ssize_t Count = pread(Handle.Get(), OutBytes.data() + Filled, Size - Filled,
			static_cast<off_t>(Offset + static_cast<int64>(Filled)));
		if (Count == 0 || (Count < 0 && errno != EINTR))
		{
			OutBytes.clear();
			return false;
		}
		Filled += Count > 0 ? static_cast<std::size_t>(Count) : 0;
	}
	return true;
}

bool ReadStart(
	const std::string& Path, std::size_t MaxBytes, std::string& OutBytes, FString& OutError, FStamp* OutStamp)
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
	if (OutStamp)
	{
		*OutStamp = StampFrom(Info);
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

FStamp StampOf(const std::string& Path, int* OutErrorNumber)
{
	struct stat Info;
	const bool bSeen = stat(Path.c_str(), &Info) == 0;
	if (OutErrorNumber)
	{
		*OutErrorNumber = bSeen ? 0 : errno;
	}
	return bSeen ? StampFrom(Info) : FStamp();
}

bool IsSettled(const FStamp& Stamp)
{
	constexpr int64 NanosecondsASecond = 1'000'000'000;
	constexpr int64 SlowestTick = NanosecondsASecond / 20;
	timespec Now = {};
	clock_gettime(CLOCK_REALTIME, &Now);
	const int64 Seconds = static_cast<int64>(Now.tv_sec) - Stamp.ChangeSeconds;
	return Seconds > 1
		|| Seconds * NanosecondsASecond + static_cast<int64>(Now.tv_nsec) - Stamp.ChangeNanoseconds > SlowestTick;
}
} // namespace AtomicFile
