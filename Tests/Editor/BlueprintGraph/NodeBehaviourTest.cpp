// What nodes do when they are linked, changed and reconstructed.

#include "BlueprintBuilder.h"
#include "BlueprintTypePromotion.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_AssignDelegate.h"
#include "K2Node_CallArrayFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_FormatText.h"
#include "K2Node_Knot.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_MakeArray.h"
#include "K2Node_MakeMap.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_Select.h"
#include "K2Node_SpawnActorFromClass.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_SwitchInteger.h"
#include "K2Node_SwitchString.h"
#include "Kismet2/CompilerResultsLog.h"
#include "NodeTests.h"
#include "Standalone/StandardMacros.h"

#include <gtest/gtest.h>

namespace NodeBehaviourTests
{
using namespace NodeTests;

TEST(StandardMacros, EachHasAGraphThatLeadsFromItsEntryToItsExits)
{
	const FBlueprintBuilder Blueprint;
	const UBlueprint* const Library = StandardMacros::GetLibrary();
	EXPECT_EQ(Library->MacroGraphs.Num(), 18);
	for (UEdGraph* const Graph : Library->MacroGraphs)
	{
		EXPECT_TRUE(Graph->GraphGuid.IsValid()) << ToStd(Graph->GetName());
		TArray<UK2Node_Tunnel*> Tunnels;
		Graph->GetNodesOfClass(Tunnels);
		ASSERT_EQ(Tunnels.Num(), 2);
		for (const UK2Node_Tunnel* const Tunnel : Tunnels)
		{
			for (const UEdGraphPin* const Pin : Tunnel->Pins)
			{
				EXPECT_FALSE(Pin->LinkedTo.IsEmpty()) << ToStd(Graph->GetName()) << " " << ToStd(Pin->GetName());
			}
		}
	}
}

TEST(MacroInstance, TheElementTypeFollowsTheLinkedArray)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_MacroInstance* const Loop = Make<UK2Node_MacroInstance>(Graph.Get(),
		[](UK2Node_MacroInstance& Node) { Node.SetMacroGraph(StandardMacros::FindMacro(FName(TEXT("ForEachLoop")))); });
	EXPECT_EQ(TypeOf(Loop->FindPin(TEXT("Array Element"))), "Wildcard");
	UK2Node_MakeArray* const Array = Graph.Add<UK2Node_MakeArray>();
	const FNodeHandle Vector = Graph.Call(Math, TEXT("MakeVector"));
	ASSERT_TRUE(Connect(Vector.Output(TEXT("ReturnValue")), Array->FindPin(TEXT("[0]"))));
	ASSERT_TRUE(Connect(Array->GetOutputPin(), Loop->FindPin(TEXT("Array"))));
	EXPECT_EQ(TypeOf(Loop->FindPin(TEXT("Array Element"))), "Vector");
	EXPECT_TRUE(Loop->FindPin(TEXT("Array"))->PinType.IsArray());
	Loop->ReconstructNode();
	EXPECT_EQ(TypeOf(Loop->FindPin(TEXT("Array Element"))), "Vector");
	Loop->FindPin(TEXT("Array"))->GetSchema()->BreakPinLinks(*Loop->FindPin(TEXT("Array")), true);
	EXPECT_EQ(TypeOf(Loop->FindPin(TEXT("Array Element"))), "Wildcard");
}

TEST(PromotableOperator, TheOverloadFollowsTheOperands)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_PromotableOperator* const Add = Make<UK2Node_PromotableOperator>(Graph.Get(),
		[](UK2Node_PromotableOperator& Node) { Node.SetFromFunction(Function(Math, TEXT("Add_DoubleDouble"))); });
	EXPECT_EQ(Names(*Add, EGPD_Input), "A,B");
	EXPECT_EQ(TypeOf(Add->FindPin(TEXT("A"))), "Wildcard");
	const FNodeHandle Integer = Graph.Call(Math, TEXT("RandomInteger"));
	ASSERT_TRUE(Connect(Integer.Output(TEXT("ReturnValue")), Add->FindPin(TEXT("A"))));
	EXPECT_EQ(ToStd(Add->GetFunctionName().ToString()), "Add_IntInt");
	EXPECT_EQ(TypeOf(Add->GetOutputPin()), "Integer");
	const FNodeHandle Real = Graph.Call(Math, TEXT("RandomFloat"));
	ASSERT_TRUE(Connect(Real.Output(TEXT("ReturnValue")), Add->FindPin(TEXT("B"))));
	EXPECT_EQ(ToStd(Add->GetFunctionName().ToString()), "Add_DoubleDouble");
	EXPECT_EQ(TypeOf(Add->FindPin(TEXT("A"))), "Integer") << "a linked operand keeps its type and is promoted";
	FString Reason;
	const FNodeHandle Text = Graph.Call(TEXT("/Script/Engine.KismetTextLibrary"), TEXT("Conv_IntToText"));
	EXPECT_TRUE(Add->IsConnectionDisallowed(Add->FindPin(TEXT("A")), Text.Output(TEXT("ReturnValue")), Reason));
	Add->AddInputPin();
	EXPECT_EQ(Names(*Add, EGPD_Input), "A,B,C");
	Add->RemoveInputPin(Add->FindPin(TEXT("B")));
	EXPECT_EQ(Names(*Add, EGPD_Input), "A,B");
	Add->GetSchema()->BreakNodeLinks(*Add);
	Add->ResetNodeToWildcard();
	EXPECT_EQ(TypeOf(Add->GetOutputPin()), "Wildcard");
}

