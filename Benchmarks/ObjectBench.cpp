// Making, finding, writing and freeing objects, over growing numbers of them.

#include "Standalone/NativeClass.h"
#include "Standalone/ObjectProviders.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

class UBenchObject : public UObject
{
	EDITOR_CLASS(UBenchObject, UObject)

public:
	int32 Number = 1;
	FString Text = TEXT("text");
	FVector Place;
	TArray<TObjectPtr<UObject>> Others;
};

IMPLEMENT_EDITOR_CLASS(UBenchObject, "/Script/ObjectBench", CLASS_None)

void UBenchObject::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Number"), &UBenchObject::Number);
	Class.Property(TEXT("Text"), &UBenchObject::Text);
	Class.Property(TEXT("Place"), &UBenchObject::Place);
	Class.Property(TEXT("Others"), &UBenchObject::Others);
}

namespace ObjectBench
{
static UObject* MakeOuter()
{
	RegisterCoreUObjectClasses();
	return NewObject<UBenchObject>(CreatePackage(TEXT("/Game/ObjectBench")));
}

static void Fill(UObject* Outer, int64 Count)
{
	for (int64 Index = 0; Index < Count; ++Index)
	{
		benchmark::DoNotOptimize(NewObject<UBenchObject>(Outer));
	}
}

static void Drop(UObject* Outer)
{
	Outer->MarkAsGarbage();
	CollectGarbage();
}

/** Fresh names below one outer, as nodes of one graph get them. */
static void MakeObjects(benchmark::State& State)
{
	for (auto _ : State)
	{
		State.PauseTiming();
		UObject* const Outer = MakeOuter();
		State.ResumeTiming();
		Fill(Outer, State.range(0));
		State.PauseTiming();
		Drop(Outer);
		State.ResumeTiming();
	}
	State.SetItemsProcessed(State.iterations() * State.range(0));
	State.SetComplexityN(State.range(0));
}
BENCHMARK(MakeObjects)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

static void FreeObjects(benchmark::State& State)
{
	for (auto _ : State)
	{
		State.PauseTiming();
		UObject* const Outer = MakeOuter();
		Fill(Outer, State.range(0));
		State.ResumeTiming();
		Drop(Outer);
	}
	State.SetItemsProcessed(State.iterations() * State.range(0));
	State.SetComplexityN(State.range(0));
}
BENCHMARK(FreeObjects)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

static void DuplicateObjects(benchmark::State& State)
{
	UObject* const Outer = MakeOuter();
	Fill(Outer, State.range(0));
	for (auto _ : State)
	{
		UObject* const Copy = StaticDuplicateObject(Outer, Outer->GetOuter());
		State.PauseTiming();
		Drop(Copy);
		State.ResumeTiming();
	}
	Drop(Outer);
	State.SetItemsProcessed(State.iterations() * State.range(0));
	State.SetComplexityN(State.range(0));
}
BENCHMARK(DuplicateObjects)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

static void FindClassByPath(benchmark::State& State)
{
	MakeOuter();
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(FindObject<UClass>(nullptr, TEXT("/Script/ObjectBench.BenchObject")));
	}
}
BENCHMARK(FindClassByPath);

static void FindClassByShortName(benchmark::State& State)
{
	MakeOuter();
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(FindFirstObject<UClass>(TEXT("BenchObject")));
	}
}
BENCHMARK(FindClassByShortName);

static void WriteAndReadVector(benchmark::State& State)
{
	UObject* const Object = MakeOuter();
	const FProperty* const Property = UBenchObject::StaticClass()->FindPropertyByName(TEXT("Place"));
	void* const Value = Property->GetValuePtr(Object);
	FString Text;
	for (auto _ : State)
	{
		Text.Reset();
		Property->ExportTextItem_Direct(Text, Value, Value, Object, PPF_Delimited);
		benchmark::DoNotOptimize(Property->ImportText_Direct(*Text, Value, Object, PPF_Delimited));
	}
}
BENCHMARK(WriteAndReadVector);
} // namespace ObjectBench
