#include "BlueprintFormatterService.h"
#include "GraphBuilder.h"

#include <gtest/gtest.h>

// Coordinates worked out by hand. H(node) is the one number taken from the surface: a node's estimated height.

namespace FormatterChainsTest
{
static int32 H(const FNodeHandle& Node)
{
	return static_cast<int32>(FBlueprintFormatterService::EstimateNodeSize(Node).Y);
}

static int32 Snap(double Value)
{
	return static_cast<int32>(std::floor((Value + 10.0) / 20.0) * 20.0);
}

static void Format(FGraphBuilder& Graph, const TArray<FNodeHandle>& Allowed)
{
	TArray<UEdGraphNode*> Nodes;
	for (const FNodeHandle& Handle : Allowed)
	{
		Nodes.Add(Handle.Node);
	}
	FBlueprintFormatterService::FormatGraph(Graph.Get(), Nodes);
}
} // namespace FormatterChainsTest

using namespace FormatterChainsTest;

TEST(FormatterChains, AChainRunsRightFromTheOrigin)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Event();
	const FNodeHandle B = Graph.Exec();
	const FNodeHandle Wide = Graph.Exec(1, 5);
	const FNodeHandle C = Graph.Exec();
	Graph.Then(A, B);
	Graph.Then(B, Wide);
	Graph.Then(Wide, C);
	Format(Graph, {A, B, Wide, C});
	EXPECT_EQ(A.At(), FIntPoint(0, 0));
	EXPECT_EQ(B.At(), FIntPoint(500, 0));
	EXPECT_EQ(Wide.At(), FIntPoint(1000, 0));
	EXPECT_EQ(C.At(), FIntPoint(1660, 0)) << "seven pins make a node 450 wide; 1650 snaps up";
}

TEST(FormatterChains, ARootBehindAFixedNodeTakesItsRow)
{
	FGraphBuilder Graph;
	const FNodeHandle Fixed = Graph.Event();
	const FNodeHandle A = Graph.Exec();
	Graph.Then(Fixed, A);
	for (const FIntPoint& Place : {FIntPoint(0, 0), FIntPoint(3, 7), FIntPoint(-1013, 333)})
	{
		Graph.Move(Fixed, Place.X, Place.Y);
		Graph.Move(A, 0, 0);
		Format(Graph, {A});
		EXPECT_EQ(Fixed.At(), Place);
		EXPECT_EQ(A.At(), FIntPoint(Snap(Place.X + 500), Place.Y)) << "the fixed node's own line wins over the grid";
	}
	FGraphBuilder Other;
	const FNodeHandle Wide = Other.Event(7);
	const FNodeHandle Behind = Other.Exec();
	Other.Then(Wide, Behind);
	Format(Other, {Behind});
	EXPECT_EQ(Behind.At(), FIntPoint(Snap(450 + 200), 0)) << "a node of seven pins is wide, fixed or not";
}

TEST(FormatterChains, ASecondChainStartsBelowTheFirst)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Event();
	const FNodeHandle B = Graph.Event();
	Format(Graph, {A, B});
	EXPECT_EQ(A.At(), FIntPoint(0, 0));
	EXPECT_EQ(B.At(), FIntPoint(0, Snap(H(A) + 200)));
}

TEST(FormatterChains, BranchesGoDown)
{
	FGraphBuilder Graph;
	const FNodeHandle Branch = Graph.Exec(2);
	const FNodeHandle True = Graph.Exec();
	const FNodeHandle False = Graph.Exec();
	Graph.Link(Branch.Output(TEXT("then")), True.Input(TEXT("execute")));
	Graph.Link(Branch.Output(TEXT("then1")), False.Input(TEXT("execute")));
	Format(Graph, {Branch, True, False});
	EXPECT_EQ(True.At(), FIntPoint(500, 0));
	EXPECT_EQ(False.At(), FIntPoint(500, Snap(H(True) + 200)));
}

TEST(FormatterChains, RowsAdvanceFromTheWishAndNotFromWhereAnObstaclePushedTo)
{
	FGraphBuilder Graph;
	const FNodeHandle Branch = Graph.Exec(2);
	const FNodeHandle Pushed = Graph.Exec();
	const FNodeHandle Next = Graph.Exec();
	Graph.Link(Branch.Output(TEXT("then")), Pushed.Input(TEXT("execute")));
	Graph.Link(Branch.Output(TEXT("then1")), Next.Input(TEXT("execute")));
	Graph.Comment(700, -400, 50, 420); // its padded box ends at 50
	Format(Graph, {Branch, Pushed, Next});
	EXPECT_EQ(Pushed.At(), FIntPoint(500, 100));
	EXPECT_EQ(Next.At(), FIntPoint(500, Snap(H(Pushed) + 200)));
}