TEST(TypePromotion, NumbersRiseAndNothingElseDoes)
{
	const FBlueprintBuilder Blueprint;
	const auto Type = [](const TCHAR* Category) { return FBlueprintBuilder::Type(FName(Category)); };
	using EResult = FTypePromotion::ETypeComparisonResult;
	const struct
	{
		const TCHAR* A;
		const TCHAR* B;
		EResult Higher;
	} Cases[] = {{TEXT("int"), TEXT("int"), EResult::TypesEqual}, {TEXT("byte"), TEXT("int"), EResult::TypeBHigher},
		{TEXT("int64"), TEXT("int"), EResult::TypeAHigher}, {TEXT("int64"), TEXT("real"), EResult::TypeBHigher},
		{TEXT("bool"), TEXT("int"), EResult::InvalidComparison},
		{TEXT("string"), TEXT("name"), EResult::InvalidComparison}};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(FTypePromotion::GetHigherType(Type(Case.A), Type(Case.B)), Case.Higher)
			<< ToStd(Case.A) << " " << ToStd(Case.B);
	}
}

TEST(ContainerNodes, ElementsTakeAndLoseTheirType)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_MakeMap* const Map = Graph.Add<UK2Node_MakeMap>();
	Map->AddInputPin();
	EXPECT_EQ(Names(*Map, EGPD_Input), "Key 0,Value 0,Key 1,Value 1");
	const FNodeHandle Integer = Graph.Call(Math, TEXT("RandomInteger"));
	ASSERT_TRUE(Connect(Integer.Output(TEXT("ReturnValue")), Map->FindPin(TEXT("Value 1"))));
	EXPECT_EQ(TypeOf(Map->FindPin(TEXT("Value 0"))), "Integer");
	EXPECT_EQ(TypeOf(Map->FindPin(TEXT("Key 0"))), "Wildcard");
	EXPECT_EQ(Map->GetOutputPin()->PinType.PinValueType.TerminalCategory, UEdGraphSchema_K2::PC_Int);
	Map->RemoveInputPin(Map->FindPin(TEXT("Key 0")));
	EXPECT_EQ(Names(*Map, EGPD_Input), "Key 0,Value 0");
	EXPECT_EQ(Map->FindPin(TEXT("Value 0"))->LinkedTo.Num(), 1) << "the pair that stays keeps its link";
	Map->GetSchema()->BreakNodeLinks(*Map);
	Map->PinConnectionListChanged(Map->FindPin(TEXT("Value 0")));
	EXPECT_EQ(TypeOf(Map->FindPin(TEXT("Value 0"))), "Wildcard");
}

TEST(ArrayCalls, TheItemFollowsTheArray)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_CallArrayFunction* const Add = Make<UK2Node_CallArrayFunction>(Graph.Get(),
		[](UK2Node_CallArrayFunction& Node)
		{ Node.SetFromFunction(Function(TEXT("/Script/Engine.KismetArrayLibrary"), TEXT("Array_Add"))); });
	EXPECT_EQ(TypeOf(Add->FindPin(TEXT("NewItem"))).find("Wildcard"), 0u);
	UK2Node_MakeArray* const Array = Graph.Add<UK2Node_MakeArray>();
	const FNodeHandle Integer = Graph.Call(Math, TEXT("RandomInteger"));
	ASSERT_TRUE(Connect(Integer.Output(TEXT("ReturnValue")), Array->FindPin(TEXT("[0]"))));
	ASSERT_TRUE(Connect(Array->GetOutputPin(), Add->GetTargetArrayPin()));
	EXPECT_EQ(Add->FindPin(TEXT("NewItem"))->PinType.PinCategory, UEdGraphSchema_K2::PC_Int);
	EXPECT_TRUE(Add->GetTargetArrayPin()->PinType.bIsReference);
}

