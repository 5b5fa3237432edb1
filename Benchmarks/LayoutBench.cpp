// Layout of one long chain with branches and data inputs, alone and among as many fixed nodes and comments. Growth
// should be linear in the number of nodes.

#include "BlueprintFormatterService.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Session/EditorModules.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

namespace LayoutBench
{
static UEdGraphNode* AddNode(UEdGraph& Graph, UClass* Class, int32 X, int32 Y)
{
	UEdGraphNode* const Node = NewObject<UEdGraphNode>(&Graph, Class);
	Graph.AddNode(Node, false, false);
	Node->NodePosX = X;
	Node->NodePosY = Y;
	return Node;
}

static UEdGraph* MakeGraph()
{
	EditorModules::StartEditor();
	UEdGraph* const Graph = NewObject<UEdGraph>(GetTransientPackage());
	Graph->Schema = UEdGraphSchema_K2::StaticClass();
	return Graph;
}

/** Every fourth node is pure and feeds the one before it, every tenth branches. */
static TArray<UEdGraphNode*> AddChain(UEdGraph& Graph, int32 Count)
{
	TArray<UEdGraphNode*> Nodes;
	UEdGraphPin* Open = nullptr;
	UEdGraphPin* Hungry = nullptr;
	for (int32 Index = 0; Index < Count; ++Index)
	{
		UEdGraphNode* const Node = AddNode(Graph, UEdGraphNode::StaticClass(), 0, 0);
		Nodes.Add(Node);
		if (Index % 4 == 3 && Hungry)
		{
			Node->CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Int, TEXT("out"))->MakeLinkTo(Hungry);
			Hungry = Node->CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Int, TEXT("in"));
			continue;
		}
		UEdGraphPin* const Execute = Node->CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, TEXT("execute"));
		if (Open)
		{
			Open->MakeLinkTo(Execute);
		}
		UEdGraphPin* const Then = Node->CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, TEXT("then"));
		// The node behind a branch's first output is left alone, the chain goes on from the second.
		Open = Index % 10 == 9 ? Node->CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, TEXT("else")) : Then;
		Hungry = Node->CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Int, TEXT("in"));
	}
	return Nodes;
}

static void AddSurroundings(UEdGraph& Graph, int32 Count)
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		const int32 X = (Index % 100) * 700;
		const int32 Y = (Index / 100) * 900;
		AddNode(Graph, UEdGraphNode::StaticClass(), X, Y);
		UEdGraphNode* const Comment = AddNode(Graph, UEdGraphNode_Comment::StaticClass(), X - 60, Y - 60);
		Comment->NodeWidth = 500;
		Comment->NodeHeight = 300;
	}
}

static void Run(benchmark::State& State, bool bAmongFixedNodes)
{
	UEdGraph* const Graph = MakeGraph();
	const int32 Count = static_cast<int32>(State.range(0));
	const TArray<UEdGraphNode*> Nodes = AddChain(*Graph, Count);
	if (bAmongFixedNodes)
	{
		AddSurroundings(*Graph, Count);
	}
	for (auto _ : State)
	{
		FBlueprintFormatterService::FormatGraph(Graph, Nodes);
	}
	State.SetComplexityN(State.range(0));
	Graph->MarkAsGarbage();
	CollectGarbage();
}
} // namespace LayoutBench

static void Layout_Alone(benchmark::State& State)
{
	LayoutBench::Run(State, false);
}

static void Layout_AmongFixedNodesAndComments(benchmark::State& State)
{
	LayoutBench::Run(State, true);
}

BENCHMARK(Layout_Alone)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(Layout_AmongFixedNodesAndComments)
	->Arg(100)
	->Arg(1000)
	->Arg(10000)
	->Unit(benchmark::kMillisecond)
	->Complexity();
