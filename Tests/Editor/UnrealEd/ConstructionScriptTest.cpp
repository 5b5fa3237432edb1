#include "EditedBlueprint.h"

#include "Components/SceneComponent.h"
#include "Engine/SCS_Node.h"
#include "K2Node_ComponentBoundEvent.h"

using namespace EditedBlueprint;

namespace ConstructionScriptTests
{
using testing::ElementsAre;

constexpr const TCHAR* Scene = TEXT("/Script/Engine.SceneComponent");
constexpr const TCHAR* Box = TEXT("/Script/Engine.BoxComponent");
constexpr const TCHAR* Light = TEXT("/Script/Engine.PointLightComponent");
constexpr const TCHAR* Movement = TEXT("/Script/Engine.RotatingMovementComponent");

/** "Root(Arm(Lamp) Foot)" for the components of a Blueprint. */
static void Describe(const TArray<TObjectPtr<USCS_Node>>& Nodes, std::string& Out)
{
	for (const USCS_Node* const Node : Nodes)
	{
		Out += (Out.empty() || Out.back() == '(' ? "" : " ") + ToStd(Node->GetVariableName().ToString());
		if (!Node->GetChildNodes().IsEmpty())
		{
			Out += "(";
			Describe(Node->GetChildNodes(), Out);
			Out += ")";
		}
	}
}

static std::string TreeOf(const UBlueprint* Blueprint)
{
	std::string Out;
	Describe(Blueprint->SimpleConstructionScript->GetRootNodes(), Out);
	return Out;
}

static USCS_Node* Find(UBlueprint* Blueprint, const TCHAR* Name)
{
	return Blueprint->SimpleConstructionScript->FindSCSNode(Name);
}

/** Root(Arm(Lamp) Foot) Spin */
static void Furnish(UBlueprint* Blueprint)
{
	USCS_Node* const Root = AddComponent(Blueprint, Scene, TEXT("Root"));
	USCS_Node* const Arm = AddComponent(Blueprint, Box, TEXT("Arm"), Root);
	AddComponent(Blueprint, Light, TEXT("Lamp"), Arm);
	AddComponent(Blueprint, Scene, TEXT("Foot"), Root);
	AddComponent(Blueprint, Movement, TEXT("Spin"));
}
} // namespace ConstructionScriptTests

using namespace ConstructionScriptTests;

TEST(ConstructionScript, TheTreeStaysWholeThroughEveryEdit)
{
	struct FCase
	{
		const char* Name;
		void (*Edit)(UBlueprint* Blueprint);
		const char* Tree;
	};
	const FCase Cases[] = {
		{"nothing", [](UBlueprint*) {}, "Root(Arm(Lamp) Foot) Spin"},
		{"remove with what is below",
			[](UBlueprint* BP) { BP->SimpleConstructionScript->RemoveNode(Find(BP, TEXT("Arm"))); }, "Root(Foot) Spin"},
		{"remove and keep what is below",
			[](UBlueprint* BP) { BP->SimpleConstructionScript->RemoveNodeAndPromoteChildren(Find(BP, TEXT("Arm"))); },
			"Root(Foot Lamp) Spin"},
		{"remove the root and keep what is below",
			[](UBlueprint* BP) { BP->SimpleConstructionScript->RemoveNodeAndPromoteChildren(Find(BP, TEXT("Root"))); },
			"Spin Arm(Lamp) Foot"},
		{"remove every scene component",
			[](UBlueprint* BP) { BP->SimpleConstructionScript->RemoveNode(Find(BP, TEXT("Root"))); },
			"Spin DefaultSceneRoot"},
		{"move a branch",
			[](UBlueprint* BP)
			{
				USCS_Node* const Arm = Find(BP, TEXT("Arm"));
				BP->SimpleConstructionScript->RemoveNode(Arm, false);
				Find(BP, TEXT("Foot"))->AddChildNode(Arm);
			},
			"Root(Foot(Arm(Lamp))) Spin"},
		{"take over the children",
			[](UBlueprint* BP) { Find(BP, TEXT("Foot"))->MoveChildNodes(Find(BP, TEXT("Arm"))); },
			"Root(Arm Foot(Lamp)) Spin"},
		{"rename",
			[](UBlueprint* BP) { FUtils::RenameComponentMemberVariable(BP, Find(BP, TEXT("Arm")), TEXT("Boom")); },
			"Root(Boom(Lamp) Foot) Spin"},
		{"remove and make again",
			[](UBlueprint* BP)
			{
				BP->SimpleConstructionScript->RemoveNode(Find(BP, TEXT("Lamp")));
				AddComponent(BP, Scene, TEXT("Lamp"), Find(BP, TEXT("Foot")));
			},
			"Root(Arm Foot(Lamp)) Spin"},
	};
	for (const FCase& Case : Cases)
	{
		FBlueprintBuilder Blueprint;
		Furnish(Blueprint.Get());
		Case.Edit(Blueprint.Get());
		FUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
		EXPECT_EQ(TreeOf(Blueprint.Get()), Case.Tree) << Case.Name;
		EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty()) << Case.Name;
		EXPECT_EQ(TreeOf(Blueprint.Get()), Case.Tree) << Case.Name << ", read again";
	}
}

