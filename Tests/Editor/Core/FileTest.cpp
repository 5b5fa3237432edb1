#include "CoreMinimal.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace FileTests
{
class FileHelper : public testing::Test
{
protected:
	FString PathTo(const TCHAR* Name) const { return Folder.Get() / Name; }

	const FTemporaryFolder Folder;
};

TEST_F(FileHelper, TextGoesThroughUtf8AndMakesItsFolder)
{
	const FString Path = PathTo(TEXT("deep/er/file.txt"));
	const FString Written(TEXT("\u00E4\u20AC\U0001F600\nline"));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(Written, *Path));
	EXPECT_EQ(IFileManager::Get().FileSize(*Path), 2 + 3 + 4 + 5);
	FString Read;
	EXPECT_TRUE(FFileHelper::LoadFileToString(Read, *Path));
	EXPECT_TRUE(Read.Equals(Written));
	TArray<FString> Found;
	IFileManager::Get().FindFilesRecursive(Found, *Folder.Get(), TEXT("*.TXT"), true, false);
	EXPECT_EQ(Found, TArray<FString>{Path});
}

TEST_F(FileHelper, BadBytesAndMissingFilesAreExplained)
{
	const FString Path = PathTo(TEXT("bad.txt"));
	const uint8 Bytes[] = {0xEF, 0xBB, 0xBF, 'a', 0xFF};
	ASSERT_TRUE(FFileHelper::SaveArrayToFile(Bytes, *Path));
	FString Text(TEXT("old"));
	FString Error;
	EXPECT_FALSE(FFileHelper::LoadFileToString(Text, *Path, Error));
	EXPECT_TRUE(Error.EndsWith(TEXT("bad.txt' is not valid UTF-8 at byte 4"))) << ToUtf8(Error);
	EXPECT_TRUE(Text.IsEmpty());
	EXPECT_FALSE(FFileHelper::LoadFileToString(Text, *PathTo(TEXT("absent")), Error));
	EXPECT_TRUE(Error.StartsWith(TEXT("Cannot open '"))) << ToUtf8(Error);
	EXPECT_FALSE(FFileHelper::LoadFileToString(Text, *Folder.Get(), Error));
}

TEST_F(FileHelper, ReadOnlyFilesAreNotDeletedUnlessAsked)
{
	const FString Path = PathTo(TEXT("locked.txt"));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(TEXT("x"), *Path));
	EXPECT_FALSE(IFileManager::Get().IsReadOnly(*Path));
	std::filesystem::permissions(ToUtf8(Path), std::filesystem::perms::owner_read);
	EXPECT_TRUE(IFileManager::Get().IsReadOnly(*Path));
	EXPECT_FALSE(IFileManager::Get().Delete(*Path));
	EXPECT_TRUE(IFileManager::Get().Delete(*Path, false, true));
	EXPECT_FALSE(IFileManager::Get().FileExists(*Path));
}

TEST(Paths, PartsOfAPath)
{
	const struct
	{
		const TCHAR* Path;
		const char* Base;
		const char* Extension;
		const char* Directory;
	} Cases[] = {{TEXT("/a/b.c/d.tar.gz"), "d.tar", "gz", "/a/b.c"}, {TEXT("/a.b/c"), "c", "", "/a.b"},
		{TEXT("name"), "name", "", ""}, {TEXT("a\\b.txt"), "b", "txt", "a"}, {TEXT("/x/"), "", "", "/x"}};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(ToUtf8(FPaths::GetBaseFilename(Case.Path)), Case.Base);
		EXPECT_EQ(ToUtf8(FPaths::GetExtension(Case.Path)), Case.Extension);
		EXPECT_EQ(ToUtf8(FPaths::GetPath(Case.Path)), Case.Directory);
	}
	EXPECT_EQ(ToUtf8(FPaths::Combine(TEXT("/a/"), FString(), TEXT("b"), FString(TEXT("c")))), "/a/b/c");
}

static FString ModuleLog;

template <TCHAR Letter>
struct TModule : IModuleInterface
{
	void StartupModule() override { ModuleLog += Letter; }
	void ShutdownModule() override { ModuleLog += FChar::ToLower(Letter); }
	static IModuleInterface* Create() { return new TModule; }
};

TEST(Modules, StartOnceAndStopInReverse)
{
	FModuleManager Manager;
	Manager.RegisterStaticModule(TEXT("First"), &TModule<TEXT('A')>::Create);
	Manager.RegisterStaticModule(TEXT("Second"), &TModule<TEXT('B')>::Create);
	EXPECT_EQ(Manager.GetModule(TEXT("First")), nullptr);
	IModuleInterface* const First = Manager.LoadModule(TEXT("First"));
	EXPECT_EQ(Manager.LoadModule(TEXT("FIRST")), First);
	EXPECT_NE(Manager.LoadModule(TEXT("Second")), nullptr);
	EXPECT_EQ(Manager.LoadModule(TEXT("Unknown")), nullptr);
	Manager.UnloadModulesAtShutdown();
	EXPECT_EQ(ToUtf8(ModuleLog), "ABba");
	EXPECT_FALSE(Manager.IsModuleLoaded(TEXT("First")));
}
}
