#include "SchemaPins.h"

#include "GraphBuilder.h"
#include "K2Node_CallFunction.h"
#include "K2Node_DynamicCast.h"

#include <gtest/gtest.h>

namespace SchemaConnection
{
static UK2Node_CallFunction* Call(UEdGraph& Graph, const TCHAR* Class, const TCHAR* Function)
{
	const UClass* const Owner = static_cast<UClass*>(StaticFindFirstObject(UClass::StaticClass(), Class));
	FGraphNodeCreator<UK2Node_CallFunction> Creator(Graph);
	UK2Node_CallFunction* const Node = Creator.CreateNode();
	Node->SetFromFunction(Owner->FindFunctionByName(Function));
	Creator.Finalize();
	return Node;
}

TEST(SchemaConnection, ExecutionLeavesOnceAndValuesArriveOnce)
{
	const FPinPair Exec(TEXT("exec"), TEXT("exec"));
	const UEdGraphSchema_K2& Schema = *Exec.Schema;
	UK2Node* const Third = MakeBareNode(*Exec.Graph);
	UEdGraphPin* const OtherIn = Third->CreatePin(EGPD_Input, ReadPinType(TEXT("exec")), TEXT("In"));
	UEdGraphPin* const OtherOut = Third->CreatePin(EGPD_Output, ReadPinType(TEXT("exec")), TEXT("Out"));
	ASSERT_TRUE(Schema.TryCreateConnection(Exec.Output, Exec.Input));
	EXPECT_EQ(Schema.CanCreateConnection(OtherOut, Exec.Input).Response, CONNECT_RESPONSE_MAKE);
	EXPECT_EQ(Schema.CanCreateConnection(Exec.Output, OtherIn).Response, CONNECT_RESPONSE_BREAK_OTHERS_A);
	EXPECT_EQ(Schema.CanCreateConnection(OtherIn, Exec.Output).Response, CONNECT_RESPONSE_BREAK_OTHERS_B);
	ASSERT_TRUE(Schema.TryCreateConnection(Exec.Output, OtherIn));
	EXPECT_TRUE(Exec.Input->LinkedTo.IsEmpty());
	EXPECT_TRUE(Exec.Output->IsLinkedTo(OtherIn));

	const FPinPair Value(TEXT("int"), TEXT("int"));
	UK2Node* const Fourth = MakeBareNode(*Value.Graph);
	UEdGraphPin* const Source = Fourth->CreatePin(EGPD_Output, ReadPinType(TEXT("int")), TEXT("Out"));
	UEdGraphPin* const Sink = Fourth->CreatePin(EGPD_Input, ReadPinType(TEXT("int")), TEXT("In"));
	ASSERT_TRUE(Schema.TryCreateConnection(Value.Output, Value.Input));
	EXPECT_EQ(Schema.CanCreateConnection(Value.Output, Sink).Response, CONNECT_RESPONSE_MAKE);
	EXPECT_EQ(Schema.CanCreateConnection(Source, Value.Input).Response, CONNECT_RESPONSE_BREAK_OTHERS_B);
	ASSERT_TRUE(Schema.TryCreateConnection(Value.Input, Source));
	EXPECT_EQ(Value.Input->LinkedTo.Num(), 1);
	EXPECT_TRUE(Value.Input->IsLinkedTo(Source));
	EXPECT_TRUE(Value.Output->LinkedTo.IsEmpty());
}

TEST(SchemaConnection, ALinkThatStandsBreaksNothing)
{
	const FPinPair Pair(TEXT("int"), TEXT("int"));
	ASSERT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, Pair.Input));
	EXPECT_EQ(Pair.Ask(), CONNECT_RESPONSE_MAKE);
	EXPECT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, Pair.Input));
	EXPECT_EQ(Pair.Input->LinkedTo.Num(), 1);
}

