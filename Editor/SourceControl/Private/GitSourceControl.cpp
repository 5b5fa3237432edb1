#include "GitSourceControl.h"

#include "HAL/FileManager.h"
#include "Misc/Paths.h"
#include "Standalone/FileRemoval.h"

#include <cstdlib>
#include <git2.h>
#include <memory>

namespace GitSourceControl
{
DEFINE_LOG_CATEGORY_STATIC(LogSourceControl, Log, All);

using FIndexPtr = std::unique_ptr<git_index, decltype(&git_index_free)>;

static FString LastError()
{
	const git_error* const Error = git_error_last();
	return Error && Error->message ? FromUtf8(Error->message) : FString(TEXT("git gave no reason"));
}

/** The index as it is on disk now. */
static FIndexPtr OpenIndex(git_repository* Repository)
{
	git_index* Index = nullptr;
	if (git_repository_index(&Index, Repository) != 0 || git_index_read(Index, 0) != 0)
	{
		git_index_free(Index);
		Index = nullptr;
	}
	return FIndexPtr(Index, &git_index_free);
}

static bool IsTracked(git_index* Index, const std::string& Path)
{
	return git_index_get_bypath(Index, Path.c_str(), GIT_INDEX_STAGE_NORMAL) != nullptr;
}

static bool HasConflict(git_index* Index, const std::string& Path)
{
	const git_index_entry* Entries[3] = {};
	return git_index_conflict_get(&Entries[0], &Entries[1], &Entries[2], Index, Path.c_str()) == 0;
}

static std::string RealPath(const std::string& Path)
{
	const std::unique_ptr<char, decltype(&std::free)> Resolved(realpath(Path.c_str(), nullptr), &std::free);
	return Resolved ? std::string(Resolved.get()) : Path;
}

class FState final : public ISourceControlState
{
public:
	explicit FState(uint32 InStatus)
		: Status(InStatus)
	{
	}
	bool IsConflicted() const override { return (Status & GIT_STATUS_CONFLICTED) != 0; }
	bool CanAdd() const override { return (Status & GIT_STATUS_WT_NEW) != 0; }

private:
	const uint32 Status;
};
} // namespace GitSourceControl

TUniquePtr<FGitSourceControl> FGitSourceControl::Find(const FString& Directory)
{
	static const int Started = git_libgit2_init();
	git_repository* Repository = nullptr;
	const int Outcome = Started > 0 ? git_repository_open_ext(&Repository, TCHAR_TO_UTF8(*Directory), 0, nullptr)
									: GIT_ENOTFOUND;
	if (Outcome != 0)
	{
		UE_CLOG(Outcome != GIT_ENOTFOUND, GitSourceControl::LogSourceControl, Warning,
			TEXT("The git work tree around '%s' cannot be opened, so there is no source control: %s"), *Directory,
			*GitSourceControl::LastError());
		return nullptr;
	}
	if (!git_repository_workdir(Repository))
	{
		git_repository_free(Repository);
		return nullptr;
	}
	return TUniquePtr<FGitSourceControl>(new FGitSourceControl(Repository));
}

FGitSourceControl::FGitSourceControl(git_repository* InRepository)
	: Repository(InRepository)
{
}

FGitSourceControl::~FGitSourceControl()
{
	git_repository_free(Repository);
}

const FName& FGitSourceControl::GetName() const
{
	static const FName Name(TEXT("Git"));
	return Name;
}

FText FGitSourceControl::GetStatusText() const
{
	return FText::FromString(FString::Printf(TEXT("Git work tree %s"), *FromUtf8(git_repository_workdir(Repository))));
}

ECommandResult::Type FGitSourceControl::Execute(
	const FSourceControlOperationRef& Operation, const TArray<FString>& Files, EConcurrency::Type)
{
	const FName Name = Operation->GetName();
	for (const FString& File : Files)
	{
		const FString Problem = Name == TEXT("CheckOut") ? CheckOut(File)
			: Name == TEXT("MarkForAdd")				 ? Add(File)
			: Name == TEXT("Delete")					 ? Remove(File)
									 : FString::Printf(TEXT("Git has no operation '%s'."), *Name.ToString());
		if (!Problem.IsEmpty())
		{
			Operation->AddErrorMessage(FText::FromString(Problem));
		}
	}
	return Operation->GetResultInfo().HasErrors() ? ECommandResult::Failed : ECommandResult::Succeeded;
}

