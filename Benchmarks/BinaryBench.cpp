#include "AssetRegistry/AssetRegistryModule.h"
#include "BinaryPackage/BinaryPackageText.h"
#include "Misc/PackageName.h"
#include "SmallBlueprint.h"
#include "Standalone/PackageText.h"
#include "TemporaryFolder.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

/**
 * The engine's own files: read into objects' text, listed by their heads, and read by a process that has just begun.
 * Besides files of the tests' writer, those in the folder that MORVANE_BINARY_SAMPLES names, where there is one.
 */
namespace BinaryBench
{
namespace fs = std::filesystem;

struct FFile
{
	std::string Name;
	std::string Bytes;
};

/** All files of the samples; without samples, a small one of each engine. */
static const std::vector<FFile>& GetFiles()
{
	static const std::vector<FFile> Files = []
	{
		std::vector<FFile> Found;
		const char* const Folder = std::getenv("MORVANE_BINARY_SAMPLES");
		std::error_code Ignored;
		for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Folder ? Folder : "", Ignored))
		{
			if (Entry.path().extension() == ".uasset" || Entry.path().extension() == ".umap")
			{
				std::ifstream File(Entry.path(), std::ios::binary);
				Found.push_back({Entry.path().stem().string(), std::string(std::istreambuf_iterator<char>(File), {})});
			}
		}
		for (const std::string& Engine : Found.empty() ? FPackageLayout::AllEngines() : std::vector<std::string>())
		{
			Found.push_back({"BP_Small", SmallBlueprint::Make(FPackageLayout::Of(Engine)).Write().Bytes});
		}
		return Found;
	}();
	return Files;
}

static void ReadAll(benchmark::State& State)
{
	int64 NumBytes = 0;
	for (auto Step : State)
	{
		for (const FFile& File : GetFiles())
		{
			std::string Text;
			std::string Refusal;
			FBinaryPackageFindings Findings;
			MakePackageTextOfBinary(File.Bytes, "/Game/" + File.Name, Text, Findings, Refusal);
			benchmark::DoNotOptimize(Text.size());
			NumBytes += static_cast<int64>(File.Bytes.size());
		}
	}
	State.SetBytesProcessed(NumBytes);
	State.SetItemsProcessed(State.iterations() * static_cast<int64>(GetFiles().size()));
}

/** The first question to the registry in a project of that many files, which no scan has seen before. */
static void ScanRegistry(benchmark::State& State)
{
	const FTemporaryFolder Folder;
	for (int64 Index = 0; Index < State.range(0); ++Index)
	{
		const FFile& File = GetFiles()[static_cast<std::size_t>(Index) % GetFiles().size()];
		const std::string Dir = "Dir_" + std::to_string(Index % 100);
		Folder.Write(Dir + "/" + File.Name + "_" + std::to_string(Index) + ".uasset", File.Bytes);
	}
	int32 Round = 0;
	for (auto Step : State)
	{
		State.PauseTiming();
		// Other names for the same files, so that nothing of the last round is known.
		const std::string Place = Folder.Path().string() + "-" + std::to_string(Round++);
		fs::create_directory_symlink(Folder.Path(), Place);
		State.ResumeTiming();
		FPackageName::RegisterMountPoint(TEXT("/Scan/"), FromUtf8(Place));
		TArray<FAssetData> Assets;
		FAssetRegistryModule::GetRegistry().GetAssetsByPath(TEXT("/Scan"), Assets, true, true);
		State.counters["assets"] = Assets.Num();
		State.PauseTiming();
		FPackageName::UnRegisterMountPoint(TEXT("/Scan/"), FString());
		FAssetRegistryModule::GetRegistry().SearchAllAssets(true);
		fs::remove(Place);
		State.ResumeTiming();
	}
	State.SetItemsProcessed(State.iterations() * State.range(0));
}

/** A process that reads one Blueprint, from its start to its end. */
static void FirstRead(benchmark::State& State)
{
	const FTemporaryFolder Project;
	const FFile* Largest = &GetFiles().front();
	for (const FFile& File : GetFiles())
	{
		Largest = File.Bytes.size() > Largest->Bytes.size() ? &File : Largest;
	}
	Project.Write("Content/BP_Read.uasset", Largest->Bytes);
	const std::string Command = std::string(MORVANE_PROGRAM)
		+ " call read_blueprint_schema '{\"path\":\"/Game/BP_Read\"}'" + " --project " + Project.Path().string()
		+ " > /dev/null 2>&1";
	for (auto Step : State)
	{
		benchmark::DoNotOptimize(std::system(Command.c_str()));
	}
	State.counters["bytes"] = static_cast<double>(Largest->Bytes.size());
}
} // namespace BinaryBench

BENCHMARK(BinaryBench::ReadAll)->Name("Binary/Read")->Unit(benchmark::kMillisecond);
BENCHMARK(BinaryBench::ScanRegistry)->Name("Binary/Scan")->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BinaryBench::FirstRead)->Name("Binary/FirstRead")->Unit(benchmark::kMillisecond);
