// What a pin carries besides its name: whether it is in sight, how it is passed, who holds it, what it starts as.

#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_GenericCreateObject.h"
#include "K2Node_MakeStruct.h"
#include "K2Node_VariableSetRef.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "NodeIdentity/NodeByIdentity.h"
#include "NodeTests.h"
#include "ToolResults.h"
#include "UObject/Package.h"

#include <gtest/gtest.h>

namespace PinFlagsTests
{
using NodeTests::Make;

/** A call in the event graph, or first function, of a Blueprint of the parent. */
static UK2Node_CallFunction* Call(UEdGraph* Graph, const TCHAR* ClassPath, const TCHAR* Name)
{
	return Make<UK2Node_CallFunction>(
		Graph, [=](UK2Node_CallFunction& Node) { Node.SetFromFunction(NodeTests::Function(ClassPath, Name)); });
}

static UBlueprint* MakeLibrary()
{
	UClass* const Parent = FindObject<UClass>(nullptr, TEXT("/Script/Engine.BlueprintFunctionLibrary"));
	return FKismetEditorUtilities::CreateBlueprint(
		Parent, CreatePackage(TEXT("/Temp/Library")), FName(TEXT("Library")), BPTYPE_FunctionLibrary);
}

TEST(PinFlags, ATargetIsOutOfSightWhereTheAskerIsMeant)
{
	constexpr const TCHAR* Ability = TEXT("/Script/GameplayAbilities.GameplayAbility");
	constexpr const TCHAR* Locate = TEXT("MakeTargetLocationInfoFromOwnerActor");
	struct FCase
	{
		const TCHAR* Blueprint;
		const TCHAR* Owner;
		const TCHAR* Function;
		bool bHidden;
	};
	const FCase Cases[] = {
		{Ability, Ability, Locate, true},
		{nullptr, Ability, Locate, false},
		{Ability, Ability, TEXT("GetAvatarActorFromActorInfo"), false},
		{nullptr, TEXT("/Script/Engine.Actor"), TEXT("GetTransform"), false},
		{nullptr, TEXT("/Script/Engine.KismetMathLibrary"), TEXT("Sin"), true},
	};
	for (const FCase& Case : Cases)
	{
		const FBlueprintBuilder Blueprint(Case.Blueprint);
		const UK2Node_CallFunction* const Node = Call(Blueprint.EventGraph().Get(), Case.Owner, Case.Function);
		const UEdGraphPin* const Self = Node->FindPin(UEdGraphSchema_K2::PN_Self);
		ASSERT_NE(Self, nullptr) << ToStd(Case.Function);
		EXPECT_EQ(Self->bHidden, Case.bHidden) << ToStd(Case.Function);
	}
}

TEST(PinFlags, ALibraryIsAskedForAWorld)
{
	const FBlueprintBuilder Actor;
	UBlueprint* const Library = MakeLibrary();
	ASSERT_NE(Library, nullptr);
	UEdGraph* const Graph = NewObject<UEdGraph>(Library, FName(TEXT("Ask")));
	Graph->Schema = TSubclassOf<UEdGraphSchema>(UEdGraphSchema_K2::StaticClass());
	for (UEdGraph* const Where : {Actor.EventGraph().Get(), Graph})
	{
		const UK2Node_CallFunction* const Node = Call(
			Where, TEXT("/Script/Engine.GameplayStatics"), TEXT("GetPlayerController"));
		EXPECT_EQ(Node->FindPin(TEXT("WorldContextObject"))->bHidden, Where != Graph);
	}
	Library->GetPackage()->MarkAsGarbage();
}

TEST(PinFlags, ReferencesAndTemplatesAreToldApart)
{
	const FBlueprintBuilder Blueprint;
	struct FCase
	{
		const char* Identity;
		const char* Pin;
		bool bReference;
		bool bConst;
		bool bWrapper;
	};
	const FCase Cases[] = {
		{R"({"node_class":"K2Node_CallFunction","function":"GetTransform","function_parent":"/Script/Engine.Actor"})",
			"ReturnValue", true, true, false},
		{R"({"node_class":"K2Node_CallFunction","function":"K2_GetActorLocation","function_parent":"/Script/Engine.Actor"})",
			"ReturnValue", false, false, false},
		{R"({"node_class":"K2Node_VariableGet","variable":"RootComponent","variable_parent":"/Script/Engine.Actor"})",
			"RootComponent", false, false, true},
		{R"({"node_class":"K2Node_VariableGet","variable":"MorphTargets","variable_parent":"/Script/Engine.SkeletalMesh"})",
			"MorphTargets", false, false, true},
		{R"({"node_class":"K2Node_CallFunction","function":"GetAllActorsOfClass","function_parent":"/Script/Engine.GameplayStatics"})",
			"OutActors", false, false, false},
		{R"({"node_class":"K2Node_ComponentBoundEvent","event":"PerceptionUpdatedDelegate__DelegateSignature","event_parent":"/Script/AIModule"})",
			"UpdatedActors", true, true, false},
	};
	FNodeByIdentity Nodes;
	for (const FCase& Case : Cases)
	{
		FString Error;
		UEdGraphNode* const Node = Nodes.Make(*Json(Case.Identity), Error);
		const UEdGraphPin* const Pin = Node ? Node->FindPin(FName(FString(Case.Pin))) : nullptr;
		ASSERT_NE(Pin, nullptr) << Case.Identity << ToStd(Error);
		EXPECT_EQ(Pin->PinType.bIsReference, Case.bReference) << Case.Identity;
		EXPECT_EQ(Pin->PinType.bIsConst, Case.bConst) << Case.Identity;
		EXPECT_EQ(Pin->PinType.bIsUObjectWrapper, Case.bWrapper) << Case.Identity;
	}
}

TEST(PinFlags, AStructStartsAsItsWholeText)
{
	const FBlueprintBuilder Blueprint;
	const UK2Node_MakeStruct* const Node = Make<UK2Node_MakeStruct>(Blueprint.EventGraph().Get(),
		[](UK2Node_MakeStruct& Made)
		{ Made.StructType = NodeTests::Struct(TEXT("/Script/MovieScene.MovieSceneSequencePlaybackSettings")); });
	struct FCase
	{
		const TCHAR* Pin;
		const TCHAR* Text;
	};
	const FCase Cases[] = {
		{TEXT("TickInterval"),
			TEXT("(TickIntervalSeconds=0.000000,EvaluationBudgetMicroseconds=0.000000,"
				 "bTickWhenPaused=False,bAllowRounding=True)")},
		{TEXT("LoopCount"), TEXT("(Value=0)")},
		{TEXT("PlayRate"), TEXT("1.000000")},
	};
	for (const FCase& Case : Cases)
	{
		const UEdGraphPin* const Pin = Node->FindPin(FName(Case.Pin));
		ASSERT_NE(Pin, nullptr);
		EXPECT_EQ(Pin->AutogeneratedDefaultValue, Case.Text);
		EXPECT_EQ(Pin->DefaultValue, Case.Text);
		EXPECT_EQ(
			GetDefault<UEdGraphSchema_K2>()->IsPinDefaultValid(Pin, Case.Text, nullptr, FText::GetEmpty()), TEXT(""));
	}
}

TEST(PinFlags, AMapFunctionWithoutAMapStartsAsNothing)
{
	const FBlueprintBuilder Blueprint;
	const UK2Node_CallFunction* const Find = Call(
		Blueprint.EventGraph().Get(), TEXT("/Script/Engine.BlueprintMapLibrary"), TEXT("Map_Find"));
	for (const TCHAR* const Name : {TEXT("Key"), TEXT("Value")})
	{
		const UEdGraphPin* const Pin = Find->FindPin(FName(Name));
		EXPECT_EQ(Pin->PinType.PinCategory, UEdGraphSchema_K2::PC_Wildcard);
		EXPECT_EQ(Pin->AutogeneratedDefaultValue + Pin->DefaultValue, TEXT(""));
	}
}

TEST(PinFlags, AnOlderOuterGoesOnAsTheSelfPin)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_GenericCreateObject* const Node = Make<UK2Node_GenericCreateObject>(
		Graph.Get(), [](UK2Node_GenericCreateObject&) {});
	EXPECT_EQ(Node->GetOuterPin()->PinFriendlyName.ToString(), TEXT("Outer"));
	Node->GetOuterPin()->PinName = FName(TEXT("Outer"));
	UEdGraphPin* const Owner = Graph.Call(TEXT("/Script/Engine.Actor"), TEXT("GetOwner")).Output(TEXT("ReturnValue"));
	Owner->MakeLinkTo(Node->FindPin(TEXT("Outer")));
	Node->ReconstructNode();
	ASSERT_NE(Node->GetOuterPin(), nullptr);
	EXPECT_TRUE(Node->GetOuterPin()->LinkedTo.Contains(Owner));
	EXPECT_EQ(Node->FindPin(TEXT("Outer")), nullptr);
}

TEST(PinFlags, AReferenceIsSetInItsOwnType)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_VariableSetRef* const Set = Make<UK2Node_VariableSetRef>(Graph.Get(), [](UK2Node_VariableSetRef&) {});
	EXPECT_EQ(Set->GetNodeTitle(ENodeTitleType::FullTitle).ToString(), TEXT("Set By-Ref Var"));
	UEdGraphPin* const Name = Graph.Call(NodeTests::System, TEXT("GetGameName")).Output(TEXT("ReturnValue"));
	ASSERT_TRUE(GetDefault<UEdGraphSchema_K2>()->TryCreateConnection(Name, Set->GetValuePin()));
	EXPECT_EQ(Set->GetTargetPin()->PinType.PinCategory, UEdGraphSchema_K2::PC_String);
	EXPECT_TRUE(Set->GetTargetPin()->PinType.bIsReference);
	EXPECT_FALSE(Set->GetValuePin()->PinType.bIsReference);
	Name->BreakLinkTo(Set->GetValuePin());
	Set->PinConnectionListChanged(Set->GetValuePin());
	EXPECT_EQ(Set->GetTargetPin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Wildcard);
}
} // namespace PinFlagsTests