TEST(Switches, CasesFollowTheirKind)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_SwitchInteger* const Integer = Graph.Add<UK2Node_SwitchInteger>();
	Integer->AddPinToSwitchNode();
	Integer->AddPinToSwitchNode();
	Integer->AddPinToSwitchNode();
	Integer->RemovePinFromSwitchNode(Integer->FindPin(TEXT("1")));
	EXPECT_EQ(Names(*Integer, EGPD_Output), "Default,0,1");
	UK2Node_SwitchString* const String = Graph.Add<UK2Node_SwitchString>();
	String->AddPinToSwitchNode();
	String->AddPinToSwitchNode();
	String->RemovePinFromSwitchNode(String->FindPin(TEXT("Case_0")));
	String->AddPinToSwitchNode();
	String->ReconstructNode();
	EXPECT_EQ(Names(*String, EGPD_Output), "Default,Case_1,Case_0");
	UK2Node_SwitchEnum* const Enum = Make<UK2Node_SwitchEnum>(Graph.Get(),
		[](UK2Node_SwitchEnum& Node)
		{ Node.SetEnum(FindObject<UEnum>(nullptr, TEXT("/Script/Engine.EAttachmentRule"))); });
	EXPECT_EQ(Names(*Enum, EGPD_Output), "KeepRelative,KeepWorld,SnapToTarget");
	EXPECT_FALSE(Enum->CanAddPin());
}

TEST(Sequence, NamesStayInARow)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_ExecutionSequence* const Node = Blueprint.EventGraph().Add<UK2Node_ExecutionSequence>();
	EXPECT_FALSE(Node->CanRemoveExecutionPin());
	Node->AddInputPin();
	Node->RemovePinFromExecutionNode(Node->FindPin(TEXT("then_0")));
	EXPECT_EQ(Names(*Node, EGPD_Output), "then_0,then_1");
	Node->AddInputPin();
	Node->ReconstructNode();
	EXPECT_EQ(Names(*Node, EGPD_Output), "then_0,then_1,then_2");
}

TEST(FormatText, ArgumentsAreThoseOfThePattern)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_FormatText* const Node = Blueprint.EventGraph().Add<UK2Node_FormatText>();
	const UEdGraphSchema* const Schema = Node->GetSchema();
	Schema->TrySetDefaultText(
		*Node->GetFormatPin(), FText::FromString(TEXT("{Name} has {Count} of {Name}, `{not this`}")));
	EXPECT_EQ(Names(*Node, EGPD_Input), "Format,Name,Count");
	Schema->TrySetDefaultText(*Node->GetFormatPin(), FText::FromString(TEXT("{Count}")));
	EXPECT_EQ(Names(*Node, EGPD_Input), "Format,Count");
	EXPECT_FALSE(Node->CanAddPin());
}

TEST(Select, TheIndexSaysWhichOptionsThereAre)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_Select* const Node = Graph.Add<UK2Node_Select>();
	Node->AddInputPin();
	EXPECT_EQ(Names(*Node, EGPD_Input), "Option 0,Option 1,Option 2,Index");
	Node->SetEnum(FindObject<UEnum>(nullptr, TEXT("/Script/Engine.EAttachmentRule")));
	EXPECT_EQ(Names(*Node, EGPD_Input), "KeepRelative,KeepWorld,SnapToTarget,Index");
	const FNodeHandle Integer = Graph.Call(Math, TEXT("RandomInteger"));
	ASSERT_TRUE(Connect(Integer.Output(TEXT("ReturnValue")), Node->FindPin(TEXT("KeepWorld"))));
	EXPECT_EQ(TypeOf(Node->GetReturnValuePin()), "Integer");
}

TEST(SpawnActor, TheClassExposesItsPins)
{
	const FBlueprintBuilder Blueprint;
	UK2Node_SpawnActorFromClass* const Node = Blueprint.EventGraph().Add<UK2Node_SpawnActorFromClass>();
	UClass* const Pawn = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Pawn"));
	Node->GetSchema()->TrySetDefaultObject(*Node->GetClassPin(), Pawn);
	EXPECT_NE(Node->FindPin(TEXT("Instigator"), EGPD_Input), nullptr);
	EXPECT_EQ(Node->GetResultPin()->PinType.PinSubCategoryObject.Get(), Pawn);
	Node->GetSchema()->TrySetDefaultObject(*Node->GetClassPin(), nullptr);
	EXPECT_EQ(Node->FindPin(TEXT("Instigator"), EGPD_Input), nullptr);
	EXPECT_EQ(ToStd(Node->GetResultPin()->PinType.PinSubCategoryObject.Get()->GetName()), "Actor");
}

