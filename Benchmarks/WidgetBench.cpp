// A whole call of the tool that edits widget trees: boxes of twenty widgets with slots, properties and, for every other
// one, an event. Save, compile and the read of all that changed are parts of it. Growth should be linear.

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

namespace WidgetBench
{
static bool Call(const TCHAR* Tool, const std::string& Arguments)
{
	const Morvane::FToolCommand Command(TEXT("bench"), Tool, FString(UTF8_TO_TCHAR(Arguments.c_str())));
	const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
	FMorvaneToolkitModule::GetToolExecutor()->ExecuteTool(
		Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	return Result->WasSuccessful();
}

static std::string MakeWidget(int64_t Index)
{
	const std::string Number = std::to_string(Index);
	if (Index % 20 == 0)
	{
		return R"({"action":"add","name":"Box)" + Number
			+ R"(","class":"VerticalBox","parent":"Root","slot":{"bAutoSize":true,"ZOrder":)" + Number + "}}";
	}
	const std::string Parent = R"(,"parent":"Box)" + std::to_string(Index - Index % 20) + "\"";
	return Index % 2 ? R"({"action":"add","name":"Button)" + Number + R"(","class":"Button")" + Parent
			+ R"(,"slot":{"Padding":{"Left":4,"Top":4}},"events":{"OnClicked":true}})"
					 : R"({"action":"add","name":"Text)" + Number + R"(","class":"TextBlock")" + Parent
			+ R"(,"properties":{"Text":"Line","Font":{"Size":18},"ColorAndOpacity":{"R":1,"G":1,"B":1}}})";
}

static std::string MakeTree(int64_t Count)
{
	std::string Widgets;
	for (int64_t Index = 0; Index < Count; ++Index)
	{
		Widgets += (Index ? "," : "") + MakeWidget(Index);
	}
	return R"({"path":"/Game/WBP_Bench","widget_tree":{"root_widget":{"name":"Root","class":"CanvasPanel"},"widgets":[)"
		+ Widgets + "]}}";
}
} // namespace WidgetBench

static void Widgets_OneCall(benchmark::State& State)
{
	EditorModules::StartEditor();
	EditorModules::StartTools();
	std::string Root = (std::filesystem::temp_directory_path() / "widget-bench-XXXXXX").string();
	FString Error;
	FProject::Open(FString(UTF8_TO_TCHAR(mkdtemp(Root.data()))), Error);
	const std::string Tree = WidgetBench::MakeTree(State.range(0));
	for (auto _ : State)
	{
		State.PauseTiming();
		const bool bMade = WidgetBench::Call(TEXT("bp_create_asset"),
			R"({"path":"/Game/WBP_Bench","blueprint_parent_class":{"type":"native","parent_path":"/Script/UMG.UserWidget"}})");
		State.ResumeTiming();
		if (!bMade || !WidgetBench::Call(TEXT("ui_modify_widget_bp"), Tree))
		{
			State.SkipWithError("the call failed");
		}
		State.PauseTiming();
		FindPackage(nullptr, TEXT("/Game/WBP_Bench"))->MarkAsGarbage();
		CollectGarbage();
		std::error_code Ignored;
		std::filesystem::remove_all(std::filesystem::path(Root) / "Content", Ignored);
		State.ResumeTiming();
	}
	State.SetComplexityN(State.range(0));
	FProject::Close();
	std::error_code Ignored;
	std::filesystem::remove_all(Root, Ignored);
}

BENCHMARK(Widgets_OneCall)->Arg(20)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();
