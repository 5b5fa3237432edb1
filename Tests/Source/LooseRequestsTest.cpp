#include <fstream>
#include <map>
#include <sstream>

#include "EdGraph/EdGraph.h"
#include "K2Node_AddComponent.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_InputKey.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_StructOperation.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_Variable.h"
#include "Populating.h"
#include "Standalone/K2Node_EnumNodes.h"

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

static std::vector<FRequest> ReadRequests()
{
	std::ifstream File(MORVANE_SOURCE_DIR "/Tests/Data/Requests/loose.tsv");
	std::vector<FRequest> Requests;
	int32 Number = 0;
	for (std::string Line; std::getline(File, Line);)
	{
		if (Line.empty() || Line.starts_with("# "))
		{
			continue;
		}
		FRequest Request;
		std::istringstream Columns(Line);
		std::getline(Columns, Request.Kind, '\t');
		std::getline(Columns, Request.Graph, '\t');
		std::getline(Columns, Request.NodeClass, '\t');
		std::getline(Columns, Request.Text, '\t');
		std::getline(Columns, Request.Meant, '\t');
		Request.bHeldOut = ++Number % 2 == 0;
		Requests.push_back(Request);
	}
	return Requests;
}

static std::string WithoutNumber(std::string Name)
{
	const size_t End = Name.find_last_of('.');
	return End == std::string::npos ? Name : Name.substr(End + 1);
}

static std::string NameOf(const UObject* Object)
{
	return Object ? ToStd(Object->GetName()) : std::string("?");
}

static std::string NameCall(const UK2Node_CallFunction& Node)
{
	const UFunction* const Function = Node.GetTargetFunction();
	const std::string Owner = Function ? NameOf(Function->GetOuter()) : "?";
	return Owner + "." + ToStd(Node.GetFunctionName().ToString());
}

static std::string NameDelegate(const UK2Node_BaseMCDelegate& Node)
{
	static const std::map<std::string, std::string> Verbs = {{"K2Node_AddDelegate", "Bind"},
		{"K2Node_AssignDelegate", "Assign"}, {"K2Node_CallDelegate", "Call"}, {"K2Node_RemoveDelegate", "Unbind"},
		{"K2Node_ClearDelegate", "Clear"}};
	return Verbs.at(NameOf(Node.GetClass())) + "." + ToStd(Node.DelegateReference.GetMemberName().ToString());
}

static std::string NameVariable(const UK2Node_Variable& Node)
{
	const bool bSet = NameOf(Node.GetClass()) == "K2Node_VariableSet";
	const std::string Owner = Node.VariableReference.IsSelfContext()
		? ""
		: NameOf(Node.VariableReference.GetMemberParentClass()) + ".";
	return (bSet ? "Set." : "Get.") + Owner + ToStd(Node.VariableReference.GetMemberName().ToString());
}

/** What the node is and does, in a word. */
static std::string NameNode(const UEdGraphNode* Node)
{
	const std::string Class = NameOf(Node->GetClass());
	const std::string Plain = Class.starts_with("K2Node_") ? Class.substr(7) : Class;
	if (const auto* const Operator = Cast<UK2Node_PromotableOperator>(Node))
	{
		return "Op." + ToStd(Operator->OperationName.ToString());
	}
	if (const auto* const Component = Cast<UK2Node_AddComponent>(Node))
	{
		return "AddComponent." + NameOf(Component->TemplateType.Get());
	}
	if (const auto* const Call = Cast<UK2Node_CallFunction>(Node))
	{
		return NameCall(*Call);
	}
	if (Cast<UK2Node_CustomEvent>(Node))
	{
		return "CustomEvent";
	}
	if (const auto* const Event = Cast<UK2Node_Event>(Node))
	{
		return "Event." + ToStd(Event->GetFunctionName().ToString());
	}
	if (const auto* const Macro = Cast<UK2Node_MacroInstance>(Node))
	{
		return "Macro." + NameOf(Macro->GetMacroGraph());
	}
	if (const auto* const ToClass = Cast<UK2Node_ClassDynamicCast>(Node))
	{
		return "ClassCast." + NameOf(ToClass->TargetType.Get());
	}
	if (const auto* const ToObject = Cast<UK2Node_DynamicCast>(Node))
	{
		return "Cast." + NameOf(ToObject->TargetType.Get());
	}
	if (const auto* const Switch = Cast<UK2Node_SwitchEnum>(Node))
	{
		return "Switch." + NameOf(Switch->Enum.Get());
	}
	if (const auto* const OfEnum = Cast<UK2Node_EnumNodeBase>(Node))
	{
		return Plain + "." + NameOf(OfEnum->Enum.Get());
	}
	if (const auto* const Delegate = Cast<UK2Node_BaseMCDelegate>(Node))
	{
		return NameDelegate(*Delegate);
	}
	if (const auto* const Key = Cast<UK2Node_InputKey>(Node))
	{
		return "Key." + ToStd(Key->InputKey.GetFName().ToString());
	}
	if (const auto* const Struct = Cast<UK2Node_StructOperation>(Node))
	{
		return Plain + "." + NameOf(Struct->StructType.Get());
	}
	if (const auto* const Variable = Cast<UK2Node_Variable>(Node))
	{
		return NameVariable(*Variable);
	}
	return Plain;
}

