#include "ModificationReadRegistry.h"
#include "MorvaneToolkitBlueprintModule.h"
#include "MorvaneToolkitModule.h"
#include "ToolInfo.h"
#include "ToolResults.h"
#include "Tools/ToolAdapter.h"
#include "Tools/ToolTable.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace ToolFrameTest
{
int32 NumOperationRuns = 0;

static void Operation(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	++NumOperationRuns;
	Result.SetData(TEXT("heard"), Args.GetStringField(TEXT("say")));
}

using FTestTool = TToolAdapter<Morvane::ToolInfo::ToolName_CompileBlueprint, &Operation>;

/** Runs one tool with a text and answers its result; completion is part of what must hold. */
static Morvane::FToolResult Run(const std::string& Arguments)
{
	FTestTool Tool(TEXT(""), TEXT(""), TEXT("{}"));
	const Morvane::FToolCommand Command(TEXT("1"), TEXT("test"), FromUtf8(Arguments));
	const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
	int32 NumCompleted = 0;
	Tool.Execute(Command, Result,
		[&](const TSharedPtr<Morvane::FToolResult>& Completed)
		{
			EXPECT_EQ(Completed, Result);
			++NumCompleted;
		});
	EXPECT_EQ(NumCompleted, 1);
	return *Result;
}

/** Keeps what it is asked, and refuses one name. */
class FPickyExecutor final : public IToolExecutor
{
public:
	explicit FPickyExecutor(const TCHAR* InRefused)
		: Refused(InRefused)
	{
	}
	bool RegisterTool(const FString& Name, const TSharedPtr<ITool>& Tool) override
	{
		const bool bAccepted = !Name.Equals(Refused, ESearchCase::CaseSensitive);
		if (bAccepted)
		{
			Names.Add(Name);
		}
		return bAccepted;
	}
	void UnregisterTool(const FString& Name) override { Unregistered.Add(Name); }
	TArray<FString> GetToolNames() const override { return Names; }
	TSharedPtr<ITool> FindTool(const FString&) const override { return nullptr; }
	void ExecuteTool(
		const Morvane::FToolCommand&, const TSharedPtr<Morvane::FToolResult>&, const FOnToolCompleted&) override
	{
	}

	TArray<FString> Names;
	TArray<FString> Unregistered;

private:
	const FString Refused;
};

/** Puts another executor in the place of the present one for the length of a test. */
class FExecutorGuard
{
public:
	explicit FExecutorGuard(const TSharedPtr<IToolExecutor>& Executor)
		: Before(FMorvaneToolkitModule::GetToolExecutor())
		, NamesBefore(FModificationReadRegistry::Get().GetToolNames())
	{
		FMorvaneToolkitModule::SetToolExecutor(Executor);
		for (const FString& Name : NamesBefore)
		{
			FModificationReadRegistry::Get().UnregisterReadTool(Name);
		}
	}
	~FExecutorGuard()
	{
		FMorvaneToolkitModule::SetToolExecutor(Before);
		if (!NamesBefore.IsEmpty())
		{
			// The module that was loaded before the test gets its read entries back.
			FMorvaneToolkitModule::SetToolExecutor(MakeShared<FPickyExecutor>(TEXT("")));
			FMorvaneToolkitBlueprintModule().StartupModule();
			FMorvaneToolkitModule::SetToolExecutor(Before);
		}
	}

private:
	const TSharedPtr<IToolExecutor> Before;
	const TArray<FString> NamesBefore;
};

static TArray<FString> TableNames(bool bReadOnly)
{
	TArray<FString> Names;
	for (const FToolRow& Row : ToolTable::GetRows())
	{
		if (!bReadOnly || Row.Kind == EToolKind::Read)
		{
			Names.Add(Row.Name);
		}
	}
	return Names;
}
} // namespace ToolFrameTest

