#include "Standalone/Catalogue.h"

#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Session/EditorModules.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace CatalogueBench
{
static int32 ReadMembers(const UStruct& Struct)
{
	int32 Num = 0;
	for (TFieldIterator<FProperty> It(&Struct, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		++Num;
	}
	for (TFieldIterator<UFunction> It(&Struct, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Num += ReadMembers(**It);
	}
	return Num;
}

// The two below can happen once in a process only, so each is one iteration and they stand in this order.
static void CatalogueMakeAllClasses(benchmark::State& State)
{
	EditorModules::StartEditor();
	for (auto _ : State)
	{
		TArray<UClass*> Classes;
		GetDerivedClasses(UObject::StaticClass(), Classes);
		State.counters["classes"] = Classes.Num();
	}
}
BENCHMARK(CatalogueMakeAllClasses)->Iterations(1)->Unit(benchmark::kMillisecond);

static void CatalogueReadAllMembers(benchmark::State& State)
{
	EditorModules::StartEditor();
	for (auto _ : State)
	{
		int32 Num = 0;
		FCatalogue::Get().ForEachPath(UStruct::StaticClass(),
			[&Num](const FString& Path, const FString&)
			{
				const UStruct* const Struct = Cast<UStruct>(FCatalogue::Get().FindOrCreate(Path));
				Num += Struct ? ReadMembers(*Struct) : 0;
			});
		State.counters["members"] = Num;
	}
}
BENCHMARK(CatalogueReadAllMembers)->Iterations(1)->Unit(benchmark::kMillisecond);

static void CatalogueFindByPath(benchmark::State& State)
{
	EditorModules::StartEditor();
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(FCatalogue::Get().FindOrCreate(TEXT("/Script/Engine.CharacterMovementComponent")));
	}
}
BENCHMARK(CatalogueFindByPath);

/** A project of N classes with ten members each. */
static void CatalogueLoadProject(benchmark::State& State)
{
	EditorModules::StartEditor();
	const FString Folder = FString((std::filesystem::temp_directory_path() / "catalogue-bench").c_str());
	std::string Text;
	for (int64 Class = 0; Class < State.range(0); ++Class)
	{
		Text += "{\"class\": \"/Script/Bench.Class" + std::to_string(Class)
			+ "\", \"parent\": \"/Script/Engine.Actor\"}\n";
		for (int32 Member = 0; Member < 10; ++Member)
		{
			Text += "{\"function\": \"Do" + std::to_string(Member)
				+ "\", \"flags\": [\"callable\"], \"params\": [{\"name\": \"Where\", \"type\": \"struct /Script/CoreUObject.Vector\"}]}\n";
		}
	}
	FFileHelper::SaveStringToFile(FromUtf8(Text), *(Folder / TEXT("Config/Catalogue/Bench.jsonl")));
	for (auto _ : State)
	{
		TArray<FString> Errors;
		FCatalogue::Get().LoadProjectCatalogue(Folder, Errors);
		State.PauseTiming();
		FCatalogue::Get().UnloadProjectCatalogue();
		State.ResumeTiming();
	}
	State.SetItemsProcessed(State.iterations() * State.range(0));
	std::filesystem::remove_all(std::filesystem::path(TCHAR_TO_UTF8(*Folder)));
}
BENCHMARK(CatalogueLoadProject)->Arg(10)->Arg(100)->Arg(1000)->Iterations(20)->Unit(benchmark::kMillisecond);
} // namespace CatalogueBench
