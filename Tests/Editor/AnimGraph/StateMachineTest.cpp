#include "AnimationGraphSchema.h"
#include "AnimationStateMachineGraph.h"
#include "AnimGraphNode_Root.h"
#include "AnimGraphNode_StateMachine.h"
#include "AnimStateAliasNode.h"
#include "AnimStateConduitNode.h"
#include "AnimStateEntryNode.h"
#include "AnimStateNode.h"
#include "AnimStateTransitionNode.h"
#include "BlueprintBuilder.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphUtilities.h"
#include "GraphText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace StateMachineTests
{
static UEdGraph* FindAnimGraph(const FBlueprintBuilder& Blueprint)
{
	for (UEdGraph* const Graph : Blueprint->FunctionGraphs)
	{
		if (Graph->GetName() == TEXT("AnimGraph"))
		{
			return Graph;
		}
	}
	return nullptr;
}

static UAnimStateNode* AddState(UEdGraph* Machine, const TCHAR* Name)
{
	UAnimStateNode* const State = FGraphBuilder(Machine).Add<UAnimStateNode>();
	State->OnRenameNode(Name);
	return State;
}

constexpr const TCHAR* AnimInstance = TEXT("/Script/Engine.AnimInstance");
} // namespace StateMachineTests

using namespace StateMachineTests;

TEST(StateMachine, StatesAreJoinedByTransitions)
{
	const FBlueprintBuilder Blueprint(AnimInstance);
	ASSERT_NE(FindAnimGraph(Blueprint), nullptr);
	UAnimGraphNode_StateMachine* const Node =
		FGraphBuilder(FindAnimGraph(Blueprint)).Add<UAnimGraphNode_StateMachine>();
	UEdGraph* const Machine = Node->EditorStateMachineGraph;
	ASSERT_NE(Machine, nullptr);
	UAnimStateNode* const Idle = AddState(Machine, TEXT("Idle"));
	UAnimStateNode* const Run = AddState(Machine, TEXT("Run"));
	const UEdGraphSchema* const Schema = Machine->GetSchema();
	UAnimStateEntryNode* const Entry = Cast<UAnimationStateMachineGraph>(Machine)->EntryNode;
	EXPECT_TRUE(Schema->TryCreateConnection(Entry->Pins[0], Idle->GetInputPin()));
	EXPECT_EQ(Entry->GetOutputNode(), Idle);
	EXPECT_TRUE(Schema->TryCreateConnection(Entry->Pins[0], Run->GetInputPin()));
	EXPECT_EQ(Entry->GetOutputNode(), Run) << "a machine starts in one state";

	// From the input end too; a transition always leads from output to input.
	EXPECT_TRUE(Schema->TryCreateConnection(Run->GetInputPin(), Idle->GetOutputPin()));
	TArray<UAnimStateTransitionNode*> Transitions;
	Idle->GetTransitionList(Transitions);
	ASSERT_EQ(Transitions.Num(), 1);
	EXPECT_EQ(Transitions[0]->GetPreviousState(), Idle);
	EXPECT_EQ(Transitions[0]->GetNextState(), Run);
	EXPECT_EQ(Transitions[0]->GetNodeTitle(ENodeTitleType::ListView).ToString(), TEXT("Idle to Run"));
	EXPECT_EQ(
		Schema->CanCreateConnection(Idle->GetOutputPin(), Idle->GetInputPin()).Response, CONNECT_RESPONSE_DISALLOW);
	EXPECT_EQ(
		Schema->CanCreateConnection(Idle->GetOutputPin(), Run->GetOutputPin()).Response, CONNECT_RESPONSE_DISALLOW);
	EXPECT_EQ(Schema->CanCreateConnection(Idle->GetOutputPin(), Transitions[0]->GetInputPin()).Response,
		CONNECT_RESPONSE_DISALLOW);
}

TEST(StateMachine, EveryGraphBelowIsTheBlueprintsUntilItsNodeGoes)
{
	const FBlueprintBuilder Blueprint(AnimInstance);
	UAnimGraphNode_StateMachine* const Node =
		FGraphBuilder(FindAnimGraph(Blueprint)).Add<UAnimGraphNode_StateMachine>();
	UAnimStateNode* const Idle = AddState(Node->EditorStateMachineGraph, TEXT("Idle"));
	const auto Count = [&Blueprint]
	{
		TArray<UEdGraph*> Graphs;
		Blueprint->GetAllGraphs(Graphs);
		return Graphs.Num();
	};
	const int32 WithBoth = Count();
	Idle->DestroyNode();
	EXPECT_EQ(Count(), WithBoth - 1);
	Node->DestroyNode();
	EXPECT_EQ(Count(), WithBoth - 2);
}

