// Many members of one Blueprint in one call, and one Blueprint beside many: time should grow with the request alone.

#include "Engine/Blueprint.h"
#include "IToolExecutor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "MorvaneToolkitModule.h"
#include "Session/EditorModules.h"
#include "Standalone/Project.h"
#include "TemporaryFolder.h"
#include "TestAssets.h"
#include "ToolCommand.h"
#include "ToolResult.h"

#include <benchmark/benchmark.h>

namespace ManyBench
{
static void Call(benchmark::State& State, const TCHAR* Tool, const std::string& Arguments)
{
	const Morvane::FToolCommand Command(TEXT("bench"), Tool, FromUtf8(Arguments));
	const auto Result = MakeShared<Morvane::FToolResult>(Command);
	FMorvaneToolkitModule::GetToolExecutor()->ExecuteTool(
		Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	if (!Result->WasSuccessful())
	{
		State.SkipWithError(
			Result->GetErrorMessages().IsEmpty() ? "failed" : ToUtf8(Result->GetErrorMessages()[0]).c_str());
	}
}

/** A project with nothing in it, opened. */
class FProjectFolder
{
public:
	FProjectFolder()
	{
		EditorModules::StartTools();
		EditorModules::StartEditor();
		FString Error;
		FProject::Open(Folder.Get(), Error);
	}
	~FProjectFolder()
	{
		TestAssets::UnloadGame();
		FProject::Close();
	}

private:
	FTemporaryFolder Folder;
};

static std::string Entries(int64 Count, const std::string& Before, const std::string& After)
{
	std::string List;
	for (int64 Index = 0; Index < Count; ++Index)
	{
		List += (Index > 0 ? "," : "") + Before + std::to_string(Index) + After;
	}
	return List;
}

static void Create(benchmark::State& State, const TCHAR* Tool, const std::string& Members)
{
	const FProjectFolder Project;
	int32 Number = 0;
	for (auto _ : State)
	{
		Call(State, Tool, R"({"path":"/Game/BP_)" + std::to_string(Number++) + "\"," + Members + "}");
		CollectGarbage();
	}
	State.SetItemsProcessed(State.iterations() * State.range(0));
}

static void ManyFunctions(benchmark::State& State)
{
	Create(State, TEXT("bp_create_graph"), R"("functions":[)" + Entries(State.range(0), R"({"name":"F)", "\"}") + "]");
}

static void ManyDispatchers(benchmark::State& State)
{
	Create(State, TEXT("bp_create_graph"),
		R"("functions":[)" + Entries(State.range(0), R"({"is_delegate":true,"name":"D)", "\"}") + "]");
}

static void ManyCustomEvents(benchmark::State& State)
{
	Create(State, TEXT("bp_populate_graph"),
		R"("graph_name":"EventGraph","nodes":[)"
			+ Entries(State.range(0), R"({"class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"E)", "\"}}")
			+ "]");
}

static void ManyVariables(benchmark::State& State)
{
	const FProjectFolder Project;
	FEdGraphPinType Type;
	Type.PinCategory = TEXT("int");
	int32 Number = 0;
	for (auto _ : State)
	{
		State.PauseTiming();
		const std::string Path = "/Game/BP_" + std::to_string(Number++);
		Call(State, TEXT("bp_create_graph"), R"({"path":")" + Path + R"(","functions":[{"name":"F"}]})");
		UBlueprint* const Blueprint = LoadObject<UBlueprint>(nullptr, *FromUtf8(Path));
		State.ResumeTiming();
		for (int64 Index = 0; Index < State.range(0); ++Index)
		{
			FBlueprintEditorUtils::AddMemberVariable(
				Blueprint, FName(FString::Printf(TEXT("V%d"), static_cast<int32>(Index))), Type);
		}
		CollectGarbage();
	}
}

static void ReadBesideOthers(benchmark::State& State)
{
	const FProjectFolder Project;
	for (int64 Index = 0; Index < State.range(0); ++Index)
	{
		Call(State, TEXT("bp_create_graph"),
			R"({"path":"/Game/Others/BP_)" + std::to_string(Index) + R"(","functions":[{"name":"F"}]})");
	}
	for (auto _ : State)
	{
		Call(State, TEXT("read_blueprint_function"), R"({"path":"/Game/Others/BP_0","function_name":"F"})");
		CollectGarbage();
	}
}

BENCHMARK(ManyFunctions)->Unit(benchmark::kMillisecond)->Arg(300)->Arg(3000);
BENCHMARK(ManyDispatchers)->Unit(benchmark::kMillisecond)->Arg(300)->Arg(3000);
BENCHMARK(ManyCustomEvents)->Unit(benchmark::kMillisecond)->Arg(300)->Arg(3000);
BENCHMARK(ManyVariables)->Unit(benchmark::kMillisecond)->Arg(300)->Arg(3000);
BENCHMARK(ReadBesideOthers)->Unit(benchmark::kMicrosecond)->Arg(10)->Arg(1000);
} // namespace ManyBench
