#include "PackageTest.h"

#include "Files/AtomicFile.h"
#include "Standalone/PackageText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/** Other programs work on the same files. Nothing of theirs is written over, and what they wrote is taken in. */
class PackageForeignChange : public FPackageTest
{
protected:
	UTestAsset* Saved(const TCHAR* Title)
	{
		UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Thing"));
		Asset->Title = Title;
		EXPECT_EQ(Relative(TestAssets::Save(Asset)), "");
		return Asset;
	}
	/** The bytes of the same package as another program would write it. */
	std::string Theirs(const TCHAR* Title)
	{
		Saved(Title);
		const std::string Bytes = Folder.Read("Thing.uatext");
		UnloadAll();
		std::filesystem::remove(Folder.Path() / "Thing.uatext");
		return Bytes;
	}
	void InPlace(const std::string& Bytes) const { Folder.Write("Thing.uatext", Bytes); }
	void ByRename(const std::string& Bytes) const
	{
		Folder.Write("other", Bytes);
		std::filesystem::rename(Folder.Path() / "other", Folder.Path() / "Thing.uatext");
	}
	static std::string Title()
	{
		const UTestAsset* const Asset = Load<UTestAsset>(TEXT("/Pack/Thing"));
		return Asset ? ToUtf8(Asset->Title) : "none";
	}
	/** "name", with what became of it, for each change that was taken in. */
	static std::string TakeIn()
	{
		std::string Text;
		for (const FPackageText::FForeignChange& Change : FPackageText::TakeInForeignChanges())
		{
			if (!Change.PackageName.StartsWith(TEXT("/Pack/")))
			{
				continue; // of another suite, whose folder has gone
			}
			Text += (Text.empty() ? "" : "|") + ToUtf8(Change.PackageName) + (Change.bDeleted ? " deleted" : "")
				+ (Change.bDroppedChanges ? " dropped" : "")
				+ (Change.HeldBy.IsEmpty() ? "" : " held by " + ToUtf8(Change.HeldBy));
		}
		return Text;
	}
};

TEST_F(PackageForeignChange, ASaveReplacesWhatWasLoadedAndNothingElse)
{
	const std::string Other = Theirs(TEXT("abcd"));
	const std::string Changed =
		"another program has changed the file since it was read here, so nothing was written. The next call drops what stands changed in memory and reads the file as it is now: make the change again on that";
	const struct
	{
		const char* Label;
		std::function<void()> Meddle;
		/** Behind "Cannot save '/Pack/Thing' to Thing.uatext: "; empty when the save goes through. */
		std::string Error;
	} Cases[] = {
		{"nothing happened", [] {}, ""},
		{"touched", [&] { InPlace(Folder.Read("Thing.uatext")); }, ""},
		{"the same bytes by another file", [&] { ByRename(Folder.Read("Thing.uatext")); }, ""},
		{"a mode changed", [&] { chmod((Folder.Path() / "Thing.uatext").c_str(), 0600); }, ""},
		{"written in place, in the same size and instant", [&] { InPlace(Other); }, Changed},
		{"replaced", [&] { ByRename(Other); }, Changed},
		{"replaced, with its times set back",
			[&]
			{
				struct stat Info;
				stat((Folder.Path() / "Thing.uatext").c_str(), &Info);
				InPlace(Other);
				const timespec Times[] = {Info.st_atim, Info.st_mtim};
				utimensat(AT_FDCWD, (Folder.Path() / "Thing.uatext").c_str(), Times, 0);
			},
			Changed},
		{"damaged", [&] { InPlace(Other.substr(0, Other.size() - 5)); }, "Thing.uatext: the file is truncated: "},
		{"in conflict", [&] { InPlace("<<<<<<< HEAD\n" + Other); },
			"Thing.uatext: the file has merge conflict markers (line 1); "},
		{"deleted", [&] { std::filesystem::remove(Folder.Path() / "Thing.uatext"); },
			"another program has deleted the file since it was read here, so nothing was written. "},
	};
	for (const auto& Case : Cases)
	{
		std::filesystem::remove(Folder.Path() / "Thing.uatext");
		UTestAsset* const Asset = Saved(TEXT("mine"));
		Case.Meddle();
		const std::string Before = Folder.Read("Thing.uatext");
		Asset->Title = TEXT("new!");
		const std::string Error = Relative(TestAssets::Save(Asset));
		const std::string Expected = Case.Error.empty() ? ""
														: "Cannot save '/Pack/Thing' to Thing.uatext: " + Case.Error;
		EXPECT_EQ(Error.substr(0, Expected.size()), Expected) << Case.Label;
		EXPECT_EQ(Error.empty(), Case.Error.empty()) << Case.Label << ": " << Error;
		EXPECT_EQ(Folder.Read("Thing.uatext") == Before, !Case.Error.empty()) << Case.Label;
		EXPECT_FALSE(Folder.Exists(".Thing.uatext.tmp")) << Case.Label;
		UnloadAll();
	}
}

