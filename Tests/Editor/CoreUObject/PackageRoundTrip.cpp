#include "PackageTest.h"

#include "Standalone/ObjectText.h"
#include "UObject/UnrealType.h"

class PackageRoundTrip : public FPackageTest
{
};

TEST_F(PackageRoundTrip, SavingWhatWasLoadedWritesTheSameBytes)
{
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Dir/Thing"));
	Asset->Title = TEXT("\u00fcber \"quoted\"\nline");
	Asset->Custom = {TEXT("Pin (X)")};
	for (const TCHAR* const Name : {TEXT("Zeta"), TEXT("Alpha"), TEXT("My Graph")})
	{
		UTestAsset* const Inner = TestAssets::MakeInner(Asset, Name);
		Inner->Link = Asset;
		Asset->Links.Add(TestAssets::MakeInner(Inner, TEXT("Deep")));
	}
	NewObject<UTestAsset>(Asset->GetOuter(), TEXT("Second"))->Count = 3;
	ASSERT_EQ(Relative(TestAssets::Save(Asset)), "");
	const std::string Written = Folder.Read("Dir/Thing.uatext");
	EXPECT_FALSE(Asset->GetOutermost()->IsDirty());

	UnloadAll();
	UTestAsset* const Loaded = Load<UTestAsset>(TEXT("/Pack/Dir/Thing.Thing"));
	ASSERT_TRUE(Loaded);
	EXPECT_TRUE(Loaded->HasAllFlags(static_cast<EObjectFlags>(RF_Public | RF_Standalone)));
	EXPECT_FALSE(Loaded->HasAnyFlags(static_cast<EObjectFlags>(RF_NeedLoad | RF_NeedPostLoad)));
	EXPECT_FALSE(Loaded->GetOutermost()->IsDirty());
	ASSERT_EQ(Loaded->Links.Num(), 3);
	EXPECT_EQ(ToUtf8(Loaded->Links[2]->GetPathName()), "/Pack/Dir/Thing.Thing:My Graph.Deep");
	EXPECT_EQ(Cast<UTestAsset>(Loaded->Links[1]->GetOuter())->Link, Loaded);
	ASSERT_EQ(Relative(TestAssets::Save(Loaded)), "");
	EXPECT_EQ(Folder.Read("Dir/Thing.uatext"), Written);
}

TEST_F(PackageRoundTrip, HeaderTellsWhatTheRegistryNeeds)
{
	UTestBlueprint* const Blueprint = TestAssets::MakeBlueprint(TEXT("/Pack/BP"), UTestSpecialAsset::StaticClass(), {});
	ASSERT_EQ(Relative(TestAssets::Save(Blueprint)), "");
	FPackageText::FHeader Header;
	FString Error;
	ASSERT_TRUE(FPackageText::ReadHeader(Folder.Get("BP.uatext"), Header, Error)) << ToUtf8(Error);
	EXPECT_EQ(ToUtf8(Header.PackageName), "/Pack/BP");
	EXPECT_EQ(ToUtf8(Header.AssetName), "BP");
	EXPECT_EQ(ToUtf8(Header.AssetClassPath), "/Script/Tests.TestBlueprint");
	ASSERT_TRUE(Header.FindTag(TEXT("ParentClass")));
	EXPECT_EQ(
		ToUtf8(*Header.FindTag(TEXT("ParentClass"))), "/Script/CoreUObject.Class'/Script/Tests.TestSpecialAsset'");
	EXPECT_EQ(ToUtf8(*Header.FindTag(TEXT("GeneratedClass"))), "/Script/CoreUObject.Class'/Pack/BP.BP_C'");
}

TEST_F(PackageRoundTrip, AHeaderLongerThanTheFirstReadIsReadWhole)
{
	const FString Name = TEXT("/Pack/") + FString::ChrN(200, TEXT('a'));
	UTestBlueprint* const Parent = TestAssets::MakeBlueprint(*Name, UTestAsset::StaticClass(), {});
	UTestBlueprint* const Child = TestAssets::MakeBlueprint(*(Name + TEXT("b")), Parent->GeneratedClass, {});
	ASSERT_EQ(Relative(TestAssets::Save(Child)), "");
	FPackageText::FHeader Header;
	FString Error;
	EXPECT_TRUE(FPackageText::ReadHeader(Folder.Get(std::string(200, 'a') + "b.uatext"), Header, Error))
		<< ToUtf8(Error);
	EXPECT_GT(Header.BodyOffset, 1024);
}

