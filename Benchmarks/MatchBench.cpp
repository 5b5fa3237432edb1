// One loose request against the real action menu, once it is built and indexed; and the building of both. A match
// should take well under a millisecond.

#include "Boot/EditorModules.h"
#include "EdGraph/EdGraph.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Spawning/CamMatching.h"
#include "ToolResult.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

namespace MatchBench
{
UEdGraph& GetGraph()
{
	static UEdGraph* const Graph = []
	{
		EditorModules::StartEditor();
		UPackage* const Package = CreatePackage(TEXT("/Game/Bench/BP_Match"));
		UBlueprint* const Blueprint = FKismetEditorUtilities::CreateBlueprint(
			AActor::StaticClass(), Package, TEXT("BP_Match"), BPTYPE_Normal);
		return FBlueprintEditorUtils::FindEventGraph(Blueprint);
	}();
	return *Graph;
}

TSharedPtr<FSharedActionMenu> BuildMenu()
{
	Morvane::FToolResult Result(Morvane::FToolCommand(TEXT("bench"), TEXT("bench"), TEXT("{}")));
	return FBlueprintCamMatching::BuildSharedCAM(GetGraph(), Result);
}

FBPNodeModification MakeRequest(const TCHAR* Title)
{
	FBPNodeModification Record;
	Record.MenuTitle = Title;
	return Record;
}
} // namespace MatchBench

static void Match_Request(benchmark::State& State, const TCHAR* Title)
{
	const TSharedPtr<FSharedActionMenu> Menu = MatchBench::BuildMenu();
	const FBPNodeModification Record = MatchBench::MakeRequest(Title);
	FBlueprintCamMatching::FindCamMatches(Record, *Menu);
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(FBlueprintCamMatching::FindCamMatches(Record, *Menu));
	}
	State.counters["actions"] = static_cast<double>(Menu->GetNumActions());
}

static void Match_MenuBuild(benchmark::State& State)
{
	MatchBench::BuildMenu();
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(MatchBench::BuildMenu());
	}
}

/** A menu of another run, with the first request that it gets. */
static void Match_FirstRequestOfARun(benchmark::State& State)
{
	const FBPNodeModification Record = MatchBench::MakeRequest(TEXT("Print String"));
	FBlueprintCamMatching::FindCamMatches(Record, *MatchBench::BuildMenu());
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(FBlueprintCamMatching::FindCamMatches(Record, *MatchBench::BuildMenu()));
	}
}

BENCHMARK_CAPTURE(Match_Request, exact, TEXT("Print String"))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Match_Request, slip, TEXT("Set Actor Lcoation"))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Match_Request, sentence, TEXT("please get the world location of my static mesh component"))
	->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Match_Request, function_name, TEXT("K2_GetComponentLocation"))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Match_Request, nonsense, TEXT("purple monkey dishwasher"))->Unit(benchmark::kMicrosecond);
BENCHMARK(Match_MenuBuild)->Unit(benchmark::kMillisecond);
BENCHMARK(Match_FirstRequestOfARun)->Unit(benchmark::kMillisecond);
