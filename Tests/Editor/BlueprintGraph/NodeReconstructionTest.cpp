// What a node keeps when its pins are made anew, and what stays behind as an orphan.

#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_SwitchInteger.h"
#include "NodeTests.h"

#include <gtest/gtest.h>

namespace NodeReconstructionTests
{
using namespace NodeTests;

/** Points a call at another function, as an author does who exchanges one for a like one. */
static void Retarget(const FNodeHandle& Call, const TCHAR* Name)
{
	UK2Node_CallFunction* const Node = CastChecked<UK2Node_CallFunction>(Call.Node);
	Node->SetFromFunction(Function(Math, Name));
	Node->ReconstructNode();
}

/** Orphaned pins by name, with the number of their links: "A(1) B(0)". */
static std::string Orphans(const UEdGraphNode& Node)
{
	std::string Text;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (Pin->bOrphanedPin)
		{
			Text += (Text.empty() ? "" : " ") + ToStd(Pin->GetName()) + "(" + std::to_string(Pin->LinkedTo.Num()) + ")";
		}
	}
	return Text;
}

struct FRetargeting
{
	const TCHAR* From;
	const TCHAR* Pin;
	const char* Linked;
	const TCHAR* Default;
	const TCHAR* To;
	const char* Orphans;
	int32 NumLinks;
	const char* DefaultAfter;
};

TEST(Reconstruction, APinGoesOverWhenItsTypeDoes)
{
	const FBlueprintBuilder Blueprint;
	const FRetargeting Cases[] = {{TEXT("Abs"), TEXT("A"), "real", nullptr, TEXT("Sqrt"), "", 1, "0.0"},
		{TEXT("Abs"), TEXT("A"), "real", nullptr, TEXT("Abs_Int"), "A(1)", 0, "0"},
		{TEXT("Abs"), TEXT("A"), "", TEXT("2.5"), TEXT("Sqrt"), "", 0, "2.5"},
		{TEXT("Abs_Int"), TEXT("A"), "", TEXT("7"), TEXT("Abs"), "A(0)", 0, "0.0"},
		{TEXT("Abs_Int"), TEXT("A"), "", nullptr, TEXT("Abs"), "", 0, "0.0"},
		{TEXT("Abs_Int"), TEXT("A"), "byte", nullptr, TEXT("Abs_Int64"), "A(1)", 0, "0"},
		{TEXT("BMin"), TEXT("A"), "byte", nullptr, TEXT("Max"), "A(1)", 0, "0"},
		{TEXT("MakeVector"), TEXT("X"), "real", nullptr, TEXT("MakeVector2D"), "", 1, "0.0"}};
	for (const FRetargeting& Case : Cases)
	{
		FGraphBuilder Graph = Blueprint.EventGraph();
		const FNodeHandle Call = Graph.Call(Math, Case.From);
		const std::string Label = ToStd(Case.From) + " to " + ToStd(Case.To);
		ASSERT_TRUE(!*Case.Linked || Connect(Source(Graph, Case.Linked), Call.Input(Case.Pin))) << Label;
		if (Case.Default)
		{
			Call.Input(Case.Pin)->GetSchema()->TrySetDefaultValue(*Call.Input(Case.Pin), Case.Default);
		}
		Retarget(Call, Case.To);
		EXPECT_EQ(Orphans(*Call.Node), Case.Orphans) << Label;
		// The new pin stands before the orphan of its name.
		const UEdGraphPin* const Pin = Call.Input(Case.Pin);
		EXPECT_FALSE(Pin->bOrphanedPin) << Label;
		EXPECT_EQ(Pin->LinkedTo.Num(), Case.NumLinks) << Label;
		EXPECT_EQ(ToStd(Pin->DefaultValue), Case.DefaultAfter) << Label;
	}
}

