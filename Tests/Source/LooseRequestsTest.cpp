#include <map>
#include <sstream>

#include "EdGraph/EdGraph.h"
#include "Populating.h"
#include "RequestSets.h"

// What authors write who know editors and languages, but not the titles of this menu. Each request goes the whole way
// of a populate call; a request is right when the node that it means came out, wrong when another one did.

namespace LooseRequestsTest
{
struct FRequest
{
	std::string Kind, Graph, NodeClass, Text, Meant;
	/** Every other line is left alone while the matching is tuned, so that its score tells what strangers will see. */
	bool bHeldOut = false;
};

static std::vector<FRequest> ReadRequests(const std::string& FileName)
{
	std::vector<FRequest> Requests;
	for (const FRequestColumns& Columns : ReadRequestSet(FileName))
	{
		const bool bHeldOut = Requests.size() % 2 == 1;
		Requests.push_back({Columns.at(0), Columns.at(1), Columns.at(2), Columns.at(3), Columns.at(4), bHeldOut});
	}
	return Requests;
}

/** The assets that the requests speak of. */
struct FStage
{
	FStage()
	{
		Make("BP_Hero", "/Script/Engine.Character");
		Make("MyCharacter", "/Script/Engine.Character");
		Make("WBP_Menu", "/Script/UMG.UserWidget");
		Make("ABP_Hero", "/Script/Engine.AnimInstance");
		Make("BP_Door", "/Script/Engine.Actor");
		Do(TEXT("modify_blueprint_class_structure"),
			R"({"path":"/Game/BP_Door","variables":{"Health":{"action":"add","type":{"category":"float"}},
			"bIsOpen":{"action":"add","type":{"category":"bool"}},"Score":{"action":"add","type":{"category":"int"}},
			"Items":{"action":"add","type":{"category":"string","container_type":"array"}},
			"Speed":{"action":"add","type":{"category":"float"}},
			"Target":{"action":"add","type":{"category":"object","sub_category_object":"/Script/Engine.Actor"}}},
			"components":[{"name":"DoorMesh","type":"StaticMeshComponent"},{"name":"Trigger","type":"BoxComponent"}],
			"delegates":[{"name":"OnOpened"}]})");
		Do(TEXT("bp_create_graph"), R"({"path":"/Game/BP_Door","functions":[{"name":"OpenDoor"},{"name":"Compute"}]})");
		Do(TEXT("compile_blueprint"), R"({"blueprint_paths":["/Game/BP_Door"]})");
	}

	/** The names of the nodes that the requests made; "nothing" where none was made. */
	std::vector<std::string> Populate(const std::string& Graph, const std::vector<FRequest>& Requests)
	{
		static const std::map<std::string, std::pair<std::string, std::string>> Graphs = {
			{"door", {"/Game/BP_Door", "EventGraph"}}, {"func", {"/Game/BP_Door", "Compute"}},
			{"hero", {"/Game/BP_Hero", "EventGraph"}}, {"menu", {"/Game/WBP_Menu", "EventGraph"}},
			{"anim", {"/Game/ABP_Hero", "EventGraph"}}};
		const auto& [Path, GraphName] = Graphs.at(Graph);
		std::string Nodes;
		for (size_t Index = 0; Index < Requests.size(); ++Index)
		{
			const TSharedRef<FJsonObject> Node = MakeShared<FJsonObject>();
			Node->SetStringField(TEXT("node_guid"), FString(UTF8_TO_TCHAR(IdOf(Index).c_str())));
			Node->SetStringField(TEXT("menu_title"), FString(UTF8_TO_TCHAR(Requests[Index].Text.c_str())));
			if (!Requests[Index].NodeClass.empty())
			{
				Node->SetStringField(TEXT("class_name"), FString(UTF8_TO_TCHAR(Requests[Index].NodeClass.c_str())));
			}
			Nodes += (Index == 0 ? "" : ",") + JsonText(Node);
		}
		Result = RunTool(Morvane::ToolInfo::ToolName_BPPopulateGraph,
			R"({"path":")" + Path + R"(","graph_name":")" + GraphName + R"(","nodes":[)" + Nodes + "]}");
		return NamesOfCreated(Path, GraphName, Requests.size());
	}

