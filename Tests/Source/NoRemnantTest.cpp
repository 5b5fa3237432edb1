// A request that fails leaves the asset as it was: what its node made beside itself goes with it.

#include "BlueprintActionDatabase.h"
#include "BlueprintNodeSpawner.h"
#include "Populating.h"
#include "Standalone/PackageText.h"

using testing::IsEmpty;
using testing::Not;

namespace NoRemnantTest
{
static std::string SavedText(const FPopulating& Case)
{
	const std::string Text = Case.Blueprint.Folder().Read("Content/Tests/BP_Test.uatext");
	return Text.substr(Text.find("\n\n"));
}

struct FRow
{
	const char* Label;
	const char* Node;
};

const FRow Rows[] = {
	{"formula", R"({"node_guid":"n","class_name":"K2Node_MathExpression","menu_title":"(A + "})"},
	{"formula of an unknown function",
		R"({"node_guid":"n","class_name":"K2Node_MathExpression","menu_title":"Frobnicate(A) + 1"})"},
};
} // namespace NoRemnantTest

using namespace NoRemnantTest;

TEST(NoRemnant, AFailedNodeLeavesNothingBehind)
{
	for (const FRow& Row : Rows)
	{
		FPopulating Case;
		Case.Nodes(R"({"node_guid":"c","menu_title":"Add Comment"})");
		ASSERT_TRUE(Case.Blueprint.Save());
		const std::string Before = SavedText(Case);
		Case.Nodes(Row.Node);
		EXPECT_EQ(Case.Data(TEXT("nodes_created")), "0") << Row.Label;
		EXPECT_THAT(Warnings(*Case.Result), Not(IsEmpty())) << Row.Label;
		ASSERT_TRUE(Case.Blueprint.Save());
		EXPECT_EQ(SavedText(Case), Before) << Row.Label;
	}
}

TEST(NoRemnant, ANodeTakesAlongWhatItMadeBesideItself)
{
	FPopulating Case;
	UEdGraph* const Graph = Case.Blueprint.EventGraph().Get();
	const std::string Before = SavedText(Case);
	const int32 NumBefore = Graph->Nodes.Num();
	TSet<FString> Seen;
	FBlueprintActionDatabase::Get().Update();
	FBlueprintActionDatabase::Get().ForEachAction(
		[&](const FBlueprintAction& Action)
		{
			const FString Class = Action.NodeClass ? Action.NodeClass->GetName() : FString();
			if (Seen.Contains(Class))
			{
				return;
			}
			Seen.Add(Class);
			UEdGraphNode* const Node = Action.Item->GetRawAction()->Invoke(
				Graph, IBlueprintNodeBinder::FBindingSet(), FVector2D(0, 0));
			// Nodes that were made for it in the graph are the author's to keep or to remove.
			while (Node && Graph->Nodes.Num() > NumBefore)
			{
				Graph->Nodes.Last()->DestroyNode();
			}
		});
	EXPECT_TRUE(Seen.Contains(TEXT("K2Node_Timeline")) && Seen.Contains(TEXT("K2Node_AddComponent"))
		&& Seen.Contains(TEXT("K2Node_MathExpression")));
	ASSERT_TRUE(Case.Blueprint.Save());
	EXPECT_EQ(SavedText(Case), Before);
}
