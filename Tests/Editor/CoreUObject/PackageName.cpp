#include "Misc/PackageName.h"

#include "PackageTest.h"

class PackageName : public FPackageTest
{
};

TEST_F(PackageName, NamesAndFilesConvertBothWays)
{
	const struct
	{
		const TCHAR* Name;
		const char* File;
	} Cases[] = {
		{TEXT("/Pack/Thing"), "Thing.uatext"},
		{TEXT("/Pack/Dir/Sub/Thing"), "Dir/Sub/Thing.uatext"},
		{TEXT("/pack/Thing"), "Thing.uatext"},
		{TEXT("/Pack/T\u00fcr"), "T\u00fcr.uatext"},
	};
	for (const auto& Case : Cases)
	{
		const FString File = FPackageName::LongPackageNameToFilename(
			Case.Name, FPackageName::GetAssetPackageExtension());
		EXPECT_EQ(ToUtf8(File), (Folder.Path() / Case.File).string());
		EXPECT_EQ(FName(FPackageName::FilenameToLongPackageName(File)), FName(Case.Name));
	}
}

TEST_F(PackageName, TheInnermostOfNestedContentFoldersNamesAFile)
{
	FPackageName::RegisterMountPoint(TEXT("/Inner/"), Folder.Get("Plugins/Inner"));
	EXPECT_EQ(ToUtf8(FPackageName::FilenameToLongPackageName(Folder.Get("Plugins/Inner/A.uatext"))), "/Inner/A");
	EXPECT_EQ(ToUtf8(FPackageName::FilenameToLongPackageName(Folder.Get("Plugins/Innermost/A.uatext"))),
		"/Pack/Plugins/Innermost/A");
	FPackageName::UnRegisterMountPoint(TEXT("/Inner/"), FString());
}

TEST_F(PackageName, NamesThatWouldLeaveTheContentOrMeanNothingAreRefused)
{
	for (const TCHAR* const Name : {TEXT(""), TEXT("Thing"), TEXT("/Thing"), TEXT("/Pack/"), TEXT("//Pack/Thing"),
			 TEXT("/Pack//Thing"), TEXT("/Pack/../Thing"), TEXT("/Pack/Dir/.."), TEXT("/Pack/./Thing"),
			 TEXT("/Pack/Dir\\Thing"), TEXT("/Pack/Th ing"), TEXT("/Pack/Thing.Thing"), TEXT("/Pack/Th\nng"),
			 TEXT("/Pack/Th*ng"), TEXT("/Elsewhere/Thing"), TEXT("/Pack/Thing/")})
	{
		FText Reason;
		EXPECT_FALSE(FPackageName::IsValidLongPackageName(Name, false, &Reason)) << ToUtf8(Name);
		EXPECT_FALSE(Reason.IsEmpty()) << ToUtf8(Name);
	}
	for (const TCHAR* const Name :
		{TEXT("/Pack/../Thing"), TEXT("/Pack/Dir/../../Thing"), TEXT("/Elsewhere/Thing"), TEXT("/Pack/a\\b")})
	{
		EXPECT_EQ(ToUtf8(FPackageName::LongPackageNameToFilename(Name)), "") << ToUtf8(Name);
	}
	FString Ignored;
	EXPECT_FALSE(FPackageName::TryConvertFilenameToLongPackageName(TEXT("/etc/passwd"), Ignored));
	EXPECT_FALSE(FPackageName::TryConvertFilenameToLongPackageName(Folder.Get("a b.uatext"), Ignored));
}

TEST_F(PackageName, PiecesOfPathsAreTakenApart)
{
	EXPECT_EQ(ToUtf8(FPackageName::ObjectPathToPackageName(TEXT("/Pack/A.A:Graph.Node"))), "/Pack/A");
	EXPECT_EQ(ToUtf8(FPackageName::GetShortName(FString(TEXT("/Pack/Dir/A")))), "A");
	EXPECT_EQ(ToUtf8(FPackageName::GetLongPackagePath(TEXT("/Pack/Dir/A"))), "/Pack/Dir");
	for (const TCHAR* const Spelled : {TEXT("/Script/M.C'/Pack/A.A'"), TEXT("\"/Script/M.C'/Pack/A.A'\""),
			 TEXT("C'\"/Pack/A.A\"'"), TEXT("/Pack/A.A"), TEXT("\"/Pack/A.A\"")})
	{
		EXPECT_EQ(ToUtf8(FPackageName::ExportTextPathToObjectPath(Spelled)), "/Pack/A.A") << ToUtf8(Spelled);
	}
}

TEST_F(PackageName, ExistenceIsOfFilesAndOfScriptPackagesInMemory)
{
	EXPECT_FALSE(FPackageName::DoesPackageExist(TEXT("/Pack/Thing")));
	Folder.Write("Thing.uatext", "");
	FString File;
	EXPECT_TRUE(FPackageName::DoesPackageExist(TEXT("/Pack/thing"), &File));
	EXPECT_EQ(Relative(File), "Thing.uatext");
	Folder.Write("Dir.uatext/x", "");
	EXPECT_FALSE(FPackageName::DoesPackageExist(TEXT("/Pack/Dir"))) << "a folder is no package";
	EXPECT_TRUE(FPackageName::DoesPackageExist(TEXT("/Script/Tests")));
	EXPECT_FALSE(FPackageName::DoesPackageExist(TEXT("/Script/NoSuchModule")));
}
