#include "BlueprintBuilder.h"
#include "BlueprintCompileOperation.h"
#include "BlueprintCreateOperation.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintRemoveOperation.h"
#include "BlueprintUtils.h"
#include "EdGraphSchema_K2.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Standalone/EditorFaults.h"
#include "TestIsolation.h"
#include "ToolResults.h"
#include "UObject/Package.h"

#include <sys/stat.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace AssetToolsTest
{
using FOperation = void (*)(const FJsonObject&, Morvane::FToolResult&);

static Morvane::FToolResult Run(FOperation Operation, const std::string& Arguments)
{
	Morvane::FToolResult Result = MakeResult();
	Operation(*Json(Arguments), Result);
	return Result;
}

static Morvane::FToolResult Create(
	const std::string& Path, const std::string& Parent = "/Script/Engine.Actor", const std::string& Type = "native")
{
	return Run(&FBlueprintCreateOperation::Execute,
		R"({"path":")" + Path + R"(","blueprint_parent_class":{"type":")" + Type + R"(","parent_path":")" + Parent
			+ "\"}}");
}

static Morvane::FToolResult Delete(const std::string& Path)
{
	return Run(&FBlueprintRemoveOperation::Execute, R"({"path":")" + Path + "\"}");
}

static Morvane::FToolResult Compile(const std::string& Paths)
{
	return Run(&FBlueprintCompileOperation::Execute, R"({"blueprint_paths":)" + Paths + "}");
}

static std::string ClassOf(const FString& Path)
{
	const UBlueprint* const Blueprint = FBlueprintUtils::TryLoadBlueprint(Path);
	return Blueprint ? ToStd(Blueprint->GetClass()->GetName()) : "none";
}
} // namespace AssetToolsTest

TEST(CreateTool, MissingFieldsAreNamedInTheirOwnWords)
{
	const std::pair<const char*, const char*> Cases[] = {
		{R"({})", "Missing required field 'path'"},
		{R"({"path":3})", "Missing required field 'path'"},
		{R"({"path":"/Game/A"})", "Missing field : blueprint_parent_class"},
		{R"({"path":"/Game/A","blueprint_parent_class":"Actor"})", "Missing field : blueprint_parent_class"},
		{R"({"path":"/Game/A","blueprint_parent_class":{}})", "Missing required Parent class field: type"},
		// The field is "parent_path"; the message has always said "name".
		{R"({"path":"/Game/A","blueprint_parent_class":{"type":"native"}})",
			"Missing required Parent class field: name"},
	};
	FBlueprintBuilder Blueprint;
	for (const auto& [Arguments, Error] : Cases)
	{
		const Morvane::FToolResult Result = AssetToolsTest::Run(&FBlueprintCreateOperation::Execute, Arguments);
		EXPECT_THAT(Errors(Result), ElementsAre(Error)) << Arguments;
		EXPECT_FALSE(Result.GetDatas().IsValid()) << Arguments;
		EXPECT_TRUE(Result.GetModifications().IsEmpty()) << Arguments;
	}
}

TEST(CreateTool, ParentClassDecidesTheKind)
{
	struct FCase
	{
		const char* Type;
		const char* Parent;
		const char* Class;
	};
	for (const FCase& Case :
		{FCase{"native", "/Script/Engine.Actor", "Blueprint"}, {"Native", "/Script/Engine.Pawn", "Blueprint"},
			{"anything", "/Script/Engine.Character", "Blueprint"}, {"blueprint", "/Game/Tests/BP_Test", "Blueprint"},
			{"BLUEPRINT", "BP_Test", "Blueprint"}, {"native", "/Script/UMG.UserWidget", "WidgetBlueprint"},
			{"native", "/Script/Engine.AnimInstance", "AnimBlueprint"},
			{"native", "/Script/AIModule.BTTask_BlueprintBase", "Blueprint"}})
	{
		FBlueprintBuilder Blueprint;
		const Morvane::FToolResult Result = AssetToolsTest::Create("/Game/New/BP_New", Case.Parent, Case.Type);
		EXPECT_THAT(Errors(Result), IsEmpty()) << Case.Parent;
		EXPECT_THAT(Successes(Result), IsEmpty()) << "the tracked read tells of the asset";
		EXPECT_EQ(AssetToolsTest::ClassOf(TEXT("/Game/New/BP_New")), Case.Class) << Case.Parent;
		ASSERT_EQ(Result.GetModifications().Num(), 1);
		EXPECT_EQ(JsonText(Result.GetModifications()[0].Parameters),
			R"({"path":"/Game/New/BP_New.BP_New","read_tool":"read_blueprint_schema"})");
		EXPECT_FALSE(Result.GetDatas()->GetStringField(TEXT("duration_seconds")).IsEmpty());
		const UPackage* const Package = FindPackage(nullptr, TEXT("/Game/New/BP_New"));
		ASSERT_NE(Package, nullptr);
		EXPECT_TRUE(Package->IsDirty()) << "creating saves nothing";
		EXPECT_FALSE(Blueprint.Folder().Exists("Content/New/BP_New.uatext"));
		TestIsolation::CloseProject();
	}
}

