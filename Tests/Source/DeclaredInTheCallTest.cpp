// What one call declares, the same call can use: locals, custom events, inherited and other variables.

#include "Blueprint/WidgetTree.h"
#include "BlueprintMatchingUtils.h"
#include "Components/Widget.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Composite.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Populating.h"
#include "WidgetBlueprint.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace DeclaredInTheCallTest
{
static std::string VariableNode(const std::string& Id, const std::string& Name, const char* Kind = "Get")
{
	return R"({"node_guid":")" + Id + R"(","class_name":"K2Node_Variable)" + Kind
		+ R"(","node_metadata":{"variable_name":")" + Name + "\"}}";
}

const std::string IntLocal = R"("local_variables":[{"name":"Index","type":{"category":"int"}}])";

template <typename TNode>
TArray<TNode*> NodesIn(const FPopulating& Case, const TCHAR* Graph)
{
	TArray<TNode*> Nodes;
	FBlueprintMatchingUtils::FindGraphByName(Case.Blueprint.Get(), Graph)->GetNodesOfClass(Nodes);
	return Nodes;
}
} // namespace DeclaredInTheCallTest

using namespace DeclaredInTheCallTest;

TEST(DeclaredInTheCall, LocalsAreFoundByTitleAndByName)
{
	FPopulating Case;
	Case.Blueprint.Function(TEXT("Count"));
	Case.Populate("\"nodes\":[" + LooseNode("g", "Get Index") + "," + LooseNode("s", "Set Index") + ","
			+ VariableNode("n", "index") + "]," + IntLocal + ",\"connections\":[" + Link("n", "Index", "s", "Index")
			+ "]",
		"Count");
	EXPECT_THAT(Errors(*Case.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());

	ASSERT_NE(Case.Blueprint.Reload(), nullptr);
	const TArray<UK2Node_VariableGet*> Gets = NodesIn<UK2Node_VariableGet>(Case, TEXT("Count"));
	const TArray<UK2Node_VariableSet*> Sets = NodesIn<UK2Node_VariableSet>(Case, TEXT("Count"));
	ASSERT_EQ(Gets.Num(), 2);
	ASSERT_EQ(Sets.Num(), 1);
	for (const UK2Node_Variable* const Node : {static_cast<UK2Node_Variable*>(Gets[0]),
			 static_cast<UK2Node_Variable*>(Gets[1]), static_cast<UK2Node_Variable*>(Sets[0])})
	{
		EXPECT_TRUE(Node->VariableReference.IsLocalScope());
		EXPECT_EQ(Node->GetVarName(), FName(TEXT("Index")));
	}
	EXPECT_TRUE(Case.Blueprint.Compiles());

	UK2Node_Composite* const Collapsed = FGraphBuilder(
		FBlueprintMatchingUtils::FindGraphByName(Case.Blueprint.Get(), TEXT("Count")))
											 .Add<UK2Node_Composite>();
	Case.Nodes(LooseNode("g", "Get Index") + "," + VariableNode("n", "Index"), ToStd(Collapsed->BoundGraph->GetName()));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << "also in what is collapsed in the function";
	EXPECT_TRUE(Case.Blueprint.Compiles());
}

TEST(DeclaredInTheCall, CustomEventsAreCalledByTitleAndExactly)
{
	FPopulating Case;
	Case.Nodes(LooseNode("t", "Open Gate") + "," + CallNode("x", "BP_Test", "OpenGate") + ","
		+ R"({"node_guid":"c","class_name":"K2NODE_CustomEvent","node_metadata":{"event_name":"OpenGate"}})");
	EXPECT_THAT(Errors(*Case.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	const TArray<UK2Node_CallFunction*> Calls = NodesIn<UK2Node_CallFunction>(Case, TEXT("EventGraph"));
	ASSERT_EQ(Calls.Num(), 2);
	for (const UK2Node_CallFunction* const Call : Calls)
	{
		EXPECT_EQ(Call->GetFunctionName(), FName(TEXT("OpenGate")));
		EXPECT_NE(Call->GetTargetFunction(), nullptr);
	}
	EXPECT_TRUE(Case.Blueprint.Compiles());
}

TEST(DeclaredInTheCall, TheMenuIsMadeForNodesThatMayNeedItAndNotForEvents)
{
	FPopulating Case;
	Case.Nodes(EventNode("e", "ReceiveTick")
		+ R"(,{"node_guid":"c","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":"Boom"}})");
	EXPECT_EQ(Case.Told(TEXT("cam_action_count")), "");
	EXPECT_NE(Case.Told(TEXT("session_summary")), "");
	Case.Nodes(LooseNode("b", "Branch"));
	EXPECT_NE(Case.Told(TEXT("cam_action_count")), "");
	EXPECT_NE(Case.Told(TEXT("cam_build_time_ms")), "");
	EXPECT_EQ(Case.Told(TEXT("context_sensitive")), "false");
}

TEST(DeclaredInTheCall, VariableNamesFindWhatTheClassHas)
{
	FPopulating Case(TEXT("/Script/Engine.Character"));
	for (const auto& [Name, Kind] : {std::pair("CharacterMovement", "Get"), {"bCanBeDamaged", "Get"},
			 {"bCanBeDamaged", "Set"}, {"bisCrouched", "Get"}})
	{
		Case.Nodes(VariableNode("v", Name, Kind));
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << Kind << " " << Name;
		EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1") << Kind << " " << Name;
	}
	EXPECT_TRUE(Case.Blueprint.Compiles());
	Case.Nodes(VariableNode("v", "CharacterMovement", "Set"));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"[Failure] Variable 'CharacterMovement' is read-only in Blueprints. Use K2Node_VariableGet to read it."));
	Case.Nodes(VariableNode("v", "PrimaryActorTick"));
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre(HasSubstr("Variable 'PrimaryActorTick' does not exist")))
		<< "a property that Blueprints do not see";
}

