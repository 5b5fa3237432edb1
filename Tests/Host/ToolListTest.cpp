#include <fstream>
#include <set>

#include <gtest/gtest.h>

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Standalone/JsonUtf8.h"
#include "ToolFace/ToolSchema.h"
#include "Tools/ToolTable.h"

// A tool is known in four places: the table that registers it, the schema that clients see, the examples that the
// documentation plays, and the file that bears its name. One that is missing in a place would be offered by half.

namespace ToolListTest
{
static std::set<std::string> ToolsOfTable()
{
	std::set<std::string> Names;
	for (const FToolRow& Row : ToolTable::GetRows())
	{
		EXPECT_TRUE(Names.insert(ToUtf8(FString(Row.Name))).second)
			<< "twice in the table: " << ToUtf8(FString(Row.Name));
	}
	return Names;
}

static std::set<std::string> ToolsWithSchema()
{
	std::set<std::string> Names;
	for (const FToolSchema* const Schema : ToolSchemas::All())
	{
		EXPECT_TRUE(Names.insert(std::string(Schema->Name)).second) << "two schemas of " << Schema->Name;
	}
	return Names;
}

static std::set<std::string> ToolsWithExample()
{
	std::set<std::string> Names;
	std::ifstream Examples(MORVANE_SOURCE_DIR "/Docs/ToolExamples.jsonl");
	for (std::string Line; std::getline(Examples, Line);)
	{
		TSharedPtr<FJsonValue> Value;
		FString Error;
		EXPECT_TRUE(JsonUtf8::ParseValue(Line, Value, Error)) << Line;
		Names.insert(Value ? ToUtf8(Value->AsObject()->GetStringField(TEXT("tool"))) : std::string());
	}
	return Names;
}
} // namespace ToolListTest

TEST(ToolList, TableSchemasAndExamplesNameTheSameTools)
{
	const std::set<std::string> Table = ToolListTest::ToolsOfTable();
	EXPECT_EQ(Table.size(), 19u);
	EXPECT_EQ(ToolListTest::ToolsWithSchema(), Table);
	EXPECT_EQ(ToolListTest::ToolsWithExample(), Table);
}

TEST(ToolList, EachSchemaDescribesArgumentsInTheFileOfItsToolsName)
{
	for (const FToolSchema* const Schema : ToolSchemas::All())
	{
		const std::string File = std::string("Host/ToolFace/Schemas/") + std::string(Schema->Name) + ".cpp";
		EXPECT_TRUE(std::ifstream(MORVANE_SOURCE_DIR "/" + File).good()) << File << " is missing";
		TSharedPtr<FJsonValue> Input;
		FString Error;
		ASSERT_TRUE(JsonUtf8::ParseValue(Schema->Input, Input, Error)) << Schema->Name << ToUtf8(Error);
		const TSharedPtr<FJsonObject>* Properties = nullptr;
		ASSERT_TRUE(Input->AsObject()->TryGetObjectField(TEXT("properties"), Properties)) << Schema->Name;
		EXPECT_GT((*Properties)->Values.Num(), 0) << Schema->Name;
	}
}
