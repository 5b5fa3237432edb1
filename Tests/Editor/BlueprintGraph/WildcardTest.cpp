// Pins of open type take the type of what is linked to them, keep it while the node is made anew, and lose it again.

#include "EdGraphSchema_K2.h"
#include "K2Node_EaseFunction.h"
#include "K2Node_EnumEquality.h"
#include "K2Node_EnumLiteral.h"
#include "K2Node_FormatText.h"
#include "K2Node_GetArrayItem.h"
#include "K2Node_MakeArray.h"
#include "K2Node_MakeMap.h"
#include "K2Node_MakeSet.h"
#include "K2Node_Select.h"
#include "NodeTests.h"

#include <gtest/gtest.h>

namespace WildcardTests
{
using namespace NodeTests;

struct FTakenType
{
	UClass* NodeClass;
	const TCHAR* Pin;
	const char* Source;
	const char* Pins;
};

static UEdGraphNode* AddNode(FGraphBuilder& Graph, UClass* Class)
{
	UEdGraphNode* const Node = Graph.Get()->CreateNode(Class, false);
	Node->CreateNewGuid();
	Node->PostPlacedNewNode();
	Node->AllocateDefaultPins();
	return Node;
}

TEST(Wildcards, TakeKeepAndLoseTheTypeOfALink)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FTakenType Cases[] = {
		{UK2Node_MakeArray::StaticClass(), TEXT("[0]"), "int", "Array:Array of Integers [0]:Integer"},
		{UK2Node_MakeArray::StaticClass(), TEXT("[0]"), "pawn",
			"Array:Array of Pawn Object References [0]:Pawn Object Reference"},
		{UK2Node_MakeSet::StaticClass(), TEXT("[0]"), "name", "Set:Set of Names [0]:Name"},
		{UK2Node_GetArrayItem::StaticClass(), TEXT("Array"), "vector[]",
			"Array:Array of Vectors Dimension 1:Integer Output:Vector (by ref)"},
		{UK2Node_Select::StaticClass(), TEXT("Option 1"), "string",
			"Option 0:String Option 1:String Index:Wildcard ReturnValue:String"},
		{UK2Node_Select::StaticClass(), TEXT("Option 0"), "int[]",
			"Option 0:Array of Integers Option 1:Array of Integers Index:Wildcard ReturnValue:Array of Integers"},
		{UK2Node_EaseFunction::StaticClass(), TEXT("B"), "rotator",
			"Function:EEasingFunc Enum Alpha:Float (single-precision) A:Rotator B:Rotator Result:Rotator "
			"ShortestPath:Boolean"}};
	for (const FTakenType& Case : Cases)
	{
		UEdGraphNode* const Node = AddNode(Graph, Case.NodeClass);
		const std::string Label = ToStd(Case.NodeClass->GetName()) + " " + Case.Source;
		const std::string Open = DataPins(*Node);
		ASSERT_TRUE(Connect(Source(Graph, Case.Source), Node->FindPin(Case.Pin, EGPD_Input))) << Label;
		EXPECT_EQ(DataPins(*Node), Case.Pins) << Label;
		Node->ReconstructNode();
		EXPECT_EQ(DataPins(*Node), Case.Pins) << Label << ", made anew";
		EXPECT_EQ(Node->FindPin(Case.Pin, EGPD_Input)->LinkedTo.Num(), 1) << Label;
		Cut(Node->FindPin(Case.Pin, EGPD_Input));
		EXPECT_EQ(DataPins(*Node), Open) << Label << ", cut";
	}
}

TEST(Wildcards, AValueKeepsTheTypeItWasTypedInFor)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_MakeArray* const Array = Graph.Add<UK2Node_MakeArray>();
	Array->AddInputPin();
	ASSERT_TRUE(Connect(Source(Graph, "int"), Array->FindPin(TEXT("[0]"))));
	Array->GetSchema()->TrySetDefaultValue(*Array->FindPin(TEXT("[1]")), TEXT("7"));
	Cut(Array->FindPin(TEXT("[0]")));
	Array->ReconstructNode();
	EXPECT_EQ(DataPins(*Array), "Array:Array of Integers [0]:Integer [1]:Integer");
	EXPECT_EQ(ToStd(Array->FindPin(TEXT("[1]"))->DefaultValue), "7");
	EXPECT_EQ(ToStd(Array->FindPin(TEXT("[0]"))->DefaultValue), "0");
	Array->GetSchema()->TrySetDefaultValue(*Array->FindPin(TEXT("[1]")), TEXT("0"));
	Array->PinConnectionListChanged(Array->FindPin(TEXT("[1]")));
	EXPECT_EQ(DataPins(*Array), "Array:Array of Wildcards [0]:Wildcard [1]:Wildcard");
}

