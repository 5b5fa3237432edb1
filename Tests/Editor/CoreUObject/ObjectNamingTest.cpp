#include "ReflectedThings.h"

#include "Standalone/ObjectProviders.h"
#include "UObject/UObjectIterator.h"

#include <gtest/gtest.h>

namespace ObjectNaming
{
TEST(ObjectNaming, PathsSeparatePackageAssetAndSubObjects)
{
	const FThingPackage Package;
	UThing* const Asset = Package.Make(TEXT("A"));
	UThing* const Graph = Package.Make(TEXT("Graph"), Asset);
	UThing* const Node = Package.Make(TEXT("Node_0"), Graph);
	EXPECT_EQ(Package.Get()->GetPathName(), Package.Path());
	EXPECT_EQ(Asset->GetPathName(), Package.Path(TEXT(".A")));
	EXPECT_EQ(Graph->GetPathName(), Package.Path(TEXT(".A:Graph")));
	EXPECT_EQ(Node->GetPathName(), Package.Path(TEXT(".A:Graph.Node_0")));
	EXPECT_EQ(Node->GetPathName(Asset), TEXT("Graph.Node_0"));
	EXPECT_EQ(Node->GetFullGroupName(false), TEXT("A:Graph.Node_0"));
	EXPECT_EQ(Node->GetFullGroupName(true), TEXT("A:Graph"));
	EXPECT_EQ(Node->GetTypedOuter<UPackage>(), Package.Get());
	EXPECT_TRUE(Node->IsIn(Asset));
	EXPECT_FALSE(Asset->IsIn(Node));
}

TEST(ObjectNaming, FindTakesEverySpellingOfAPath)
{
	const FThingPackage Package;
	UThing* const Asset = Package.Make(TEXT("A"));
	UThing* const Node = Package.Make(TEXT("Node_0"), Package.Make(TEXT("Graph"), Asset));
	struct FCase
	{
		FString Path;
		UObject* Outer;
		UObject* Expected;
	};
	const FString NodePath = Package.Path(TEXT(".A:Graph.Node_0"));
	const FCase Cases[] = {
		{NodePath, nullptr, Node},
		{NodePath.ToUpper(), nullptr, Node},
		{TEXT("Thing'") + NodePath + TEXT("'"), nullptr, Node},
		{TEXT("/Script/ThingTests.Thing'\"") + NodePath + TEXT("\"'"), nullptr, Node},
		{TEXT("\"/Script/ThingTests.Thing'") + NodePath + TEXT("'\""), nullptr, Node},
		{TEXT("Graph.Node_0"), Asset, Node},
		{TEXT("A:Graph.Node_0"), Package.Get(), Node},
		{NodePath, Asset, Node},
		{Package.Path(), nullptr, Package.Get()},
		{TEXT("/Script/ThingTests.Thing"), nullptr, UThing::StaticClass()},
		{TEXT("ThingTests.Thing"), nullptr, UThing::StaticClass()},
		{TEXT("/Script/ThingTests.Default__Thing"), nullptr, UThing::StaticClass()->GetDefaultObject()},
		{TEXT("A"), nullptr, nullptr},
		{TEXT("Thing'"), nullptr, nullptr},
		{TEXT("'"), nullptr, nullptr},
		{TEXT(""), nullptr, nullptr},
		{TEXT("."), nullptr, nullptr},
		{TEXT(":"), Asset, nullptr},
		{Package.Path(TEXT(".A:Graph.")), nullptr, Node->GetOuter()},
		{Package.Path(TEXT(".A:Gone.Node_0")), nullptr, nullptr},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(StaticFindObject(UObject::StaticClass(), Case.Outer, *Case.Path), Case.Expected) << Case.Path;
	}
	EXPECT_EQ(StaticFindObject(UClass::StaticClass(), nullptr, *NodePath), nullptr);
	EXPECT_EQ(StaticFindObject(UObject::StaticClass(), nullptr, *NodePath, true), nullptr);
	EXPECT_EQ(FindFirstObject<UClass>(TEXT("Thing")), UThing::StaticClass());
	EXPECT_EQ(FindFirstObject<UThing>(TEXT("node_0")), Node);
	EXPECT_EQ(StaticFindObject(UClass::StaticClass(), ANY_PACKAGE, TEXT("ThingOwner")), UThingOwner::StaticClass());
}

TEST(ObjectNaming, ShortNamesPreferCode)
{
	const FThingPackage Package;
	UClass* const Namesake = Package.MakeClass(TEXT("Thing"), UThing::StaticClass());
	EXPECT_EQ(FindFirstObject<UClass>(TEXT("Thing")), UThing::StaticClass());
	EXPECT_EQ(FindObject<UClass>(Package.Get(), TEXT("Thing")), Namesake);
}

TEST(ObjectNaming, FreshNamesCountUpForEachOuterAndBase)
{
	const FThingPackage Package;
	UThing* const First = NewObject<UThing>(Package.Get());
	UThing* const Second = NewObject<UThing>(Package.Get());
	EXPECT_EQ(First->GetName(), TEXT("Thing_0"));
	EXPECT_EQ(Second->GetName(), TEXT("Thing_1"));
	EXPECT_EQ(NewObject<UThing>(First)->GetName(), TEXT("Thing_0"));
	Package.Make(TEXT("Thing_2"));
	EXPECT_EQ(NewObject<UThing>(Package.Get())->GetName(), TEXT("Thing_3"));
	EXPECT_EQ(MakeUniqueObjectName(Package.Get(), UThing::StaticClass(), TEXT("Base_7")), FName(TEXT("Base_0")));
	EXPECT_TRUE(IsUniqueObjectName(TEXT("Other"), Package.Get()));
	EXPECT_FALSE(IsUniqueObjectName(TEXT("THING_0"), Package.Get()));
}

TEST(ObjectNaming, TakenNameAnswersWhatStandsThereOrMakesAnother)
{
	const FThingPackage Package;
	UThing* const Standing = Package.Make(TEXT("A"));
	EXPECT_EQ(Package.Make(TEXT("a")), Standing);
	UThingOwner* const Other = NewObject<UThingOwner>(Package.Get(), FName(TEXT("A")));
	EXPECT_NE(static_cast<UObject*>(Other), Standing);
	EXPECT_EQ(Other->GetName(), TEXT("A_0"));
}

TEST(ObjectNaming, RenameMovesAndRefusesClashes)
{
	const FThingPackage Package;
	UThing* const A = Package.Make(TEXT("A"));
	UThing* const B = Package.Make(TEXT("B"));
	UThing* const InA = Package.Make(TEXT("X"), A);
	UThing* const InB = Package.Make(TEXT("X"), B);
	EXPECT_FALSE(A->Rename(TEXT("b")));
	EXPECT_EQ(A->GetName(), TEXT("A"));
	EXPECT_TRUE(A->Rename(TEXT("C"), nullptr, REN_Test));
	EXPECT_EQ(A->GetName(), TEXT("A"));
	EXPECT_TRUE(A->Rename(TEXT("a")));
	EXPECT_TRUE(A->GetName().Equals(TEXT("a"), ESearchCase::CaseSensitive));
	EXPECT_FALSE(A->Rename(nullptr, InA)) << "below itself";
	EXPECT_TRUE(InA->Rename(nullptr, B)) << "a kept name that clashes is made unique";
	EXPECT_EQ(InA->GetPathName(), Package.Path(TEXT(".B:X_0")));
	EXPECT_EQ(A->GetFirstInner(), nullptr);
	EXPECT_EQ(B->GetFirstInner(), InB);
	EXPECT_EQ(InB->GetNextInner(), InA);
	EXPECT_EQ(FindObject<UThing>(nullptr, Package.Path(TEXT(".a:X"))), nullptr);
}

TEST(ObjectNaming, RenameMarksBothPackagesDirtyUnlessToldNotTo)
{
	const FThingPackage From;
	const FThingPackage To;
	UThing* const Thing = From.Make(TEXT("A"));
	EXPECT_TRUE(Thing->Rename(TEXT("B"), nullptr, REN_DoNotDirty));
	EXPECT_FALSE(From.Get()->IsDirty());
	EXPECT_TRUE(Thing->Rename(nullptr, To.Get()));
	EXPECT_TRUE(From.Get()->IsDirty());
	EXPECT_TRUE(To.Get()->IsDirty());
	EXPECT_FALSE(UThing::StaticClass()->MarkPackageDirty()) << "code is not saved";
}

TEST(ObjectNaming, WalksAreInOrderOfCreation)
{
	const FThingPackage Package;
	Package.Make(TEXT("Gone"))->MarkAsGarbage();
	CollectGarbage();
	UThing* const A = Package.Make(TEXT("A"));
	UThing* const InA = Package.Make(TEXT("InA"), A);
	UThing* const B = Package.Make(TEXT("B"));
	TArray<UObject*> Below;
	GetObjectsWithOuter(Package.Get(), Below, true);
	EXPECT_EQ(Below, (TArray<UObject*>{A, InA, B}));
	TArray<UObject*> All;
	for (TObjectIterator<UThing> It; It; ++It)
	{
		if (It->GetOutermost() == Package.Get())
		{
			All.Add(*It);
		}
	}
	EXPECT_EQ(All, Below);
	TArray<UClass*> Derived;
	GetDerivedClasses(UThing::StaticClass(), Derived);
	EXPECT_TRUE(Derived.Contains(UThingOwner::StaticClass()));
	EXPECT_FALSE(Derived.Contains(UThing::StaticClass()));
}

TEST(ObjectNaming, TopLevelPathsTakeFullPathsOnly)
{
	struct FCase
	{
		const TCHAR* Text;
		const TCHAR* Expected;
	};
	const FCase Cases[] = {
		{TEXT("/Script/Engine.Actor"), TEXT("/Script/Engine.Actor")},
		{TEXT("Class'/Script/Engine.Actor'"), TEXT("/Script/Engine.Actor")},
		{TEXT("/Game/A"), TEXT("/Game/A")},
		{TEXT("Actor"), TEXT("")},
		{TEXT(""), TEXT("")},
		{TEXT("/"), TEXT("")},
		{TEXT("/Game/A.A:B"), TEXT("")},
	};
	for (const FCase& Case : Cases)
	{
		FTopLevelAssetPath Path(TEXT("/Old/One.One"));
		EXPECT_EQ(Path.TrySetPath(Case.Text), *Case.Expected != 0) << FString(Case.Text);
		EXPECT_EQ(Path.ToString(), FString(Case.Expected)) << FString(Case.Text);
	}
	EXPECT_EQ(FSoftObjectPath(TEXT("Blueprint'/Game/A.A:G.N'")).GetSubPathString(), TEXT("G.N"));
	EXPECT_EQ(FSoftObjectPath(TEXT("/Game/A.A:G.N")).ToString(), TEXT("/Game/A.A:G.N"));
	EXPECT_TRUE(FSoftObjectPath(TEXT("None")).IsNull());
}

/** A source of one class that is made when asked for, and of one package. */
struct FFakeSource
{
	static inline int32 NumAsked = 0;
	static inline int32 NumLoads = 0;

