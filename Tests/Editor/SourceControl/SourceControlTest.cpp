#include "ISourceControlModule.h"
#include "SourceControlHelpers.h"
#include "SourceControlOperations.h"

#include "AssetOperationBase.h"
#include "HAL/FileManager.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/StringOutputDevice.h"
#include "Standalone/ProjectPaths.h"
#include "TemporaryFolder.h"
#include "UObject/Package.h"

#include <git2.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace SourceControlTests
{
class SourceControl : public testing::Test
{
protected:
	void SetUp() override { FProjectPaths::SetProjectDir(Folder.Get()); }
	void TearDown() override { FProjectPaths::SetProjectDir(FString()); }

	/** Without the folder's own path. */
	std::string Shorten(const FString& Text) const
	{
		return ToUtf8(Text.Replace(*(Folder.Get() + TEXT("/")), TEXT(""), ESearchCase::CaseSensitive));
	}
	std::string LastError() const { return Shorten(USourceControlHelpers::LastErrorMsg().ToString()); }
	void SetMode(const char* Relative, mode_t Mode) const { chmod((Folder.Path() / Relative).c_str(), Mode); }

	FTemporaryFolder Folder;
};

class GitSourceControl : public SourceControl
{
protected:
	void SetUp() override
	{
		SourceControl::SetUp();
		git_libgit2_init();
		ASSERT_EQ(git_repository_init(&Repository, Folder.Path().c_str(), 0), 0);
	}
	void TearDown() override
	{
		git_repository_free(Repository);
		git_libgit2_shutdown();
		SourceControl::TearDown();
	}

	/** Paths in the index as another program sees it, in git's order. */
	std::string Staged() const
	{
		git_index* Index = nullptr;
		git_repository_index(&Index, Repository);
		git_index_read(Index, 1);
		std::string Paths;
		for (std::size_t Entry = 0; Entry < git_index_entrycount(Index); ++Entry)
		{
			Paths += (Paths.empty() ? "" : " ") + std::string(git_index_get_byindex(Index, Entry)->path);
		}
		git_index_free(Index);
		return Paths;
	}

	git_repository* Repository = nullptr;
};
} // namespace SourceControlTests

using SourceControlTests::GitSourceControl;
using SourceControlTests::SourceControl;

TEST_F(SourceControl, WithoutGitItsHelpersRefuseEverything)
{
	Folder.Write("A.uatext", "");
	EXPECT_EQ(ToUtf8(USourceControlHelpers::CurrentProvider()), "None");
	EXPECT_FALSE(USourceControlHelpers::IsEnabled());
	EXPECT_FALSE(USourceControlHelpers::CheckOutFile(Folder.Get("A.uatext")));
	EXPECT_FALSE(USourceControlHelpers::MarkFileForAdd(Folder.Get("A.uatext")));
	EXPECT_FALSE(USourceControlHelpers::MarkFileForDelete(Folder.Get("A.uatext")));
	EXPECT_EQ(LastError(), "There is no source control.");
	EXPECT_TRUE(Folder.Exists("A.uatext"));
}

TEST_F(SourceControl, WithoutGitTheProgramAndTheReadOnlyFlagDecide)
{
	const auto Refusal = [this](const char* Name)
	{
		FString Reason;
		const bool bMayBeWritten = FAssetOperationBase::CanWritePackageFile(TEXT("/Game/A"), Folder.Get(Name), Reason);
		EXPECT_EQ(bMayBeWritten, Reason.IsEmpty());
		return Shorten(Reason);
	};
	Folder.Write("A.uatext", "");
	EXPECT_EQ(Refusal("A.uatext"), "");
	EXPECT_EQ(Refusal("New.uatext"), "") << "a file that does not exist yet";
	SetMode("A.uatext", 0444);
	EXPECT_EQ(
		Refusal("A.uatext"), "The file 'A.uatext' is read-only and there is no source control to check it out from.");
	SetMode("A.uatext", 0644);
	EXPECT_NE(Refusal("A.uasset").find("is a binary package of the engine's editor"), std::string::npos);
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Game/A")), nullptr) << "the question leaves nothing behind";
}

TEST_F(GitSourceControl, NewFilesGoIntoTheIndexAndChangedOnesAreLeftAlone)
{
	Folder.Write("Content/A.uatext", "one");
	Folder.Write("Content/B.uatext", "two");
	EXPECT_EQ(ToUtf8(USourceControlHelpers::CurrentProvider()), "Git");
	EXPECT_TRUE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Content/A.uatext"))) << LastError();
	EXPECT_EQ(Staged(), "Content/A.uatext");
	Folder.Write("Content/A.uatext", "changed");
	EXPECT_TRUE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Content/A.uatext")));
	unsigned int Status = 0;
	ASSERT_EQ(git_status_file(&Status, Repository, "Content/A.uatext"), 0);
	EXPECT_TRUE(Status & GIT_STATUS_WT_MODIFIED) << "what is staged is for whoever commits to decide";

	EXPECT_TRUE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Content/B.uatext")));
	EXPECT_EQ(Staged(), "Content/A.uatext Content/B.uatext");
	EXPECT_TRUE(USourceControlHelpers::MarkFileForDelete(Folder.Get("Content/A.uatext"))) << LastError();
	EXPECT_EQ(Staged(), "Content/B.uatext");
	EXPECT_FALSE(Folder.Exists("Content/A.uatext"));
}

