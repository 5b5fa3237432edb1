#include "Standalone/Project.h"

#include "HAL/FileManager.h"
#include "Interfaces/IPluginManager.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "ProjectLock.h"
#include "Standalone/PackageText.h"
#include "Standalone/PathConfinement.h"
#include "Standalone/ProjectPaths.h"

namespace Projects
{
struct FOpenProject
{
	FString Directory;
	FProjectLock Lock;
	bool bReadOnly = false;
	TArray<FString> MountedRoots;
};

TUniquePtr<FOpenProject>& Current()
{
	static TUniquePtr<FOpenProject> Project;
	return Project;
}

bool TakeLock(FOpenProject& Project, FString& OutError)
{
	const FString Path = Project.Directory / FProject::GetLockFileName();
	FString Owner;
	switch (Project.Lock.Take(ToUtf8(Path), Owner))
	{
	case FProjectLock::EOutcome::Taken:
		return true;
	case FProjectLock::EOutcome::ReadOnly:
		Project.bReadOnly = true;
		return true;
	case FProjectLock::EOutcome::Held:
		OutError = FString::Printf(TEXT("The project '%s' is in use by %s"), *Project.Directory, *Owner);
		return false;
	case FProjectLock::EOutcome::Failed:
		OutError = FString::Printf(TEXT("The project '%s' cannot be locked: %s"), *Project.Directory, *Owner);
		return false;
	}
	return false;
}

void MountContent(FOpenProject& Project)
{
	FPackageName::RegisterMountPoint(TEXT("/Game/"), Project.Directory / TEXT("Content"));
	IPluginManager::Get().RefreshPluginsList();
	for (const TSharedRef<IPlugin>& Plugin : IPluginManager::Get().GetEnabledPluginsWithContent())
	{
		FPackageName::RegisterMountPoint(Plugin->GetMountedAssetPath(), Plugin->GetContentDir());
		Project.MountedRoots.Add(Plugin->GetMountedAssetPath());
	}
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
	Projects::MountContent(*Opening);
	Projects::Current() = MoveTemp(Opening);
	return true;
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
