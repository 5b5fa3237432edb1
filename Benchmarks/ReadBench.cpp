#include "AssetRegistry/AssetRegistryModule.h"
#include "BlueprintReadUtils.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "GameFramework/Actor.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Session/EditorModules.h"
#include "Standalone/JsonUtf8.h"
#include "ToolResult.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

/** Reads by number of nodes: one event with a chain of prints behind it. Bytes per second count the JSON. */
namespace ReadBench
{
static UBlueprint* MakeBlueprint(int32 NumNodes)
{
	EditorModules::StartTools();
	EditorModules::StartEditor();
	const FString Name = FString::Printf(TEXT("/Game/BP_Read%d"), NumNodes);
	UBlueprint* const Blueprint = FKismetEditorUtilities::CreateBlueprint(
		AActor::StaticClass(), CreatePackage(*Name), *FString::Printf(TEXT("BP_Read%d"), NumNodes), BPTYPE_Normal);
	UEdGraph* const Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	FGraphNodeCreator<UK2Node_CustomEvent> Events(*Graph);
	UK2Node_CustomEvent* const Event = Events.CreateNode();
	Event->CustomFunctionName = TEXT("Run");
	Events.Finalize();
	const UFunction* const Print = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetSystemLibrary"))
									   ->FindFunctionByName(TEXT("PrintString"));
	UEdGraphPin* Last = Event->FindPin(UEdGraphSchema_K2::PN_Then);
	for (int32 Index = 0; Index < NumNodes; ++Index)
	{
		FGraphNodeCreator<UK2Node_CallFunction> Calls(*Graph);
		UK2Node_CallFunction* const Call = Calls.CreateNode();
		Call->SetFromFunction(Print);
		Calls.Finalize();
		Last->MakeLinkTo(Call->GetExecPin());
		Last = Call->GetThenPin();
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	return Blueprint;
}

static TSharedPtr<FJsonObject> MakeCommand(const TCHAR* Tool)
{
	const TSharedPtr<FJsonObject> Command = MakeShared<FJsonObject>();
	Command->SetStringField(TEXT("read_tool"), Tool);
	const TSharedPtr<FJsonObject> Event = MakeShared<FJsonObject>();
	Event->SetStringField(TEXT("event_name"), TEXT("Run"));
	Command->SetArrayField(TEXT("events"), {MakeShared<FJsonValueObject>(Event)});
	return Command;
}

static void Measure(benchmark::State& State, TFunctionRef<TSharedPtr<FJsonObject>(const UEdGraph*)> Read)
{
	UBlueprint* const Blueprint = MakeBlueprint(static_cast<int32>(State.range(0)));
	const UEdGraph* const Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	std::size_t Bytes = 0;
	for (auto Step : State)
	{
		std::string Text;
		JsonUtf8::Write(*Read(Graph), Text);
		Bytes += Text.size();
	}
	State.SetBytesProcessed(static_cast<int64>(Bytes));
	State.SetComplexityN(State.range(0));
	Blueprint->GetOutermost()->MarkAsGarbage();
	CollectGarbage();
}

static void Graph(benchmark::State& State)
{
	const TSharedPtr<FJsonObject> Command = MakeCommand(TEXT("read_blueprint_function"));
	Measure(State, [&Command](const UEdGraph* Read) { return FBlueprintReadUtils::ReadEdGraph(Read, Command); });
}

static void EventFlows(benchmark::State& State)
{
	const TSharedPtr<FJsonObject> Command = MakeCommand(TEXT("read_blueprint_event"));
	Measure(State,
		[&Command](const UEdGraph* Read)
		{ return FBlueprintReadUtils::ReadEventGraph(Read, Command, false, TSet<FString>()); });
}

/** From the command to the text, as a tool runs it: load, all pages, serialise. */
static void Blueprint(benchmark::State& State)
{
	UBlueprint* const Made = MakeBlueprint(static_cast<int32>(State.range(0)));
	FAssetRegistryModule::AssetCreated(Made);
	const TSharedPtr<FJsonObject> Command = MakeCommand(TEXT("read_blueprint_event"));
	Command->SetStringField(TEXT("path"), Made->GetOutermost()->GetName());
	std::size_t Bytes = 0;
	for (auto Step : State)
	{
		Morvane::FToolResult Result{Morvane::FToolCommand(TEXT("bench"), TEXT("read_blueprint_event"), FString())};
		const FString Text = FBlueprintReadUtils::ReadBlueprint(Command, Result);
		Bytes += static_cast<std::size_t>(Text.Len());
		if (!Result.WasSuccessful())
		{
			State.SkipWithError("the read failed");
			break;
		}
	}
	State.SetBytesProcessed(static_cast<int64>(Bytes));
	State.SetComplexityN(State.range(0));
	FAssetRegistryModule::AssetDeleted(Made);
	Made->GetOutermost()->MarkAsGarbage();
	CollectGarbage();
}
} // namespace ReadBench

BENCHMARK(ReadBench::Graph)->Name("Read/Graph")->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(ReadBench::EventFlows)->Name("Read/EventFlows")->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(ReadBench::Blueprint)->Name("Read/Blueprint")->RangeMultiplier(10)->Range(100, 10000)->Complexity();
