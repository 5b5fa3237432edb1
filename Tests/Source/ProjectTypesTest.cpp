// Structs and enums that a project has made, and assets by reference: what is written by the names that authors see
// stands in the asset, and reads show it.

#include "EdGraphSchema_K2.h"
#include "Kismet2/EnumEditorUtils.h"
#include "Kismet2/StructureEditorUtils.h"
#include "Misc/PackageName.h"
#include "Populating.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace ProjectTypesTest
{
constexpr EObjectFlags AssetFlags = static_cast<EObjectFlags>(RF_Public | RF_Standalone);

static bool Save(UObject* Asset)
{
	const FString Name = Asset->GetOutermost()->GetName();
	FSavePackageArgs Args;
	Args.TopLevelFlags = RF_Public | RF_Standalone;
	return UPackage::SavePackage(Asset->GetOutermost(), Asset,
		*FPackageName::LongPackageNameToFilename(Name, FPackageName::GetAssetPackageExtension()), Args);
}

/** S_Item with Title (string) and Price (int), E_Kind with Sword and Magic Wand, and a Blueprint to use them in. */
struct FScene : FPopulating
{
	FScene()
	{
		using FSchema = UEdGraphSchema_K2;
		UUserDefinedStruct* const Item = FStructureEditorUtils::CreateUserDefinedStruct(
			CreatePackage(TEXT("/Game/Tests/S_Item")), TEXT("S_Item"), AssetFlags);
		FStructureEditorUtils::AddVariable(Item, FBlueprintBuilder::Type(FSchema::PC_String));
		FStructureEditorUtils::AddVariable(Item, FBlueprintBuilder::Type(FSchema::PC_Int));
		FStructureEditorUtils::RemoveVariable(Item, FStructureEditorUtils::GetVarDesc(Item)[0].VarGuid);
		const TCHAR* const Names[] = {TEXT("Title"), TEXT("Unit Price")};
		for (int32 Index = 0; Index < 2; ++Index)
		{
			const FGuid Member = FStructureEditorUtils::GetVarDesc(Item)[Index].VarGuid;
			EXPECT_TRUE(FStructureEditorUtils::RenameVariable(Item, Member, Names[Index]));
		}
		UUserDefinedEnum* const Kind = FEnumEditorUtils::CreateUserDefinedEnum(
			CreatePackage(TEXT("/Game/Tests/E_Kind")), TEXT("E_Kind"), AssetFlags);
		for (const TCHAR* const Entry : {TEXT("Sword"), TEXT("Magic Wand")})
		{
			FEnumEditorUtils::AddNewEnumeratorForUserDefinedEnum(Kind);
			FEnumEditorUtils::SetEnumeratorDisplayName(Kind, Kind->NumEnums() - 2, FText::FromString(Entry));
		}
		EXPECT_TRUE(Save(Item) && Save(Kind));
		Result = Structure(R"("variables":{"Item":{"action":"add","type":"/Game/Tests/S_Item"},
			"Kind":{"action":"add","type":"/Game/Tests/E_Kind","default_variable_value":"magic wand"},
			"Icon":{"action":"add","type":"soft object Texture2D",
				"default_variable_value":"/Engine/EngineResources/DefaultTexture"}})");
	}

	TSharedPtr<Morvane::FToolResult> Structure(const std::string& Members) const
	{
		return RunTool(
			TEXT("modify_blueprint_class_structure"), R"({"path":")" + ToStd(Blueprint.Path()) + "\"," + Members + "}");
	}
	std::string Read(const std::string& Tool, const std::string& Members) const
	{
		const TSharedPtr<Morvane::FToolResult> Shown = RunTool(UTF8_TO_TCHAR(("read_blueprint_" + Tool).c_str()),
			R"({"path":")" + ToStd(Blueprint.Path()) + "\"," + Members + "}");
		return Shown->GetDatas() ? ToStd(Shown->GetDatas()->GetStringField(TEXT("content"))) : "";
	}
};
} // namespace ProjectTypesTest

using namespace ProjectTypesTest;

