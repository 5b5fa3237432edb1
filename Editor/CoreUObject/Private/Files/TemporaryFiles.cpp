#include "Files/AtomicFile.h"
#include "Misc/PackageName.h"
#include "Standalone/PackageText.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace TemporaryFiles
{
DEFINE_LOG_CATEGORY_STATIC(LogPackage, Log, All);

/** Takes the handle. Everything goes by handles, so that a folder which becomes a link meanwhile leads nowhere. */
static void SweepFolder(int Handle, const std::string& Extension)
{
	DIR* const Folder = Handle < 0 ? nullptr : fdopendir(Handle);
	if (!Folder)
	{
		if (Handle >= 0)
		{
			close(Handle);
		}
		return;
	}
	while (const dirent* const Entry = readdir(Folder))
	{
		const std::string_view Name = Entry->d_name;
		if (AtomicFile::IsTemporaryName(Name, Extension))
		{
			const bool bRemoved = unlinkat(dirfd(Folder), Entry->d_name, 0) == 0;
			UE_CLOG(bRemoved, LogPackage, Verbose, TEXT("Removed what a killed process left: %s"), *FromUtf8(Name));
		}
		else if ((Entry->d_type == DT_DIR || Entry->d_type == DT_UNKNOWN) && Name.front() != '.')
		{
			constexpr int Flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
			SweepFolder(openat(dirfd(Folder), Entry->d_name, Flags), Extension);
		}
	}
	closedir(Folder);
}
} // namespace TemporaryFiles

void FPackageText::SweepTemporaryFiles(const FString& Directory)
{
	TemporaryFiles::SweepFolder(open(TCHAR_TO_UTF8(*Directory), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC),
		ToUtf8(FPackageName::GetAssetPackageExtension()));
}
