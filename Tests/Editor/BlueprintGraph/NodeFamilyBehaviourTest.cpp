// What nodes of calls, events, variables and creation do when they are changed after an author has linked them.

#include "EdGraphSchema_K2.h"
#include "K2Node_AddComponentByClass.h"
#include "K2Node_AssignDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_InputKey.h"
#include "K2Node_LatentGameplayTaskCall.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_SpawnActorFromClass.h"
#include "K2Node_VariableGet.h"
#include "NodeTests.h"
#include "Standalone/StandardMacros.h"

#include <gtest/gtest.h>

namespace NodeFamilyBehaviourTests
{
using NodeTests::Make;
using NodeTests::Math;
using NodeTests::System;

static UClass* Class(const TCHAR* Path)
{
	return FindObject<UClass>(nullptr, Path);
}

template <class TNode>
TNode* CallOf(UEdGraph* Graph, const TCHAR* ClassPath, const TCHAR* Name)
{
	return Make<TNode>(Graph, [=](TNode& Node) { Node.SetFromFunction(NodeTests::Function(ClassPath, Name)); });
}

static bool IsLinked(const UEdGraphPin* From, const UEdGraphPin* To)
{
	return From && To && From->LinkedTo.Contains(To) && To->LinkedTo.Contains(From);
}

static bool HasOrphans(const UEdGraphNode& Node)
{
	return Node.Pins.ContainsByPredicate([](const UEdGraphPin* Pin) { return Pin->bOrphanedPin; });
}

/** Print, the node, print: how a node stands in a chain. */
struct FChain
{
	FChain(FGraphBuilder& Graph, UEdGraphNode& Middle)
		: Before(Graph.Call(System, TEXT("PrintString")))
		, After(Graph.Call(System, TEXT("PrintString")))
	{
		FGraphBuilder::Then(Before, FNodeHandle{&Middle});
		FGraphBuilder::Then(FNodeHandle{&Middle}, After);
	}
	bool IsBridged() const { return IsLinked(Before.Output(TEXT("then")), After.Input(TEXT("execute"))); }

	FNodeHandle Before;
	FNodeHandle After;
};

TEST(Purity, ANodeThatTurnsPureLetsItsNeighboursMeet)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_DynamicCast* const Cast = Make<UK2Node_DynamicCast>(
		Graph.Get(), [](UK2Node_DynamicCast& Node) { Node.TargetType = Class(TEXT("/Script/Engine.Pawn")); });
	const FChain AroundCast(Graph, *Cast);
	Cast->SetPurity(true);
	EXPECT_TRUE(AroundCast.IsBridged());
	EXPECT_FALSE(HasOrphans(*Cast));
	EXPECT_FALSE(Cast->GetBoolSuccessPin()->bHidden);

	UK2Node_VariableGet* const Get = Make<UK2Node_VariableGet>(Graph.Get(),
		[](UK2Node_VariableGet& Node) { Node.VariableReference.SetSelfMember(FName(TEXT("RootComponent"))); });
	Get->SetPurity(false);
	const FChain AroundGet(Graph, *Get);
	Get->SetPurity(true);
	EXPECT_TRUE(AroundGet.IsBridged());
	EXPECT_EQ(Get->Pins.Num(), 2);
}

TEST(Purity, AGetBranchesOnWhatItsValueCanTell)
{
	struct FCase
	{
		const TCHAR* Variable;
		EGetNodeVariation Impure;
		const TCHAR* ThenLabel;
	};
	const FCase Cases[] = {{TEXT("RootComponent"), EGetNodeVariation::ValidatedObject, TEXT("Is Valid")},
		{TEXT("bReplicates"), EGetNodeVariation::Branch, TEXT("True")},
		{TEXT("CustomTimeDilation"), EGetNodeVariation::Pure, TEXT("")},
		{TEXT("Tags"), EGetNodeVariation::Pure, TEXT("")}};
	const FBlueprintBuilder Blueprint;
	for (const FCase& Case : Cases)
	{
		UK2Node_VariableGet* const Get = Make<UK2Node_VariableGet>(Blueprint.EventGraph().Get(),
			[&Case](UK2Node_VariableGet& Node) { Node.VariableReference.SetSelfMember(FName(Case.Variable)); });
		Get->SetPurity(false);
		EXPECT_EQ(Get->CurrentVariation, Case.Impure) << ToStd(Case.Variable);
		EXPECT_EQ(Get->IsNodePure(), Case.Impure == EGetNodeVariation::Pure);
		const UEdGraphPin* const Then = Get->GetThenPin();
		EXPECT_EQ(Then ? Then->PinFriendlyName.ToString() : FString(), FString(Case.ThenLabel));
		EXPECT_NE(Get->GetValuePin(), nullptr);
	}
}

