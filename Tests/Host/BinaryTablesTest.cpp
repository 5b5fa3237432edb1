// Assets of the engine's own files that Blueprints refer to: what they hold is shown, and checked where a graph asks.

#include "BinaryAssetsTest.h"
#include "TablePackages.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace BinaryTablesTest
{
static void WriteTables(const FTemporaryFolder& Project, const std::string& Engine)
{
	const FPackageLayout Layout = FPackageLayout::Of(Engine);
	Project.Write("Content/DT_Swords.uasset", TablePackages::DataTable(Layout).Write().Bytes);
	Project.Write("Content/DT_All.uasset", TablePackages::CompositeTable(Layout).Write().Bytes);
	Project.Write("Content/ST_Words.uasset", TablePackages::StringTable(Layout).Write().Bytes);
	Project.Write("Content/E_Colour.uasset", TablePackages::Enum(Layout).Write().Bytes);
}

static std::string Show(const FTemporaryFolder& Project, const std::string& Path)
{
	const FProcessResult Result = RunMorvane({"assets", "--path", Path, "--project", Project.Path()});
	EXPECT_EQ(Result.Status, 0) << Result.Errors;
	std::string Text = Result.Output;
	std::erase_if(Text, [](const char Char) { return Char == '\n' || Char == '\t'; });
	return Text;
}
} // namespace BinaryTablesTest

TEST(BinaryTables, AreShownWithWhatTheyHold)
{
	using namespace BinaryTablesTest;
	for (const std::string Engine : {"4.20", "4.27", "5.3", "5.7"})
	{
		SCOPED_TRACE(Engine);
		const FTemporaryFolder Project;
		WriteTables(Project, Engine);
		const std::string Rows =
			R"("rows": [{"name": "Short","values": {"Damage": "3","Name": "Short, \"sharp\""}},{"name": "Long",)";
		EXPECT_THAT(Show(Project, "/Game/DT_Swords"), AllOf(HasSubstr(Rows), HasSubstr("/Game/S_Sword.S_Sword")));
		EXPECT_THAT(Show(Project, "/Game/DT_All"), HasSubstr(Rows));
		EXPECT_THAT(Show(Project, "/Game/ST_Words"), HasSubstr(R"("entries": {"Hello": "Hi"})"));
		// In the order and by the names of the enum, whatever the order of the shown names.
		EXPECT_THAT(Show(Project, "/Game/E_Colour"),
			HasSubstr(R"("entries": [{"name": "NewEnumerator0","display_name": "Red"},)"
					  R"({"name": "NewEnumerator2","display_name": "Green"},)"
					  R"({"name": "NewEnumerator4","display_name": "Blue"}])"));
	}
}

TEST(BinaryTables, ARowThatATableDoesNotHaveIsAFault)
{
	using namespace BinaryTablesTest;
	const FTemporaryFolder Project;
	WriteTables(Project, "5.7");
	const std::string Populate = R"({"path":"/Game/BP_User","graph_name":"EventGraph",)"
								 R"("nodes":[{"node_guid":"a","menu_title":"Event BeginPlay"},)"
								 R"({"node_guid":"b","menu_title":"Get Data Table Row","pins":[)"
								 R"({"name":"DataTable","value":"/Game/DT_All.DT_All"},)"
								 R"({"name":"RowName","value":"%"}]}],)"
								 R"("connections":[{"source_node_guid":"a","source_pin_name":"then",)"
								 R"("target_node_guid":"b","target_pin_name":"execute"}]})";
	for (const auto& [Row, bThere] : {std::pair("Long", true), std::pair("Broken", false)})
	{
		SCOPED_TRACE(Row);
		std::string Request = Populate;
		Request.replace(Request.find('%'), 1, Row);
		const std::vector<BinaryAssetsTest::FAnswer> Answers = BinaryAssetsTest::RunCalls(Project,
			{{"bp_create_asset",
				 R"({"path":"/Game/BP_User","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})"},
				{"bp_populate_graph", Request}, {"compile_blueprint", R"({"blueprint_paths":["/Game/BP_User"]})"},
				{"delete_blueprint", R"({"path":"/Game/BP_User"})"}});
		// The struct of the rows is not in the project, which is another fault.
		const auto Told = HasSubstr(
			"the row '" + std::string(Row) + "', which 'DT_All' does not have; it has 'Short', 'Long'");
		EXPECT_EQ(testing::Value(Answers[2].Json, Told), !bThere) << Answers[2].Json;
	}
}
