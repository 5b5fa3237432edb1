// Real files of the engine's editor, run over where they lie (see BinarySamplesTest): what a copy of each compiles to,
// and whether each of its graphs is the same after it was copied out and pasted into a Blueprint that has what it
// needs.

#include "BinaryPackage/BinaryPackageText.h"
#include "BinaryPackage/BinaryTables.h"
#include "BlueprintUtils.h"
#include "ClipboardText.h"
#include "Engine/Blueprint.h"
#include "GraphText.h"
#include "Misc/PackageName.h"
#include "NodeDifference.h"
#include "Session/EditorModules.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/PackageText.h"
#include "Standalone/Project.h"
#include "TemporaryFolder.h"
#include "UObject/Package.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include <gtest/gtest.h>

namespace BinarySampleGraphsTest
{
namespace fs = std::filesystem;

/** What went wrong, in words that files have in common, with how many of what it happened to and where first. */
class FReasons
{
public:
	void Add(const std::string& Text, const std::string& Where)
	{
		if (std::getenv("MORVANE_BINARY_WARNINGS"))
		{
			std::printf("%s: %s\n", Where.c_str(), Text.c_str());
		}
		std::string Common = Text.substr(Text.find("] ") == std::string::npos ? 0 : Text.find("] ") + 2);
		Common = std::regex_replace(Common, std::regex("[\"'][^\"']*[\"']"), "'..'");
		Common = std::regex_replace(Common, std::regex("[0-9A-F]{7,}|[0-9]+"), "#");
		Common = std::regex_replace(
			Common.substr(0, Common.find('\n')), std::regex(" \\[Nodes.*| \\((# places|one place).*"), "");
		auto& [Num, First] = Rows[Common.substr(0, 140)];
		++Num;
		First = First.empty() ? Where : First;
	}
	void Print(const char* Title) const
	{
		std::vector<std::pair<std::string, std::pair<int, std::string>>> Sorted(Rows.begin(), Rows.end());
		std::stable_sort(Sorted.begin(), Sorted.end(),
			[](const auto& Left, const auto& Right) { return Left.second.first > Right.second.first; });
		std::printf("%s\n", Title);
		for (const auto& [Text, Row] : Sorted)
		{
			std::printf("%5d  %s  (%s)\n", Row.first, Text.c_str(), Row.second.c_str());
		}
	}

private:
	std::map<std::string, std::pair<int, std::string>> Rows;
};

struct FTotals
{
	int NumBlueprints = 0;
	int NumClean = 0;
	int NumSilent = 0;
	int NumGraphs = 0;
	int NumSameGraphs = 0;
	int NumNodes = 0;
	int NumSameNodes = 0;
	FReasons CompileReasons;
	FReasons CompileWarnings;
	FReasons PasteReasons;
	FReasons Unexplained;
};

static std::string ReadFile(const fs::path& Path)
{
	std::ifstream File(Path, std::ios::binary);
	return std::string(std::istreambuf_iterator<char>(File), {});
}

static std::vector<fs::path> FindSamples()
{
	const char* const Folder = std::getenv("MORVANE_BINARY_SAMPLES");
	std::vector<fs::path> Files;
	for (const fs::directory_entry& Entry : Folder&& fs::is_directory(Folder) ? fs::recursive_directory_iterator(Folder)
																			  : fs::recursive_directory_iterator())
	{
		if (Entry.path().extension() == ".uasset" || Entry.path().extension() == ".umap")
		{
			Files.push_back(Entry.path());
		}
	}
	std::sort(Files.begin(), Files.end());
	return Files;
}

/** Pins are named after classes, so the copies bear the name that the nodes knew. */
static std::string FindNameInFile(const fs::path& File)
{
	FBinaryTables Tables;
	std::string Ignored;
	const std::string Bytes = ReadFile(File);
	return Tables.Read(Bytes, "/Game/None", Ignored) ? Tables.GetRecordedName() : File.stem().string();
}

/** The file twice in a project: one to copy from, one to paste into. */
class FSample
{
public:
	explicit FSample(const fs::path& File)
		: Name(FindNameInFile(File))
	{
		EditorModules::StartTools();
		EditorModules::StartEditor();
		FString Error;
		EXPECT_TRUE(FProject::Open(Project.Get(), Error)) << ToStd(Error);
		// A neighbour of the editor's: what is missing beside it may lie anywhere.
		Project.Write("Content/Other.uasset", ReadFile(File));
		Source = Load(File, "/Game/From/" + Name);
		Target = Load(File, "/Game/Into/" + Name);
	}
	~FSample()
	{
		for (const std::string& Package : {"/Game/From/" + Name, "/Game/Into/" + Name})
		{
			if (UPackage* const Loaded = FindPackage(nullptr, *FromUtf8(Package)))
			{
				Loaded->MarkAsGarbage();
			}
		}
		FProject::Close();
		CollectGarbage();
		FPackageText::TakeProblems();
		FMissingObjects::TakeAsked();
	}
	FSample(const FSample&) = delete;
	FSample& operator=(const FSample&) = delete;

