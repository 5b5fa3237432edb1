#include "BlueprintActionDatabase.h"
#include "BlueprintActionMenuUtils.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Session/EditorModules.h"
#include "Standalone/ContextTargets.h"

#include <benchmark/benchmark.h>

namespace MenuBench
{
static UEdGraph* MakeGraph()
{
	EditorModules::StartTools();
	EditorModules::StartEditor();
	UEdGraph* const Graph = NewObject<UEdGraph>(GetTransientPackageAsObject());
	Graph->Schema = UEdGraphSchema_K2::StaticClass();
	return Graph;
}

static int32 BuildMenu(UEdGraph* Graph)
{
	FBlueprintActionContext Context;
	Context.Graphs.Add(Graph);
	FBlueprintActionMenuBuilder Menu;
	FBlueprintActionMenuUtils::MakeContextMenu(Context, false, EveryContextTarget, Menu);
	return Menu.GetNumActions();
}

// All actions are made anew each time. The first menu of a process also reads the catalogue's members, which only the
// first of these pays for and only when no benchmark before it has.
static void MenuCold(benchmark::State& State)
{
	UEdGraph* const Graph = MakeGraph();
	for (auto _ : State)
	{
		State.PauseTiming();
		FBlueprintActionDatabase::Get().RefreshAll();
		State.ResumeTiming();
		State.counters["actions"] = BuildMenu(Graph);
	}
	Graph->MarkAsGarbage();
}
BENCHMARK(MenuCold)->Iterations(5)->Unit(benchmark::kMillisecond);

static void MenuWarm(benchmark::State& State)
{
	UEdGraph* const Graph = MakeGraph();
	BuildMenu(Graph);
	for (auto _ : State)
	{
		State.counters["actions"] = BuildMenu(Graph);
	}
	Graph->MarkAsGarbage();
}
BENCHMARK(MenuWarm)->Unit(benchmark::kMillisecond);

/** What an author sees who drags a link off a pin: each action is asked for a pin that fits. */
static void MenuForPin(benchmark::State& State)
{
	UEdGraph* const Graph = MakeGraph();
	UBlueprint* const Blueprint = NewObject<UBlueprint>(GetTransientPackageAsObject());
	Blueprint->ParentClass = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	UEdGraphNode* const Node = NewObject<UEdGraphNode>(Graph);
	UEdGraphPin* const Pin = Node->CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, FName(TEXT("Dragged")));
	Pin->PinType.PinSubCategoryObject = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Pawn"));
	FBlueprintActionContext Context;
	Context.Graphs.Add(Graph);
	Context.Blueprints.Add(Blueprint);
	Context.Pins.Add(Pin);
	BuildMenu(Graph);
	for (auto _ : State)
	{
		FBlueprintActionMenuBuilder Menu;
		FBlueprintActionMenuUtils::MakeContextMenu(Context, true, EveryContextTarget, Menu);
		State.counters["actions"] = Menu.GetNumActions();
	}
	Blueprint->MarkAsGarbage();
	Graph->MarkAsGarbage();
}
BENCHMARK(MenuForPin)->Unit(benchmark::kMillisecond);

/** Every action of a sample placed and thrown away: what a populate run pays for a node. */
static void MenuSpawn(benchmark::State& State)
{
	UEdGraph* Graph = MakeGraph();
	FBlueprintActionContext Context;
	Context.Graphs.Add(Graph);
	FBlueprintActionMenuBuilder Menu;
	FBlueprintActionMenuUtils::MakeContextMenu(Context, false, EveryContextTarget, Menu);
	const int32 Step = Menu.GetNumActions() / static_cast<int32>(State.range(0));
	for (auto _ : State)
	{
		for (int32 Index = 0; Index < static_cast<int32>(State.range(0)); ++Index)
		{
			Menu.GetSchemaAction(Index * Step)->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
		}
		State.PauseTiming();
		Graph->MarkAsGarbage();
		CollectGarbage();
		Graph = MakeGraph();
		State.ResumeTiming();
	}
	State.SetComplexityN(State.range(0));
	Graph->MarkAsGarbage();
}
BENCHMARK(MenuSpawn)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
} // namespace MenuBench
