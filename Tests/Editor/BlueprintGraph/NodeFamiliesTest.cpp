// What all node classes hold to, and what nodes of the families of calls, events, input, variables, flow and creation
// are called and filed under.

#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "NodeFamilyTable.h"
#include "NodeIdentity/NodeByIdentity.h"
#include "Session/EditorModules.h"
#include "ToolResults.h"

#include "UObject/Package.h"

#include <gtest/gtest.h>

namespace NodeFamiliesTests
{
static std::string PinNames(const UEdGraphNode& Node)
{
	std::string Text;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Text += (Text.empty() ? "" : " ") + std::string(Pin->Direction == EGPD_Output ? ">" : "<");
		Text += ToStd(Pin->PinName.IsNone() ? FString(TEXT("-")) : Pin->GetName());
		Text += Pin->bHidden ? "." : "";
		Text += Pin->bOrphanedPin ? "!" : "";
	}
	return Text;
}

/** The classes that a graph may hold a node of. */
static TArray<UClass*> ConcreteClasses()
{
	TArray<UClass*> Classes;
	GetDerivedClasses(UK2Node::StaticClass(), Classes);
	TArray<UClass*> Concrete = Classes.FilterByPredicate(
		[](const UClass* Class) {
			return !Class->HasAnyClassFlags(CLASS_Abstract)
				&& Class->GetOutermost()->GetName() != TEXT("/Script/Tests");
		});
	EXPECT_GT(Concrete.Num(), 80) << "what holds for all of none says nothing";
	return Concrete;
}

TEST(NodeFamilies, EveryClassSaysWhatItIsEvenUnbound)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	for (UClass* const Class : ConcreteClasses())
	{
		UEdGraphNode* const Node = Graph->CreateNode(Class);
		Node->AllocateDefaultPins();
		for (const ENodeTitleType::Type Type :
			{ENodeTitleType::MenuTitle, ENodeTitleType::FullTitle, ENodeTitleType::ListView})
		{
			EXPECT_FALSE(Node->GetNodeTitle(Type).IsEmpty()) << ToStd(Class->GetName()) << " title " << Type;
			EXPECT_NE(Node->GetNodeTitle(Type).ToString(), Class->GetName());
		}
		const FString Tooltip = Node->GetTooltipText().ToString();
		EXPECT_FALSE(Tooltip.IsEmpty()) << ToStd(Class->GetName());
		EXPECT_NE(Tooltip, Class->GetDisplayNameText().ToString()) << "the class name is no tooltip";
		Node->DestroyNode();
	}
}

TEST(NodeFamilies, MakingTheSamePinsAnewChangesNothing)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	for (UClass* const Class : ConcreteClasses())
	{
		UEdGraphNode* const Node = Graph->CreateNode(Class);
		Node->AllocateDefaultPins();
		const std::string Before = PinNames(*Node);
		Node->ReconstructNode();
		EXPECT_EQ(PinNames(*Node), Before) << ToStd(Class->GetName());
		Node->DestroyNode();
	}
}

TEST(NodeFamilies, ExactlyTheImpureOnesHaveExecutionPins)
{
	// Unbound, these have not the pins yet that their purity speaks of.
	const TSet<FName> Unready = {FName(TEXT("K2Node_Tunnel")), FName(TEXT("K2Node_Composite")),
		FName(TEXT("K2Node_MacroInstance")), FName(TEXT("K2Node_SetFieldsInStruct")),
		FName(TEXT("K2Node_PromotableOperator"))};
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	for (UClass* const Class : ConcreteClasses())
	{
		if (Unready.Contains(Class->GetFName()) || Class->GetName().StartsWith(TEXT("AnimGraphNode_")))
		{
			continue;
		}
		UK2Node* const Node = CastChecked<UK2Node>(Graph->CreateNode(Class));
		Node->AllocateDefaultPins();
		const bool bHasExec = Node->Pins.ContainsByPredicate(
			[](const UEdGraphPin* Pin) { return UEdGraphSchema_K2::IsExecPin(*Pin); });
		EXPECT_EQ(bHasExec, !Node->IsNodePure()) << ToStd(Class->GetName()) << " " << PinNames(*Node);
		Node->DestroyNode();
	}
}

