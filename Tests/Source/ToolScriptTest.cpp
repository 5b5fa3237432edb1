#include "Tools/ToolScript.h"

#include "BlueprintBuilder.h"
#include "Containers/StringConv.h"
#include "Misc/FileHelper.h"
#include "MorvaneToolkitModule.h"
#include "Populating.h"
#include "ToolResults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

namespace ToolScriptTest
{
static std::vector<std::string> Play(const FString& Script)
{
	EditorModules::StartTools();
	return ToStdList(ToolScript::Play(Script, *FMorvaneToolkitModule::GetToolExecutor()));
}

/** One call that deletes what is not there, and what is expected of it. */
static std::vector<std::string> PlayDeletion(const std::string& Expected)
{
	return Play(FString(UTF8_TO_TCHAR(
		(R"({"tool":"delete_blueprint","arguments":{"path":"/Game/None"},"expect":)" + Expected + "}").c_str())));
}
} // namespace ToolScriptTest

/** The same files are the editor's automation tests, see Docs/InTheEditor.md. */
TEST(ToolScript, ScriptsOfTheFolderPass)
{
	const FBlueprintBuilder Project;
	int32 NumPlayed = 0;
	for (const auto& Entry : std::filesystem::directory_iterator(MORVANE_SOURCE_DIR "/Tests/Scripts"))
	{
		FString Script;
		ASSERT_TRUE(FFileHelper::LoadFileToString(Script, UTF8_TO_TCHAR(Entry.path().c_str())));
		EXPECT_THAT(ToolScriptTest::Play(Script), IsEmpty()) << Entry.path();
		++NumPlayed;
	}
	EXPECT_EQ(NumPlayed, 3);
}

TEST(ToolScript, TellsWhereAResultDiffers)
{
	const FBlueprintBuilder Project;
	EXPECT_THAT(
		ToolScriptTest::PlayDeletion(R"({"success":false,"errors":["Blueprint does not exist: *"]})"), IsEmpty());
	EXPECT_THAT(ToolScriptTest::PlayDeletion(R"({"success":true,"data":{}})"),
		ElementsAre("line 1: delete_blueprint.success is false", "line 1: delete_blueprint.data is nothing"));
	EXPECT_THAT(ToolScriptTest::PlayDeletion(R"({"errors":["blueprint *"],"warnings":["one"]})"),
		ElementsAre(R"(line 1: delete_blueprint.errors[0] is "Blueprint does not exist: /Game/None")",
			"line 1: delete_blueprint.warnings is []"));
	EXPECT_THAT(ToolScriptTest::Play(TEXT("# a note\n\nno call\n{\"tool\":\"x\"}")),
		ElementsAre("line 3: the line is no JSON object", "line 4: the line has no tool, arguments and expect"));
}
