// A whole populate call through the executor, with as many links as nodes: exact nodes in a chain of execution, half of
// them fed by a pure node. Growth should be linear. The save is part of the call and is measured apart by name.

#include "IToolExecutor.h"
#include "MorvaneToolkitModule.h"
#include "Session/EditorModules.h"
#include "Standalone/Project.h"
#include "ToolResult.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace PopulateBench
{
/** A project of its own in a temporary folder. */
class FBenchProject
{
public:
	FBenchProject()
	{
		EditorModules::StartEditor();
		EditorModules::StartTools();
		std::string Pattern = (std::filesystem::temp_directory_path() / "populate-bench-XXXXXX").string();
		Root = mkdtemp(Pattern.data());
		FString Error;
		FProject::Open(FString(UTF8_TO_TCHAR(Root.c_str())), Error);
	}
	~FBenchProject()
	{
		FProject::Close();
		std::error_code Ignored;
		std::filesystem::remove_all(Root, Ignored);
	}

	/** So that no round finds the nodes of the one before it. */
	void RemoveAssets() const
	{
		std::error_code Ignored;
		std::filesystem::remove_all(std::filesystem::path(Root) / "Content", Ignored);
	}

private:
	std::string Root;
};

static FString MakeCall(const std::string& Path, int64_t Count, bool bLoose, bool bFails)
{
	std::string Nodes;
	std::string Links;
	for (int64_t Index = 0; Index < Count; ++Index)
	{
		const std::string Id = std::to_string(Index);
		Nodes += Index ? "," : "";
		Nodes += R"({"node_guid":")" + Id + R"(",)";
		Nodes += bLoose ? std::string(R"("menu_title":"Print String"})")
						: std::string(R"("class_name":"K2Node_CallFunction","target_class":"KismetSystemLibrary",)")
				+ R"("target_function":"PrintString","pins":[{"action":"modify","name":"InString","value":"Hello"}]})";
		Links += Index ? "," : "";
		Links += R"({"source_node_guid":")" + Id + R"(","source_pin_name":"then","target_node_guid":")"
			+ std::to_string(Index + 1) + R"(","target_pin_name":"execute"})";
	}
	// An event that no parent has is an error, and an error is what keeps a run from saving.
	Nodes += bFails ? R"(,{"class_name":"K2Node_Event","node_metadata":{"event_name":"NoSuchEvent"}})" : "";
	const std::string Text = R"({"path":")" + Path + R"(","graph_name":"EventGraph","nodes":[)" + Nodes
		+ R"(],"connections":[)" + Links + "]}";
	return FString(UTF8_TO_TCHAR(Text.c_str()));
}

static void Run(benchmark::State& State, bool bLoose, bool bSaves)
{
	const FBenchProject Project;
	const FString Arguments = MakeCall("/Game/BP_Bench", State.range(0), bLoose, !bSaves);
	for (auto _ : State)
	{
		const Morvane::FToolCommand Command(TEXT("bench"), TEXT("bp_populate_graph"), Arguments);
		const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
		FMorvaneToolkitModule::GetToolExecutor()->ExecuteTool(
			Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
		if (Result->WasSuccessful() != bSaves)
		{
			State.SkipWithError("the call did not end as it should");
		}
		State.PauseTiming();
		FindPackage(nullptr, TEXT("/Game/BP_Bench"))->MarkAsGarbage();
		CollectGarbage();
		Project.RemoveAssets();
		State.ResumeTiming();
	}
	State.SetComplexityN(State.range(0));
}
} // namespace PopulateBench

static void Populate_ExactUnsaved(benchmark::State& State)
{
	PopulateBench::Run(State, false, false);
}

static void Populate_LooseUnsaved(benchmark::State& State)
{
	PopulateBench::Run(State, true, false);
}

static void Populate_ExactSaved(benchmark::State& State)
{
	PopulateBench::Run(State, false, true);
}

BENCHMARK(Populate_ExactUnsaved)->Arg(10)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(Populate_LooseUnsaved)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(Populate_ExactSaved)->Arg(10)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond)->Complexity();
