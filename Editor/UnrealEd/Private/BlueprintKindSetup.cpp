#include "BlueprintKindSetup.h"

#include "Animation/AnimBlueprint.h"
#include "AnimationGraph.h"
#include "AnimationGraphSchema.h"
#include "Blueprint/WidgetTree.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Standalone/BlueprintKinds.h"
#include "WidgetBlueprint.h"

namespace BlueprintKindSetup
{
/** The tree starts empty: whoever fills it chooses the root. */
static void FinishWidgetBlueprint(UBlueprint& Blueprint)
{
	UWidgetBlueprint& Widget = static_cast<UWidgetBlueprint&>(Blueprint);
	Widget.WidgetTree = NewObject<UWidgetTree>(&Widget, TEXT("WidgetTree"), RF_Transactional);
}

static void FinishAnimBlueprint(UBlueprint& Blueprint)
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(&Blueprint, UEdGraphSchema_K2::GN_AnimGraph,
		UAnimationGraph::StaticClass(), UAnimationGraphSchema::StaticClass());
	Graph->bAllowDeletion = false;
	Graph->GetSchema()->CreateDefaultNodesForGraph(*Graph);
	Blueprint.FunctionGraphs.Add(Graph);
}
} // namespace BlueprintKindSetup

void RegisterBlueprintKinds()
{
	static bool bDone = false;
	if (bDone)
	{
		return;
	}
	bDone = true;
	BlueprintKinds::RegisterBlueprintClass(TEXT("/Script/UMG.UserWidget"), UWidgetBlueprint::StaticClass());
	BlueprintKinds::RegisterFinisher(UWidgetBlueprint::StaticClass(), &BlueprintKindSetup::FinishWidgetBlueprint);
	BlueprintKinds::RegisterBlueprintClass(TEXT("/Script/Engine.AnimInstance"), UAnimBlueprint::StaticClass());
	BlueprintKinds::RegisterFinisher(UAnimBlueprint::StaticClass(), &BlueprintKindSetup::FinishAnimBlueprint);
}
