#include "BlueprintActionDatabase.h"
#include "BlueprintActionMenuUtils.h"
#include "BlueprintBuilder.h"
#include "BlueprintNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "GraphBuilder.h"
#include "K2Node_Event.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "UObject/UObjectGlobals.h"

#include <gtest/gtest.h>

namespace ActionMenu
{
static FBlueprintActionMenuBuilder MenuFor(UEdGraph* Graph)
{
	FBlueprintActionContext Context;
	Context.Graphs.Add(Graph);
	Context.Blueprints.Add(Graph->GetTypedOuter<UBlueprint>());
	FBlueprintActionMenuBuilder Menu;
	FBlueprintActionMenuUtils::MakeContextMenu(Context, false, EContextTargetFlags::ContextTargetFlagMask, Menu);
	return Menu;
}

static FString ClassOf(const FEdGraphSchemaAction& Action)
{
	return static_cast<const FBlueprintActionMenuItem&>(Action).GetRawAction()->NodeClass.Get()->GetName();
}

/** Whether an entry of that title stands there; the category too unless it is null. */
static TSharedPtr<FEdGraphSchemaAction> Find(
	const FBlueprintActionMenuBuilder& Menu, const TCHAR* Title, const TCHAR* Category = nullptr)
{
	for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
	{
		if (Action->GetMenuDescription().ToString().Equals(Title)
			&& (!Category || Action->GetCategory().ToString().Equals(Category)))
		{
			return Action;
		}
	}
	return nullptr;
}

struct FRow
{
	const TCHAR* Title;
	const TCHAR* Category;
	const TCHAR* NodeClass;
};

TEST(ActionMenu, WhatAuthorsLookForStandsWhereTheyExpectIt)
{
	static const FRow Rows[] = {{TEXT("Print String"), TEXT("Development"), TEXT("K2Node_CallFunction")},
		{TEXT("Get Actor Location"), TEXT("Transformation"), TEXT("K2Node_CallFunction")},
		{TEXT("Cast To Character"), TEXT("Utilities|Casting"), TEXT("K2Node_DynamicCast")},
		{TEXT("Cast To Character Class"), TEXT("Utilities|Casting"), TEXT("K2Node_ClassDynamicCast")},
		{TEXT("Branch"), TEXT("Utilities|Flow Control"), TEXT("K2Node_IfThenElse")},
		{TEXT("Sequence"), TEXT("Utilities|Flow Control"), TEXT("K2Node_ExecutionSequence")},
		{TEXT("Delay"), TEXT("Utilities|Flow Control"), TEXT("K2Node_CallFunction")},
		{TEXT("Event BeginPlay"), TEXT("Add Event"), TEXT("K2Node_Event")},
		{TEXT("Add"), TEXT("Utilities|Operators"), TEXT("K2Node_PromotableOperator")},
		{TEXT("Add"), TEXT("Utilities|Array"), TEXT("K2Node_CallArrayFunction")},
		{TEXT("For Each Loop"), nullptr, TEXT("K2Node_MacroInstance")},
		{TEXT("Switch on ECollisionChannel"), TEXT("Utilities|Flow Control|Switch"), TEXT("K2Node_SwitchEnum")},
		{TEXT("Space Bar"), TEXT("Input|Keyboard Events"), TEXT("K2Node_InputKey")},
		{TEXT("Set members in Post Process Settings"), TEXT("Utilities|Struct"), TEXT("K2Node_SetFieldsInStruct")},
		{TEXT("Get a reference to self"), TEXT("Variables"), TEXT("K2Node_Self")},
		{TEXT("Break Hit Result"), TEXT("Collision"), TEXT("K2Node_CallFunction")}};
	const FBlueprintBuilder Blueprint;
	const FBlueprintActionMenuBuilder Menu = MenuFor(Blueprint.EventGraph().Get());
	EXPECT_GT(Menu.GetNumActions(), 10000);
	for (const FRow& Row : Rows)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Find(Menu, Row.Title, Row.Category);
		ASSERT_TRUE(Action) << ToStd(Row.Title);
		EXPECT_EQ(ClassOf(*Action), FString(Row.NodeClass)) << ToStd(Row.Title);
	}
}

TEST(ActionMenu, MenusShareTheirEntriesInOneOrder)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder First = MenuFor(Graph);
	const FBlueprintActionMenuBuilder Second = MenuFor(Graph);
	ASSERT_EQ(First.GetNumActions(), Second.GetNumActions());
	for (int32 Index = 0; Index < First.GetNumActions(); ++Index)
	{
		ASSERT_EQ(First.GetSchemaAction(Index).Get(), Second.GetSchemaAction(Index).Get()) << Index;
	}
}

TEST(ActionMenu, AGraphIsOfferedWhatItCanHave)
{
	const FBlueprintBuilder Actor;
	const FBlueprintActionMenuBuilder Events = MenuFor(Actor.EventGraph().Get());
	EXPECT_TRUE(Find(Events, TEXT("Event Tick")));
	const FBlueprintActionMenuBuilder Function = MenuFor(Actor.Function(TEXT("Open")).Get());
	EXPECT_FALSE(Find(Function, TEXT("Event BeginPlay")));
	EXPECT_FALSE(Find(Function, TEXT("Delay")));
	EXPECT_TRUE(Find(Function, TEXT("Print String")));
	// An event is offered below the class that declares it alone.
	EXPECT_FALSE(Find(Events, TEXT("Event Possessed")));
	EXPECT_TRUE(Find(Events, TEXT("Cast To Pawn")));
}