	/** The text, as it is said of the Blueprint that is pasted into. */
	std::string Retargeted(std::string Text) const
	{
		const std::string From = "/Game/From/" + Name;
		for (std::size_t At = Text.find(From); At != std::string::npos; At = Text.find(From, At))
		{
			Text.replace(At, From.size(), "/Game/Into/" + Name);
		}
		return Text;
	}

	const std::string Name;
	UBlueprint* Source = nullptr;
	UBlueprint* Target = nullptr;

private:
	UBlueprint* Load(const fs::path& File, const std::string& Package) const
	{
		FBinaryPackageFindings Ignored;
		std::string Text;
		std::string Refusal;
		if (!MakePackageTextOfBinary(ReadFile(File), Package, Text, Ignored, Refusal))
		{
			return nullptr;
		}
		Project.Write("Content" + Package.substr(5) + ".uatext", Text);
		return FBlueprintUtils::TryLoadBlueprint(FromUtf8(Package));
	}

	FTemporaryFolder Project;
};

static void Compile(const FSample& Sample, FTotals& Totals)
{
	TArray<FString> Errors;
	TArray<FString> Warnings;
	++Totals.NumBlueprints;
	Totals.NumClean += FBlueprintUtils::CompileBlueprintWithResults(Sample.Source, false, Errors, Warnings) ? 1 : 0;
	Totals.NumSilent += Errors.IsEmpty() && Warnings.IsEmpty() ? 1 : 0;
	for (const FString& Warning : Warnings)
	{
		Totals.CompileWarnings.Add(ToStd(Warning), Sample.Name);
	}
	for (const FString& Error : Errors)
	{
		Totals.CompileReasons.Add(ToStd(Error), Sample.Name);
	}
}

/**
 * Why the editor of this engine would show the same difference once it has made the node anew; empty when it would
 * not, so that the difference is a fault of ours.
 */
static std::string ReasonOf(const FNodeDifference& Difference)
{
	const std::string Class = Difference.NodeClass.substr(Difference.NodeClass.rfind('.') + 1);
	const bool bCall = Class.starts_with("K2Node_Call");
	const bool bEnd = Class == "K2Node_FunctionEntry" || Class == "K2Node_FunctionResult";
	const bool bOrphaned = Difference.What == "type" && Difference.After.ends_with("True")
		&& Difference.Before.ends_with("False");
	if (Difference.What == "order")
	{
		return "the engine of the file had the pins in another order, or others between them";
	}
	if (Class == "K2Node_DynamicCast" && Difference.What.starts_with("pin "))
	{
		return "the pin's name is in the language of the editor that made it";
	}
	if (bOrphaned || Difference.What == "pin lost")
	{
		return bCall || bEnd || Class == "K2Node_BreakStruct"
			? "a parameter or member is called otherwise by now, or gone"
			: "";
	}
	if (Difference.What == "pin new")
	{
		return bCall || bEnd || Class == "K2Node_BreakStruct" ? "the declaration has got more parameters or members"
															  : "";
	}
	if (Difference.What == "type")
	{
		return bCall ? "the declaration gives another type by now" : "";
	}
	if (Difference.What == "links")
	{
		return "the pin at the other end is called otherwise";
	}
	return Difference.What == "default" && Class.starts_with("K2Node_Input") ? "the pin has got a default since" : "";
}

static void PasteGraph(const FSample& Sample, const UEdGraph& From, UEdGraph& Into, FTotals& Totals)
{
	TArray<UEdGraphNode*> Nodes;
	From.GetNodesOfClass(Nodes);
	const std::string Text = Sample.Retargeted(ClipboardTests::Copy(Nodes));
	while (!Into.Nodes.IsEmpty())
	{
		Into.Nodes.Last()->DestroyNode();
	}
	const std::vector<FGraphTextNode> Before = ReadGraphText(Text);
	const std::vector<FGraphTextNode> After = ReadGraphText(ClipboardTests::Copy(ClipboardTests::Paste(&Into, Text)));
	const std::string Where = Sample.Name + ":" + ToStd(From.GetName());
	int NumSame = 0;
	for (std::size_t Index = 0; Index < Before.size(); ++Index)
	{
		const std::vector<FNodeDifference> Differences = FindNodeDifferences(Before, After, Index);
		NumSame += Differences.empty() ? 1 : 0;
		std::set<std::string> Reasons;
		for (const FNodeDifference& Difference : Differences)
		{
			const std::string Reason = ReasonOf(Difference);
			Reasons.insert(Reason);
			if (Reason.empty())
			{
				Totals.Unexplained.Add(Difference.ToString(), Where);
			}
			if (std::getenv("MORVANE_BINARY_WARNINGS"))
			{
				std::printf("%s: %s\n", Where.c_str(), Difference.ToString().c_str());
			}
		}
		for (const std::string& Reason : Reasons)
		{
			Totals.PasteReasons.Add(Reason.empty() ? "no reason that the editor would have" : Reason, Where);
		}
	}
	Totals.NumNodes += static_cast<int>(Before.size());
	Totals.NumSameNodes += NumSame;
	++Totals.NumGraphs;
	Totals.NumSameGraphs += Before.size() == After.size() && NumSame == static_cast<int>(Before.size()) ? 1 : 0;
}

static void PasteAll(const FSample& Sample, FTotals& Totals)
{
	TArray<UEdGraph*> From;
	Sample.Source->GetAllGraphs(From);
	for (const UEdGraph* const Graph : From)
	{
		UEdGraph* const Into = FindObject<UEdGraph>(Sample.Target, *Graph->GetName());
		// A graph inside another is part of the text of the node that it belongs to.
		if (Graph->GetOuter() == Sample.Source && Into)
		{
			PasteGraph(Sample, *Graph, *Into, Totals);
		}
	}
}
} // namespace BinarySampleGraphsTest