TEST(ProjectTypes, StructValuesTakeTheNamesThatAuthorsSee)
{
	FScene Scene;
	EXPECT_THAT(Warnings(*Scene.Result), IsEmpty());
	for (const char* const Value : {R"~("(Title=\"Axe, long\",Unit Price=7)")~",
			 R"({"Title":"Axe, long","unit price":7})", R"~("(title=\"Axe, long\", UnitPrice=7)")~"})
	{
		Scene.Nodes(
			R"({"node_guid":"s","menu_title":"Set Item","pins":[{"name":"Item","value":)" + std::string(Value) + "}]}");
		EXPECT_THAT(Warnings(*Scene.Result), IsEmpty()) << Value;
		const UEdGraphNode* const Node = Scene.Blueprint.EventGraph().Get()->Nodes.Last();
		const FString Text = Node->FindPin(TEXT("Item"))->GetDefaultAsString();
		EXPECT_TRUE(Text.Contains(TEXT("=\"Axe, long\"")) && Text.Contains(TEXT("=7"))) << ToStd(Text);
	}
	const TSharedPtr<Morvane::FToolResult> Set = Scene.Structure(
		R"("variables":{"Item":{"action":"modify","default_variable_value":{"Title":"Bow","Unit Price":3}}})");
	EXPECT_THAT(Warnings(*Set), IsEmpty());
	const std::string Shown = Scene.Read("variable", R"("variable_name":"Item","detail":"lean")");
	EXPECT_THAT(Shown, HasSubstr(R"("type":"/Game/Tests/S_Item.S_Item")"));
	EXPECT_THAT(Shown, HasSubstr(R"~(=\"Bow\")~"));
	EXPECT_THAT(Shown, HasSubstr("=3"));
}

TEST(ProjectTypes, EnumValuesAreShownAsTheirAuthorNamedThem)
{
	FScene Scene;
	for (const char* const Detail : {"full", "lean"})
	{
		const std::string More = std::string(R"(,"detail":")") + Detail + "\"";
		EXPECT_THAT(Scene.Read("variable", R"("variable_name":"Kind")" + More),
			HasSubstr(R"("default_variable_value":"NewEnumerator1","display_value":"Magic Wand")"));
		Scene.Nodes(
			R"({"node_guid":"k","menu_title":"Switch on E_Kind","pins":[{"name":"Selection","value":"Magic Wand"}]})");
		EXPECT_THAT(Scene.Read("event", R"("graph_name":"EventGraph","event_name":"None")" + More),
			HasSubstr(R"("value":"NewEnumerator1","display_value":"Magic Wand")"));
	}
}

TEST(ProjectTypes, SoftReferencesLeadToTheAssetInItsPackage)
{
	FScene Scene;
	const char* const Texture = "/Engine/EngineResources/DefaultTexture.DefaultTexture";
	EXPECT_THAT(Scene.Read("variable", R"("variable_name":"Icon")"), HasSubstr(Texture));
	for (const char* const Value : {"/Engine/EngineResources/DefaultTexture", Texture,
			 "Texture2D'/Engine/EngineResources/DefaultTexture.DefaultTexture'"})
	{
		Scene.Nodes(R"({"node_guid":"l","menu_title":"Async Load Asset","pins":[{"name":"Asset","value":")"
			+ std::string(Value) + "\"}]}");
		EXPECT_THAT(Warnings(*Scene.Result), IsEmpty()) << Value;
		const UEdGraphNode* const Node = Scene.Blueprint.EventGraph().Get()->Nodes.Last();
		EXPECT_EQ(ToStd(Node->FindPin(TEXT("Asset"))->GetDefaultAsString()), Texture);
	}
}

TEST(ProjectTypes, ReadsOfWhatIsNoBlueprintTellWhatItIs)
{
	const FScene Scene;
	const auto Ask = [](const char* Tool, const char* Path)
	{ return RunTool(UTF8_TO_TCHAR(Tool), std::string(R"({"path":")") + Path + R"(","variable_name":"X"})"); };
	const TSharedPtr<Morvane::FToolResult> Enum = Ask("read_blueprint_schema", "/Game/Tests/E_Kind");
	EXPECT_THAT(Errors(*Enum),
		ElementsAre("Failed to find or load blueprint: /Game/Tests/E_Kind",
			"Failed to read schema at path: /Game/Tests/E_Kind"));
	EXPECT_THAT(Warnings(*Enum),
		ElementsAre("[Failure] /Game/Tests/E_Kind.E_Kind is a UserDefinedEnum and no Blueprint. Its entries are Sword, "
					"Magic Wand. A type takes it as sub_category_object of the category enum."));
	EXPECT_THAT(Warnings(*Ask("read_blueprint_variable", "/Game/Tests/S_Item")),
		ElementsAre(HasSubstr("Its members are Title (string), Unit Price (int).")));
	EXPECT_THAT(Warnings(*Ask("read_blueprint_variable", "/Game/Tests/Nothing")), IsEmpty());
}

TEST(ProjectTypes, WholeNumbersOfLocalVariablesAreShownWhole)
{
	FScene Scene;
	RunTool(TEXT("bp_create_graph"),
		R"({"path":")" + ToStd(Scene.Blueprint.Path()) + R"(","functions":[{"name":"Open"}]})");
	Scene.Populate(R"("local_variables":{"Tries":{"type":{"category":"int"},"default_variable_value":-1},
		"Speed":{"type":{"category":"float"},"default_variable_value":2}},"nodes":[)"
			+ CallNode("p", "KismetSystemLibrary", "PrintString") + "]",
		"Open");
	const std::string Shown = Scene.Read("function", R"("function_name":"Open","detail":"lean")");
	EXPECT_THAT(Shown, HasSubstr(R"({"name":"Tries","type":"int","default_variable_value":"-1"})"));
	EXPECT_THAT(Shown, HasSubstr(R"({"name":"Speed","type":"float","default_variable_value":"2.0"})"));
}
