// Compiles of Blueprints that are large in other ways than by nodes: by variables, functions, interfaces, macros that
// use macros, and Blueprints derived from one another. Growth should be linear in each.

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_MacroInstance.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Session/EditorModules.h"
#include "UObject/Package.h"
#include "UObject/TopLevelAssetPath.h"

#include <benchmark/benchmark.h>

namespace CompileBench
{
/** Blueprints for one measurement; gone when it ends. */
class FWorkshop
{
public:
	FWorkshop() { EditorModules::StartEditor(); }
	~FWorkshop()
	{
		for (UPackage* const Package : Packages)
		{
			Package->MarkAsGarbage();
		}
		CollectGarbage();
	}
	FWorkshop(const FWorkshop&) = delete;
	FWorkshop& operator=(const FWorkshop&) = delete;

	UBlueprint* Make(UClass* Parent, EBlueprintType Type = BPTYPE_Normal)
	{
		const FString Name = FString::Printf(TEXT("BP_Compile%d"), Packages.Num());
		UPackage* const Package = CreatePackage(*(TEXT("/Game/Bench/") + Name));
		Packages.Add(Package);
		return FKismetEditorUtilities::CreateBlueprint(Parent, Package, FName(*Name), Type);
	}
	UBlueprint* MakeActor() { return Make(FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"))); }

private:
	TArray<UPackage*> Packages;
};

static FEdGraphPinType IntegerType()
{
	return FEdGraphPinType(
		UEdGraphSchema_K2::PC_Int, NAME_None, nullptr, EPinContainerType::None, false, FEdGraphTerminalType());
}

static UEdGraph* NewGraph(UBlueprint* Blueprint, const FString& Name)
{
	return FBlueprintEditorUtils::CreateNewGraph(
		Blueprint, FName(*Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
}

static UEdGraph* AddFunction(UBlueprint* Blueprint, const FString& Name)
{
	UEdGraph* const Graph = NewGraph(Blueprint, Name);
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, Graph, true, nullptr);
	FBlueprintEditorUtils::GetEntryNode(Graph)->CreateUserDefinedPin(TEXT("Number"), IntegerType(), EGPD_Output);
	return Graph;
}

static void Measure(benchmark::State& State, UBlueprint* Blueprint)
{
	for (auto _ : State)
	{
		FCompilerResultsLog Log;
		FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Log);
		State.counters["messages"] = Log.Messages.Num();
	}
	State.SetComplexityN(State.range(0));
}

static void CompileVariables(benchmark::State& State)
{
	FWorkshop Workshop;
	UBlueprint* const Blueprint = Workshop.MakeActor();
	for (int64 Index = 0; Index < State.range(0); ++Index)
	{
		FBPVariableDescription Variable;
		Variable.VarName = FName(*FString::Printf(TEXT("Variable%d"), static_cast<int32>(Index)));
		Variable.VarGuid = FGuid::NewGuid();
		Variable.VarType = IntegerType();
		Variable.DefaultValue = TEXT("7");
		Blueprint->NewVariables.Add(Variable);
	}
	Measure(State, Blueprint);
}

static void CompileFunctions(benchmark::State& State)
{
	FWorkshop Workshop;
	UBlueprint* const Blueprint = Workshop.MakeActor();
	for (int64 Index = 0; Index < State.range(0); ++Index)
	{
		AddFunction(Blueprint, FString::Printf(TEXT("Function%d"), static_cast<int32>(Index)));
	}
	Measure(State, Blueprint);
}

static void CompileInterfaces(benchmark::State& State)
{
	FWorkshop Workshop;
	UBlueprint* const Blueprint = Workshop.MakeActor();
	for (int64 Index = 0; Index < State.range(0); ++Index)
	{
		UBlueprint* const Interface = Workshop.Make(UInterface::StaticClass(), BPTYPE_Interface);
		UEdGraph* const Answer = AddFunction(Interface, FString::Printf(TEXT("Answer%d"), static_cast<int32>(Index)));
		// With a result it is a graph of the Blueprint, and no event.
		FGraphNodeCreator<UK2Node_FunctionResult> Creator(*Answer);
		UK2Node_FunctionResult* const Result = Creator.CreateNode(false);
		Creator.Finalize();
		Result->CreateUserDefinedPin(TEXT("ReturnValue"), IntegerType(), EGPD_Input);
		FKismetEditorUtilities::CompileBlueprint(Interface);
		FBlueprintEditorUtils::ImplementNewInterface(Blueprint, FTopLevelAssetPath(Interface->GeneratedClass.Get()));
	}
	Measure(State, Blueprint);
}

/** Each macro uses the two before it. */
static void CompileMacros(benchmark::State& State)
{
	FWorkshop Workshop;
	UBlueprint* const Blueprint = Workshop.MakeActor();
	for (int64 Index = 0; Index < State.range(0); ++Index)
	{
		UEdGraph* const Graph = NewGraph(Blueprint, FString::Printf(TEXT("Macro%d"), static_cast<int32>(Index)));
		FBlueprintEditorUtils::AddMacroGraph(Blueprint, Graph, true, nullptr);
		for (int64 Before = std::max<int64>(0, Index - 2); Before < Index; ++Before)
		{
			FGraphNodeCreator<UK2Node_MacroInstance> Creator(*Graph);
			Creator.CreateNode(false)->SetMacroGraph(Blueprint->MacroGraphs[static_cast<int32>(Before)]);
			Creator.Finalize();
		}
	}
	Measure(State, Blueprint);
}

/** The parent of many. */
static void CompileParent(benchmark::State& State)
{
	FWorkshop Workshop;
	UBlueprint* const Blueprint = Workshop.MakeActor();
	for (int64 Index = 0; Index < State.range(0); ++Index)
	{
		Workshop.Make(Blueprint->GeneratedClass.Get());
	}
	Measure(State, Blueprint);
}

BENCHMARK(CompileVariables)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(CompileFunctions)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(CompileInterfaces)->Arg(50)->Arg(500)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(CompileMacros)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(CompileParent)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond)->Complexity();
} // namespace CompileBench
