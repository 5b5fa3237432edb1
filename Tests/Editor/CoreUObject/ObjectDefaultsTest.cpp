#include "ReflectedThings.h"

#include "Standalone/ObjectText.h"

#include <gtest/gtest.h>

namespace ObjectDefaults
{
TEST(ObjectDefaults, AnObjectStartsWithTheValuesOfItsClassDefault)
{
	const FThingPackage Package;
	UClass* const Parent = Package.MakeClass(TEXT("Parent_C"), UThing::StaticClass());
	AddDataProperty<FString>(Parent, TEXT("Title"));
	AddDataProperty<TArray<int32>>(Parent, TEXT("List"));
	Parent->Link();
	UClass* const Child = Package.MakeClass(TEXT("Child_C"), Parent);
	AddDataProperty<double>(Child, TEXT("Weight"));
	Child->Link();

	UThing* const ParentDefault = Parent->GetDefaultObject<UThing>();
	EXPECT_EQ(ParentDefault->GetPathName(), Package.Path(TEXT(".Default__Parent_C")));
	ParentDefault->Number = 60;
	ValueOf<FString>(ParentDefault, TEXT("Title")) = TEXT("a title that is too long to stand in the string itself");
	ValueOf<TArray<int32>>(ParentDefault, TEXT("List")) = {1, 2, 3};
	UThing* const ChildDefault = Child->GetDefaultObject<UThing>();
	ValueOf<double>(ChildDefault, TEXT("Weight")) = 2.5;

	UThing* const Instance = NewObject<UThing>(Package.Get(), Child);
	EXPECT_EQ(Instance->Number, 60);
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Title")), ValueOf<FString>(ParentDefault, TEXT("Title")));
	EXPECT_EQ(ValueOf<TArray<int32>>(Instance, TEXT("List")), (TArray<int32>{1, 2, 3}));
	EXPECT_EQ(ValueOf<double>(Instance, TEXT("Weight")), 2.5);
	EXPECT_EQ(Instance->GetArchetype(), ChildDefault);
	EXPECT_EQ(ChildDefault->GetArchetype(), ParentDefault);
	EXPECT_TRUE(ChildDefault->IsTemplate());
	EXPECT_FALSE(Instance->IsTemplate());

	Instance->Number = 61;
	UThing* const FromTemplate = NewObject<UThing>(Package.Get(), Child, NAME_None, RF_NoFlags, Instance);
	EXPECT_EQ(FromTemplate->Number, 61);
}

TEST(ObjectDefaults, DefaultSubObjectsBelongToEachObject)
{
	const FThingPackage Package;
	UClass* const Class = Package.MakeClass(TEXT("Owner_C"), UThingOwner::StaticClass());
	Class->Link();
	UThingOwner* const Default = Class->GetDefaultObject<UThingOwner>();
	UThingOwner* const NativeDefault = GetMutableDefault<UThingOwner>();
	ASSERT_NE(Default->Held, nullptr);
	EXPECT_EQ(Default->Held->GetOuter(), Default);
	EXPECT_EQ(Default->Held->GetArchetype(), NativeDefault->Held);
	EXPECT_TRUE(Default->Held->HasAllFlags(RF_DefaultSubObject | RF_ArchetypeObject));
	EXPECT_EQ(Class->GetDefaultSubobjectByName(TEXT("Held")), Default->Held);
	Default->Held->Number = 99;
	Default->Friends = {Default->Held, nullptr};

	// Data can add sub-objects that no constructor makes.
	UThing* const Added = NewObject<UThing>(Default, UThing::StaticClass(), TEXT("Added"), RF_DefaultSubObject);
	Added->Friend = Default->Held;
	Added->Number = 7;

	UThingOwner* const Instance = NewObject<UThingOwner>(Package.Get(), Class);
	EXPECT_EQ(Instance->Held->GetOuter(), Instance);
	EXPECT_EQ(Instance->Held->Number, 99);
	EXPECT_EQ(Instance->Friends[0], Instance->Held);
	EXPECT_FALSE(Instance->Held->HasAnyFlags(RF_ArchetypeObject));
	UThing* const OwnAdded = FindObject<UThing>(Instance, TEXT("Added"));
	ASSERT_NE(OwnAdded, nullptr);
	EXPECT_EQ(OwnAdded->Number, 7);
	EXPECT_EQ(OwnAdded->Friend, Instance->Held) << "siblings point at one another, not at the template";
}

TEST(ObjectDefaults, RebuildingAClassKeepsValuesWhoseNameAndTypeStay)
{
	const FThingPackage Package;
	UClass* const Class = Package.MakeClass(TEXT("BP_C"), UThing::StaticClass());
	AddDataProperty<FString>(Class, TEXT("Kept"));
	AddDataProperty<int32>(Class, TEXT("Retyped"));
	AddDataProperty<FString>(Class, TEXT("Dropped"));
	Class->Link();
	UClass* const Child = Package.MakeClass(TEXT("Child_C"), Class);
	AddDataProperty<FString>(Child, TEXT("Own"));
	Child->Link();
	UThing* const Instance = NewObject<UThing>(Package.Get(), Child);
	UThing* const Dying = NewObject<UThing>(Package.Get(), Child);
	const FString Long(TEXT("longer than any small string buffer is"));
	ValueOf<FString>(Instance, TEXT("Kept")) = Long;
	ValueOf<int32>(Instance, TEXT("Retyped")) = 5;
	ValueOf<FString>(Instance, TEXT("Own")) = Long;
	Dying->MarkAsGarbage();

	Class->DestroyMembers();
	AddDataProperty<double>(Class, TEXT("New"));
	AddDataProperty<FString>(Class, TEXT("Retyped"));
	AddDataProperty<FString>(Class, TEXT("Kept"));
	Class->Link();
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Kept")), Long);
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Retyped")), FString());
	EXPECT_EQ(ValueOf<double>(Instance, TEXT("New")), 0.0);
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Own")), Long) << "a descendant's values do not move";
	EXPECT_EQ(Child->FindPropertyByName(TEXT("Dropped")), nullptr);

	AddDataProperty<FString>(Class, TEXT("Later"));
	Class->Link();
	ValueOf<FString>(Instance, TEXT("Later")) = Long;
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Kept")), Long) << "linking again only adds";
	Class->DestroyMembers();
	Class->Link();
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Own")), Long);
	CollectGarbage();
}

TEST(ObjectDefaults, ANewDefaultTakesOverOnlyWhatTheOldOneHadSet)
{
	const FThingPackage Package;
	UClass* const Parent = Package.MakeClass(TEXT("Parent_C"), UThingOwner::StaticClass());
	Parent->Link();
	UClass* const Child = Package.MakeClass(TEXT("Child_C"), Parent);
	AddDataProperty<int32>(Child, TEXT("Own"));
	Child->Link();
	UThingOwner* const Old = Child->GetDefaultObject<UThingOwner>();
	Old->Text = TEXT("set");
	Old->Held->Byte = 12;
	Old->Friend = Old->Held;
	ValueOf<int32>(Old, TEXT("Own")) = 3;
	Child->ResetDefaultObject();
	UThingOwner* const New = Child->GetDefaultObject<UThingOwner>();
	ASSERT_NE(New, Old);
	EXPECT_TRUE(Old->IsGarbage());
	EXPECT_EQ(New->GetName(), TEXT("Default__Child_C"));
	EXPECT_EQ(New->Text, TEXT("set"));
	EXPECT_EQ(New->Held->Byte, 12);
	EXPECT_EQ(New->Held->Number, 11);
	EXPECT_EQ(New->Held->GetOuter(), New);
	EXPECT_EQ(New->Friend, New->Held);
	EXPECT_EQ(ValueOf<int32>(New, TEXT("Own")), 3);
	CollectGarbage();
	EXPECT_EQ(New->Friend, New->Held);
}

TEST(ObjectDefaults, KeptTextOfAnObjectThatIsGoneIsNotThatOfTheNextInItsPlace)
{
	const FThingPackage Package;
	UObject* const Gone = NewObject<UThing>(Package.Get(), TEXT("Gone"));
	FKeptObjectText::FindOrAdd(Gone).ClassPath = "/Script/Gone.Kind";
	const int32 Slot = Gone->GetInternalIndex();
	Gone->MarkAsGarbage();
	CollectGarbage();
	UObject* const Next = NewObject<UThing>(Package.Get(), TEXT("Next"));
	ASSERT_EQ(Next->GetInternalIndex(), Slot);
	EXPECT_EQ(FKeptObjectText::Find(Next), nullptr);
	Next->MarkAsGarbage();
	EXPECT_EQ(FKeptObjectText::Find(Next), nullptr) << "as a default object is that is being replaced";
	EXPECT_EQ(FKeptObjectText::FindOrAdd(Next).ClassPath, "");
}

TEST(ObjectDefaults, ReparentingWithinTheSameCodeMovesObjectsAlong)
{
	const FThingPackage Package;
	UClass* const A = Package.MakeClass(TEXT("A_C"), UThing::StaticClass());
	AddDataProperty<FString>(A, TEXT("FromA"));
	A->Link();
	UClass* const B = Package.MakeClass(TEXT("B_C"), UThing::StaticClass());
	AddDataProperty<FString>(B, TEXT("FromB"));
	B->Link();
	ValueOf<FString>(B->GetDefaultObject(), TEXT("FromB")) = TEXT("b");
	UClass* const Class = Package.MakeClass(TEXT("BP_C"), A);
	AddDataProperty<FString>(Class, TEXT("Own"));
	Class->Link();
	UThing* const Instance = NewObject<UThing>(Package.Get(), Class);
	ValueOf<FString>(Instance, TEXT("Own")) = TEXT("own");
	ValueOf<FString>(Class->GetDefaultObject(), TEXT("Own")) = TEXT("default");
	Class->SetSuperStruct(B);
	Class->ResetDefaultObject();
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Own")), TEXT("own"));
	EXPECT_EQ(ValueOf<FString>(Instance, TEXT("FromB")), FString());
	EXPECT_EQ(ValueOf<FString>(Class->GetDefaultObject(), TEXT("Own")), TEXT("default"));
	EXPECT_EQ(Class->FindPropertyByName(TEXT("FromA")), nullptr);
}

TEST(ObjectDefaults, ReparentingToOtherCodeKeepsTheDefaultsThatFit)
{
	const FThingPackage Package;
	UClass* const Class = Package.MakeClass(TEXT("BP_C"), UThing::StaticClass());
	AddDataProperty<FString>(Class, TEXT("Own"));
	Class->Link();
	UThing* const Old = Class->GetDefaultObject<UThing>();
	UThing* const Instance = NewObject<UThing>(Package.Get(), Class);
	Old->Number = 123;
	ValueOf<FString>(Old, TEXT("Own")) = TEXT("quoted \"own\"");
	Class->SetSuperStruct(UThingOwner::StaticClass());
	Class->ResetDefaultObject();
	UThingOwner* const New = Cast<UThingOwner>(Class->GetDefaultObject());
	ASSERT_NE(New, nullptr);
	EXPECT_EQ(New->Number, 123);
	EXPECT_EQ(ValueOf<FString>(New, TEXT("Own")), TEXT("quoted \"own\""));
	EXPECT_NE(New->Held, nullptr);
	EXPECT_EQ(Instance->GetClass(), UThing::StaticClass()) << "what it is in C++";
	CollectGarbage();
}

TEST(ObjectDefaults, ARebuildMayReparentInTheMiddle)
{
	const FThingPackage Package;
	UClass* const OtherParent = Package.MakeClass(TEXT("Other_C"), UThing::StaticClass());
	OtherParent->Link();
	for (UClass* const NewParent : {OtherParent, UThingOwner::StaticClass()})
	{
		const FName Name(TEXT("BP_") + NewParent->GetName());
		UClass* const Class = NewObject<UClass>(Package.Get(), Name);
		Class->SetSuperStruct(UThing::StaticClass());
		AddDataProperty<FString>(Class, TEXT("Own"));
		Class->Link();
		Class->GetDefaultObject<UThing>()->Number = 8;
		UThing* const Instance = NewObject<UThing>(Package.Get(), Class);
		UThing* const Dying = NewObject<UThing>(Package.Get(), Class);
		const FString Long(TEXT("longer than any small string buffer is"));
		ValueOf<FString>(Instance, TEXT("Own")) = Long;
		ValueOf<FString>(Dying, TEXT("Own")) = Long;

		Class->DestroyMembers();
		Class->SetSuperStruct(NewParent);
		Dying->MarkAsGarbage();
		CollectGarbage();
		AddDataProperty<int32>(Class, TEXT("New"));
		AddDataProperty<FString>(Class, TEXT("Own"));
		Class->Link();
		Class->ResetDefaultObject();
		EXPECT_EQ(Class->GetDefaultObject<UThing>()->Number, 8);
		EXPECT_TRUE(Class->GetDefaultObject()->IsA(NewParent));
		if (Instance->GetClass() == Class)
		{
			EXPECT_EQ(ValueOf<FString>(Instance, TEXT("Own")), Long);
		}
		else
		{
			EXPECT_EQ(NewParent, UThingOwner::StaticClass()) << "only other code makes it an object of the old parent";
		}
	}
}

TEST(ObjectDefaults, DataStructsKnowTheirDefaults)
{
	const FThingPackage Package;
	UScriptStruct* const Base = NewObject<UScriptStruct>(Package.Get(), FName(TEXT("Base")));
	AddDataProperty<FString>(Base, TEXT("Name"));
	AddDataProperty<float>(Base, TEXT("Size"));
	Base->MemberDefaults.Add(TEXT("Size"), TEXT("24.5"));
	Base->MemberDefaults.Add(TEXT("Name"), TEXT("a name that needs memory of its own"));
	Base->Link();
	UScriptStruct* const Struct = NewObject<UScriptStruct>(Package.Get(), FName(TEXT("Derived")));
	Struct->SetSuperStruct(Base);
	AddDataProperty<uint8>(Struct, TEXT("Flag"));
	AddDataProperty<TMap<FName, FString>>(Struct, TEXT("Map"));
	Struct->MemberDefaults.Add(TEXT("Map"), TEXT("((a, \"x\"))"));
	Struct->Link();
	UClass* const Class = Package.MakeClass(TEXT("BP_C"), UThing::StaticClass());
	FStructProperty* const Property = new FStructProperty(FFieldVariant(Class), TEXT("Value"));
	Property->Struct = Struct;
	Class->AddProperty(Property);
	Class->Link();
	UThing* const Thing = NewObject<UThing>(Package.Get(), Class);
	EXPECT_EQ(ExportValue(Thing, TEXT("Value")),
		TEXT("(Flag=0,Map=((\"a\", \"x\")),Name=\"a name that needs memory of its own\",Size=24.500000)"));
	EXPECT_TRUE(ImportValue(Thing, TEXT("Value"), TEXT("(Size=1,Name=\"n\")")));
	EXPECT_EQ(ExportValue(Thing, TEXT("Value")), TEXT("(Flag=0,Map=((\"a\", \"x\")),Name=\"n\",Size=1.000000)"));
	FString Text;
	EXPECT_TRUE(Property->ExportText_Direct(
		Text, Property->GetValuePtr(Thing), Property->GetValuePtr(Class->GetDefaultObject()), Thing, PPF_None));
	EXPECT_EQ(Text, TEXT("(Name=\"n\",Size=1.000000)")) << "only what differs from the default";
}
} // namespace ObjectDefaults
