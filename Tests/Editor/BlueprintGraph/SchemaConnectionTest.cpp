#include "SchemaPins.h"

#include "BlueprintBuilder.h"
#include "GraphBuilder.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_Knot.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_VariableGet.h"

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
	EXPECT_EQ(ToStd(Schema.CanCreateConnection(Pair.Output, SameNode).Message.ToString()),
		"Both pins are on the same node (Integer and Integer)");
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
	// An array is gone through in a loop, which nothing joins and which joins nothing.
	EXPECT_EQ(Schema.CanCreateConnection(Many, Destroy).Response, CONNECT_RESPONSE_BREAK_OTHERS_B);
	ASSERT_TRUE(Schema.TryCreateConnection(Many, Destroy));
	EXPECT_EQ(Destroy->LinkedTo.Num(), 1);
	EXPECT_EQ(Schema.CanCreateConnection(One, Destroy).Response, CONNECT_RESPONSE_BREAK_OTHERS_B);
	ASSERT_TRUE(Schema.TryCreateConnection(One, Location));
	EXPECT_EQ(Schema.CanCreateConnection(Two, Location).Response, CONNECT_RESPONSE_BREAK_OTHERS_B);
}

TEST(SchemaConnection, ATargetThatTheObjectHoldsIsTakenFromIt)
{
	UEdGraph* const Graph = MakeLooseGraph();
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UK2Node* const Source = MakeBareNode(*Graph);
	UEdGraphPin* const Character = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("o:Character")), TEXT("Out"));
	UEdGraphPin* const Material = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("o:Material")), TEXT("Other"));
	UEdGraphPin* const Target =
		Call(*Graph, TEXT("SkeletalMeshComponent"), TEXT("SetAnimationMode"))->FindPin(TEXT("self"));
	ASSERT_NE(Target, nullptr);
	EXPECT_EQ(Schema.CanCreateConnection(Material, Target).Response, CONNECT_RESPONSE_DISALLOW);
	ASSERT_EQ(Schema.CanCreateConnection(Character, Target).Response, CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE);
	ASSERT_TRUE(Schema.TryCreateConnection(Character, Target));
	ASSERT_EQ(Target->LinkedTo.Num(), 1);
	const UK2Node_VariableGet* const Getter = Cast<UK2Node_VariableGet>(Target->LinkedTo[0]->GetOwningNode());
	ASSERT_NE(Getter, nullptr);
	EXPECT_EQ(Getter->GetVarName(), FName(TEXT("Mesh")));
	EXPECT_TRUE(Character->IsLinkedTo(Getter->FindPin(UEdGraphSchema_K2::PN_Self)));
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
		{TEXT("so:Actor"), TEXT("o:Actor"), TEXT("K2Node_ConvertAsset"), nullptr},
		{TEXT("o:Character"), TEXT("so:Actor"), TEXT("K2Node_ConvertAsset"), nullptr},
		{TEXT("c:Actor"), TEXT("sc:Actor"), TEXT("K2Node_ConvertAsset"), nullptr},
		{TEXT("int"), TEXT("wildcard[]"), TEXT("K2Node_MakeArray"), nullptr},
		{TEXT("int{}"), TEXT("int[]"), TEXT("K2Node_CallFunction"), TEXT("Set_ToArray")},
		{TEXT("o:Character"), TEXT("c:Actor"), TEXT("K2Node_CallFunction"), TEXT("GetObjectClass")},
		{TEXT("i:NavAgentInterface"), TEXT("o:Object"), TEXT("K2Node_CallFunction"), TEXT("Conv_InterfaceToObject")},
		{TEXT("s:Quat"), TEXT("s:Rotator"), TEXT("K2Node_CallFunction"), TEXT("Quat_Rotator")},
		{TEXT("s:InputActionValue"), TEXT("bool"), TEXT("K2Node_CallFunction"), TEXT("Conv_InputActionValueToBool")}};
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

TEST(SchemaConnection, AnInterfaceIsMadeAnObjectBeforeItIsCast)
{
	const FPinPair Pair(TEXT("i:NavAgentInterface"), TEXT("o:Pawn"));
	ASSERT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, Pair.Input));
	ASSERT_EQ(Pair.Graph->Nodes.Num(), 4);
	ASSERT_EQ(Pair.Input->LinkedTo.Num(), 1);
	const UK2Node_DynamicCast* const Node = Cast<UK2Node_DynamicCast>(Pair.Input->LinkedTo[0]->GetOwningNode());
	ASSERT_NE(Node, nullptr);
	const UEdGraphPin* const Source = Node->GetCastSourcePin();
	ASSERT_EQ(Source->LinkedTo.Num(), 1);
	EXPECT_TRUE(Pair.Output->IsLinkedTo(Source->LinkedTo[0]->GetOwningNode()->FindPin(TEXT("Interface"))));
}