TEST(FormatterChains, AChainEndsARowBelowItsLastChild)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Event();
	const FNodeHandle B = Graph.Exec();
	const FNodeHandle Second = Graph.Event();
	Graph.Then(A, B);
	Format(Graph, {A, B, Second});
	EXPECT_EQ(Second.At(), FIntPoint(0, Snap(H(B) + 200 + 200)));
}

TEST(FormatterChains, AJoinStaysWithTheFirstBranchAndPushesTheNextChildDown)
{
	FGraphBuilder Graph;
	const FNodeHandle Branch = Graph.Exec(2);
	const FNodeHandle First = Graph.Exec();
	const FNodeHandle Second = Graph.Exec(2);
	const FNodeHandle Join = Graph.Exec(20);
	const FNodeHandle After = Graph.Exec();
	Graph.Link(Branch.Output(TEXT("then")), First.Input(TEXT("execute")));
	Graph.Link(Branch.Output(TEXT("then1")), Second.Input(TEXT("execute")));
	Graph.Then(First, Join);
	Graph.Then(Second, Join);
	Graph.Link(Second.Output(TEXT("then1")), After.Input(TEXT("execute")));
	Format(Graph, {Branch, First, Second, Join, After});
	EXPECT_EQ(Join.At(), FIntPoint(1000, 0));
	const int32 SecondY = Snap(H(First) + 200);
	EXPECT_EQ(Second.At(), FIntPoint(500, SecondY));
	ASSERT_GT(H(Join) + 200, SecondY + 200) << "the join must reach below the branch that meets it";
	EXPECT_EQ(After.At(), FIntPoint(1000, Snap(H(Join) + 200)));
}

TEST(FormatterChains, BreadthComesBeforeDepth)
{
	// Both parents reach Shared: the one in the nearer column takes it, though the walk to the other is listed first.
	FGraphBuilder Graph;
	const FNodeHandle Root = Graph.Exec(2);
	const FNodeHandle Long = Graph.Exec();
	const FNodeHandle Longer = Graph.Exec();
	const FNodeHandle Shared = Graph.Exec();
	Graph.Link(Root.Output(TEXT("then")), Long.Input(TEXT("execute")));
	Graph.Then(Long, Longer);
	Graph.Then(Longer, Shared);
	Graph.Link(Root.Output(TEXT("then1")), Shared.Input(TEXT("execute")));
	Format(Graph, {Root, Long, Longer, Shared});
	EXPECT_EQ(Shared.At(), FIntPoint(500, Snap(H(Long) + 200)));
}

TEST(FormatterChains, AnAnchoredChainPullsTheCursorBackUp)
{
	// Tall at the origin, then one anchored high up, then a free one: it starts below the anchored one, not below Tall.
	FGraphBuilder Graph;
	const FNodeHandle Tall = Graph.Event(9);
	const FNodeHandle Anchor = Graph.Event();
	const FNodeHandle Anchored = Graph.Exec();
	const FNodeHandle Free = Graph.Event();
	Graph.Move(Anchor, 5000, -3000);
	Graph.Then(Anchor, Anchored);
	Format(Graph, {Tall, Anchored, Free});
	EXPECT_EQ(Tall.At(), FIntPoint(0, 0));
	EXPECT_EQ(Anchored.At(), FIntPoint(5500, -3000));
	EXPECT_EQ(Free.At(), FIntPoint(0, Snap(-3000 + H(Anchored) + 200)));
}

TEST(FormatterChains, AFixedNodeEndsTheBranchAndWhatLiesBehindItIsARoot)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Event();
	const FNodeHandle Fixed = Graph.Exec();
	const FNodeHandle Behind = Graph.Exec();
	Graph.Then(A, Fixed);
	Graph.Then(Fixed, Behind);
	Graph.Move(Fixed, 3000, 1000);
	Format(Graph, {A, Behind});
	EXPECT_EQ(A.At(), FIntPoint(0, 0));
	EXPECT_EQ(Behind.At(), FIntPoint(3500, 1000));
}

