#include "ModificationReadRegistry.h"
#include "ToolResults.h"

using testing::ElementsAre;

namespace ToolResultTest
{
/** A reader for the length of a test. It keeps the parameters that it was given. */
class FReadTool
{
public:
	FReadTool(const TCHAR* InName, const TCHAR* InContent, const TCHAR* Error = TEXT(""))
		: Name(InName)
	{
		FModificationReadRegistry::Get().RegisterReadTool(Name, TEXT("Test"),
			[this, Content = FString(InContent), Reason = FString(Error)](
				const TSharedPtr<FJsonObject>& Parameters, Morvane::FToolResult& Result)
			{
				Asked.push_back(JsonText(Parameters));
				Parameters->SetStringField(TEXT("written"), TEXT("by the reader"));
				if (!Reason.IsEmpty())
				{
					Result.AddErrorMessage(Reason);
				}
				return Content;
			});
	}
	~FReadTool() { FModificationReadRegistry::Get().UnregisterReadTool(Name); }
	FReadTool(const FReadTool&) = delete;
	FReadTool& operator=(const FReadTool&) = delete;

	std::vector<std::string> Asked;

private:
	const FString Name;
};

static std::string Content(const Morvane::FToolResult& Result, int32 Index)
{
	return ToStd(Result.GetModifications()[Index].Content);
}
} // namespace ToolResultTest

TEST(ToolResult, MessagesKeepTheirOrderAndErrorsDecide)
{
	Morvane::FToolResult Result = MakeResult();
	Result.AddWarningMessage(TEXT("w1")).AddSuccessMessage(TEXT("s")).AddWarningMessage(TEXT("w2"));
	EXPECT_TRUE(Result.WasSuccessful());
	Result.AddErrorMessage(TEXT("e2")).AddErrorMessage(TEXT("e1"));
	EXPECT_FALSE(Result.WasSuccessful());
	EXPECT_THAT(Warnings(Result), ElementsAre("w1", "w2"));
	EXPECT_THAT(Errors(Result), ElementsAre("e2", "e1"));
	EXPECT_THAT(Successes(Result), ElementsAre("s"));
}

TEST(ToolResult, DataComesWithTheFirstSetAndMayBeChangedInPlace)
{
	Morvane::FToolResult Result = MakeResult();
	EXPECT_FALSE(Result.GetDatas().IsValid());
	const TSharedPtr<FJsonObject> Telemetry = MakeShared<FJsonObject>();
	Result.SetData(TEXT("count"), FString(TEXT("1"))).SetData(TEXT("telemetry"), Telemetry);
	Telemetry->SetNumberField(TEXT("late"), 2);
	Result.GetDatas()->SetStringField(TEXT("count"), TEXT("3"));
	EXPECT_EQ(JsonText(Result.GetDatas()), R"({"count":"3","telemetry":{"late":2}})");
}

TEST(ToolResult, FinalizingReadsEachTrackedChangeAgain)
{
	ToolResultTest::FReadTool First(TEXT("read_first"), TEXT(R"({"name":"A"})"));
	ToolResultTest::FReadTool Second(TEXT("read_second"), TEXT(R"({"name":"B"})"));
	Morvane::FToolResult Result = MakeResult();
	Result.TrackModification(TEXT("read_second"), Json(R"({"path":"/Game/B"})"))
		.TrackModification(TEXT("read_first"), Json(R"({"path":"/Game/A"})"))
		.TrackModification(TEXT("read_nothing"), Json("{}"))
		.TrackModification(TEXT("read_first"), nullptr)
		.FinalizeModifications()
		.FinalizeModifications();

	ASSERT_EQ(Result.GetModifications().Num(), 3);
	EXPECT_EQ(ToolResultTest::Content(Result, 0), R"({"name":"B"})");
	EXPECT_EQ(ToolResultTest::Content(Result, 1), R"({"name":"A"})");
	EXPECT_EQ(ToolResultTest::Content(Result, 2), "");
	EXPECT_THAT(First.Asked, ElementsAre(R"({"path":"/Game/A","finalize_modifications":true})"));
	EXPECT_EQ(JsonText(Result.GetModifications()[1].Parameters), R"({"path":"/Game/A"})");

	Result.TrackModification(TEXT("read_first"), Json("{}"));
	EXPECT_EQ(Result.GetModifications().Num(), 3) << "the list is closed";
}

TEST(ToolResult, FailedReadingDoesNotFailTheEdit)
{
	ToolResultTest::FReadTool Failing(TEXT("read_failing"), TEXT("{}"), TEXT("Blueprint does not exist: \"X\""));
	ToolResultTest::FReadTool Partial(TEXT("read_partial"), TEXT(R"({"items":[]})"), TEXT("one item is odd"));
	Morvane::FToolResult Result = MakeResult();
	Result.TrackModification(TEXT("read_failing"), Json("{}"))
		.TrackModification(TEXT("read_partial"), Json("{}"))
		.FinalizeModifications();
	EXPECT_TRUE(Result.WasSuccessful());
	EXPECT_EQ(ToolResultTest::Content(Result, 0), R"({"error":"Blueprint does not exist: \"X\""})");
	EXPECT_EQ(ToolResultTest::Content(Result, 1), R"({"items":[]})");
}
