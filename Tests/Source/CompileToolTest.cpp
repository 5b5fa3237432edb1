#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_Event.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Populating.h"
#include "TestAssets.h"
#include "ToolResults.h"
#include "UObject/Package.h"

#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

namespace CompileToolTest
{
static Morvane::FToolResult Compile(const std::string& Paths = R"(["/Game/Tests/BP_Test"])")
{
	return *RunTool(Morvane::ToolInfo::ToolName_CompileBlueprint, R"({"blueprint_paths":)" + Paths + "}");
}

/** A second Blueprint in the project, of any kind, unsaved; dropped at the end. */
class FAnother
{
public:
	FAnother(const TCHAR* Name, const TCHAR* Parent, EBlueprintType Type = BPTYPE_Normal)
		: Blueprint(FKismetEditorUtilities::CreateBlueprint(FindObject<UClass>(nullptr, Parent),
			CreatePackage(*(FString(TEXT("/Game/Tests/")) + Name)), FName(Name), Type))
	{
	}
	~FAnother() { Blueprint->GetOutermost()->MarkAsGarbage(); }
	FAnother(const FAnother&) = delete;
	FAnother& operator=(const FAnother&) = delete;

	UBlueprint* const Blueprint;
};

/** The "success" of each Blueprint in the telemetry, after its path. */
static std::vector<std::string> Records(const Morvane::FToolResult& Result)
{
	std::vector<std::string> Lines;
	for (const TSharedPtr<FJsonValue>& Value :
		Result.GetDatas()->GetObjectField(TEXT("telemetry"))->GetArrayField(TEXT("blueprints")))
	{
		const TSharedPtr<FJsonObject>& Record = Value->AsObject();
		EXPECT_GE(Record->GetNumberField(TEXT("duration_ms")), 0.0);
		Lines.push_back(ToStd(Record->GetStringField(TEXT("path")))
			+ (Record->GetBoolField(TEXT("success")) ? " succeeded" : " failed"));
	}
	return Lines;
}

static UEdGraphPin* BeginPlayThen(const FBlueprintBuilder& Blueprint)
{
	return FBlueprintEditorUtils::FindOverrideForFunction(
		Blueprint.Get(), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")), TEXT("ReceiveBeginPlay"))
		->FindPin(TEXT("then"));
}

static void Connect(UEdGraphPin* From, UEdGraphPin* To)
{
	ASSERT_TRUE(From && To);
	ASSERT_TRUE(From->GetSchema()->TryCreateConnection(From, To));
}

/** Casts what a function of the Actor returns to a class. */
static FNodeHandle AddCast(const FBlueprintBuilder& Blueprint, const TCHAR* Getter, const TCHAR* Target)
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
	EXPECT_THAT(Warnings(Result), IsEmpty()) << "what nothing executes is a note";
	EXPECT_EQ(Blueprint.Folder().Read("Content/Tests/BP_Test.uatext"), Before);
	EXPECT_TRUE(Blueprint->GetOutermost()->IsDirty());
	EXPECT_EQ(Blueprint->Status, BS_Error);
}

TEST(CompileTool, EveryKindOfBlueprintIsCompiledAndSaved)
{
	const FBlueprintBuilder Blueprint;
	const CompileToolTest::FAnother Others[] = {{TEXT("WBP_Hud"), TEXT("/Script/UMG.UserWidget")},
		{TEXT("ABP_Walk"), TEXT("/Script/Engine.AnimInstance")},
		{TEXT("BTT_Wait"), TEXT("/Script/AIModule.BTTask_BlueprintBase")},
		{TEXT("BPI_Open"), TEXT("/Script/CoreUObject.Interface"), BPTYPE_Interface},
		{TEXT("BPL_Tools"), TEXT("/Script/Engine.BlueprintFunctionLibrary"), BPTYPE_FunctionLibrary},
		{TEXT("BPM_Loops"), TEXT("/Script/Engine.Actor"), BPTYPE_MacroLibrary}};
	std::string Paths;
	std::vector<std::string> Expected;
	for (const CompileToolTest::FAnother& Other : Others)
	{
		const std::string Path = ToStd(Other.Blueprint->GetOutermost()->GetName());
		Paths += (Paths.empty() ? "\"" : ",\"") + Path + "\"";
		Expected.push_back(Path + " succeeded");
	}
	const Morvane::FToolResult Result = CompileToolTest::Compile("[" + Paths + "]");
	EXPECT_THAT(Errors(Result), IsEmpty());
	EXPECT_THAT(Warnings(Result), IsEmpty());
	EXPECT_THAT(Successes(Result), ElementsAre("Successfully compiled and saved 6 Blueprint(s)"));
	EXPECT_THAT(CompileToolTest::Records(Result), testing::ElementsAreArray(Expected));
	for (const CompileToolTest::FAnother& Other : Others)
	{
		const FString Name = Other.Blueprint->GetName();
		EXPECT_TRUE(Blueprint.Folder().Exists("Content/Tests/" + ToStd(Name) + ".uatext")) << ToStd(Name);
		EXPECT_EQ(Other.Blueprint->Status, BS_UpToDate) << ToStd(Name);
	}
}

TEST(CompileTool, WhatCompilesIsSavedBesideWhatDoesNotAndWhatIsNoBlueprint)
{
	const FBlueprintBuilder Blueprint;
	TestAssets::Register();
	UTestAsset* const Thing = TestAssets::MakeAsset(TEXT("/Game/Tests/Thing"));
	ASSERT_EQ(ToStd(TestAssets::Save(Thing)), "");
	const CompileToolTest::FAnother Bad(TEXT("BP_Bad"), TEXT("/Script/Engine.Actor"));
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Bad.Blueprint, TEXT("bReplicates"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(Bad.Blueprint, Graph, true, nullptr);
	FGraphBuilder(FBlueprintEditorUtils::FindEventGraph(Bad.Blueprint))
		.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	const Morvane::FToolResult Result = CompileToolTest::Compile(
		R"(["/Game/Tests/BP_Bad", "/Game/Tests/Thing", "/Game/Tests/BP_Test", "/Game/Tests/BP_Test"])");
	EXPECT_FALSE(Result.WasSuccessful());
	EXPECT_THAT(Successes(Result), IsEmpty());
	EXPECT_THAT(Warnings(Result), ElementsAre("Compiled 2/4 Blueprint(s) successfully (2 failed)"));
	EXPECT_THAT(Errors(Result),
		ElementsAre("Failed to find or load blueprint: /Game/Tests/Thing",
			"[/Game/Tests/BP_Bad] The function 'bReplicates' has the name of a variable of the parent class 'Actor': "
			"bReplicates [Paths: /Game/Tests/BP_Bad.BP_Bad:bReplicates]",
			"[/Game/Tests/Thing] Failed to load Blueprint"));
	EXPECT_THAT(CompileToolTest::Records(Result),
		ElementsAre("/Game/Tests/BP_Bad failed", "/Game/Tests/Thing failed", "/Game/Tests/BP_Test succeeded",
			"/Game/Tests/BP_Test succeeded"));
	EXPECT_FALSE(Blueprint.Folder().Exists("Content/Tests/BP_Bad.uatext"));
	Thing->GetOutermost()->MarkAsGarbage();
}

TEST(CompileTool, ArgumentsThatAreNoListAreMissing)
{
	const FBlueprintBuilder Blueprint;
	for (const char* const Arguments :
		{"{}", R"({"blueprint_paths":"/Game/Tests/BP_Test"})", R"({"blueprint_paths":null})"})
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(
			Morvane::ToolInfo::ToolName_CompileBlueprint, Arguments);
		EXPECT_THAT(Errors(*Result), ElementsAre("Missing required field 'blueprint_paths'")) << Arguments;
	}
	const Morvane::FToolResult Nothing = CompileToolTest::Compile(R"(["", 3, null])");
	EXPECT_THAT(Errors(Nothing),
		ElementsAre("Failed to find or load blueprint: ", "Failed to find or load blueprint: ",
			"Failed to find or load blueprint: ", "Failed to compile all 3 Blueprint(s)", "[] Failed to load Blueprint",
			"[] Failed to load Blueprint", "[] Failed to load Blueprint"));
}

TEST(CompileTool, MessagesComeInTheSameOrderEachTime)
{
	const FBlueprintBuilder Blueprint;
	for (const TCHAR* const Name : {TEXT("One"), TEXT("Two"), TEXT("Three")})
	{
		Blueprint.AddVariable(Name, FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Struct));
		Blueprint.EventGraph().Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
		Blueprint.EventGraph().Call(TEXT("/Script/Engine.KismetArrayLibrary"), TEXT("Array_Length"));
	}
	const Morvane::FToolResult First = CompileToolTest::Compile();
	EXPECT_EQ(Errors(First).size(), 7U);
	for (int32 Times = 0; Times < 3; ++Times)
	{
		const Morvane::FToolResult Again = CompileToolTest::Compile();
		EXPECT_EQ(Errors(Again), Errors(First));
		EXPECT_EQ(Warnings(Again), Warnings(First));
	}
}