TEST(FormatterData, InputsStandLeftAndUpAndTheirInputsLevelWithThem)
{
	FGraphBuilder Graph;
	const FNodeHandle Consumer = Graph.Exec(1, 2);
	const FNodeHandle First = Graph.Pure(1);
	const FNodeHandle Second = Graph.Pure();
	const FNodeHandle Deeper = Graph.Pure();
	Graph.Feed(First, Consumer, TEXT("in0"));
	Graph.Feed(Second, Consumer, TEXT("in1"));
	Graph.Feed(Deeper, First);
	Format(Graph, {Consumer, First, Second, Deeper});
	EXPECT_EQ(Consumer.At(), FIntPoint(0, 0));
	EXPECT_EQ(First.At(), FIntPoint(-240, -200)) << "-250 snaps up";
	EXPECT_EQ(Deeper.At(), FIntPoint(-480, -200)) << "-490 snaps up; the second level gets no offset of its own";
	EXPECT_EQ(Second.At(), FIntPoint(-240, Snap(-200 + std::max(H(First) + 100, H(Deeper) + 20))));
}

TEST(FormatterData, WhatIsPlacedDeeperPushesTheNextInputDown)
{
	FGraphBuilder Graph;
	const FNodeHandle Consumer = Graph.Exec(1, 2);
	const FNodeHandle First = Graph.Pure(3);
	const FNodeHandle Second = Graph.Pure();
	const TArray<FNodeHandle> Deeper = {Graph.Pure(), Graph.Pure(), Graph.Pure()};
	Graph.Feed(First, Consumer, TEXT("in0"));
	Graph.Feed(Second, Consumer, TEXT("in1"));
	for (int32 Index = 0; Index < 3; ++Index)
	{
		Graph.Feed(Deeper[Index], First, *FString::Printf(TEXT("in%d"), Index));
	}
	Format(Graph, {Consumer, First, Second, Deeper[0], Deeper[1], Deeper[2]});
	const int32 Step = H(Deeper[0]) + 20;
	for (int32 Index = 0; Index < 3; ++Index)
	{
		EXPECT_EQ(Deeper[Index].At(), FIntPoint(-480, Snap(-200 + Index * Step))) << Index;
	}
	EXPECT_EQ(Second.At(), FIntPoint(-240, Snap(-200 + std::max(H(First) + 100, 3 * Step))));
}

TEST(FormatterData, TheFirstConsumerKeepsASharedInput)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Exec(1, 1);
	const FNodeHandle B = Graph.Exec(1, 1);
	const FNodeHandle Shared = Graph.Pure();
	Graph.Then(A, B);
	Graph.Feed(Shared, B);
	Graph.Feed(Shared, A);
	Format(Graph, {A, B, Shared});
	EXPECT_EQ(Shared.At(), FIntPoint(-240, -200));
}

TEST(FormatterData, AFixedInputStaysAndItsOwnInputsAreOrphans)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Exec(1, 1);
	const FNodeHandle Fixed = Graph.Pure(1);
	const FNodeHandle Behind = Graph.Pure();
	Graph.Feed(Fixed, A);
	Graph.Feed(Behind, Fixed);
	Graph.Move(Fixed, -2000, -2000);
	Format(Graph, {A, Behind});
	EXPECT_EQ(Fixed.At(), FIntPoint(-2000, -2000));
	EXPECT_EQ(A.At(), FIntPoint(0, 0));
	EXPECT_EQ(Behind.At(), FIntPoint(-2000, Snap(H(A) + 200))) << "under the mean of the fixed nodes";
}

TEST(FormatterData, ACycleOfPureNodesEnds)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Exec(1, 1);
	const FNodeHandle P = Graph.Pure(1);
	const FNodeHandle Q = Graph.Pure(1);
	Graph.Feed(P, A);
	Graph.Feed(Q, P);
	Graph.Feed(P, Q);
	Format(Graph, {A, P, Q});
	EXPECT_EQ(P.At(), FIntPoint(-240, -200));
	EXPECT_EQ(Q.At(), FIntPoint(-480, -200));
}

TEST(FormatterOrphans, StackUnderEverythingAndOpenAColumnBeyondTheLimit)
{
	// One of the first column is wide and not its last, and two are taller than the others.
	FGraphBuilder Graph;
	TArray<FNodeHandle> Orphans;
	for (int32 Index = 0; Index < 18; ++Index)
	{
		Orphans.Add(Index == 1 ? Graph.Pure(6) : Index % 6 == 3 ? Graph.Pure(4) : Graph.Bare());
	}
	Format(Graph, Orphans);
	double Y = 200.0;
	int32 X = 0;
	for (int32 Index = 0; Index < Orphans.Num(); ++Index)
	{
		if (Y > 2000.0)
		{
			X += X == 0 ? 450 + 200 : 300 + 200;
			Y = 200.0;
		}
		EXPECT_EQ(Orphans[Index].At(), FIntPoint(Snap(X), Snap(Y))) << Index;
		Y += H(Orphans[Index]) + 200;
	}
	EXPECT_GT(X, 650) << "the case must reach a third column";
}

