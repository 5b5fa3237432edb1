// Packs catalogue files into the image that is linked into the program.
//
//     CompileCatalogue OUTPUT FILE.jsonl ...
//
// Every fault is printed as "file:line: text" and nothing is written then, so that a broken catalogue breaks the build.

#include "Catalogue/CatalogueSource.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace CompileCatalogue
{
using namespace Catalogue;

static bool ReadFiles(int Count, char** Names, std::vector<FSourceFile>& OutFiles, std::vector<FFault>& OutFaults)
{
	for (int Index = 0; Index < Count; ++Index)
	{
		std::ifstream Stream(Names[Index], std::ios::binary);
		if (!Stream)
		{
			std::fprintf(stderr, "%s: cannot be read\n", Names[Index]);
			return false;
		}
		const std::string Text{std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>()};
		OutFiles.push_back(ParseFile(Names[Index], Text, OutFaults));
	}
	return true;
}

static void Resolve(const std::vector<FSourceFile>& Files, std::vector<FFault>& OutFaults)
{
	std::unordered_map<std::string, ETarget> Entries;
	for (const FSourceFile& File : Files)
	{
		for (const FSourceOwner& Owner : File.Owners)
		{
			if (!Entries.emplace(Owner.Path, TargetOf(Owner.Kind)).second)
			{
				OutFaults.push_back({File.Name, Owner.Line, "'" + Owner.Path + "' is there twice"});
			}
			for (const FSourceFunction& Function : Owner.Functions)
			{
				Entries.emplace(Owner.Path + ":" + Function.Name, ETarget::Function);
			}
		}
	}
	for (const FSourceFile& File : Files)
	{
		for (const FSourceOwner& Owner : File.Owners)
		{
			VisitReferences(Owner,
				[&](const std::string& Path, ETarget Target, int Line)
				{
					const auto Found = Entries.find(Path);
					if (Found == Entries.end() || Found->second != Target)
					{
						OutFaults.push_back({File.Name, Line, "'" + Path + "' is not known"});
					}
				});
		}
	}
}

static int Run(int Count, char** Arguments)
{
	if (Count < 3)
	{
		std::fprintf(stderr, "usage: CompileCatalogue OUTPUT FILE.jsonl ...\n");
		return 2;
	}
	std::vector<FSourceFile> Files;
	std::vector<FFault> Faults;
	if (!ReadFiles(Count - 2, Arguments + 2, Files, Faults))
	{
		return 1;
	}
	Resolve(Files, Faults);
	for (const FFault& Fault : Faults)
	{
		std::fprintf(stderr, "%s\n", Fault.ToString().c_str());
	}
	if (!Faults.empty())
	{
		return 1;
	}
	const std::string Image = BuildImage(Files);
	std::ofstream Output(Arguments[1], std::ios::binary | std::ios::trunc);
	Output.write(Image.data(), static_cast<std::streamsize>(Image.size()));
	Output.close();
	return Output ? 0 : 1;
}
} // namespace CompileCatalogue

int main(int Count, char** Arguments)
{
	return CompileCatalogue::Run(Count, Arguments);
}