TEST(SchemaConnection, ANodeIsToldWhenWhatItWasLinkedToIsGone)
{
	UEdGraph* const Graph = MakeLooseGraph();
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	FGraphNodeCreator<UK2Node_PromotableOperator> Creator(*Graph);
	UK2Node_PromotableOperator* const Operator = Creator.CreateNode();
	Operator->SetFromFunction(
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"))->FindFunctionByName(TEXT("Add_IntInt")));
	Creator.Finalize();
	for (const bool bWholeNode : {false, true})
	{
		UK2Node* const Source = MakeBareNode(*Graph);
		UEdGraphPin* const Int = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("int")), TEXT("Int"));
		ASSERT_TRUE(Schema.TryCreateConnection(Int, Operator->FindPin(TEXT("A"))));
		EXPECT_EQ(Operator->GetOutputPin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Int);
		bWholeNode ? Source->DestroyNode() : Schema.BreakSinglePinLink(Int, Operator->FindPin(TEXT("A")));
		EXPECT_EQ(Operator->GetOutputPin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Wildcard) << bWholeNode;
	}
}

TEST(SchemaConnection, WhatIsLinkedByTheRulesCompiles)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Events = Blueprint.EventGraph();
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UK2Node_CustomEvent* const Start = Events.Add<UK2Node_CustomEvent>();
	UK2Node_Knot* const Reroute = Events.Add<UK2Node_Knot>();
	UK2Node* const All = Call(*Events.Get(), TEXT("GameplayStatics"), TEXT("GetAllActorsWithTag"));
	UK2Node* const Destroy = Call(*Events.Get(), TEXT("Actor"), TEXT("K2_DestroyActor"));
	// Execution goes through a reroute, and the call is made on each of the actors.
	ASSERT_TRUE(Schema.TryCreateConnection(Start->FindPin(TEXT("then")), Reroute->GetInputPin()));
	EXPECT_FALSE(Reroute->IsNodePure());
	ASSERT_TRUE(Schema.TryCreateConnection(Reroute->GetOutputPin(), All->FindPin(TEXT("execute"))));
	ASSERT_TRUE(Schema.TryCreateConnection(All->FindPin(TEXT("then")), Destroy->FindPin(TEXT("execute"))));
	ASSERT_TRUE(Schema.TryCreateConnection(All->FindPin(TEXT("OutActors")), Destroy->FindPin(TEXT("self"))));
	EXPECT_TRUE(Blueprint.Compiles());
}

TEST(SchemaConnection, BreakingTellsBothSidesAndDirtiesTheBlueprint)
{
	const FBlueprintBuilder Blueprint;
	const FGraphBuilder Events = Blueprint.EventGraph();
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	UK2Node* const Source = MakeBareNode(*Events.Get());
	UK2Node* const Sink = MakeBareNode(*Events.Get());
	UEdGraphPin* const Out = Source->CreatePin(EGPD_Output, ReadPinType(TEXT("int")), TEXT("Out"));
	UEdGraphPin* const In = Sink->CreatePin(EGPD_Input, ReadPinType(TEXT("int")), TEXT("In"));
	UEdGraphPin* const More = Sink->CreatePin(EGPD_Input, ReadPinType(TEXT("int")), TEXT("More"));
	for (const bool bAll : {false, true})
	{
		ASSERT_TRUE(Schema.TryCreateConnection(Out, In));
		ASSERT_TRUE(Schema.TryCreateConnection(Out, More));
		Blueprint->Status = BS_UpToDate;
		bAll ? Schema.BreakPinLinks(*Out, true) : Schema.BreakSinglePinLink(In, Out);
		EXPECT_TRUE(In->LinkedTo.IsEmpty());
		EXPECT_EQ(More->LinkedTo.Num(), bAll ? 0 : 1);
		EXPECT_EQ(Blueprint->Status, BS_Dirty);
	}
	Blueprint->Status = BS_UpToDate;
	Schema.BreakPinLinks(*Out, true);
	EXPECT_EQ(Blueprint->Status, BS_UpToDate) << "nothing was linked";
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
