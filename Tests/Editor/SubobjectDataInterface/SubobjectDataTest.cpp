#include "SubobjectDataSubsystem.h"

#include "BlueprintBuilder.h"
#include "BlueprintConsistency.h"
#include "Components/ActorComponent.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "UObject/Package.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace SubobjectDataTests
{
using testing::IsEmpty;

constexpr const TCHAR* Scene = TEXT("/Script/Engine.SceneComponent");

static const USubobjectDataSubsystem& Subobjects()
{
	return *USubobjectDataSubsystem::Get();
}

static FSubobjectDataHandle Find(UBlueprint* Blueprint, const TCHAR* Name)
{
	TArray<FSubobjectDataHandle> Handles;
	Subobjects().K2_GatherSubobjectDataForBlueprint(Blueprint, Handles);
	const FSubobjectDataHandle* const Found = Handles.FindByPredicate(
		[Name](const FSubobjectDataHandle& Handle) { return Handle.GetData()->GetVariableName() == FName(Name); });
	return Found ? *Found : FSubobjectDataHandle();
}

static FSubobjectDataHandle AddComponent(
	UBlueprint* Blueprint, const TCHAR* ClassPath, const TCHAR* Name, const TCHAR* Parent)
{
	FAddNewSubobjectParams Params;
	Params.ParentHandle = Find(Blueprint, Parent);
	Params.NewClass = FindObject<UClass>(nullptr, ClassPath);
	Params.BlueprintContext = Blueprint;
	FText Reason;
	const FSubobjectDataHandle Handle = Subobjects().AddNewSubobject(Params, Reason);
	EXPECT_TRUE(Handle.IsValid()) << ToStd(Reason.ToString());
	EXPECT_TRUE(Subobjects().RenameSubobject(Handle, FText::FromString(Name)));
	return Find(Blueprint, Name);
}

/** "name<parent" for each, in the order of the tree, without the actor. */
static std::string TreeOf(UBlueprint* Blueprint)
{
	TArray<FSubobjectDataHandle> Handles;
	Subobjects().K2_GatherSubobjectDataForBlueprint(Blueprint, Handles);
	std::string Out;
	for (const FSubobjectDataHandle& Handle : Handles)
	{
		const FSubobjectData& Data = *Handle.GetData();
		if (Data.IsActor())
		{
			continue;
		}
		const FSubobjectData& Parent = *Data.GetParentHandle().GetData();
		Out += (Out.empty() ? "" : " ") + ToStd(Data.GetVariableName().ToString()) + "<"
			+ (Parent.IsActor() ? "" : ToStd(Parent.GetVariableName().ToString()));
	}
	return Out;
}

static bool Reparent(UBlueprint* Blueprint, const TCHAR* Moved, const TCHAR* Parent)
{
	FReparentSubobjectParams Params;
	Params.NewParentHandle = Find(Blueprint, Parent);
	Params.BlueprintContext = Blueprint;
	return Subobjects().ReparentSubobjects(Params, {Find(Blueprint, Moved)});
}

/** A lamp on an arm, a foot beside it, and a movement that is nowhere, in a child of a Blueprint with a base. */
class FLamp
{
public:
	FLamp()
		: Child(FKismetEditorUtilities::CreateBlueprint(
			MakeBase(Base.Get()), CreatePackage(TEXT("/Game/Tests/BP_Lamp")), TEXT("BP_Lamp"), BPTYPE_Normal))
	{
		AddComponent(Child, Scene, TEXT("Arm"), TEXT("Base"));
		AddComponent(Child, TEXT("/Script/Engine.PointLightComponent"), TEXT("Lamp"), TEXT("Arm"));
		AddComponent(Child, Scene, TEXT("Foot"), TEXT("Base"));
		AddComponent(Child, TEXT("/Script/Engine.RotatingMovementComponent"), TEXT("Spin"), TEXT("Base"));
	}
	~FLamp() { Child->GetOutermost()->MarkAsGarbage(); }
	FLamp(const FLamp&) = delete;
	FLamp& operator=(const FLamp&) = delete;

	const FBlueprintBuilder Base;
	UBlueprint* const Child;

private:
	static UClass* MakeBase(UBlueprint* Blueprint)
	{
		USimpleConstructionScript& Script = *Blueprint->SimpleConstructionScript;
		Script.AddNode(Script.CreateNode(FindObject<UClass>(nullptr, Scene), TEXT("Base")));
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
		return Blueprint->GeneratedClass.Get();
	}
};
} // namespace SubobjectDataTests

using namespace SubobjectDataTests;

