// Whole calls that change what stands, through the executor: as many node edits and as many link removals in one call
// as the graph has nodes in its chain, ids long and short by turns. Growth should be linear. The save is part of the
// call.

#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "IToolExecutor.h"
#include "K2Node_CallFunction.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "MorvaneToolkitModule.h"
#include "Session/EditorModules.h"
#include "Standalone/Project.h"
#include "ToolResult.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ModifyBench
{
static bool Run(const char* Tool, const std::string& Arguments)
{
	const Morvane::FToolCommand Command(TEXT("bench"), UTF8_TO_TCHAR(Tool), UTF8_TO_TCHAR(Arguments.c_str()));
	const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
	FMorvaneToolkitModule::GetToolExecutor()->ExecuteTool(
		Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	return Result->WasSuccessful() && Result->GetWarningMessages().IsEmpty();
}

/** A chain of prints in a project of its own. */
class FChain
{
public:
	explicit FChain(int64_t InCount)
		: Count(InCount)
	{
		EditorModules::StartEditor();
		EditorModules::StartTools();
		std::string Pattern = (std::filesystem::temp_directory_path() / "modify-bench-XXXXXX").string();
		Root = mkdtemp(Pattern.data());
		FString Error;
		FProject::Open(FString(UTF8_TO_TCHAR(Root.c_str())), Error);
		std::string Nodes;
		for (int64_t Index = 0; Index <= Count; ++Index)
		{
			Nodes += Index ? "," : "";
			Nodes += R"({"node_guid":")" + std::to_string(Index)
				+ R"(","class_name":"K2Node_CallFunction","target_class":"KismetSystemLibrary","target_function":"PrintString"})";
		}
		bMade = ModifyBench::Run(
			"bp_populate_graph", R"({"path":"/Game/BP_Bench","graph_name":"EventGraph","nodes":[)" + Nodes + "]}");
		const UBlueprint* const Blueprint = LoadObject<UBlueprint>(nullptr, TEXT("/Game/BP_Bench"));
		FBlueprintEditorUtils::GetAllNodesOfClass(Blueprint, Calls);
	}
	~FChain()
	{
		if (UPackage* const Package = FindPackage(nullptr, TEXT("/Game/BP_Bench")))
		{
			Package->MarkAsGarbage();
		}
		CollectGarbage();
		FProject::Close();
		std::error_code Ignored;
		std::filesystem::remove_all(Root, Ignored);
	}

	void Link() const
	{
		for (int32 Index = 0; Index + 1 < Calls.Num(); ++Index)
		{
			Calls[Index]->FindPin(TEXT("then"))->MakeLinkTo(Calls[Index + 1]->FindPin(TEXT("execute")));
		}
	}
	std::string Id(int32 Index) const
	{
		const FString Guid = Calls[Index]->NodeGuid.ToString();
		const FTCHARToUTF8 Text(Index % 2 ? *Guid : *Guid.Left(7).ToLower());
		return std::string(Text.Get(), static_cast<std::size_t>(Text.Length()));
	}
	static std::string Request(const std::string& Members)
	{
		return R"({"path":"/Game/BP_Bench","blueprint_name":"BP_Bench","graph_name":"EventGraph",)" + Members + "}";
	}

	int64_t Count;
	bool bMade = false;
	TArray<UK2Node_CallFunction*> Calls;

private:
	std::string Root;
};

/** A value of each node. */
static void EditNodes(benchmark::State& State)
{
	const FChain Chain(State.range(0));
	std::string Entries;
	for (int32 Index = 0; Index < State.range(0); ++Index)
	{
		Entries += Index ? "," : "";
		Entries += R"({"action":"modify","node_guid":")" + Chain.Id(Index)
			+ R"(","pins":[{"action":"modify","name":"InString","value":"Hi"}]})";
	}
	const std::string Arguments = FChain::Request("\"nodes\":[" + Entries + "]");
	for (auto _ : State)
	{
		if (!Chain.bMade || !ModifyBench::Run("bp_modify_graph_nodes", Arguments))
		{
			State.SkipWithError("the call did not end as it should");
		}
	}
	State.SetComplexityN(State.range(0));
}

static void RemoveLinks(benchmark::State& State)
{
	const FChain Chain(State.range(0));
	std::string Entries;
	for (int32 Index = 0; Index < State.range(0); ++Index)
	{
		Entries += Index ? "," : "";
		Entries += R"({"action":"remove","source_node_guid":")" + Chain.Id(Index)
			+ R"(","source_pin_name":"then","target_node_guid":")" + Chain.Id(Index + 1)
			+ R"(","target_pin_name":"execute"})";
	}
	const std::string Arguments = FChain::Request("\"connections\":[" + Entries + "]");
	for (auto _ : State)
	{
		State.PauseTiming();
		Chain.Link();
		State.ResumeTiming();
		if (!Chain.bMade || !ModifyBench::Run("bp_remove_graph_connections", Arguments))
		{
			State.SkipWithError("the call did not end as it should");
		}
	}
	State.SetComplexityN(State.range(0));
}
} // namespace ModifyBench

static void Modify_NodeEdits(benchmark::State& State)
{
	ModifyBench::EditNodes(State);
}

static void Modify_LinkRemovals(benchmark::State& State)
{
	ModifyBench::RemoveLinks(State);
}

BENCHMARK(Modify_NodeEdits)->Arg(10)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(Modify_LinkRemovals)->Arg(10)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond)->Complexity();
