#include "AssetRegistry/AssetRegistryModule.h"
#include "Standalone/EngineContent.h"
#include "Standalone/PackageText.h"
#include "Structuring.h"
#include "UObject/Package.h"

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(EngineAssets, EachIsLoadedByItsPathAsAnObjectOfItsClass)
{
	const FBlueprintBuilder Project;
	EXPECT_GT(EngineContent::GetEntries().Num(), 100);
	for (const EngineContent::FEntry& Entry : EngineContent::GetEntries())
	{
		const UObject* const Asset = LoadObject<UObject>(nullptr, *Entry.PackageName);
		ASSERT_TRUE(Asset) << ToStd(Entry.PackageName);
		EXPECT_EQ(ToStd(Asset->GetClass()->GetPathName()), ToStd(Entry.ClassPath.ToString()));
		EXPECT_EQ(ToStd(Asset->GetPathName()), ToStd(Entry.PackageName + TEXT(".") + Entry.GetAssetName()));
		EXPECT_FALSE(Asset->GetPackage()->IsDirty()) << ToStd(Entry.PackageName);
	}
	EXPECT_FALSE(LoadObject<UObject>(nullptr, TEXT("/Engine/BasicShapes/Dodecahedron")));
}

TEST(EngineAssets, AreHeldByReferenceInFilesAndAfterReading)
{
	FPackageText::TakeProblems();
	FStructuring Case;
	Case.Components(
		R"({"name":"Mesh","type":"StaticMeshComponent","properties":{"StaticMesh":"/Engine/BasicShapes/Cube",
		"OverrideMaterials":["/Engine/EngineMaterials/WorldGridMaterial.WorldGridMaterial"]}})");
	EXPECT_THAT(Case.Told(), IsEmpty());
	Case.Variables(
		R"("Tone":{"action":"add","type":{"category":"object","sub_category_object":"/Script/Engine.SoundBase"},"default_variable_value":"/Engine/EngineSounds/WhiteNoise"})");
	EXPECT_THAT(Case.Told(), IsEmpty());
	const std::string Cube = "/Script/Engine.StaticMesh'/Engine/BasicShapes/Cube.Cube'";
	EXPECT_THAT(Case.Value(TEXT("Mesh"), TEXT("StaticMesh")), HasSubstr("/Engine/BasicShapes/Cube.Cube"));
	EXPECT_THAT(Case.Blueprint.Folder().Read("Content/Tests/BP_Test.uatext"), HasSubstr(Cube));
	ASSERT_TRUE(Case.Blueprint.Reload());
	EXPECT_THAT(Case.Value(TEXT("Mesh"), TEXT("StaticMesh")), HasSubstr("/Engine/BasicShapes/Cube.Cube"));
	EXPECT_THAT(Case.Default(TEXT("Tone")), HasSubstr("WhiteNoise"));
	EXPECT_EQ(ToStd(FString::Join(FPackageText::TakeProblems(), TEXT("|"))), "");
}

TEST(EngineAssets, OneOfAnotherClassIsRefused)
{
	FStructuring Case;
	Case.Components(
		R"({"name":"Mesh","type":"StaticMeshComponent","properties":{"StaticMesh":"/Engine/EngineMaterials/DefaultMaterial"}})");
	EXPECT_THAT(Case.Told(), Not(IsEmpty()));
	EXPECT_THAT(Case.Value(TEXT("Mesh"), TEXT("StaticMesh")), Not(HasSubstr("DefaultMaterial")));
}

TEST(EngineAssets, TheRegistryKnowsThemAndListsThemBelowTheirFolderOnly)
{
	const FBlueprintBuilder Project;
	LoadObject<UObject>(nullptr, TEXT("/Engine/BasicShapes/Cube"));
	IAssetRegistry& Registry = IAssetRegistry::GetChecked();
	TArray<FAssetData> Shapes;
	EXPECT_TRUE(Registry.GetAssetsByPath(FName(TEXT("/Engine/BasicShapes")), Shapes, true));
	EXPECT_EQ(Shapes.Num(), 6);
	TArray<FAssetData> Meshes;
	EXPECT_FALSE(Registry.GetAssetsByClass(FTopLevelAssetPath(TEXT("/Script/Engine.StaticMesh")), Meshes));
	const FSoftObjectPath Path(TEXT("/Engine/EngineFonts/Roboto.Roboto"));
	EXPECT_EQ(ToStd(Registry.GetAssetByObjectPath(Path).AssetClassPath.ToString()), "/Script/Engine.Font");
}
