#include "ActionMenuQueries.h"
#include "BlueprintActionDatabase.h"
#include "BlueprintBuilder.h"
#include "Components/ActorComponent.h"
#include "EdGraphSchema_K2.h"
#include "GraphBuilder.h"
#include "K2Node_AddComponent.h"
#include "K2Node_Event.h"
#include "UObject/UObjectGlobals.h"

#include <gtest/gtest.h>

namespace ActionMenu
{
using namespace ActionMenuQueries;

struct FRow
{
	const TCHAR* Title;
	const TCHAR* Category;
	const TCHAR* NodeClass;
};

/** As a Blueprint of Actor reads them. */
static const FRow WellKnown[] = {
	// Calls.
	{TEXT("Print String"), TEXT("Development"), TEXT("K2Node_CallFunction")},
	{TEXT("Get Actor Location"), TEXT("Transformation"), TEXT("K2Node_CallFunction")},
	{TEXT("Delay"), TEXT("Utilities|Flow Control"), TEXT("K2Node_CallFunction")},
	{TEXT("Break Hit Result"), TEXT("Collision"), TEXT("K2Node_CallFunction")},
	{TEXT("Random Float in Range"), TEXT("Math|Random"), TEXT("K2Node_CallFunction")},
	{TEXT("Lerp (Vector)"), TEXT("Math|Vector"), TEXT("K2Node_CallFunction")},
	{TEXT("Add"), TEXT("Utilities|Operators"), TEXT("K2Node_PromotableOperator")},
	{TEXT("Add"), TEXT("Utilities|Array"), TEXT("K2Node_CallArrayFunction")},
	{TEXT("AND Boolean"), TEXT("Math|Boolean"), TEXT("K2Node_CommutativeAssociativeBinaryOperator")},
	{TEXT("Is Valid"), TEXT("Utilities"), TEXT("K2Node_CallFunction")},
	// Flow, values and macros.
	{TEXT("Branch"), TEXT("Utilities|Flow Control"), TEXT("K2Node_IfThenElse")},
	{TEXT("Sequence"), TEXT("Utilities|Flow Control"), TEXT("K2Node_ExecutionSequence")},
	{TEXT("MultiGate"), TEXT("Utilities|Flow Control"), TEXT("K2Node_MultiGate")},
	{TEXT("Do Once"), TEXT("Utilities|Flow Control"), TEXT("K2Node_MacroInstance")},
	{TEXT("For Each Loop"), TEXT("Utilities|Array"), TEXT("K2Node_MacroInstance")},
	{TEXT("Switch Has Authority"), TEXT("Networking"), TEXT("K2Node_MacroInstance")},
	{TEXT("Select"), TEXT("Utilities"), TEXT("K2Node_Select")},
	{TEXT("Make Array"), TEXT("Utilities|Array"), TEXT("K2Node_MakeArray")},
	{TEXT("Make Map"), TEXT("Utilities|Map"), TEXT("K2Node_MakeMap")},
	{TEXT("Get (a copy)"), TEXT("Utilities|Array"), TEXT("K2Node_GetArrayItem")},
	{TEXT("Format Text"), TEXT("Utilities|Text"), TEXT("K2Node_FormatText")},
	{TEXT("Get a reference to self"), TEXT("Variables"), TEXT("K2Node_Self")},
	{TEXT("Spawn Actor from Class"), TEXT("Game"), TEXT("K2Node_SpawnActorFromClass")},
	{TEXT("Create Widget"), TEXT("User Interface"), TEXT("K2Node_CreateWidget")},
	{TEXT("Switch on Int"), TEXT("Utilities|Flow Control|Switch"), TEXT("K2Node_SwitchInteger")},
	{TEXT("Add Timeline..."), TEXT(""), TEXT("K2Node_Timeline")},
	{TEXT("Add Custom Event..."), TEXT("Add Event"), TEXT("K2Node_CustomEvent")},
	// Types.
	{TEXT("Cast To Character"), TEXT("Utilities|Casting"), TEXT("K2Node_DynamicCast")},
	{TEXT("Cast To Character Class"), TEXT("Utilities|Casting"), TEXT("K2Node_ClassDynamicCast")},
	{TEXT("Switch on ECollisionChannel"), TEXT("Utilities|Flow Control|Switch"), TEXT("K2Node_SwitchEnum")},
	{TEXT("Literal enum ECollisionChannel"), TEXT("Utilities|Enum"), TEXT("K2Node_EnumLiteral")},
	{TEXT("ForEach ECollisionChannel"), TEXT("Utilities|Enum"), TEXT("K2Node_ForEachElementInEnum")},
	{TEXT("Byte to Enum ECollisionChannel"), TEXT("Utilities|Enum"), TEXT("K2Node_CastByteToEnum")},
	{TEXT("Equal (Enum)"), TEXT("Utilities|Enum"), TEXT("K2Node_EnumEquality")},
	{TEXT("Set members in Post Process Settings"), TEXT("Utilities|Struct"), TEXT("K2Node_SetFieldsInStruct")},
	{TEXT("Make Post Process Settings"), TEXT("Utilities|Struct"), TEXT("K2Node_MakeStruct")},
	{TEXT("Break Post Process Settings"), TEXT("Utilities|Struct"), TEXT("K2Node_BreakStruct")},
	{TEXT("Add Static Mesh Component"), TEXT("Add Component"), TEXT("K2Node_AddComponent")},
	// Events, dispatchers and variables.
	{TEXT("Event BeginPlay"), TEXT("Add Event"), TEXT("K2Node_Event")},
	{TEXT("Event Hit"), TEXT("Add Event|Collision"), TEXT("K2Node_Event")},
	{TEXT("Space Bar"), TEXT("Input|Keyboard Events"), TEXT("K2Node_InputKey")},
	{TEXT("Bind Event to On Destroyed"), nullptr, TEXT("K2Node_AddDelegate")},
	{TEXT("Assign On Destroyed"), nullptr, TEXT("K2Node_AssignDelegate")},
	{TEXT("Unbind Event from On Destroyed"), nullptr, TEXT("K2Node_RemoveDelegate")},
	{TEXT("Unbind all Events from On Destroyed"), nullptr, TEXT("K2Node_ClearDelegate")},
	{TEXT("Get Net Priority"), nullptr, TEXT("K2Node_VariableGet")},
	{TEXT("Get Static Mesh"), TEXT("Class|Static Mesh Component"), TEXT("K2Node_VariableGet")}};

TEST(ActionMenu, WhatAuthorsLookForStandsWhereTheyExpectIt)
{
	const FBlueprintBuilder Blueprint;
	const FBlueprintActionMenuBuilder Menu = MenuFor(Blueprint.EventGraph().Get());
	EXPECT_GT(Menu.GetNumActions(), 10000);
	for (const FRow& Row : WellKnown)
	{
		EXPECT_TRUE(Find(Menu, Row.Title, Row.Category, Row.NodeClass)) << ToStd(Row.Title);
	}
}

TEST(ActionMenu, EveryEntrySaysWhatItDoes)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	TSet<FString> Silent;
	for (int32 Index = 0; Index < Menu.GetNumActions(); Index += 11)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Menu.GetSchemaAction(Index);
		if (Action->GetTooltipDescription().IsEmpty())
		{
			Silent.Add(ClassOf(*Action));
		}
	}
	EXPECT_EQ(Silent.Num(), 0) << ToStd(FString::Join(Silent.Array(), TEXT(", ")));
	// The entry speaks as its node does.
	const TSharedPtr<FEdGraphSchemaAction> Action = Find(Menu, TEXT("Cast To Pawn"));
	const UEdGraphNode* const Node = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
	EXPECT_EQ(Action->GetTooltipDescription().ToString(), Node->GetTooltipText().ToString());
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

