// A Blueprint's path is understood in one place: every tool takes every spelling, and means the same asset by it.

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "K2Node_SpawnActorFromClass.h"
#include "Populating.h"
#include "Standalone/EditorFaults.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace OnePathTest
{
const char* const Spellings[] = {"/Game/Tests/BP_Test", "Content/Tests/BP_Test", "/Game/Tests/BP_Test.BP_Test_C",
	"/Game/Tests/BP_Test_C", "//Game//Tests//BP_Test", "\\\\Game\\\\Tests\\\\BP_Test", "Game/Tests/BP_Test.uatext",
	"BP_Test", "bp_test_C", "/game/tests/bp_test"};

static std::string Parent(const std::string& Path)
{
	return R"("blueprint_parent_class":{"type":"blueprint","parent_path":")" + Path + "\"}";
}

static std::string MakeActor(const std::string& Path)
{
	const TSharedPtr<Morvane::FToolResult> Made = RunTool(TEXT("bp_create_asset"),
		R"({"path":")" + Path
			+ R"(","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})");
	EXPECT_THAT(Errors(*Made), IsEmpty());
	return Path;
}
} // namespace OnePathTest

using namespace OnePathTest;

TEST(OnePath, EveryToolTakesEverySpelling)
{
	FPopulating Case;
	int32 Number = 0;
	for (const std::string Path : Spellings)
	{
		const std::string Id = std::to_string(Number++);
		const std::pair<const TCHAR*, std::string> Calls[] = {
			{TEXT("bp_populate_graph"), R"("graph_name":"EventGraph","nodes":[)" + EventNode("e", "ReceiveTick") + "]"},
			{TEXT("bp_create_graph"), R"("functions":[{"name":"F)" + Id + "\"}]"},
			{TEXT("read_blueprint_function"), R"("function_name":"F)" + Id + "\""},
			{TEXT("read_blueprint_schema"), R"("x":1)"},
		};
		for (const auto& [Tool, Rest] : Calls)
		{
			const TSharedPtr<Morvane::FToolResult> Result = RunTool(Tool, R"({"path":")" + Path + "\"," + Rest + "}");
			EXPECT_THAT(Errors(*Result), IsEmpty()) << ToStd(Tool) << " " << Path;
			for (const Morvane::FTrackedModification& Change : Result->GetModifications())
			{
				EXPECT_EQ(ToStd(Change.Parameters->GetStringField(TEXT("path"))), "/Game/Tests/BP_Test") << Path;
			}
		}
		const TSharedPtr<Morvane::FToolResult> Compiled = RunTool(
			TEXT("compile_blueprint"), R"({"blueprint_paths":[")" + Path + "\"]}");
		EXPECT_THAT(Errors(*Compiled), IsEmpty()) << Path;
		const TSharedPtr<Morvane::FToolResult> Child = RunTool(
			TEXT("bp_create_asset"), R"({"path":"/Game/Tests/BP_PathChild)" + Id + "\"," + Parent(Path) + "}");
		EXPECT_THAT(Errors(*Child), IsEmpty()) << Path;
	}
	for (int32 Index = 0; Index < Number; ++Index)
	{
		EXPECT_NE(Case.Blueprint->FunctionGraphs.FindByPredicate([Index](const UEdGraph* Graph)
					  { return Graph->GetName() == FString::Printf(TEXT("F%d"), Index); }),
			nullptr);
	}
	const TSharedPtr<Morvane::FToolResult> Deleted = RunTool(TEXT("delete_blueprint"), R"({"path":"BP_PathChild0"})");
	EXPECT_THAT(Successes(*Deleted), ElementsAre("Successfully deleted Blueprint: /Game/Tests/BP_PathChild0"));
}