TEST(FormatterOrphans, UnderADeepGraphTheStackIsARow)
{
	struct FCase
	{
		const char* Label;
		int32 Bottom;
		int32 FirstX;
	};
	for (const FCase& Case :
		{FCase{"the limit itself still holds a node", 1800, 0}, {"beyond it the first one steps too", 1900, 200}})
	{
		FGraphBuilder Graph;
		const FNodeHandle Fixed = Graph.Bare();
		Graph.Move(Fixed, 0, Case.Bottom - H(Fixed));
		const TArray<FNodeHandle> Orphans = {Graph.Bare(), Graph.Bare(), Graph.Bare()};
		Format(Graph, Orphans);
		const int32 Y = Orphans[0].At().Y;
		EXPECT_GE(Y, Case.Bottom + 200) << Case.Label;
		EXPECT_EQ(Orphans[0].At(), FIntPoint(Case.FirstX, Y)) << Case.Label;
		EXPECT_EQ(Orphans[1].At(), FIntPoint(Case.FirstX + 500, Y)) << Case.Label;
		EXPECT_EQ(Orphans[2].At(), FIntPoint(Case.FirstX + 1000, Y)) << Case.Label;
	}
}

TEST(FormatterOrphans, AClosedExecLoopHasNoRootAndIsStacked)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Exec();
	const FNodeHandle B = Graph.Exec();
	Graph.Then(A, B);
	Graph.Then(B, A);
	Format(Graph, {A, B});
	EXPECT_EQ(A.At(), FIntPoint(0, 200));
	EXPECT_EQ(B.At(), FIntPoint(0, Snap(200 + H(A) + 200)));
}

TEST(FormatterOrphans, AnInputOfAFixedConsumerIsAnOrphan)
{
	FGraphBuilder Graph;
	const FNodeHandle Fixed = Graph.Exec(1, 1);
	const FNodeHandle Input = Graph.Pure();
	Graph.Feed(Input, Fixed);
	Format(Graph, {Input});
	EXPECT_EQ(Input.At(), FIntPoint(0, Snap(H(Fixed) + 200)));
}

TEST(FormatterObstacles, AnUnlinkedNodeLeavesAFixedOneAlone)
{
	FGraphBuilder Graph;
	const FNodeHandle Fixed = Graph.Bare(100, 100);
	const FNodeHandle Moved = Graph.Bare(0, 0);
	Format(Graph, {Moved});
	EXPECT_EQ(Fixed.At(), FIntPoint(100, 100));
	EXPECT_EQ(Moved.At(), FIntPoint(100, Snap(100 + H(Fixed) + 200)));
}

TEST(FormatterObstacles, ACommentKeepsNodesOutOfItsPaddedBox)
{
	// The node, 300 wide, would stand at (500, 0) behind its anchor, and goes down by hundreds until it is free. A
	// comment that stays is a fixed node besides, with a wider margin: only its right and lower sides show its own.
	const struct
	{
		const char* Label;
		FIntPoint Place;
		FIntPoint Size;
		int32 ExpectedY;
	} Cases[] = {
		{"left of it, touching", {-330, -100}, {800, 140}, 100},
		{"left of it, free", {-331, -100}, {800, 140}, 0},
		{"above it, touching", {400, -430}, {300, 400}, 100},
		{"above it, free", {400, -431}, {300, 400}, 0},
		{"wide and low, above it", {-2000, -40}, {2600, 10}, 100},
		{"high and narrow, left of it", {400, -2000}, {40, 2600}, 0},
	};
	for (const auto& Case : Cases)
	{
		FGraphBuilder Graph;
		const FNodeHandle Anchor = Graph.Event();
		const FNodeHandle Node = Graph.Exec();
		Graph.Then(Anchor, Node);
		Graph.Comment(Case.Place.X, Case.Place.Y, Case.Size.X, Case.Size.Y);
		Format(Graph, {Node});
		EXPECT_EQ(Node.At(), FIntPoint(500, Case.ExpectedY)) << Case.Label;
	}
}

