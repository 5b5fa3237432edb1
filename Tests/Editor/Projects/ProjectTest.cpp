#include "Standalone/Project.h"

#include "Interfaces/IPluginManager.h"
#include "Misc/PackageName.h"
#include "Standalone/PathConfinement.h"
#include "TemporaryFolder.h"
#include "TestAssets.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ProjectTests
{
/** Another process that has the project open. */
class FOtherOwner
{
public:
	explicit FOtherOwner(const FString& Directory)
	{
		int Pipe[2];
		if (pipe(Pipe) != 0)
		{
			return;
		}
		Process = fork();
		if (Process == 0)
		{
			FString Error;
			FProject::Close(); // what the parent has open
			const char Outcome = FProject::Open(Directory, Error) ? 'y' : 'n';
			const ssize_t Written = write(Pipe[1], &Outcome, 1);
			pause();
			_exit(Written == 1 ? 0 : 1);
		}
		char Answer = 'n';
		bOpened = read(Pipe[0], &Answer, 1) == 1 && Answer == 'y';
		close(Pipe[0]);
		close(Pipe[1]);
	}
	~FOtherOwner() { Kill(); }
	FOtherOwner(const FOtherOwner&) = delete;
	FOtherOwner& operator=(const FOtherOwner&) = delete;

	void Kill()
	{
		if (Process > 0)
		{
			kill(Process, SIGKILL);
			waitpid(Process, nullptr, 0);
			Process = -1;
		}
	}

	pid_t Process = -1;
	bool bOpened = false;
};

class Project : public testing::Test
{
protected:
	void SetUp() override { TestAssets::Register(); }
	void TearDown() override { FProject::Close(); }

	std::string Open(const std::string& Relative = std::string())
	{
		FString Error;
		return FProject::Open(Folder.Get(Relative), Error)
			? std::string()
			: ToUtf8(Error.Replace(*Folder.Get(), TEXT("P"), ESearchCase::CaseSensitive));
	}

	FTemporaryFolder Folder;
};
} // namespace ProjectTests

using ProjectTests::FOtherOwner;
using ProjectTests::Project;

TEST_F(Project, OpeningMakesNothingButTheLockAndClosingLeavesNothing)
{
	ASSERT_EQ(Open(), "");
	EXPECT_TRUE(Folder.Exists(".editor.lock"));
	EXPECT_FALSE(Folder.Exists("Content"));
	EXPECT_EQ(
		ToUtf8(FPackageName::LongPackageNameToFilename(TEXT("/Game/A/B"))), Folder.Path().string() + "/Content/A/B");
	EXPECT_EQ(Open(), "") << "opening the open project again is fine";

	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Game/Doors/Door"));
	EXPECT_EQ(ToUtf8(TestAssets::Save(Asset)), "");
	EXPECT_TRUE(Folder.Exists("Content/Doors/Door.uatext"));
	TestAssets::Unload(TEXT("/Game/Doors/Door"));
	FProject::Close();
	EXPECT_FALSE(Folder.Exists(".editor.lock"));
	EXPECT_FALSE(FProject::IsOpen());
}

TEST_F(Project, AFolderThatIsNotThereIsRefused)
{
	EXPECT_EQ(Open("None"), "There is no project folder 'P/None'");
	Folder.Write("File", "");
	EXPECT_EQ(Open("File"), "There is no project folder 'P/File'");
	EXPECT_FALSE(FProject::IsOpen());
}

TEST_F(Project, TheSecondProcessIsTurnedAwayUntilTheFirstIsGone)
{
	FOtherOwner Other(Folder.Get());
	ASSERT_TRUE(Other.bOpened);
	char Host[256] = {};
	gethostname(Host, sizeof(Host) - 1);
	EXPECT_EQ(Open(), "The project 'P' is in use by process " + std::to_string(Other.Process) + " on " + Host);
	EXPECT_FALSE(FProject::IsOpen());

	Other.Kill();
	EXPECT_TRUE(Folder.Exists(".editor.lock")) << "a killed owner cannot tidy up";
	EXPECT_EQ(Open(), "");
	EXPECT_EQ(Folder.Read(".editor.lock"), std::to_string(getpid()) + " " + Host + "\n");
}

TEST_F(Project, ARefusedProjectLeavesTheOpenOneOpen)
{
	std::filesystem::create_directories(Folder.Path() / "One");
	std::filesystem::create_directories(Folder.Path() / "Two");
	ASSERT_EQ(Open("One"), "");
	{
		FOtherOwner Other(Folder.Get("Two"));
		ASSERT_TRUE(Other.bOpened);
		EXPECT_NE(Open("Two"), "");
		EXPECT_EQ(ToUtf8(FProject::GetName()), "One");
	}
	EXPECT_EQ(Open("Two"), "");
	EXPECT_EQ(ToUtf8(FProject::GetName()), "Two");
	EXPECT_FALSE(Folder.Exists("One/.editor.lock"));
}