TEST(BinarySamples, CompileAndGoThroughTheClipboard)
{
	using namespace BinarySampleGraphsTest;
	const std::vector<fs::path> Files = FindSamples();
	if (Files.empty())
	{
		GTEST_SKIP() << "MORVANE_BINARY_SAMPLES names no folder with samples";
	}
	FTotals Totals;
	for (const fs::path& File : Files)
	{
		const FSample Sample(File);
		if (Sample.Source && Sample.Target)
		{
			PasteAll(Sample, Totals);
			Compile(Sample, Totals);
		}
	}
	std::printf("compiled copies: %d of %d without an error, %d without a warning\n", Totals.NumClean,
		Totals.NumBlueprints, Totals.NumSilent);
	Totals.CompileReasons.Print("errors, and the first file with each:");
	Totals.CompileWarnings.Print("warnings, and the first file with each:");
	std::printf("pasted graphs: %d of %d the same; nodes: %d of %d\n", Totals.NumSameGraphs, Totals.NumGraphs,
		Totals.NumSameNodes, Totals.NumNodes);
	Totals.PasteReasons.Print("why nodes are others, how many, and the first graph with each:");
	Totals.Unexplained.Print("differences without such a reason:");
	EXPECT_GT(Totals.NumBlueprints, 0);
	EXPECT_GT(Totals.NumClean, 0);
	EXPECT_GT(Totals.NumSameNodes, 0);
}
