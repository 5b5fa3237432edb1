#include "ReflectedThings.h"
#include "Standalone/ObjectText.h"
#include "UObject/PropertyBagRepository.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ObjectLifetime
{
TEST(ObjectGarbage, MarkingFreesTheNameAndEmptiesWeakPointersAtOnce)
{
	const FThingPackage Package;
	UThing* const Asset = Package.Make(TEXT("A"));
	UThing* const Node = Package.Make(TEXT("Node"), Asset);
	const TWeakObjectPtr<UThing> WeakAsset(Asset);
	const TWeakObjectPtr<UThing> WeakNode(Node);
	Asset->MarkAsGarbage();
	EXPECT_FALSE(IsValid(Node)) << "what is below goes too";
	EXPECT_EQ(WeakAsset.Get(), nullptr);
	EXPECT_EQ(WeakNode.Get(), nullptr);
	EXPECT_EQ(WeakNode.Get(true), Node) << "the memory stands until collection";
	EXPECT_EQ(FindObject<UThing>(Package.Get(), TEXT("A")), nullptr);
	EXPECT_EQ(Package.Get()->GetFirstInner(), nullptr);
	UThing* const Fresh = Package.Make(TEXT("A"));
	EXPECT_NE(Fresh, Asset);
	CollectGarbage();
	EXPECT_EQ(WeakNode.Get(true), nullptr);
	EXPECT_EQ(FindObject<UThing>(Package.Get(), TEXT("A")), Fresh);
}

TEST(ObjectGarbage, AReusedSlotIsAnotherObjectToOldWeakPointers)
{
	const FThingPackage Package;
	UThing* const Old = Package.Make(TEXT("Old"));
	const TWeakObjectPtr<UThing> Weak(Old);
	const int32 Slot = Old->GetInternalIndex();
	Old->MarkAsGarbage();
	CollectGarbage();
	UThing* const New = Package.Make(TEXT("New"));
	ASSERT_EQ(New->GetInternalIndex(), Slot);
	EXPECT_EQ(Weak.Get(true), nullptr);
	EXPECT_FALSE(Weak == TWeakObjectPtr<UThing>(New));
	EXPECT_TRUE(Weak == TWeakObjectPtr<UThing>()) << "two that point nowhere are equal";
	const TWeakObjectPtr<UThing> ToNew(New);
	EXPECT_EQ(ToNew.Get(), New);
}

TEST(ObjectGarbage, CollectionEmptiesPropertiesThatPointAtTheDead)
{
	const FThingPackage Package;
	UThing* const Dying = Package.Make(TEXT("Dying"));
	UThing* const Living = Package.Make(TEXT("Living"));
	UThing* const Holder = Package.Make(TEXT("Holder"));
	Holder->Friend = Dying;
	Holder->Friends = {Living, Dying};
	Holder->Part.Target = Dying;
	Holder->Parts.AddDefaulted_GetRef().Parts.AddDefaulted_GetRef().Target = Dying;
	Holder->FriendSet.Add(Dying);
	Holder->FriendSet.Add(Living);
	Holder->Listener.SetObject(Dying);
	Holder->Weak = Dying;
	Holder->Event.InvocationList.AddDefaulted_GetRef().BindUFunction(Dying, TEXT("Run"));
	Dying->MarkAsGarbage();
	CollectGarbage();
	EXPECT_EQ(Holder->Friend, nullptr);
	EXPECT_EQ(Holder->Friends, (TArray<TObjectPtr<UObject>>{Living, nullptr}));
	EXPECT_EQ(Holder->Part.Target, nullptr);
	EXPECT_EQ(Holder->Parts[0].Parts[0].Target, nullptr);
	EXPECT_TRUE(Holder->FriendSet.Contains(Living));
	EXPECT_TRUE(Holder->FriendSet.Contains(nullptr));
	EXPECT_EQ(Holder->FriendSet.Num(), 2);
	EXPECT_EQ(Holder->Listener.GetObject(), nullptr);
	EXPECT_EQ(Holder->Weak.Get(), nullptr);
	EXPECT_FALSE(Holder->Event.InvocationList[0].IsBound());
}

TEST(ObjectGarbage, CodeIsNeverCollected)
{
	const FThingPackage Package;
	UThing::StaticClass()->MarkAsGarbage();
	UThing::StaticClass()->GetOutermost()->MarkAsGarbage();
	TBaseStructure<FVector>::Get()->MarkAsGarbage();
	CollectGarbage();
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/ThingTests.Thing")), UThing::StaticClass());
	EXPECT_FALSE(TBaseStructure<FVector>::Get()->IsGarbage());
}

TEST(ObjectGarbage, AnObjectWhoseClassIsDeletedKeepsItsValuesAsText)
{
	const FThingPackage Holder;
	TWeakObjectPtr<UClass> Class;
	UThing* Instance = nullptr;
	FString ClassPath;
	{
		const FThingPackage Package;
		Class = Package.MakeClass(TEXT("BP_C"), UThing::StaticClass());
		AddDataProperty<FString>(Class.Get(), TEXT("Extra"));
		Class->Link();
		ClassPath = Class->GetPathName();
		Instance = NewObject<UThing>(Holder.Get(), Class.Get());
		ValueOf<FString>(Instance, TEXT("Extra")) = TEXT("kept alive");
	}
	EXPECT_EQ(Class.Get(true), nullptr);
	EXPECT_EQ(Instance->GetClass()->GetPathName(), ClassPath);
	EXPECT_TRUE(UE::FPropertyBagRepository::IsPropertyBagPlaceholderType(Instance->GetClass()));
	EXPECT_EQ(FindObject<UClass>(nullptr, *ClassPath), nullptr) << "nothing new can be built on it";
	const FString Text = FObjectTextExport::Package(Holder.Get()).ToString({Instance});
	EXPECT_THAT(ToUtf8(Text), testing::HasSubstr("Extra=\"kept alive\""));
}

TEST(ObjectGarbage, ATypeThatAPropertyNamesIsKeptToo)
{
	const FThingPackage Holder;
	UClass* const User = Holder.MakeClass(TEXT("User_C"), UThing::StaticClass());
	TWeakObjectPtr<UClass> Named;
	{
		const FThingPackage Package;
		Named = Package.MakeClass(TEXT("Named_C"), UThing::StaticClass());
		FObjectProperty* const Property = new FObjectProperty(FFieldVariant(User), TEXT("Ref"));
		Property->PropertyClass = Named.Get();
		User->AddProperty(Property);
		User->Link();
	}
	EXPECT_NE(Named.Get(true), nullptr);
	User->DestroyMembers();
	User->Link();
	CollectGarbage();
	EXPECT_EQ(Named.Get(true), nullptr);
}

TEST(ObjectGarbage, AFunctionLeavesItsClass)
{
	const FThingPackage Package;
	UClass* const Class = Package.MakeClass(TEXT("BP_C"), UThing::StaticClass());
	UFunction* Functions[3];
	const TCHAR* const Names[] = {TEXT("A"), TEXT("B"), TEXT("C")};
	for (int32 Index = 0; Index < 3; ++Index)
	{
		Functions[Index] = NewObject<UFunction>(Class, FName(Names[Index]));
		Class->AddFunction(Functions[Index]);
	}
	Class->Link();
	Functions[1]->MarkAsGarbage();
	Functions[2]->MarkAsGarbage();
	CollectGarbage();
	EXPECT_EQ(Class->FindFunctionByName(TEXT("B")), nullptr);
	EXPECT_EQ(Class->FindFunctionByName(TEXT("a")), Functions[0]);
	UFunction* const D = NewObject<UFunction>(Class, FName(TEXT("D")));
	Class->AddFunction(D);
	TArray<UFunction*> Walked;
	for (TFieldIterator<UFunction> It(Class); It; ++It)
	{
		Walked.Add(*It);
	}
	EXPECT_EQ(Walked, (TArray<UFunction*>{Functions[0], D}));
}

TEST(ObjectDuplicate, CopiesTheTreeAndPointsReferencesInside)
{
	const FThingPackage Package;
	UThing* const Outside = Package.Make(TEXT("Outside"));
	UThing* const Source = Package.Make(TEXT("Source"));
	UThing* const A = Package.Make(TEXT("A"), Source);
	UThing* const B = Package.Make(TEXT("B"), A);
	Source->Number = 41;
	Source->Custom = TEXT("two words");
	Source->Fleeting = 8;
	Source->Friend = B;
	Source->Friends = {Source, Outside, nullptr, A};
	Source->FriendSet.Add(A);
	Source->Weak = A;
	B->Friend = Source;
	B->Part.Target = A;
	B->Delegate.BindUFunction(A, TEXT("Run"));
	B->Soft.Path = FSoftObjectPath(A);

	UThing* const Copy = DuplicateObject(Source, Package.Get(), FName(TEXT("Copy")));
	UThing* const CopyA = FindObject<UThing>(Copy, TEXT("A"));
	UThing* const CopyB = FindObject<UThing>(Copy, TEXT("A.B"));
	ASSERT_TRUE(CopyA && CopyB);
	EXPECT_EQ(Copy->Number, 41);
	EXPECT_EQ(Copy->Custom, TEXT("two words"));
	EXPECT_EQ(Copy->Fleeting, 0) << "duplicate-transient";
	EXPECT_EQ(Copy->NumPostDuplicate, 1);
	EXPECT_EQ(Copy->Friend, CopyB);
	EXPECT_EQ(Copy->Friends, (TArray<TObjectPtr<UObject>>{Copy, Outside, nullptr, CopyA}));
	EXPECT_TRUE(Copy->FriendSet.Contains(CopyA));
	EXPECT_FALSE(Copy->FriendSet.Contains(A));
	EXPECT_EQ(Copy->Weak.Get(), CopyA);
	EXPECT_EQ(CopyB->Friend, Copy);
	EXPECT_EQ(CopyB->Part.Target, CopyA);
	EXPECT_TRUE(CopyB->Delegate.Object == FWeakObjectPtr(CopyA));
	EXPECT_EQ(CopyB->Soft.Get(), A) << "a path is a name";
	EXPECT_EQ(Source->Friend, B) << "the source stays as it was";
}

TEST(ObjectDuplicate, NamesAreMadeFreeAndSubObjectsOfTheConstructorAreUsed)
{
	const FThingPackage Package;
	UThingOwner* const Source = NewObject<UThingOwner>(Package.Get(), FName(TEXT("A")));
	Source->Held->Number = 1234;
	UThingOwner* const Copy = DuplicateObject(Source, Package.Get(), FName(TEXT("A")));
	EXPECT_EQ(Copy->GetName(), TEXT("A_0"));
	ASSERT_NE(Copy->Held, Source->Held);
	EXPECT_EQ(Copy->Held->GetOuter(), Copy);
	EXPECT_EQ(Copy->Held->Number, 1234);
	EXPECT_EQ(Copy->GetFirstInner()->GetNextInner(), nullptr);
	EXPECT_EQ(DuplicateObject<UThing>(nullptr, Package.Get()), nullptr);
}
} // namespace ObjectLifetime
