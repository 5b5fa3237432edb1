#include "Standalone/Project.h"

#include "HAL/FileManager.h"
#include "Interfaces/IPluginManager.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "ProjectLock.h"
#include "Standalone/PackageText.h"
#include "Standalone/PathConfinement.h"
#include "Standalone/ProjectPaths.h"
#include "UObject/ObjectSaveContext.h"
#include "UObject/Package.h"

#include <fcntl.h>
#include <unistd.h>

namespace Projects
{
struct FOpenProject
{
	FString Directory;
	FProjectLock Lock;
	/** On the folder itself, for those who cannot make a file in it. */
	FProjectLock FolderLock;
	bool bReadOnly = false;
	/** Nothing of a project was in the folder yet. */
	bool bStarted = false;
	TArray<FString> MountedRoots;
};

static TUniquePtr<FOpenProject>& Current()
{
	static TUniquePtr<FOpenProject> Project;
	return Project;
}

static FString ContentDir(const FOpenProject& Project)
{
	return Project.Directory / TEXT("Content");
}

static bool CanWrite(const FString& Folder)
{
	return faccessat(AT_FDCWD, TCHAR_TO_UTF8(*Folder), W_OK, AT_EACCESS) == 0;
}

/**
 * Who can make a file in the folder owns by it. Who cannot, but can write to its content, owns by the folder itself.
 * Each takes its own lock first and then looks at the other's, so that of two that come at once one sees the other. Who
 * can write to neither reads without owning.
 */
static FProjectLock::EOutcome TakeEither(FOpenProject& Project, FString& OutOwner)
{
	const std::string Folder = ToUtf8(Project.Directory);
	const std::string File = ToUtf8(Project.Directory / FProject::GetLockFileName());
	const FProjectLock::EOutcome OfFile = Project.Lock.Take(File, OutOwner);
	if (OfFile == FProjectLock::EOutcome::Taken)
	{
		FProjectLock Other;
		return Other.TakeFolder(Folder, OutOwner) == FProjectLock::EOutcome::Held ? FProjectLock::EOutcome::Held
																				  : OfFile;
	}
	if (OfFile != FProjectLock::EOutcome::ReadOnly || !CanWrite(ContentDir(Project)))
	{
		return OfFile;
	}
	const FProjectLock::EOutcome OfFolder = Project.FolderLock.TakeFolder(Folder, OutOwner);
	const bool bMine = OfFolder == FProjectLock::EOutcome::Taken;
	return bMine && FProjectLock::IsHeldByOther(File, OutOwner) ? FProjectLock::EOutcome::Held : OfFolder;
}

static bool TakeLock(FOpenProject& Project, FString& OutError)
{
	FString Owner;
	const FProjectLock::EOutcome Outcome = TakeEither(Project, Owner);
	Project.bReadOnly = Outcome == FProjectLock::EOutcome::ReadOnly;
	if (Outcome == FProjectLock::EOutcome::Taken || Project.bReadOnly)
	{
		return true;
	}
	Project.Lock.Release();
	Project.FolderLock.Release();
	OutError = Outcome == FProjectLock::EOutcome::Held
		? FString::Printf(TEXT("The project '%s' is in use by %s"), *Project.Directory, *Owner)
		: FString::Printf(TEXT("The project '%s' cannot be locked: %s"), *Project.Directory, *Owner);
	return false;
}

static void MountContent(FOpenProject& Project)
{
	FPackageName::RegisterMountPoint(TEXT("/Game/"), ContentDir(Project));
	IPluginManager::Get().RefreshPluginsList();
	for (const TSharedRef<IPlugin>& Plugin : IPluginManager::Get().GetEnabledPluginsWithContent())
	{
		FPackageName::RegisterMountPoint(Plugin->GetMountedAssetPath(), Plugin->GetContentDir());
		Project.MountedRoots.Add(Plugin->GetMountedAssetPath());
	}
}
static void SweepContent(const FOpenProject& Project)
{
	FPackageText::SweepTemporaryFiles(ContentDir(Project));
	for (const FString& Root : Project.MountedRoots)
	{
		FPackageText::SweepTemporaryFiles(FPackageName::GetContentPathForRoot(Root));
	}
}

/** A file that is there stays as it is. */
static void WriteNewFile(const FString& Path, const std::string_view Text)
{
	const int Handle = open(TCHAR_TO_UTF8(*Path), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644);
	const bool bWritten = Handle >= 0 && write(Handle, Text.data(), Text.size()) == static_cast<ssize_t>(Text.size());
	UE_CLOG(!bWritten, LogTemp, Verbose, TEXT("%s: not written"), *Path);
	if (Handle >= 0)
	{
		close(Handle);
	}
}

/** What git has to know of a project: that packages are no text to it, and which files are nobody else's business. */
static void WriteGitFiles(const FOpenProject& Project)
{
	WriteNewFile(Project.Directory / TEXT(".gitattributes"),
		"# A package has a checksum: no line end in it is converted, and a merge takes one side whole.\n"
		"*.uatext -text -merge\n");
	WriteNewFile(Project.Directory / TEXT(".gitignore"),
		"# The lock of the process that has the project open, and packages that are being written.\n"
		".editor.lock\n"
		".*.uatext.tmp\n");
}

/** The first package makes a folder a project. */
static void WatchSaves()
{
	static const bool bWatching = []
	{
		UPackage::PackageSavedWithContextEvent.AddLambda(
			[](const FString&, const UPackage*, const FObjectPostSaveContext&)
			{
				if (Current().IsValid() && Current()->bStarted)
				{
					Current()->bStarted = false;
					WriteGitFiles(*Current());
				}
			});
		return true;
	}();
	static_cast<void>(bWatching);
}
} // namespace Projects