TEST(ConstructionScript, ANewComponentTakesNoMembersName)
{
	FBlueprintBuilder Blueprint;
	Furnish(Blueprint.Get());
	Blueprint.AddVariable(TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Boolean));
	ASSERT_NE(FUtils::AddNewTimeline(Blueprint.Get(), TEXT("Fade")), nullptr);
	for (const TCHAR* const Taken : {TEXT("Arm"), TEXT("arm"), TEXT("Door"), TEXT("Fade"), TEXT("RootComponent")})
	{
		const USCS_Node* const Node = AddComponent(Blueprint.Get(), Scene, Taken);
		EXPECT_NE(Node->GetVariableName(), FName(Taken));
		EXPECT_TRUE(Node->GetVariableName().ToString().StartsWith(Taken)) << ToStd(Taken);
	}
	const USCS_Node* const Unnamed = AddComponent(Blueprint.Get(), Box, nullptr);
	EXPECT_EQ(ToStd(Unnamed->GetVariableName().ToString()), "Box");
	EXPECT_EQ(
		Blueprint->SimpleConstructionScript->CreateNode(FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"))),
		nullptr)
		<< "no component class";
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
}

TEST(ConstructionScript, ARemovedComponentIsNotWritten)
{
	FBlueprintBuilder Blueprint;
	Furnish(Blueprint.Get());
	AddComponent(Blueprint.Get(), Light, TEXT("Chandelier"), Find(Blueprint.Get(), TEXT("Foot")));
	Blueprint->SimpleConstructionScript->RemoveNode(Find(Blueprint.Get(), TEXT("Chandelier")));
	FUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	ASSERT_TRUE(Blueprint.Save());
	EXPECT_EQ(ReadBlueprintFile(Blueprint).find("Chandelier"), std::string::npos);
}

TEST(ConstructionScript, NodesAndAttachmentsFollowARenamedComponent)
{
	FBlueprintBuilder Blueprint;
	Furnish(Blueprint.Get());
	FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
	UClass* const Class = Blueprint->GeneratedClass.Get();
	UK2Node_VariableGet* const Get = AddAccess<UK2Node_VariableGet>(Blueprint.EventGraph(), TEXT("Arm"));
	FKismetEditorUtilities::CreateNewBoundEventForClass(FindObject<UClass>(nullptr, Box),
		TEXT("OnComponentBeginOverlap"), Blueprint.Get(), FindFProperty<FObjectProperty>(Class, TEXT("Arm")));
	const auto FindEvent = [&Blueprint](const TCHAR* Component)
	{
		return FKismetEditorUtilities::FindBoundEventForComponent(
			Blueprint.Get(), TEXT("OnComponentBeginOverlap"), Component);
	};
	ASSERT_NE(FindEvent(TEXT("Arm")), nullptr);
	const FOther Child(TEXT("BP_Child"), Class);
	USCS_Node* const Hand = AddComponent(Child.Get(), Light, TEXT("Hand"));
	Hand->SetParent(Find(Blueprint.Get(), TEXT("Arm")));
	EXPECT_EQ(
		Hand->GetParentComponentTemplate(Child.Get()), Find(Blueprint.Get(), TEXT("Arm"))->ComponentTemplate.Get());

	FUtils::RenameComponentMemberVariable(Blueprint.Get(), Find(Blueprint.Get(), TEXT("Arm")), TEXT("Boom"));

	EXPECT_EQ(Get->GetVarName(), FName(TEXT("Boom")));
	EXPECT_NE(FindEvent(TEXT("Boom")), nullptr);
	EXPECT_EQ(Hand->ParentComponentOrVariableName, FName(TEXT("Boom")));
	EXPECT_EQ(
		Hand->GetParentComponentTemplate(Child.Get()), Find(Blueprint.Get(), TEXT("Boom"))->ComponentTemplate.Get());
	EXPECT_THAT(FindInconsistencies(*Child.Get()), IsEmpty());
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
	FUtils::RemoveVariableNodes(Blueprint.Get(), TEXT("Boom"));
	EXPECT_EQ(FindEvent(TEXT("Boom")), nullptr);
}

TEST(ConstructionScript, TheRootIsTheNearestThatIsThere)
{
	const auto RootOf = [](const UBlueprint* Blueprint, bool bUseDefault)
	{
		const USceneComponent* const Root = Blueprint->SimpleConstructionScript->GetSceneRootComponentTemplate(
			bUseDefault);
		return Root ? ToStd(Root->GetName()) : "";
	};
	const FBlueprintBuilder Blueprint;
	EXPECT_EQ(RootOf(Blueprint.Get(), false), "");
	EXPECT_EQ(RootOf(Blueprint.Get(), true), "DefaultSceneRoot_GEN_VARIABLE");
	Furnish(Blueprint.Get());
	EXPECT_EQ(RootOf(Blueprint.Get(), false), "Root_GEN_VARIABLE");
	const FOther Child(TEXT("BP_Child"), Blueprint->GeneratedClass.Get());
	AddComponent(Child.Get(), Scene, TEXT("Extra"));
	EXPECT_EQ(RootOf(Child.Get(), false), "Root_GEN_VARIABLE");
	const FOther Character(TEXT("BP_Hero"), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Character")));
	EXPECT_EQ(RootOf(Character.Get(), true), "CollisionCylinder");
}
