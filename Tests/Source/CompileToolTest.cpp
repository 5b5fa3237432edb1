#include "BlueprintBuilder.h"
#include "BlueprintCompileOperation.h"
#include "EdGraph/EdGraphSchema.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_Event.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResults.h"
#include "UObject/Package.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace CompileToolTest
{
Morvane::FToolResult Compile(const std::string& Paths = R"(["/Game/Tests/BP_Test"])")
{
	Morvane::FToolResult Result = MakeResult();
	FBlueprintCompileOperation::Execute(*Json(R"({"blueprint_paths":)" + Paths + "}"), Result);
	return Result;
}

UEdGraphPin* BeginPlayThen(const FBlueprintBuilder& Blueprint)
{
	return FBlueprintEditorUtils::FindOverrideForFunction(
		Blueprint.Get(), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")), TEXT("ReceiveBeginPlay"))
		->FindPin(TEXT("then"));
}

void Connect(UEdGraphPin* From, UEdGraphPin* To)
{
	ASSERT_TRUE(From && To);
	ASSERT_TRUE(From->GetSchema()->TryCreateConnection(From, To));
}

/** Casts what a function of the Actor returns to a class. */
FNodeHandle AddCast(const FBlueprintBuilder& Blueprint, const TCHAR* Getter, const TCHAR* Target)
{
	FGraphNodeCreator<UK2Node_DynamicCast> Creator(*Blueprint.EventGraph().Get());
	UK2Node_DynamicCast* const Node = Creator.CreateNode(false);
	Node->TargetType = FindObject<UClass>(nullptr, Target);
	Creator.Finalize();
	Connect(BeginPlayThen(Blueprint), Node->FindPin(TEXT("execute")));
	const FNodeHandle Source = Blueprint.EventGraph().Call(TEXT("/Script/Engine.Actor"), Getter);
	Connect(Source.Output(TEXT("ReturnValue")), Node->GetCastSourcePin());
	return {Node};
}
} // namespace CompileToolTest

TEST(CompileTool, WarningsAreToldAndTheBlueprintIsSaved)
{
	FBlueprintBuilder Blueprint;
	CompileToolTest::AddCast(Blueprint, TEXT("K2_GetRootComponent"), TEXT("/Script/Engine.Pawn"));
	Blueprint->MarkPackageDirty();
	const Morvane::FToolResult Result = CompileToolTest::Compile();
	EXPECT_THAT(Errors(Result), IsEmpty());
	EXPECT_THAT(Successes(Result), ElementsAre("Successfully compiled and saved 1 Blueprint(s) with 1 warning(s)"));
	EXPECT_THAT(Warnings(Result),
		ElementsAre(
			"[/Game/Tests/BP_Test] 'Pawn' does not inherit from 'Scene Component' ( Cast To Pawn would always fail). "
			"[Nodes: Cast To Pawn]"));
	EXPECT_FALSE(Blueprint->GetOutermost()->IsDirty());
	EXPECT_EQ(Blueprint->Status, BS_UpToDateWithWarnings);
}

TEST(CompileTool, NotesAreDropped)
{
	FBlueprintBuilder Blueprint;
	CompileToolTest::AddCast(Blueprint, TEXT("K2_GetRootComponent"), TEXT("/Script/Engine.ActorComponent"));
	const Morvane::FToolResult Result = CompileToolTest::Compile();
	EXPECT_THAT(Successes(Result), ElementsAre("Successfully compiled and saved 1 Blueprint(s)"));
	EXPECT_THAT(Warnings(Result), IsEmpty());
	EXPECT_THAT(Errors(Result), IsEmpty());
}

TEST(CompileTool, ErrorsNamePinsAndNodesAndNothingIsSaved)
{
	FBlueprintBuilder Blueprint;
	const FNodeHandle Delay = Blueprint.EventGraph().Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("Delay"));
	CompileToolTest::Connect(CompileToolTest::BeginPlayThen(Blueprint), Delay.Input(TEXT("execute")));
	Delay.Input(TEXT("Duration"))->DefaultValue = TEXT("soon");
	Blueprint.EventGraph().Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	Blueprint->MarkPackageDirty();
	const std::string Before = Blueprint.Folder().Read("Content/Tests/BP_Test.uatext");
	const Morvane::FToolResult Result = CompileToolTest::Compile();
	EXPECT_THAT(Errors(Result),
		ElementsAre("Failed to compile all 1 Blueprint(s)",
			"[/Game/Tests/BP_Test] The value of pin Duration on node Delay is invalid: 'soon' is not a valid number "
			"[Nodes: Delay] [Pin 'Duration' on node 'Delay']"));
	EXPECT_THAT(Warnings(Result),
		ElementsAre("[/Game/Tests/BP_Test] Print String is never executed: nothing is connected to execute "
					"[Nodes: Print String] [Pin 'execute' on node 'Print String']"));
	EXPECT_EQ(Blueprint.Folder().Read("Content/Tests/BP_Test.uatext"), Before);
	EXPECT_TRUE(Blueprint->GetOutermost()->IsDirty());
	EXPECT_EQ(Blueprint->Status, BS_Error);
}