/** "K2_SetActorLocation" stands for "Actor.K2_SetActorLocation", and a trailing star for any ending. */
static bool Fits(const std::string& Name, const std::string& Meant)
{
	if (Meant.ends_with("*"))
	{
		const std::string Stem = Meant.substr(0, Meant.size() - 1);
		return Name.starts_with(Stem) || WithoutNumber(Name).starts_with(Stem);
	}
	return Name == Meant || (Meant.find('.') == std::string::npos && WithoutNumber(Name) == Meant);
}

static bool FitsOne(const std::string& Name, const std::string& Meant)
{
	for (size_t Begin = 0; Begin <= Meant.size();)
	{
		const size_t End = std::min(Meant.find(" / ", Begin), Meant.size());
		if (Fits(Name, Meant.substr(Begin, End - Begin)))
		{
			return true;
		}
		Begin = End + 3;
	}
	return false;
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
			Names[std::stoul(Id.substr(1))] = Found == NodeById.end() ? "gone" : NameNode(Found->second);
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

TEST(LooseRequests, MeantNodesComeOut)
{
	const bool bTellHeldOut = std::getenv("MORVANE_TELL_HELD_OUT") != nullptr;
	const bool bTell = bTellHeldOut || std::getenv("MORVANE_TELL") != nullptr;
	std::map<std::string, std::vector<FRequest>> ByGraph;
	for (const FRequest& Request : ReadRequests())
	{
		ByGraph[Request.Graph].push_back(Request);
	}
	FStage Stage;
	std::map<std::string, FTally> Tallies;
	for (const auto& [Graph, Requests] : ByGraph)
	{
		const std::vector<std::string> Names = Stage.Populate(Graph, Requests);
		for (size_t Index = 0; Index < Requests.size(); ++Index)
		{
			const FRequest& Request = Requests[Index];
			FTally& Tally = Tallies[Request.Kind + (Request.bHeldOut ? " held out" : " tuned")];
			const bool bRight = FitsOne(Names[Index], Request.Meant);
			const bool bNone = !bRight && Names[Index] == "nothing";
			++(bRight ? Tally.Right : bNone ? Tally.None : Tally.Wrong);
			if (bTell && !bRight && Request.bHeldOut == bTellHeldOut)
			{
				std::cout << (bNone ? "none  " : "WRONG ") << "[" << Graph << "] " << Request.Text << " {"
						  << Request.NodeClass << "} -> " << Names[Index] << ", meant " << Request.Meant << "\n";
			}
		}
	}
	for (const auto& [Kind, Tally] : Tallies)
	{
		const bool bNonsense = Kind.starts_with("nonsense");
		EXPECT_GE(Tally.Right * 100, Tally.Num() * (bNonsense ? 97 : 88)) << Kind << ": " << Show(Tally);
		EXPECT_LT(Tally.Wrong * 100, Tally.Num() * (Kind.starts_with("lurking") ? 10 : 4))
			<< Kind << ": " << Show(Tally);
		RecordProperty(Kind, Show(Tally));
		std::cout << Kind << ": " << Show(Tally) << "\n";
	}
}
} // namespace LooseRequestsTest