TEST(Reconstruction, AnOrphanComesHomeWhenItsPinIsBack)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FNodeHandle Call = Graph.Call(Math, TEXT("Abs"));
	UEdGraphPin* const From = Source(Graph, "real");
	ASSERT_TRUE(Connect(From, Call.Input(TEXT("A"))));
	const FGuid Id = Call.Input(TEXT("A"))->PinId;
	Retarget(Call, TEXT("Abs_Int"));
	Retarget(Call, TEXT("Abs_Int"));
	EXPECT_EQ(Orphans(*Call.Node), "A(1)") << "once, however often the node is made anew";
	const UEdGraphPin* const Orphan = From->LinkedTo[0];
	EXPECT_TRUE(Orphan->bNotConnectable);
	EXPECT_FALSE(Orphan->bHidden);
	EXPECT_EQ(Orphan->PinId, Id);
	Retarget(Call, TEXT("Sqrt"));
	EXPECT_EQ(Orphans(*Call.Node), "");
	EXPECT_EQ(From->LinkedTo[0], Call.Input(TEXT("A")));
	EXPECT_EQ(Call.Input(TEXT("A"))->PinId, Id);
	Retarget(Call, TEXT("Abs_Int"));
	Cut(From);
	Retarget(Call, TEXT("Abs_Int"));
	EXPECT_EQ(Orphans(*Call.Node), "") << "without its link it carries nothing";
}

TEST(Reconstruction, SplitPinsStaySplitAndLinked)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FNodeHandle Call = Graph.Call(Math, TEXT("VSize"));
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	Schema->SplitPin(Call.Input(TEXT("A")));
	UEdGraphPin* const From = Source(Graph, "real");
	ASSERT_TRUE(Connect(From, Call.Input(TEXT("A_Y"))));
	CastChecked<UK2Node>(Call.Node)->ReconstructNode();
	ASSERT_NE(Call.Input(TEXT("A_Y")), nullptr);
	EXPECT_EQ(From->LinkedTo[0], Call.Input(TEXT("A_Y")));
	EXPECT_EQ(Call.Input(TEXT("A_Y"))->ParentPin, Call.Input(TEXT("A")));
	EXPECT_TRUE(Call.Input(TEXT("A"))->bHidden);

	// Another struct with a member of that name takes the link; the member that it lacks had none.
	Retarget(Call, TEXT("VSize2D"));
	EXPECT_EQ(TypeOf(Call.Input(TEXT("A"))), "Vector 2D Structure");
	EXPECT_EQ(Names(*Call.Node, EGPD_Input), "self,A,A_X,A_Y");
	EXPECT_EQ(From->LinkedTo[0], Call.Input(TEXT("A_Y")));
}

TEST(Reconstruction, ASplitPinWithoutASuccessorStaysWithItsMembers)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FNodeHandle Call = Graph.Call(Math, TEXT("VSize"));
	GetDefault<UEdGraphSchema_K2>()->SplitPin(Call.Input(TEXT("A")));
	UEdGraphPin* const From = Source(Graph, "real");
	ASSERT_TRUE(Connect(From, Call.Input(TEXT("A_Z"))));
	Retarget(Call, TEXT("RandomFloat"));
	EXPECT_EQ(Orphans(*Call.Node), "A(0) A_X(0) A_Y(0) A_Z(1)");
	EXPECT_TRUE(Call.Input(TEXT("A"))->bHidden) << "split pins are shown by their members";
	EXPECT_EQ(Call.Input(TEXT("A_Z"))->ParentPin, Call.Input(TEXT("A")));
	Retarget(Call, TEXT("VSize"));
	EXPECT_EQ(Orphans(*Call.Node), "");
	EXPECT_EQ(From->LinkedTo[0], Call.Input(TEXT("A_Z")));
	GetDefault<UEdGraphSchema_K2>()->RecombinePin(Call.Input(TEXT("A_X")));
	Retarget(Call, TEXT("RandomFloat"));
	EXPECT_EQ(Orphans(*Call.Node), "");
}

TEST(Reconstruction, AMemberMayLiveOnWhereItsStructDoesNot)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_CustomEvent* const Event = Graph.Add<UK2Node_CustomEvent>();
	FEdGraphPinType Real = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Real);
	Real.PinSubCategory = UEdGraphSchema_K2::PC_Double;
	Event->CreateUserDefinedPin(TEXT("Place"),
		FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Struct, Struct(TEXT("/Script/CoreUObject.Vector"))), EGPD_Output,
		false);
	GetDefault<UEdGraphSchema_K2>()->SplitPin(Event->FindPin(TEXT("Place")));
	UEdGraphPin* const X = Graph.Call(Math, TEXT("Sqrt")).Input(TEXT("A"));
	UEdGraphPin* const Y = Graph.Call(Math, TEXT("Sqrt")).Input(TEXT("A"));
	ASSERT_TRUE(Connect(Event->FindPin(TEXT("Place_X")), X));
	ASSERT_TRUE(Connect(Event->FindPin(TEXT("Place_Y")), Y));
	Event->UserDefinedPins[0]->PinName = TEXT("Place_X");
	Event->UserDefinedPins[0]->PinType = Real;
	Event->ReconstructNode();
	EXPECT_EQ(Orphans(*Event), "Place(0) Place_Y(1) Place_Z(0)");
	EXPECT_EQ(X->LinkedTo[0], Event->FindPin(TEXT("Place_X")));
	EXPECT_EQ(X->LinkedTo[0]->ParentPin, nullptr);
	EXPECT_EQ(Event->FindPin(TEXT("Place"))->SubPins.Num(), 2);
}