TEST(StateMachine, IsCopiedWithAllThatIsBelow)
{
	const FBlueprintBuilder Blueprint(AnimInstance);
	UEdGraph* const Graph = FindAnimGraph(Blueprint);
	UAnimGraphNode_StateMachine* const Node = FGraphBuilder(Graph).Add<UAnimGraphNode_StateMachine>();
	UEdGraph* const Machine = Node->EditorStateMachineGraph;
	UAnimStateNode* const Idle = AddState(Machine, TEXT("Idle"));
	UAnimStateNode* const Run = AddState(Machine, TEXT("Run"));
	Machine->GetSchema()->TryCreateConnection(Idle->GetOutputPin(), Run->GetInputPin());
	FString Text;
	FEdGraphUtilities::ExportNodesToText({Node}, Text);
	TSet<UEdGraphNode*> Pasted;
	FEdGraphUtilities::ImportNodesFromText(Graph, Text, Pasted);
	FEdGraphUtilities::PostProcessPastedNodes(Pasted);
	ASSERT_EQ(Pasted.Num(), 1);
	const UAnimGraphNode_StateMachine* const Copy = Cast<UAnimGraphNode_StateMachine>(Pasted.Array()[0]);
	ASSERT_NE(Copy, nullptr);
	UEdGraph* const CopiedMachine = Copy->EditorStateMachineGraph;
	ASSERT_NE(CopiedMachine, nullptr);
	EXPECT_EQ(CopiedMachine->GetOuter(), Copy);
	EXPECT_NE(CopiedMachine->GraphGuid, Machine->GraphGuid);
	EXPECT_TRUE(Graph->SubGraphs.Contains(CopiedMachine));
	TArray<UAnimStateNode*> States;
	CopiedMachine->GetNodesOfClass(States);
	ASSERT_EQ(States.Num(), 2);
	EXPECT_NE(States[0]->NodeGuid, Idle->NodeGuid);
	TArray<UAnimStateTransitionNode*> Transitions;
	CopiedMachine->GetNodesOfClass(Transitions);
	ASSERT_EQ(Transitions.Num(), 1);
	EXPECT_EQ(Transitions[0]->GetPreviousState(), States[0]);
	EXPECT_EQ(Transitions[0]->GetNextState(), States[1]);
	EXPECT_EQ(States[0]->GetStateName(), TEXT("Idle"));
	EXPECT_EQ(States[0]->BoundGraph->GetOuter(), States[0]);
}

TEST(StateMachine, APoseIsHandedToOneTaker)
{
	const FBlueprintBuilder Blueprint(AnimInstance);
	UEdGraph* const Graph = FindAnimGraph(Blueprint);
	ASSERT_NE(Graph, nullptr);
	FEdGraphPinType Pose;
	Pose.PinCategory = UEdGraphSchema_K2::PC_Struct;
	Pose.PinSubCategoryObject = UAnimationGraphSchema::GetPoseLinkStruct();
	UEdGraphPin* Pins[4];
	for (int32 Index = 0; Index < 4; ++Index)
	{
		UEdGraphNode* const Node = Graph->CreateNode(UK2Node::StaticClass(), false);
		Pins[Index] = Node->CreatePin(Index < 2 ? EGPD_Output : EGPD_Input, Pose, TEXT("Pose"));
	}
	const UEdGraphSchema* const Schema = Graph->GetSchema();
	ASSERT_TRUE(Schema->TryCreateConnection(Pins[0], Pins[2]));
	ASSERT_TRUE(Schema->TryCreateConnection(Pins[1], Pins[3]));
	EXPECT_EQ(Schema->CanCreateConnection(Pins[0], Pins[3]).Response, CONNECT_RESPONSE_BREAK_OTHERS_AB);
	ASSERT_TRUE(Schema->TryCreateConnection(Pins[0], Pins[3]));
	EXPECT_TRUE(Pins[0]->IsLinkedTo(Pins[3]));
	EXPECT_TRUE(Pins[1]->LinkedTo.IsEmpty());
	EXPECT_TRUE(Pins[2]->LinkedTo.IsEmpty());
}

