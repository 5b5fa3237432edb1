#include "Dom/JsonObject.h"
#include "Containers/StringConv.h"
#include "Standalone/JsonUtf8.h"

#include <gtest/gtest.h>

#include <limits>

namespace JsonObjectTest
{
static TSharedPtr<FJsonObject> Parse(const std::string& Text)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	EXPECT_TRUE(JsonUtf8::Parse(Text, Object, Error)) << Text << ": " << ToUtf8(Error);
	return Object;
}

static std::string Write(const FJsonObject& Object)
{
	std::string Text;
	JsonUtf8::Write(Object, Text);
	return Text;
}

template <typename IntType>
std::string ReadAs(const FJsonObject& Object)
{
	IntType Number = 77;
	return Object.TryGetNumberField(TEXT("n"), Number) ? std::to_string(Number) : Number == 77 ? "no" : "changed";
}
} // namespace JsonObjectTest

TEST(JsonObject, TextsNumbersAndFlagsTurnIntoOneAnother)
{
	struct FCase
	{
		const char* Json;
		const char* Text;
		const char* Number;
		const char* Flag;
	};
	const FCase Cases[] = {
		{R"("1.5")", "1.5", "1.5", "true"},
		{R"("12 doors")", "12 doors", "no", "true"},
		{R"("yes")", "yes", "no", "true"},
		{R"("")", "", "no", "false"},
		{"2", "2", "2", "true"},
		{"0", "0", "0", "false"},
		{"true", "true", "1", "true"},
		{"false", "false", "0", "false"},
		{R"(["1"])", "no", "no", "no"},
		{R"({"a":1})", "no", "no", "no"},
		{"null", "no", "no", "no"},
	};
	for (const FCase& Case : Cases)
	{
		const TSharedPtr<FJsonObject> Object = JsonObjectTest::Parse(std::string("{\"v\":") + Case.Json + "}");
		FString Text = TEXT("no");
		double Number = -5.0;
		bool bFlag = false;
		Object->TryGetStringField(TEXT("v"), Text);
		EXPECT_EQ(ToUtf8(Text), Case.Text) << Case.Json;
		const bool bNumber = Object->TryGetNumberField(TEXT("v"), Number);
		EXPECT_EQ(bNumber ? ToUtf8(FString::SanitizeFloat(Number, 0)) : "no", Case.Number) << Case.Json;
		EXPECT_TRUE(bNumber || Number == -5.0) << Case.Json;
		const bool bIsFlag = Object->TryGetBoolField(TEXT("v"), bFlag);
		EXPECT_EQ(bIsFlag ? (bFlag ? "true" : "false") : "no", std::string(Case.Flag)) << Case.Json;
	}
}

TEST(JsonObject, GettersAnswerEmptyValuesWhereNothingFits)
{
	const TSharedPtr<FJsonObject> Object = JsonObjectTest::Parse(R"({"s":"text","n":2.5,"a":[]})");
	EXPECT_EQ(Object->GetNumberField(TEXT("s")), 0.0);
	EXPECT_TRUE(Object->GetStringField(TEXT("a")).IsEmpty());
	EXPECT_FALSE(Object->GetBoolField(TEXT("a")));
	EXPECT_EQ(Object->GetArrayField(TEXT("s")).Num(), 0);
	ASSERT_TRUE(Object->GetObjectField(TEXT("s")).IsValid()) << "an object without members, as in the engine";
	EXPECT_TRUE(Object->GetObjectField(TEXT("s"))->Values.IsEmpty());
	EXPECT_TRUE(Object->GetField<EJson::Array>(TEXT("s"))->IsNull());
	EXPECT_EQ(Object->GetIntegerField(TEXT("n")), 2);
}

TEST(JsonObject, NamesRespectCaseAndKeepTheirPlace)
{
	FJsonObject Object;
	Object.SetNumberField(TEXT("Path"), 1);
	Object.SetNumberField(TEXT("path"), 2);
	Object.SetStringField(TEXT("z"), TEXT("last"));
	Object.SetBoolField(TEXT("Path"), true);
	EXPECT_EQ(JsonObjectTest::Write(Object), R"({"Path":true,"path":2,"z":"last"})");
	Object.RemoveField(TEXT("Path"));
	Object.RemoveField(TEXT("PATH"));
	Object.SetField(TEXT("Path"), nullptr);
	EXPECT_EQ(JsonObjectTest::Write(Object), R"({"path":2,"z":"last","Path":null})");
}

TEST(JsonObject, IntegersRoundAndRefuseWhatDoesNotFit)
{
	struct FCase
	{
		const char* Number;
		const char* AsInt32;
		const char* AsInt64;
	};
	const FCase Cases[] = {
		{"0", "0", "0"},
		{"2.5", "3", "3"},
		{"-2.5", "-3", "-3"},
		{"-0.4", "0", "0"},
		{"255.4", "255", "255"},
		{"255.5", "256", "256"},
		{"2147483647", "2147483647", "2147483647"},
		{"2147483648", "no", "2147483648"},
		{"-2147483648", "-2147483648", "-2147483648"},
		{"9223372036854775807", "no", "no"},
		{"-9223372036854775808", "no", "-9223372036854775808"},
		{"1e300", "no", "no"},
	};
	for (const FCase& Case : Cases)
	{
		const TSharedPtr<FJsonObject> Object = JsonObjectTest::Parse(std::string("{\"n\":") + Case.Number + "}");
		EXPECT_EQ(JsonObjectTest::ReadAs<int32>(*Object), Case.AsInt32) << Case.Number;
		EXPECT_EQ(JsonObjectTest::ReadAs<int64>(*Object), Case.AsInt64) << Case.Number;
	}
}

TEST(JsonObject, StringArrayIsAllOrNothing)
{
	const TSharedPtr<FJsonObject> Object = JsonObjectTest::Parse(R"({"good":["a","b"],"mixed":["a",null],"text":"a"})");
	TArray<FString> Strings = {TEXT("kept")};
	EXPECT_FALSE(Object->TryGetStringArrayField(TEXT("mixed"), Strings));
	EXPECT_FALSE(Object->TryGetStringArrayField(TEXT("text"), Strings));
	EXPECT_EQ(Strings.Num(), 1);
	EXPECT_TRUE(Object->TryGetStringArrayField(TEXT("good"), Strings));
	EXPECT_EQ(Strings.Num(), 2);
}

TEST(JsonObject, CopyIsEqualAndIndependent)
{
	const TSharedPtr<FJsonObject> Source = JsonObjectTest::Parse(R"({"a":[1,{"b":"c"}],"n":null,"t":true})");
	TSharedPtr<FJsonObject> Copy;
	FJsonObject::Duplicate(Source, Copy);
	const FJsonValueObject Left(Source);
	EXPECT_TRUE(FJsonValue::CompareEqual(Left, FJsonValueObject(Copy)));
	Copy->GetArrayField(TEXT("a"))[1]->AsObject()->SetStringField(TEXT("b"), TEXT("C"));
	EXPECT_FALSE(FJsonValue::CompareEqual(Left, FJsonValueObject(Copy)));
	EXPECT_EQ(JsonObjectTest::Write(*Source), R"({"a":[1,{"b":"c"}],"n":null,"t":true})");
	EXPECT_TRUE(FJsonValue::CompareEqual(FJsonValueObject(JsonObjectTest::Parse(R"({"x":1,"y":2})")),
		FJsonValueObject(JsonObjectTest::Parse(R"({"y":2,"x":1})"))));
}
