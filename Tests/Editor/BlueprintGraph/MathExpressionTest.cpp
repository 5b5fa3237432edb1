#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_MathExpression.h"
#include "Kismet2/CompilerResultsLog.h"

#include <gtest/gtest.h>

namespace MathExpressionTests
{
/** The calls of the inner graph, in the order in which they were placed. */
static std::string Calls(const UK2Node_MathExpression& Node)
{
	std::string Names;
	for (const UEdGraphNode* const Inner : Node.BoundGraph->Nodes)
	{
		if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Inner))
		{
			Names += (Names.empty() ? "" : " ") + ToStd(Call->GetFunctionName().ToString());
		}
	}
	return Names;
}

static std::string PinsOf(const UK2Node_MathExpression& Node)
{
	std::string Names;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Names += (Names.empty() ? "" : " ") + ToStd(Pin->GetName()) + ":" + ToStd(Pin->PinType.PinCategory.ToString());
	}
	return Names;
}

struct FFormula
{
	const TCHAR* Text;
	const char* Pins;
	const char* Calls;
};

TEST(MathExpression, BuildsTheCallsOfAFormula)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_MathExpression* const Node = Blueprint.EventGraph().Add<UK2Node_MathExpression>();
	const FFormula Formulas[] = {
		{TEXT("a + b * 2.0"), "a:real b:real ReturnValue:real", "Multiply_DoubleDouble Add_DoubleDouble"},
		{TEXT("(a + b) * c"), "a:real b:real c:real ReturnValue:real", "Add_DoubleDouble Multiply_DoubleDouble"},
		{TEXT("1 + 2"), "ReturnValue:int", "Add_IntInt"},
		{TEXT("a < 1.0 && b > 2.0"), "a:real b:real ReturnValue:bool",
			"Less_DoubleDouble Greater_DoubleDouble BooleanAND"},
		{TEXT("-x"), "x:real ReturnValue:real", "Subtract_DoubleDouble"}, {TEXT("-4"), "ReturnValue:int", ""},
		{TEXT("sqrt(x * x + y * y)"), "x:real y:real ReturnValue:real",
			"Multiply_DoubleDouble Multiply_DoubleDouble Add_DoubleDouble Sqrt"},
		{TEXT("a - b - c"), "a:real b:real c:real ReturnValue:real", "Subtract_DoubleDouble Subtract_DoubleDouble"},
		{TEXT("!true"), "ReturnValue:bool", "Not_PreBool"}, {TEXT("max(1, 2)"), "ReturnValue:int", "Max"},
		{TEXT("clamp(x, 0.0, 1.0)"), "x:real ReturnValue:real", "FClamp"}};
	for (const FFormula& Formula : Formulas)
	{
		Node->OnRenameNode(Formula.Text);
		EXPECT_EQ(ToStd(Node->ErrorMsg), "") << ToStd(Formula.Text);
		EXPECT_EQ(PinsOf(*Node), Formula.Pins) << ToStd(Formula.Text);
		EXPECT_EQ(Calls(*Node), Formula.Calls) << ToStd(Formula.Text);
	}
}

TEST(MathExpression, AFaultIsToldOnTheNodeAndLeavesNoGraph)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_MathExpression* const Node = Blueprint.EventGraph().Add<UK2Node_MathExpression>();
	const struct
	{
		const TCHAR* Text;
		const TCHAR* Says;
	} Faults[] = {{TEXT("a +"), TEXT("the formula ends")}, {TEXT("(a + b"), TEXT("closing bracket")},
		{TEXT("a b"), TEXT("did not expect 'b'")}, {TEXT("foo(a)"), TEXT("There is no math function 'foo'")},
		{TEXT("sqrt(a, b, c)"), TEXT("'sqrt' does not take")}, {TEXT("1.2.3"), TEXT("is no number")},
		{TEXT("$"), TEXT("expected a value instead of '$'")}, {TEXT(""), TEXT("the formula ends")},
		{TEXT("true + 1"), TEXT("The operator '+' does not take")}};
	for (const auto& Fault : Faults)
	{
		Node->OnRenameNode(TEXT("1 + 1"));
		Node->OnRenameNode(Fault.Text);
		EXPECT_TRUE(Node->ErrorMsg.Contains(Fault.Says)) << ToStd(Fault.Text) << " says: " << ToStd(Node->ErrorMsg);
		EXPECT_EQ(Node->ErrorType, EMessageSeverity::Error);
		EXPECT_EQ(Calls(*Node), "") << ToStd(Fault.Text);
	}
	Node->OnRenameNode(TEXT("1 + 1"));
	EXPECT_EQ(ToStd(Node->ErrorMsg), "");
	EXPECT_FALSE(Node->bHasCompilerMessage);
}

TEST(MathExpression, DeepNestingIsRefused)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_MathExpression* const Node = Blueprint.EventGraph().Add<UK2Node_MathExpression>();
	FString Deep;
	for (int32 Index = 0; Index < 5000; ++Index)
	{
		Deep += TEXT("(");
	}
	Node->OnRenameNode(Deep);
	EXPECT_TRUE(Node->ErrorMsg.Contains(TEXT("nested too deep")));
}

TEST(MathExpression, AVariableKeepsItsTypeAndLinks)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_MathExpression* const Node = Blueprint.EventGraph().Add<UK2Node_MathExpression>();
	Node->OnRenameNode(TEXT("a + 1.0"));
	UK2Node_CallFunction* const Source = Cast<UK2Node_CallFunction>(
		Blueprint.EventGraph().Call(TEXT("/Script/Engine.KismetMathLibrary"), TEXT("RandomFloat")).Node);
	ASSERT_TRUE(Node->GetK2Schema()->TryCreateConnection(Source->GetReturnValuePin(), Node->FindPin(TEXT("a"))));
	Node->OnRenameNode(TEXT("a * a + b"));
	ASSERT_NE(Node->FindPin(TEXT("a")), nullptr);
	EXPECT_EQ(Node->FindPin(TEXT("a"))->LinkedTo.Num(), 1);
}
} // namespace MathExpressionTests