bool FProject::Open(const FString& Directory, FString& OutError)
{
	FString Full = FPaths::ConvertRelativePathToFull(Directory);
	FPaths::NormalizeDirectoryName(Full);
	if (!IFileManager::Get().DirectoryExists(*Full))
	{
		OutError = FString::Printf(TEXT("There is no project folder '%s'"), *Full);
		return false;
	}
	const FString Real = FPathConfinement::Resolve(Full);
	if (IsOpen() && GetDirectory().Equals(Real, ESearchCase::CaseSensitive))
	{
		return true;
	}
	TUniquePtr<Projects::FOpenProject> Opening = MakeUnique<Projects::FOpenProject>();
	Opening->Directory = Real;
	if (!Projects::TakeLock(*Opening, OutError))
	{
		return false;
	}
	Close();
	FProjectPaths::SetProjectDir(Real);
	FPathConfinement::SetRoot(Real);
	FPackageText::RegisterLoader();
	FPackageText::SetReadOnly(Opening->bReadOnly);
	Projects::MountContent(*Opening);
	Projects::WatchSaves();
	Opening->bStarted = !Opening->bReadOnly && !IFileManager::Get().DirectoryExists(*Projects::ContentDir(*Opening));
	if (!Opening->bReadOnly)
	{
		Projects::SweepContent(*Opening);
	}
	Projects::Current() = MoveTemp(Opening);
	return true;
}

bool FProject::KeepLock(FString& OutError)
{
	Projects::FOpenProject& Project = *Projects::Current();
	if (Project.Lock.IsHeld() || Project.FolderLock.IsHeld())
	{
		return true;
	}
	const bool bKept = Projects::TakeLock(Project, OutError);
	FPackageText::SetReadOnly(Project.bReadOnly || !bKept);
	return bKept;
}

void FProject::Close()
{
	if (!IsOpen())
	{
		return;
	}
	FPackageName::UnRegisterMountPoint(TEXT("/Game/"), FString());
	for (const FString& Root : Projects::Current()->MountedRoots)
	{
		FPackageName::UnRegisterMountPoint(Root, FString());
	}
	FPathConfinement::SetRoot(FString());
	FPackageText::SetReadOnly(false);
	Projects::Current().Reset();
}

bool FProject::IsOpen()
{
	return Projects::Current().IsValid();
}

const FString& FProject::GetDirectory()
{
	static const FString None;
	return IsOpen() ? Projects::Current()->Directory : None;
}

FString FProject::GetName()
{
	return FPaths::GetCleanFilename(GetDirectory());
}

bool FProject::IsReadOnly()
{
	return IsOpen() && Projects::Current()->bReadOnly;
}

const TCHAR* FProject::GetLockFileName()
{
	return TEXT(".editor.lock");
}