TEST(SchemaConnection, PlaceAndStateOfThePinsComeBeforeTypes)
{
	const FPinPair Pair(TEXT("int"), TEXT("int"));
	const UEdGraphSchema_K2& Schema = *Pair.Schema;
	UEdGraphPin* const SameNode = Pair.OutputNode->CreatePin(EGPD_Input, ReadPinType(TEXT("int")), TEXT("In"));
	UEdGraphPin* const SameSide = Pair.InputNode->CreatePin(EGPD_Output, ReadPinType(TEXT("int")), TEXT("Out"));
	EXPECT_TRUE(Schema.CanCreateConnection(Pair.Output, SameNode).IsDisallowed());
	const FPinConnectionResponse Sides = Schema.CanCreateConnection(Pair.Output, SameSide);
	EXPECT_TRUE(Sides.IsDisallowed());
	EXPECT_TRUE(Sides.Message.ToString().Contains(TEXT("Directions are not compatible")));
	EXPECT_TRUE(Schema.CanCreateConnection(Pair.Output, nullptr).IsDisallowed());
	EXPECT_FALSE(Schema.TryCreateConnection(Pair.Output, SameSide));

	const FPinPair Elsewhere(TEXT("int"), TEXT("int"));
	EXPECT_TRUE(Schema.CanCreateConnection(Pair.Output, Elsewhere.Input).IsDisallowed());

	Pair.Input->bNotConnectable = true;
	EXPECT_EQ(Pair.Ask(), CONNECT_RESPONSE_DISALLOW);
	Pair.Input->bNotConnectable = false;
	Pair.Input->bOrphanedPin = true;
	EXPECT_EQ(Pair.Ask(), CONNECT_RESPONSE_DISALLOW);
	EXPECT_NE(Pair.Words().find("no longer exists"), std::string::npos);
	Pair.Input->bOrphanedPin = false;
	EXPECT_EQ(Pair.Ask(), CONNECT_RESPONSE_MAKE);
}

TEST(SchemaConnection, AReadOnlyReferenceIsNotHandedToAWriter)
{
	EXPECT_EQ(FPinPair(TEXT("const int[]&"), TEXT("int[]&")).Ask(), CONNECT_RESPONSE_DISALLOW);
	EXPECT_EQ(FPinPair(TEXT("const int[]&"), TEXT("const int[]&")).Ask(), CONNECT_RESPONSE_MAKE);
	EXPECT_EQ(FPinPair(TEXT("const int[]&"), TEXT("int[]")).Ask(), CONNECT_RESPONSE_MAKE);
	EXPECT_EQ(FPinPair(TEXT("int[]"), TEXT("int[]&")).Ask(), CONNECT_RESPONSE_MAKE);
}

TEST(SchemaConnection, AFunctionThatGivesNothingBackTakesSeveralTargets)
{
	UEdGraph* const Graph = MakeLooseGraph();
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UK2Node* const Source = MakeBareNode(*Graph);
	UEdGraphPin* const Many = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("o:Actor[]")), TEXT("Many"));
	UEdGraphPin* const One = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("o:Actor")), TEXT("One"));
	UEdGraphPin* const Two = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("o:Actor")), TEXT("Two"));
	UEdGraphPin* const Destroy = Call(*Graph, TEXT("Actor"), TEXT("K2_DestroyActor"))->FindPin(TEXT("self"));
	UEdGraphPin* const Location = Call(*Graph, TEXT("Actor"), TEXT("K2_GetActorLocation"))->FindPin(TEXT("self"));
	ASSERT_TRUE(Destroy && Location);
	EXPECT_EQ(Schema.CanCreateConnection(Many, Destroy).Response, CONNECT_RESPONSE_MAKE);
	EXPECT_EQ(Schema.CanCreateConnection(Many, Location).Response, CONNECT_RESPONSE_DISALLOW);
	ASSERT_TRUE(Schema.TryCreateConnection(One, Destroy));
	EXPECT_EQ(Schema.CanCreateConnection(Two, Destroy).Response, CONNECT_RESPONSE_MAKE);
	ASSERT_TRUE(Schema.TryCreateConnection(One, Location));
	EXPECT_EQ(Schema.CanCreateConnection(Two, Location).Response, CONNECT_RESPONSE_BREAK_OTHERS_B);
}

struct FConversionRow
{
	const TCHAR* Output;
	const TCHAR* Input;
	const TCHAR* NodeClass;
	/** Of a library call; null for nodes of their own. */
	const TCHAR* Function;
};

