#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Serialization/JsonSerializer.h"
#include "Standalone/JsonUtf8.h"

#include <gtest/gtest.h>

namespace JsonReadTest
{
/** Reads Text and writes it again; the error, in angle brackets, where it cannot be read. */
static std::string Reread(const std::string& Text)
{
	TSharedPtr<FJsonValue> Value;
	FString Error;
	if (!JsonUtf8::ParseValue(Text, Value, Error))
	{
		return "<" + ToUtf8(Error) + ">";
	}
	std::string Written;
	JsonUtf8::WriteValue(*Value, Written);
	return Written;
}

static std::string Nested(const int32 Depth)
{
	return std::string(static_cast<std::size_t>(Depth), '[') + std::string(static_cast<std::size_t>(Depth), ']');
}
} // namespace JsonReadTest

TEST(JsonRead, ValidTextKeepsItsMeaning)
{
	struct FCase
	{
		const char* Text;
		const char* Expected;
	};
	const FCase Cases[] = {
		{"{}", "{}"},
		{" [ ] ", "[]"},
		{"null", "null"},
		{"true", "true"},
		{" false\r\n", "false"},
		{"\"x\"", "\"x\""},
		{"[1,-0,0.5,1e3,1E-2,-12.25]", "[1,-0,0.5,1000,0.01,-12.25]"},
		{"[9007199254740993]", "[9007199254740992]"},
		{"[12345678901234567890123]", "[1.2345678901234568e+22]"},
		{"[1.7976931348623157e308,5e-324,1e-400]", "[1.7976931348623157e+308,5e-324,0]"},
		{R"({"b":1,"a":{"z":[],"y":{}},"":null})", R"({"b":1,"a":{"z":[],"y":{}},"":null})"},
		{R"({"a":1,"b":2,"a":3})", R"({"a":3,"b":2})"},
		{R"({"a":1,"A":2})", R"({"a":1,"A":2})"},
		{R"(["\u0041\n\/\\\"\u00e9\ud83d\ude00"])", "[\"A\\n/\\\\\\\"\xC3\xA9\xF0\x9F\x98\x80\"]"},
		{"[\"\\u0000\\u001f\x7f\"]", "[\"\\u0000\\u001f\x7f\"]"},
		{R"({"\u0061b":1})", R"({"ab":1})"},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(JsonReadTest::Reread(Case.Text), Case.Expected) << Case.Text;
	}
}

TEST(JsonRead, FaultsAreRefusedWithTheirPlace)
{
	struct FCase
	{
		const char* Text;
		const char* Error;
	};
	const FCase Cases[] = {
		{"", "The text is empty (line 1, character 1)"},
		{"  \n ", "The text is empty (line 1, character 1)"},
		{"[\"\\ud800\"]", "A string holds a bad escape sequence or a lone surrogate (line 1, character 2)"},
		{"{\"a\":1,\n \"\\udc00\":2}",
			"A string holds a bad escape sequence or a lone surrogate (line 2, character 2)"},
		{"[\"\\ud83dx\"]", "A string holds a bad escape sequence or a lone surrogate (line 1, character 2)"},
		{"[\"\\x\"]", "A string holds a bad escape sequence or a lone surrogate (line 1, character 2)"},
		{"[\"a\tb\"]", "A string holds a control character that is not escaped (line 1, character 4)"},
		{"[\"\xC3\xA9\", \"\xC3\x28\"]", "The text is not valid UTF-8 (line 1, character 8)"},
		{"\xED\xA0\x80", "The text is not valid UTF-8 (line 1, character 1)"},
		{"[1,2", "An array or object is not closed (line 1, character 5)"},
		{"[\"a", "A string has no closing quote (line 1, character 4)"},
		{"[1e999]", "A number is malformed or out of range (line 1, character 2)"},
		{"[01]", "A number is malformed or out of range (line 1, character 2)"},
		{"[1.]", "A number is malformed or out of range (line 1, character 2)"},
		{"[-]", "A number is malformed or out of range (line 1, character 2)"},
		{"[nul]", "Unknown word, expected a value (line 1, character 2)"},
		{"[truex]", "Unknown word, expected a value (line 1, character 2)"},
		{"{} {}", "There is text after the value (line 1, character 4)"},
		{"1 2", "There is text after the value (line 1, character 3)"},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(JsonReadTest::Reread(Case.Text), std::string("<") + Case.Error + ">") << Case.Text;
	}
}