TEST(ActionMenu, AnEventIsOfferedBelowTheClassThatDeclaresIt)
{
	const FBlueprintBuilder Actor;
	const FBlueprintActionMenuBuilder Menu = MenuFor(Actor.EventGraph().Get());
	EXPECT_TRUE(Find(Menu, TEXT("Event Tick")));
	EXPECT_FALSE(Find(Menu, TEXT("Event Possessed")));
	EXPECT_TRUE(Find(Menu, TEXT("Cast To Pawn")));
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
		const int32 NumBefore = Graph->Nodes.Num();
		const UEdGraphNode* const Node = Action->PerformAction(
			Graph, nullptr, FVector2f(static_cast<float>(Index), 48.0f));
		ASSERT_NE(Node, nullptr);
		++NumPlaced;
		EXPECT_FALSE(Node->Pins.IsEmpty());
		EXPECT_TRUE(Node->NodeGuid.IsValid());
		EXPECT_TRUE(Graph->Nodes.Contains(const_cast<UEdGraphNode*>(Node)));
		EXPECT_EQ(Node->GetClass()->GetName(), ClassOf(*Action));
		// The event that every new Blueprint begins with stays where it stands.
		EXPECT_TRUE(Node->NodePosX == Index || Graph->Nodes.Num() == NumBefore);
	}
	EXPECT_GT(NumPlaced, 300);
}

