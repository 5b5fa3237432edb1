#include "Utils/Read/EventTracing.h"
#include "BlueprintMatchingUtils.h"
#include "BlueprintNodeUtils.h"
#include "GraphBuilder.h"
#include "K2Node_Event.h"

#include <gtest/gtest.h>

#include <random>

namespace EventTracingTest
{
/** A node of the event class with one exec output and one data output; nothing else of it matters to a trace. */
static FNodeHandle Event(FGraphBuilder& Graph)
{
	UK2Node_Event* const Node = NewObject<UK2Node_Event>(Graph.Get());
	Graph.Get()->AddNode(Node, false, false);
	Graph.AddPin(Node, EGPD_Output, TEXT("then"), true);
	Graph.AddPin(Node, EGPD_Output, TEXT("out"));
	return {Node};
}

static TArray<UEdGraphNode*> EventsOf(const FGraphBuilder& Graph, UEdGraphNode* Node)
{
	return FEventTrace(*Graph.Get()).EventsOf(Node);
}

/** The other way round: back from a node along whatever leads to it, until events stop the walk. */
static void WalkBack(UEdGraphNode* Node, TSet<UEdGraphNode*>& Visited)
{
	if (Visited.Contains(Node))
	{
		return;
	}
	Visited.Add(Node);
	for (const UEdGraphPin* const Pin : Node->Pins)
	{
		const bool bForward = Pin->Direction == EGPD_Output && Pin->PinType.PinCategory == TEXT("exec");
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			if (!bForward && !EventTracing::IsEvent(Node))
			{
				WalkBack(Linked->GetOwningNode(), Visited);
			}
		}
	}
}

static TArray<UEdGraphNode*> EventsByWalkingBack(const FGraphBuilder& Graph, UEdGraphNode* Node)
{
	TSet<UEdGraphNode*> Visited;
	WalkBack(Node, Visited);
	TArray<UEdGraphNode*> Events;
	for (UEdGraphNode* const Each : Graph.Get()->Nodes)
	{
		if (EventTracing::IsEvent(Each) && Visited.Contains(Each))
		{
			Events.Add(Each);
		}
	}
	return Events;
}
} // namespace EventTracingTest

using namespace EventTracingTest;

TEST(EventTracing, FollowsExecutionAndWhatFeedsIt)
{
	FGraphBuilder Graph;
	const FNodeHandle Start = Event(Graph);
	const FNodeHandle Step = Graph.Exec(1, 1);
	const FNodeHandle Feeder = Graph.Pure(1);
	const FNodeHandle DeepFeeder = Graph.Pure();
	const FNodeHandle Floating = Graph.Exec();
	Graph.Then(Start, Step);
	Graph.Feed(Feeder, Step);
	Graph.Feed(DeepFeeder, Feeder);
	for (UEdGraphNode* const Node : {Start.Node, Step.Node, Feeder.Node, DeepFeeder.Node})
	{
		EXPECT_EQ(EventsOf(Graph, Node), (TArray<UEdGraphNode*>{Start}));
	}
	EXPECT_EQ(EventsOf(Graph, Floating).Num(), 0);
}

TEST(EventTracing, DoesNotGoBackThroughAnExecInput)
{
	// Both run into Shared; the node that runs into it from nowhere belongs to no event.
	FGraphBuilder Graph;
	const FNodeHandle Start = Event(Graph);
	const FNodeHandle Shared = Graph.Exec();
	const FNodeHandle Loose = Graph.Exec();
	Graph.Then(Start, Shared);
	Graph.Then(Loose, Shared);
	EXPECT_EQ(EventsOf(Graph, Shared), (TArray<UEdGraphNode*>{Start}));
	EXPECT_EQ(EventsOf(Graph, Loose).Num(), 0);
}

