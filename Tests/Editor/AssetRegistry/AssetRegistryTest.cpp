#include "AssetRegistry/AssetRegistryModule.h"

#include "AssetRegistry/ARFilter.h"
#include "Standalone/Project.h"
#include "TemporaryFolder.h"
#include "TestAssets.h"

#include "Misc/PackageName.h"

#include <gtest/gtest.h>

namespace AssetRegistryTests
{
class AssetRegistry : public testing::Test
{
protected:
	void SetUp() override
	{
		TestAssets::Register();
		FString Error;
		ASSERT_TRUE(FProject::Open(Folder.Get(), Error)) << ToUtf8(Error);
	}
	void TearDown() override
	{
		TestAssets::UnloadGame();
		FProject::Close();
	}

	static IAssetRegistry& Registry() { return FAssetRegistryModule::GetRegistry(); }

	/** On disk and not in memory. */
	void SaveAway(const TCHAR* PackageName)
	{
		EXPECT_EQ(ToUtf8(TestAssets::Save(TestAssets::MakeAsset(PackageName))), "");
		TestAssets::Unload(PackageName);
	}

	static std::string Names(const TArray<FAssetData>& Assets)
	{
		TArray<FString> Paths;
		for (const FAssetData& Asset : Assets)
		{
			Paths.Add(Asset.GetObjectPathString());
		}
		return ToUtf8(FString::Join(Paths, TEXT(" ")));
	}
	/** Of the project; the engine's macros stand in memory once a menu was made. */
	static std::string All()
	{
		TArray<FAssetData> Assets;
		Registry().GetAllAssets(Assets);
		return Names(Assets.FilterByPredicate(
			[](const FAssetData& Asset) { return !Asset.PackageName.ToString().StartsWith(TEXT("/Engine/")); }));
	}
	static FAssetData Find(const TCHAR* Path) { return Registry().GetAssetByObjectPath(FSoftObjectPath(Path)); }

	FTemporaryFolder Folder;
};
} // namespace AssetRegistryTests

using AssetRegistryTests::AssetRegistry;

TEST_F(AssetRegistry, WhatIsOnDiskAndInMemoryStandsInOneOrder)
{
	SaveAway(TEXT("/Game/B"));
	SaveAway(TEXT("/Game/a"));
	SaveAway(TEXT("/Game/Dir/C"));
	TestAssets::MakeAsset(TEXT("/Game/Ab"));
	TestAssets::MakeAsset(TEXT("/Game/Z"));
	EXPECT_EQ(All(), "/Game/a.a /Game/Ab.Ab /Game/B.B /Game/Dir/C.C /Game/Z.Z");
	TArray<FAssetData> OnDisk;
	Registry().GetAllAssets(OnDisk, true);
	EXPECT_EQ(AssetRegistryTests::AssetRegistry::Names(OnDisk), "/Game/a.a /Game/B.B /Game/Dir/C.C");
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Game/B")), nullptr) << "asking must not load";
}

TEST_F(AssetRegistry, FiltersNarrowByClassPathNameAndTag)
{
	SaveAway(TEXT("/Game/Plain"));
	SaveAway(TEXT("/Game/Dir/Deep/Plain"));
	UTestBlueprint* const Blueprint = TestAssets::MakeBlueprint(TEXT("/Game/Dir/BP"), UTestAsset::StaticClass(), {});
	ASSERT_EQ(ToUtf8(TestAssets::Save(Blueprint)), "");
	NewObject<UTestSpecialAsset>(CreatePackage(TEXT("/Game/Special")), TEXT("Special"), RF_Public);
	TestAssets::UnloadGame();
	NewObject<UTestSpecialAsset>(CreatePackage(TEXT("/Game/Special")), TEXT("Special"), RF_Public);
	const FTopLevelAssetPath AssetClass(TEXT("/Script/Tests.TestAsset"));

	TArray<FAssetData> Found;
	EXPECT_TRUE(Registry().GetAssetsByClass(AssetClass, Found));
	EXPECT_EQ(Names(Found), "/Game/Dir/Deep/Plain.Plain /Game/Plain.Plain");
	Found.Empty();
	EXPECT_TRUE(Registry().GetAssetsByClass(AssetClass, Found, true));
	EXPECT_EQ(Names(Found), "/Game/Dir/Deep/Plain.Plain /Game/Plain.Plain /Game/Special.Special");
	Found.Empty();
	EXPECT_TRUE(Registry().GetAssetsByPath(TEXT("/Game/Dir"), Found));
	EXPECT_EQ(Names(Found), "/Game/Dir/BP.BP");
	Found.Empty();
	EXPECT_TRUE(Registry().GetAssetsByPath(TEXT("/Game/Dir"), Found, true));
	EXPECT_EQ(Names(Found), "/Game/Dir/BP.BP /Game/Dir/Deep/Plain.Plain");
	Found.Empty();
	EXPECT_FALSE(Registry().GetAssetsByPath(TEXT("/Game/Di"), Found, true));
	EXPECT_TRUE(Registry().GetAssetsByName(TEXT("plain"), Found));
	EXPECT_EQ(Names(Found), "/Game/Dir/Deep/Plain.Plain /Game/Plain.Plain");
	Found.Empty();
	FARFilter Filter;
	Filter.TagsAndValues.Add(TEXT("ParentClass"), FString(TEXT("/Script/CoreUObject.Class'/Script/Tests.TestAsset'")));
	EXPECT_TRUE(Registry().GetAssets(Filter, Found));
	EXPECT_EQ(Names(Found), "/Game/Dir/BP.BP");
	Found.Empty();
	Filter = FARFilter();
	Filter.ClassPaths.Add(AssetClass);
	Filter.bRecursiveClasses = true;
	Filter.RecursiveClassPathsExclusionSet.Add(FTopLevelAssetPath(TEXT("/Script/Tests.TestSpecialAsset")));
	EXPECT_TRUE(Registry().GetAssets(Filter, Found));
	EXPECT_EQ(Names(Found), "/Game/Dir/Deep/Plain.Plain /Game/Plain.Plain");
}

