// One loose request against the real action menu, once it is built and indexed; and the building of both. A match
// should take well under a millisecond.

#include "EdGraph/EdGraph.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Session/EditorModules.h"
#include "Spawning/CamMatching.h"
#include "ToolResult.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

namespace MatchBench
{
static UEdGraph& GetGraph()
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

static TSharedPtr<FSharedActionMenu> BuildMenu()
{
	Morvane::FToolResult Result(Morvane::FToolCommand(TEXT("bench"), TEXT("bench"), TEXT("{}")));
	return FBlueprintCamMatching::BuildSharedCAM(GetGraph(), Result);
}

static FBPNodeModification MakeRequest(const TCHAR* Title)
{
	FBPNodeModification Record;
	Record.MenuTitle = Title;
	return Record;
}
} // namespace MatchBench

/** Other requests each time, since answers to the last ones are kept: the titles of the menu, changed in some way. */
static void Match_Request(benchmark::State& State, FString (*Change)(const FString&))
{
	const TSharedPtr<FSharedActionMenu> Menu = MatchBench::BuildMenu();
	FBlueprintCamMatching::FindCamMatches(MatchBench::MakeRequest(TEXT("K2_GetComponentLocation")), *Menu);
	int32 Index = 0;
	for (auto _ : State)
	{
		Index = (Index + 13) % Menu->GetNumActions();
		const FString Title = Change(Menu->GetSchemaAction(Index)->GetMenuDescription().ToString());
		benchmark::DoNotOptimize(FBlueprintCamMatching::FindCamMatches(MatchBench::MakeRequest(*Title), *Menu));
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

BENCHMARK_CAPTURE(Match_Request, titles, [](const FString& Title) { return Title; })->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Match_Request, slips,
	[](const FString& Title)
	{
		FString Slipped = Title;
		std::swap(Slipped[Title.Len() / 2], Slipped[Title.Len() - 1]);
		return Slipped;
	})
	->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Match_Request, sentences,
	[](const FString& Title)
	{ return FString::Printf(TEXT("please use the %s of my other static mesh component"), *Title); })
	->Unit(benchmark::kMicrosecond);
BENCHMARK(Match_MenuBuild)->Unit(benchmark::kMillisecond);
BENCHMARK(Match_FirstRequestOfARun)->Unit(benchmark::kMillisecond);
