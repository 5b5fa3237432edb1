#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Serialization/JsonSerializer.h"
#include "Standalone/JsonUtf8.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace JsonWriteTest
{
static std::string WriteNumber(const double Number)
{
	std::string Text;
	JsonUtf8::WriteValue(FJsonValueNumber(Number), Text);
	return Text;
}
} // namespace JsonWriteTest

TEST(JsonWrite, NumbersTakeTheirShortestForm)
{
	const std::pair<double, const char*> Cases[] = {
		{3.0, "3"},
		{0.5, "0.5"},
		{0.1, "0.1"},
		{-1.25, "-1.25"},
		{1e15, "1000000000000000"},
		{-99999999999999999.0, "-1e+17"},
		{0.0001, "0.0001"},
		{0.00001, "1e-05"},
		{123456789.5, "123456789.5"},
		{123456789012.0, "123456789012"},
		{9007199254740991.0, "9007199254740991"},
		{1e21, "1e+21"},
		{1.0 / 3.0, "0.3333333333333333"},
		{5e-324, "5e-324"},
		{-0.0, "-0"},
		{std::numeric_limits<double>::infinity(), "null"},
		{std::numeric_limits<double>::quiet_NaN(), "null"},
	};
	for (const auto& [Number, Expected] : Cases)
	{
		EXPECT_EQ(JsonWriteTest::WriteNumber(Number), Expected);
	}
}

TEST(JsonWrite, EveryNumberReadsBackAsItself)
{
	std::mt19937_64 Random(7);
	for (int32 Round = 0; Round < 20'000; ++Round)
	{
		const double Number = std::bit_cast<double>(Random());
		if (std::isfinite(Number))
		{
			TSharedPtr<FJsonValue> Value;
			FString Error;
			ASSERT_TRUE(JsonUtf8::ParseValue(JsonWriteTest::WriteNumber(Number), Value, Error)) << Number;
			EXPECT_EQ(Value->AsNumber(), Number);
		}
	}
}

TEST(JsonWrite, BrokenTextIsRepairedInUtf8)
{
	FString Text = TEXT("a");
	Text.AppendChar(TCHAR(0xD800));
	Text.AppendChar(TCHAR(0x1F600));
	Text.AppendChar(TCHAR(0x7FFFFFFF));
	Text += TEXT("\u00e9\"\n\x01");
	FJsonObject Object;
	Object.SetStringField(TEXT("k\""), Text);
	std::string Written;
	JsonUtf8::Write(Object, Written);
	EXPECT_EQ(Written, "{\"k\\\"\":\"a\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD\xC3\xA9\\\"\\n\\u0001\"}");
}

TEST(JsonWrite, PoliciesDifferInBlanksOnly)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	ASSERT_TRUE(JsonUtf8::Parse(R"({"a":1,"e":{},"f":[],"l":[true,{"x":null}]})", Object, Error));

	FString Condensed;
	const auto CondensedWriter = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Condensed);
	EXPECT_TRUE(FJsonSerializer::Serialize(Object.ToSharedRef(), CondensedWriter));
	EXPECT_EQ(ToUtf8(Condensed), R"({"a":1,"e":{},"f":[],"l":[true,{"x":null}]})");

	FString Pretty;
	EXPECT_TRUE(FJsonSerializer::Serialize(Object.ToSharedRef(), TJsonWriterFactory<>::Create(&Pretty)));
	EXPECT_EQ(ToUtf8(Pretty),
		"{\n\t\"a\": 1,\n\t\"e\": {},\n\t\"f\": [],\n\t\"l\": [\n\t\ttrue,\n\t\t{\n\t\t\t\"x\": null\n\t\t}\n\t]\n}");
}

TEST(JsonWrite, WriterWritesElementByElement)
{
	FString Text = TEXT("> ");
	const auto Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Text);
	Writer->WriteObjectStart();
	Writer->WriteValue(TEXT("int"), 3);
	Writer->WriteValue(TEXT("big"), MAX_int64);
	Writer->WriteValue(TEXT("text"), TEXT("x"));
	Writer->WriteValue(TEXT("flag"), false);
	Writer->WriteNull(TEXT("none"));
	Writer->WriteRawJSONValue(TEXT("raw"), TEXT("[1]"));
	Writer->WriteArrayStart(TEXT("list"));
	Writer->WriteValue(FString(TEXT("a")));
	Writer->WriteValue(0.5);
	Writer->WriteObjectStart();
	Writer->WriteObjectEnd();
	Writer->WriteArrayEnd();
	EXPECT_FALSE(Writer->GetIndentLevel() == 0);
	Writer->WriteObjectEnd();
	EXPECT_TRUE(Writer->Close());
	EXPECT_EQ(ToUtf8(Text),
		R"(> {"int":3,"big":9223372036854775807,"text":"x","flag":false,"none":null,"raw":[1],"list":["a",0.5,{}]})");
}

TEST(JsonWrite, UnclosedTextIsReported)
{
	FString Text;
	const auto Writer = TJsonWriterFactory<>::Create(&Text);
	Writer->WriteArrayStart();
	EXPECT_FALSE(Writer->Close());
}

TEST(JsonWrite, ValueIsWrittenUnderItsIdentifier)
{
	FString Text;
	const auto Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Text);
	Writer->WriteObjectStart();
	const TSharedPtr<FJsonValue> Value = MakeShared<FJsonValueString>(TEXT("v"));
	EXPECT_TRUE(FJsonSerializer::Serialize(Value, TEXT("k"), Writer, false));
	EXPECT_TRUE(FJsonSerializer::Serialize(TSharedPtr<FJsonValue>(), TEXT("n"), Writer, false));
	Writer->WriteObjectEnd();
	EXPECT_TRUE(Writer->Close());
	EXPECT_EQ(ToUtf8(Text), R"({"k":"v","n":null})");
}