TEST(CreateTool, ParentThatCannotBeOneIsRefused)
{
	FBlueprintBuilder Blueprint;
	for (const char* const Parent : {"Actor", "AActor", "/Script/Engine.NoSuchClass", "/Script/CoreUObject.Class", ""})
	{
		EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/New/BP_New", Parent)),
			ElementsAre(std::string("Parent class '") + Parent + "' is not valid for Blueprint creation."));
	}
	const struct
	{
		const char* Parent;
		const char* Told;
	} Near[] = {
		{"Actor", "a native class goes by its path, such as '/Script/Engine.Actor'"},
		{"AActor", "a native class goes by its path, such as '/Script/Engine.Actor'"},
		{"/Script/Engine.ACharacter", "a native class goes by its path, such as '/Script/Engine.Character'"},
		{"/Game/Tests/BP_Test", "'/Game/Tests/BP_Test' is a Blueprint, whose type is \"blueprint\""},
	};
	for (const auto& [Parent, Told] : Near)
	{
		EXPECT_THAT(Warnings(AssetToolsTest::Create("/Game/New/BP_New", Parent)),
			ElementsAre(std::string("[Failure] Parent class '") + Parent + "': " + Told));
	}
	EXPECT_THAT(Warnings(AssetToolsTest::Create("/Game/New/BP_New", "/Script/CoreUObject.Class")), IsEmpty());
	EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/New/BP_New", "/Game/No/Such", "blueprint")),
		ElementsAre("Failed to find or load blueprint: /Game/No/Such"));
	EXPECT_FALSE(FBlueprintUtils::BlueprintExists(TEXT("/Game/New/BP_New.BP_New")));
}

TEST(CreateTool, PlaceHasToBeFreeAndInTheProject)
{
	FBlueprintBuilder Blueprint;
	Blueprint.Folder().Write("Content/Taken/BP_Binary.uasset", "not ours");
	Blueprint.Folder().Write("Content/Taken/BP_Damaged.uatext", "uatext 1\nrubbish");
	const std::pair<const char*, const char*> Cases[] = {
		{"", "the path is empty"},
		{"/Game/../BP_New", "must not hold '..'"},
		{"BP_New", "Use a path such as '/Game/Folder/BP_Name'"},
		{"/Game", "Use a path such as '/Game/Folder/BP_Name'"},
		{"/Game/New/BP New?", "Use a path such as '/Game/Folder/BP_Name'"},
		{"/NoSuchRoot/BP_New", "stand below '/Game/'"},
		{"/Game/New/", "ends with a slash"},
		{"/Game/New/A:B", "Use a path such as '/Game/Folder/BP_Name'"},
		{"C:/New/BP_New", "Use a path such as '/Game/Folder/BP_Name'"},
		{"/Game/Tests/BP_Test", "'/Game/Tests/BP_Test' already exists (class Blueprint)"},
		{"/game/tests/bp_test", "already exists"},
		{"/Game/Taken/BP_Binary", "BP_Binary.uasset' stands in its place"},
		{"/Game/Taken/BP_Damaged", "BP_Damaged.uatext' stands in its place"},
	};
	for (const auto& [Path, Part] : Cases)
	{
		const Morvane::FToolResult Result = AssetToolsTest::Create(Path);
		EXPECT_THAT(Errors(Result), ElementsAre(HasSubstr(Part))) << Path;
		EXPECT_TRUE(Result.GetModifications().IsEmpty()) << Path;
	}
	EXPECT_EQ(Blueprint.Folder().Read("Content/Taken/BP_Binary.uasset"), "not ours");
}

