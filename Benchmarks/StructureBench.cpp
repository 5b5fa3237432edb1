// A whole call that makes members of a class, through the executor and saved: variables with defaults and flags, or
// components in a tree. Growth should be linear.

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

namespace StructureBench
{
constexpr const char* MakeAsset =
	R"({"path":"/Game/BP_Bench","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})";

static std::string MakeVariables(int64_t Count)
{
	std::string Entries;
	for (int64_t Index = 0; Index < Count; ++Index)
	{
		Entries += (Index ? ",\"Var" : "\"Var") + std::to_string(Index)
			+ (Index % 2 ? R"(":{"action":"add","type":{"category":"vector"},"default_variable_value":{"x":1,"z":3}})"
						 : R"(":{"action":"add","type":{"category":"int"},"default_variable_value":5,"tooltip":"t"})");
	}
	return R"({"path":"/Game/BP_Bench","variables":{)" + Entries + "}}";
}

static std::string MakeComponents(int64_t Count)
{
	std::string Entries;
	for (int64_t Index = 0; Index < Count; ++Index)
	{
		const std::string Parent = Index ? "C" + std::to_string(Index / 2) : "DefaultSceneRoot";
		Entries += Index ? "," : "";
		Entries += R"({"name":"C)" + std::to_string(Index) + R"(","type":"StaticMeshComponent","attach_to":")"
			+ (Index == 1 ? "C0" : Parent) + R"(","properties":{"relative_location":{"x":1}}})";
	}
	return R"({"path":"/Game/BP_Bench","components":[)" + Entries + "]}";
}

static bool Call(const TCHAR* Tool, const std::string& Arguments)
{
	const Morvane::FToolCommand Command(TEXT("bench"), Tool, FString(UTF8_TO_TCHAR(Arguments.c_str())));
	const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
	FMorvaneToolkitModule::GetToolExecutor()->ExecuteTool(
		Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	return Result->WasSuccessful() && Result->GetWarningMessages().IsEmpty();
}

static void Run(benchmark::State& State, const std::string& Arguments)
{
	EditorModules::StartEditor();
	EditorModules::StartTools();
	std::string Pattern = (std::filesystem::temp_directory_path() / "structure-bench-XXXXXX").string();
	const std::string Root = mkdtemp(Pattern.data());
	FString Error;
	FProject::Open(FString(UTF8_TO_TCHAR(Root.c_str())), Error);
	std::error_code Ignored;
	for (auto _ : State)
	{
		State.PauseTiming();
		Call(TEXT("bp_create_asset"), MakeAsset);
		State.ResumeTiming();
		if (!Call(TEXT("modify_blueprint_class_structure"), Arguments))
		{
			State.SkipWithError("the call did not end as it should");
		}
		State.PauseTiming();
		FindPackage(nullptr, TEXT("/Game/BP_Bench"))->MarkAsGarbage();
		CollectGarbage();
		std::filesystem::remove_all(std::filesystem::path(Root) / "Content", Ignored);
		State.ResumeTiming();
	}
	State.SetComplexityN(State.range(0));
	FProject::Close();
	std::filesystem::remove_all(Root, Ignored);
}
} // namespace StructureBench

static void Structure_Variables(benchmark::State& State)
{
	StructureBench::Run(State, StructureBench::MakeVariables(State.range(0)));
}

static void Structure_Components(benchmark::State& State)
{
	StructureBench::Run(State, StructureBench::MakeComponents(State.range(0)));
}

BENCHMARK(Structure_Variables)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(Structure_Components)->Arg(10)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond)->Complexity();
