#include "Misc/FileHelper.h"

#include "HAL/FileManager.h"
#include "Misc/Paths.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace FileBytes
{
struct FCloser
{
	void operator()(std::FILE* File) const { std::fclose(File); }
};
using FFile = std::unique_ptr<std::FILE, FCloser>;

static FFile Open(const TCHAR* Path, const char* Mode)
{
	return FFile(std::fopen(TCHAR_TO_UTF8(Path), Mode));
}

/** Opens what is a file or a folder; of a pipe, which may never end, a reader is not made to wait. */
static FFile OpenToRead(const TCHAR* Path)
{
	const int Handle = open(TCHAR_TO_UTF8(Path), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
	struct stat Info;
	if (Handle >= 0 && (fstat(Handle, &Info) != 0 || S_ISFIFO(Info.st_mode) || S_ISCHR(Info.st_mode)))
	{
		close(Handle);
		errno = EINVAL;
		return FFile();
	}
	return FFile(Handle >= 0 ? fdopen(Handle, "rb") : nullptr);
}

static FString GetLastError()
{
	return FString(std::strerror(errno));
}

static bool Write(const void* Bytes, std::size_t NumBytes, const TCHAR* Path)
{
	const FString Directory = FPaths::GetPath(Path);
	if (!Directory.IsEmpty() && !IFileManager::Get().MakeDirectory(*Directory, true))
	{
		return false;
	}
	FFile File = Open(Path, "wb");
	if (!File)
	{
		return false;
	}
	const bool bWritten = std::fwrite(Bytes, 1, NumBytes, File.get()) == NumBytes;
	// Closing writes what is left in the buffer and may fail too.
	return std::fclose(File.release()) == 0 && bWritten;
}
}

bool FFileHelper::LoadFileToBytes(std::string& OutBytes, const TCHAR* Path, FString& OutError)
{
	OutBytes.clear();
	// A folder opens like a file and fails at the first read only.
	const FileBytes::FFile File = FileBytes::OpenToRead(Path);
	if (!File)
	{
		OutError = FString::Printf(TEXT("Cannot open '%s': %s"), Path, *FileBytes::GetLastError());
		return false;
	}
	char Buffer[16384];
	for (std::size_t NumRead = 1; NumRead > 0;)
	{
		NumRead = std::fread(Buffer, 1, sizeof(Buffer), File.get());
		OutBytes.append(Buffer, NumRead);
	}
	if (std::ferror(File.get()))
	{
		OutError = FString::Printf(TEXT("Cannot read '%s': %s"), Path, *FileBytes::GetLastError());
		OutBytes.clear();
		return false;
	}
	return true;
}

bool FFileHelper::LoadFileToString(FString& OutText, const TCHAR* Path, FString& OutError)
{
	OutText.Empty();
	std::string Bytes;
	if (!LoadFileToBytes(Bytes, Path, OutError))
	{
		return false;
	}
	std::string_view View(Bytes);
	const std::string_view ByteOrderMark("\xEF\xBB\xBF");
	const int64 NumSkipped = View.substr(0, 3) == ByteOrderMark ? 3 : 0;
	std::wstring Text;
	const int64 BadOffset = FUTF8::AppendStrict(Text, View.substr(static_cast<std::size_t>(NumSkipped)));
	if (BadOffset != INDEX_NONE)
	{
		OutError = FString::Printf(TEXT("'%s' is not valid UTF-8 at byte %lld"), Path, BadOffset + NumSkipped);
		return false;
	}
	OutText = FString(MoveTemp(Text));
	return true;
}

bool FFileHelper::LoadFileToString(FString& OutText, const TCHAR* Path)
{
	FString Error;
	return LoadFileToString(OutText, Path, Error);
}

bool FFileHelper::LoadFileToArray(TArray<uint8>& OutBytes, const TCHAR* Path)
{
	std::string Bytes;
	FString Error;
	const bool bRead = LoadFileToBytes(Bytes, Path, Error);
	OutBytes = TArray<uint8>(reinterpret_cast<const uint8*>(Bytes.data()), static_cast<int32>(Bytes.size()));
	return bRead;
}

bool FFileHelper::SaveStringToFile(FStringView Text, const TCHAR* Path, EEncodingOptions Encoding)
{
	const std::string Bytes = ToUtf8(Text);
	return FileBytes::Write(Bytes.data(), Bytes.size(), Path);
}

bool FFileHelper::SaveArrayToFile(TArrayView<const uint8> Bytes, const TCHAR* Path)
{
	return FileBytes::Write(Bytes.GetData(), static_cast<std::size_t>(Bytes.Num()), Path);
}
