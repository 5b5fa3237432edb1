#include "Kismet2/BlueprintEditorUtils.h"

#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "Engine/TimelineTemplate.h"
#include "GameFramework/Actor.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Timeline.h"
#include "K2Node_VariableGet.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "UObject/UnrealType.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace BlueprintEditorUtilsTests
{
using FSchema = UEdGraphSchema_K2;
using FUtils = FBlueprintEditorUtils;

static UK2Node_VariableGet* AddGet(const FGraphBuilder& Graph, const TCHAR* Name)
{
	FGraphNodeCreator<UK2Node_VariableGet> Creator(*Graph.Get());
	UK2Node_VariableGet* const Node = Creator.CreateNode(false);
	Node->VariableReference.SetSelfMember(Name);
	Creator.Finalize();
	return Node;
}

static FProperty* FindProperty(UBlueprint* Blueprint, const TCHAR* Name)
{
	FUtils::EnsureSkeletonIsUpToDate(Blueprint);
	return Blueprint->SkeletonGeneratedClass.Get()->FindPropertyByName(Name);
}

static UClass* FindClass(const TCHAR* Path)
{
	return FindObject<UClass>(nullptr, Path);
}
} // namespace BlueprintEditorUtilsTests

using namespace BlueprintEditorUtilsTests;

TEST(BlueprintEditorUtils, AVariablesFlagsAndWordsReachItsProperty)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Speed"), FBlueprintBuilder::Type(FSchema::PC_Int));
	struct FCase
	{
		const char* Name;
		void (*Set)(UBlueprint* Blueprint, bool bOn);
		uint64 Flag;
		bool bInverted;
	};
	const FCase Cases[] = {
		{"class only", [](UBlueprint* BP, bool bOn) { FUtils::SetBlueprintOnlyEditableFlag(BP, TEXT("Speed"), bOn); },
			CPF_DisableEditOnInstance, false},
		{"read only",
			[](UBlueprint* BP, bool bOn) { FUtils::SetBlueprintPropertyReadOnlyFlag(BP, TEXT("Speed"), bOn); },
			CPF_BlueprintReadOnly, false},
		{"save game", [](UBlueprint* BP, bool bOn) { FUtils::SetVariableSaveGameFlag(BP, TEXT("Speed"), bOn); },
			CPF_SaveGame, false},
	};
	for (const FCase& Case : Cases)
	{
		for (const bool bOn : {true, false})
		{
			Case.Set(Blueprint.Get(), bOn);
			EXPECT_EQ(FindProperty(Blueprint.Get(), TEXT("Speed"))->HasAnyPropertyFlags(Case.Flag), bOn) << Case.Name;
		}
	}
	FUtils::SetBlueprintVariableCategory(Blueprint.Get(), TEXT("Speed"), nullptr, FText::FromString(TEXT("Motion")));
	FUtils::SetBlueprintVariableMetaData(Blueprint.Get(), TEXT("Speed"), nullptr, TEXT("ToolTip"), TEXT("how fast"));
	EXPECT_EQ(FindProperty(Blueprint.Get(), TEXT("Speed"))->GetMetaData(TEXT("Category")), TEXT("Motion"));
	EXPECT_EQ(FindProperty(Blueprint.Get(), TEXT("Speed"))->GetMetaData(TEXT("ToolTip")), TEXT("how fast"));
	FUtils::RemoveBlueprintVariableMetaData(Blueprint.Get(), TEXT("Speed"), nullptr, TEXT("ToolTip"));
	FString Value;
	EXPECT_FALSE(FUtils::GetBlueprintVariableMetaData(Blueprint.Get(), TEXT("Speed"), nullptr, TEXT("ToolTip"), Value));
	EXPECT_EQ(FUtils::GetBlueprintVariableCategory(Blueprint.Get(), TEXT("Speed"), nullptr).ToString(), TEXT("Motion"));
}

TEST(BlueprintEditorUtils, NodesFollowARenamedVariableAndGoWithARemovedOne)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Old"), FBlueprintBuilder::Type(FSchema::PC_String));
	UK2Node_VariableGet* const Get = AddGet(Blueprint.EventGraph(), TEXT("Old"));
	const FGuid Guid = FUtils::FindMemberVariableGuidByName(Blueprint.Get(), TEXT("Old"));
	EXPECT_TRUE(FUtils::IsVariableUsed(Blueprint.Get(), TEXT("Old")));
	FUtils::RenameMemberVariable(Blueprint.Get(), TEXT("Old"), TEXT("New"));
	EXPECT_EQ(Get->GetVarName(), FName(TEXT("New")));
	EXPECT_NE(Get->FindPin(TEXT("New")), nullptr);
	EXPECT_EQ(FUtils::FindMemberVariableNameByGuid(Blueprint.Get(), Guid), FName(TEXT("New")));
	EXPECT_NE(FindProperty(Blueprint.Get(), TEXT("New")), nullptr);
	EXPECT_EQ(FindProperty(Blueprint.Get(), TEXT("Old")), nullptr);
	FUtils::RemoveMemberVariable(Blueprint.Get(), TEXT("New"));
	EXPECT_FALSE(Blueprint.EventGraph().Get()->Nodes.Contains(Get));
	EXPECT_EQ(FindProperty(Blueprint.Get(), TEXT("New")), nullptr);
	EXPECT_EQ(FUtils::FindNewVariableIndex(Blueprint.Get(), TEXT("New")), INDEX_NONE);
}