TEST(DeclaredInTheCall, VariableNamesFindWidgetsAndInheritedComponents)
{
	FPopulating Case(TEXT("/Script/UMG.UserWidget"));
	UWidgetTree* const Tree = CastChecked<UWidgetBlueprint>(Case.Blueprint.Get())->WidgetTree;
	UWidget* const Title = Tree->ConstructWidget(
		FindObject<UClass>(nullptr, TEXT("/Script/UMG.TextBlock")), TEXT("Title"));
	Title->bIsVariable = true;
	Tree->RootWidget = Title;
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Case.Blueprint.Get());
	Case.Nodes(VariableNode("v", "Title"));
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_TRUE(Case.Blueprint.Compiles());

	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/A/BP_CallBase","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})");
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/A/BP_CallChild","blueprint_parent_class":{"type":"blueprint","parent_path":"BP_CallBase"}})");
	const TSharedPtr<Morvane::FToolResult> Inherited = RunTool(TEXT("bp_populate_graph"),
		R"({"path":"BP_CallChild","graph_name":"EventGraph","nodes":[)" + VariableNode("v", "DefaultSceneRoot") + "]}");
	EXPECT_THAT(Warnings(*Inherited), IsEmpty());
}

TEST(DeclaredInTheCall, ARetypedLocalTakesItsNodesAlong)
{
	FPopulating Case;
	Case.Blueprint.Function(TEXT("Count"));
	Case.Populate("\"nodes\":[" + VariableNode("g", "Index") + "]," + IntLocal, "Count");
	const std::string Get = Case.GuidOf("g");
	Case.Populate("\"nodes\":[" + CallNode("p", "KismetSystemLibrary", "PrintText", R"("pins":[])") + R"(],
		"local_variables":[{"name":"index","action":"modify","type":{"category":"text"}}],"connections":[)"
			+ Link(Get, "Index", "p", "InText") + "]",
		"Count");
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_EQ(Case.Data(TEXT("connections_created")), "1");
	const TArray<UK2Node_VariableGet*> Gets = NodesIn<UK2Node_VariableGet>(Case, TEXT("Count"));
	ASSERT_EQ(Gets.Num(), 1);
	EXPECT_EQ(Gets[0]->GetValuePin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Text);
	EXPECT_EQ(NodesIn<UK2Node>(Case, TEXT("Count")).Num(), 3) << "linked directly, with no conversion between";
	EXPECT_TRUE(Case.Blueprint.Compiles());
}
