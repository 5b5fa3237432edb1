// A result that is too long stays true, stays JSON, and says what is missing.

#include "ToolFace/ResultCut.h"
#include "Dom/JsonObject.h"
#include "Standalone/JsonUtf8.h"
#include "ToolResults.h"

using testing::HasSubstr;

namespace ResultCutTest
{
constexpr std::size_t Room = 20000;

static std::string Texts(const char* Text, int Count)
{
	std::string List;
	for (int Index = 0; Index < Count; ++Index)
	{
		List += std::string(Index > 0 ? "," : "") + "\"" + Text + std::to_string(Index) + "\"";
	}
	return "[" + List + "]";
}

static std::string Nodes(int Count)
{
	std::string List;
	for (int Index = 0; Index < Count; ++Index)
	{
		List += std::string(Index > 0 ? "," : "") + R"({"id":)" + std::to_string(Index)
			+ R"(,"title":"A \"node\" \\ é","pins":[{"name":"a"},{"name":"b"}]})";
	}
	return "[" + List + "]";
}

static std::string Quoted(const std::string& Text)
{
	std::string Escaped;
	for (const char Char : Text)
	{
		Escaped += Char == '"' || Char == '\\' ? std::string("\\") + Char : std::string(1, Char);
	}
	return "\"" + Escaped + "\"";
}

static std::string Result(const std::string& Messages, const std::string& Data, const std::string& Modifications)
{
	return R"({"success":true,"errors":[],"warnings":["one"],"messages":)" + Messages + R"(,"data":)" + Data
		+ R"(,"modifications":)" + Modifications + "}";
}

static std::string Change(const char* Name, const std::string& Content)
{
	return R"({"tool":"read_blueprint_function","parameters":{"function_name":[")" + std::string(Name)
		+ R"("]},"content":)" + Content + "}";
}
} // namespace ResultCutTest

using namespace ResultCutTest;

TEST(ResultCut, WhatFitsStaysAsItIs)
{
	const std::string Short = Result("[]", "{}", "[]");
	EXPECT_EQ(ResultCut::Shorten(Short, Short.size()), Short);
}

TEST(ResultCut, EveryKindOfLongResultFitsAndSaysWhatIsMissing)
{
	const struct
	{
		const char* Label;
		std::string Json;
		const char* Note;
	} Rows[] = {
		{"messages", Result(Texts("Created new function graph: F", 5000), "{}", "[]"), "more entries are not shown"},
		{"a long text", Result("[]", R"({"note":")" + std::string(50000, 'x') + "\"}", "[]"), "more bytes"},
		{"text of many bytes a letter", Result("[]", "{\"note\":" + Quoted("é" + std::string(30000, '\\')) + "}", "[]"),
			"more bytes"},
		{"a document in a text",
			Result("[]", R"({"content":)" + Quoted(R"({"nodes":)" + Nodes(3000) + "}") + "}", "[]"),
			"more entries are not shown"},
		{"many members", Result("[]", R"({"a":{"b":)" + Nodes(3000) + R"(},"count":"7"})", "[]"), R"("count":"7")"},
		{"one content", Result("[]", "{}", "[" + Change("F", R"({"graphs":)" + Nodes(2000) + "}") + "]"),
			"more entries are not shown"},
		{"two contents",
			Result("[]", "{}",
				"[" + Change("First", R"({"graphs":)" + Nodes(2000) + "}") + ","
					+ Change("Second", R"({"graphs":)" + Nodes(2000) + "}") + "]"),
			R"("function_name":["Second"])"},
		{"nested lists", Result("[]", R"({"l":[[[[)" + Nodes(3000).substr(1) + "]]]}", "[]"), "not shown"},
	};
	for (const auto& Row : Rows)
	{
		const std::string Short = ResultCut::Shorten(Row.Json, Room);
		EXPECT_LE(Short.size(), Room) << Row.Label;
		EXPECT_GT(Short.size(), Room / 3) << Row.Label << ": the room is used";
		EXPECT_THAT(Short, HasSubstr(Row.Note)) << Row.Label;
		const TSharedRef<FJsonObject> Object = Json(Short);
		EXPECT_TRUE(Object->GetBoolField(TEXT("success"))) << Row.Label;
		EXPECT_EQ(Object->GetArrayField(TEXT("warnings")).Num(), 1) << Row.Label;
		EXPECT_TRUE(Object->GetStringField(TEXT("cut")).StartsWith(TEXT("The whole result has "))) << Row.Label;
	}
}

TEST(ResultCut, ATextIsCutBetweenLetters)
{
	for (const char* const Before : {"", "a", "ab", "abc"})
	{
		std::string Long = Before;
		for (int Index = 0; Index < 20000; ++Index)
		{
			Long += "\xF0\x9F\x98\x80";
		}
		const std::string Short = ResultCut::Shorten(Result("[]", R"({"content":)" + Quoted(Long) + "}", "[]"), Room);
		EXPECT_LE(Short.size(), Room);
		std::string Fault;
		EXPECT_TRUE(JsonUtf8::Check(Short, Fault)) << Fault;
		EXPECT_THAT(Short, HasSubstr("more bytes)"));
		EXPECT_EQ(Short.find("\xEF\xBF\xBD"), std::string::npos) << "no half letter was mended into a mark";
	}
}

TEST(ResultCut, ADocumentInATextIsStillADocument)
{
	const std::string Short = ResultCut::Shorten(
		Result("[]", R"({"content":)" + Quoted(R"({"nodes":)" + Nodes(3000) + R"(,"name":"G"})") + "}", "[]"), Room);
	const TSharedRef<FJsonObject> Document = Json(
		ToStd(Json(Short)->GetObjectField(TEXT("data"))->GetStringField(TEXT("content"))));
	const TArray<TSharedPtr<FJsonValue>>& Shown = Document->GetArrayField(TEXT("nodes"));
	EXPECT_GT(Shown.Num(), 50);
	EXPECT_EQ(Document->GetStringField(TEXT("name")), FString(TEXT("G")));
	EXPECT_EQ(Shown.Last()->AsObject()->GetStringField(TEXT("cut")),
		FString::Printf(TEXT("%d more entries are not shown"), 3000 - Shown.Num() + 1));
}