TEST(BlueprintEditorUtils, TakenNamesAreNotGivenTwice)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Boolean));
	Blueprint.Function(TEXT("Open"));
	for (const TCHAR* const Taken : {TEXT("Door"), TEXT("door"), TEXT("DefaultSceneRoot"), TEXT("bReplicates")})
	{
		EXPECT_FALSE(FUtils::AddMemberVariable(Blueprint.Get(), Taken, FBlueprintBuilder::Type(FSchema::PC_Boolean)))
			<< ToStd(Taken);
	}
	EXPECT_FALSE(FUtils::AddMemberVariable(Blueprint.Get(), NAME_None, FBlueprintBuilder::Type(FSchema::PC_Boolean)));
	for (const TCHAR* const Taken : {TEXT("Door"), TEXT("Open"), TEXT("EventGraph"), TEXT("K2_DestroyActor")})
	{
		const FName Unique = FUtils::FindUniqueKismetName(Blueprint.Get(), Taken);
		EXPECT_NE(Unique, FName(Taken));
		EXPECT_THAT(ToStd(Unique.ToString()), testing::StartsWith(ToStd(Taken)));
	}
	EXPECT_EQ(FUtils::FindUniqueKismetName(Blueprint.Get(), TEXT("Window")), FName(TEXT("Window")));
}

TEST(BlueprintEditorUtils, LocalVariablesBelongToTheirFunction)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.Function(TEXT("Count")).Get();
	const FEdGraphPinType Int = FBlueprintBuilder::Type(FSchema::PC_Int);
	ASSERT_TRUE(FUtils::AddLocalVariable(Blueprint.Get(), Graph, TEXT("Sum"), Int, TEXT("3")));
	EXPECT_FALSE(FUtils::AddLocalVariable(Blueprint.Get(), Graph, TEXT("Sum"), Int));
	EXPECT_FALSE(FUtils::AddLocalVariable(Blueprint.Get(), Blueprint.EventGraph().Get(), TEXT("Sum"), Int));
	UK2Node_FunctionEntry* Entry = nullptr;
	const FBPVariableDescription* const Local = FUtils::FindLocalVariable(Blueprint.Get(), Graph, TEXT("Sum"), &Entry);
	ASSERT_NE(Local, nullptr);
	EXPECT_EQ(Entry, FUtils::GetEntryNode(Graph));
	EXPECT_EQ(Local->DefaultValue, TEXT("3"));
	FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
	const UFunction* const Function = Blueprint->SkeletonGeneratedClass.Get()->FindFunctionByName(TEXT("Count"));
	EXPECT_NE(Function->FindPropertyByName(TEXT("Sum")), nullptr);
	FUtils::RemoveLocalVariable(Blueprint.Get(), Function, TEXT("Sum"));
	EXPECT_EQ(FUtils::FindLocalVariable(Blueprint.Get(), Graph, TEXT("Sum")), nullptr);
}

TEST(BlueprintEditorUtils, ARenamedGraphKeepsItsEndsAndItsName)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.Function(TEXT("Old")).Get();
	FUtils::RenameGraph(Graph, TEXT("New"));
	EXPECT_EQ(FUtils::GetEntryNode(Graph)->FunctionReference.GetMemberName(), FName(TEXT("New")));
	FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
	const UClass* const Class = Blueprint->SkeletonGeneratedClass.Get();
	EXPECT_NE(Class->FindFunctionByName(TEXT("New")), nullptr);
	EXPECT_EQ(Class->FindFunctionByName(TEXT("Old")), nullptr);
	FUtils::RemoveGraph(Blueprint.Get(), Graph);
	EXPECT_FALSE(Blueprint->FunctionGraphs.Contains(Graph));
	FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
	EXPECT_EQ(Class->FindFunctionByName(TEXT("New")), nullptr);
}

