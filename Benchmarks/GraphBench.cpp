// What an edit of a graph is made of, over growing graphs: making nodes, linking them, compiling the Blueprint, copying
// and pasting. Growth should be linear in the number of nodes.

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "EdGraphUtilities.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Session/EditorModules.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

namespace GraphBench
{
class FBlueprint
{
public:
	FBlueprint()
	{
		EditorModules::StartEditor();
		UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
		Blueprint = FKismetEditorUtilities::CreateBlueprint(
			Actor, CreatePackage(TEXT("/Game/Bench/BP_Bench")), TEXT("BP_Bench"), BPTYPE_Normal);
		Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	}
	~FBlueprint()
	{
		Blueprint->GetOutermost()->MarkAsGarbage();
		CollectGarbage();
	}
	FBlueprint(const FBlueprint&) = delete;
	FBlueprint& operator=(const FBlueprint&) = delete;

	/** A custom event first, then calls in turn impure and pure. */
	TArray<UEdGraphNode*> MakeNodes(int64 Count) const
	{
		const UClass* const System = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetSystemLibrary"));
		const UFunction* const Functions[] = {
			System->FindFunctionByName(TEXT("PrintString")), System->FindFunctionByName(TEXT("GetGameName"))};
		TArray<UEdGraphNode*> Nodes;
		FGraphNodeCreator<UK2Node_CustomEvent> EventCreator(*Graph);
		UK2Node_CustomEvent* const Event = EventCreator.CreateNode(false);
		Event->CustomFunctionName = TEXT("Start");
		EventCreator.Finalize();
		Nodes.Add(Event);
		for (int64 Index = 1; Index < Count; ++Index)
		{
			FGraphNodeCreator<UK2Node_CallFunction> Creator(*Graph);
			UK2Node_CallFunction* const Node = Creator.CreateNode(false);
			Node->SetFromFunction(Functions[(Index + 1) % 2]);
			Creator.Finalize();
			Nodes.Add(Node);
		}
		return Nodes;
	}

	/** One chain of execution, each impure call fed by the pure one before it, as the schema allows. */
	static int32 Connect(const TArray<UEdGraphNode*>& Nodes)
	{
		const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
		UEdGraphPin* Open = Nodes[0]->FindPin(UEdGraphSchema_K2::PN_Then);
		int32 Made = 0;
		for (int32 Index = 1; Index + 1 < Nodes.Num(); Index += 2)
		{
			Made += Schema->TryCreateConnection(Open, Nodes[Index]->FindPin(UEdGraphSchema_K2::PN_Execute)) ? 1 : 0;
			Made += Schema->TryCreateConnection(Nodes[Index + 1]->FindPin(UEdGraphSchema_K2::PN_ReturnValue),
						Nodes[Index]->FindPin(TEXT("InString")))
				? 1
				: 0;
			Open = Nodes[Index]->FindPin(UEdGraphSchema_K2::PN_Then);
		}
		return Made;
	}

	UBlueprint* Blueprint = nullptr;
	UEdGraph* Graph = nullptr;
};

static void CreateNodes(benchmark::State& State)
{
	for (auto _ : State)
	{
		State.PauseTiming();
		{
			const FBlueprint Blueprint;
			State.ResumeTiming();
			benchmark::DoNotOptimize(Blueprint.MakeNodes(State.range(0)).Num());
			State.PauseTiming();
		}
		State.ResumeTiming();
	}
	State.SetComplexityN(State.range(0));
}

static void ConnectNodes(benchmark::State& State)
{
	for (auto _ : State)
	{
		State.PauseTiming();
		{
			const FBlueprint Blueprint;
			const TArray<UEdGraphNode*> Nodes = Blueprint.MakeNodes(State.range(0));
			State.ResumeTiming();
			State.counters["links"] = FBlueprint::Connect(Nodes);
			State.PauseTiming();
		}
		State.ResumeTiming();
	}
	State.SetComplexityN(State.range(0));
}

static void CompileGraph(benchmark::State& State)
{
	const FBlueprint Blueprint;
	FBlueprint::Connect(Blueprint.MakeNodes(State.range(0)));
	for (auto _ : State)
	{
		FCompilerResultsLog Log;
		FKismetEditorUtilities::CompileBlueprint(Blueprint.Blueprint, EBlueprintCompileOptions::None, &Log);
		State.counters["messages"] = Log.Messages.Num();
	}
	State.SetComplexityN(State.range(0));
}

static TSet<UObject*> ToObjects(const TArray<UEdGraphNode*>& Nodes)
{
	TSet<UObject*> Objects;
	for (UEdGraphNode* const Node : Nodes)
	{
		Objects.Add(Node);
	}
	return Objects;
}

static void CopyNodes(benchmark::State& State)
{
	const FBlueprint Blueprint;
	const TArray<UEdGraphNode*> Nodes = Blueprint.MakeNodes(State.range(0));
	FBlueprint::Connect(Nodes);
	const TSet<UObject*> Objects = ToObjects(Nodes);
	for (auto _ : State)
	{
		FString Text;
		FEdGraphUtilities::ExportNodesToText(Objects, Text);
		benchmark::DoNotOptimize(Text.Len());
	}
	State.SetComplexityN(State.range(0));
}

static void PasteNodes(benchmark::State& State)
{
	FString Text;
	{
		const FBlueprint Blueprint;
		const TArray<UEdGraphNode*> Nodes = Blueprint.MakeNodes(State.range(0));
		FBlueprint::Connect(Nodes);
		const TSet<UObject*> Objects = ToObjects(Nodes);
		FEdGraphUtilities::ExportNodesToText(Objects, Text);
	}
	for (auto _ : State)
	{
		State.PauseTiming();
		{
			const FBlueprint Blueprint;
			State.ResumeTiming();
			TSet<UEdGraphNode*> Pasted;
			FEdGraphUtilities::ImportNodesFromText(Blueprint.Graph, Text, Pasted);
			FEdGraphUtilities::PostProcessPastedNodes(Pasted);
			State.PauseTiming();
		}
		State.ResumeTiming();
	}
	State.SetComplexityN(State.range(0));
}

BENCHMARK(CreateNodes)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(ConnectNodes)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(CompileGraph)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(CopyNodes)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(PasteNodes)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond)->Complexity();
} // namespace GraphBench