TEST(SubobjectData, OneTreeWhateverMadeIt)
{
	const FLamp Lamp;
	EXPECT_EQ(TreeOf(Lamp.Child), "Base< Arm<Base Lamp<Arm Foot<Base Spin<");
	EXPECT_TRUE(Find(Lamp.Child, TEXT("Base")).GetData()->IsRootComponent());
	EXPECT_TRUE(Find(Lamp.Child, TEXT("Base")).GetData()->IsInheritedComponent());
	EXPECT_FALSE(Find(Lamp.Child, TEXT("Arm")).GetData()->IsInheritedComponent());
	EXPECT_TRUE(Find(Lamp.Child, TEXT("Lamp")).GetData()->IsAttachedTo(Find(Lamp.Child, TEXT("Base"))));
	EXPECT_FALSE(Find(Lamp.Child, TEXT("Base")).GetData()->IsAttachedTo(Find(Lamp.Child, TEXT("Lamp"))));
	const FBlueprintBuilder Hero(TEXT("/Script/Engine.Character"));
	EXPECT_THAT(TreeOf(Hero.Get()), testing::StartsWith("CollisionCylinder< "));
	EXPECT_THAT(TreeOf(Hero.Get()), testing::HasSubstr("CharacterMesh0<CollisionCylinder"));
	const FBlueprintBuilder Widget(TEXT("/Script/UMG.UserWidget"));
	EXPECT_EQ(TreeOf(Widget.Get()), "");
}

TEST(SubobjectData, AHandleIsFoundByTemplateAndByNode)
{
	const FLamp Lamp;
	USCS_Node* const Node = Lamp.Child->SimpleConstructionScript->FindSCSNode(TEXT("Lamp"));
	const FSubobjectDataHandle Handle = Find(Lamp.Child, TEXT("Lamp"));
	EXPECT_EQ(Subobjects().FindHandleForObject(FSubobjectDataHandle(), Node, Lamp.Child), Handle);
	EXPECT_EQ(Subobjects().FindHandleForObject(Handle, Node->ComponentTemplate.Get()), Handle);
	EXPECT_FALSE(Subobjects().FindHandleForObject(Handle, Lamp.Child).IsValid());
	EXPECT_FALSE(Subobjects().FindHandleForObject(FSubobjectDataHandle(), nullptr, Lamp.Child).IsValid());
}

TEST(SubobjectData, ComponentsMoveOrStayWhereTheyAre)
{
	struct FCase
	{
		const TCHAR* Moved;
		const TCHAR* Parent;
		bool bMoves;
		const char* Tree;
	};
	const char* const Before = "Base< Arm<Base Lamp<Arm Foot<Base Spin<";
	const FCase Cases[] = {
		{TEXT("Arm"), TEXT("Foot"), true, "Base< Foot<Base Arm<Foot Lamp<Arm Spin<"},
		{TEXT("Lamp"), TEXT("Foot"), true, "Base< Arm<Base Foot<Base Lamp<Foot Spin<"},
		{TEXT("Lamp"), TEXT("Base"), true, "Base< Arm<Base Foot<Base Lamp<Base Spin<"},
		{TEXT("Lamp"), TEXT("Arm"), true, Before},
		{TEXT("Arm"), TEXT("Lamp"), false, Before},
		{TEXT("Arm"), TEXT("Arm"), false, Before},
		{TEXT("Base"), TEXT("Arm"), false, Before},
		{TEXT("Spin"), TEXT("Arm"), false, Before},
		{TEXT("Arm"), TEXT("Spin"), false, Before},
		{TEXT("NoSuch"), TEXT("Arm"), false, Before},
		{TEXT("Arm"), TEXT("NoSuch"), false, Before},
	};
	for (const FCase& Case : Cases)
	{
		const FLamp Lamp;
		const std::string Label = ToStd(Case.Moved) + " to " + ToStd(Case.Parent);
		EXPECT_EQ(Reparent(Lamp.Child, Case.Moved, Case.Parent), Case.bMoves) << Label;
		EXPECT_EQ(TreeOf(Lamp.Child), Case.Tree) << Label;
		EXPECT_THAT(FindInconsistencies(*Lamp.Child), IsEmpty()) << Label;
	}
}

TEST(SubobjectData, OnlyOwnComponentsAreDeletedAndRenamed)
{
	const FLamp Lamp;
	const FSubobjectDataHandle Actor = Find(Lamp.Child, *Lamp.Child->GeneratedClass->GetDefaultObject()->GetName());
	TArray<FSubobjectDataHandle> All;
	Subobjects().K2_GatherSubobjectDataForBlueprint(Lamp.Child, All);
	EXPECT_FALSE(Subobjects().RenameSubobject(Find(Lamp.Child, TEXT("Base")), FText::FromString(TEXT("Sole"))));
	FText Reason;
	EXPECT_FALSE(Subobjects().IsValidRename(Find(Lamp.Child, TEXT("Arm")), FText::FromString(TEXT("Foot")), Reason));
	EXPECT_EQ(ToStd(Reason.ToString()), "\"Foot\" is already in use.");
	EXPECT_EQ(Subobjects().DeleteSubobjects(
				  Actor, {Find(Lamp.Child, TEXT("Base")), Find(Lamp.Child, TEXT("Arm")), All[0]}, Lamp.Child),
		1);
	EXPECT_EQ(TreeOf(Lamp.Child), "Base< Foot<Base Lamp<Base Spin<") << "what hung on it moves up";
	EXPECT_THAT(FindInconsistencies(*Lamp.Child), IsEmpty());
}
