// Which overload an operator takes for what is linked to it, and what its pins become.

#include "BlueprintTypePromotion.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_PromotableOperator.h"
#include "NodeTests.h"

#include <gtest/gtest.h>

namespace PromotionTests
{
using namespace NodeTests;

static UK2Node_PromotableOperator* MakeOperator(FGraphBuilder& Graph, FName Operation)
{
	return Make<UK2Node_PromotableOperator>(Graph.Get(),
		[Operation](UK2Node_PromotableOperator& Node)
		{ Node.SetFromFunction(FTypePromotion::GetDefaultFuncForOp(Operation)); });
}

static std::string Bound(const UK2Node_PromotableOperator& Node)
{
	return ToStd(Node.GetFunctionName().ToString());
}

struct FOverload
{
	const FName& Operation;
	const char* A;
	const char* B;
	const char* Function;
	const char* Pins;
};

TEST(PromotableOperator, TheOverloadFollowsWhatIsLinked)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	using namespace OperatorNames;
	const FOverload Cases[] = {{Add, "int", "", "Add_IntInt", "A:Integer B:Integer ReturnValue:Integer"},
		{Add, "", "int", "Add_IntInt", "A:Integer B:Integer ReturnValue:Integer"},
		{Add, "byte", "int", "Add_IntInt", "A:Byte B:Integer ReturnValue:Integer"},
		{Add, "int", "int64", "Add_Int64Int64", "A:Integer B:Integer64 ReturnValue:Integer64"},
		{Add, "int", "real", "Add_DoubleDouble",
			"A:Integer B:Float (double-precision) ReturnValue:Float (double-precision)"},
		{Add, "vector", "", "Add_VectorVector", "A:Vector B:Vector ReturnValue:Vector"},
		{Multiply, "vector", "", "Multiply_VectorVector", "A:Vector B:Vector ReturnValue:Vector"},
		{Multiply, "vector", "real", "Multiply_VectorFloat", "A:Vector B:Float (double-precision) ReturnValue:Vector"},
		{Multiply, "vector", "int", "Multiply_VectorInt", "A:Vector B:Integer ReturnValue:Vector"},
		{Multiply, "vector2d", "", "Multiply_Vector2DVector2D",
			"A:Vector 2D Structure B:Vector 2D Structure ReturnValue:Vector 2D Structure"},
		{Subtract, "datetime", "timespan", "Subtract_DateTimeTimespan",
			"A:Date Time Structure B:Timespan Structure ReturnValue:Date Time Structure"},
		{Less, "int", "real", "Less_DoubleDouble", "A:Integer B:Float (double-precision) ReturnValue:Boolean"},
		{Equal, "vector", "", "EqualEqual_VectorVector",
			"A:Vector B:Vector ReturnValue:Boolean ErrorTolerance:Float (single-precision)"},
		{Equal, "object", "pawn", "EqualEqual_ObjectObject",
			"A:Object Reference B:Object Reference ReturnValue:Boolean"},
		{NotEq, "name", "", "NotEqual_NameName", "A:Name B:Name ReturnValue:Boolean"}};
	for (const FOverload& Case : Cases)
	{
		UK2Node_PromotableOperator* const Node = MakeOperator(Graph, Case.Operation);
		const std::string Label = ToStd(Case.Operation.ToString()) + " " + Case.A + ", " + Case.B;
		ASSERT_TRUE(!*Case.A || Connect(Source(Graph, Case.A), Node->FindPin(TEXT("A")))) << Label;
		ASSERT_TRUE(!*Case.B || Connect(Source(Graph, Case.B), Node->FindPin(TEXT("B")))) << Label;
		EXPECT_EQ(Bound(*Node), Case.Function) << Label;
		EXPECT_EQ(DataPins(*Node), Case.Pins) << Label;
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			EXPECT_EQ(ToStd(Node->GetK2Schema()->IsPinDefaultValid(
						  Pin, Pin->DefaultValue, Pin->DefaultObject, Pin->DefaultTextValue)),
				"")
				<< Label << ", the default of " << ToStd(Pin->GetName());
		}
		Node->ReconstructNode();
		EXPECT_EQ(DataPins(*Node), Case.Pins) << Label << ", made anew";
	}
}

TEST(PromotableOperator, TheOrderOfLinkingDoesNotMatter)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const char* const Types[] = {"byte", "int", "int64", "real"};
	for (const char* const First : Types)
	{
		for (const char* const Second : Types)
		{
			UK2Node_PromotableOperator* const One = MakeOperator(Graph, OperatorNames::Multiply);
			UK2Node_PromotableOperator* const Other = MakeOperator(Graph, OperatorNames::Multiply);
			ASSERT_TRUE(Connect(Source(Graph, First), One->FindPin(TEXT("A"))));
			ASSERT_TRUE(Connect(Source(Graph, Second), One->FindPin(TEXT("B"))));
			ASSERT_TRUE(Connect(Source(Graph, Second), Other->FindPin(TEXT("B"))));
			ASSERT_TRUE(Connect(Source(Graph, First), Other->FindPin(TEXT("A"))));
			EXPECT_EQ(Bound(*One), Bound(*Other)) << First << " and " << Second;
			EXPECT_EQ(DataPins(*One), DataPins(*Other)) << First << " and " << Second;
		}
	}
}