TEST_F(Project, PathsAreJudgedByWhereTheyLead)
{
	FTemporaryFolder Outside;
	std::filesystem::create_directories(Folder.Path() / "Content/Real");
	std::filesystem::create_directory_symlink(Outside.Path(), Folder.Path() / "Content/Out");
	std::filesystem::create_directory_symlink("Real", Folder.Path() / "Content/In");
	std::filesystem::create_symlink("Loop", Folder.Path() / "Content/Loop");
	std::filesystem::create_directories(Folder.Path().string() + "-twin");
	ASSERT_EQ(Open(), "");
	const std::string Root = Folder.Path().string();
	const struct
	{
		std::string Path;
		bool bInside;
	} Cases[] = {
		{Root, true},
		{Root + "/Content/New/Deep.uatext", true},
		{Root + "/Content/In/A.uatext", true},
		{Root + "/Content/Out/A.uatext", false},
		{Root + "/Content/Out/../A.uatext", false},
		{Root + "/Content/../../A", false},
		{Root + "/Content/Loop/A", false},
		{Root + "-twin/A", false},
		{"/etc/passwd", false},
		{"Content/A", false},
		{"", false},
	};
	for (const auto& Case : Cases)
	{
		FString Reason;
		EXPECT_EQ(FPathConfinement::IsInside(FromUtf8(Case.Path), Reason), Case.bInside) << Case.Path;
		EXPECT_EQ(Reason.IsEmpty(), Case.bInside) << Case.Path;
	}
	std::filesystem::remove_all(Folder.Path().string() + "-twin");
}

TEST_F(Project, PluginsMountTheirContent)
{
	FTemporaryFolder Outside;
	Outside.Write("Far.uplugin", "{}");
	Folder.Write("Plugins/Doors/Doors.uplugin", R"({"FriendlyName": "All doors", "CanContainContent": true})");
	Folder.Write("Plugins/Group/Walls/Walls.uplugin", "{}");
	Folder.Write("Plugins/Group/Walls/Content/x", "");
	Folder.Write("Plugins/Code/Code.uplugin", "{}");
	Folder.Write("Plugins/Off/Off.uplugin", R"({"CanContainContent": true, "EnabledByDefault": false})");
	Folder.Write("Plugins/Broken/Broken.uplugin", "{");
	Folder.Write("Plugins/Game/Game.uplugin", R"({"CanContainContent": true})");
	Folder.Write("Plugins/Notes/readme.txt", "");
	std::filesystem::create_directory_symlink(Outside.Path(), Folder.Path() / "Plugins/Far");
	ASSERT_EQ(Open(), "");
	TArray<FString> Mounted;
	for (const TSharedRef<IPlugin>& Plugin : IPluginManager::Get().GetEnabledPluginsWithContent())
	{
		Mounted.Add(Plugin->GetMountedAssetPath());
	}
	EXPECT_EQ(ToUtf8(FString::Join(Mounted, TEXT(" "))), "/Doors/ /Walls/");
	EXPECT_EQ(IPluginManager::Get().GetDiscoveredPlugins().Num(), 4);
	const TSharedPtr<IPlugin> Doors = IPluginManager::Get().FindPlugin(TEXT("doors"));
	ASSERT_TRUE(Doors.IsValid());
	EXPECT_EQ(ToUtf8(Doors->GetFriendlyName()), "All doors");
	EXPECT_EQ(ToUtf8(FPackageName::LongPackageNameToFilename(TEXT("/Walls/A"))),
		Folder.Path().string() + "/Plugins/Group/Walls/Content/A");
	FProject::Close();
	EXPECT_FALSE(FPackageName::MountPointExists(TEXT("/Walls/")));
}

TEST_F(Project, TheProjectFileSwitchesPlugins)
{
	Folder.Write("Plugins/Doors/Doors.uplugin", R"({"CanContainContent": true})");
	Folder.Write("Plugins/Off/Off.uplugin", R"({"CanContainContent": true, "EnabledByDefault": false})");
	Folder.Write(Folder.Path().filename().string() + ".uproject",
		R"({"Plugins": [{"Name": "Doors", "Enabled": false}, {"Name": "Off", "Enabled": true}]})");
	ASSERT_EQ(Open(), "");
	EXPECT_FALSE(IPluginManager::Get().FindPlugin(TEXT("Doors"))->IsEnabled());
	EXPECT_TRUE(IPluginManager::Get().FindPlugin(TEXT("Off"))->IsEnabled());
}

TEST_F(Project, ALockThatIsAnothersNowIsLeftToIt)
{
	ASSERT_EQ(Open(), "");
	std::filesystem::remove(Folder.Path() / ".editor.lock");
	{
		FOtherOwner Other(Folder.Get());
		ASSERT_TRUE(Other.bOpened);
		const std::string Theirs = Folder.Read(".editor.lock");
		FString Error;
		EXPECT_FALSE(FProject::KeepLock(Error));
		EXPECT_NE(ToUtf8(Error).find("is in use by process "), std::string::npos) << ToUtf8(Error);
		UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Game/Late"));
		EXPECT_NE(ToUtf8(TestAssets::Save(Asset)).find("the project is open for reading only"), std::string::npos);
		FProject::Close();
		EXPECT_EQ(Folder.Read(".editor.lock"), Theirs);
		EXPECT_NE(Open(), "");
	}
	EXPECT_EQ(Open(), "");
	std::filesystem::remove(Folder.Path() / ".editor.lock");
	FString Error;
	EXPECT_TRUE(FProject::KeepLock(Error)) << ToUtf8(Error);
	EXPECT_TRUE(Folder.Exists(".editor.lock")) << "a lock file that somebody removed is made again";
	TestAssets::Unload(TEXT("/Game/Late"));
}

