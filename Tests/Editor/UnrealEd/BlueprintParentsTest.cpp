#include "BlueprintEditorLibrary.h"

#include "EditedBlueprint.h"
#include "K2Node_CallParentFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"

using namespace EditedBlueprint;

namespace BlueprintParentsTests
{
static UClass* Class(const TCHAR* Path)
{
	return FindObject<UClass>(nullptr, Path);
}

constexpr const TCHAR* Actor = TEXT("/Script/Engine.Actor");

template <class TNode>
TArray<TNode*> NodesOf(const UBlueprint* Blueprint)
{
	TArray<TNode*> Nodes;
	FUtils::GetAllNodesOfClass(Blueprint, Nodes);
	return Nodes;
}
} // namespace BlueprintParentsTests

using namespace BlueprintParentsTests;

TEST(BlueprintParents, AnEventThatTheParentBlueprintHasCallsIt)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_Event* const Tick = FUtils::FindOverrideForFunction(Blueprint.Get(), Class(Actor), TEXT("ReceiveTick"));
	Tick->SetEnabledState(ENodeEnabledState::Enabled);
	FUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
	const FOther Child(TEXT("BP_Child"), Blueprint->GeneratedClass.Get());
	const TArray<UK2Node_CallParentFunction*> Calls = NodesOf<UK2Node_CallParentFunction>(Child.Get());
	ASSERT_EQ(Calls.Num(), 1) << "the other events are native alone";
	EXPECT_EQ(Calls[0]->FunctionReference.GetMemberName(), FName(TEXT("ReceiveTick")));
	const UK2Node_Event* const Own = FUtils::FindOverrideForFunction(
		Child.Get(), Blueprint->GeneratedClass.Get(), TEXT("ReceiveTick"));
	ASSERT_NE(Own, nullptr);
	EXPECT_TRUE(Own->FindPin(TEXT("then"))->LinkedTo.Contains(Calls[0]->FindPin(TEXT("execute"))));
	EXPECT_TRUE(Own->FindPin(TEXT("DeltaSeconds"))->LinkedTo.Contains(Calls[0]->FindPin(TEXT("DeltaSeconds"))));
	EXPECT_FALSE(Calls[0]->IsNodeEnabled()) << "a ghost as its event";
	EXPECT_THAT(FindInconsistencies(*Child.Get()), IsEmpty());
}

TEST(BlueprintParents, OnlyAFittingClassBecomesTheParent)
{
	const FBlueprintBuilder Blueprint;
	const FOther Child(TEXT("BP_Child"), Blueprint->GeneratedClass.Get());
	for (UClass* const Refused : {static_cast<UClass*>(nullptr), Blueprint->GeneratedClass.Get(), Child.Class(),
			 Class(TEXT("/Script/UMG.UserWidget")), Class(TEXT("/Script/Engine.KismetMathLibrary"))})
	{
		UBlueprintEditorLibrary::ReparentBlueprint(Blueprint.Get(), Refused);
		EXPECT_EQ(Blueprint->ParentClass.Get(), Class(Actor)) << (Refused ? ToStd(Refused->GetName()) : "null");
	}
}

