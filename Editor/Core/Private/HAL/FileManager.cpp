#include "HAL/FileManager.h"

#include "Containers/StringConv.h"
#include "Logging/LogMacros.h"
#include "Standalone/FileRemoval.h"

#include <filesystem>
#include <system_error>

DEFINE_LOG_CATEGORY_STATIC(LogFileManager, Log, All);

namespace Files
{
namespace fs = std::filesystem;

static fs::path ToPath(const TCHAR* Path)
{
	return fs::path(ToUtf8(Path));
}

static FString FromPath(const fs::path& Path)
{
	return FromUtf8(Path.generic_string());
}

static constexpr fs::perms AllWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
}

IFileManager& IFileManager::Get()
{
	static IFileManager Manager;
	return Manager;
}

bool IFileManager::FileExists(const TCHAR* Path)
{
	std::error_code Error;
	return std::filesystem::is_regular_file(Files::ToPath(Path), Error);
}

bool IFileManager::DirectoryExists(const TCHAR* Path)
{
	std::error_code Error;
	return std::filesystem::is_directory(Files::ToPath(Path), Error);
}

FString IFileManager::GetFilenameOnDisk(const TCHAR* Filename)
{
	std::error_code Error;
	Files::fs::path Standing;
	for (const Files::fs::path& Part : Files::ToPath(Filename))
	{
		Files::fs::path Spelled = Part;
		// A folder may hold several spellings; the smallest is taken, so that its order does not matter.
		if (!Files::fs::exists(Standing / Part, Error))
		{
			const FString Wanted = Files::FromPath(Part);
			for (const Files::fs::directory_entry& Entry : Files::fs::directory_iterator(Standing, Error))
			{
				const Files::fs::path Name = Entry.path().filename();
				const bool bFirst = Spelled == Part || Name < Spelled;
				if (bFirst && Files::FromPath(Name).Equals(Wanted, ESearchCase::IgnoreCase))
				{
					Spelled = Name;
				}
			}
		}
		Standing /= Spelled;
	}
	return Files::FromPath(Standing);
}

bool IFileManager::IsReadOnly(const TCHAR* Path)
{
	// The flag decides, not what this user may do: a superuser can write to everything.
	std::error_code Error;
	const std::filesystem::file_status Status = std::filesystem::status(Files::ToPath(Path), Error);
	return !Error && std::filesystem::exists(Status)
		&& (Status.permissions() & Files::AllWrite) == std::filesystem::perms::none;
}

bool IFileManager::MakeDirectory(const TCHAR* Path, bool Tree)
{
	std::error_code Error;
	if (Tree)
	{
		std::filesystem::create_directories(Files::ToPath(Path), Error);
	}
	else
	{
		std::filesystem::create_directory(Files::ToPath(Path), Error);
	}
	return DirectoryExists(Path);
}

bool IFileManager::Delete(const TCHAR* Path, bool RequireExists, bool EvenReadOnly, bool Quiet)
{
	// A question that fails does not say that there is no file.
	std::error_code Error;
	const std::filesystem::file_status Status = std::filesystem::symlink_status(Files::ToPath(Path), Error);
	if (Status.type() == std::filesystem::file_type::not_found)
	{
		return !RequireExists;
	}
	const bool bRefused = IsReadOnly(Path) && !EvenReadOnly;
	const FString Problem = bRefused ? FString::Printf(TEXT("The file '%s' is read-only."), Path)
									 : RemoveFileForGood(FString(Path));
	UE_CLOG(!Quiet && !Problem.IsEmpty(), LogFileManager, Warning, TEXT("%s"), *Problem);
	return Problem.IsEmpty();
}

bool IFileManager::DeleteDirectory(const TCHAR* Path, bool RequireExists, bool Tree)
{
	if (!DirectoryExists(Path))
	{
		return !RequireExists;
	}
	std::error_code Error;
	if (Tree)
	{
		std::filesystem::remove_all(Files::ToPath(Path), Error);
	}
	else
	{
		std::filesystem::remove(Files::ToPath(Path), Error);
	}
	return !Error;
}

int64 IFileManager::FileSize(const TCHAR* Path)
{
	std::error_code Error;
	const auto Size = std::filesystem::file_size(Files::ToPath(Path), Error);
	return Error ? -1 : static_cast<int64>(Size);
}

void IFileManager::FindFilesRecursive(TArray<FString>& OutFiles, const TCHAR* StartDirectory, const TCHAR* Wildcard,
	bool bFiles, bool bDirectories, bool bClearFileNames)
{
	if (bClearFileNames)
	{
		OutFiles.Reset();
	}
	std::error_code Error;
	std::filesystem::recursive_directory_iterator Entry(
		Files::ToPath(StartDirectory), std::filesystem::directory_options::skip_permission_denied, Error);
	const int32 First = OutFiles.Num();
	for (; !Error && Entry != std::filesystem::recursive_directory_iterator(); Entry.increment(Error))
	{
		std::error_code Ignored;
		const bool bWanted = Entry->is_directory(Ignored) ? bDirectories : bFiles;
		if (bWanted && Files::FromPath(Entry->path().filename()).MatchesWildcard(Wildcard))
		{
			OutFiles.Add(Files::FromPath(Entry->path()));
		}
	}
	std::sort(OutFiles.GetData() + First, OutFiles.GetData() + OutFiles.Num(),
		[](const FString& Left, const FString& Right) { return Left.Compare(Right, ESearchCase::CaseSensitive) < 0; });
}