TEST(DeleteTool, AssetIsGoneFromDiskMemoryAndRegistry)
{
	FBlueprintBuilder Blueprint;
	EXPECT_THAT(Errors(AssetToolsTest::Run(&FBlueprintRemoveOperation::Execute, "{}")),
		ElementsAre("Missing required field 'path'"));
	EXPECT_THAT(Errors(AssetToolsTest::Delete("/Game/Tests/BP_Other")),
		ElementsAre("Blueprint does not exist: /Game/Tests/BP_Other"));

	const Morvane::FToolResult Result = AssetToolsTest::Delete("Content/Tests/BP_Test.uatext");
	EXPECT_THAT(Errors(Result), IsEmpty());
	EXPECT_THAT(Warnings(Result), IsEmpty());
	EXPECT_THAT(Successes(Result), ElementsAre("Successfully deleted Blueprint: /Game/Tests/BP_Test"));
	EXPECT_FALSE(Blueprint.Folder().Exists("Content/Tests/BP_Test.uatext"));
	EXPECT_FALSE(FBlueprintUtils::BlueprintExists(TEXT("/Game/Tests/BP_Test.BP_Test")));
	EXPECT_EQ(FBlueprintUtils::TryLoadBlueprint(TEXT("/Game/Tests/BP_Test")), nullptr);

	EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/Tests/BP_Test")), IsEmpty()) << "the place is free at once";
}

TEST(DeleteTool, UnsavedAssetIsDeletedToo)
{
	FBlueprintBuilder Blueprint;
	EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/New/BP_New")), IsEmpty());
	EXPECT_THAT(Errors(AssetToolsTest::Delete("/Game/New/BP_New")), IsEmpty());
	EXPECT_FALSE(FBlueprintUtils::BlueprintExists(TEXT("/Game/New/BP_New.BP_New")));
}

TEST(DeleteTool, RefusedFileStaysWithItsAsset)
{
	FBlueprintBuilder Blueprint;
	{
		const EditorFaults::FRefuseSourceControl Refuse(TEXT("Delete"), TEXT("locked by Ada"));
		EXPECT_THAT(Errors(AssetToolsTest::Delete("/Game/Tests/BP_Test")),
			ElementsAre("Failed to delete Blueprint '/Game/Tests/BP_Test':\nlocked by Ada"));
	}
	const std::string File = ToStd(Blueprint.Folder().Get("Content/Tests/BP_Test.uatext"));
	chmod(File.c_str(), 0444);
	EXPECT_THAT(Errors(AssetToolsTest::Delete("/Game/Tests/BP_Test")), ElementsAre(HasSubstr("read-only")));
	EXPECT_TRUE(Blueprint.Folder().Exists("Content/Tests/BP_Test.uatext"));
	EXPECT_NE(FBlueprintUtils::TryLoadBlueprint(TEXT("/Game/Tests/BP_Test")), nullptr);
	chmod(File.c_str(), 0644);
}

TEST(DeleteTool, AssetsThatUseItAreNamed)
{
	FBlueprintBuilder Blueprint;
	EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/Tests/BP_Child", "BP_Test", "blueprint")), IsEmpty());
	ASSERT_TRUE(FBlueprintUtils::SaveBlueprint(FBlueprintUtils::TryLoadBlueprint(TEXT("/Game/Tests/BP_Child"))));
	const Morvane::FToolResult Result = AssetToolsTest::Delete("/Game/Tests/BP_Test");
	EXPECT_TRUE(Result.WasSuccessful());
	EXPECT_THAT(Warnings(Result),
		ElementsAre("Deleted Blueprint '/Game/Tests/BP_Test' was still used by 1 asset(s): /Game/Tests/BP_Child"));
}

TEST(DeleteTool, UsersThatStandInMemoryAloneAreNamed)
{
	FBlueprintBuilder Blueprint;
	EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/Tests/BP_Child", "BP_Test", "blueprint")), IsEmpty());
	EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/Tests/BP_Aside", "/Script/Engine.Actor")), IsEmpty());
	ASSERT_TRUE(
		FBlueprintEditorUtils::AddMemberVariable(FBlueprintUtils::TryLoadBlueprint(TEXT("/Game/Tests/BP_Aside")),
			TEXT("Held"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Object, Blueprint->GeneratedClass.Get())));
	EXPECT_FALSE(Blueprint.Folder().Exists("Content/Tests/BP_Child.uatext"));
	EXPECT_THAT(Warnings(AssetToolsTest::Delete("/Game/Tests/BP_Test")),
		ElementsAre(
			"Deleted Blueprint '/Game/Tests/BP_Test' was still used by 2 asset(s): /Game/Tests/BP_Aside, /Game/Tests/BP_Child"));
}