TEST_F(PackageForeignChange, AnUnreadFileInThePlaceOfANewAssetStays)
{
	const std::string Other = Theirs(TEXT("theirs"));
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Fresh"));
	std::string Bytes = Other;
	for (std::size_t At = Bytes.find("Thing"); At != std::string::npos; At = Bytes.find("Thing", At))
	{
		Bytes.replace(At, 5, "Fresh");
	}
	FPackageText::FHeader Header;
	FString Ignored;
	FPackageText::CheckBytes(Bytes, TEXT("F"), Header, Ignored);
	Folder.Write("Fresh.uatext",
		FPackageText::MakeBytes(Header, std::string_view(Bytes).substr(static_cast<std::size_t>(Header.BodyOffset))));
	const std::string Before = Folder.Read("Fresh.uatext");
	EXPECT_EQ(Relative(TestAssets::Save(Asset)),
		"Cannot save '/Pack/Fresh' to Fresh.uatext: a file that was not read here stands there, so nothing was written; read it first");
	EXPECT_EQ(Folder.Read("Fresh.uatext"), Before);
}

TEST_F(PackageForeignChange, TheLastStepLooksOnceMore)
{
	const std::string Path = (Folder.Path() / "File").string();
	AtomicFile::FStamp Stamp;
	FString Error;
	ASSERT_TRUE(AtomicFile::Write(Path, {"one"}, AtomicFile::FStamp(), Stamp, Error));
	EXPECT_EQ(Stamp, AtomicFile::StampOf(Path));
	EXPECT_FALSE(AtomicFile::Write(Path, {"two"}, AtomicFile::FStamp(), Stamp, Error));
	EXPECT_EQ(ToUtf8(Error), "another program has made a file of that name just now");
	Folder.Write("File", "theirs");
	EXPECT_FALSE(AtomicFile::Write(Path, {"two"}, Stamp, Stamp, Error));
	EXPECT_EQ(ToUtf8(Error), "another program has changed the file just now");
	EXPECT_EQ(Folder.Read("File"), "theirs");
	EXPECT_FALSE(Folder.Exists(".File.tmp"));
}

TEST_F(PackageForeignChange, AChangedFileIsReadAfreshWithAllThatUsesIt)
{
	const std::string Other = Theirs(TEXT("theirs"));
	UTestAsset* const Asset = Saved(TEXT("mine"));
	UTestAsset* const User = TestAssets::MakeAsset(TEXT("/Pack/User"));
	User->Link = Asset;
	UTestAsset* const Stranger = TestAssets::MakeAsset(TEXT("/Pack/Stranger"));
	ASSERT_EQ(Relative(TestAssets::Save(User)) + Relative(TestAssets::Save(Stranger)), "");
	EXPECT_EQ(TakeIn(), "");
	EXPECT_EQ(Title(), "mine");

	ByRename(Other);
	EXPECT_EQ(TakeIn(), "/Pack/Thing");
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Pack/User")), nullptr);
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Pack/Stranger")), Stranger->GetOutermost()) << "it uses nothing of that";
	EXPECT_EQ(Title(), "theirs");
	EXPECT_EQ(Load<UTestAsset>(TEXT("/Pack/User"))->Link, Load<UTestAsset>(TEXT("/Pack/Thing")));
	EXPECT_EQ(TakeIn(), "");

	std::filesystem::remove(Folder.Path() / "Thing.uatext");
	EXPECT_EQ(TakeIn(), "/Pack/Thing deleted");
	EXPECT_EQ(Title(), "none");
}

