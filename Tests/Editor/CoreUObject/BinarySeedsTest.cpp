#include "BinaryTestValues.h"
#include "TablePackages.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include <gtest/gtest.h>

// What the fuzzing program begins with is made by the writer of packages. With MORVANE_WRITE_SEEDS set the files are
// made anew.

TEST(BinarySeeds, AreWhatTheWriterMakes)
{
	const std::filesystem::path Folder = MORVANE_SOURCE_DIR "/Tests/Fuzz/Seeds/BinaryFuzz";
	std::map<std::string, std::string> Wanted;
	for (const std::string Engine : {"4.13", "4.20", "4.27", "5.1", "5.7"})
	{
		Wanted[Engine] = SmallBlueprint::Make(FPackageLayout::Of(Engine)).Write().Bytes;
	}
	for (const TablePackages::FTable& Table : TablePackages::All(FPackageLayout::Of("5.6")))
	{
		Wanted["5.6-" + Table.Name] = Table.Bytes;
	}
	for (std::size_t Index = 0; Index < BinaryTestValues::All().size(); ++Index)
	{
		const SmallBlueprint::FExtra Extra = BinaryTestValues::All()[Index];
		Wanted["4.25-values" + std::to_string(Index)] =
			SmallBlueprint::Make(FPackageLayout::Of("4.25"), Extra).Write().Bytes;
		Wanted["5.5-values" + std::to_string(Index)] =
			SmallBlueprint::Make(FPackageLayout::Of("5.5"), Extra).Write().Bytes;
	}
	for (const auto& [Name, Bytes] : Wanted)
	{
		if (std::getenv("MORVANE_WRITE_SEEDS"))
		{
			std::filesystem::create_directories(Folder);
			std::ofstream(Folder / Name, std::ios::binary) << Bytes;
		}
		std::ifstream File(Folder / Name, std::ios::binary);
		EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(File), {}) == Bytes) << Name;
	}
}