TEST(NodeFamilies, TitlesCategoriesPurityAndPins)
{
	EditorModules::StartEditor();
	FNodeByIdentity Nodes;
	for (const FNodeFamilyRow& Row : NodeFamilyRows)
	{
		FString Error;
		const UK2Node* const Node = Cast<UK2Node>(Nodes.Make(*Json(Row.Identity), Error));
		ASSERT_NE(Node, nullptr) << Row.Identity << " " << ToStd(Error);
		EXPECT_EQ(ToStd(Node->GetNodeTitle(ENodeTitleType::MenuTitle).ToString()), Row.MenuTitle) << Row.Identity;
		EXPECT_EQ(ToStd(Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString()), Row.FullTitle) << Row.Identity;
		EXPECT_EQ(ToStd(Node->GetMenuCategory().ToString()), Row.Category) << Row.Identity;
		EXPECT_EQ(Node->IsNodePure(), Row.bPure) << Row.Identity;
		EXPECT_EQ(PinNames(*Node), Row.Pins) << Row.Identity;
	}
}

TEST(NodeFamilies, TooltipsTellWhatGoesInAndWhere)
{
	struct FCase
	{
		const char* Identity;
		const char* Tooltip;
	};
	const FCase Cases[] = {
		{R"({"node_class":"K2Node_CallFunction","function":"Delay","function_parent":"/Script/Engine.KismetSystemLibrary"})",
			"Delay\nInputs: Duration (Float (single-precision))\n\nTarget is Kismet System Library"},
		{R"({"node_class":"K2Node_CallFunction","function":"HasAuthority","function_parent":"/Script/Engine.Actor"})",
			"Has Authority\nOutputs: Return Value (Boolean)\n\nTarget is Actor"},
		{R"({"node_class":"K2Node_Event","event":"ReceiveTick","event_parent":"/Script/Engine.Actor","props":{"bOverrideFunction":"True"}})",
			"Tick\nInputs: Delta Seconds (Float (single-precision))"},
		{R"({"node_class":"K2Node_AIMoveTo"})",
			"AI MoveTo\nInputs: Pawn (Pawn Object Reference), Destination (Vector), Target Actor (Actor Object "
			"Reference), Acceptance Radius (Float (single-precision)), Stop on Overlap (Boolean)"},
		{R"({"node_class":"K2Node_VariableGet","variable":"bReplicates","variable_parent":"/Script/Engine.Actor"})",
			"Read the value of variable bReplicates\nReplicated"}};
	EditorModules::StartEditor();
	FNodeByIdentity Nodes;
	for (const FCase& Case : Cases)
	{
		FString Error;
		const UEdGraphNode* const Node = Nodes.Make(*Json(Case.Identity), Error);
		ASSERT_NE(Node, nullptr) << ToStd(Error);
		EXPECT_EQ(ToStd(Node->GetTooltipText().ToString()), Case.Tooltip);
	}
}

TEST(NodeFamilies, CompactTitlesAreTheSignsThatAreMeant)
{
	struct FCase
	{
		const TCHAR* Function;
		const TCHAR* Compact;
		bool bCompact;
	};
	const FCase Cases[] = {{TEXT("Multiply_DoubleDouble"), TEXT("\u00D7"), true},
		{TEXT("Divide_DoubleDouble"), TEXT("\u00F7"), true}, {TEXT("Conv_IntToDouble"), TEXT("\u2022"), true},
		{TEXT("Add_IntInt"), TEXT("+"), true}, {TEXT("RandomInteger"), TEXT("RandomInteger"), false}};
	EditorModules::StartEditor();
	const UClass* const Math = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"));
	for (const FCase& Case : Cases)
	{
		const UFunction* const Function = Math->FindFunctionByName(FName(Case.Function));
		ASSERT_NE(Function, nullptr) << ToStd(Case.Function);
		EXPECT_EQ(UK2Node_CallFunction::GetCompactNodeTitle(Function), FString(Case.Compact)) << ToStd(Case.Function);
		EXPECT_EQ(UK2Node_CallFunction::ShouldDrawCompact(Function), Case.bCompact);
	}
}
} // namespace NodeFamiliesTests