	static UObject* FindByPath(FStringView Package, FStringView Name)
	{
		++NumAsked;
		return Package == TEXT("/Script/LazyTests") && Name == TEXT("LazyThing") ? Make() : nullptr;
	}
	static UObject* FindByShortName(FStringView Name, const UClass* Kind)
	{
		return Name == TEXT("LazyThing") && UClass::StaticClass()->IsChildOf(Kind) ? Make() : nullptr;
	}
	static UObject* Make()
	{
		UClass* const Class = NewObject<UClass>(CreatePackage(TEXT("/Script/LazyTests")), FName(TEXT("LazyThing")));
		if (!Class->GetSuperClass())
		{
			Class->SetSuperStruct(UThing::StaticClass());
			Class->SetMemberFiller(&Fill, 42);
		}
		return Class;
	}
	static void Fill(UStruct* Struct, uint32 DataIndex)
	{
		AddDataProperty<int32>(Struct, TEXT("Lazy"));
		NewObject<UFunction>(Struct, FName(TEXT("DoLazily")));
		Struct->AddFunction(NewObject<UFunction>(Struct, FName(TEXT("DoLazily"))));
		Struct->SetMetaData(TEXT("Index"), FString::FromInt(static_cast<int32>(DataIndex)));
	}
	static bool InitializeDefaults(UClass* Class, UObject* Default)
	{
		const bool bMine = Class->GetFName() == FName(TEXT("LazyThing"));
		if (bMine)
		{
			ValueOf<int32>(Default, TEXT("Lazy")) = 9;
			static_cast<UThing*>(Default)->Number = 77;
		}
		return bMine;
	}
	static UPackage* Load(FStringView Name, uint32 Flags)
	{
		++NumLoads;
		if (Name != TEXT("/Game/OnDisk/Box"))
		{
			return nullptr;
		}
		UPackage* const Package = CreatePackage(*FString(Name));
		NewObject<UThing>(Package, FName(TEXT("Box")));
		return Package;
	}

