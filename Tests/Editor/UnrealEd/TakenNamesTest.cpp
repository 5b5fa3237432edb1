// A name is given once among all kinds of members, and asking for it costs no rebuild of the class.

#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SimpleConstructionScript.h"
#include "K2Node_Composite.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "NodeTests.h"

#include <gtest/gtest.h>

namespace TakenNamesTest
{
static UBlueprint& MakeEverything(const FBlueprintBuilder& Builder)
{
	UBlueprint& Blueprint = *Builder.Get();
	Builder.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	Builder.Function(TEXT("Attack"));
	FBlueprintEditorUtils::AddNewTimeline(&Blueprint, TEXT("Fade"));
	UClass* const Light = FindObject<UClass>(nullptr, TEXT("/Script/Engine.PointLightComponent"));
	Blueprint.SimpleConstructionScript->AddNode(Blueprint.SimpleConstructionScript->CreateNode(Light, TEXT("Lamp")));
	UEdGraph* const Events = Builder.EventGraph().Get();
	NodeTests::Make<UK2Node_CustomEvent>(
		Events, [](UK2Node_CustomEvent& Node) { Node.CustomFunctionName = TEXT("OnAlarm"); });
	NodeTests::Make<UK2Node_Composite>(Events, [](UK2Node_Composite&) {})->OnRenameNode(TEXT("Inner"));
	FEdGraphPinType Dispatcher = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_MCDelegate);
	FBlueprintEditorUtils::AddMemberVariable(&Blueprint, TEXT("OnHit"), Dispatcher);
	UEdGraph* const Signature = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, TEXT("OnHit"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	Blueprint.DelegateSignatureGraphs.Add(Signature);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	return Blueprint;
}
} // namespace TakenNamesTest

TEST(TakenNames, EveryKindOfMemberTakesItsName)
{
	const FBlueprintBuilder Builder;
	UBlueprint& Blueprint = TakenNamesTest::MakeEverything(Builder);
	const TCHAR* const Taken[] = {TEXT("health"), TEXT("Attack"), TEXT("Fade"), TEXT("Lamp"), TEXT("OnAlarm"),
		TEXT("Inner"), TEXT("OnHit"), TEXT("OnHit__DelegateSignature"), TEXT("EventGraph"), TEXT("ReceiveBeginPlay"),
		TEXT("bReplicates"), TEXT("K2_DestroyActor")};
	for (const bool bFresh : {false, true})
	{
		if (bFresh)
		{
			FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(&Blueprint);
		}
		for (const TCHAR* const Name : Taken)
		{
			EXPECT_EQ(FKismetNameValidator(&Blueprint).IsValid(FString(Name)), EValidatorResult::AlreadyInUse)
				<< ToStd(Name) << (bFresh ? " with" : " without") << " an up-to-date class";
			EXPECT_NE(FBlueprintEditorUtils::FindUniqueKismetName(&Blueprint, Name), FName(Name)) << ToStd(Name);
		}
		EXPECT_EQ(FKismetNameValidator(&Blueprint).IsValid(FString(TEXT("Free"))), EValidatorResult::Ok);
		EXPECT_EQ(Blueprint.bSkeletonIsStale, !bFresh) << "asking for names rebuilds nothing";
	}
}

TEST(TakenNames, ANameThatIsGivenUpIsFreeAtOnce)
{
	const FBlueprintBuilder Builder;
	UBlueprint& Blueprint = TakenNamesTest::MakeEverything(Builder);
	FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(&Blueprint);
	FBlueprintEditorUtils::RemoveMemberVariable(&Blueprint, TEXT("Health"));
	FBlueprintEditorUtils::FindCustomEventNode(&Blueprint, TEXT("OnAlarm"))->DestroyNode();
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	for (const TCHAR* const Name : {TEXT("Health"), TEXT("OnAlarm")})
	{
		EXPECT_EQ(FKismetNameValidator(&Blueprint).IsValid(FString(Name)), EValidatorResult::Ok) << ToStd(Name);
	}
	EXPECT_TRUE(FBlueprintEditorUtils::AddMemberVariable(
		&Blueprint, TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int)));
}