bool FGitSourceControl::RelativePath(const FString& File, std::string& OutPath) const
{
	const std::string Root = GitSourceControl::RealPath(git_repository_workdir(Repository)) + "/";
	const std::string Full = ToUtf8(FPaths::ConvertRelativePathToFull(File));
	const std::size_t Slash = Full.rfind('/');
	const std::string Real = GitSourceControl::RealPath(Full.substr(0, Slash)) + Full.substr(Slash);
	if (Real.compare(0, Root.size(), Root) != 0)
	{
		return false;
	}
	OutPath = Real.substr(Root.size());
	return true;
}

FString FGitSourceControl::CheckOut(const FString& File)
{
	if (IFileManager::Get().IsReadOnly(*File))
	{
		return FString::Printf(TEXT("The file '%s' is read-only."), *File);
	}
	std::string Path;
	const GitSourceControl::FIndexPtr Index = GitSourceControl::OpenIndex(Repository);
	if (Index && RelativePath(File, Path) && GitSourceControl::HasConflict(Index.get(), Path))
	{
		return FString::Printf(TEXT("The file '%s' has a merge conflict that is not resolved."), *File);
	}
	return FString();
}

FString FGitSourceControl::Add(const FString& File)
{
	std::string Path;
	if (!RelativePath(File, Path))
	{
		return FString::Printf(TEXT("The file '%s' lies outside of the git work tree."), *File);
	}
	const GitSourceControl::FIndexPtr Index = GitSourceControl::OpenIndex(Repository);
	if (!Index)
	{
		return FString::Printf(TEXT("The git index cannot be read: %s."), *GitSourceControl::LastError());
	}
	if (GitSourceControl::IsTracked(Index.get(), Path))
	{
		return FString();
	}
	int bIgnored = 0;
	if (git_ignore_path_is_ignored(&bIgnored, Repository, Path.c_str()) == 0 && bIgnored)
	{
		return FString::Printf(TEXT("The file '%s' is ignored by git."), *File);
	}
	if (git_index_add_bypath(Index.get(), Path.c_str()) != 0 || git_index_write(Index.get()) != 0)
	{
		return FString::Printf(
			TEXT("The file '%s' cannot be added to the git index: %s."), *File, *GitSourceControl::LastError());
	}
	return FString();
}

FString FGitSourceControl::Remove(const FString& File)
{
	if (IFileManager::Get().IsReadOnly(*File))
	{
		return FString::Printf(TEXT("The file '%s' is read-only."), *File);
	}
	std::string Path;
	const GitSourceControl::FIndexPtr Index = GitSourceControl::OpenIndex(Repository);
	if (!Index)
	{
		// Whether the file is in a conflict, and so what its loss would mean, cannot be told.
		return FString::Printf(TEXT("The git index cannot be read: %s."), *GitSourceControl::LastError());
	}
	const bool bInside = RelativePath(File, Path);
	if (bInside && GitSourceControl::HasConflict(Index.get(), Path))
	{
		return FString::Printf(TEXT("The file '%s' has a merge conflict that is not resolved."), *File);
	}
	const FString Problem = RemoveFileForGood(File);
	if (!Problem.IsEmpty() || !bInside || !GitSourceControl::IsTracked(Index.get(), Path))
	{
		return Problem;
	}
	if (git_index_remove_bypath(Index.get(), Path.c_str()) != 0 || git_index_write(Index.get()) != 0)
	{
		return FString::Printf(
			TEXT("The file '%s' cannot be taken out of the git index: %s."), *File, *GitSourceControl::LastError());
	}
	return FString();
}

FSourceControlStatePtr FGitSourceControl::GetState(const FString& Filename, EStateCacheUsage::Type)
{
	std::string Path;
	unsigned int Status = 0;
	const GitSourceControl::FIndexPtr Index = GitSourceControl::OpenIndex(Repository);
	if (!Index || !RelativePath(Filename, Path) || git_status_file(&Status, Repository, Path.c_str()) != 0)
	{
		return nullptr;
	}
	return MakeShared<GitSourceControl::FState>(Status);
}
