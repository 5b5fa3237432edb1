// Nodes that make, break and change structs by their members.

#include "EdGraphSchema_K2.h"
#include "K2Node_BreakStruct.h"
#include "K2Node_MakeStruct.h"
#include "K2Node_SetFieldsInStruct.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/StructureEditorUtils.h"
#include "NodeTests.h"
#include "UObject/Package.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"

#include <gtest/gtest.h>

namespace StructNodesTests
{
using namespace NodeTests;

constexpr const TCHAR* Margin = TEXT("/Script/SlateCore.Margin");

template <class TNode>
TNode* MakeFor(FGraphBuilder& Graph, const TCHAR* StructPath)
{
	return Make<TNode>(Graph.Get(), [StructPath](TNode& Node) { Node.StructType = Struct(StructPath); });
}

TEST(StructNodes, AHiddenMemberStaysHidden)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_MakeStruct* const Node = MakeFor<UK2Node_MakeStruct>(Graph, Margin);
	EXPECT_EQ(Names(*Node, EGPD_Input), "Left,Top,Right,Bottom");
	EXPECT_EQ(Names(*Node, EGPD_Output), "Margin");
	ASSERT_TRUE(Connect(Source(Graph, "real"), Node->FindPin(TEXT("Top"))));
	Node->ShowPinForProperties[0].bShowPin = false;
	Node->ReconstructNode();
	EXPECT_EQ(Names(*Node, EGPD_Input), "Top,Right,Bottom");
	EXPECT_EQ(Node->FindPin(TEXT("Top"))->LinkedTo.Num(), 1);
	Node->ShowPinForProperties[1].bShowPin = false;
	Node->ReconstructNode();
	EXPECT_EQ(Names(*Node, EGPD_Input), "Right,Bottom,Top");
	EXPECT_TRUE(Node->FindPin(TEXT("Top"))->bOrphanedPin) << "it was linked when it was hidden";
}

TEST(StructNodes, ManyMembersFold)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const UK2Node_MakeStruct* const Few = MakeFor<UK2Node_MakeStruct>(Graph, Margin);
	EXPECT_EQ(Few->AdvancedPinDisplay, ENodeAdvancedPins::NoPins);
	const UK2Node_BreakStruct* const Many = MakeFor<UK2Node_BreakStruct>(
		Graph, TEXT("/Script/SlateCore.SlateFontInfo"));
	EXPECT_EQ(Many->AdvancedPinDisplay, ENodeAdvancedPins::Hidden);
	for (int32 Index = 0; Index < Many->Pins.Num(); ++Index)
	{
		EXPECT_EQ(Many->Pins[Index]->bAdvancedView, Index >= 3) << ToStd(Many->Pins[Index]->GetName());
	}
}

TEST(StructNodes, SetFieldsWritesOnlyWhatAnAuthorPicks)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_SetFieldsInStruct* const Node = MakeFor<UK2Node_SetFieldsInStruct>(Graph, Margin);
	EXPECT_EQ(Names(*Node, EGPD_Input), "execute,StructRef");
	EXPECT_FALSE(Node->AllPinsAreShown());
	FCompilerResultsLog Log;
	Node->ValidateNodeDuringCompilation(Log);
	EXPECT_EQ(Log.NumErrors, 1) << "it has nothing to write to";
	Node->RestoreAllPins();
	EXPECT_EQ(Names(*Node, EGPD_Input), "execute,StructRef,Left,Top,Right,Bottom");
	EXPECT_TRUE(Node->AllPinsAreShown());
	ASSERT_TRUE(Connect(Source(Graph, "real"), Node->FindPin(TEXT("Left"))));
	using EPinsToRemove = UK2Node_SetFieldsInStruct::EPinsToRemove;
	Node->RemoveFieldPins(Node->FindPin(TEXT("Left")), EPinsToRemove::GivenPin);
	EXPECT_EQ(Names(*Node, EGPD_Input), "execute,StructRef,Top,Right,Bottom") << "no orphan of what was taken away";
	Node->RemoveFieldPins(Node->FindPin(TEXT("Right")), EPinsToRemove::AllOtherPins);
	EXPECT_EQ(Names(*Node, EGPD_Input), "execute,StructRef,Right");
	Node->ReconstructNode();
	EXPECT_EQ(Names(*Node, EGPD_Input), "execute,StructRef,Right");
}

TEST(StructNodes, WithoutTheStructThePinsStay)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_MakeStruct* const Node = MakeFor<UK2Node_MakeStruct>(Graph, Margin);
	UEdGraphPin* const From = Source(Graph, "real");
	ASSERT_TRUE(Connect(From, Node->FindPin(TEXT("Left"))));
	Node->StructType = nullptr;
	Node->ReconstructNode();
	EXPECT_EQ(Names(*Node, EGPD_Input), "Left,Top,Right,Bottom");
	EXPECT_EQ(From->LinkedTo[0], Node->FindPin(TEXT("Left")));
	EXPECT_EQ(ToStd(Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString()), "Make <unknown struct>");
	FCompilerResultsLog Log;
	Node->ValidateNodeDuringCompilation(Log);
	EXPECT_EQ(Log.NumErrors, 1);
	Node->StructType = Struct(Margin);
	Node->ReconstructNode();
	EXPECT_EQ(From->LinkedTo[0], Node->FindPin(TEXT("Left")));
}

TEST(StructNodes, MembersOfAUserStructAreKnownByTheirGuids)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UUserDefinedStruct* const Pace = FStructureEditorUtils::CreateUserDefinedStruct(
		Blueprint->GetOutermost(), TEXT("Pace"), RF_Transient);
	FEdGraphPinType Real = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Real);
	Real.PinSubCategory = UEdGraphSchema_K2::PC_Double;
	ASSERT_TRUE(FStructureEditorUtils::AddVariable(Pace, Real));
	const FStructVariableDescription& Speed = FStructureEditorUtils::GetVarDesc(Pace)[1];
	const FGuid SpeedGuid = Speed.VarGuid;
	UK2Node_MakeStruct* const Node = Make<UK2Node_MakeStruct>(
		Graph.Get(), [Pace](UK2Node_MakeStruct& Made) { Made.StructType = Pace; });
	UEdGraphPin* const From = Source(Graph, "real");
	ASSERT_TRUE(Connect(From, Node->FindPin(Speed.VarName)));
	EXPECT_EQ(From->LinkedTo[0]->PersistentGuid, SpeedGuid);

	ASSERT_TRUE(FStructureEditorUtils::RenameVariable(Pace, SpeedGuid, TEXT("Velocity")));
	Node->ReconstructNode();
	EXPECT_EQ(ToStd(From->LinkedTo[0]->PinFriendlyName.ToString()), "Velocity");
	EXPECT_FALSE(From->LinkedTo[0]->bOrphanedPin);

	// Text of before a rename names the member otherwise, but ends in the same guid.
	From->LinkedTo[0]->PinName = FName(TEXT("OldName_7_") + SpeedGuid.ToString(EGuidFormats::Digits));
	Node->ReconstructNode();
	EXPECT_EQ(Node->Pins.Num(), 3);
	EXPECT_FALSE(From->LinkedTo[0]->bOrphanedPin);

	ASSERT_TRUE(FStructureEditorUtils::RemoveVariable(Pace, SpeedGuid));
	Node->ReconstructNode();
	EXPECT_TRUE(From->LinkedTo[0]->bOrphanedPin);
}
} // namespace StructNodesTests
