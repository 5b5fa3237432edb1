#include <filesystem>
#include <fstream>
#include <regex>

#include <gtest/gtest.h>

#include "Containers/StringConv.h"
#include "Session/EditorModules.h"
#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"

namespace RegisteredClassesTest
{
struct FImplementedClass
{
	std::string Path;
	std::string File;
};

/** Every class that a source of the editor implements, as "/Script/Engine.Actor". */
static std::vector<FImplementedClass> FindImplementedClasses()
{
	namespace fs = std::filesystem;
	const std::regex Line(R"re(^IMPLEMENT_EDITOR_CLASS\([UAI](\w+), "([^"]+)")re");
	std::vector<FImplementedClass> Found;
	for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(fs::path(MORVANE_SOURCE_DIR) / "Editor"))
	{
		if (Entry.path().extension() != ".cpp" || Entry.path().string().find("/Testing/") != std::string::npos)
		{
			continue;
		}
		std::ifstream Source(Entry.path());
		std::smatch Match;
		for (std::string Text; std::getline(Source, Text);)
		{
			if (std::regex_search(Text, Match, Line))
			{
				Found.push_back({Match[2].str() + "." + Match[1].str(), Entry.path().filename().string()});
			}
		}
	}
	return Found;
}
} // namespace RegisteredClassesTest

TEST(RegisteredClasses, EveryImplementedClassIsFoundByItsPath)
{
	EditorModules::StartTools();
	EditorModules::StartEditor();
	const std::vector<RegisteredClassesTest::FImplementedClass> Classes =
		RegisteredClassesTest::FindImplementedClasses();
	ASSERT_GT(Classes.size(), 150u);
	for (const RegisteredClassesTest::FImplementedClass& Implemented : Classes)
	{
		const UClass* const Class = FindObject<UClass>(nullptr, FromUtf8(Implemented.Path));
		EXPECT_TRUE(Class && Class->HasAnyClassFlags(CLASS_Native))
			<< Implemented.Path << " of " << Implemented.File << " is missing in its module's list of classes";
	}
}
