#include "Utils/Graph/EventNodes.h"
#include "BlueprintBuilder.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintMatchingUtils.h"
#include "BlueprintNodeUtils.h"
#include "EdGraphSchema_K2.h"
#include "GameFramework/Actor.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResults.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace EventNodesTest
{
/** One Blueprint and calls of the event step with what it said. */
struct FEventCase
{
	FBlueprintBuilder Blueprint;
	UEdGraph* Graph = Blueprint.EventGraph().Get();
	Morvane::FToolResult Result = MakeResult();
	FString Error;

	UEdGraphNode* Create(const TCHAR* ClassName, const TCHAR* EventName, const TCHAR* AllowDuplicate = nullptr)
	{
		FBPNodeModification Record;
		Record.ClassName = ClassName;
		if (EventName)
		{
			Record.Metadata.Add(TEXT("event_name"), EventName);
		}
		if (AllowDuplicate)
		{
			Record.Metadata.Add(TEXT("allow_duplicate"), AllowDuplicate);
		}
		return CreateFrom(Record);
	}

	UEdGraphNode* CreateFrom(const FBPNodeModification& Record)
	{
		UEdGraphNode* Node = nullptr;
		Error.Empty();
		const bool bDone = FBlueprintEventNodeUtils::CreateEventNode(
			Blueprint.Get(), Graph, Record, Result, Node, Error);
		EXPECT_EQ(bDone, Node != nullptr);
		return Node;
	}
};
} // namespace EventNodesTest

using EventNodesTest::FEventCase;

TEST(EventNode, AskingTwiceForAnOverrideReusesTheFirst)
{
	FEventCase Case;
	const int32 NumBefore = Case.Graph->Nodes.Num();
	UEdGraphNode* const First = Case.Create(TEXT("K2Node_Event"), TEXT("ReceiveAnyDamage"));
	ASSERT_NE(First, nullptr);
	EXPECT_THAT(
		Successes(Case.Result), ElementsAre("Created override for Event ReceiveAnyDamage in parent class Actor"));
	EXPECT_EQ(Case.Create(TEXT("K2Node_Event"), TEXT("receiveanydamage")), First);
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre("[Warning] Event 'receiveanydamage' already exists in EventGraph; reusing node "
			+ ToStd(FBlueprintNodeUtils::GetShortNodeId(First))));
	EXPECT_EQ(Case.Graph->Nodes.Num(), NumBefore + 1);
}

TEST(EventNode, CustomEventsOfOneNameAreReusedUnlessDuplicatesAreAllowed)
{
	FEventCase Case;
	UEdGraphNode* const First = Case.Create(TEXT("K2Node_CustomEvent"), TEXT("Ping"));
	ASSERT_NE(First, nullptr);
	EXPECT_EQ(Case.Create(TEXT("K2Node_CustomEvent"), TEXT("ping")), First);
	EXPECT_EQ(Case.Create(TEXT("K2Node_CustomEvent"), TEXT("Ping"), TEXT("no")), First);
	EXPECT_THAT(Warnings(Case.Result)[0],
		"[Warning] Custom Event 'ping' already exists; reusing node "
			+ ToStd(FBlueprintNodeUtils::GetShortNodeId(First)));
	for (const TCHAR* const Word : {TEXT("true"), TEXT("1"), TEXT("YES")})
	{
		UEdGraphNode* const Duplicate = Case.Create(TEXT("K2Node_CustomEvent"), TEXT("Ping"), Word);
		ASSERT_NE(Duplicate, nullptr);
		EXPECT_NE(Duplicate, First);
		EXPECT_EQ(CastChecked<UK2Node_CustomEvent>(Duplicate)->GetFunctionName(), FName(TEXT("Ping"))) << ToStd(Word);
	}
	EXPECT_THAT(Successes(Case.Result)[0], "Created custom event 'Ping' in EventGraph 'EventGraph'");
}