	FFakeSource()
		: OldObjects(ObjectProviders::GetLazyObjects())
		, OldLoader(ObjectProviders::GetPackageLoader())
	{
		ObjectProviders::SetLazyObjects({&FindByPath, &FindByShortName, nullptr, nullptr, &InitializeDefaults});
		ObjectProviders::SetPackageLoader({&Load});
		NumAsked = 0;
		NumLoads = 0;
	}
	~FFakeSource()
	{
		ObjectProviders::SetLazyObjects(OldObjects);
		ObjectProviders::SetPackageLoader(OldLoader);
	}

	ObjectProviders::FLazyObjects OldObjects;
	ObjectProviders::FPackageLoader OldLoader;
};

TEST(ObjectSources, DataIsAskedOnceAndReadWhenMembersAre)
{
	const FThingPackage Package;
	const FFakeSource Source;
	UClass* const Class = FindObject<UClass>(nullptr, TEXT("/Script/LazyTests.LazyThing"));
	ASSERT_NE(Class, nullptr);
	EXPECT_TRUE(Class->HasPendingMembers());
	EXPECT_EQ(FindFirstObject<UClass>(TEXT("LazyThing")), Class);
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/LazyTests.LazyThing")), Class);
	EXPECT_EQ(FFakeSource::NumAsked, 1);
	EXPECT_NE(FindObject<UFunction>(nullptr, TEXT("/Script/LazyTests.LazyThing:DoLazily")), nullptr);
	EXPECT_FALSE(Class->HasPendingMembers());
	EXPECT_EQ(Class->GetMetaData(TEXT("Index")), TEXT("42"));
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/LazyTests.Nothing")), nullptr);
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Game/LazyTests.LazyThing")), nullptr);

	UThing* const Instance = NewObject<UThing>(Package.Get(), Class);
	EXPECT_EQ(ValueOf<int32>(Instance, TEXT("Lazy")), 9);
	EXPECT_EQ(Instance->Number, 77) << "a default that only data knows reaches C++ members";
	EXPECT_EQ(Instance->GetClass(), Class);
	EXPECT_EQ(NewObject<UThing>(Package.Get())->Number, 5);
}

TEST(ObjectSources, LoadAsksForAPackageOnlyWhenMemoryHasNoSuchObject)
{
	const FThingPackage Package;
	const FFakeSource Source;
	UThing* const Asset = Package.Make(TEXT("A"));
	EXPECT_EQ(LoadObject<UThing>(nullptr, *Asset->GetPathName()), Asset);
	EXPECT_EQ(FFakeSource::NumLoads, 0);
	EXPECT_EQ(LoadObject<UThing>(nullptr, TEXT("/Script/Nowhere.Thing")), nullptr);
	EXPECT_EQ(LoadObject<UThing>(nullptr, TEXT("Relative")), nullptr);
	EXPECT_EQ(FFakeSource::NumLoads, 0) << "no file can hold these";
	EXPECT_EQ(FindObject<UThing>(nullptr, TEXT("/Game/OnDisk/Box.Box")), nullptr);
	UThing* const Box = LoadObject<UThing>(nullptr, TEXT("/Game/OnDisk/Box"));
	ASSERT_NE(Box, nullptr) << "a package path means its asset";
	EXPECT_EQ(Box->GetPathName(), TEXT("/Game/OnDisk/Box.Box"));
	EXPECT_EQ(LoadObject<UThing>(nullptr, TEXT("Thing'/Game/OnDisk/Box.Box'")), Box);
	EXPECT_EQ(FFakeSource::NumLoads, 1);
	EXPECT_EQ(LoadObject<UThing>(nullptr, TEXT("/Game/OnDisk/Gone.Gone")), nullptr);
	Box->GetOutermost()->MarkAsGarbage();
	CollectGarbage();
}
} // namespace ObjectNaming
