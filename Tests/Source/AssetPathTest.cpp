#include "AssetOperationBase.h"
#include "BlueprintBuilder.h"
#include "BlueprintUtils.h"
#include "SafeAssetLoader.h"
#include "ToolResults.h"

TEST(AssetPath, EachSpellingComesOutAsThePackageName)
{
	FBlueprintBuilder Blueprint; // "/Game/Tests/BP_Test"
	const std::string Content = ToStd(Blueprint.Folder().Get("Content/Tests/BP_Test.uatext"));
	for (const std::string& Path :
		std::vector<std::string>{"/Game/Tests/BP_Test", "  /Game/Tests/BP_Test  ", "/Game/Tests/BP_Test.BP_Test",
			"/Game/Tests/BP_Test.BP_Test_C", "/Game/Tests/BP_Test_C", "/Game/Tests/BP_Test.BP_Test:EventGraph",
			"Blueprint'/Game/Tests/BP_Test.BP_Test'", "/Script/Engine.Blueprint'/Game/Tests/BP_Test.BP_Test'",
			"\"/Game/Tests/BP_Test\"", "\\Game\\Tests\\BP_Test", "//Game//Tests//BP_Test/", "Game/Tests/BP_Test",
			"/game/tests/bp_test", "Content/Tests/BP_Test.uatext", "/Content/Tests/BP_Test",
			"/Game/Tests/BP_Test.uasset", "Tests/BP_Test", Content})
	{
		EXPECT_EQ(ToStd(FAssetOperationBase::NormalizeAssetPath(FromUtf8(Path))), "/Game/Tests/BP_Test") << Path;
		EXPECT_TRUE(FAssetOperationBase::AssetExists(FromUtf8(Path))) << Path;
	}
}

TEST(AssetPath, WhatIsNoAssetPathStaysForTheError)
{
	FBlueprintBuilder Blueprint;
	for (const char* const Path : {"", "BP_Test", "/Script/Engine.Actor", "../../etc/passwd", "/Game/../Secret",
			 "/NoSuchRoot/A/B", "/Game/Tests/BP_Other_C"})
	{
		EXPECT_EQ(ToStd(FAssetOperationBase::NormalizeAssetPath(FromUtf8(Path))), Path);
	}
	EXPECT_EQ(ToStd(FAssetOperationBase::NormalizeAssetPath(TEXT("BP_Test.BP_Test_C"))), "BP_Test");
	// Only behind an object a colon names a part of it.
	EXPECT_EQ(ToStd(FAssetOperationBase::NormalizeAssetPath(TEXT("/Game/Tests:Old/BP_Test.BP_Test"))),
		"/Game/Tests:Old/BP_Test");
	EXPECT_FALSE(FAssetOperationBase::AssetExists(TEXT("/Game/Tests/BP_Test:x.y")));
	EXPECT_FALSE(FAssetOperationBase::AssetExists(TEXT("/Game/Tests/BP_Other")));
	EXPECT_FALSE(FAssetOperationBase::AssetExists(TEXT("/Game/../Tests/BP_Test")));
	EXPECT_FALSE(FAssetOperationBase::AssetExists(TEXT("")));
}

TEST(AssetPath, NamesAreTheLastPart)
{
	for (const auto& [Path, Name] :
		{std::pair("/Game/A/BP_X.BP_X", "BP_X"), {"/Game/A/BP_X", "BP_X"}, {"BP_X", "BP_X"}, {"", ""}})
	{
		EXPECT_EQ(ToStd(FBlueprintUtils::GetBlueprintName(FromUtf8(Path))), Name);
		EXPECT_EQ(ToStd(FAssetOperationBase::GetAssetNameFromPath(FromUtf8(Path))), Name);
	}
}

TEST(AssetPath, ClassesAreFoundAsAgentsNameThem)
{
	FBlueprintBuilder Blueprint;
	for (const auto& [Name, Expected] : {std::pair("Actor", "/Script/Engine.Actor"), {"AActor", "/Script/Engine.Actor"},
			 {"/Script/Engine.Actor", "/Script/Engine.Actor"},
			 {"UStaticMeshComponent", "/Script/Engine.StaticMeshComponent"},
			 {"Static Mesh Component", "/Script/Engine.StaticMeshComponent"},
			 {"BP_Test", "/Game/Tests/BP_Test.BP_Test_C"}, {"/Game/Tests/BP_Test", "/Game/Tests/BP_Test.BP_Test_C"},
			 {"NoSuchThing", ""}, {"", ""}, {"/Game/No/Such", ""}})
	{
		const UClass* const Class = FAssetOperationBase::GetAssetClassFromAssetName(FromUtf8(Name));
		EXPECT_EQ(Class ? ToStd(Class->GetPathName()) : "", Expected) << Name;
	}
}

TEST(SafeAssetLoader, JudgesTheFormAndAsksTheRegistry)
{
	FBlueprintBuilder Blueprint;
	struct FCase
	{
		const char* Path;
		bool bValid;
		bool bExists;
	};
	for (const FCase& Case : {FCase{"/Game/Tests/BP_Test", true, true}, {"/Game/Tests/BP_Test.BP_Test", true, true},
			 {"/Game/Tests/BP_Test.BP_Test_C", true, true}, {"Blueprint'/Game/Tests/BP_Test.BP_Test'", true, true},
			 {"/Game/Tests/BP_Other", true, false}, {"/Script/Engine.Actor", true, false}, {"BP_Test", false, false},
			 {"", false, false}, {"/Game/../Tests/BP_Test", false, false}, {"/Game//BP_Test", false, false},
			 {"/Game/A B?", false, false}})
	{
		EXPECT_EQ(FSafeAssetLoader::IsValidAssetPath(FromUtf8(Case.Path)), Case.bValid) << Case.Path;
		EXPECT_EQ(FSafeAssetLoader::AssetExistsInRegistry(FromUtf8(Case.Path)), Case.bExists) << Case.Path;
	}
}