TEST(PromotableOperator, CuttingALinkFallsBackToWhatStays)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_PromotableOperator* const Node = MakeOperator(Graph, OperatorNames::Add);
	ASSERT_TRUE(Connect(Source(Graph, "int"), Node->FindPin(TEXT("A"))));
	ASSERT_TRUE(Connect(Source(Graph, "real"), Node->FindPin(TEXT("B"))));
	Cut(Node->FindPin(TEXT("B")));
	EXPECT_EQ(Bound(*Node), "Add_IntInt");
	EXPECT_EQ(DataPins(*Node), "A:Integer B:Integer ReturnValue:Integer");
	Cut(Node->FindPin(TEXT("A")));
	EXPECT_EQ(DataPins(*Node), "A:Wildcard B:Wildcard ReturnValue:Wildcard");
	EXPECT_EQ(Bound(*Node), ToStd(FTypePromotion::GetDefaultFuncForOp(OperatorNames::Add)->GetName()));
}

TEST(PromotableOperator, ATypedInValueOutlivesAPromotion)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_PromotableOperator* const Node = MakeOperator(Graph, OperatorNames::Add);
	Node->AddInputPin();
	ASSERT_TRUE(Connect(Source(Graph, "int"), Node->FindPin(TEXT("A"))));
	Node->GetSchema()->TrySetDefaultValue(*Node->FindPin(TEXT("B")), TEXT("5"));
	ASSERT_TRUE(Connect(Source(Graph, "real"), Node->FindPin(TEXT("C"))));
	EXPECT_EQ(TypeOf(Node->FindPin(TEXT("B"))), "Float (double-precision)");
	EXPECT_EQ(ToStd(Node->FindPin(TEXT("B"))->DefaultValue), "5");
	Cut(Node->FindPin(TEXT("A")));
	Cut(Node->FindPin(TEXT("C")));
	EXPECT_EQ(ToStd(Node->FindPin(TEXT("B"))->DefaultValue), "5") << "a value keeps the node's type";
	EXPECT_EQ(TypeOf(Node->GetOutputPin()), "Float (double-precision)");
}

TEST(PromotableOperator, AResultIsNotPromotedOnItsWayOut)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_PromotableOperator* const Node = MakeOperator(Graph, OperatorNames::Add);
	ASSERT_TRUE(Connect(Node->GetOutputPin(), Graph.Call(Math, TEXT("Sqrt")).Input(TEXT("A"))));
	EXPECT_EQ(Bound(*Node), "Add_DoubleDouble");
	ASSERT_TRUE(Connect(Source(Graph, "int"), Node->FindPin(TEXT("A"))));
	EXPECT_EQ(Bound(*Node), "Add_DoubleDouble") << "the result goes to a real still";
	EXPECT_EQ(TypeOf(Node->GetOutputPin()), "Float (double-precision)");
}

TEST(PromotableOperator, RefusesWhatNoOverloadTakes)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const struct
	{
		const FName& Operation;
		const char* Linked;
		const char* Offered;
		bool bTaken;
	} Cases[] = {{OperatorNames::Add, "", "text", false}, {OperatorNames::Add, "", "bool", false},
		{OperatorNames::Add, "", "int[]", false}, {OperatorNames::Add, "vector", "rotator", false},
		{OperatorNames::Add, "vector", "real", true}, {OperatorNames::Less, "int", "timespan", false},
		{OperatorNames::Equal, "name", "string", false}, {OperatorNames::Equal, "", "transform", true}};
	for (const auto& Case : Cases)
	{
		UK2Node_PromotableOperator* const Node = MakeOperator(Graph, Case.Operation);
		const std::string Label = ToStd(Case.Operation.ToString()) + " " + Case.Linked + ", " + Case.Offered;
		ASSERT_TRUE(!*Case.Linked || Connect(Source(Graph, Case.Linked), Node->FindPin(TEXT("A")))) << Label;
		FString Reason;
		EXPECT_EQ(
			Node->IsConnectionDisallowed(Node->FindPin(TEXT("B")), Source(Graph, Case.Offered), Reason), !Case.bTaken)
			<< Label;
		EXPECT_EQ(Reason.IsEmpty(), Case.bTaken) << Label;
	}
}

TEST(PromotableOperator, OperandsCloseUpBehindOneThatGoes)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_PromotableOperator* const Node = MakeOperator(Graph, OperatorNames::Multiply);
	EXPECT_FALSE(Node->CanRemovePin(Node->FindPin(TEXT("A")))) << "two operands stay";
	while (Node->CanAddPin())
	{
		Node->AddInputPin();
	}
	EXPECT_EQ(Node->GetInputPins().Num(), Node->GetMaxInputPinsNum());
	EXPECT_NE(Node->FindPin(TEXT("Z")), nullptr);
	ASSERT_TRUE(Connect(Source(Graph, "vector"), Node->FindPin(TEXT("C"))));
	Node->RemoveInputPin(Node->FindPin(TEXT("B")));
	EXPECT_EQ(Node->FindPin(TEXT("B"))->LinkedTo.Num(), 1) << "what was C";
	EXPECT_EQ(Node->FindPin(TEXT("Z")), nullptr);
	EXPECT_FALSE(MakeOperator(Graph, OperatorNames::Less)->CanAddPin()) << "a comparison has two sides";
}
} // namespace PromotionTests