TEST_F(GitSourceControl, RefusalsSayWhy)
{
	FTemporaryFolder Outside;
	Outside.Write("X", "");
	Folder.Write("Content/A.uatext", "");
	Folder.Write("Saved/Ignored.uatext", "");
	Folder.Write(".gitignore", "Saved/\n");
	EXPECT_FALSE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Saved/Ignored.uatext")));
	EXPECT_EQ(LastError(), "The file 'Saved/Ignored.uatext' is ignored by git.");
	EXPECT_FALSE(USourceControlHelpers::MarkFileForAdd(Outside.Get("X")));
	EXPECT_EQ(LastError(), "The file '" + Outside.Path().string() + "/X' lies outside of the git work tree.");
	EXPECT_FALSE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Content/None.uatext")));
	EXPECT_EQ(LastError().find("The file 'Content/None.uatext' cannot be added to the git index: "), 0u) << LastError();
	Folder.Write(".git/index.lock", "");
	EXPECT_FALSE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Content/A.uatext")));
	EXPECT_EQ(LastError().find("The file 'Content/A.uatext' cannot be added to the git index: "), 0u) << LastError();
	SetMode("Content/A.uatext", 0444);
	EXPECT_FALSE(USourceControlHelpers::CheckOutFile(Folder.Get("Content/A.uatext")));
	EXPECT_EQ(LastError(), "The file 'Content/A.uatext' is read-only.");
}

TEST_F(GitSourceControl, AProjectInASubFolderBelongsToTheWorkTreeAroundIt)
{
	Folder.Write("Game/Content/A.uatext", "");
	FProjectPaths::SetProjectDir(Folder.Get("Game"));
	EXPECT_TRUE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Game/Content/A.uatext"))) << LastError();
	EXPECT_EQ(Staged(), "Game/Content/A.uatext");
}

TEST_F(SourceControl, ADeletionIsASuccessOnlyWhenTheFileIsGone)
{
	FStringOutputDevice Heard;
	FOutputDeviceRedirector::Get()->AddOutputDevice(&Heard);
	const auto Delete = [this](const std::string& Name) { return IFileManager::Get().Delete(*Folder.Get(Name)); };
	const auto LastTold = [&] { return Shorten(Heard); };
	EXPECT_TRUE(Delete("None.uatext")) << "it is gone";
	EXPECT_TRUE(Delete("No/Such/Folder.uatext"));
	std::filesystem::create_directories(Folder.Path() / "Folder.uatext");
	EXPECT_FALSE(Delete("Folder.uatext"));
	EXPECT_EQ(LastTold(), "The file 'Folder.uatext' could not be deleted: Is a directory.");
	std::filesystem::create_symlink("Loop", Folder.Path() / "Loop");
	EXPECT_FALSE(Delete("Loop/A.uatext")) << "a question that failed is no answer";
	EXPECT_NE(LastTold().find("Too many levels of symbolic links"), std::string::npos) << LastTold();
	const std::string Long(300, 'a');
	EXPECT_FALSE(Delete(Long));
	FOutputDeviceRedirector::Get()->RemoveOutputDevice(&Heard);
}

TEST_F(GitSourceControl, AFileInMergeConflictIsNotDeleted)
{
	Folder.Write("Content/A.uatext", "one");
	ASSERT_TRUE(USourceControlHelpers::MarkFileForAdd(Folder.Get("Content/A.uatext")));
	git_index* Index = nullptr;
	git_repository_index(&Index, Repository);
	git_index_read(Index, 1);
	const git_index_entry Entry = *git_index_get_bypath(Index, "Content/A.uatext", 0);
	git_index_entry Ours = Entry;
	git_index_entry Theirs = Entry;
	ASSERT_EQ(git_index_conflict_add(Index, nullptr, &Ours, &Theirs), 0);
	git_index_remove(Index, "Content/A.uatext", 0);
	ASSERT_EQ(git_index_write(Index), 0);
	git_index_free(Index);
	EXPECT_FALSE(USourceControlHelpers::MarkFileForDelete(Folder.Get("Content/A.uatext")));
	EXPECT_EQ(LastError(), "The file 'Content/A.uatext' has a merge conflict that is not resolved.");
	EXPECT_TRUE(Folder.Exists("Content/A.uatext"));

	Folder.Write(".git/index", "no index");
	EXPECT_FALSE(USourceControlHelpers::MarkFileForDelete(Folder.Get("Content/A.uatext")));
	EXPECT_NE(LastError().find("The git index cannot be read: "), std::string::npos) << LastError();
	EXPECT_TRUE(Folder.Exists("Content/A.uatext"));
}
