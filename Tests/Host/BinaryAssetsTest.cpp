// Projects of the engine's own files: listed, read and copied from, and never changed by any tool.

#include "BinaryAssetsTest.h"
#include "SmallBlueprint.h"
#include "TaggedObject.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

namespace BinaryAssetsTest
{
static std::string BytesOf(const std::string& Path, const std::string& Engine = "5.7",
	const std::string& ParentPackage = "/Script/Engine", const std::string& ParentClass = "Actor")
{
	return SmallBlueprint::Make(FPackageLayout::Of(Engine), {Path, ParentPackage, ParentClass, true}).Write().Bytes;
}
} // namespace BinaryAssetsTest

TEST(BinaryAssets, NoToolChangesOne)
{
	using namespace BinaryAssetsTest;
	const FTemporaryFolder Project;
	Project.Write("Content/BP_Small.uasset", BytesOf("/Game/BP_Small"));
	Project.Write("Content/L_Level.umap", BytesOf("/Game/L_Level", "4.27"));
	const std::map<std::string, std::string> Before = FilesOf(Project);
	const std::vector<std::pair<std::string, std::string>> Calls = {
		{"modify_blueprint_class_structure",
			R"({"path":"/Game/BP_Small","variables":{"A":{"type":{"category":"int"}}}})"},
		{"modify_blueprint_class_structure",
			R"({"path":"/Game/BP_Small","components":[{"name":"Mesh","class":"StaticMeshComponent"}]})"},
		{"modify_blueprint_class_structure", R"({"path":"/Game/L_Level","delegates":[{"name":"OnIt"}]})"},
		{"ui_modify_widget_bp", R"({"path":"/Game/BP_Small","widget_tree":{}})"},
		{"bp_populate_graph",
			R"({"path":"/Game/BP_Small","graph_name":"EventGraph","nodes":[{"node_guid":"a","menu_title":"Delay"}]})"},
		{"bp_populate_graph",
			R"({"path":"/Game/BP_Small","graph_name":"NewOne","graph_type":"function","nodes":[{"node_guid":"a","menu_title":"Branch"}]})"},
		{"bp_create_graph", R"({"path":"/Game/BP_Small","functions":[{"name":"F"}]})"},
		{"bp_modify_graph_nodes",
			R"({"path":"/Game/BP_Small","blueprint_name":"BP_Small","graph_name":"EventGraph","nodes":[{"node_guid":"00000001000000020000000300000140","action":"remove"}]})"},
		{"bp_remove_graph_connections",
			R"({"path":"/Game/BP_Small","blueprint_name":"BP_Small","graph_name":"EventGraph","connections":[{"source_node_guid":"a","source_pin_name":"then","target_node_guid":"b","target_pin_name":"execute"}]})"},
		{"compile_blueprint", R"({"blueprint_paths":["/Game/BP_Small","/Game/L_Level"]})"},
		{"delete_blueprint", R"({"path":"/Game/BP_Small"})"},
		{"bp_create_asset",
			R"({"path":"/Game/BP_Small","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})"},
		{"bp_create_asset",
			R"({"path":"/Game/bp_small","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})"},
		{"read_blueprint_schema", R"({"path":"/Game/BP_Small"})"},
	};
	const std::vector<FAnswer> Answers = RunCalls(Project, Calls);
	for (std::size_t Index = 0; Index < Calls.size(); ++Index)
	{
		const std::string& Tool = Calls[Index].first;
		SCOPED_TRACE(Tool + " " + Calls[Index].second);
		const FAnswer& Answer = Answers[Index];
		if (Tool == "read_blueprint_schema")
		{
			EXPECT_TRUE(Answer.bSuccess) << Answer.Json;
			// What was refused left nothing behind.
			EXPECT_THAT(Answer.Json, AllOf(HasSubstr("EventGraph"), Not(HasSubstr("NewOne")), Not(HasSubstr("Mesh"))));
			continue;
		}
		EXPECT_FALSE(Answer.bSuccess) << Answer.Json;
		EXPECT_THAT(Answer.Json, Not(HasSubstr("\"unsaved\"")));
		if (Tool == "bp_create_asset")
		{
			EXPECT_THAT(Answer.Errors, HasSubstr("already exists"));
		}
		else if (Tool != "ui_modify_widget_bp") // it is no Widget Blueprint, which that tool says first
		{
			EXPECT_THAT(Answer.Errors,
				AllOf(HasSubstr("only read here"), HasSubstr("'morvane import PATH [--to /Game/...]'"),
					HasSubstr("'morvane copy PATH GRAPH'")));
		}
	}
	EXPECT_EQ(FilesOf(Project), Before);
}