TEST_F(AssetRegistry, AnAssetIsFoundByItsPathWhereverItIs)
{
	SaveAway(TEXT("/Game/Dir/Saved"));
	TestAssets::MakeAsset(TEXT("/Game/Fresh"));
	EXPECT_TRUE(Find(TEXT("/Game/Dir/Saved.Saved")).IsValid());
	EXPECT_TRUE(Find(TEXT("/game/dir/SAVED.saved")).IsValid());
	EXPECT_TRUE(Find(TEXT("/Game/Fresh.Fresh")).IsValid());
	EXPECT_FALSE(Find(TEXT("/Game/Dir/Saved.Other")).IsValid());
	EXPECT_FALSE(Find(TEXT("/Game/None.None")).IsValid());
	EXPECT_FALSE(Registry().GetAssetByObjectPath(FSoftObjectPath(TEXT("/Game/Fresh.Fresh")), true).IsValid());

	const FAssetData Saved = Find(TEXT("/Game/Dir/Saved.Saved"));
	EXPECT_FALSE(Saved.IsAssetLoaded());
	const UObject* const Loaded = Saved.GetAsset();
	ASSERT_TRUE(Loaded);
	EXPECT_EQ(ToUtf8(Loaded->GetPathName()), "/Game/Dir/Saved.Saved");
	EXPECT_TRUE(Saved.IsInstanceOf(UTestAsset::StaticClass()));
}

TEST_F(AssetRegistry, FilesThatAppearAndAssetsThatGoAreNoticed)
{
	EXPECT_EQ(All(), "");
	SaveAway(TEXT("/Game/First"));
	EXPECT_EQ(All(), "/Game/First.First");
	std::string Bytes = Folder.Read("Content/First.uatext");
	UTestAsset* const Asset = Cast<UTestAsset>(Find(TEXT("/Game/First.First")).GetAsset());
	Registry().AssetDeleted(Asset);
	TestAssets::Unload(TEXT("/Game/First"));
	std::filesystem::remove(Folder.Path() / "Content/First.uatext");
	EXPECT_EQ(All(), "");
	EXPECT_FALSE(Find(TEXT("/Game/First.First")).IsValid());

	Folder.Write("Content/First.uatext", Bytes);
	EXPECT_TRUE(Find(TEXT("/Game/First.First")).IsValid()) << "a file that came after the scan";
	std::filesystem::remove(Folder.Path() / "Content/First.uatext");
	EXPECT_FALSE(Find(TEXT("/Game/First.First")).IsValid()) << "a file that another program removed";
	Folder.Write("Content/First.uatext", Bytes);
	Registry().ScanPathsSynchronous({TEXT("/Game")}, true);
	std::filesystem::remove(Folder.Path() / "Content/First.uatext");
	Registry().ScanPathsSynchronous({TEXT("/Game")}, true);
	EXPECT_EQ(All(), "");
}

TEST_F(AssetRegistry, FilesThatCannotBeReadArePassedOver)
{
	SaveAway(TEXT("/Game/Good"));
	const std::string Good = Folder.Read("Content/Good.uatext");
	FTemporaryFolder Outside;
	Outside.Write("Far.uatext", Good);
	Folder.Write("Content/Copy.uatext", Good);
	Folder.Write("Content/Cut.uatext", Good.substr(0, 60));
	Folder.Write("Content/Newer.uatext", "uatext 9\n");
	Folder.Write("Content/Empty.uatext", "");
	Folder.Write("Content/.Good.uatext.tmp", Good);
	Folder.Write("Content/.hidden/Good.uatext", Good);
	Folder.Write("Content/Other.txt", "");
	std::filesystem::create_directory_symlink(Outside.Path(), Folder.Path() / "Content/Out");
	std::filesystem::create_directory_symlink("..", Folder.Path() / "Content/Up");
	Registry().ScanPathsSynchronous({TEXT("/Game")}, true);
	EXPECT_EQ(All(), "/Game/Good.Good");
}

TEST_F(AssetRegistry, PluginContentComesAndGoesWithItsProject)
{
	FProject::Close();
	Folder.Write("Plugins/Doors/Doors.uplugin", R"({"CanContainContent": true})");
	FString Error;
	ASSERT_TRUE(FProject::Open(Folder.Get(), Error));
	SaveAway(TEXT("/Doors/Big"));
	SaveAway(TEXT("/Game/Wall"));
	EXPECT_EQ(All(), "/Doors/Big.Big /Game/Wall.Wall");
	FTemporaryFolder Second;
	ASSERT_TRUE(FProject::Open(Second.Get(), Error)) << ToUtf8(Error);
	EXPECT_EQ(All(), "");
	ASSERT_TRUE(FProject::Open(Folder.Get(), Error)) << ToUtf8(Error);
	EXPECT_EQ(All(), "/Doors/Big.Big /Game/Wall.Wall");
}
