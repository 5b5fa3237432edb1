#include "PackageTest.h"
#include "Standalone/ObjectText.h"
#include "Standalone/PathConfinement.h"

#include <regex>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

/** What must be refused, with its message, and what stood on the disk must stay. */
class PackageRefusals : public FPackageTest
{
protected:
	/** The bytes of a small saved package that is not in memory any more. */
	std::string SavedBytes()
	{
		UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Thing"));
		Asset->Title = TEXT("text");
		EXPECT_EQ(Relative(TestAssets::Save(Asset)), "");
		UnloadAll();
		return Folder.Read("Thing.uatext");
	}
};

TEST_F(PackageRefusals, FilesThatAreNoWholePackageAreNamedAndNeverOverwritten)
{
	const std::string Good = SavedBytes();
	const auto Changed = [&](const char* From, const char* To)
	{
		std::string Text = Good;
		return Text.replace(Text.find(From), std::string(From).size(), To);
	};
	const struct
	{
		const char* Label;
		std::string Bytes;
		const char* Expected;
	} Cases[] = {
		{"empty", "", "Thing.uatext: the file is not a text package"},
		{"other text", "Begin Object Class=/S.C Name=\"A\"\nEnd Object\n",
			"Thing.uatext: the file is not a text package"},
		{"engine binary", std::string("\xC1\x83\x2A\x9E\x08\0\0\0", 8),
			"Thing.uatext: the file is a package of the engine's own editor; with a name that ends in '.uasset' it is read"},
		{"newer", Changed("uatext 1", "uatext 2"),
			"Thing.uatext: the file has format version 2, this program reads up to version 1"},
		{"older", Changed("uatext 1", "uatext 0"),
			"Thing.uatext: the file has format version 0, this program reads up to version 1"},
		{"Git LFS pointer", "version https://git-lfs.github.com/spec/v1\noid sha256:4d7a\nsize 12345\n",
			"Thing.uatext: the file is a Git LFS pointer in place of the asset; 'git lfs pull' fetches the asset"},
		{"conflict in the header", Changed("Checksum=", "<<<<<<< HEAD\nChecksum="),
			"Thing.uatext: the file has merge conflict markers (line 2); resolve the conflict by taking one side whole"},
		{"conflict in the text", Changed("End Object", "=======\n>>>>>>> theirs\nEnd Object"),
			"Thing.uatext: the file has merge conflict markers (line "},
		{"CRLF", std::regex_replace(Good, std::regex("\n"), "\r\n"),
			"Thing.uatext: the file has CRLF line ends, which git or another program has put in; set '*.uatext -text' in"},
		{"CRLF in one place", Changed("End Object", "\r\nEnd Object"), "Thing.uatext: the file has CRLF line ends, "},
		{"byte order mark", "\xEF\xBB\xBF" + Good, "Thing.uatext: the file begins with a byte order mark: "},
		{"cut in the header", Good.substr(0, 40), "Thing.uatext: the file is truncated within its header"},
		{"cut in the text", Good.substr(0, Good.size() - 20), "Thing.uatext: the file is truncated: "},
		{"one bit", Changed("text\"", "tert\""),
			"Thing.uatext: the file is damaged: its checksum does not match its contents"},
		{"header field", Changed("Asset=Thing", "Asset=Thinh"),
			"Thing.uatext: the file is damaged: its checksum does not match its contents"},
		{"bad header line", Changed("Asset=Thing", "Asset Thing"),
			"Thing.uatext: the file is damaged: its header is malformed"},
		{"appended", Good + "\n", "Thing.uatext: the file is damaged: its checksum does not match its contents"},
	};
	for (const auto& Case : Cases)
	{
		Folder.Write("Thing.uatext", Case.Bytes);
		EXPECT_EQ(LoadError(TEXT("/Pack/Thing")).substr(0, std::string(Case.Expected).size()), Case.Expected)
			<< Case.Label;
		const std::string SaveError = Relative(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/Thing"))));
		EXPECT_EQ(SaveError.find("Cannot save '/Pack/Thing' to Thing.uatext: Thing.uatext: the file"), 0u)
			<< Case.Label << SaveError;
		EXPECT_EQ(Folder.Read("Thing.uatext"), Case.Bytes) << Case.Label;
		UnloadAll();
	}
}

TEST_F(PackageRefusals, ProblemsAreCollectedOnceEachForWhoeverAsks)
{
	const std::string Good = SavedBytes();
	FPackageText::TakeProblems();
	LoadError(TEXT("/Pack/None"));
	Folder.Write("Thing.uatext", Good.substr(0, 40));
	LoadError(TEXT("/Pack/Thing"));
	LoadError(TEXT("/Pack/Thing"));
	TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/Thing")));
	TArray<FString> Problems = FPackageText::TakeProblems();
	ASSERT_EQ(Problems.Num(), 2);
	EXPECT_EQ(Relative(Problems[0]), "Thing.uatext: the file is truncated within its header");
	EXPECT_EQ(Relative(Problems[1]),
		"Cannot save '/Pack/Thing' to Thing.uatext: Thing.uatext: the file is truncated within its header");
	EXPECT_TRUE(FPackageText::TakeProblems().IsEmpty());
}

TEST_F(PackageRefusals, EveryFlippedBitAndEveryCutIsNoticed)
{
	const std::string Good = SavedBytes();
	FPackageText::FHeader Header;
	FString Error;
	ASSERT_TRUE(FPackageText::CheckBytes(Good, TEXT("F"), Header, Error)) << ToUtf8(Error);
	for (std::size_t At = 0; At < Good.size(); ++At)
	{
		EXPECT_FALSE(FPackageText::CheckBytes(std::string_view(Good).substr(0, At), TEXT("F"), Header, Error))
			<< "cut at " << At;
		for (int32 Bit = 0; Bit < 8; ++Bit)
		{
			std::string Bytes = Good;
			Bytes[At] = static_cast<char>(Bytes[At] ^ (1 << Bit));
			Error.Empty();
			EXPECT_FALSE(FPackageText::CheckBytes(Bytes, TEXT("F"), Header, Error)) << "byte " << At << " bit " << Bit;
			EXPECT_TRUE(Error.StartsWith(TEXT("F: the file "))) << ToUtf8(Error);
		}
	}
}

TEST_F(PackageRefusals, AFileInAnotherPackagesPlaceIsRefused)
{
	Folder.Write("Copy.uatext", SavedBytes());
	EXPECT_EQ(LoadError(TEXT("/Pack/Copy")), "Copy.uatext: the file holds the package '/Pack/Thing', not '/Pack/Copy'");
	EXPECT_EQ(Relative(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/Copy")))),
		"Cannot save '/Pack/Copy' to Copy.uatext: Copy.uatext: the file holds the package '/Pack/Thing', not '/Pack/Copy'");
}

TEST_F(PackageRefusals, AnEngineAssetAtThePathIsRefusedByName)
{
	Folder.Write("Bin.uasset", "\xC1\x83\x2A\x9E");
	EXPECT_EQ(LoadError(TEXT("/Pack/Bin")), "Bin.uasset: the package is damaged: it ends within its head");
	EXPECT_EQ(Relative(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/Bin")))),
		"Cannot save '/Pack/Bin' to Bin.uatext: the engine's binary asset Bin.uasset stands at that path");
	EXPECT_FALSE(Folder.Exists("Bin.uatext"));
}

TEST_F(PackageRefusals, AMissingPackageAndAnUnknownAssetClassAreTold)
{
	EXPECT_EQ(LoadError(TEXT("/Pack/None")), "There is no package '/Pack/None'");

	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Odd"));
	FKeptObjectText::FindOrAdd(Asset).ClassPath = "/Script/Gone.Kind";
	ASSERT_EQ(Relative(TestAssets::Save(Asset)), "");
	UnloadAll();
	EXPECT_EQ(
		LoadError(TEXT("/Pack/Odd")), "Odd.uatext: the class '/Script/Gone.Kind' of its asset 'Odd' is not known");
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Pack/Odd")), nullptr) << "half a package must not stay in memory";
}

TEST_F(PackageRefusals, ObjectTextThatCannotBeReadNamesItsLine)
{
	std::string Bytes = SavedBytes();
	FPackageText::FHeader Header;
	FString Error;
	ASSERT_TRUE(FPackageText::CheckBytes(Bytes, TEXT("F"), Header, Error));
	const std::string Body = Bytes.substr(static_cast<std::size_t>(Header.BodyOffset)) + "stray\n";
	Folder.Write("Thing.uatext", FPackageText::MakeBytes(Header, Body));
	EXPECT_EQ(LoadError(TEXT("/Pack/Thing")), "Thing.uatext, line 11: expected 'Begin Object', found 'stray'");
}

TEST_F(PackageRefusals, SavesThatCannotBeLeaveTheOldFile)
{
	const std::string Good = SavedBytes();
	UTestAsset* const Asset = Load<UTestAsset>(TEXT("/Pack/Thing"));
	ASSERT_TRUE(Asset);
	Asset->Title = TEXT("changed");
	Asset->MarkPackageDirty();

	chmod((Folder.Path() / "Thing.uatext").c_str(), 0444);
	EXPECT_EQ(Relative(TestAssets::Save(Asset)), "Cannot save '/Pack/Thing' to Thing.uatext: the file is read-only");
	EXPECT_TRUE(Asset->GetOutermost()->IsDirty());
	chmod((Folder.Path() / "Thing.uatext").c_str(), 0644);

	EXPECT_EQ(Relative(TestAssets::Save(Asset, Folder.Get("Thing.uasset"))),
		"Cannot save '/Pack/Thing' to Thing.uasset: packages are saved as '.uatext' files");
	FPackageText::SetSaveFault([](const FString&) { return FString(TEXT("the test says no")); });
	EXPECT_EQ(Relative(TestAssets::Save(Asset)), "Cannot save '/Pack/Thing' to Thing.uatext: the test says no");
	FPackageText::SetSaveFault(nullptr);
	EXPECT_EQ(Folder.Read("Thing.uatext"), Good);
	EXPECT_FALSE(GIsSavingPackage);

	EXPECT_EQ(Relative(TestAssets::Save(Asset)), "");
	EXPECT_FALSE(Asset->GetOutermost()->IsDirty());
}

TEST_F(PackageRefusals, WhatStandsInTheWayIsTold)
{
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Sub/Thing"));
	Folder.Write("Sub", "a file where the folder should be");
	EXPECT_EQ(Relative(TestAssets::Save(Asset)),
		"Cannot save '/Pack/Sub/Thing' to Sub/Thing.uatext: its folder cannot be made: Not a directory");

	std::filesystem::create_directories(Folder.Path() / "Link.uatext");
	EXPECT_EQ(Relative(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/Link")))),
		"Cannot save '/Pack/Link' to Link.uatext: a folder, link or device of that name stands there");

	ASSERT_EQ(Relative(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/Case")))), "");
	UnloadAll();
	EXPECT_EQ(Relative(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/CASE")))),
		"Cannot save '/Pack/CASE' to CASE.uatext: the file Case.uatext differs from it in case only");
}

TEST_F(PackageRefusals, NothingIsLoadedWhileSaving)
{
	SavedBytes();
	GIsSavingPackage = true;
	EXPECT_EQ(LoadError(TEXT("/Pack/Thing")), "Cannot load '/Pack/Thing' while a package is being saved");
	GIsSavingPackage = false;
	EXPECT_TRUE(Load<UTestAsset>(TEXT("/Pack/Thing")));
	EXPECT_EQ(ToUtf8(FPackageText::GetLastLoadError(TEXT("/Pack/Thing"))), "");
}

TEST_F(PackageRefusals, AFullDiskKeepsTheOldFileAndNoRest)
{
	const std::filesystem::path Disk = Folder.Path() / "disk";
	std::filesystem::create_directories(Disk);
	if (mount("tmpfs", Disk.c_str(), "tmpfs", 0, "size=64k") != 0)
	{
		GTEST_SKIP() << "mounting a small disk is not permitted here, so a full one cannot be tried";
	}
	FPackageName::RegisterMountPoint(TEXT("/Pack/"), FromUtf8(Disk.string()));
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Thing"));
	EXPECT_EQ(Relative(TestAssets::Save(Asset)), "");
	const std::string Before = Folder.Read("disk/Thing.uatext");
	Asset->Title = FString::ChrN(200000, TEXT('x'));
	EXPECT_EQ(Relative(TestAssets::Save(Asset)),
		"Cannot save '/Pack/Thing' to disk/Thing.uatext: writing failed: No space left on device");
	EXPECT_EQ(Folder.Read("disk/Thing.uatext"), Before);
	EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Disk), std::filesystem::directory_iterator()), 1);
	umount2(Disk.c_str(), MNT_DETACH);
}

TEST_F(PackageRefusals, LinksOutOfTheProjectAreFollowedNeitherWay)
{
	FTemporaryFolder Outside;
	const std::string Good = SavedBytes();
	Outside.Write("Thing.uatext", Good);
	std::filesystem::create_directory_symlink(Outside.Path(), Folder.Path() / "Out");
	std::filesystem::create_symlink(Outside.Path() / "Thing.uatext", Folder.Path() / "File.uatext");
	std::filesystem::create_symlink(Outside.Path() / "None", Folder.Path() / "Dangling");
	FPathConfinement::SetRoot(Folder.Get());
	const std::string Reason = " leads out of the project folder '" + Folder.Path().string() + "'";
	EXPECT_EQ(LoadError(TEXT("/Pack/Out/Thing")), "'Out/Thing.uatext'" + Reason);
	EXPECT_EQ(LoadError(TEXT("/Pack/File")), "'File.uatext'" + Reason);
	EXPECT_FALSE(FPackageName::DoesPackageExist(TEXT("/Pack/Out/Thing"))) << "who deletes by name must not reach it";
	for (const TCHAR* const Name :
		{TEXT("/Pack/Out/New"), TEXT("/Pack/Out/Deep/New"), TEXT("/Pack/File"), TEXT("/Pack/Dangling/New")})
	{
		const std::string Error = Relative(TestAssets::Save(TestAssets::MakeAsset(Name)));
		EXPECT_NE(Error.find("leads out of the project folder"), std::string::npos) << Error;
	}
	FPathConfinement::SetRoot(FString());
	EXPECT_EQ(std::distance(std::filesystem::recursive_directory_iterator(Outside.Path()),
				  std::filesystem::recursive_directory_iterator()),
		1);
	EXPECT_EQ(Outside.Read("Thing.uatext"), Good);
}
