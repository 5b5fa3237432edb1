#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include <gtest/gtest.h>

#include "BinaryPackage/BinaryPackageText.h"

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
	int NumWarnings = 0;
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
	for (const fs::path& File : FindSamples(Folder))
	{
		FTotals& Totals = ByFolder[fs::relative(File, Folder).begin()->string()];
		FBinaryPackageFindings Findings;
		std::string Text;
		std::string Refusal;
		++Totals.NumFiles;
		const bool bRead = MakePackageTextOfBinary(
			ReadFile(File), "/Game/" + File.stem().string(), Text, Findings, Refusal);
		EXPECT_TRUE(bRead) << File << ": " << Refusal;
		Totals.NumRead += bRead ? 1 : 0;
		Totals.NumNodes += Findings.NumNodes;
		Totals.NumNodesWithPins += Findings.NumNodesWithPins;
		Totals.NumPins += Findings.NumPins;
		Totals.NumLinks += Findings.NumLinks;
		Totals.NumTwoSided += Findings.NumTwoSidedLinks;
		Totals.NumWarnings += static_cast<int>(Findings.Warnings.size());
		for (const std::string& Warning : Findings.Warnings)
		{
			if (std::getenv("MORVANE_BINARY_WARNINGS"))
			{
				std::printf("%s: %s\n", File.filename().c_str(), Warning.c_str());
			}
		}
	}
	std::printf("%-12s %5s %5s %6s %9s %7s %7s %9s %8s\n", "engine", "files", "read", "nodes", "with pins", "pins",
		"links", "two-sided", "warnings");
	for (const auto& [Engine, Totals] : ByFolder)
	{
		std::printf("%-12s %5d %5d %6d %9d %7d %7d %9d %8d\n", Engine.c_str(), Totals.NumFiles, Totals.NumRead,
			Totals.NumNodes, Totals.NumNodesWithPins, Totals.NumPins, Totals.NumLinks, Totals.NumTwoSided,
			Totals.NumWarnings);
		EXPECT_EQ(Totals.NumNodesWithPins, Totals.NumNodes) << Engine;
		EXPECT_EQ(Totals.NumTwoSided, Totals.NumLinks) << Engine;
	}
}