TEST(Purity, OnlyPureFunctionsMayBeRunInOrder)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_CallFunction* const Add = CallOf<UK2Node_CallFunction>(Graph.Get(), Math, TEXT("Add_IntInt"));
	Add->FindPin(TEXT("A"))->DefaultValue = TEXT("7");
	Add->ToggleNodePurityOverride();
	EXPECT_FALSE(Add->IsNodePure());
	EXPECT_NE(Add->GetExecPin(), nullptr);
	EXPECT_EQ(Add->FindPin(TEXT("A"))->DefaultValue, TEXT("7"));
	const FChain Around(Graph, *Add);
	Add->ToggleNodePurityOverride();
	EXPECT_TRUE(Add->IsNodePure());
	EXPECT_EQ(Add->NodePurityOverride, ENodePurityOverride::Unset);
	EXPECT_TRUE(Around.IsBridged());

	UK2Node_CallFunction* const Print = CallOf<UK2Node_CallFunction>(Graph.Get(), System, TEXT("PrintString"));
	EXPECT_FALSE(Print->CanToggleNodePurity());
	Print->ToggleNodePurityOverride();
	EXPECT_FALSE(Print->IsNodePure());
}

TEST(MissingMember, ACallKeepsItsPinsUntilTheFunctionIsBack)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_CallFunction* const Call = CallOf<UK2Node_CallFunction>(
		Graph.Get(), TEXT("/Script/Engine.Actor"), TEXT("K2_SetActorLocation"));
	const FChain Around(Graph, *Call);
	UEdGraphPin* const Location = Call->FindPin(TEXT("NewLocation"));
	Call->GetK2Schema()->SplitPin(Location);
	Call->FindPin(TEXT("NewLocation_Y"))->DefaultValue = TEXT("12.0");
	const FName Known = Call->GetFunctionName();
	for (const FName Name : {FName(TEXT("GoneForNow")), Known})
	{
		Call->FunctionReference.SetMemberName(Name);
		Call->ReconstructNode();
		EXPECT_FALSE(HasOrphans(*Call)) << ToStd(Name.ToString());
		EXPECT_TRUE(IsLinked(Around.Before.Output(TEXT("then")), Call->GetExecPin()));
		EXPECT_TRUE(IsLinked(Call->GetThenPin(), Around.After.Input(TEXT("execute"))));
		const UEdGraphPin* const Part = Call->FindPin(TEXT("NewLocation_Y"));
		ASSERT_NE(Part, nullptr) << ToStd(Name.ToString());
		EXPECT_EQ(Part->DefaultValue, TEXT("12.0"));
		EXPECT_TRUE(Call->FindPin(TEXT("SweepHitResult"))) << "outputs stay too";
	}
}

TEST(SpawnActor, ALinkOfTheResultThatNoLongerFitsIsBroken)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_SpawnActorFromClass* const Spawn = Graph.Add<UK2Node_SpawnActorFromClass>();
	const auto Choose = [Spawn](const TCHAR* Path)
	{ Spawn->GetSchema()->TrySetDefaultObject(*Spawn->GetClassPin(), Class(Path)); };
	Choose(TEXT("/Script/Engine.Character"));
	UK2Node_CallFunction* const Jump = CallOf<UK2Node_CallFunction>(
		Graph.Get(), TEXT("/Script/Engine.Character"), TEXT("Jump"));
	UK2Node_CallFunction* const Destroy = CallOf<UK2Node_CallFunction>(
		Graph.Get(), TEXT("/Script/Engine.Actor"), TEXT("K2_DestroyActor"));
	for (UK2Node_CallFunction* const Call : {Jump, Destroy})
	{
		ASSERT_TRUE(Call->GetSchema()->TryCreateConnection(Spawn->GetResultPin(), Call->FindPin(TEXT("self"))));
	}
	Choose(TEXT("/Script/Engine.PointLight"));
	EXPECT_TRUE(Jump->FindPin(TEXT("self"))->LinkedTo.IsEmpty()) << "a light does not jump";
	EXPECT_TRUE(IsLinked(Spawn->GetResultPin(), Destroy->FindPin(TEXT("self")))) << "an actor it is still";
}

TEST(AddComponentByClass, OnlySceneComponentsAreAttached)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_AddComponentByClass* const Add = Blueprint.EventGraph().Add<UK2Node_AddComponentByClass>();
	struct FCase
	{
		const TCHAR* Path;
		bool bShown;
	};
	for (const FCase& Case : {FCase{TEXT("/Script/Engine.PointLightComponent"), true},
			 FCase{TEXT("/Script/Engine.RotatingMovementComponent"), false},
			 FCase{TEXT("/Script/Engine.StaticMeshComponent"), true}})
	{
		Add->GetSchema()->TrySetDefaultObject(*Add->GetClassPin(), Class(Case.Path));
		for (const TCHAR* const Name : {TEXT("RelativeTransform"), TEXT("bManualAttachment")})
		{
			ASSERT_NE(Add->FindPin(Name), nullptr);
			EXPECT_EQ(Add->FindPin(Name)->bHidden, !Case.bShown) << ToStd(Case.Path) << " " << ToStd(Name);
		}
	}
}