TEST(ActionMenu, AnEventStandsOnceInABlueprint)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const TSharedPtr<FEdGraphSchemaAction> Action = Find(MenuFor(Graph), TEXT("Event Hit"));
	ASSERT_TRUE(Action);
	UEdGraphNode* const First = Action->PerformAction(Graph, nullptr, FVector2f(10.0f, 10.0f));
	ASSERT_NE(First, nullptr);
	EXPECT_EQ(Action->PerformAction(Graph, nullptr, FVector2f(500.0f, 500.0f)), First);
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
	const UEdGraphNode* const Event = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
	ASSERT_NE(Event, nullptr);
	EXPECT_EQ(Event->GetClass()->GetName(), FString(TEXT("K2Node_ComponentBoundEvent")));
	EXPECT_TRUE(Event->FindPin(TEXT("OtherActor"), EGPD_Output));
	EXPECT_EQ(Action->PerformAction(Graph, nullptr, FVector2f(9.0f, 9.0f)), Event);
	UEdGraph* const Loose = NewObject<UEdGraph>(GetTransientPackageAsObject());
	Loose->Schema = UEdGraphSchema_K2::StaticClass();
	EXPECT_FALSE(Find(MenuFor(Loose), Title));
}

TEST(ActionMenu, AnAddedComponentHasATemplateInItsBlueprint)
{
	FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const TSharedPtr<FEdGraphSchemaAction> Action = Find(MenuFor(Graph), TEXT("Add Static Mesh Component"));
	ASSERT_TRUE(Action);
	for (const TCHAR* const Name : {TEXT("NODE_AddStaticMeshComponent-0"), TEXT("NODE_AddStaticMeshComponent-1")})
	{
		const UK2Node_AddComponent* const Node = Cast<UK2Node_AddComponent>(
			Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f)));
		ASSERT_NE(Node, nullptr);
		EXPECT_EQ(Node->GetTemplateNamePinChecked()->DefaultValue, FString(Name));
		const UActorComponent* const Template = Blueprint->FindTemplateByName(FName(Name));
		ASSERT_NE(Template, nullptr);
		EXPECT_EQ(Template->GetClass()->GetName(), FString(TEXT("StaticMeshComponent")));
		EXPECT_EQ(Node->GetReturnValuePin()->PinType.PinSubCategoryObject.Get(), Template->GetClass());
	}
	ASSERT_TRUE(Blueprint.Compiles());
	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_NE(Blueprint->FindTemplateByName(TEXT("NODE_AddStaticMeshComponent-1")), nullptr);
}

TEST(ActionMenu, ANodeDraggedFromAPinIsWiredToIt)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	UEdGraphNode* const Event =
		Find(Menu, TEXT("Event Destroyed"))->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
	ASSERT_NE(Event, nullptr);
	UEdGraphPin* const Then = Event->FindPin(TEXT("then"));
	const UEdGraphNode* const Print =
		Find(Menu, TEXT("Print String"))->PerformAction(Graph, Then, FVector2f(300.0f, 0.0f));
	ASSERT_EQ(Then->LinkedTo.Num(), 1);
	EXPECT_EQ(Then->LinkedTo[0]->GetOwningNode(), Print);
}
} // namespace ActionMenu