TEST(FormatterObstacles, AnAllowedCommentMovesAndItsOldPlaceIsKeptFree)
{
	FGraphBuilder Graph;
	const FNodeHandle Comment = Graph.Comment(-50, -50, 500, 300);
	const FNodeHandle Event = Graph.Event();
	Format(Graph, {Comment, Event});
	EXPECT_EQ(Event.At(), FIntPoint(0, 300)) << "the comment's old box ends at 280";
	EXPECT_NE(Comment.At(), FIntPoint(-50, -50));
}

TEST(FormatterObstacles, ANodeOfSevenPinsIsAWiderObstacle)
{
	for (const int32 NumPins : {6, 7})
	{
		FGraphBuilder Graph;
		const FNodeHandle Fixed = Graph.Exec(1, NumPins - 2);
		const FNodeHandle Anchor = Graph.Event();
		const FNodeHandle Node = Graph.Exec();
		Graph.Move(Fixed, 0, 40);
		Graph.Move(Anchor, -50, 2);
		Graph.Then(Anchor, Node);
		Format(Graph, {Node});
		// The wish is X 450, snapped to 460: the box of the fixed node ends at 400 or at 550.
		EXPECT_EQ(Node.At().X, 460) << NumPins;
		EXPECT_EQ(Node.At().Y == 2, NumPins == 6) << NumPins;
	}
}

TEST(FormatterObstacles, NodesOfTheSameRunAreNone)
{
	// The second input of B lands across A: only the cursors keep placed nodes apart.
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Event();
	const FNodeHandle B = Graph.Exec(1, 2);
	const FNodeHandle First = Graph.Pure();
	const FNodeHandle Second = Graph.Pure();
	Graph.Then(A, B);
	Graph.Feed(First, B, TEXT("in0"));
	Graph.Feed(Second, B, TEXT("in1"));
	Format(Graph, {A, B, First, Second});
	EXPECT_EQ(First.At(), FIntPoint(260, -200));
	EXPECT_EQ(Second.At(), FIntPoint(260, Snap(-200 + H(First) + 100)));
	EXPECT_LT(Second.At().Y, H(A)) << "the case must overlap";
}

TEST(FormatterAllowList, WithoutALiveNodeNothingIsTouchedOrNotified)
{
	FGraphBuilder Graph;
	const FNodeHandle Node = Graph.Bare(13, 17);
	int32 NumNotified = 0;
	Graph.Get()->OnGraphChanged.AddLambda([&NumNotified](const FEdGraphEditAction&) { ++NumNotified; });
	FBlueprintFormatterService::FormatGraph(Graph.Get(), {});
	FBlueprintFormatterService::FormatGraph(Graph.Get(), {nullptr, nullptr});
	FBlueprintFormatterService::FormatGraph(nullptr, {Node.Node});
	EXPECT_EQ(Node.At(), FIntPoint(13, 17));
	EXPECT_EQ(NumNotified, 0);
	FBlueprintFormatterService::FormatGraph(Graph.Get(), {nullptr, Node.Node});
	EXPECT_EQ(Node.At(), FIntPoint(0, 200));
	EXPECT_EQ(NumNotified, 1);
}

TEST(FormatterAllowList, NullMembersOfTheGraphAreSkipped)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Event();
	Graph.Get()->Nodes.Insert(nullptr, 0);
	Graph.Get()->Nodes.Add(nullptr);
	Format(Graph, {A});
	EXPECT_EQ(A.At(), FIntPoint(0, 0));
	Graph.Get()->Nodes.RemoveAll([](const UEdGraphNode* Node) { return !Node; });
}

TEST(FormatterNeighbors, AreOneHopAwayOverPinsOfAllKinds)
{
	FGraphBuilder Graph;
	const FNodeHandle A = Graph.Event();
	const FNodeHandle B = Graph.Exec(1, 1);
	const FNodeHandle C = Graph.Exec();
	const FNodeHandle D = Graph.Exec();
	const FNodeHandle P = Graph.Pure();
	Graph.Then(A, B);
	Graph.Then(B, C);
	Graph.Then(C, D);
	Graph.Feed(P, B);
	const auto Collect = [](const TArray<UEdGraphNode*>& Nodes, const TSet<UEdGraphNode*>& Excluded)
	{ return FBlueprintFormatterService::CollectNeighbors(Nodes, Excluded).Array(); };
	EXPECT_EQ(Collect({B}, {B.Node}), (TArray<UEdGraphNode*>{A, C, P}));
	EXPECT_EQ(Collect({B, nullptr, C}, {}), (TArray<UEdGraphNode*>{A, C, P, B, D})) << "given nodes are neighbours too";
	EXPECT_EQ(Collect({}, {}).Num(), 0);
}