TEST(ActionMenu, ABlueprintsMembersComeAndGoWithTheirDeclarations)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	EXPECT_FALSE(Find(MenuFor(Graph), TEXT("Get Stamina")));
	Blueprint.AddVariable(TEXT("Stamina"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	Blueprint.Function(TEXT("RechargeNow"));
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	EXPECT_TRUE(Find(Menu, TEXT("Get Stamina"), TEXT("Variables|Default")));
	EXPECT_TRUE(Find(Menu, TEXT("Set Stamina"), TEXT("Variables|Default")));
	EXPECT_TRUE(Find(Menu, TEXT("Recharge Now")));
	EXPECT_TRUE(Find(Menu, TEXT("Cast To BP_Test"), TEXT("Utilities|Casting")));
	FBlueprintEditorUtils::RemoveMemberVariable(Blueprint.Get(), TEXT("Stamina"));
	const FBlueprintActionMenuBuilder After = MenuFor(Graph);
	EXPECT_FALSE(Find(After, TEXT("Get Stamina")));
	EXPECT_TRUE(Find(After, TEXT("Recharge Now")));
	// What did not change is the same entry still.
	EXPECT_EQ(Find(After, TEXT("Print String")).Get(), Find(Menu, TEXT("Print String")).Get());
}

TEST(ActionMenu, AChosenActionPlacesItsNodeWhereAsked)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	int32 NumPlaced = 0;
	for (int32 Index = 0; Index < Menu.GetNumActions(); Index += 37)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Menu.GetSchemaAction(Index);
		SCOPED_TRACE(ToStd(Action->GetMenuDescription().ToString()));
		const UEdGraphNode* const Node = Action->PerformAction(Graph, nullptr, FVector2D(Index, 48.0));
		ASSERT_NE(Node, nullptr);
		++NumPlaced;
		EXPECT_FALSE(Node->Pins.IsEmpty());
		EXPECT_TRUE(Node->NodeGuid.IsValid());
		EXPECT_TRUE(Graph->Nodes.Contains(const_cast<UEdGraphNode*>(Node)));
		EXPECT_EQ(Node->GetClass()->GetName(), ClassOf(*Action));
		EXPECT_EQ(Node->NodePosX, Index);
	}
	EXPECT_GT(NumPlaced, 300);
}

TEST(ActionMenu, AnEventStandsOnceInABlueprint)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const TSharedPtr<FEdGraphSchemaAction> Action = Find(MenuFor(Graph), TEXT("Event Hit"));
	ASSERT_TRUE(Action);
	UEdGraphNode* const First = Action->PerformAction(Graph, nullptr, FVector2D(10.0, 10.0));
	ASSERT_NE(First, nullptr);
	EXPECT_EQ(Action->PerformAction(Graph, nullptr, FVector2D(500.0, 500.0)), First);
	EXPECT_EQ(First->NodePosX, 10);
	EXPECT_TRUE(First->FindPin(TEXT("HitLocation")));
}

TEST(ActionMenu, ComponentsOfferTheirEventsToTheirBlueprintAlone)
{
	const FBlueprintBuilder Character(TEXT("/Script/Engine.Character"));
	UEdGraph* const Graph = Character.EventGraph().Get();
	const TCHAR* const Title = TEXT("Add On Component Begin Overlap (CapsuleComponent)");
	const TSharedPtr<FEdGraphSchemaAction> Action = Find(MenuFor(Graph), Title);
	ASSERT_TRUE(Action);
	const UEdGraphNode* const Event = Action->PerformAction(Graph, nullptr, FVector2D(0.0, 0.0));
	ASSERT_NE(Event, nullptr);
	EXPECT_EQ(Event->GetClass()->GetName(), FString(TEXT("K2Node_ComponentBoundEvent")));
	EXPECT_TRUE(Event->FindPin(TEXT("OtherActor"), EGPD_Output));
	EXPECT_EQ(Action->PerformAction(Graph, nullptr, FVector2D(9.0, 9.0)), Event);
	UEdGraph* const Loose = NewObject<UEdGraph>(GetTransientPackageAsObject());
	Loose->Schema = UEdGraphSchema_K2::StaticClass();
	EXPECT_FALSE(Find(MenuFor(Loose), Title));
}

TEST(ActionMenu, ANodeDraggedFromAPinIsWiredToIt)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	UEdGraphNode* const Event = Find(Menu, TEXT("Event Destroyed"))->PerformAction(Graph, nullptr, FVector2D(0.0, 0.0));
	ASSERT_NE(Event, nullptr);
	UEdGraphPin* const Then = Event->FindPin(TEXT("then"));
	const UEdGraphNode* const Print =
		Find(Menu, TEXT("Print String"))->PerformAction(Graph, Then, FVector2D(300.0, 0.0));
	ASSERT_EQ(Then->LinkedTo.Num(), 1);
	EXPECT_EQ(Then->LinkedTo[0]->GetOwningNode(), Print);
}
} // namespace ActionMenu