TEST_F(PackageRoundTrip, ClassDefaultsComeBackAfterTheClassWasRebuilt)
{
	UTestBlueprint* Blueprint = TestAssets::MakeBlueprint(
		TEXT("/Pack/BP"), UTestAsset::StaticClass(), {TEXT("Speed"), TEXT("Zero")});
	TestAssets::SetDefaultValue(*Blueprint, TEXT("Speed"), 300);
	Cast<UTestAsset>(Blueprint->GeneratedClass->GetDefaultObject())->Count = 70;
	ASSERT_EQ(Relative(TestAssets::Save(Blueprint)), "");
	const std::string Written = Folder.Read("BP.uatext");
	EXPECT_NE(Written.find("Zero=0"), std::string::npos) << "a variable's value is told even when it is zero";

	UnloadAll();
	Blueprint = Load<UTestBlueprint>(TEXT("/Pack/BP"));
	ASSERT_TRUE(Blueprint);
	EXPECT_EQ(TestAssets::GetDefaultValue(*Blueprint, TEXT("Speed")), 300);
	EXPECT_EQ(Cast<UTestAsset>(Blueprint->GeneratedClass->GetDefaultObject())->Count, 70);
	EXPECT_EQ(Load<UClass>(TEXT("/Pack/BP.BP_C")), Blueprint->GeneratedClass);
	ASSERT_EQ(Relative(TestAssets::Save(Blueprint)), "");
	EXPECT_EQ(Folder.Read("BP.uatext"), Written);
}

/** Parent refers to child, child derives from parent: whichever is asked for first, both are whole in the end. */
TEST_F(PackageRoundTrip, PackagesMayReferToEachOtherInCircles)
{
	UTestBlueprint* const Parent = TestAssets::MakeBlueprint(
		TEXT("/Pack/Parent"), UTestAsset::StaticClass(), {TEXT("Speed")});
	TestAssets::SetDefaultValue(*Parent, TEXT("Speed"), 5);
	UTestBlueprint* const Child = TestAssets::MakeBlueprint(
		TEXT("/Pack/Child"), Parent->GeneratedClass, {TEXT("Height")});
	TestAssets::SetDefaultValue(*Child, TEXT("Height"), 6);
	Parent->Other = Child->GeneratedClass;
	Child->Other = Parent;
	ASSERT_EQ(Relative(TestAssets::Save(Parent)), "");
	ASSERT_EQ(Relative(TestAssets::Save(Child)), "");
	for (const TCHAR* const First : {TEXT("/Pack/Parent"), TEXT("/Pack/Child")})
	{
		UnloadAll();
		ASSERT_TRUE(LoadPackage(nullptr, First, LOAD_Quiet));
		const UTestBlueprint* const LoadedParent = FindObject<UTestBlueprint>(nullptr, TEXT("/Pack/Parent.Parent"));
		const UTestBlueprint* const LoadedChild = FindObject<UTestBlueprint>(nullptr, TEXT("/Pack/Child.Child"));
		ASSERT_TRUE(LoadedParent && LoadedChild) << ToUtf8(First);
		EXPECT_EQ(LoadedParent->Other, LoadedChild->GeneratedClass) << ToUtf8(First);
		EXPECT_EQ(LoadedChild->Other, LoadedParent) << ToUtf8(First);
		EXPECT_EQ(LoadedChild->GeneratedClass->GetSuperClass(), LoadedParent->GeneratedClass) << ToUtf8(First);
		EXPECT_EQ(TestAssets::GetDefaultValue(*LoadedParent, TEXT("Speed")), 5) << ToUtf8(First);
		EXPECT_EQ(TestAssets::GetDefaultValue(*LoadedChild, TEXT("Speed")), 5) << ToUtf8(First);
		EXPECT_EQ(TestAssets::GetDefaultValue(*LoadedChild, TEXT("Height")), 6) << ToUtf8(First);
	}
}

TEST_F(PackageRoundTrip, ObjectsOfAnotherPackagesClassAreMadeOfTheRebuiltClass)
{
	UTestBlueprint* const Part = TestAssets::MakeBlueprint(
		TEXT("/Pack/Part"), UTestAsset::StaticClass(), {TEXT("Size")});
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Whole"));
	UObject* const Inner = NewObject<UObject>(Asset, Part->GeneratedClass, TEXT("Inner"));
	const FIntProperty* const Size = CastField<FIntProperty>(Part->GeneratedClass->FindPropertyByName(TEXT("Size")));
	Size->SetPropertyValue_InContainer(Inner, 44);
	ASSERT_EQ(Relative(TestAssets::Save(Part)), "");
	ASSERT_EQ(Relative(TestAssets::Save(Asset)), "");

	UnloadAll();
	const UObject* const Loaded = Load<UObject>(TEXT("/Pack/Whole.Whole:Inner"));
	ASSERT_TRUE(Loaded);
	const FIntProperty* const Again = CastField<FIntProperty>(Loaded->GetClass()->FindPropertyByName(TEXT("Size")));
	ASSERT_TRUE(Again);
	EXPECT_EQ(Again->GetPropertyValue_InContainer(Loaded), 44);
}