TEST(LatentTask, VariablesOfTheChosenClassCanBeSet)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_LatentAbilityCall* const Task = Make<UK2Node_LatentAbilityCall>(Blueprint.EventGraph().Get(),
		[](UK2Node_LatentAbilityCall& Node)
		{
			Node.InitializeProxyFromFunction(
				NodeTests::Function(TEXT("/Script/GameplayAbilities.AbilityTask_SpawnActor"), TEXT("SpawnActor")));
		});
	ASSERT_NE(Task->GetClassPin(), nullptr);
	EXPECT_EQ(Task->FindPin(TEXT("Instigator")), nullptr);
	Task->GetSchema()->TrySetDefaultObject(*Task->GetClassPin(), Class(TEXT("/Script/Engine.Character")));
	const UEdGraphPin* const Instigator = Task->FindPin(TEXT("Instigator"), EGPD_Input);
	ASSERT_NE(Instigator, nullptr) << "an actor exposes who caused it";
	EXPECT_FALSE(Instigator->bHidden);
	Task->GetSchema()->TrySetDefaultObject(*Task->GetClassPin(), nullptr);
	EXPECT_EQ(Task->FindPin(TEXT("Instigator")), nullptr);
}

TEST(CustomEvent, FollowsTheDispatcherItIsBoundTo)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_CustomEvent* const Event = Make<UK2Node_CustomEvent>(
		Graph.Get(), [](UK2Node_CustomEvent& Node) { Node.CustomFunctionName = FName(TEXT("Hear")); });
	EXPECT_TRUE(Event->IsEditable());
	const auto BindTo = [&](const TCHAR* Dispatcher)
	{
		UK2Node_AddDelegate* const Bind = Make<UK2Node_AddDelegate>(
			Graph.Get(), [&](UK2Node_AddDelegate& Node) { Node.DelegateReference.SetSelfMember(FName(Dispatcher)); });
		UEdGraphPin* const Output = Event->FindPin(UK2Node_Event::DelegateOutputName);
		Output->BreakAllPinLinks();
		Output->MakeLinkTo(Bind->GetDelegatePin());
		Event->ReconstructNode();
	};
	BindTo(TEXT("OnDestroyed"));
	EXPECT_NE(Event->FindPin(TEXT("DestroyedActor"), EGPD_Output), nullptr);
	EXPECT_FALSE(Event->IsEditable()) << "the signature is the dispatcher's";
	BindTo(TEXT("OnActorBeginOverlap"));
	EXPECT_NE(Event->FindPin(TEXT("OtherActor"), EGPD_Output), nullptr);
	EXPECT_EQ(Event->FindPin(TEXT("DestroyedActor"), EGPD_Output), nullptr);
}

TEST(Sequence, OutputsCountedWithGapsKeepTheirLinks)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_ExecutionSequence* const Sequence = Graph.Add<UK2Node_ExecutionSequence>();
	const FNodeHandle Print = Graph.Call(System, TEXT("PrintString"));
	UEdGraphPin* const Second = Sequence->GetThenPinGivenIndex(1);
	Second->PinName = FName(TEXT("then_5"));
	FGraphBuilder::Link(Second, Print.Input(TEXT("execute")));
	Sequence->ReconstructNode();
	EXPECT_TRUE(IsLinked(Sequence->GetThenPinGivenIndex(1), Print.Input(TEXT("execute"))));
	EXPECT_EQ(Sequence->Pins.Num(), 3);
	EXPECT_FALSE(HasOrphans(*Sequence));
}

TEST(FunctionEnds, TakePinsOnTheirOwnSideOnly)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Function = Blueprint.Function(TEXT("Work"));
	TArray<UK2Node_FunctionEntry*> Entries;
	Function.Get()->GetNodesOfClass(Entries);
	UK2Node_FunctionResult* const Result = Function.Add<UK2Node_FunctionResult>();
	const FEdGraphPinType Int = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int);
	const FEdGraphPinType Exec = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Exec);
	FText Reason;
	EXPECT_TRUE(Entries[0]->CanCreateUserDefinedPin(Int, EGPD_Output, Reason));
	EXPECT_FALSE(Entries[0]->CanCreateUserDefinedPin(Int, EGPD_Input, Reason));
	EXPECT_FALSE(Entries[0]->CanCreateUserDefinedPin(Exec, EGPD_Output, Reason));
	EXPECT_TRUE(Result->CanCreateUserDefinedPin(Int, EGPD_Input, Reason));
	EXPECT_FALSE(Result->CanCreateUserDefinedPin(Int, EGPD_Output, Reason));
	EXPECT_FALSE(Reason.IsEmpty());
}