TEST(EventTracing, AnEventBelongsToItselfAndEndsTheWalkOfOthers)
{
	FGraphBuilder Graph;
	const FNodeHandle Second = Event(Graph);
	const FNodeHandle First = Event(Graph);
	const FNodeHandle Shared = Graph.Exec(1, 1);
	Graph.Then(First, Shared);
	Graph.Then(Second, Shared);
	Graph.Feed(First, Shared);
	EXPECT_EQ(EventsOf(Graph, First), (TArray<UEdGraphNode*>{First}));
	EXPECT_EQ(EventsOf(Graph, Shared), (TArray<UEdGraphNode*>{Second, First})) << "in graph order";
}

TEST(EventTracing, BothWaysAgreeOnGeneratedGraphs)
{
	for (uint32 Seed = 0; Seed < 30; ++Seed)
	{
		std::mt19937 Random(Seed);
		const auto Below = [&Random](int32 Limit)
		{ return std::uniform_int_distribution<int32>(0, Limit - 1)(Random); };
		FGraphBuilder Graph;
		TArray<FNodeHandle> Nodes;
		for (int32 Index = 0; Index < 40; ++Index)
		{
			const int32 Kind = Below(6);
			Nodes.Add(Kind == 0 ? Event(Graph) : Kind < 4 ? Graph.Exec(1 + Below(2), Below(3)) : Graph.Pure(Below(3)));
		}
		for (int32 Try = 0; Try < 120; ++Try)
		{
			const FNodeHandle& From = Nodes[Below(40)];
			const FNodeHandle& To = Nodes[Below(40)];
			UEdGraphPin* const Output = From->Pins[Below(From->Pins.Num())];
			UEdGraphPin* const Input = To->Pins[Below(To->Pins.Num())];
			if (Output->Direction == EGPD_Output && Input->Direction == EGPD_Input
				&& Output->PinType.PinCategory == Input->PinType.PinCategory)
			{
				Output->MakeLinkTo(Input);
			}
		}
		const FEventTrace Trace(*Graph.Get());
		for (const FNodeHandle& Node : Nodes)
		{
			EXPECT_EQ(Trace.EventsOf(Node), EventsByWalkingBack(Graph, Node)) << "seed " << Seed;
		}
	}
}

TEST(NodeLookUp, TakesShortAndLongIdsInAnyCaseAndTheFirstMatch)
{
	FGraphBuilder Graph;
	const FNodeHandle Twin = Graph.Bare();
	const FNodeHandle Node = Graph.Bare();
	const FNodeHandle Last = Graph.Bare();
	Twin->NodeGuid = FGuid(0xABCDEF12, 1, 2, 3);
	Node->NodeGuid = FGuid(0xABCDEF1F, 0, 0, 0x00C0FFEE);
	Last->NodeGuid = FGuid(0xABCDEF1F, 0, 0, 0x00C0FFEE);
	struct FCase
	{
		const TCHAR* Id;
		UEdGraphNode* Expected;
	};
	const FCase Cases[] = {
		{TEXT("ABCDEF1"), Twin},
		{TEXT("abcdef1"), Twin},
		{TEXT("ABCDEF1F000000000000000000C0FFEE"), Node},
		{TEXT("abcdef1f000000000000000000c0ffee"), Node},
		{TEXT("ABCDEF12000000010000000200000003"), Twin},
		{TEXT("ABCDEF"), nullptr},
		{TEXT("ABCDEF12"), nullptr},
		{TEXT("ABCDEFG"), nullptr},
		{TEXT("+BCDEF1"), nullptr},
		{TEXT(""), nullptr},
		{TEXT("ABCDEF1F-0000-0000-0000-0000000000C0FFEE"), nullptr},
		{TEXT("ABCDEF1F000000000000000000C0FFEE0"), nullptr},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(FBlueprintMatchingUtils::FindNodeByGuid(Graph.Get(), Case.Id), Case.Expected) << ToStd(Case.Id);
	}
	EXPECT_EQ(FBlueprintMatchingUtils::FindNodeByGuid(nullptr, TEXT("ABCDEF1")), nullptr);
	EXPECT_EQ(FBlueprintNodeUtils::GetShortNodeId(Node), TEXT("ABCDEF1"));
}
