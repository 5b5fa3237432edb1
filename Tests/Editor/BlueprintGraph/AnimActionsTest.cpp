// What of animation is offered where.

#include "BlueprintActionMenuBuilder.h"
#include "BlueprintActionMenuUtils.h"
#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"

#include <gtest/gtest.h>

namespace AnimActionsTests
{
static UEdGraph* PoseGraph(const FBlueprintBuilder& Blueprint)
{
	const TObjectPtr<UEdGraph>* const Found = Blueprint->FunctionGraphs.FindByPredicate(
		[](const TObjectPtr<UEdGraph>& Graph) { return Graph->GetName() == TEXT("AnimGraph"); });
	return Found ? Found->Get() : nullptr;
}

static bool IsOffered(UEdGraph* Graph, const TCHAR* Title)
{
	FBlueprintActionMenuBuilder Menu;
	FBlueprintActionContext Context;
	Context.Blueprints.Add(Graph->GetTypedOuter<UBlueprint>());
	Context.Graphs.Add(Graph);
	FBlueprintActionMenuUtils::MakeContextMenu(Context, false, 0, Menu);
	for (int32 Index = 0; Index < Menu.GetNumActions(); ++Index)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Menu.GetSchemaAction(Index);
		if (Action->GetMenuDescription().ToString() == Title)
		{
			return true;
		}
	}
	return false;
}
const TCHAR* const Titles[] = {TEXT("Apply Additive"), TEXT("Transform (Modify) Bone"), TEXT("Layered blend per bone"),
	TEXT("Use cached pose"), TEXT("Sequence Player"), TEXT("Blend Poses (EMovementMode)")};
} // namespace AnimActionsTests

using namespace AnimActionsTests;

TEST(AnimActions, NodesOfPosesAreOfferedInTheirGraphsAlone)
{
	const FBlueprintBuilder Blueprint(TEXT("/Script/Engine.AnimInstance"));
	for (const TCHAR* const Title : Titles)
	{
		EXPECT_TRUE(IsOffered(PoseGraph(Blueprint), Title)) << ToStd(Title);
		EXPECT_FALSE(IsOffered(Blueprint.EventGraph().Get(), Title)) << ToStd(Title);
	}
	EXPECT_TRUE(IsOffered(Blueprint.EventGraph().Get(), TEXT("Property Access")));
	EXPECT_FALSE(IsOffered(PoseGraph(Blueprint), TEXT("Output Pose"))) << "each graph has its one";
}

TEST(AnimActions, OtherBlueprintsAreOfferedNone)
{
	const FBlueprintBuilder Blueprint;
	for (const TCHAR* const Title : Titles)
	{
		EXPECT_FALSE(IsOffered(Blueprint.EventGraph().Get(), Title)) << ToStd(Title);
	}
	EXPECT_FALSE(IsOffered(Blueprint.EventGraph().Get(), TEXT("Property Access")));
}
