#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "GraphBuilder.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_PromotableOperator.h"
#include "SchemaPins.h"

#include <gtest/gtest.h>

namespace SchemaGraphs
{
template <class T>
static T* FindNode(const UEdGraph& Graph)
{
	TArray<T*> Nodes;
	Graph.GetNodesOfClass(Nodes);
	return Nodes.Num() == 1 ? Nodes[0] : nullptr;
}

TEST(SchemaGraphs, AGraphIsOfTheKindOfItsList)
{
	const FBlueprintBuilder Blueprint;
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UEdGraph* const Function = Blueprint.Function(TEXT("Open")).Get();
	EXPECT_EQ(Schema.GetGraphType(Blueprint.EventGraph().Get()), GT_Ubergraph);
	EXPECT_EQ(Schema.GetGraphType(Function), GT_Function);
	UEdGraph* const Macro = NewObject<UEdGraph>(Blueprint.Get(), FName(TEXT("Twice")));
	Macro->Schema = UEdGraphSchema_K2::StaticClass();
	Blueprint->MacroGraphs.Add(Macro);
	EXPECT_EQ(Schema.GetGraphType(Macro), GT_Macro);
	// A graph inside another is of that one's kind.
	UEdGraph* const Inner = NewObject<UEdGraph>(Macro, FName(TEXT("Inner")));
	Inner->Schema = UEdGraphSchema_K2::StaticClass();
	EXPECT_EQ(Schema.GetGraphType(Inner), GT_Macro);
	EXPECT_FALSE(UEdGraphSchema_K2::IsConstructionScript(Function));
}

TEST(SchemaGraphs, AnOverrideStartsWithTheSignatureOfItsParent)
{
	UEdGraph* const Graph = NewObject<UEdGraph>(GetTransientPackageAsObject(), FName(TEXT("CanJumpInternal")));
	Graph->Schema = UEdGraphSchema_K2::StaticClass();
	MakeLooseGraph();
	UClass* const Character = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Character"));
	GetDefault<UEdGraphSchema_K2>()->CreateFunctionGraphTerminators(*Graph, Character);
	const UK2Node_FunctionEntry* const Entry = FindNode<UK2Node_FunctionEntry>(*Graph);
	const UK2Node_FunctionResult* const Result = FindNode<UK2Node_FunctionResult>(*Graph);
	ASSERT_TRUE(Entry && Result);
	EXPECT_EQ(Entry->FunctionReference.GetMemberParentClass(), Character);
	EXPECT_TRUE(Result->FindPin(TEXT("ReturnValue"), EGPD_Input));
	EXPECT_TRUE(Entry->FindPin(TEXT("then"))->IsLinkedTo(Result->FindPin(TEXT("execute"))));
	EXPECT_GT(Result->NodePosX, Entry->NodePosX);
}

TEST(SchemaGraphs, ASignatureGivesBothEndsPinsOfTheirOwn)
{
	UEdGraph* const Graph = MakeLooseGraph();
	const UClass* const Library = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"));
	const UFunction* const Signature = Library->FindFunctionByName(TEXT("BreakVector"));
	GetDefault<UEdGraphSchema_K2>()->CreateFunctionGraphTerminators(*Graph, Signature);
	const UK2Node_FunctionEntry* const Entry = FindNode<UK2Node_FunctionEntry>(*Graph);
	const UK2Node_FunctionResult* const Result = FindNode<UK2Node_FunctionResult>(*Graph);
	ASSERT_TRUE(Entry && Result);
	EXPECT_TRUE(Entry->UserDefinedPinExists(TEXT("InVec")));
	EXPECT_TRUE(Entry->FindPin(TEXT("InVec"), EGPD_Output));
	EXPECT_EQ(Result->UserDefinedPins.Num(), 3);
	EXPECT_TRUE(Result->FindPin(TEXT("Y"), EGPD_Input));
}

TEST(SchemaGraphs, FlagsAndEditabilityGoToTheEnds)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.Function(TEXT("Open")).Get();
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UK2Node_FunctionEntry* const Entry = FindNode<UK2Node_FunctionEntry>(*Graph);
	ASSERT_NE(Entry, nullptr);
	Schema.AddExtraFunctionFlags(Graph, FUNC_BlueprintPure);
	EXPECT_TRUE(Entry->GetExtraFlags() & FUNC_BlueprintPure);
	Schema.ClearExtraFunctionFlags(Graph, FUNC_BlueprintPure);
	EXPECT_FALSE(Entry->GetExtraFlags() & FUNC_BlueprintPure);
	Schema.MarkFunctionEntryAsEditable(Graph, false);
	EXPECT_FALSE(Entry->bIsEditable);
	Schema.MarkFunctionEntryAsEditable(Graph, true);
	EXPECT_TRUE(Entry->bIsEditable);
}