TEST(ToolAdapter, OnlyAnObjectReachesTheOperation)
{
	for (const char* const Bad : {"", " ", "[]", "[{}]", "null", "\"text\"", "3", "{", "{\"say\":}", "{} trailing"})
	{
		ToolFrameTest::NumOperationRuns = 0;
		const Morvane::FToolResult Result = ToolFrameTest::Run(Bad);
		EXPECT_THAT(Errors(Result), ElementsAre("Invalid JSON command", "Failed to parse command JSON")) << Bad;
		EXPECT_FALSE(Result.GetDatas().IsValid()) << Bad;
		EXPECT_EQ(ToolFrameTest::NumOperationRuns, 0) << Bad;
	}
	const Morvane::FToolResult Result = ToolFrameTest::Run(R"({"say":"hello"})");
	EXPECT_TRUE(Result.WasSuccessful());
	EXPECT_EQ(JsonText(Result.GetDatas()), R"({"heard":"hello"})");
}

TEST(ToolAdapter, ValidationJudgesTheTextAlone)
{
	const ToolFrameTest::FTestTool Tool(TEXT(""), TEXT(""), TEXT(""));
	for (const auto& [Text, bGood] :
		{std::pair("{}", true), {"{\"a\":1}", true}, {"", false}, {"[]", false}, {"{", false}})
	{
		Morvane::FToolResult Result = MakeResult();
		Tool.Validate(FromUtf8(Text), Result);
		EXPECT_THAT(Errors(Result),
			bGood ? testing::Matcher<std::vector<std::string>>(IsEmpty()) : ElementsAre("Invalid JSON format"))
			<< Text;
	}
}

TEST(ToolAdapter, MetadataGeneratorSleepsUntilAskedAndRunsOnce)
{
	for (const auto& [Answer, Expected] :
		{std::pair(TEXT(""), "{}"), {TEXT("x"), "{}"}, {TEXT("{\"a\":1}"), "{\"a\":1}"}})
	{
		int32 NumRuns = 0;
		ToolFrameTest::FTestTool Tool(TEXT(""), TEXT(""), TEXT("stored"),
			[&NumRuns, Made = FString(Answer)]
			{
				++NumRuns;
				return Made;
			});
		EXPECT_EQ(ToStd(Tool.GetMetadata()), "stored");
		Tool.InvalidateMetadata();
		EXPECT_EQ(ToStd(Tool.GetMetadata()), Expected);
		EXPECT_EQ(ToStd(Tool.GetMetadata()), Expected);
		EXPECT_EQ(NumRuns, 1);
	}
}

TEST(ToolTable, MetadataOfEachToolIsAJsonObjectThatSaysItsKind)
{
	for (const FToolRow& Row : ToolTable::GetRows())
	{
		const TSharedRef<FJsonObject> Metadata = Json(ToStd(ToolTable::MakeMetadata(Row)));
		EXPECT_EQ(Metadata->GetStringField(TEXT("data_type")), TEXT("Blueprint")) << ToStd(Row.Name);
		EXPECT_FALSE(Metadata->GetStringField(TEXT("operation_type")).IsEmpty()) << ToStd(Row.Name);
		EXPECT_EQ(Metadata->HasField(TEXT("sub_operation")), Row.Kind == EToolKind::Read) << ToStd(Row.Name);
		EXPECT_EQ(ToStd(ToolTable::MakeTool(Row)->GetName()), ToStd(Row.Name));
	}
}

TEST(BlueprintModule, WithoutExecutorNothingIsPublished)
{
	const ToolFrameTest::FExecutorGuard Guard(nullptr);
	FMorvaneToolkitBlueprintModule Module;
	Module.StartupModule();
	EXPECT_TRUE(Module.GetRegisteredTools().IsEmpty());
	EXPECT_TRUE(Module.GetToolHolders().IsEmpty());
	EXPECT_TRUE(FModificationReadRegistry::Get().GetToolNames().IsEmpty());
}

