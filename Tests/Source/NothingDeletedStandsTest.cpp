// The answer of a call reads back what it changed, and never calls deleted what stands.

#include "AnimStateNode.h"
#include "BlueprintMatchingUtils.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_Composite.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Populating.h"

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace NothingDeletedStandsTest
{
const std::string Print = CallNode("p", "KismetSystemLibrary", "PrintString");

static std::vector<std::string> Contents(const Morvane::FToolResult& Result)
{
	std::vector<std::string> Texts;
	for (const Morvane::FTrackedModification& Change : Result.GetModifications())
	{
		Texts.push_back(ToStd(Change.Content));
	}
	return Texts;
}

static std::string CustomEvent(const std::string& Id, const std::string& Name)
{
	return R"({"node_guid":")" + Id + R"(","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":")" + Name
		+ "\"}}";
}

static auto StandsIn(const char* Text)
{
	return ElementsAre(AllOf(HasSubstr(Text), Not(HasSubstr("\"deleted\""))));
}
} // namespace NothingDeletedStandsTest

using namespace NothingDeletedStandsTest;

TEST(NothingDeletedStands, EventsOfASecondEventGraph)
{
	FPopulating Case;
	Case.Populate(R"("graph_type":"event","nodes":[)" + CustomEvent("c", "Boom") + "]", "Second");
	EXPECT_THAT(Contents(*Case.Result), StandsIn("Boom"));
	Case.Populate("\"nodes\":[" + CustomEvent("c", "Bang") + "]", "second");
	EXPECT_THAT(Contents(*Case.Result), StandsIn("Bang")) << "without a graph_type";
	EXPECT_NE(Case.Data(TEXT("nodes_attached_to_events")), "");
	EXPECT_THAT(Case.Tracked(), ElementsAre(HasSubstr(R"("graph_name":"Second")")));
}

TEST(NothingDeletedStands, GraphsOfEveryKind)
{
	FPopulating Case;
	UEdGraph* const Macro = FBlueprintEditorUtils::CreateNewGraph(
		Case.Blueprint.Get(), TEXT("Twist"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddMacroGraph(Case.Blueprint.Get(), Macro, true, nullptr);
	UK2Node_Composite* const Collapsed = Case.Blueprint.Function(TEXT("Heal")).Add<UK2Node_Composite>();
	UK2Node_Composite* const InEvents = Case.Blueprint.EventGraph().Add<UK2Node_Composite>();
	ASSERT_NE(Collapsed->BoundGraph, nullptr);
	InEvents->BoundGraph->Rename(TEXT("Inside"), nullptr);
	Case.Nodes(Print, "Twist");
	EXPECT_THAT(Contents(*Case.Result), StandsIn("\"macros\""));
	Case.Nodes(Print, ToStd(Collapsed->BoundGraph->GetName()));
	EXPECT_THAT(Contents(*Case.Result), StandsIn("\"Heal\""));
	Case.Nodes(Print, ToStd(InEvents->BoundGraph->GetName()));
	EXPECT_THAT(Contents(*Case.Result), StandsIn("nodes_not_attached_to_an_event"));
}

TEST(NothingDeletedStands, AnimationGraphsAndStateMachines)
{
	FPopulating Case(TEXT("/Script/Engine.AnimInstance"));
	Case.Nodes(LooseNode("m", "Add State Machine"), "AnimGraph");
	ASSERT_THAT(Errors(*Case.Result), IsEmpty());
	EXPECT_THAT(Contents(*Case.Result), StandsIn("AnimGraph"));
	TArray<UEdGraph*> Graphs;
	Case.Blueprint->GetAllGraphs(Graphs);
	UEdGraph* const* const Machine = Graphs.FindByPredicate(
		[](const UEdGraph* Graph) { return Graph->GetClass()->GetName() == TEXT("AnimationStateMachineGraph"); });
	ASSERT_NE(Machine, nullptr);
	const std::string Name = ToStd((*Machine)->GetName());
	FGraphBuilder States(*Machine);
	const UAnimStateNode* const Idle = States.Add<UAnimStateNode>();
	const UAnimStateNode* const Run = States.Add<UAnimStateNode>();
	Case.Populate("\"connections\":["
			+ Link(ToStd(Idle->NodeGuid.ToString()), ToStd(Idle->GetOutputPin()->GetName()),
				ToStd(Run->NodeGuid.ToString()), ToStd(Run->GetInputPin()->GetName()))
			+ "]",
		Name);
	EXPECT_EQ(Case.Data(TEXT("connections_created")), "1");
	EXPECT_THAT(Contents(*Case.Result), StandsIn("AnimGraph"));

	const int32 NumNodes = (*Machine)->Nodes.Num();
	for (const std::string& Refused : {std::string("AnimGraph"), Name})
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(
			TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":")" + Refused + "\"}]}");
		EXPECT_THAT(Errors(*Result), ElementsAre(StartsWith("Failed to create function graph: " + Refused + " (")));
	}
	EXPECT_EQ((*Machine)->Nodes.Num(), NumNodes);
}

TEST(NothingDeletedStands, AReadOfWhatIsNotThereIsNoSuccess)
{
	FPopulating Case(TEXT("/Script/UMG.UserWidget"));
	const std::pair<const TCHAR*, std::string> Reads[] = {
		{TEXT("read_blueprint_event"), R"("graph_name":"EventGraph","event_name":"Nope")"},
		{TEXT("read_blueprint_widget_tree"), R"("widget_name":"Nope")"},
		{TEXT("read_blueprint_variable"), R"("variable_name":"Nope")"},
	};
	for (const auto& [Tool, Rest] : Reads)
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(Tool, R"({"path":"/Game/Tests/BP_Test",)" + Rest + "}");
		EXPECT_THAT(Warnings(*Result), ElementsAre(StartsWith("'Nope' "))) << ToStd(Tool);
		EXPECT_THAT(Successes(*Result), IsEmpty()) << ToStd(Tool);
	}
}

TEST(NothingDeletedStands, ACustomEventCannotTakeAMembersName)
{
	FPopulating Case;
	Case.Blueprint.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	Case.Blueprint.Function(TEXT("Heal"));
	for (const auto& [Name, Reason] : {std::pair("health", "a variable has this name already"),
			 {"Heal", "a function has this name already"}, {"DefaultSceneRoot", "a component has this name already"},
			 {"ReceiveTick", "a function of the parent class 'Actor' has this name already"}})
	{
		Case.Nodes(CustomEvent("c", Name));
		EXPECT_THAT(Warnings(*Case.Result),
			ElementsAre(std::string("Failed to create custom event '") + Name + "' (" + Reason + ")"));
		EXPECT_EQ(Case.Data(TEXT("nodes_failed")), "1");
	}
	Case.Nodes(EventNode("u", "UserConstructionScript"));
	EXPECT_THAT(Errors(*Case.Result), ElementsAre("Event 'UserConstructionScript' not found on class 'Actor'"));
	EXPECT_TRUE(Case.Blueprint.Compiles());
}