TEST_F(PackageForeignChange, WhatStandsChangedInMemoryIsDroppedAfterARefusedSaveOnly)
{
	const std::string Other = Theirs(TEXT("theirs"));
	UTestAsset* const Asset = Saved(TEXT("mine"));
	Asset->Title = TEXT("unsaved");
	Asset->MarkPackageDirty();
	ByRename(Other);
	EXPECT_EQ(TakeIn(), "") << "nobody was told yet";
	EXPECT_EQ(Title(), "unsaved");
	EXPECT_NE(Relative(TestAssets::Save(Asset)), "");
	EXPECT_EQ(TakeIn(), "/Pack/Thing dropped");
	EXPECT_EQ(Title(), "theirs");
	UTestAsset* const Fresh = Load<UTestAsset>(TEXT("/Pack/Thing"));
	Fresh->Title = TEXT("both");
	EXPECT_EQ(Relative(TestAssets::Save(Fresh)), "");
}

TEST_F(PackageForeignChange, AnUnsavedUserHoldsWhatItUses)
{
	const std::string Other = Theirs(TEXT("theirs"));
	UTestAsset* const Asset = Saved(TEXT("mine"));
	UTestAsset* const User = TestAssets::MakeAsset(TEXT("/Pack/User"));
	ASSERT_EQ(Relative(TestAssets::Save(User)), "");
	User->Link = Asset;
	User->MarkPackageDirty();
	ByRename(Other);
	EXPECT_EQ(TakeIn(), "/Pack/Thing held by /Pack/User");
	EXPECT_EQ(User->Link, Asset);
	EXPECT_EQ(Relative(TestAssets::Save(User)), "");
	EXPECT_EQ(TakeIn(), "/Pack/Thing");
	EXPECT_EQ(Title(), "theirs");
}

TEST_F(PackageForeignChange, WhateverBearsTheTemporaryNameIsNeverWrittenThrough)
{
	FTemporaryFolder Outside;
	Outside.Write("file", "outside");
	const std::filesystem::path Temporary = Folder.Path() / ".Thing.uatext.tmp";
	const struct
	{
		const char* Label;
		std::function<void()> Make;
	} Cases[] = {
		{"hard link", [&] { std::filesystem::create_hard_link(Outside.Path() / "file", Temporary); }},
		{"link", [&] { std::filesystem::create_symlink(Outside.Path() / "file", Temporary); }},
		{"dangling link", [&] { std::filesystem::create_symlink(Outside.Path() / "none", Temporary); }},
		{"pipe", [&] { EXPECT_EQ(mkfifo(Temporary.c_str(), 0644), 0); }},
		{"what a killed process left", [&] { Folder.Write(".Thing.uatext.tmp", std::string(100'000, 'x')); }},
	};
	for (const auto& Case : Cases)
	{
		Case.Make();
		Saved(TEXT("text"));
		EXPECT_EQ(Outside.Read("file"), "outside") << Case.Label;
		EXPECT_FALSE(Outside.Exists("none")) << Case.Label;
		EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(Temporary))) << Case.Label;
		UnloadAll();
		EXPECT_EQ(Title(), "text") << Case.Label;
		UnloadAll();
	}
	std::filesystem::create_directory(Temporary);
	UTestAsset* const Asset = Load<UTestAsset>(TEXT("/Pack/Thing"));
	EXPECT_EQ(Relative(TestAssets::Save(Asset)),
		"Cannot save '/Pack/Thing' to Thing.uatext: the temporary file beside it cannot be made: Is a directory");
}

TEST_F(PackageForeignChange, SweepingTakesTemporaryFilesAlone)
{
	FTemporaryFolder Outside;
	Outside.Write(".Far.uatext.tmp", "");
	Folder.Write(".A.uatext.tmp", "");
	Folder.Write("Deep/Er/.B.uatext.tmp", "");
	std::filesystem::create_symlink(Outside.Path() / ".Far.uatext.tmp", Folder.Path() / "Deep/.C.uatext.tmp");
	std::filesystem::create_directory_symlink(Outside.Path(), Folder.Path() / "Out");
	const char* const Kept[] = {
		"A.uatext", "A.uatext.tmp", ".A.tmp", ".uatext.tmp", ".git/.D.uatext.tmp", "Deep/.hidden"};
	for (const char* const File : Kept)
	{
		Folder.Write(File, "");
	}
	FPackageText::SweepTemporaryFiles(Folder.Get());
	for (const char* const File : Kept)
	{
		EXPECT_TRUE(Folder.Exists(File)) << File;
	}
	EXPECT_FALSE(Folder.Exists(".A.uatext.tmp"));
	EXPECT_FALSE(Folder.Exists("Deep/Er/.B.uatext.tmp"));
	EXPECT_FALSE(std::filesystem::is_symlink(Folder.Path() / "Deep/.C.uatext.tmp"));
	EXPECT_TRUE(Outside.Exists(".Far.uatext.tmp"));
}