TEST(InputNodes, StandWhereAPlayersInputArrives)
{
	struct FCase
	{
		const TCHAR* Parent;
		bool bTakesInput;
	};
	for (const FCase& Case : {FCase{TEXT("/Script/Engine.Actor"), true}, FCase{TEXT("/Script/UMG.UserWidget"), true},
			 FCase{TEXT("/Script/Engine.ActorComponent"), false}})
	{
		const FBlueprintBuilder Blueprint(Case.Parent);
		const UK2Node_InputKey* const Key = GetDefault<UK2Node_InputKey>();
		EXPECT_EQ(Key->IsCompatibleWithGraph(Blueprint.EventGraph().Get()), Case.bTakesInput) << ToStd(Case.Parent);
		EXPECT_FALSE(Key->IsCompatibleWithGraph(Blueprint.Function(TEXT("Work")).Get()));
	}
}

TEST(Pasting, WhatWaitsAndWhatIsAnothersStaysOut)
{
	const FBlueprintBuilder Actor;
	UEdGraph* const Events = Actor.EventGraph().Get();
	UEdGraph* const Function = Actor.Function(TEXT("Work")).Get();
	const auto MacroOf = [Events](UEdGraph* Graph) {
		return Make<UK2Node_MacroInstance>(Events, [Graph](UK2Node_MacroInstance& Node) { Node.SetMacroGraph(Graph); });
	};
	struct FCase
	{
		const char* Name;
		const UK2Node* Node;
		const UEdGraph* Graph;
		bool bAllowed;
	};
	static const FName Authority(TEXT("Switch Has Authority"));
	UEdGraph* const ActorMacro = StandardMacros::FindMacro(Authority, StandardMacros::ActorPackageName);
	UEdGraph* const ComponentMacro = StandardMacros::FindMacro(Authority, StandardMacros::ActorComponentPackageName);
	UEdGraph* const Loop = StandardMacros::FindMacro(FName(TEXT("ForLoop")));
	const UK2Node* const Delay = CallOf<UK2Node_CallFunction>(Events, System, TEXT("Delay"));
	const UK2Node* const Print = CallOf<UK2Node_CallFunction>(Events, System, TEXT("PrintString"));
	const FCase Cases[] = {{"a wait among events", Delay, Events, true},
		{"a wait in a function", Delay, Function, false}, {"a print in a function", Print, Function, true},
		{"a loop in a function", MacroOf(Loop), Function, true},
		{"an actor's macro in an actor", MacroOf(ActorMacro), Events, true},
		{"a component's macro in an actor", MacroOf(ComponentMacro), Events, false}};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(Case.Node->CanPasteHere(Case.Graph), Case.bAllowed) << Case.Name;
	}
}

TEST(StandardMacros, LibrariesAreFoundByPathAndFitTheirClass)
{
	struct FCase
	{
		const TCHAR* Package;
		const TCHAR* Macro;
		const TCHAR* Parent;
	};
	const FBlueprintBuilder Blueprint;
	for (const FCase& Case : {FCase{StandardMacros::PackageName, TEXT("ForLoop"), TEXT("/Script/CoreUObject.Object")},
			 FCase{StandardMacros::ActorPackageName, TEXT("Switch Has Authority"), TEXT("/Script/Engine.Actor")},
			 FCase{StandardMacros::ActorComponentPackageName, TEXT("Switch Has Authority"),
				 TEXT("/Script/Engine.ActorComponent")}})
	{
		const UBlueprint* const Library = StandardMacros::GetLibrary(Case.Package);
		ASSERT_NE(Library, nullptr) << ToStd(Case.Package);
		EXPECT_EQ(Library->ParentClass.Get(), Class(Case.Parent));
		UEdGraph* const Graph = StandardMacros::FindMacro(FName(Case.Macro), Case.Package);
		ASSERT_NE(Graph, nullptr);
		EXPECT_EQ(Graph->GetTypedOuter<UBlueprint>(), Library);
		const UEdGraph* const Loaded = LoadObject<UEdGraph>(nullptr, *Graph->GetPathName());
		EXPECT_EQ(Loaded, Graph) << "a pasted reference names it by path";
	}
	EXPECT_EQ(StandardMacros::GetLibrary(TEXT("/Engine/EditorBlueprintResources/Others")), nullptr);
}
} // namespace NodeFamilyBehaviourTests