TEST(SchemaGraphs, HeightGrowsWithTheTallerSideOfShownPins)
{
	const FPinPair Pair(TEXT("int"), TEXT("int"));
	UK2Node* const Node = Pair.InputNode;
	const float OneRow = UEdGraphSchema_K2::EstimateNodeHeight(Node);
	EXPECT_GT(OneRow, 0.0f);
	Node->CreatePin(EGPD_Output, ReadPinType(TEXT("int")), TEXT("Out"));
	EXPECT_EQ(UEdGraphSchema_K2::EstimateNodeHeight(Node), OneRow);
	UEdGraphPin* const Second = Node->CreatePin(EGPD_Input, ReadPinType(TEXT("int")), TEXT("Second"));
	EXPECT_GT(UEdGraphSchema_K2::EstimateNodeHeight(Node), OneRow);
	Second->bHidden = true;
	EXPECT_EQ(UEdGraphSchema_K2::EstimateNodeHeight(Node), OneRow);
	EXPECT_EQ(UEdGraphSchema_K2::EstimateNodeHeight(nullptr), 0.0f);
}

TEST(SchemaGraphs, OnlyADeletableGraphOfTheBlueprintIsDeleted)
{
	const FBlueprintBuilder Blueprint;
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UEdGraph* const Graph = Blueprint.Function(TEXT("Open")).Get();
	Graph->bAllowDeletion = false;
	EXPECT_FALSE(Schema.TryDeleteGraph(Graph));
	EXPECT_FALSE(Schema.TryDeleteGraph(MakeLooseGraph()));
	Graph->bAllowDeletion = true;
	EXPECT_TRUE(Schema.TryDeleteGraph(Graph));
	EXPECT_FALSE(Blueprint->FunctionGraphs.Contains(Graph));
}

TEST(SchemaGraphs, AnOperandIsPromotedWhenAnOverloadTakesTheNewType)
{
	UEdGraph* const Graph = MakeLooseGraph();
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UK2Node* const Source = MakeBareNode(*Graph);
	UEdGraphPin* const Int = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("int")), TEXT("Int"));
	UEdGraphPin* const Real = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("double")), TEXT("Real"));
	UEdGraphPin* const Text = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("string")), TEXT("Text"));
	FGraphNodeCreator<UK2Node_PromotableOperator> Creator(*Graph);
	UK2Node_PromotableOperator* const Operator = Creator.CreateNode();
	Operator->SetFromFunction(
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"))->FindFunctionByName(TEXT("Add_IntInt")));
	Creator.Finalize();
	ASSERT_TRUE(Schema.TryCreateConnection(Int, Operator->FindPin(TEXT("A"))));
	EXPECT_EQ(Operator->FindPin(TEXT("B"))->PinType.PinCategory, UEdGraphSchema_K2::PC_Int);
	const FPinConnectionResponse Promotion = Schema.CanCreateConnection(Real, Operator->FindPin(TEXT("B")));
	EXPECT_EQ(Promotion.Response, CONNECT_RESPONSE_MAKE_WITH_PROMOTION);
	EXPECT_TRUE(Schema.CanCreateConnection(Text, Operator->FindPin(TEXT("B"))).Response
		!= CONNECT_RESPONSE_MAKE_WITH_PROMOTION);
	ASSERT_TRUE(Schema.TryCreateConnection(Real, Operator->FindPin(TEXT("B"))));
	EXPECT_EQ(Operator->GetOutputPin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_EQ(Operator->GetFunctionName(), FName(TEXT("Add_DoubleDouble")));
	EXPECT_EQ(Graph->Nodes.Num(), 2);
}
} // namespace SchemaGraphs