TEST(BinaryAssets, AFileUnderAnotherNameIsTheAssetOfThatName)
{
	using namespace BinaryAssetsTest;
	for (const char* const Engine : {"4.20", "4.27", "5.7"})
	{
		SCOPED_TRACE(Engine);
		const FTemporaryFolder Project;
		Project.Write("Content/Moved/BP_New.uasset", BytesOf("/Game/BP_Small", Engine));
		// No package can be called so, and none is called None for it.
		Project.Write("Content/1.2/BP_Small.uasset", BytesOf("/Game/BP_Small", Engine));
		const FProcessResult Listed = RunMorvane({"assets", "--project", Project.Path()});
		EXPECT_EQ(Listed.Output, "/Game/Moved/BP_New\tBlueprint\t/Script/Engine.Actor\n");
		const FProcessResult Copied = RunMorvane(
			{"import", "/Game/Moved/BP_New", "--to", "/Game/BP_Third", "--project", Project.Path()});
		EXPECT_EQ(Copied.Status, 0) << Copied.Output;
		for (const std::string Path : {"/Game/Moved/BP_New", "/Game/BP_Third"})
		{
			const std::string Name = Path.substr(Path.rfind('/') + 1);
			const std::vector<FAnswer> Answers = RunCalls(Project,
				{{"read_blueprint_schema", R"({"path":")" + Path + R"("})"},
					{"bp_populate_graph",
						R"({"path":"/Game/BP_Asker","graph_name":"EventGraph","nodes":[{"node_guid":"a",)"
						R"("class_name":"K2Node_DynamicCast","menu_title":"Cast To )"
							+ Name + R"("}]})"},
					{"compile_blueprint", R"({"blueprint_paths":["/Game/BP_Asker"]})"}});
			for (const FAnswer& Answer : Answers)
			{
				EXPECT_TRUE(Answer.bSuccess) << Answer.Json;
				EXPECT_THAT(Answer.Json, Not(HasSubstr("BP_Small")));
			}
			EXPECT_THAT(Answers[0].Json, AllOf(HasSubstr(Path + "." + Name), HasSubstr("EventGraph")));
			EXPECT_EQ(Answers[1].Warnings, "");
		}
	}
}

TEST(BinaryAssets, AChangeOfAnotherAssetStaysOutOfThem)
{
	using namespace BinaryAssetsTest;
	const FTemporaryFolder Project;
	Project.Write("Content/BP_Child.uasset", BytesOf("/Game/BP_Child", "5.3", "/Game/BP_Parent", "BP_Parent_C"));
	const std::string Before = Project.Read("Content/BP_Child.uasset");
	const std::vector<FAnswer> Answers = RunCalls(Project,
		{{"bp_create_asset",
			 R"({"path":"/Game/BP_Parent","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})"},
			{"modify_blueprint_class_structure",
				R"({"path":"/Game/BP_Parent","variables":{"Speed":{"action":"add","type":{"category":"int"}}}})"},
			{"read_blueprint_schema", R"({"path":"/Game/BP_Child"})"},
			{"bp_create_graph", R"({"path":"/Game/BP_Parent","functions":[{"name":"Do_It_2"},{"name":"Open"}]})"},
			{"modify_blueprint_class_structure",
				R"({"path":"/Game/BP_Parent","variables":{"Speed":{"action":"modify","new_name":"Pace"}}})"},
			{"compile_blueprint", R"({"blueprint_paths":["/Game/BP_Parent"]})"},
			{"read_blueprint_schema", R"({"path":"/Game/BP_Child"})"},
			{"delete_blueprint", R"({"path":"/Game/BP_Parent"})"}});
	for (const FAnswer& Answer : Answers)
	{
		EXPECT_TRUE(Answer.bSuccess) << Answer.Json;
		EXPECT_THAT(Answer.Json, Not(HasSubstr("\"unsaved\"")));
	}
	EXPECT_THAT(Answers[2].Json, HasSubstr("/Game/BP_Parent.BP_Parent_C"));
	EXPECT_THAT(Answers.back().Warnings, HasSubstr("was still used by 1 asset(s): /Game/BP_Child"));
	EXPECT_EQ(Project.Read("Content/BP_Child.uasset"), Before);
}