TEST_F(PackageRoundTrip, InnerObjectsArePostLoadedBeforeOuterOnesAndTheAssetLast)
{
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Thing"));
	TestAssets::MakeInner(TestAssets::MakeInner(Asset, TEXT("Mid")), TEXT("Deep"));
	NewObject<UTestAsset>(Asset->GetOuter(), TEXT("Side"));
	ASSERT_EQ(Relative(TestAssets::Save(Asset)), "");
	UnloadAll();
	UTestAsset::PostLoadOrder.Empty();
	ASSERT_TRUE(Load<UTestAsset>(TEXT("/Pack/Thing")));
	EXPECT_EQ(ToUtf8(FString::Join(UTestAsset::PostLoadOrder, TEXT(" "))), "Deep Mid Side Thing");
}

TEST_F(PackageRoundTrip, ObjectsOfUnknownClassesAreKeptInTheFile)
{
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Thing"));
	FKeptObjectText::FindOrAdd(Asset->GetOutermost())
		.Objects.push_back("Begin Object Class=/Script/Gone.A Name=\"Top\"\nX=1\nEnd Object");
	FKeptObjectText::FindOrAdd(Asset).Objects.push_back(
		"Begin Object Class=/Script/Gone.B Name=\"In\"\nY=2\nEnd Object");
	ASSERT_EQ(Relative(TestAssets::Save(Asset)), "");
	const std::string Written = Folder.Read("Thing.uatext");
	UnloadAll();
	UTestAsset* const Loaded = Load<UTestAsset>(TEXT("/Pack/Thing"));
	ASSERT_TRUE(Loaded);
	ASSERT_EQ(Relative(TestAssets::Save(Loaded)), "");
	EXPECT_EQ(Folder.Read("Thing.uatext"), Written);
	EXPECT_NE(Written.find("Y=2"), std::string::npos);
	EXPECT_NE(Written.find("X=1"), std::string::npos);
}

/** A stand-in shows what it knows of the object and is written back under the class that it stands in for. */
TEST_F(PackageRoundTrip, AStandInKeepsAnUnknownClassWhole)
{
	UTestAsset* const Asset = TestAssets::MakeAsset(TEXT("/Pack/Thing"));
	UTestAsset* const Node = TestAssets::MakeInner(Asset, TEXT("Node"));
	Node->Count = 9;
	Node->Custom = {TEXT("Pin (A)")};
	Asset->Link = Node;
	FKeptObjectText::FindOrAdd(Node).ClassPath = "/Script/Gone.K2Node_Gone";
	FKeptObjectText::FindOrAdd(Node).Lines = {"Odd(0)=1"};
	ASSERT_EQ(Relative(TestAssets::Save(Asset)), "");
	const std::string Written = Folder.Read("Thing.uatext");
	EXPECT_NE(Written.find("Class=/Script/Gone.K2Node_Gone Name=\"Node\""), std::string::npos);

	UnloadAll();
	FObjectTextImport::SetUnknownClassHandler(
		[](const FObjectTextRecord& Record, UObject* Outer) -> UObject*
		{
			return Record.ClassPath.find("K2Node_") == std::string_view::npos
				? nullptr
				: TestAssets::MakeInner(Outer, *Record.GetName());
		});
	UTestAsset* const Loaded = Load<UTestAsset>(TEXT("/Pack/Thing"));
	FObjectTextImport::SetUnknownClassHandler(nullptr);
	ASSERT_TRUE(Loaded);
	const UTestAsset* const StandIn = FindObject<UTestAsset>(Loaded, TEXT("Node"));
	ASSERT_TRUE(StandIn);
	EXPECT_EQ(Loaded->Link, StandIn);
	EXPECT_EQ(StandIn->Count, 9);
	EXPECT_EQ(StandIn->Custom.Num(), 1);
	ASSERT_EQ(Relative(TestAssets::Save(Loaded)), "");
	EXPECT_EQ(Folder.Read("Thing.uatext"), Written);
}

TEST_F(PackageRoundTrip, ADifferentCaseFindsTheSamePackage)
{
	ASSERT_EQ(Relative(TestAssets::Save(TestAssets::MakeAsset(TEXT("/Pack/Dir/Thing")))), "");
	UnloadAll();
	const UTestAsset* const Loaded = Load<UTestAsset>(TEXT("/pack/dir/THING"));
	ASSERT_TRUE(Loaded);
	EXPECT_EQ(ToUtf8(Loaded->GetPathName()), "/Pack/Dir/Thing.Thing");
	EXPECT_EQ(Load<UTestAsset>(TEXT("/Pack/Dir/Thing")), Loaded);
}