TEST(EventNode, AnEventThatIsThereTakesTheReplicationOfTheRequest)
{
	FEventCase Case;
	FBPNodeModification Record;
	Record.ClassName = TEXT("K2Node_CustomEvent");
	Record.Metadata.Add(TEXT("event_name"), TEXT("Fire"));
	const UEdGraphNode* const First = Case.CreateFrom(Record);
	const struct
	{
		const TCHAR* Replicates;
		const TCHAR* Reliable;
		uint32 Flags;
	} Steps[] = {{TEXT("Server"), TEXT("true"), FUNC_Net | FUNC_NetServer | FUNC_NetReliable},
		{TEXT("CLIENT"), TEXT("false"), FUNC_Net | FUNC_NetClient},
		{TEXT("multicast"), nullptr, FUNC_Net | FUNC_NetMulticast},
		{nullptr, TEXT("true"), FUNC_Net | FUNC_NetMulticast | FUNC_NetReliable}, {TEXT("none"), TEXT("false"), 0}};
	for (const auto& Step : Steps)
	{
		Record.Metadata.Remove(TEXT("replicates"));
		Record.Metadata.Remove(TEXT("reliable"));
		if (Step.Replicates)
		{
			Record.Metadata.Add(TEXT("replicates"), Step.Replicates);
		}
		if (Step.Reliable)
		{
			Record.Metadata.Add(TEXT("reliable"), Step.Reliable);
		}
		const UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(Case.CreateFrom(Record));
		ASSERT_EQ(Event, First);
		EXPECT_EQ(Event->FunctionFlags & FUNC_NetFuncFlags, Step.Flags)
			<< (Step.Replicates ? ToStd(Step.Replicates) : "");
	}
}

TEST(EventNode, AnUnusedEventThatIsAskedForIsUsedAndSaysNothingOfBeingUnused)
{
	FEventCase Case;
	UK2Node_Event* const Unused = FBlueprintEditorUtils::FindOverrideForFunction(
		Case.Blueprint.Get(), AActor::StaticClass(), TEXT("ReceiveBeginPlay"));
	ASSERT_TRUE(Unused && Unused->IsAutomaticallyPlacedGhostNode());
	ASSERT_FALSE(Unused->NodeComment.IsEmpty());
	EXPECT_EQ(Case.Create(TEXT("K2Node_Event"), TEXT("ReceiveBeginPlay")), Unused);
	EXPECT_TRUE(Unused->IsNodeEnabled());
	EXPECT_EQ(ToStd(Unused->NodeComment), "");
	EXPECT_FALSE(Unused->bCommentBubbleVisible || Unused->bCommentBubblePinned);
}

TEST(EventNode, StandsWhereTheRequestSays)
{
	FEventCase Case;
	FBPNodeModification Record;
	Record.ClassName = TEXT("K2Node_CustomEvent");
	Record.Metadata.Add(TEXT("event_name"), TEXT("There"));
	Record.PositionX = -320;
	Record.PositionY = 48;
	const FNodeHandle Node = {Case.CreateFrom(Record)};
	EXPECT_EQ(Node.At(), FIntPoint(-320, 48));
	EXPECT_TRUE(Node->NodeGuid.IsValid());
}

TEST(EventNode, RefusalsLeaveNoNode)
{
	FEventCase Case;
	const int32 NumBefore = Case.Graph->Nodes.Num();
	EXPECT_EQ(Case.Create(TEXT("K2Node_Event"), TEXT("ReceiveFoo")), nullptr);
	EXPECT_TRUE(Case.Error.IsEmpty());
	EXPECT_EQ(Case.Create(TEXT("K2Node_Event"), nullptr), nullptr);
	EXPECT_EQ(Case.Error, TEXT("Event requests must include node_metadata.event_name"));
	EXPECT_EQ(Case.Create(TEXT("K2Node_Event"), TEXT("")), nullptr);
	Case.Graph = nullptr;
	EXPECT_EQ(Case.Create(TEXT("K2Node_Event"), TEXT("ReceiveTick")), nullptr);
	EXPECT_EQ(Case.Error, TEXT("Cannot create event node without a valid Blueprint and EventGraph"));
	EXPECT_THAT(Errors(Case.Result),
		ElementsAre("Event 'ReceiveFoo' not found on class 'Actor'",
			"Event requests must include node_metadata.event_name",
			"Event requests must include node_metadata.event_name",
			"Cannot create event node without a valid Blueprint and EventGraph"));
	EXPECT_EQ(Case.Blueprint.EventGraph().Get()->Nodes.Num(), NumBefore);

	Case.Graph = Case.Blueprint.Function(TEXT("Run")).Get();
	const int32 NumInFunction = Case.Graph->Nodes.Num();
	EXPECT_EQ(Case.Create(TEXT("K2Node_CustomEvent"), TEXT("Ping")), nullptr);
	EXPECT_THAT(Warnings(Case.Result), ElementsAre("Cannot create event nodes outside EventGraph 'Run'"));
	EXPECT_EQ(Case.Graph->Nodes.Num(), NumInFunction);
}

