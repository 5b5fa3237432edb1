#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "Host/Process.h"
#include "TemporaryFolder.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace MenuCommandTest
{
static FProcessResult Run(const FTemporaryFolder& Project, std::vector<std::string> Words)
{
	Words.push_back("--project");
	Words.push_back(Project.Path().string());
	return RunMorvane(Words, {});
}
} // namespace MenuCommandTest

TEST(MenuCommand, ListsWhatIsAskedFor)
{
	struct FRow
	{
		std::vector<std::string> Filter;
		std::string Output;
	};
	const FTemporaryFolder Project;
	for (const FRow& Row : {FRow{{"--title", "print STRING"}, "Print String\tDevelopment\tK2Node_CallFunction\n"},
			 FRow{{"--category", "Utilities|Flow", "--node-class", "K2Node_IfThenElse"},
				 "Branch\tUtilities|Flow Control\tK2Node_IfThenElse\n"},
			 FRow{{"--title", "Print String", "--node-class", "K2Node_IfThenElse"}, "\n"},
			 FRow{{"--json", "--title", "no such title"}, "[]\n"}})
	{
		std::vector<std::string> Words = {"menu"};
		Words.insert(Words.end(), Row.Filter.begin(), Row.Filter.end());
		const FProcessResult Listed = MenuCommandTest::Run(Project, Words);
		EXPECT_EQ(Listed.Status, 0) << Listed.Errors;
		EXPECT_EQ(Listed.Output, Row.Output) << Row.Filter[1];
	}
}

TEST(MenuCommand, JsonTellsAllOfAnAction)
{
	const FTemporaryFolder Project;
	const FProcessResult Listed = MenuCommandTest::Run(Project, {"menu", "--json", "--title", "Cast To PawnMovement"});
	EXPECT_EQ(Listed.Status, 0) << Listed.Errors;
	EXPECT_THAT(Listed.Output,
		StartsWith(
			R"([{"title":"Cast To PawnMovementComponent","category":"Utilities|Casting","node_class":"K2Node_DynamicCast",)"
			R"("keywords":)"));
	EXPECT_THAT(Listed.Output, HasSubstr(R"("tooltip":"Gives access to the object as PawnMovementComponent)"));
	// Both casts: of an object, of a class; each on a line of its own.
	EXPECT_EQ(std::count(Listed.Output.begin(), Listed.Output.end(), '\n'), 2);
}

TEST(MenuCommand, AProjectsBlueprintsAreInTheList)
{
	const FTemporaryFolder Project;
	const FProcessResult Created = MenuCommandTest::Run(Project,
		{"call", "bp_create_asset",
			R"({"path":"/Game/BP_Door","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})"});
	ASSERT_EQ(Created.Status, 0) << Created.Output;
	const FProcessResult Listed = MenuCommandTest::Run(Project, {"menu", "--title", "BP_Door"});
	EXPECT_EQ(Listed.Output,
		"Cast To BP_Door\tUtilities|Casting\tK2Node_DynamicCast\n"
		"Cast To BP_Door Class\tUtilities|Casting\tK2Node_ClassDynamicCast\n");
}

TEST(MenuCommand, MisuseIsToldAndListsNothing)
{
	const FTemporaryFolder Project;
	const std::filesystem::path File = Project.Path() / "file.txt";
	std::ofstream(File) << "no project";
	for (const std::vector<std::string>& Words :
		{std::vector<std::string>{"menu", "--colour"}, std::vector<std::string>{"menu", "--title"},
			std::vector<std::string>{"menu", "--title", "Print String", "--project", File.string()}})
	{
		const FProcessResult Misused = RunMorvane(Words);
		EXPECT_EQ(Misused.Status, 2) << Words.back();
		EXPECT_EQ(Misused.Output, "") << Words.back();
		EXPECT_NE(Misused.Errors, "") << Words.back();
	}
}
