#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "GraphBuilder.h"
#include "Standalone/JsonUtf8.h"
#include "ToolResult.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

/** A result of no tool in particular. */
inline Morvane::FToolResult MakeResult()
{
	return Morvane::FToolResult(Morvane::FToolCommand(TEXT("test"), TEXT("test"), TEXT("{}")));
}

/** The object that a test writes as JSON; a mistake in it fails the test and gives an empty one. */
inline TSharedRef<FJsonObject> Json(const std::string& Text)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	if (!JsonUtf8::Parse(Text, Object, Error))
	{
		ADD_FAILURE() << Text << ": " << ToStd(Error);
		Object = MakeShared<FJsonObject>();
	}
	return Object.ToSharedRef();
}

inline TSharedPtr<FJsonValue> JsonValue(const std::string& Text)
{
	TSharedPtr<FJsonValue> Value;
	FString Error;
	EXPECT_TRUE(JsonUtf8::ParseValue(Text, Value, Error)) << Text << ": " << ToStd(Error);
	return Value;
}

/** One line of JSON; "null" for null. */
inline std::string JsonText(const TSharedPtr<FJsonObject>& Object)
{
	std::string Text;
	if (!Object)
	{
		return "null";
	}
	JsonUtf8::Write(*Object, Text);
	return Text;
}

inline std::vector<std::string> ToStdList(const TArray<FString>& Texts)
{
	std::vector<std::string> List;
	for (const FString& Text : Texts)
	{
		List.push_back(ToStd(Text));
	}
	return List;
}

inline std::vector<std::string> Errors(const Morvane::FToolResult& Result)
{
	return ToStdList(Result.GetErrorMessages());
}

inline std::vector<std::string> Warnings(const Morvane::FToolResult& Result)
{
	return ToStdList(Result.GetWarningMessages());
}

inline std::vector<std::string> Successes(const Morvane::FToolResult& Result)
{
	return ToStdList(Result.GetSuccessMessages());
}

/** The "telemetry" object as text, "null" where there is none. */
inline std::string Telemetry(const Morvane::FToolResult& Result)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	const bool bHas = Result.GetDatas() && Result.GetDatas()->TryGetObjectField(TEXT("telemetry"), Object);
	return bHas ? JsonText(*Object) : "null";
}