TEST(Wildcards, AMapHasTwoTypes)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_MakeMap* const Map = Graph.Add<UK2Node_MakeMap>();
	ASSERT_TRUE(Connect(Source(Graph, "name"), Map->FindPin(TEXT("Key 0"))));
	ASSERT_TRUE(Connect(Source(Graph, "vector"), Map->FindPin(TEXT("Value 0"))));
	EXPECT_EQ(DataPins(*Map), "Map:Map of Names to Vectors Key 0:Name Value 0:Vector");
	Cut(Map->FindPin(TEXT("Key 0")));
	EXPECT_EQ(DataPins(*Map), "Map:Map of Wildcards to Vectors Key 0:Wildcard Value 0:Vector");
}

TEST(Containers, RefuseWhatTheyCannotHold)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const struct
	{
		UClass* NodeClass;
		const TCHAR* Pin;
		const char* Source;
		const TCHAR* Reason;
	} Cases[] = {{UK2Node_MakeArray::StaticClass(), TEXT("[0]"), "int[]", TEXT("an input of a container")},
		{UK2Node_MakeArray::StaticClass(), TEXT("[0]"), "bool", TEXT("")},
		{UK2Node_MakeSet::StaticClass(), TEXT("[0]"), "bool", TEXT("Boolean has no hash")},
		{UK2Node_MakeMap::StaticClass(), TEXT("Key 0"), "text", TEXT("Text has no hash")},
		{UK2Node_MakeMap::StaticClass(), TEXT("Value 0"), "text", TEXT("")}};
	for (const auto& Case : Cases)
	{
		UEdGraphNode* const Node = AddNode(Graph, Case.NodeClass);
		const FPinConnectionResponse Response = Node->GetSchema()->CanCreateConnection(
			Source(Graph, Case.Source), Node->FindPin(Case.Pin));
		EXPECT_EQ(Response.IsDisallowed(), *Case.Reason != TEXT('\0')) << ToStd(Response.Message.ToString());
		EXPECT_TRUE(Response.Message.ToString().Contains(Case.Reason)) << ToStd(Response.Message.ToString());
	}
}

TEST(EnumEquality, BothSidesAreOfOneEnum)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const auto Entry = [&Graph](const TCHAR* EnumPath)
	{
		return Make<UK2Node_EnumLiteral>(
			Graph.Get(), [EnumPath](UK2Node_EnumLiteral& Node) { Node.Enum = Enum(EnumPath); })
			->FindPin(TEXT("ReturnValue"));
	};
	UK2Node_EnumEquality* const Node = Graph.Add<UK2Node_EnumEquality>();
	UEdGraphPin* const Rule = Entry(TEXT("/Script/Engine.EAttachmentRule"));
	ASSERT_TRUE(Connect(Rule, Node->GetInput1Pin()));
	EXPECT_EQ(TypeOf(Node->GetInput2Pin()), "EAttachmentRule Enum");
	Node->GetSchema()->TrySetDefaultValue(*Node->GetInput2Pin(), TEXT("SnapToTarget"));
	Node->ReconstructNode();
	EXPECT_EQ(ToStd(Node->GetInput2Pin()->DefaultValue), "SnapToTarget");
	FString Reason;
	EXPECT_TRUE(
		Node->IsConnectionDisallowed(Node->GetInput2Pin(), Entry(TEXT("/Script/Engine.EDetachmentRule")), Reason));
	EXPECT_TRUE(Node->IsConnectionDisallowed(Node->GetInput2Pin(), Source(Graph, "int"), Reason));
	EXPECT_TRUE(Node->IsConnectionDisallowed(Node->GetInput2Pin(), Source(Graph, "byte"), Reason));
	Cut(Node->GetInput1Pin());
	EXPECT_EQ(DataPins(*Node), "ReturnValue:Boolean A:Wildcard B:Wildcard");
}