TEST(BinaryAssets, ATextCopyGoesFirstWithAWarning)
{
	using namespace BinaryAssetsTest;
	const FTemporaryFolder Project;
	Project.Write("Content/Doors/BP_Small.uasset", BytesOf("/Game/Doors/BP_Small"));
	const std::string Before = Project.Read("Content/Doors/BP_Small.uasset");
	const FProcessResult Imported = RunMorvane({"import", "/Game/Doors/BP_Small", "--project", Project.Path()});
	EXPECT_EQ(Imported.Status, 0) << Imported.Output << Imported.Errors;
	const FAnswer Changed = Call(Project, "modify_blueprint_class_structure",
		R"({"path":"/Game/Doors/BP_Small","variables":{"Speed":{"action":"add","type":{"category":"int"}}}})");
	EXPECT_TRUE(Changed.bSuccess) << Changed.Json;
	EXPECT_THAT(Changed.Warnings, HasSubstr("BP_Small.uatext goes before the binary package "));
	EXPECT_THAT(Call(Project, "read_blueprint_schema", R"({"path":"/Game/Doors/BP_Small"})").Json, HasSubstr("Speed"));
	EXPECT_EQ(Project.Read("Content/Doors/BP_Small.uasset"), Before);
	// The copy goes, and the engine's own stands again.
	EXPECT_TRUE(Call(Project, "delete_blueprint", R"({"path":"/Game/Doors/BP_Small"})").bSuccess);
	const FAnswer Again = Call(Project, "read_blueprint_schema", R"({"path":"/Game/Doors/BP_Small"})");
	EXPECT_TRUE(Again.bSuccess) << Again.Json;
	EXPECT_THAT(Again.Json, Not(HasSubstr("Speed")));
}

TEST(BinaryAssets, AnImportTellsWhatItCouldNotTakeOver)
{
	using namespace BinaryAssetsTest;
	const FTemporaryFolder Project;
	const auto AddDamage = [](FTestPackage&, FObjectBytes& Out)
	{
		FByteWriter Endless;
		Endless.Int(0x7FFFFFFF);
		Out.Tag("Rows", {"ArrayProperty", {{"IntProperty", {}}}}, Endless.Bytes);
	};
	Project.Write("Content/BP_Small.uasset",
		SmallBlueprint::Make(FPackageLayout::Of("5.7"), {"/Game/BP_Small", "/Script/Engine", "Actor", true}, AddDamage)
			.Write()
			.Bytes);
	const FProcessResult Imported = RunMorvane({"import", "/Game/BP_Small", "--project", Project.Path()});
	EXPECT_EQ(Imported.Status, 0) << Imported.Output << Imported.Errors;
	TSharedPtr<FJsonObject> Result;
	FString Error;
	ASSERT_TRUE(JsonUtf8::Parse(Imported.Output, Result, Error)) << Imported.Output;
	EXPECT_EQ(Join(*Result, TEXT("errors")), "");
	EXPECT_THAT(Join(*Result, TEXT("warnings")),
		HasSubstr("BP_Small: the value of Rows (ArrayProperty of IntProperty) was not understood and is left out"));
}