TEST(Reconstruction, TheOrderOfLinksIsThatOfBefore)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UEdGraphPin* const From = Source(Graph, "real");
	const FNodeHandle Users[] = {
		Graph.Call(Math, TEXT("Abs")), Graph.Call(Math, TEXT("Sqrt")), Graph.Call(Math, TEXT("Sin"))};
	for (const FNodeHandle& User : Users)
	{
		ASSERT_TRUE(Connect(From, User.Input(TEXT("A"))));
	}
	CastChecked<UK2Node>(Users[0].Node)->ReconstructNode();
	CastChecked<UK2Node>(Users[1].Node)->ReconstructNode();
	for (int32 Index = 0; Index < From->LinkedTo.Num(); ++Index)
	{
		EXPECT_EQ(From->LinkedTo[Index], Users[Index].Input(TEXT("A"))) << Index;
	}
}

TEST(Reconstruction, OutputsThatAreCountedStayOrphansOnceTheyAre)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_ExecutionSequence* const Sequence = Graph.Add<UK2Node_ExecutionSequence>();
	Sequence->AddInputPin();
	UK2Node_SwitchInteger* const Switch = Graph.Add<UK2Node_SwitchInteger>();
	Switch->AddPinToSwitchNode();
	Switch->AddPinToSwitchNode();
	const struct
	{
		UK2Node* Node;
		const TCHAR* Last;
		const char* Outputs;
	} Cases[] = {{Sequence, TEXT("then_2"), "then_0,then_1,then_2"}, {Switch, TEXT("1"), "Default,0,1"}};
	for (const auto& Case : Cases)
	{
		ASSERT_EQ(Names(*Case.Node, EGPD_Output), Case.Outputs);
		UEdGraphPin* const Last = Case.Node->FindPin(Case.Last);
		ASSERT_TRUE(Connect(Last, Graph.Call(System, TEXT("PrintString")).Input(TEXT("execute"))));
		Last->bOrphanedPin = true;
		for (int32 Times = 0; Times < 2; ++Times)
		{
			Case.Node->ReconstructNode();
			EXPECT_EQ(Orphans(*Case.Node), ToStd(Case.Last) + "(1)");
			EXPECT_EQ(Names(*Case.Node, EGPD_Output), Case.Outputs) << "no other took its name";
		}
	}
}

TEST(Reconstruction, WhatAnAuthorNeverSawLeavesNoOrphan)
{
	const FBlueprintBuilder Blueprint;
	for (const bool bHidden : {false, true})
	{
		FGraphBuilder Graph = Blueprint.EventGraph();
		const FNodeHandle Call = Graph.Call(Math, TEXT("Abs_Int"));
		Call.Input(TEXT("A"))->DefaultValue = TEXT("7");
		Call.Input(TEXT("A"))->bHidden = bHidden;
		Retarget(Call, TEXT("RandomFloat"));
		EXPECT_EQ(Orphans(*Call.Node), bHidden ? "" : "A(0)");
	}
}

TEST(Reconstruction, CasesOfAnIntegerSwitchAreKnownByTheirPlaces)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_SwitchInteger* const Switch = Graph.Add<UK2Node_SwitchInteger>();
	Switch->AddPinToSwitchNode();
	Switch->AddPinToSwitchNode();
	const FNodeHandle Print = Graph.Call(System, TEXT("PrintString"));
	ASSERT_TRUE(Connect(Switch->FindPin(TEXT("1")), Print.Input(TEXT("execute"))));
	Switch->StartIndex = 10;
	Switch->ReconstructNode();
	EXPECT_EQ(Names(*Switch, EGPD_Output), "Default,10,11");
	EXPECT_EQ(Print.Input(TEXT("execute"))->LinkedTo[0], Switch->FindPin(TEXT("11")));
}
} // namespace NodeReconstructionTests