TEST(OnePath, AReadOnlyFileIsSeenUnderEverySpelling)
{
	FPopulating Case;
	const EditorFaults::FRefuseCheckOut Fault(TEXT("held by another"));
	for (const std::string Path : Spellings)
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(TEXT("bp_populate_graph"),
			R"({"path":")" + Path + R"(","graph_name":"EventGraph","nodes":[{"menu_title":"Branch"}]})");
		EXPECT_THAT(
			Errors(*Result), ElementsAre(StartsWith("Cannot modify Blueprint - source control checkout failed")))
			<< Path;
	}
}

TEST(OnePath, AFullPathNeverMeansANamesake)
{
	FPopulating Case;
	MakeActor("/Game/A/BP_Twin");
	MakeActor("/Game/B/BP_Twin");
	Case.Nodes(
		R"({"node_guid":"c","class_name":"K2Node_DynamicCast","target_class":"/Game/B/BP_Twin","target_function":"x"})");
	EXPECT_EQ(Case.Told(TEXT("resolved_class_path")), "\"/Game/B/BP_Twin.BP_Twin_C\"") << "not ambiguous";

	for (const std::string Wrong : {"/Game/C/BP_Twin", "/Game/C/BP_Test", "/Game/C/BP_Test.BP_Test_C"})
	{
		Case.Nodes(CallNode("f", Wrong, "K2_DestroyActor"));
		EXPECT_EQ(Case.Data(TEXT("nodes_failed")), "1") << Wrong;
		const TSharedPtr<Morvane::FToolResult> Made = RunTool(
			TEXT("bp_create_asset"), R"({"path":"/Game/Tests/BP_No",)" + Parent(Wrong) + "}");
		EXPECT_THAT(Errors(*Made), ElementsAre("Failed to find or load blueprint: " + Wrong));
	}
}

TEST(OnePath, AnAnimationBlueprintGoesBeforeAPlainOneOfTheName)
{
	FPopulating Case;
	MakeActor("/Game/A/BP_Same");
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Z/BP_Same","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.AnimInstance"}})");
	EXPECT_EQ(ToStd(FAssetOperationBase::ResolveBlueprintPath(TEXT("bp_same"))), "/Game/Z/BP_Same");
	EXPECT_EQ(ToStd(FAssetOperationBase::ResolveBlueprintPath(TEXT("/Game/A/BP_Same"))), "/Game/A/BP_Same");
	EXPECT_EQ(ToStd(FAssetOperationBase::ResolveBlueprintPath(TEXT("BP_Nobody"))), "BP_Nobody");
}

TEST(OnePath, AClassPinTakesABlueprintByItsNames)
{
	FPopulating Case;
	MakeActor("/Game/Doors/BP_PathDoor");
	for (const std::string Value : {"BP_PathDoor", "BP_PathDoor_C", "/Game/Doors/BP_PathDoor",
			 "Content/Doors/BP_PathDoor", "/Game/Doors/BP_PathDoor.BP_PathDoor_C", "\\\\Game\\\\Doors\\\\BP_PathDoor"})
	{
		Case.Nodes(LooseNode(
			"s", "Spawn Actor from Class", R"("pins":[{"action":"modify","name":"Class","value":")" + Value + "\"}]"));
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << Value;
		TArray<UK2Node_SpawnActorFromClass*> Spawns;
		Case.Blueprint.EventGraph().Get()->GetNodesOfClass(Spawns);
		const UObject* const Set = Spawns.Last()->GetClassPin()->DefaultObject;
		EXPECT_EQ(Set ? ToStd(Set->GetPathName()) : "nothing", "/Game/Doors/BP_PathDoor.BP_PathDoor_C") << Value;
	}
	MakeActor("/Game/Other/BP_PathDoor");
	Case.Nodes(LooseNode(
		"s", "Spawn Actor from Class", R"("pins":[{"action":"modify","name":"Class","value":"BP_PathDoor"}])"));
	EXPECT_THAT(
		Warnings(*Case.Result), Contains(StartsWith("Ambiguous Blueprint name 'BP_PathDoor'. Found 2 matches: ")));
}