TEST(Select, OptionsKeepTheirPlacesWhenTheIndexChangesItsKind)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_Select* const Node = Graph.Add<UK2Node_Select>();
	Node->AddInputPin();
	ASSERT_TRUE(Connect(Source(Graph, "int"), Node->FindPin(TEXT("Option 0"))));
	Node->GetSchema()->TrySetDefaultValue(*Node->FindPin(TEXT("Option 1")), TEXT("3"));
	UK2Node_EnumLiteral* const Rule = Make<UK2Node_EnumLiteral>(
		Graph.Get(), [](UK2Node_EnumLiteral& Literal) { Literal.Enum = Enum(TEXT("/Script/Engine.EAttachmentRule")); });
	ASSERT_TRUE(Connect(Rule->FindPin(TEXT("ReturnValue")), Node->GetIndexPin()));
	EXPECT_EQ(DataPins(*Node),
		"KeepRelative:Integer KeepWorld:Integer SnapToTarget:Integer Index:EAttachmentRule Enum ReturnValue:Integer");
	EXPECT_EQ(Node->FindPin(TEXT("KeepRelative"))->LinkedTo.Num(), 1);
	EXPECT_EQ(ToStd(Node->FindPin(TEXT("KeepWorld"))->DefaultValue), "3");
	EXPECT_EQ(Node->GetIndexPin()->LinkedTo.Num(), 1);
	EXPECT_FALSE(Node->CanAddPin());
}

TEST(Select, ABooleanIndexHasTwoOptions)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_Select* const Node = Graph.Add<UK2Node_Select>();
	EXPECT_FALSE(Node->CanRemoveOptionPinToNode());
	Node->AddInputPin();
	Node->AddInputPin();
	EXPECT_TRUE(Node->CanRemoveOptionPinToNode());
	Node->RemoveOptionPinToNode();
	EXPECT_EQ(Names(*Node, EGPD_Input), "Option 0,Option 1,Option 2,Index");
	ASSERT_TRUE(Connect(Source(Graph, "bool"), Node->GetIndexPin()));
	EXPECT_EQ(Names(*Node, EGPD_Input), "Option 0,Option 1,Index");
	EXPECT_EQ(ToStd(Node->FindPin(TEXT("Option 0"))->PinFriendlyName.ToString()), "False");
	EXPECT_FALSE(Node->CanAddPin());
	EXPECT_FALSE(Node->CanRemoveOptionPinToNode());
	FString Reason;
	EXPECT_TRUE(Node->IsConnectionDisallowed(Node->GetIndexPin(), Source(Graph, "real"), Reason));
}

TEST(FormatText, LinksStayWithTheArgumentsThatStay)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_FormatText* const Node = Graph.Add<UK2Node_FormatText>();
	const auto Write = [Node](const TCHAR* Pattern)
	{ Node->GetSchema()->TrySetDefaultText(*Node->GetFormatPin(), FText::FromString(Pattern)); };
	Write(TEXT("{Name} has {Count}"));
	ASSERT_TRUE(Connect(Source(Graph, "int"), Node->FindArgumentPin(TEXT("Count"))));
	ASSERT_TRUE(Connect(Source(Graph, "string"), Node->FindArgumentPin(TEXT("Name"))));
	Write(TEXT("{Count} of {All}"));
	EXPECT_EQ(DataPins(*Node), "Format:Text Result:Text Count:Integer All:Wildcard");
	EXPECT_EQ(Node->FindArgumentPin(TEXT("Count"))->LinkedTo.Num(), 1);
	Node->ReconstructNode();
	EXPECT_EQ(DataPins(*Node), "Format:Text Result:Text Count:Integer All:Wildcard");
	FString Reason;
	EXPECT_TRUE(Node->IsConnectionDisallowed(Node->FindArgumentPin(TEXT("All")), Source(Graph, "vector"), Reason));
	EXPECT_TRUE(Node->IsConnectionDisallowed(Node->FindArgumentPin(TEXT("All")), Source(Graph, "int[]"), Reason));
	EXPECT_FALSE(Node->IsConnectionDisallowed(Node->FindArgumentPin(TEXT("All")), Source(Graph, "pawn"), Reason));
}
} // namespace WildcardTests