TEST(CompileTool, ABlueprintWhoseParentIsGoneIsReadAndEditedButDoesNotCompile)
{
	FBlueprintBuilder Blueprint;
	const auto Make = [](const char* Name, const char* Parent)
	{
		RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
			std::string(R"({"path":"/Game/Tests/)") + Name + R"(","blueprint_parent_class":)" + Parent + "}");
		const Morvane::FToolResult Result = CompileToolTest::Compile(std::string(R"(["/Game/Tests/)") + Name + R"("])");
		ASSERT_THAT(Errors(Result), IsEmpty());
	};
	Make("BP_Parent", R"({"type":"native","parent_path":"/Script/Engine.Actor"})");
	Make("BP_Child", R"({"type":"blueprint","parent_path":"/Game/Tests/BP_Parent"})");
	const std::string Before = Blueprint.Folder().Read("Content/Tests/BP_Child.uatext");
	for (const TCHAR* const Name : {TEXT("/Game/Tests/BP_Parent"), TEXT("/Game/Tests/BP_Child")})
	{
		FindPackage(nullptr, Name)->MarkAsGarbage();
	}
	CollectGarbage();
	std::filesystem::remove(Blueprint.Folder().Path() / "Content/Tests/BP_Parent.uatext");

	const std::string Child = R"(["/Game/Tests/BP_Child"])";
	EXPECT_THAT(Errors(CompileToolTest::Compile(Child)),
		ElementsAre("Failed to compile all 1 Blueprint(s)",
			"[/Game/Tests/BP_Child] Blueprint 'BP_Child' has no parent class: the class it was derived from is gone: "
			"'/Game/Tests/BP_Parent.BP_Parent_C'"));
	EXPECT_TRUE(RunTool(
		Morvane::ToolInfo::ToolName_BPCreateGraph, R"({"path":"/Game/Tests/BP_Child","functions":[{"name":"Open"}]})")
					->WasSuccessful());
	const std::string After = Blueprint.Folder().Read("Content/Tests/BP_Child.uatext");
	EXPECT_NE(After, Before);
	EXPECT_THAT(After, testing::ContainsRegex("ParentClass=.*BP_Parent_C")) << "what is saved still names the parent";
}
