#include "BlueprintFormatterService.h"
#include "GraphBuilder.h"
#include "HAL/PlatformTime.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

// What must hold for any graph, over generated ones: random links, random allow-lists, comments, cycles, shared inputs.

namespace FormatterInvariantsTest
{
struct FGenerated
{
	FGraphBuilder Graph;
	TArray<UEdGraphNode*> Nodes;
	TArray<UEdGraphNode*> Allowed;

	explicit FGenerated(uint32 Seed, int32 NumNodes = 60)
	{
		std::mt19937 Random(Seed);
		const auto Below = [&Random](int32 Limit)
		{ return std::uniform_int_distribution<int32>(0, Limit - 1)(Random); };
		TArray<FNodeHandle> Handles;
		for (int32 Index = 0; Index < NumNodes; ++Index)
		{
			const int32 Kind = Below(8);
			Handles.Add(Kind == 0 ? Graph.Event(1 + Below(3))
					: Kind < 4	  ? Graph.Exec(1 + Below(3), Below(8))
					: Kind < 7	  ? Graph.Pure(Below(4))
								  : Graph.Comment(0, 0, Below(900), Below(900)));
			Graph.Move(Handles.Last(), Below(4000) - 2000, Below(4000) - 2000);
			Nodes.Add(Handles.Last());
			if (Below(2) == 0)
			{
				Allowed.Add(Handles.Last());
			}
		}
		for (int32 Try = 0; Try < NumNodes * 3; ++Try)
		{
			LinkSome(Handles[Below(NumNodes)], Handles[Below(NumNodes)], static_cast<uint32>(Below(1 << 20)));
		}
	}

	/** Any output to any input of the same kind, loops included. */
	void LinkSome(const FNodeHandle& From, const FNodeHandle& To, uint32 Choice)
	{
		for (UEdGraphPin* const Output : From->Pins)
		{
			for (UEdGraphPin* const Input : To->Pins)
			{
				Choice = Choice * 1664525u + 1013904223u;
				if (Choice % 3 == 0 && Output->Direction == EGPD_Output && Input->Direction == EGPD_Input
					&& Output->PinType.PinCategory == Input->PinType.PinCategory)
				{
					Output->MakeLinkTo(Input);
					return;
				}
			}
		}
	}

	TArray<FIntPoint> Positions() const
	{
		TArray<FIntPoint> Points;
		for (const UEdGraphNode* const Node : Nodes)
		{
			Points.Add(FIntPoint(Node->NodePosX, Node->NodePosY));
		}
		return Points;
	}

	int32 NumLinks() const
	{
		int32 Count = 0;
		for (const UEdGraphNode* const Node : Nodes)
		{
			for (const UEdGraphPin* const Pin : Node->Pins)
			{
				Count += Pin->LinkedTo.Num();
			}
		}
		return Count;
	}
};
} // namespace FormatterInvariantsTest

using FormatterInvariantsTest::FGenerated;

TEST(FormatterInvariants, FixedNodesAndLinksStayAndTheSameGraphGetsTheSameLayout)
{
	for (uint32 Seed = 0; Seed < 40; ++Seed)
	{
		FGenerated Once(Seed);
		FGenerated Twice(Seed);
		const TArray<FIntPoint> Before = Once.Positions();
		const int32 LinksBefore = Once.NumLinks();
		FBlueprintFormatterService::FormatGraph(Once.Graph.Get(), Once.Allowed);
		FBlueprintFormatterService::FormatGraph(Twice.Graph.Get(), Twice.Allowed);
		const TArray<FIntPoint> After = Once.Positions();
		EXPECT_EQ(After, Twice.Positions()) << Seed;
		EXPECT_EQ(Once.NumLinks(), LinksBefore) << Seed;
		for (int32 Index = 0; Index < Before.Num(); ++Index)
		{
			if (!Once.Allowed.Contains(Once.Nodes[Index]))
			{
				EXPECT_EQ(After[Index], Before[Index]) << "seed " << Seed << " node " << Index;
			}
		}
	}
}

TEST(FormatterInvariants, EveryAllowedNodeLandsOnAGridOrAnAnchorLine)
{
	for (uint32 Seed = 100; Seed < 140; ++Seed)
	{
		FGenerated Case(Seed);
		// Off every grid line and far away, so that a node that no phase placed shows.
		for (UEdGraphNode* const Node : Case.Allowed)
		{
			FGraphBuilder::Move(Node, 1000003, 1000003);
		}
		TSet<int32> LinesX;
		TSet<int32> LinesY;
		for (const UEdGraphNode* const Node : Case.Nodes)
		{
			LinesX.Add(Node->NodePosX);
			LinesY.Add(Node->NodePosY);
		}
		LinesX.Remove(1000003);
		LinesY.Remove(1000003);
		FBlueprintFormatterService::FormatGraph(Case.Graph.Get(), Case.Allowed);
		for (const UEdGraphNode* const Node : Case.Allowed)
		{
			EXPECT_TRUE(Node->NodePosX % 20 == 0 || LinesX.Contains(Node->NodePosX)) << "seed " << Seed;
			EXPECT_TRUE(Node->NodePosY % 20 == 0 || LinesY.Contains(Node->NodePosY)) << "seed " << Seed;
		}
	}
}

TEST(FormatterInvariants, ALongRunOfPureNodesNeedsNoCallStack)
{
	FGraphBuilder Graph;
	TArray<UEdGraphNode*> Allowed;
	FNodeHandle Consumer = Graph.Exec(1, 1);
	Allowed.Add(Consumer);
	for (int32 Index = 0; Index < 50000; ++Index)
	{
		const FNodeHandle Pure = Graph.Pure(1);
		Graph.Feed(Pure, Consumer);
		Allowed.Add(Pure);
		Consumer = Pure;
	}
	FBlueprintFormatterService::FormatGraph(Graph.Get(), Allowed);
	EXPECT_EQ(FNodeHandle{Allowed[1]}.At(), FIntPoint(-240, -200));
	EXPECT_EQ(FNodeHandle{Allowed.Last()}.At(), FIntPoint(-240 * 50000, -200));
}

TEST(FormatterInvariants, ManyFixedNodesAndCommentsDoNotMakeItQuadratic)
{
	const auto Measure = [](int32 Count)
	{
		FGraphBuilder Graph;
		TArray<UEdGraphNode*> Allowed;
		FNodeHandle Last = Graph.Event();
		for (int32 Index = 0; Index < Count; ++Index)
		{
			const FNodeHandle Node = Graph.Exec();
			Graph.Then(Last, Node);
			Allowed.Add(Node);
			Last = Node;
			const FNodeHandle Fixed = Graph.Bare((Index % 100) * 700, (Index / 100) * 900);
			Graph.Comment(Fixed->NodePosX - 60, Fixed->NodePosY - 60, 500, 300);
		}
		const double Start = FPlatformTime::Seconds();
		FBlueprintFormatterService::FormatGraph(Graph.Get(), Allowed);
		return FPlatformTime::Seconds() - Start;
	};
	const double Small = Measure(1000);
	const double Large = Measure(8000);
	// Eight times the nodes: linear is 8, quadratic 64. The floor keeps a fast machine's noise out.
	EXPECT_LT(Large, std::max(Small, 0.002) * 32.0);
}