TEST(VariableCheck, KnowsDeclaredAndInheritedNamesIgnoringCase)
{
	FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	FString Error;
	EXPECT_TRUE(FBlueprintEventNodeUtils::ValidateVariableExists(Blueprint.Get(), TEXT("health"), Error));
	EXPECT_TRUE(FBlueprintEventNodeUtils::ValidateVariableExists(Blueprint.Get(), TEXT("RootComponent"), Error));
	Blueprint.AddVariable(TEXT("Odd"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Struct));
	EXPECT_TRUE(FBlueprintEventNodeUtils::ValidateVariableExists(Blueprint.Get(), TEXT("ODD"), Error))
		<< "one without a type stands in no class";
	EXPECT_FALSE(FBlueprintEventNodeUtils::ValidateVariableExists(nullptr, TEXT("Health"), Error));
	EXPECT_EQ(Error, TEXT("Blueprint is null"));
	EXPECT_FALSE(FBlueprintEventNodeUtils::ValidateVariableExists(Blueprint.Get(), TEXT("Mana"), Error));
	EXPECT_THAT(ToStd(Error),
		StartsWith("Variable 'Mana' does not exist in blueprint. Create the variable first and then try again.\n\n"));
}

TEST(VariableCheck, ListsTenNamesAndCountsEleven)
{
	// A parent without properties, so that only what is declared here counts.
	FBlueprintBuilder Blueprint(TEXT("/Script/CoreUObject.Object"));
	FString Error;
	EXPECT_FALSE(FBlueprintEventNodeUtils::ValidateVariableExists(Blueprint.Get(), TEXT("X"), Error));
	EXPECT_THAT(ToStd(Error), HasSubstr("\n\nNo variables exist in this blueprint yet."));
	for (int32 Index = 0; Index < 11; ++Index)
	{
		Blueprint.AddVariable(*FString::Printf(TEXT("V%d"), Index), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
		EXPECT_FALSE(FBlueprintEventNodeUtils::ValidateVariableExists(Blueprint.Get(), TEXT("X"), Error));
		if (Index == 9)
		{
			EXPECT_THAT(ToStd(Error), HasSubstr("\n\nAvailable variables: V0, V1, V2, V3, V4, V5, V6, V7, V8, V9"));
		}
	}
	EXPECT_THAT(ToStd(Error),
		HasSubstr("\n\n11 variables exist in this blueprint. Use read_blueprint_variables to list them."));
}

TEST(VariableNode, ReadsOwnInheritedAndForeignVariables)
{
	FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	FGraphBuilder Graph = Blueprint.EventGraph();
	const UK2Node_VariableGet* const Get = FBlueprintNodeUtils::CreateVariableGetNode(
		Blueprint.Get(), Graph.Get(), TEXT("Health"), FVector2D(40, 60));
	ASSERT_NE(Get, nullptr);
	EXPECT_TRUE(Get->VariableReference.IsSelfContext());
	EXPECT_TRUE(Get->VariableReference.GetMemberGuid().IsValid());
	EXPECT_EQ(Get->NodePosX, 40);
	ASSERT_NE(Get->GetValuePin(), nullptr);
	EXPECT_EQ(Get->GetValuePin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Int);

	const UK2Node_VariableSet* const Set = FBlueprintNodeUtils::CreateVariableSetNode(
		Blueprint.Get(), Graph.Get(), TEXT("Health"), FVector2D(0, 0));
	ASSERT_NE(Set, nullptr);
	EXPECT_NE(Set->FindPin(TEXT("execute"), EGPD_Input), nullptr);

	UEdGraphPin* const Owner = Graph.AddPin(Graph.Bare(), EGPD_Output, TEXT("Owner"));
	Owner->PinType = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Object, AActor::StaticClass());
	const UK2Node_VariableGet* const Foreign = FBlueprintNodeUtils::CreateCrossObjectVariableGetNode(
		Graph.Get(), TEXT("RootComponent"), AActor::StaticClass(), Owner, FVector2D(0, 0));
	ASSERT_NE(Foreign, nullptr);
	EXPECT_EQ(Foreign->VariableReference.GetMemberParentClass(), AActor::StaticClass());
	EXPECT_TRUE(Owner->IsLinkedTo(Foreign->FindPin(UEdGraphSchema_K2::PN_Self)));

	const int32 NumBefore = Graph.Get()->Nodes.Num();
	EXPECT_EQ(FBlueprintNodeUtils::CreateCrossObjectVariableSetNode(
				  Graph.Get(), TEXT("NoSuchThing"), AActor::StaticClass(), Owner, FVector2D(0, 0)),
		nullptr);
	EXPECT_EQ(Graph.Get()->Nodes.Num(), NumBefore);
}

