#include "JsonReading.h"

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Standalone/JsonUtf8.h"

#include <gtest/gtest.h>

namespace JsonReadingTest
{
static TSharedPtr<FJsonObject> Parse(const std::string& Text)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	EXPECT_TRUE(JsonUtf8::Parse(Text, Object, Error)) << Text << ": " << ToUtf8(Error);
	return Object;
}
} // namespace JsonReadingTest

TEST(JsonReading, TakesAValueForWhatItIsAndNothingElse)
{
	const TSharedPtr<FJsonObject> Object = JsonReadingTest::Parse(
		R"({"string":"1","number":1,"bool":true,"array":["1"],"object":{},"null":null})");
	for (const TCHAR* Name :
		{TEXT("string"), TEXT("number"), TEXT("bool"), TEXT("array"), TEXT("object"), TEXT("null"), TEXT("none")})
	{
		const FString Key(Name);
		const auto Is = [&Key](const TCHAR* Other) { return Key.Equals(Other, ESearchCase::CaseSensitive); };
		const std::string Label = ToUtf8(Key);

		FString String = TEXT("kept");
		EXPECT_EQ(MorvaneJson::TryGetStringField(*Object, Name, String), Is(TEXT("string"))) << Label;
		EXPECT_TRUE(String.Equals(Is(TEXT("string")) ? TEXT("1") : TEXT("kept"))) << Label;
		double Number = -5.0;
		EXPECT_EQ(MorvaneJson::TryGetNumberField(*Object, Name, Number), Is(TEXT("number"))) << Label;
		EXPECT_EQ(Number, Is(TEXT("number")) ? 1.0 : -5.0) << Label;
		int32 Whole = -5;
		EXPECT_EQ(MorvaneJson::TryGetNumberField(*Object, Name, Whole), Is(TEXT("number"))) << Label;
		EXPECT_EQ(Whole, Is(TEXT("number")) ? 1 : -5) << Label;
		bool bBool = false;
		EXPECT_EQ(MorvaneJson::TryGetBoolField(*Object, Name, bBool), Is(TEXT("bool"))) << Label;
		EXPECT_EQ(bBool, Is(TEXT("bool"))) << Label;
		if (const TSharedPtr<FJsonValue> Value = Object->TryGetField(Name))
		{
			EXPECT_EQ(MorvaneJson::AsObject(*Value).IsValid(), Is(TEXT("object"))) << Label;
			EXPECT_EQ(MorvaneJson::AsArray(*Value).Num(), Is(TEXT("array")) ? 1 : 0) << Label;
		}
		const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
		EXPECT_EQ(Object->TryGetArrayField(Key, Array), Is(TEXT("array"))) << Label;
		EXPECT_EQ(Array != nullptr, Is(TEXT("array"))) << Label;
		const TSharedPtr<FJsonObject>* Child = nullptr;
		EXPECT_EQ(Object->TryGetObjectField(Key, Child), Is(TEXT("object"))) << Label;
		EXPECT_EQ(Child != nullptr, Is(TEXT("object"))) << Label;
		EXPECT_EQ(Object->HasField(Key), !Is(TEXT("none"))) << Label;
		EXPECT_EQ(Object->HasTypedField<EJson::Null>(Key), Is(TEXT("null"))) << Label;
	}
}
