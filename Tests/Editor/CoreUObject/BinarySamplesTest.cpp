#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include <gtest/gtest.h>

#include "BinaryPackage/BinaryPackageText.h"
#include "EdGraph/EdGraphNode.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Misc/PackageName.h"
#include "Session/EditorModules.h"
#include "Standalone/PackageText.h"
#include "TemporaryFolder.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

// The engine's own files, run over where they lie: a folder named by MORVANE_BINARY_SAMPLES, if there is one. They
// belong to others, so none of them is part of this repository; what a layout needs is tested on files made by hand.

namespace BinarySamplesTest
{
namespace fs = std::filesystem;

struct FTotals
{
	int NumFiles = 0;
	int NumRead = 0;
	int NumNodes = 0;
	int NumNodesWithPins = 0;
	int NumPins = 0;
	int NumLinks = 0;
	int NumTwoSided = 0;
	/** As a caller is told of them. */
	int NumWarnings = 0;
	/** Values that were not understood. */
	int NumLeftOut = 0;
	/** Of the Blueprints as they stand in memory after a load. */
	int NumLoaded = 0;
	int NumLoadedNodes = 0;
	int NumVariables = 0;
	int NumComponents = 0;
	int NumFunctions = 0;
};

static std::string ReadFile(const fs::path& Path)
{
	std::ifstream File(Path, std::ios::binary);
	return std::string(std::istreambuf_iterator<char>(File), {});
}

static std::vector<fs::path> FindSamples(const fs::path& Folder)
{
	std::vector<fs::path> Files;
	for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Folder))
	{
		if (Entry.path().extension() == ".uasset" || Entry.path().extension() == ".umap")
		{
			Files.push_back(Entry.path());
		}
	}
	std::sort(Files.begin(), Files.end());
	return Files;
}
/** Counts what a Blueprint holds once it is loaded as any other. */
static void CountLoaded(const std::string& PackageName, FTotals& Totals)
{
	UPackage* const Package = LoadPackage(nullptr, *FromUtf8(PackageName), LOAD_Quiet);
	if (!Package)
	{
		return;
	}
	++Totals.NumLoaded;
	TArray<UObject*> Objects;
	GetObjectsWithOuter(Package, Objects, true);
	for (UObject* const Object : Objects)
	{
		Totals.NumLoadedNodes += Object->IsA<UEdGraphNode>() ? 1 : 0;
		if (const UBlueprint* const Blueprint = Cast<UBlueprint>(Object))
		{
			Totals.NumVariables += Blueprint->NewVariables.Num();
			Totals.NumFunctions += Blueprint->FunctionGraphs.Num();
			Totals.NumComponents += Blueprint->SimpleConstructionScript
				? Blueprint->SimpleConstructionScript->GetAllNodes().Num()
				: 0;
		}
	}
	Package->MarkAsGarbage();
	CollectGarbage();
}
} // namespace BinarySamplesTest

TEST(BinarySamples, AreReadToTheirLastPin)
{
	using namespace BinarySamplesTest;
	const char* const Folder = std::getenv("MORVANE_BINARY_SAMPLES");
	if (!Folder || !fs::is_directory(Folder))
	{
		GTEST_SKIP() << "MORVANE_BINARY_SAMPLES names no folder";
	}
	std::map<std::string, FTotals> ByFolder;
	// Folders of samples bear names that no package can have, so each file gets a name of its own.
	const FTemporaryFolder Content;
	FPackageName::RegisterMountPoint(TEXT("/Samples/"), Content.Get());
	EditorModules::StartEditor();
	FPackageText::RegisterLoader();
	int NumFiles = 0;
	for (const fs::path& File : FindSamples(Folder))
	{
		FTotals& Totals = ByFolder[fs::relative(File, Folder).begin()->string()];
		FBinaryPackageFindings Findings;
		std::string Text;
		std::string Refusal;
		++Totals.NumFiles;
		const std::string Bytes = ReadFile(File);
		const bool bRead = MakePackageTextOfBinary(Bytes, "/Game/" + File.stem().string(), Text, Findings, Refusal);
		EXPECT_TRUE(bRead) << File << ": " << Refusal;
		Totals.NumRead += bRead ? 1 : 0;
		const std::string Name = File.stem().string() + "_" + std::to_string(NumFiles++);
		Content.Write(Name + File.extension().string(), Bytes);
		CountLoaded("/Samples/" + Name, Totals);
		Totals.NumNodes += Findings.NumNodes;
		Totals.NumNodesWithPins += Findings.NumNodesWithPins;
		Totals.NumPins += Findings.NumPins;
		Totals.NumLinks += Findings.NumLinks;
		Totals.NumTwoSided += Findings.NumTwoSidedLinks;
		Totals.NumLeftOut += static_cast<int>(Findings.LeftOut.size());
		for (const FString& Problem : FPackageText::TakeProblems())
		{
			++Totals.NumWarnings;
			if (std::getenv("MORVANE_BINARY_WARNINGS"))
			{
				std::printf("%s: %s\n", File.filename().c_str(), ToUtf8(Problem).c_str());
			}
		}
	}
	FPackageName::UnRegisterMountPoint(TEXT("/Samples/"), Content.Get());
	std::printf("%-8s %5s %5s %6s %9s %6s %6s %9s %6s %9s %10s %9s %8s %14s\n", "engine", "files", "read", "nodes",
		"with pins", "pins", "links", "two-sided", "loaded", "variables", "components", "functions", "left out",
		"warnings/file");
	for (const auto& [Engine, Totals] : ByFolder)
	{
		std::printf("%-8s %5d %5d %6d %9d %6d %6d %9d %6d %9d %10d %9d %8d %14.2f\n", Engine.c_str(), Totals.NumFiles,
			Totals.NumRead, Totals.NumNodes, Totals.NumNodesWithPins, Totals.NumPins, Totals.NumLinks,
			Totals.NumTwoSided, Totals.NumLoaded, Totals.NumVariables, Totals.NumComponents, Totals.NumFunctions,
			Totals.NumLeftOut, static_cast<double>(Totals.NumWarnings) / Totals.NumFiles);
		EXPECT_EQ(Totals.NumNodesWithPins, Totals.NumNodes) << Engine;
		EXPECT_EQ(Totals.NumTwoSided, Totals.NumLinks) << Engine;
	}
}