TEST(GraphLookUp, FindsNestedGraphsWithTheirTop)
{
	FBlueprintBuilder Blueprint;
	UEdGraph* const Run = Blueprint.Function(TEXT("Run")).Get();
	UEdGraph* const Nested = NewObject<UEdGraph>(Run, TEXT("Inner"));
	Nested->Schema = UEdGraphSchema_K2::StaticClass();
	Run->SubGraphs.Add(Nested);
	UEdGraph* const Deep = NewObject<UEdGraph>(Nested, TEXT("Deep"));
	Deep->Schema = UEdGraphSchema_K2::StaticClass();
	Nested->SubGraphs.Add(Deep);

	UEdGraph* Top = nullptr;
	EXPECT_EQ(FBlueprintMatchingUtils::FindGraphByName(Blueprint.Get(), TEXT("DEEP"), &Top), Deep);
	EXPECT_EQ(Top, Run);
	EXPECT_EQ(FBlueprintMatchingUtils::FindGraphByName(Blueprint.Get(), TEXT("run"), &Top), Run);
	EXPECT_EQ(Top, Run);
	EXPECT_EQ(FBlueprintMatchingUtils::FindGraphByName(Blueprint.Get(), TEXT("Nowhere")), nullptr);
	EXPECT_EQ(FBlueprintMatchingUtils::FindGraphByName(nullptr, TEXT("Run")), nullptr);
}

TEST(EventGraphStep, FindsMakesOrFallsBack)
{
	FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();
	UEdGraph* const Main = Blueprint.EventGraph().Get();
	EXPECT_EQ(FBlueprintGraphUtils::EnsureEventGraph(Blueprint.Get(), TEXT("eventgraph"), Result), Main);
	EXPECT_EQ(FBlueprintGraphUtils::EnsureEventGraph(Blueprint.Get(), TEXT(""), Result), Main);
	EXPECT_THAT(Successes(Result), IsEmpty());

	UEdGraph* const Combat = FBlueprintGraphUtils::EnsureEventGraph(Blueprint.Get(), TEXT("Combat"), Result);
	ASSERT_NE(Combat, nullptr);
	EXPECT_TRUE(FBlueprintGraphUtils::IsUbergraphPage(Blueprint.Get(), Combat));
	EXPECT_EQ(FBlueprintGraphUtils::FindFunctionEntry(Combat), nullptr) << "an event graph has no entry";
	EXPECT_THAT(Successes(Result), ElementsAre("Created event graph 'Combat'"));

	Blueprint.Function(TEXT("Run"));
	EXPECT_EQ(FBlueprintGraphUtils::EnsureEventGraph(Blueprint.Get(), TEXT("Run"), Result), Main)
		<< "a function has the name";
	EXPECT_EQ(FBlueprintGraphUtils::EnsureEventGraph(nullptr, TEXT("X"), Result), nullptr);
	EXPECT_THAT(Errors(Result), ElementsAre("Invalid Blueprint when ensuring EventGraph"));
}