private:
	static void Do(const TCHAR* Tool, const std::string& Arguments)
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(Tool, Arguments);
		EXPECT_TRUE(Result->WasSuccessful()) << Arguments;
	}
	static void Make(const std::string& Name, const std::string& Parent)
	{
		Do(TEXT("bp_create_asset"),
			R"({"path":"/Game/)" + Name + R"(","blueprint_parent_class":{"type":"native","parent_path":")" + Parent
				+ R"("}})");
	}
	static std::string IdOf(size_t Index) { return "n" + std::to_string(Index); }

	std::vector<std::string> NamesOfCreated(const std::string& Path, const std::string& GraphName, size_t Count) const
	{
		std::vector<std::string> Names(Count, "nothing");
		const UBlueprint* const Blueprint = LoadObject<UBlueprint>(nullptr, UTF8_TO_TCHAR(Path.c_str()));
		TArray<UEdGraph*> Graphs;
		Blueprint->GetAllGraphs(Graphs);
		std::map<std::string, const UEdGraphNode*> NodeById;
		for (const UEdGraph* const Graph : Graphs)
		{
			for (const UEdGraphNode* const Node : Graph->Nodes)
			{
				NodeById[ToStd(Node->NodeGuid.ToString(EGuidFormats::Digits)).substr(0, 7)] = Node;
			}
		}
		const std::string Summary = ToStd(Result->GetDatas()->GetStringField(TEXT("created_nodes_summary")));
		EXPECT_FALSE(Summary.empty()) << ::testing::PrintToString(Errors(*Result));
		if (Summary.empty())
		{
			return Names;
		}
		const TSharedRef<FJsonObject> Created = Json(Summary);
		for (const TSharedPtr<FJsonValue>& Item : Created->GetArrayField(TEXT("items")))
		{
			const std::string Id = ToStd(Item->AsObject()->GetStringField(TEXT("request_guid")));
			const std::string Guid = ToStd(Item->AsObject()->GetStringField(TEXT("node_guid")));
			const auto Found = NodeById.find(Guid.substr(0, 7));
			Names[std::stoul(Id.substr(1))] = Found == NodeById.end() ? "gone" : NameNodeInAWord(Found->second);
		}
		return Names;
	}

	FBlueprintBuilder Project;
	TSharedPtr<Morvane::FToolResult> Result;
};

struct FTally
{
	int32 Right = 0;
	int32 Wrong = 0;
	int32 None = 0;
	int32 Num() const { return Right + Wrong + None; }
};

static std::string Show(const FTally& Tally)
{
	std::ostringstream Text;
	Text << Tally.Right << " right, " << Tally.Wrong << " wrong, " << Tally.None << " none of " << Tally.Num();
	return Text.str();
}

using FTallies = std::map<std::string, FTally>;

/** Tells what went wrong while somebody tunes: MORVANE_TELL for the tuned half, MORVANE_TELL_HELD_OUT for the other. */
static void Tell(const FRequest& Request, const std::string& Name)
{
	const bool bTellHeldOut = std::getenv("MORVANE_TELL_HELD_OUT") != nullptr;
	const bool bTell = bTellHeldOut || std::getenv("MORVANE_TELL") != nullptr;
	if (bTell && Request.bHeldOut == bTellHeldOut)
	{
		std::cout << (Name == "nothing" ? "none  " : "WRONG ") << "[" << Request.Graph << "] " << Request.Text << " {"
				  << Request.NodeClass << "} -> " << Name << ", meant " << Request.Meant << "\n";
	}
}

static FTallies RunSet(const std::string& FileName)
{
	std::map<std::string, std::vector<FRequest>> ByGraph;
	for (const FRequest& Request : ReadRequests(FileName))
	{
		ByGraph[Request.Graph].push_back(Request);
	}
	FStage Stage;
	FTallies Tallies;
	for (const auto& [Graph, Requests] : ByGraph)
	{
		const std::vector<std::string> Names = Stage.Populate(Graph, Requests);
		for (size_t Index = 0; Index < Requests.size(); ++Index)
		{
			const FRequest& Request = Requests[Index];
			FTally& Tally = Tallies[Request.Kind + (Request.bHeldOut ? " held out" : " tuned")];
			const bool bRight = IsOneOfTheMeant(Names[Index], Request.Meant);
			++(bRight ? Tally.Right : Names[Index] == "nothing" ? Tally.None : Tally.Wrong);
			if (!bRight)
			{
				Tell(Request, Names[Index]);
			}
		}
	}
	return Tallies;
}

class LooseRequests : public testing::TestWithParam<const char*>
{
};

TEST_P(LooseRequests, MeantNodesComeOut)
{
	for (const auto& [Kind, Tally] : RunSet(GetParam()))
	{
		const bool bNonsense = Kind.starts_with("nonsense");
		EXPECT_GE(Tally.Right * 100, Tally.Num() * (bNonsense ? 97 : 88)) << Kind << ": " << Show(Tally);
		EXPECT_LT(Tally.Wrong * 100, Tally.Num() * (Kind.starts_with("lurking") ? 10 : 4))
			<< Kind << ": " << Show(Tally);
		RecordProperty(Kind, Show(Tally));
		std::cout << Kind << ": " << Show(Tally) << "\n";
	}
}

static std::string NameSet(const testing::TestParamInfo<const char*>& Info)
{
	const std::string File(Info.param);
	const size_t Begin = File.find_last_of('/') + 1; // npos wraps to the beginning
	return File.substr(Begin, File.find_last_of('.') - Begin);
}

INSTANTIATE_TEST_SUITE_P(
	Sets, LooseRequests, testing::Values("loose.tsv", "areas.tsv", "further.tsv", "third.tsv", "tuning.tsv"), NameSet);

/** A set that lies elsewhere, for whoever writes one: MORVANE_REQUESTS=/path/to/set.tsv. */
TEST(LooseRequestsElsewhere, GoTheSameWay)
{
	const char* const File = std::getenv("MORVANE_REQUESTS");
	if (!File)
	{
		GTEST_SKIP() << "no other set was named";
	}
	for (const auto& [Kind, Tally] : RunSet(File))
	{
		std::cout << Kind << ": " << Show(Tally) << "\n";
	}
}
} // namespace LooseRequestsTest
