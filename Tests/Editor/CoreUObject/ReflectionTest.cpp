#include "ReflectedThings.h"

#include <gtest/gtest.h>

namespace Reflection
{
TEST(Reflection, NativeNamesLoseTheirPrefix)
{
	const FThingPackage Package;
	EXPECT_EQ(UThing::StaticClass()->GetPathName(), TEXT("/Script/ThingTests.Thing"));
	EXPECT_EQ(UThing::StaticClass()->GetStructPathName().ToString(), TEXT("/Script/ThingTests.Thing"));
	EXPECT_EQ(TBaseStructure<FLinearColor>::Get()->GetPathName(), TEXT("/Script/CoreUObject.LinearColor"));
	EXPECT_EQ(StaticEnum<EThingMood>()->GetPathName(), TEXT("/Script/ThingTests.EThingMood"));
	EXPECT_EQ(UClass::StaticClass()->GetClass(), UClass::StaticClass());
	EXPECT_EQ(UClass::StaticClass()->GetSuperClass()->GetSuperClass()->GetSuperClass(), UObject::StaticClass());
	EXPECT_EQ(UObject::StaticClass()->GetOutermost()->GetClass(), UPackage::StaticClass());
}

TEST(Reflection, PropertiesAreFoundThroughTheLineAndIgnoringCase)
{
	const FThingPackage Package;
	UClass* const Class = Package.MakeClass(TEXT("BP_C"), UThingOwner::StaticClass());
	FProperty* const Own = AddDataProperty<int32>(Class, TEXT("Own"));
	Class->Link();
	EXPECT_EQ(Class->FindPropertyByName(TEXT("OWN")), Own);
	EXPECT_EQ(Class->FindPropertyByName(TEXT("held")), UThingOwner::StaticClass()->FindPropertyByName(TEXT("Held")));
	EXPECT_EQ(UThing::StaticClass()->FindPropertyByName(TEXT("Own")), nullptr);
	EXPECT_NE(FindFProperty<FIntProperty>(Class, TEXT("Number")), nullptr);
	EXPECT_EQ(FindFProperty<FBoolProperty>(Class, TEXT("Number")), nullptr);
	EXPECT_EQ(Own->GetPathName(), Package.Path(TEXT(".BP_C:Own")));
	EXPECT_EQ(Own->GetOwnerClass(), Class);
	TArray<FString> Names;
	for (TFieldIterator<FProperty> It(Class); It && Names.Num() < 3; ++It)
	{
		Names.Add(It->GetName());
	}
	EXPECT_EQ(Names, (TArray<FString>{TEXT("Own"), TEXT("Held"), TEXT("bOpen")})) << "own ones first, then the super's";
	int32 NumOwn = 0;
	for (TFieldIterator<FProperty> It(Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		++NumOwn;
	}
	EXPECT_EQ(NumOwn, 1);
}

TEST(Reflection, FunctionsComeFromTheClassItsInterfacesAndItsLine)
{
	const FThingPackage Package;
	UClass* const Interface = Package.MakeClass(TEXT("BPI_C"), UInterface::StaticClass());
	Interface->ClassFlags |= CLASS_Interface;
	UFunction* const Asked = NewObject<UFunction>(Interface, FName(TEXT("Ask")));
	Interface->AddFunction(Asked);
	Interface->Link();
	UClass* const Parent = Package.MakeClass(TEXT("Parent_C"), UThing::StaticClass());
	UFunction* const ParentRun = NewObject<UFunction>(Parent, FName(TEXT("Run")));
	Parent->AddFunction(ParentRun);
	Parent->Interfaces.Add({Interface, true});
	Parent->Link();
	UClass* const Child = Package.MakeClass(TEXT("Child_C"), Parent);
	UFunction* const ChildRun = NewObject<UFunction>(Child, FName(TEXT("run")));
	ChildRun->SetSuperStruct(ParentRun);
	Child->AddFunction(ChildRun);
	Child->Link();
	EXPECT_EQ(Child->FindFunctionByName(TEXT("Run")), ChildRun);
	EXPECT_EQ(ChildRun->GetSuperFunction(), ParentRun);
	EXPECT_EQ(Child->FindFunctionByName(TEXT("Ask")), Asked);
	EXPECT_EQ(Child->FindFunctionByName(TEXT("Ask"), EIncludeSuperFlag::ExcludeSuper), nullptr);
	EXPECT_TRUE(Child->ImplementsInterface(Interface));
	EXPECT_FALSE(UThing::StaticClass()->ImplementsInterface(Interface));
	EXPECT_TRUE(UThingOwner::StaticClass()->ImplementsInterface(UThingListener::StaticClass()));
	UObject* const Owner = NewObject<UThingOwner>(Package.Get());
	ASSERT_NE(Cast<IThingListener>(Owner), nullptr);
	EXPECT_EQ(Cast<IThingListener>(Owner)->Listen(), 5);
	EXPECT_EQ(Cast<UThingOwner>(Cast<IThingListener>(Owner)), Owner);
	EXPECT_EQ(Cast<IThingListener>(static_cast<UObject*>(Package.Make(TEXT("Deaf")))), nullptr);
}

TEST(Reflection, SignaturesAreComparedByKindAndDirection)
{
	const FThingPackage Package;
	const auto Make = [&Package](const TCHAR* Name, uint64 SecondFlags, bool bLong)
	{
		UFunction* const Function = NewObject<UFunction>(Package.Get(), FName(Name));
		AddDataProperty<FString>(Function, TEXT("First"))->SetPropertyFlags(CPF_Parm);
		FProperty* const Second = bLong ? AddDataProperty<int64>(Function, TEXT("X"))
										: AddDataProperty<int32>(Function, TEXT("Y"));
		Second->SetPropertyFlags(CPF_Parm | SecondFlags);
		AddDataProperty<FName>(Function, TEXT("Local"));
		Function->Link();
		return Function;
	};
	const UFunction* const In = Make(TEXT("In"), 0, false);
	const UFunction* const ConstRef = Make(TEXT("ConstRef"), CPF_ConstParm | CPF_ReferenceParm, false);
	const UFunction* const Long = Make(TEXT("Long"), 0, true);
	const UFunction* const Out = Make(TEXT("Out"), CPF_OutParm, false);
	const UFunction* const Return = Make(TEXT("Return"), CPF_OutParm | CPF_ReturnParm, false);
	EXPECT_TRUE(In->IsSignatureCompatibleWith(ConstRef)) << "how a value is passed does not count";
	EXPECT_FALSE(In->IsSignatureCompatibleWith(ConstRef, 0));
	EXPECT_FALSE(In->IsSignatureCompatibleWith(Long));
	EXPECT_FALSE(In->IsSignatureCompatibleWith(Out));
	EXPECT_FALSE(Out->IsSignatureCompatibleWith(Return));
	EXPECT_FALSE(In->IsSignatureCompatibleWith(nullptr));
	EXPECT_EQ(Return->GetReturnProperty()->GetFName(), FName(TEXT("Y")));
	EXPECT_EQ(Out->GetReturnProperty(), nullptr);
}

TEST(Reflection, EnumsAreAskedWithAndWithoutScope)
{
	const FThingPackage Package;
	const UEnum* const Mood = StaticEnum<EThingMood>();
	EXPECT_EQ(Mood->GetNameByIndex(1), FName(TEXT("EThingMood::Calm")));
	EXPECT_EQ(Mood->GetNameStringByValue(7), TEXT("Angry"));
	EXPECT_EQ(Mood->GetDisplayNameTextByIndex(1).ToString(), TEXT("Very Calm"));
	for (const TCHAR* const Name : {TEXT("Calm"), TEXT("calm"), TEXT("EThingMood::Calm"), TEXT("Other::Calm")})
	{
		EXPECT_EQ(Mood->GetIndexByNameString(Name), 1) << FString(Name);
		EXPECT_EQ(Mood->GetValueByName(FName(Name)), 1) << FString(Name);
	}
	EXPECT_EQ(Mood->GetIndexByNameString(TEXT("EThingMood::None")), 0);
	EXPECT_EQ(Mood->GetIndexByNameString(TEXT("a name that nobody has made yet")), INDEX_NONE);
	EXPECT_EQ(StaticEnum<EThingOldMode>()->GetIndexByNameString(TEXT("a name that nobody has made yet")), INDEX_NONE);
	EXPECT_EQ(Mood->GetIndexByValue(3), INDEX_NONE);
	EXPECT_TRUE(Mood->ContainsExistingMax());
	EXPECT_FALSE(StaticEnum<EThingOldMode>()->ContainsExistingMax());
	EXPECT_TRUE(Mood->GetNameByIndex(-1).IsNone());
	EXPECT_TRUE(Mood->GetDisplayNameTextByIndex(99).IsEmpty());
}

TEST(Reflection, DisplayNamesComeFromMetaDataOrTheName)
{
	const FThingPackage Package;
	FProperty* const Open = UThing::StaticClass()->FindPropertyByName(TEXT("bOpen"));
	EXPECT_EQ(Open->GetDisplayNameText().ToString(), TEXT("Open"));
	UClass* const Class = Package.MakeClass(TEXT("MyLittleThing_C"), UThing::StaticClass());
	FProperty* const Property = AddDataProperty<int32>(Class, TEXT("NumHTTPCalls"));
	EXPECT_EQ(Property->GetDisplayNameText().ToString(), TEXT("Num HTTPCalls"));
	EXPECT_EQ(Property->GetToolTipText().ToString(), TEXT("Num HTTPCalls"));
	Property->SetMetaData(TEXT("DisplayName"), TEXT("Calls"));
	Property->SetMetaData(TEXT("ToolTip"), TEXT("How many"));
	EXPECT_EQ(Property->GetDisplayNameText().ToString(), TEXT("Calls"));
	EXPECT_EQ(Property->GetToolTipText().ToString(), TEXT("How many"));
	EXPECT_FALSE(Class->GetDisplayNameText().IsEmpty());
}

TEST(Reflection, NativeStructsRefuseMembersThatHaveNoMemory)
{
	const FThingPackage Package;
	UScriptStruct* const Part = FThingPart::StaticStruct();
	AddDataProperty<int32>(Part, TEXT("Stray"));
	EXPECT_EQ(Part->FindPropertyByName(TEXT("Stray")), nullptr);
	EXPECT_EQ(Part->GetStructureSize(), static_cast<int32>(sizeof(FThingPart)));
}

TEST(Reflection, CatalogueMembersOfNativeClassesGetMemoryOfTheirOwn)
{
	const FThingPackage Package;
	UClass* const Class = Package.MakeClass(TEXT("Holder_C"), UThing::StaticClass());
	UClass* const Other = Package.MakeClass(TEXT("Other_C"), UThing::StaticClass());
	AddDataProperty<FString>(Class, TEXT("Extra"));
	Class->Link();
	Other->Link();
	UThing* const With = NewObject<UThing>(Package.Get(), Class);
	UThing* const Without = NewObject<UThing>(Package.Get(), Other);
	const FProperty* const Extra = Class->FindPropertyByName(TEXT("Extra"));
	EXPECT_NE(Extra->GetValuePtr(With), nullptr);
	EXPECT_EQ(Extra->GetValuePtr(Without), nullptr) << "an object of another class has no such value";
}
} // namespace Reflection