TEST(Knots, AChainPassesTheTypeOn)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_Knot* const First = Graph.Add<UK2Node_Knot>();
	UK2Node_Knot* const Second = Graph.Add<UK2Node_Knot>();
	ASSERT_TRUE(Connect(First->GetOutputPin(), Second->GetInputPin()));
	const FNodeHandle Integer = Graph.Call(Math, TEXT("RandomInteger"));
	ASSERT_TRUE(Connect(Integer.Output(TEXT("ReturnValue")), First->GetInputPin()));
	EXPECT_EQ(TypeOf(Second->GetOutputPin()), "Integer");
}

TEST(Reconstruction, WhatHasNoSuccessorStaysAsAnOrphan)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_SwitchString* const Switch = Graph.Add<UK2Node_SwitchString>();
	Switch->AddPinToSwitchNode();
	const FNodeHandle Print = Graph.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	ASSERT_TRUE(Connect(Switch->FindPin(TEXT("Case_0")), Print.Input(TEXT("execute"))));
	Switch->PinNames[0] = FName(TEXT("Other"));
	Switch->ReconstructNode();
	const UEdGraphPin* const Orphan = Switch->FindPin(TEXT("Case_0"));
	ASSERT_NE(Orphan, nullptr);
	EXPECT_TRUE(Orphan->bOrphanedPin);
	EXPECT_EQ(Orphan->LinkedTo.Num(), 1);
	EXPECT_NE(Switch->FindPin(TEXT("Other")), nullptr);
}

TEST(DynamicCast, SaysWhenItCannotSucceed)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UK2Node_DynamicCast* const Node = Make<UK2Node_DynamicCast>(Graph.Get(),
		[](UK2Node_DynamicCast& Cast)
		{ Cast.TargetType = TSubclassOf<UObject>(FindObject<UClass>(nullptr, TEXT("/Script/Engine.Character"))); });
	EXPECT_EQ(Names(*Node, EGPD_Output), "then,CastFailed,AsCharacter,bSuccess");
	const FNodeHandle Controller = Graph.Call(TEXT("/Script/Engine.GameplayStatics"), TEXT("GetPlayerController"));
	ASSERT_TRUE(Connect(Controller.Output(TEXT("ReturnValue")), Node->GetCastSourcePin()));
	FCompilerResultsLog Log;
	Node->ValidateNodeDuringCompilation(Log);
	ASSERT_EQ(Log.NumWarnings, 1);
	EXPECT_TRUE(Log.Messages[0]->ToText().ToString().Contains(TEXT("would always fail")));
	Node->SetPurity(true);
	EXPECT_EQ(Names(*Node, EGPD_Output), "AsCharacter,bSuccess");
	EXPECT_EQ(Node->GetCastSourcePin()->LinkedTo.Num(), 1);
}

TEST(AssignDelegate, PlacesAnEventWithTheSignature)
{
	const FBlueprintBuilder Blueprint;
	const FProperty* const Property =
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"))->FindPropertyByName(FName(TEXT("OnActorHit")));
	UK2Node_AssignDelegate* const Node = Make<UK2Node_AssignDelegate>(Blueprint.EventGraph().Get(),
		[&](UK2Node_AssignDelegate& Assign) { Assign.SetFromProperty(Property, true, nullptr); });
	ASSERT_EQ(Node->GetDelegatePin()->LinkedTo.Num(), 1);
	const UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(
		Node->GetDelegatePin()->LinkedTo[0]->GetOwningNode());
	ASSERT_NE(Event, nullptr);
	EXPECT_EQ(ToStd(Event->CustomFunctionName.ToString()), "OnActorHit_Event");
	EXPECT_EQ(Names(*Event, EGPD_Output), "OutputDelegate,then,SelfActor,OtherActor,NormalImpulse,Hit");
}

TEST(CompilerResultsLog, ArgumentsStandInTheTextAndOnTheirNodes)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FNodeHandle Print = Graph.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	FCompilerResultsLog Log;
	Log.Warning(TEXT("The @@ of @@ is odd."), Print.Input(TEXT("InString")), static_cast<const UObject*>(Print.Node));
	Log.Error(TEXT("@@ fails"), static_cast<const UObject*>(Print.Node));
	Log.Note(TEXT("Nothing is wrong with @@"), static_cast<const UObject*>(Print.Node));
	EXPECT_EQ(ToStd(Log.Messages[0]->ToText().ToString()), "The In String of Print String is odd.");
	EXPECT_EQ(Log.NumErrors, 1);
	EXPECT_EQ(Log.NumWarnings, 1);
	EXPECT_EQ(ToStd(Print->ErrorMsg), "Print String fails") << "the worst message stays";
	EXPECT_EQ(Print->ErrorType, EMessageSeverity::Error);
}
} // namespace NodeBehaviourTests