TEST(LoadBlueprint, FindsByPathAndByBareName)
{
	FBlueprintBuilder Blueprint;
	for (const TCHAR* const Path :
		{TEXT("/Game/Tests/BP_Test"), TEXT("/Game/Tests/BP_Test.BP_Test"), TEXT("BP_Test"), TEXT("bp_TEST")})
	{
		Morvane::FToolResult Result = MakeResult();
		EXPECT_EQ(FBlueprintUtils::LoadBlueprint(Path, Result), Blueprint.Get()) << ToStd(Path);
		EXPECT_TRUE(Result.WasSuccessful());
	}
	Morvane::FToolResult Result = MakeResult();
	EXPECT_EQ(FBlueprintUtils::LoadBlueprint(TEXT(""), Result), nullptr);
	EXPECT_THAT(Errors(Result), ElementsAre("Failed to find or load blueprint: "));
	EXPECT_FALSE(FBlueprintUtils::BlueprintExists(TEXT("")));
}

TEST(LoadBlueprint, AnimationBlueprintOfTheNameGoesFirst)
{
	FBlueprintBuilder Blueprint;
	EXPECT_THAT(Errors(AssetToolsTest::Create("/Game/Zoo/BP_Test", "/Script/Engine.AnimInstance")), IsEmpty());
	EXPECT_EQ(AssetToolsTest::ClassOf(TEXT("BP_Test")), "AnimBlueprint");
}

TEST(LoadBlueprint, DamagedFileTellsWhy)
{
	FBlueprintBuilder Blueprint;
	Blueprint.Folder().Write("Content/Bad/BP_Bad.uatext", "uatext 1\nChecksum=0\nrubbish\n");
	Morvane::FToolResult Result = MakeResult();
	EXPECT_EQ(FBlueprintUtils::LoadBlueprint(TEXT("/Game/Bad/BP_Bad"), Result), nullptr);
	EXPECT_THAT(
		Errors(Result), ElementsAre("Failed to find or load blueprint: /Game/Bad/BP_Bad", HasSubstr("BP_Bad.uatext")));
}

TEST(CompileTool, BatchGoesOnAfterABadPath)
{
	FBlueprintBuilder Blueprint;
	EXPECT_THAT(Errors(AssetToolsTest::Run(&FBlueprintCompileOperation::Execute, "{}")),
		ElementsAre("Missing required field 'blueprint_paths'"));
	const Morvane::FToolResult Empty = AssetToolsTest::Compile("[]");
	EXPECT_THAT(Warnings(Empty), ElementsAre("No Blueprints specified for compilation"));
	EXPECT_TRUE(Empty.WasSuccessful());

	const Morvane::FToolResult Bad = AssetToolsTest::Compile(R"(["/Game/A", "/Game/B"])");
	EXPECT_THAT(Errors(Bad),
		ElementsAre("Failed to find or load blueprint: /Game/A", "Failed to find or load blueprint: /Game/B",
			"Failed to compile all 2 Blueprint(s)", "[/Game/A] Failed to load Blueprint",
			"[/Game/B] Failed to load Blueprint"));

	const Morvane::FToolResult Mixed = AssetToolsTest::Compile(R"(["/Game/A", "Tests/BP_Test"])");
	EXPECT_THAT(Warnings(Mixed), ElementsAre("Compiled 1/2 Blueprint(s) successfully (1 failed)"));
	EXPECT_THAT(
		Errors(Mixed), ElementsAre("Failed to find or load blueprint: /Game/A", "[/Game/A] Failed to load Blueprint"));
	const TArray<TSharedPtr<FJsonValue>>& Records =
		Mixed.GetDatas()->GetObjectField(TEXT("telemetry"))->GetArrayField(TEXT("blueprints"));
	ASSERT_EQ(Records.Num(), 2);
	EXPECT_EQ(ToStd(Records[1]->AsObject()->GetStringField(TEXT("path"))), "/Game/Tests/BP_Test");
	EXPECT_FALSE(Records[0]->AsObject()->GetBoolField(TEXT("success")));
	EXPECT_TRUE(Records[1]->AsObject()->GetBoolField(TEXT("success")));
	EXPECT_TRUE(Records[1]->AsObject()->HasTypedField<EJson::Number>(TEXT("duration_ms")));
	EXPECT_FALSE(Mixed.GetDatas()->GetStringField(TEXT("duration_seconds")).IsEmpty());
}