TEST(AnimationGraphs, EachNodeSaysWhatItIs)
{
	const FBlueprintBuilder Blueprint(AnimInstance);
	UEdGraph* const Graph = FindAnimGraph(Blueprint);
	UAnimGraphNode_StateMachine* const Node = FGraphBuilder(Graph).Add<UAnimGraphNode_StateMachine>();
	Node->OnRenameNode(TEXT("Locomotion"));
	UAnimStateNode* const Idle = AddState(Node->EditorStateMachineGraph, TEXT("Idle"));
	UAnimStateConduitNode* const Conduit = FGraphBuilder(Node->EditorStateMachineGraph).Add<UAnimStateConduitNode>();
	UAnimStateTransitionNode* const Loose =
		FGraphBuilder(Node->EditorStateMachineGraph).Add<UAnimStateTransitionNode>();
	TArray<UAnimGraphNode_Root*> Roots;
	Graph->GetNodesOfClass(Roots);
	ASSERT_EQ(Roots.Num(), 1);
	const struct
	{
		const UEdGraphNode* Node;
		ENodeTitleType::Type Type;
		const TCHAR* Title;
	} Titles[] = {{Node, ENodeTitleType::FullTitle, TEXT("Locomotion\nState Machine")},
		{Node, ENodeTitleType::ListView, TEXT("Locomotion")},
		{GetDefault<UAnimGraphNode_StateMachine>(), ENodeTitleType::MenuTitle, TEXT("Add New State Machine...")},
		{GetDefault<UAnimGraphNode_StateMachine>(), ENodeTitleType::FullTitle, TEXT("Error: No Graph\nState Machine")},
		{Roots[0], ENodeTitleType::FullTitle, TEXT("Output Pose")},
		{Idle->BoundGraph->Nodes[0].Get(), ENodeTitleType::FullTitle, TEXT("Output Animation Pose")},
		{Conduit->BoundGraph->Nodes[0].Get(), ENodeTitleType::FullTitle, TEXT("Result")},
		{Conduit, ENodeTitleType::FullTitle, TEXT("Conduit")},
		{Loose, ENodeTitleType::FullTitle, TEXT("Trans Transition")}};
	for (const auto& Case : Titles)
	{
		EXPECT_EQ(Case.Node->GetNodeTitle(Case.Type).ToString(), Case.Title);
	}
	EXPECT_EQ(Node->GetMenuCategory().ToString(), TEXT("Animation|State Machines"));
	// A machine's pose goes into the result: both pins are of the struct of poses.
	EXPECT_TRUE(Graph->GetSchema()->TryCreateConnection(Node->Pins[0], Roots[0]->Pins[0]));
	EXPECT_EQ(Node->Pins[0]->PinType.PinSubCategoryObject->GetPathName(), TEXT("/Script/Engine.PoseLink"));
	EXPECT_TRUE(
		Graph->GetSchema()->CanCreateConnection(Node->Pins[0], Conduit->BoundGraph->Nodes[0]->Pins[0]).IsDisallowed());
}

TEST(AnimationGraphs, ANodeWithoutItsGraphHasNothingBelow)
{
	const FBlueprintBuilder Blueprint(AnimInstance);
	UAnimGraphNode_StateMachine* const Node =
		FGraphBuilder(FindAnimGraph(Blueprint)).Add<UAnimGraphNode_StateMachine>();
	UAnimStateNode* const Idle = AddState(Node->EditorStateMachineGraph, TEXT("Idle"));
	EXPECT_EQ(Idle->GetSubGraphs().Num(), 1);
	Idle->ClearBoundGraph();
	EXPECT_EQ(Idle->GetSubGraphs().Num(), 0);
	EXPECT_EQ(Idle->GetStateName(), TEXT("(null)"));
	UAnimStateAliasNode* const Alias = FGraphBuilder(Node->EditorStateMachineGraph).Add<UAnimStateAliasNode>();
	EXPECT_EQ(Alias->GetSubGraphs().Num(), 0);
	Alias->GetAliasedStates().Add(Idle);
	Idle->DestroyNode();
	for (const TWeakObjectPtr<UAnimStateNodeBase>& State : Alias->GetAliasedStates())
	{
		EXPECT_EQ(State.Get(), nullptr) << "a state that is gone is aliased no longer";
	}
}
