#pragma once

#include "Dom/JsonObject.h"
#include "Host/Process.h"
#include "Standalone/JsonUtf8.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

/** The program run on a project whose files the engine's editor wrote. */
namespace BinaryAssetsTest
{
namespace fs = std::filesystem;

/** Every file of the project with its bytes, but for the lock. */
inline std::map<std::string, std::string> FilesOf(const FTemporaryFolder& Project)
{
	std::map<std::string, std::string> Files;
	for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Project.Path()))
	{
		const std::string Relative = fs::relative(Entry.path(), Project.Path()).string();
		if (Entry.is_regular_file() && Relative != ".editor.lock")
		{
			Files[Relative] = Project.Read(Relative);
		}
	}
	return Files;
}

struct FAnswer
{
	bool bSuccess = false;
	std::string Json;
	std::string Errors;
	std::string Warnings;
};

inline std::string Join(const FJsonObject& Result, const TCHAR* Field)
{
	std::string Text;
	const TArray<TSharedPtr<FJsonValue>>* Values = nullptr;
	if (Result.TryGetArrayField(Field, Values))
	{
		for (const TSharedPtr<FJsonValue>& Value : *Values)
		{
			Text += ToUtf8(Value->AsString()) + "\n";
		}
	}
	return Text;
}

inline FAnswer Read(const std::string& Line)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	FAnswer Answer;
	Answer.Json = Line;
	if (!JsonUtf8::Parse(Line, Object, Error) || !Object)
	{
		ADD_FAILURE() << Line;
		return Answer;
	}
	Answer.bSuccess = Object->GetBoolField(TEXT("success"));
	Answer.Errors = Join(*Object, TEXT("errors"));
	Answer.Warnings = Join(*Object, TEXT("warnings"));
	return Answer;
}

/** The calls in one process, which is what a server does with them. */
inline std::vector<FAnswer> RunCalls(
	const FTemporaryFolder& Project, const std::vector<std::pair<std::string, std::string>>& Calls)
{
	std::string Script;
	for (const auto& [Tool, Arguments] : Calls)
	{
		Script += R"({"tool":")" + Tool + R"(","arguments":)" + Arguments + "}\n";
	}
	FTemporaryFolder Elsewhere;
	Elsewhere.Write("script.jsonl", Script);
	const FProcessResult Result = RunMorvane(
		{"run", (Elsewhere.Path() / "script.jsonl").string(), "--project", Project.Path()});
	std::vector<FAnswer> Answers;
	std::istringstream Lines(Result.Output);
	for (std::string Line; std::getline(Lines, Line);)
	{
		Answers.push_back(Read(Line));
	}
	EXPECT_EQ(Answers.size(), Calls.size()) << Result.Output << Result.Errors;
	Answers.resize(Calls.size());
	return Answers;
}

inline FAnswer Call(const FTemporaryFolder& Project, const std::string& Tool, const std::string& Arguments)
{
	return RunCalls(Project, {{Tool, Arguments}}).front();
}
} // namespace BinaryAssetsTest
