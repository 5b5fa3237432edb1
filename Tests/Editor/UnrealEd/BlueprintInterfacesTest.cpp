#include "EditedBlueprint.h"

#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "UObject/TopLevelAssetPath.h"

using namespace EditedBlueprint;

namespace BlueprintInterfacesTests
{
/** An interface with "Use", which gives a number and so needs a graph, and "Ring", an event with a loudness. */
class FBellInterface
{
public:
	FBellInterface()
		: Blueprint(
			TEXT("BPI_Bell"), FindObject<UClass>(nullptr, TEXT("/Script/CoreUObject.Interface")), BPTYPE_Interface)
	{
		Use = AddFunction(Blueprint.Get(), TEXT("Use")).Get();
		UK2Node_FunctionEntry* const Entry = FUtils::GetEntryNode(Use);
		Entry->CreateUserDefinedPin(TEXT("Force"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Output);
		UK2Node_FunctionResult* const Result = FGraphBuilder(Use).Add<UK2Node_FunctionResult>();
		Result->CreateUserDefinedPin(TEXT("Tone"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Input);
		UEdGraph* const Ring = AddFunction(Blueprint.Get(), TEXT("Ring")).Get();
		FUtils::GetEntryNode(Ring)->CreateUserDefinedPin(
			TEXT("Loudness"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Output);
		FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	}

	FTopLevelAssetPath Path() const { return FTopLevelAssetPath(Blueprint.Class()); }

	const FOther Blueprint;
	UEdGraph* Use = nullptr;
};

static UEdGraph* FindGraph(UBlueprint* Blueprint, const TCHAR* Name)
{
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	UEdGraph* const* const Found = Graphs.FindByPredicate(
		[Name](const UEdGraph* Graph) { return Graph->GetFName() == FName(Name); });
	return Found ? *Found : nullptr;
}

static UK2Node_Event* AddRing(const FBlueprintBuilder& Blueprint, const FBellInterface& Bell)
{
	return Add<UK2Node_Event>(Blueprint.EventGraph(),
		[&Bell](UK2Node_Event& Node)
		{
			Node.EventReference.SetExternalMember(TEXT("Ring"), Bell.Blueprint.Class());
			Node.bOverrideFunction = true;
		});
}
} // namespace BlueprintInterfacesTests

using namespace BlueprintInterfacesTests;

TEST(BlueprintInterfaces, FunctionsGetGraphsAndEventsNone)
{
	FBlueprintBuilder Blueprint;
	const FBellInterface Bell;
	ASSERT_TRUE(FUtils::ImplementNewInterface(Blueprint.Get(), Bell.Path()));
	UEdGraph* const Use = FindGraph(Blueprint.Get(), TEXT("Use"));
	ASSERT_NE(Use, nullptr);
	EXPECT_EQ(FindGraph(Blueprint.Get(), TEXT("Ring")), nullptr);
	EXPECT_TRUE(FUtils::IsInterfaceGraph(Use));
	EXPECT_FALSE(Use->bAllowDeletion);
	EXPECT_EQ(Use->InterfaceGuid, Bell.Use->GraphGuid);
	EXPECT_NE(FUtils::GetEntryNode(Use)->FindPin(TEXT("Force"), EGPD_Output), nullptr);
	AddRing(Blueprint, Bell);
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
	EXPECT_EQ(Blueprint->ImplementedInterfaces.Num(), 1);
}

TEST(BlueprintInterfaces, WhatStandsUnderAFunctionsNameIsNotOverwritten)
{
	struct FCase
	{
		const char* Name;
		void (*Occupy)(UBlueprint* Blueprint);
	};
	for (const FCase& Case : {FCase{"function", [](UBlueprint* Blueprint) { AddFunction(Blueprint, TEXT("Use")); }},
			 FCase{"macro",
				 [](UBlueprint* Blueprint)
				 {
					 UEdGraph* const Graph = FUtils::CreateNewGraph(
						 Blueprint, TEXT("Use"), UEdGraph::StaticClass(), FSchema::StaticClass());
					 FUtils::AddMacroGraph(Blueprint, Graph, true, nullptr);
				 }},
			 FCase{"event page",
				 [](UBlueprint* Blueprint)
				 {
					 UEdGraph* const Graph = FUtils::CreateNewGraph(
						 Blueprint, TEXT("Use"), UEdGraph::StaticClass(), FSchema::StaticClass());
					 FUtils::AddUbergraphPage(Blueprint, Graph);
				 }}})
	{
		FBlueprintBuilder Blueprint;
		const FBellInterface Bell;
		Case.Occupy(Blueprint.Get());
		EXPECT_FALSE(FUtils::ImplementNewInterface(Blueprint.Get(), Bell.Path())) << Case.Name;
		EXPECT_TRUE(Blueprint->ImplementedInterfaces.IsEmpty()) << Case.Name;
		EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty()) << Case.Name;
	}
}

TEST(BlueprintInterfaces, GraphsFollowTheInterface)
{
	FBlueprintBuilder Blueprint;
	const FBellInterface Bell;
	ASSERT_TRUE(FUtils::ImplementNewInterface(Blueprint.Get(), Bell.Path()));
	UEdGraph* const Use = FindGraph(Blueprint.Get(), TEXT("Use"));
	const auto Conform = [&Bell, &Blueprint]
	{
		FKismetEditorUtilities::CompileBlueprint(Bell.Blueprint.Get());
		FUtils::ConformImplementedInterfaces(Blueprint.Get());
	};
	FUtils::RenameGraph(Bell.Use, TEXT("Employ"));
	Conform();
	EXPECT_EQ(FindGraph(Blueprint.Get(), TEXT("Employ")), Use) << "the same graph under the new name";
	EXPECT_THAT(FindInconsistencies(*Blueprint.Get()), IsEmpty());

	UEdGraph* const More = AddFunction(Bell.Blueprint.Get(), TEXT("Weigh")).Get();
	FGraphBuilder(More).Add<UK2Node_FunctionResult>()->CreateUserDefinedPin(
		TEXT("Weight"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Input);
	FUtils::RemoveGraph(Bell.Blueprint.Get(), Bell.Use);
	Conform();
	EXPECT_NE(FindGraph(Blueprint.Get(), TEXT("Weigh")), nullptr);
	EXPECT_EQ(FindGraph(Blueprint.Get(), TEXT("Employ")), nullptr);
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
}

TEST(BlueprintInterfaces, WhatWasWrittenForARemovedOneGoesOrStays)
{
	for (const bool bPreserve : {false, true})
	{
		FBlueprintBuilder Blueprint;
		const FBellInterface Bell;
		ASSERT_TRUE(FUtils::ImplementNewInterface(Blueprint.Get(), Bell.Path()));
		FUtils::EnsureSkeletonIsUpToDate(Blueprint.Get());
		UK2Node_Event* const Ring = AddRing(Blueprint, Bell);
		const FNodeHandle Print = Blueprint.EventGraph().Call(
			TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
		FGraphBuilder::Link(Ring->FindPin(TEXT("then")), Print.Input(TEXT("execute")));
		FUtils::RemoveInterface(Blueprint.Get(), Bell.Path(), bPreserve);
		EXPECT_TRUE(Blueprint->ImplementedInterfaces.IsEmpty());
		EXPECT_EQ(FindGraph(Blueprint.Get(), TEXT("Use")) != nullptr, bPreserve);
		EXPECT_EQ(FUtils::FindCustomEventNode(Blueprint.Get(), TEXT("Ring")) != nullptr, bPreserve);
		EXPECT_EQ(Print.Input(TEXT("execute"))->LinkedTo.Num(), bPreserve ? 1 : 0);
		if (bPreserve)
		{
			UEdGraph* const Use = FindGraph(Blueprint.Get(), TEXT("Use"));
			EXPECT_TRUE(Use->bAllowDeletion);
			FUtils::RefreshAllNodes(Blueprint.Get());
			EXPECT_NE(FUtils::GetEntryNode(Use)->FindPin(TEXT("Force"), EGPD_Output), nullptr)
				<< "the parameter is the author's own now";
			EXPECT_NE(FUtils::FindCustomEventNode(Blueprint.Get(), TEXT("Ring"))->FindPin(TEXT("Loudness")), nullptr);
		}
		EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty()) << bPreserve;
	}
}