TEST(BlueprintEditorUtils, EventsAndOverridesAreFound)
{
	const FBlueprintBuilder Blueprint;
	UClass* const Actor = AActor::StaticClass();
	EXPECT_NE(FUtils::FindOverrideForFunction(Blueprint.Get(), Actor, TEXT("ReceiveTick")), nullptr);
	EXPECT_EQ(FUtils::FindOverrideForFunction(Blueprint.Get(), Actor, TEXT("ReceiveDestroyed")), nullptr);
	UFunction* Function = nullptr;
	EXPECT_EQ(FUtils::GetOverrideFunctionClass(Blueprint.Get(), TEXT("ReceiveTick"), &Function), Actor);
	ASSERT_NE(Function, nullptr);
	EXPECT_EQ(Function->GetFName(), FName(TEXT("ReceiveTick")));
	EXPECT_EQ(FUtils::GetOverrideFunctionClass(Blueprint.Get(), TEXT("NoSuchThing"), &Function), nullptr);
	EXPECT_EQ(Function, nullptr);
	FGraphNodeCreator<UK2Node_CustomEvent> Creator(*Blueprint.EventGraph().Get());
	UK2Node_CustomEvent* const Event = Creator.CreateNode(false);
	Event->CustomFunctionName = TEXT("Ring");
	Creator.Finalize();
	EXPECT_EQ(FUtils::FindCustomEventNode(Blueprint.Get(), TEXT("Ring")), Event);
	EXPECT_EQ(FUtils::FindCustomEventNode(Blueprint.Get(), TEXT("Rang")), nullptr);
}

TEST(BlueprintEditorUtils, AnInterfaceBringsItsGraphsAndTakesThemAway)
{
	const FBlueprintBuilder Blueprint;
	UClass* const Interface = FindClass(TEXT("/Script/GameplayTags.GameplayTagAssetInterface"));
	ASSERT_NE(Interface, nullptr);
	const FTopLevelAssetPath Path(Interface);
	ASSERT_TRUE(FUtils::ImplementNewInterface(Blueprint.Get(), Path));
	EXPECT_FALSE(FUtils::ImplementNewInterface(Blueprint.Get(), Path)) << "once is enough";
	EXPECT_FALSE(FUtils::ImplementNewInterface(Blueprint.Get(), FTopLevelAssetPath(AActor::StaticClass())));
	TArray<UClass*> Interfaces;
	FUtils::FindImplementedInterfaces(Blueprint.Get(), false, Interfaces);
	EXPECT_TRUE(Interfaces.Contains(Interface));
	FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
	EXPECT_TRUE(Blueprint->SkeletonGeneratedClass.Get()->ImplementsInterface(Interface));
	FUtils::RemoveInterface(Blueprint.Get(), Path);
	EXPECT_TRUE(Blueprint->ImplementedInterfaces.IsEmpty());
	FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
	EXPECT_FALSE(Blueprint->SkeletonGeneratedClass.Get()->ImplementsInterface(Interface));
}

TEST(BlueprintEditorUtils, ATimelineAndItsNodeShareAName)
{
	const FBlueprintBuilder Blueprint;
	UTimelineTemplate* const Timeline = FUtils::AddNewTimeline(Blueprint.Get(), TEXT("Fade"));
	ASSERT_NE(Timeline, nullptr);
	EXPECT_EQ(FUtils::AddNewTimeline(Blueprint.Get(), TEXT("Fade")), nullptr);
	EXPECT_NE(FindProperty(Blueprint.Get(), TEXT("Fade")), nullptr);
	FGraphNodeCreator<UK2Node_Timeline> Creator(*Blueprint.EventGraph().Get());
	UK2Node_Timeline* const Node = Creator.CreateNode(false);
	Node->TimelineName = TEXT("Fade");
	Creator.Finalize();
	EXPECT_EQ(FUtils::FindNodeForTimeline(Blueprint.Get(), Timeline), Node);
	ASSERT_TRUE(FUtils::RenameTimeline(Blueprint.Get(), TEXT("Fade"), TEXT("Glow")));
	EXPECT_EQ(Node->TimelineName, FName(TEXT("Glow")));
	EXPECT_EQ(Timeline->GetVariableName(), FName(TEXT("Glow")));
	EXPECT_NE(FindProperty(Blueprint.Get(), TEXT("Glow")), nullptr);
	FUtils::RemoveTimeline(Blueprint.Get(), Timeline);
	EXPECT_EQ(FindProperty(Blueprint.Get(), TEXT("Glow")), nullptr);
}

TEST(BlueprintEditorUtils, KindsFollowTheParent)
{
	struct FCase
	{
		const TCHAR* Parent;
		bool bActor;
		bool bTimelines;
	};
	for (const FCase& Case : {FCase{TEXT("/Script/Engine.Character"), true, true},
			 FCase{TEXT("/Script/Engine.SceneComponent"), false, false},
			 FCase{TEXT("/Script/UMG.UserWidget"), false, false}})
	{
		const FBlueprintBuilder Blueprint(Case.Parent);
		EXPECT_EQ(FUtils::IsActorBased(Blueprint.Get()), Case.bActor) << ToStd(Case.Parent);
		EXPECT_EQ(FUtils::DoesSupportTimelines(Blueprint.Get()), Case.bTimelines) << ToStd(Case.Parent);
		EXPECT_TRUE(FUtils::DoesSupportEventGraphs(Blueprint.Get())) << ToStd(Case.Parent);
	}
}