TEST(SchemaConnection, AConversionNodeIsPlacedBetweenAndWired)
{
	static const FConversionRow Rows[] = {
		{TEXT("int"), TEXT("string"), TEXT("K2Node_CallFunction"), TEXT("Conv_IntToString")},
		{TEXT("int"), TEXT("double"), TEXT("K2Node_CallFunction"), TEXT("Conv_IntToDouble")},
		{TEXT("float"), TEXT("int"), TEXT("K2Node_CallFunction"), TEXT("FTrunc")},
		{TEXT("string"), TEXT("text"), TEXT("K2Node_CallFunction"), TEXT("Conv_StringToText")},
		{TEXT("s:Vector"), TEXT("s:Transform"), TEXT("K2Node_CallFunction"), TEXT("Conv_VectorToTransform")},
		{TEXT("e:ECollisionChannel"), TEXT("int"), TEXT("K2Node_CallFunction"), TEXT("Conv_ByteToInt")},
		{TEXT("o:Actor"), TEXT("string"), TEXT("K2Node_CallFunction"), TEXT("Conv_ObjectToString")},
		{TEXT("o:Actor"), TEXT("o:Character"), TEXT("K2Node_DynamicCast"), nullptr},
		{TEXT("c:Actor"), TEXT("c:Character"), TEXT("K2Node_ClassDynamicCast"), nullptr},
		{TEXT("int"), TEXT("int[]"), TEXT("K2Node_MakeArray"), nullptr},
		{TEXT("byte"), TEXT("e:ECollisionChannel"), TEXT("K2Node_CastByteToEnum"), nullptr},
		{TEXT("e:ECollisionChannel"), TEXT("string"), TEXT("K2Node_GetEnumeratorNameAsString"), nullptr},
		{TEXT("so:Actor"), TEXT("o:Actor"), TEXT("K2Node_ConvertAsset"), nullptr}};
	for (const FConversionRow& Row : Rows)
	{
		SCOPED_TRACE(ToStd(FString(Row.Output) + TEXT(" to ") + Row.Input));
		const FPinPair Pair(Row.Output, Row.Input);
		ASSERT_EQ(Pair.Ask(), CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE);
		ASSERT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, Pair.Input));
		ASSERT_EQ(Pair.Graph->Nodes.Num(), 3);
		const UEdGraphNode* const Node = Pair.Graph->Nodes[2];
		EXPECT_EQ(Node->GetClass()->GetName(), FString(Row.NodeClass));
		ASSERT_EQ(Pair.Output->LinkedTo.Num(), 1);
		ASSERT_EQ(Pair.Input->LinkedTo.Num(), 1);
		EXPECT_EQ(Pair.Output->LinkedTo[0]->GetOwningNode(), Node);
		EXPECT_EQ(Pair.Input->LinkedTo[0]->GetOwningNode(), Node);
		EXPECT_EQ(Node->NodePosX, 200);
		if (Row.Function)
		{
			EXPECT_EQ(Cast<UK2Node_CallFunction>(Node)->GetFunctionName(), FName(Row.Function));
		}
	}
}

TEST(SchemaConnection, ACastBetweenValuesIsPureAndOfTheWantedClass)
{
	const FPinPair Pair(TEXT("o:Actor"), TEXT("o:Character"));
	ASSERT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, Pair.Input));
	const UK2Node_DynamicCast* const Node = Cast<UK2Node_DynamicCast>(Pair.Graph->Nodes[2].Get());
	ASSERT_NE(Node, nullptr);
	EXPECT_TRUE(Node->IsNodePure());
	EXPECT_EQ(Node->TargetType.Get()->GetName(), FString(TEXT("Character")));
}

TEST(SchemaConnection, AConversionReplacesWhatTheInputHad)
{
	const FPinPair Pair(TEXT("int"), TEXT("string"));
	UK2Node* const Other = MakeBareNode(*Pair.Graph);
	UEdGraphPin* const Text = Other->CreatePin(EGPD_Output, ReadPinType(TEXT("string")), TEXT("Text"));
	ASSERT_TRUE(Pair.Schema->TryCreateConnection(Text, Pair.Input));
	ASSERT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, Pair.Input));
	EXPECT_EQ(Pair.Input->LinkedTo.Num(), 1);
	EXPECT_TRUE(Text->LinkedTo.IsEmpty());
}
} // namespace SchemaConnection