TEST(BinaryAssets, WhatCannotBeReadIsRefusedWithItsReason)
{
	using namespace BinaryAssetsTest;
	const FTemporaryFolder Project;
	Project.Write("Content/BP_Pointer.uasset", "version https://git-lfs.github.com/spec/v1\noid sha256:0\nsize 1\n");
	Project.Write("Content/BP_Cut.uasset", BytesOf("/Game/BP_Cut").substr(0, 4000));
	EXPECT_THAT(
		Call(Project, "read_blueprint_schema", R"({"path":"/Game/BP_Pointer"})").Json, HasSubstr("git lfs pull"));
	EXPECT_THAT(Call(Project, "read_blueprint_schema", R"({"path":"/Game/BP_Cut"})").Json,
		HasSubstr("the package is damaged: it is cut off at byte 4000, its objects reach to byte "));
	const std::map<std::string, std::string> Before = FilesOf(Project);
	for (const char* const Path : {"/Game/BP_Pointer", "/Game/BP_Cut"})
	{
		const FAnswer Created = Call(Project, "bp_create_asset",
			std::string(R"({"path":")") + Path
				+ R"(","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})");
		EXPECT_FALSE(Created.bSuccess) << Created.Json;
		EXPECT_FALSE(
			Call(Project, "bp_create_graph", std::string(R"({"path":")") + Path + R"(","functions":[{"name":"F"}]})")
				.bSuccess);
	}
	EXPECT_EQ(FilesOf(Project), Before);
}

TEST(BinaryAssets, AreListedAndOfferedByTheirHeadsAlone)
{
	using namespace BinaryAssetsTest;
	const FTemporaryFolder Project;
	Project.Write("Game.uproject", R"({"Plugins":[{"Name":"Off","Enabled":false}]})");
	Project.Write("Plugins/Doors/Doors.uplugin", "{}");
	Project.Write("Plugins/Off/Off.uplugin", "{}");
	Project.Write("Plugins/Off/Content/BP_Off.uasset", BytesOf("/Off/BP_Off"));
	Project.Write("Content/BP_Small.uasset", BytesOf("/Game/BP_Small", "4.20"));
	FTestPackage Door = SmallBlueprint::Make(
		FPackageLayout::Of("5.7"), {"/Doors/BP_Door", "/Script/Engine", "Actor", true});
	Door.AddExport(Door.ImportClass("/Script/CoreUObject", "Function"), SmallBlueprint::Class, "UnlockTheVault");
	Door.AddExport(
		Door.ImportClass("/Script/CoreUObject", "Function"), SmallBlueprint::Class, "ExecuteUbergraph_BP_Door");
	Door.AddExport(Door.ImportClass("/Script/CoreUObject", "DelegateFunction"), SmallBlueprint::Class,
		"OnVaultOpen__DelegateSignature");
	// None of its objects can be read, so whatever is told comes from the head.
	const FTestPackage::FWritten Written = Door.Write();
	Project.Write("Plugins/Doors/Content/BP_Door.uasset", Written.Bytes.substr(0, Written.HeaderSize));

	for (const char* const Parts : {"__ExternalActors__", "__ExternalObjects__"})
	{
		Project.Write(std::string("Content/") + Parts + "/L_World/0/AB/3XYZ.uasset", BytesOf("/Game/Part"));
	}

	const std::string Descriptor = (Project.Path() / "Game.uproject").string();
	const FProcessResult Assets = RunMorvane({"assets", "--project", Descriptor});
	EXPECT_EQ(Assets.Status, 0) << Assets.Errors;
	EXPECT_THAT(Assets.Output,
		AllOf(HasSubstr("/Game/BP_Small\tBlueprint\t/Script/Engine.Actor"), HasSubstr("/Doors/BP_Door\t"),
			Not(HasSubstr("BP_Off")), Not(HasSubstr("__External"))));
	const FProcessResult Menu = RunMorvane({"menu", "--project", Descriptor});
	EXPECT_EQ(Menu.Status, 0) << Menu.Errors;
	EXPECT_THAT(Menu.Output,
		AllOf(testing::ContainsRegex("Unlock .he Vault"), HasSubstr("Bind Event to On Vault Open"),
			HasSubstr("Cast To BP_Door"), HasSubstr("Cast To BP_Small"), Not(HasSubstr("Ubergraph"))));
}

namespace BinaryAssetsTest
{
static std::string DescribeVariable(FTestPackage& Package, const std::string& Name, const std::string& Category,
	const uint64_t Flags, const bool bPrivate)
{
	FObjectBytes Out(Package);
	FObjectBytes VarName(Package);
	VarName.Name(Name);
	Out.Tag("VarName", {"NameProperty", {}}, VarName.Bytes);
	FObjectBytes Type(Package);
	FObjectBytes::FPinType PinType;
	PinType.Category = Name[0] == 'b' ? "bool" : "int";
	Type.PinType(PinType);
	Out.Tag("VarType", {"StructProperty", {{"EdGraphPinType", {{"/Script/Engine", {}}}}}}, Type.Bytes);
	FObjectBytes Text(Package);
	Text.BaseText("", "Key", Category);
	Out.Tag("Category", {"TextProperty", {}}, Text.Bytes);
	FByteWriter Number;
	Number.Put(Flags);
	Out.Tag("PropertyFlags", {"UInt64Property", {}}, Number.Bytes);
	FTaggedObject Mark(Package);
	Mark.Name("DataKey", "BlueprintPrivate").Text("DataValue", bPrivate ? "true" : "false");
	Out.StructArray("MetaDataArray", "BPVariableMetaDataEntry", {Mark.Bytes()});
	Out.EndTags();
	return Out.Bytes;
}

static void WriteVariables(FTestPackage& Package, FObjectBytes& Out)
{
	constexpr uint64_t Editable = 5;
	constexpr uint64_t ReadOnly = Editable | 0x10;
	Out.StructArray("NewVariables", "BPVariableDescription",
		{DescribeVariable(Package, "bIsUnlocked", "Vault", Editable, false),
			DescribeVariable(Package, "NumTries", "Vault", ReadOnly, false),
			DescribeVariable(Package, "SecretCode", "Vault", Editable, true)});
}
} // namespace BinaryAssetsTest

TEST(BinaryAssets, VariablesAreOfferedBeforeTheirBlueprintIsRead)
{
	using namespace BinaryAssetsTest;
	for (const std::string Engine : {"4.20", "4.27", "5.3", "5.7"})
	{
		SCOPED_TRACE(Engine);
		const FTemporaryFolder Project;
		Project.Write("Content/BP_Vault.uasset",
			SmallBlueprint::Make(FPackageLayout::Of(Engine),
				SmallBlueprint::FOptions{"/Game/BP_Vault", "/Script/Engine", "Actor", true}, &WriteVariables)
				.Write()
				.Bytes);
		Project.Write("Content/BP_Lamp.uasset", ActorPackages::Parent(FPackageLayout::Of(Engine)).Write().Bytes);
		const FProcessResult Menu = RunMorvane({"menu", "--project", Project.Path()});
		EXPECT_THAT(Menu.Output,
			AllOf(HasSubstr("Get Is Unlocked\tVariables|Vault\tK2Node_VariableGet"), HasSubstr("Set Is Unlocked\t"),
				HasSubstr("Get Num Tries\tVariables|Vault"), Not(HasSubstr("Set Num Tries")),
				Not(HasSubstr("Secret Code")), HasSubstr("Get Lamp\tVariables|Components")));
		const FAnswer Created = Call(Project, "bp_create_asset",
			R"({"path":"/Game/BP_User","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})");
		EXPECT_TRUE(Created.bSuccess) << Created.Json;
		const FAnswer Used = Call(Project, "bp_populate_graph",
			R"({"path":"/Game/BP_User","graph_name":"EventGraph","nodes":[)"
			R"({"node_guid":"cast","menu_title":"Cast To BP_Vault"},)"
			R"({"node_guid":"get","menu_title":"Get Is Unlocked","menu_category":"Class|BP_Vault"}],"connections":[)"
			R"({"source_node_guid":"cast","source_pin_name":"As BP Vault","target_node_guid":"get","target_pin_name":"self"}]})");
		EXPECT_TRUE(Used.bSuccess) << Used.Json;
		EXPECT_THAT(Used.Json, HasSubstr("Created 2 nodes and 1 connections"));
	}
}