TEST(BlueprintParents, EverythingFollowsANewParent)
{
	const FBlueprintBuilder Old;
	AddFunction(Old.Get(), TEXT("Open"));
	AddFunction(Old.Get(), TEXT("Close"));
	FKismetEditorUtilities::CompileBlueprint(Old.Get());
	const FOther New(TEXT("BP_New"), Class(Actor));
	AddFunction(New.Get(), TEXT("Open"));
	ASSERT_TRUE(FUtils::AddMemberVariable(New.Get(), TEXT("Lamp"), FBlueprintBuilder::Type(FSchema::PC_Boolean)));
	AddComponent(New.Get(), TEXT("/Script/Engine.SceneComponent"), TEXT("Base"));
	FKismetEditorUtilities::CompileBlueprint(New.Get());

	const FOther Moved(TEXT("BP_Moved"), Old->GeneratedClass.Get());
	for (const TCHAR* const Name : {TEXT("Open"), TEXT("Close")})
	{
		UEdGraph* const Graph = FUtils::CreateNewGraph(
			Moved.Get(), FName(Name), UEdGraph::StaticClass(), FSchema::StaticClass());
		FUtils::AddFunctionGraph(Moved.Get(), Graph, false, Old->GeneratedClass.Get());
	}
	const FGraphBuilder Page = Moved.EventGraph();
	UK2Node_CallParentFunction* const Stays = Add<UK2Node_CallParentFunction>(Page,
		[&Old](UK2Node_CallParentFunction& Node)
		{ Node.SetFromFunction(Old->GeneratedClass->FindFunctionByName(TEXT("Open"))); });
	UK2Node_CallParentFunction* const Goes = Add<UK2Node_CallParentFunction>(Page,
		[&Old](UK2Node_CallParentFunction& Node)
		{ Node.SetFromFunction(Old->GeneratedClass->FindFunctionByName(TEXT("Close"))); });
	UK2Node_CustomEvent* const Start = Add<UK2Node_CustomEvent>(
		Page, [](UK2Node_CustomEvent& Node) { Node.CustomFunctionName = TEXT("Start"); });
	FGraphBuilder::Then({Start}, {Goes});
	FGraphBuilder::Then({Goes}, {Stays});
	ASSERT_TRUE(
		FUtils::AddMemberVariable(Moved.Get(), TEXT("Lamp"), FBlueprintBuilder::Type(FSchema::PC_Int), TEXT("3")));

	UBlueprintEditorLibrary::ReparentBlueprint(Moved.Get(), New.Class());

	EXPECT_EQ(Moved->ParentClass.Get(), New.Class());
	EXPECT_TRUE(Moved.Class()->IsChildOf(New.Class()));
	EXPECT_EQ(Stays->FunctionReference.GetMemberParentClass(), New.Class());
	EXPECT_FALSE(Page.Get()->Nodes.Contains(Goes)) << "the new parent has no such function";
	EXPECT_TRUE(Start->FindPin(TEXT("then"))->LinkedTo.Contains(Stays->FindPin(TEXT("execute"))));
	EXPECT_NE(Moved->NewVariables[0].VarName, FName(TEXT("Lamp"))) << "the new parent has that name";
	EXPECT_FALSE(Moved->SimpleConstructionScript->GetRootNodes().Contains(
		Moved->SimpleConstructionScript->GetDefaultSceneRootNode()));
	EXPECT_THAT(FindInconsistencies(*Moved.Get()), IsEmpty());
	EXPECT_NE(Moved->Status, BS_Error);
}

TEST(BlueprintParents, AnEventWithoutADeclarationBecomesACustomOne)
{
	const FBlueprintBuilder Pawn(TEXT("/Script/Engine.Pawn"));
	UK2Node_Event* const Possessed = Add<UK2Node_Event>(Pawn.EventGraph(),
		[](UK2Node_Event& Node)
		{
			Node.EventReference.SetExternalMember(TEXT("ReceivePossessed"), Class(TEXT("/Script/Engine.Pawn")));
			Node.bOverrideFunction = true;
		});
	const FNodeHandle Print = Pawn.EventGraph().Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	FGraphBuilder::Then({Possessed}, Print);
	UBlueprintEditorLibrary::ReparentBlueprint(Pawn.Get(), Class(Actor));
	const UK2Node_Event* const Custom = FUtils::FindCustomEventNode(Pawn.Get(), TEXT("ReceivePossessed"));
	ASSERT_NE(Custom, nullptr);
	EXPECT_TRUE(Custom->FindPin(TEXT("then"))->LinkedTo.Contains(Print.Input(TEXT("execute"))));
	EXPECT_NE(Custom->FindPin(TEXT("NewController")), nullptr);
	EXPECT_NE(FUtils::FindOverrideForFunction(Pawn.Get(), Class(Actor), TEXT("ReceiveTick")), nullptr)
		<< "what an actor has too stays";
	EXPECT_THAT(FindInconsistencies(*Pawn.Get()), IsEmpty());
}