TEST_F(Project, AForkedChildGivesNothingBack)
{
	ASSERT_EQ(Open(), "");
	const pid_t Child = fork();
	if (Child == 0)
	{
		FProject::Close();
		_exit(0);
	}
	waitpid(Child, nullptr, 0);
	EXPECT_TRUE(Folder.Exists(".editor.lock"));
}

TEST_F(Project, WhatStandsInTheLocksPlaceIsNotWrittenThrough)
{
	FTemporaryFolder Outside;
	Outside.Write("file", "outside");
	const std::filesystem::path Lock = Folder.Path() / ".editor.lock";
	std::filesystem::create_hard_link(Outside.Path() / "file", Lock);
	EXPECT_EQ(Open(), "") << "the other name keeps its file, this one gets a new one";
	FProject::Close();
	EXPECT_EQ(Outside.Read("file"), "outside");

	std::filesystem::create_symlink(Outside.Path() / "file", Lock);
	EXPECT_EQ(Open(), "The project 'P' cannot be locked: a link stands in the place of its lock file");
	std::filesystem::remove(Lock);
	ASSERT_EQ(mkfifo(Lock.c_str(), 0644), 0);
	EXPECT_EQ(Open(), "The project 'P' cannot be locked: its lock file is no file");
	EXPECT_EQ(Outside.Read("file"), "outside");
}

namespace ProjectTests
{
/** What a user who owns nothing here sees when opening the project: the error, and whether it is for reading only. */
static std::string OpenAsNobody(const FString& Directory)
{
	int Pipe[2];
	EXPECT_EQ(pipe(Pipe), 0);
	const pid_t Child = fork();
	if (Child == 0)
	{
		FString Error = TEXT("not another user");
		FProject::Close(); // what the parent has open
		const bool bOpen = seteuid(65534) == 0 && FProject::Open(Directory, Error);
		const std::string Text = bOpen ? (FProject::IsReadOnly() ? "reader" : "owner") : ToUtf8(Error);
		const ssize_t Written = write(Pipe[1], Text.data(), Text.size());
		_exit(Written < 0 ? 1 : 0);
	}
	close(Pipe[1]);
	char Text[1000];
	const ssize_t Count = read(Pipe[0], Text, sizeof(Text));
	close(Pipe[0]);
	waitpid(Child, nullptr, 0);
	return std::string(Text, static_cast<std::size_t>(std::max<ssize_t>(Count, 0)));
}
} // namespace ProjectTests

TEST_F(Project, AFolderThatCannotBeWrittenIsOwnedWhereItsContentCanBe)
{
	if (geteuid() != 0)
	{
		GTEST_SKIP() << "needs two users";
	}
	const std::filesystem::path Content = Folder.Path() / "Content";
	std::filesystem::create_directory(Content);
	chmod(Folder.Path().c_str(), 0755);
	EXPECT_EQ(ProjectTests::OpenAsNobody(Folder.Get()), "reader");
	chmod(Content.c_str(), 0777);
	EXPECT_EQ(ProjectTests::OpenAsNobody(Folder.Get()), "owner");
	ASSERT_EQ(Open(), "");
	EXPECT_NE(ProjectTests::OpenAsNobody(Folder.Get()).find("is in use by process"), std::string::npos);
	FProject::Close();

	const int Handle = open(Folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
	ASSERT_EQ(flock(Handle, LOCK_EX), 0) << "as such an owner does";
	EXPECT_EQ(Open(), "The project 'P' is in use by another process");
	EXPECT_FALSE(Folder.Exists(".editor.lock"));
	close(Handle);
}

TEST_F(Project, TheFirstPackageTellsGitAndTouchesNothingThatIsThere)
{
	Folder.Write(".gitignore", "mine\n");
	Folder.Write("Content/.A.uatext.tmp", "half");
	ASSERT_EQ(Open(), "");
	EXPECT_FALSE(Folder.Exists("Content/.A.uatext.tmp")) << "what a killed process left";
	ASSERT_EQ(ToUtf8(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Game/A")))), "");
	EXPECT_FALSE(Folder.Exists(".gitattributes")) << "a project that was there is its owner's business";
	FProject::Close();
	TestAssets::Unload(TEXT("/Game/A"));

	std::filesystem::remove_all(Folder.Path() / "Content");
	ASSERT_EQ(Open(), "");
	EXPECT_FALSE(Folder.Exists(".gitattributes"));
	ASSERT_EQ(ToUtf8(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Game/A")))), "");
	EXPECT_NE(Folder.Read(".gitattributes").find("*.uatext -text -merge\n"), std::string::npos);
	EXPECT_EQ(Folder.Read(".gitignore"), "mine\n");
	TestAssets::Unload(TEXT("/Game/A"));
}