TEST(JsonRead, LaxTextIsRefused)
{
	const char* const Texts[] = {"[1,]", "[,1]", "[1 2]", "[1,,2]", "{\"a\":1,}", "{\"a\" 1}", "{\"a\":}", "{a:1}",
		"{'a':1}", "{\"a\":1 \"b\":2}", "{1:2}", "[NaN]", "[Infinity]", "[+1]", "[.5]", "[0x10]", "[1e]", "[1e+]",
		"[--1]", "[TRUE]", "[tru]", "[fals]", "[nulll]", "// c\n[]", "[]//", "[1}", "{]", "]", "}", "[\"a\"\"b\"]",
		"\"a\" x", "truefalse", "nul", "-", "[1,2}", "{\"a\":[}", "[\"\\u12\"]", "[\"\\u12G4\"]", "\xEF\xBB\xBF[]",
		"[\x01]", "[\"a\\\"]", "{\"a\"}", "{\"a\":1", "[[1]", "{{}}", "[1:2]", ":", ","};
	for (const char* const Text : Texts)
	{
		TSharedPtr<FJsonValue> Value = MakeShared<FJsonValueNull>();
		FString Error;
		EXPECT_FALSE(JsonUtf8::ParseValue(Text, Value, Error)) << Text;
		EXPECT_FALSE(Value.IsValid()) << Text;
		EXPECT_FALSE(Error.IsEmpty()) << Text;
		std::string CheckError;
		EXPECT_FALSE(JsonUtf8::Check(Text, CheckError)) << Text;
		EXPECT_EQ(CheckError, ToUtf8(Error)) << Text;
	}
}

TEST(JsonRead, EveryTruncationIsRefused)
{
	const std::string Whole =
		R"({"name":"B\u00e9\ud83d\ude00","list":[1.5,-2,true,false,null,{"x":[]}],"o":{"k":"v"}})";
	std::string Error;
	ASSERT_TRUE(JsonUtf8::Check(Whole, Error)) << Error;
	for (std::size_t Length = 0; Length < Whole.size(); ++Length)
	{
		EXPECT_FALSE(JsonUtf8::Check(Whole.substr(0, Length), Error)) << Whole.substr(0, Length);
	}
}

TEST(JsonRead, DepthIsBounded)
{
	std::string Error;
	EXPECT_TRUE(JsonUtf8::Check(JsonReadTest::Nested(JsonUtf8::MaxDepth), Error)) << Error;
	for (const int32 Depth : {JsonUtf8::MaxDepth + 1, 100'000})
	{
		EXPECT_EQ(JsonReadTest::Reread(JsonReadTest::Nested(Depth)),
			"<Arrays and objects are nested too deep (line 1, character 513)>");
	}
	EXPECT_FALSE(JsonUtf8::Check(std::string(100'000, '['), Error));
	std::string Objects;
	for (int32 Level = 0; Level < 100'000; ++Level)
	{
		Objects += "{\"a\":";
	}
	EXPECT_FALSE(JsonUtf8::Check(Objects + "1" + std::string(100'000, '}'), Error));
}

TEST(JsonRead, ReaderTellsLineAndCharacter)
{
	const TSharedRef<TJsonReader<>> Reader = TJsonReaderFactory<>::Create(TEXT("{\n\t\"caf\u00e9\": [1,\n\t\t2 3]\n}"));
	TSharedPtr<FJsonObject> Object;
	EXPECT_FALSE(FJsonSerializer::Deserialize(Reader, Object));
	EXPECT_FALSE(Object.IsValid());
	EXPECT_EQ(Reader->GetLineNumber(), 3u);
	EXPECT_TRUE(Reader->GetErrorMessage().EndsWith(TEXT("(line 3, character 3)"))) << ToUtf8(Reader->GetErrorMessage());
}

TEST(JsonRead, RootMustBeOfTheTypeAskedFor)
{
	TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	const TSharedRef<TJsonReader<>> ArrayReader = TJsonReaderFactory<>::Create(TEXT("[1]"));
	EXPECT_FALSE(FJsonSerializer::Deserialize(ArrayReader, Object));
	EXPECT_FALSE(Object.IsValid());
	EXPECT_EQ(ToUtf8(ArrayReader->GetErrorMessage()), "The text is not a JSON object (line 1, character 1)");

	TArray<TSharedPtr<FJsonValue>> Array;
	EXPECT_FALSE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("{}")), Array));
	EXPECT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("[1,\"a\"]")), Array));
	EXPECT_EQ(Array.Num(), 2);

	TSharedPtr<FJsonValue> Value;
	EXPECT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("7")), Value));
	EXPECT_EQ(Value->AsNumber(), 7.0);
}

TEST(JsonRead, TextThatUtf8CannotSayIsRefused)
{
	for (const TCHAR Bad : {TCHAR(0xD800), TCHAR(0xDFFF), TCHAR(0x110000)})
	{
		FString Text = TEXT("{\"a\":\"");
		Text.AppendChar(Bad);
		Text += TEXT("\"}");
		const TSharedRef<TJsonReader<>> Reader = TJsonReaderFactory<>::Create(Text);
		TSharedPtr<FJsonObject> Object;
		EXPECT_FALSE(FJsonSerializer::Deserialize(Reader, Object));
		EXPECT_EQ(ToUtf8(Reader->GetErrorMessage()), "The text is not valid UTF-8 (line 1, character 7)");
	}
}