TEST(CompileTool, GoodOneIsSavedAndOneThatCannotBeSavedSucceedsAllTheSame)
{
	FBlueprintBuilder Blueprint;
	Blueprint->MarkPackageDirty();
	const Morvane::FToolResult Good = AssetToolsTest::Compile(R"(["/Game/Tests/BP_Test"])");
	EXPECT_THAT(Successes(Good), ElementsAre("Successfully compiled and saved 1 Blueprint(s)"));
	EXPECT_FALSE(Blueprint->GetOutermost()->IsDirty());

	const EditorFaults::FFailSaves Fail(TEXT("no space left"));
	const Morvane::FToolResult Unsaved = AssetToolsTest::Compile(R"(["/Game/Tests/BP_Test"])");
	EXPECT_TRUE(Unsaved.WasSuccessful());
	EXPECT_THAT(Successes(Unsaved), ElementsAre("Successfully compiled and saved 0 Blueprint(s) with 1 warning(s)"));
	EXPECT_THAT(Warnings(Unsaved), ElementsAre("[/Game/Tests/BP_Test] Compiled successfully but failed to save"));
}

TEST(ValidateGraph, EveryKindOfHoleIsFoundInOneGo)
{
	TArray<FString> Problems;
	EXPECT_FALSE(FBlueprintGraphUtils::ValidateGraph(nullptr, Problems));
	EXPECT_THAT(ToStdList(Problems), ElementsAre("Graph is null"));

	FGraphBuilder Graph;
	const FNodeHandle From = Graph.Event();
	const FNodeHandle To = Graph.Exec();
	FGraphBuilder::Then(From, To);
	Problems.Empty();
	EXPECT_TRUE(FBlueprintGraphUtils::ValidateGraph(Graph.Get(), Problems));
	EXPECT_THAT(ToStdList(Problems), IsEmpty());

	Graph.Get()->Nodes.Add(nullptr);
	To->Pins.Add(nullptr);
	From.Output(TEXT("then"))->LinkedTo.Add(nullptr);
	EXPECT_FALSE(FBlueprintGraphUtils::ValidateGraph(Graph.Get(), Problems));
	EXPECT_THAT(ToStdList(Problems),
		ElementsAre(HasSubstr("has broken connection"), HasSubstr("has null pin"), "Graph contains null node"));
	Graph.Get()->Nodes.Pop();
	To->Pins.Pop();
	From.Output(TEXT("then"))->LinkedTo.Pop();
}

TEST(VariableName, ClashesAreToldApart)
{
	FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(TEXT("int")));
	Blueprint.Function(TEXT("Heal"));
	const std::pair<const TCHAR*, const char*> Cases[] = {
		{TEXT(""), "Variable name cannot be empty"},
		{TEXT("health"), "A variable with name 'health' already exists"},
		{TEXT("Heal"), "A function with name 'Heal' already exists"},
		{TEXT("DefaultSceneRoot"), "A component with name 'DefaultSceneRoot' already exists"},
		{TEXT("bReplicates"), "A property with name 'bReplicates' already exists in the parent class"},
	};
	for (const auto& [Name, Error] : Cases)
	{
		Morvane::FToolResult Result = MakeResult();
		EXPECT_FALSE(FBlueprintUtils::VerifyBlueprintVariableName(Blueprint.Get(), Name, Result)) << ToStd(Name);
		EXPECT_THAT(Errors(Result), ElementsAre(Error));
	}
	Morvane::FToolResult Result = MakeResult();
	EXPECT_TRUE(FBlueprintUtils::VerifyBlueprintVariableName(Blueprint.Get(), TEXT("Armour"), Result));
	EXPECT_FALSE(FBlueprintUtils::VerifyBlueprintVariableName(nullptr, TEXT("Armour"), Result));
	EXPECT_THAT(Errors(Result), ElementsAre("Invalid Blueprint provided"));
	Result = MakeResult();
	const FString TooLong = FString::ChrN(2000, TEXT('x'));
	EXPECT_FALSE(FBlueprintUtils::VerifyBlueprintVariableName(Blueprint.Get(), TooLong, Result));
	EXPECT_THAT(Errors(Result), ElementsAre(HasSubstr(" for name 'xxx")));
}
