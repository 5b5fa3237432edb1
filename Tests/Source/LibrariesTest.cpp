// Function libraries and interfaces are made as such from their parents, and used by others.

#include "BlueprintUtils.h"
#include "Populating.h"
#include "UObject/Package.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace LibrariesTest
{
static UBlueprint* Make(const char* Path, const char* Parent)
{
	const TSharedPtr<Morvane::FToolResult> Made = RunTool(TEXT("bp_create_asset"),
		std::string(R"({"path":")") + Path + R"(","blueprint_parent_class":{"type":"native","parent_path":")" + Parent
			+ "\"}}");
	EXPECT_THAT(Errors(*Made), IsEmpty());
	return FBlueprintUtils::TryLoadBlueprint(FromUtf8(Path));
}

/** One whose parent makes another type of Blueprint of it, without an event graph. */
static const UBlueprint* MakeOfType(const char* Path, const char* Parent, EBlueprintType Type)
{
	const UBlueprint* const Blueprint = Make(Path, Parent);
	EXPECT_NE(Blueprint, nullptr);
	EXPECT_TRUE(!Blueprint || (Blueprint->BlueprintType == Type && Blueprint->UbergraphPages.IsEmpty()));
	return Blueprint;
}

static TSharedPtr<Morvane::FToolResult> AddFunction(const char* Path, const std::string& Function)
{
	return RunTool(
		TEXT("bp_create_graph"), std::string(R"({"path":")") + Path + R"(","functions":[)" + Function + "]}");
}
} // namespace LibrariesTest

using namespace LibrariesTest;

TEST(Libraries, FunctionsAreStaticAndCompileInTheirCallers)
{
	FPopulating Case;
	const UBlueprint* const Library = MakeOfType(
		"/Game/Lib/BFL_Sums", "/Script/Engine.BlueprintFunctionLibrary", BPTYPE_FunctionLibrary);
	ASSERT_NE(Library, nullptr);
	EXPECT_THAT(
		Errors(*AddFunction("/Game/Lib/BFL_Sums",
			R"({"name":"AddUp","parameters":[{"name":"A","type":{"category":"int"}}],"return_type":{"category":"int"}})")),
		IsEmpty());
	const UFunction* const Function = Library->GeneratedClass->FindFunctionByName(TEXT("AddUp"));
	ASSERT_NE(Function, nullptr);
	EXPECT_TRUE(Function->HasAnyFunctionFlags(FUNC_Static));

	Case.Nodes(
		EventNode("e", "ReceiveBeginPlay") + "," + LooseNode("t", "Add Up") + "," + CallNode("x", "BFL_Sums", "AddUp"));
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre(HasSubstr("already exists"))) << "the event alone";
	EXPECT_TRUE(Case.Blueprint.Compiles());

	for (const char* const Graph : {"EventGraph", "Another"})
	{
		const TSharedPtr<Morvane::FToolResult> Filled = RunTool(TEXT("bp_populate_graph"),
			std::string(R"({"path":"BFL_Sums","graph_type":"event","graph_name":")") + Graph
				+ R"(","nodes":[{"menu_title":"Branch"}]})");
		EXPECT_THAT(Errors(*Filled),
			ElementsAre(
				std::string("Failed to create event graph '") + Graph + "' (a function library has no event graph)"));
	}
	EXPECT_THAT(Errors(*AddFunction("BFL_Sums", R"({"name":"OnSum","is_delegate":true})")),
		ElementsAre("Failed to create delegate signature graph: OnSum (a function library has no event dispatchers)"));
}

TEST(Libraries, InterfacesHaveFunctionsWithoutBodiesAndMessagesForAll)
{
	FPopulating Case;
	const UBlueprint* const Interface = MakeOfType(
		"/Game/Lib/BPI_Use", "/Script/CoreUObject.Interface", BPTYPE_Interface);
	ASSERT_NE(Interface, nullptr);
	EXPECT_THAT(
		Errors(*AddFunction("BPI_Use", R"({"name":"UseIt","parameters":[{"name":"A","type":{"category":"int"}}]})")),
		IsEmpty());
	Case.Nodes(LooseNode("m", "Use It (Message)"));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	const TSharedPtr<Morvane::FToolResult> Filled = RunTool(
		TEXT("bp_populate_graph"), R"({"path":"BPI_Use","graph_name":"UseIt","nodes":[{"menu_title":"Branch"}]})");
	EXPECT_THAT(Errors(*Filled),
		ElementsAre(StartsWith("Graph 'UseIt' belongs to an interface, whose functions have no body.")));
	const TSharedPtr<Morvane::FToolResult> Compiled = RunTool(
		TEXT("compile_blueprint"), R"({"blueprint_paths":["BPI_Use","BP_Test"]})");
	EXPECT_THAT(Errors(*Compiled), IsEmpty());
}

TEST(Libraries, AToolFindsTheFunctionsOfBlueprintsThatAreNotLoaded)
{
	FPopulating Case;
	UBlueprint* const Lantern = Make("/Game/Lib/BP_Lantern", "/Script/Engine.Actor");
	ASSERT_THAT(Errors(*AddFunction("BP_Lantern", R"({"name":"LightTheLantern"})")), IsEmpty());
	Lantern->GetOutermost()->MarkAsGarbage();
	CollectGarbage();
	Case.Nodes(LooseNode("l", "Light the Lantern"));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_THAT(Case.Data(TEXT("created_nodes_summary")), HasSubstr("Light the Lantern"));
	FindPackage(nullptr, TEXT("/Game/Lib/BP_Lantern"))->MarkAsGarbage();
}