TEST(BlueprintModule, RefusedToolKeepsItsHolderAndItsReadEntry)
{
	const FString Refused = ToolTable::GetRows()[0].Name;
	const TSharedPtr<ToolFrameTest::FPickyExecutor> Executor = MakeShared<ToolFrameTest::FPickyExecutor>(*Refused);
	const ToolFrameTest::FExecutorGuard Guard(Executor);
	FMorvaneToolkitBlueprintModule Module;
	Module.StartupModule();

	TArray<FString> Accepted = ToolFrameTest::TableNames(false);
	Accepted.RemoveAt(0);
	EXPECT_EQ(ToStdList(Module.GetRegisteredTools()), ToStdList(Accepted));
	EXPECT_EQ(ToStdList(Executor->Names), ToStdList(Accepted));
	EXPECT_EQ(Module.GetToolHolders().Num(), ToolTable::GetRows().Num());
	EXPECT_TRUE(Module.GetToolHolders()[0].IsValid());
	EXPECT_EQ(ToStdList(FModificationReadRegistry::Get().GetToolNames()), ToStdList(ToolFrameTest::TableNames(true)));

	Module.ShutdownModule();
	EXPECT_EQ(ToStdList(Executor->Unregistered), ToStdList(Accepted));
	EXPECT_TRUE(Module.GetRegisteredTools().IsEmpty());
	for (const TSharedPtr<ITool>& Holder : Module.GetToolHolders())
	{
		EXPECT_FALSE(Holder.IsValid());
	}
	EXPECT_TRUE(FModificationReadRegistry::Get().GetToolNames().IsEmpty());
}

TEST(BlueprintModule, ShutdownWithoutExecutorLeavesAllInPlace)
{
	const ToolFrameTest::FExecutorGuard Guard(MakeShared<ToolFrameTest::FPickyExecutor>(TEXT("")));
	FMorvaneToolkitBlueprintModule Module;
	Module.StartupModule();
	const int32 NumTools = Module.GetRegisteredTools().Num();
	FMorvaneToolkitModule::SetToolExecutor(nullptr);
	Module.ShutdownModule();
	EXPECT_EQ(Module.GetRegisteredTools().Num(), NumTools);
	EXPECT_EQ(ToStdList(FModificationReadRegistry::Get().GetToolNames()), ToStdList(ToolFrameTest::TableNames(true)));
}

TEST(ToolExecutor, RefusesWhatItCouldNotRunAndNamesWhatItDoesNotKnow)
{
	const TSharedPtr<IToolExecutor> Before = FMorvaneToolkitModule::GetToolExecutor();
	FMorvaneToolkitModule Toolkit;
	Toolkit.StartupModule();
	const TSharedPtr<IToolExecutor> Executor = FMorvaneToolkitModule::GetToolExecutor();
	const TSharedPtr<ITool> Tool = MakeShared<ToolFrameTest::FTestTool>(TEXT(""), TEXT(""), TEXT(""));
	EXPECT_TRUE(Executor->RegisterTool(TEXT("b"), Tool));
	EXPECT_TRUE(Executor->RegisterTool(TEXT("a"), Tool));
	EXPECT_FALSE(Executor->RegisterTool(TEXT("b"), Tool));
	EXPECT_FALSE(Executor->RegisterTool(TEXT(""), Tool));
	EXPECT_FALSE(Executor->RegisterTool(TEXT("c"), nullptr));
	EXPECT_THAT(ToStdList(Executor->GetToolNames()), ElementsAre("b", "a"));

	const auto Run = [&](const TCHAR* Name)
	{
		const Morvane::FToolCommand Command(TEXT("1"), Name, TEXT("{}"));
		const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
		bool bCompleted = false;
		Executor->ExecuteTool(Command, Result, [&](const TSharedPtr<Morvane::FToolResult>&) { bCompleted = true; });
		EXPECT_TRUE(bCompleted);
		return Errors(*Result);
	};
	EXPECT_THAT(Run(TEXT("a")), IsEmpty());
	EXPECT_THAT(Run(TEXT("A")), ElementsAre("Unknown tool 'A'"));
	Executor->UnregisterTool(TEXT("a"));
	EXPECT_THAT(Run(TEXT("a")), ElementsAre("Unknown tool 'a'"));

	Toolkit.ShutdownModule();
	EXPECT_FALSE(FMorvaneToolkitModule::GetToolExecutor().IsValid());
	FMorvaneToolkitModule::SetToolExecutor(Before);
}
