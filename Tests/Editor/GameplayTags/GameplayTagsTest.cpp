// The project's gameplay tags, and the switches whose cases they are.

#include "GameplayTagsK2Node_SwitchGameplayTag.h"
#include "GameplayTagsManager.h"
#include "NodeTests.h"

#include <gtest/gtest.h>

namespace GameplayTagsTests
{
/** A project whose files know some tags. */
class GameplayTags : public testing::Test
{
protected:
	GameplayTags()
	{
		Blueprint.Folder().Write("Config/DefaultGameplayTags.ini",
			"[/Script/GameplayTags.GameplayTagsSettings]\r\nImportTagsFromConfig=True\r\n"
			"+GameplayTagList=(Tag=\"Ability.Melee.Slash\",DevComment=\"a \\\"Tag=\\\" in words\")\r\n"
			";+GameplayTagList=(Tag=\"Commented.Out\",DevComment=\"\")\r\n"
			"+GameplayTagList=(DevComment=\"none\")\r\n");
		Blueprint.Folder().Write("Config/Tags/State.ini", "GameplayTagList=(Tag=\"State.Dead\",DevComment=\"\")\n");
		UGameplayTagsManager::Get().EditorRefreshGameplayTagTree();
	}

	static FGameplayTag Tag(const TCHAR* Name) { return FGameplayTag::RequestGameplayTag(FName(Name), false); }

	FBlueprintBuilder Blueprint;
};

TEST_F(GameplayTags, AreThoseOfTheProjectsFilesWithAllAboveThem)
{
	const struct
	{
		const TCHAR* Name;
		bool bKnown;
	} Cases[] = {{TEXT("Ability.Melee.Slash"), true}, {TEXT("ability.melee"), true}, {TEXT("Ability"), true},
		{TEXT("State.Dead"), true}, {TEXT("Ability.Melee.Slas"), false}, {TEXT("Melee"), false},
		{TEXT("Commented.Out"), false}, {TEXT("none"), false}, {TEXT(""), false}};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Tag(Case.Name).IsValid(), Case.bKnown) << ToStd(Case.Name);
	}
	const TSet<FName> OfTheFiles = {
		TEXT("Ability"), TEXT("Ability.Melee"), TEXT("Ability.Melee.Slash"), TEXT("State"), TEXT("State.Dead")};
	int32 NumFound = 0;
	for (const FName Name : UGameplayTagsManager::Get().RequestAllTagNames())
	{
		const bool bOfTheFiles = OfTheFiles.Contains(Name);
		NumFound += bOfTheFiles ? 1 : 0;
		EXPECT_TRUE(bOfTheFiles || Name.ToString().StartsWith(TEXT("Native"))) << ToStd(Name.ToString());
	}
	EXPECT_EQ(NumFound, OfTheFiles.Num());
}

TEST_F(GameplayTags, ATagMatchesThoseAboveIt)
{
	const FGameplayTag Slash = Tag(TEXT("Ability.Melee.Slash"));
	const FGameplayTag Melee = Tag(TEXT("Ability.Melee"));
	EXPECT_TRUE(Slash.MatchesTag(Melee));
	EXPECT_FALSE(Melee.MatchesTag(Slash));
	EXPECT_FALSE(Slash.MatchesTagExact(Melee));
	EXPECT_FALSE(FGameplayTag().MatchesTag(FGameplayTag()));
	FGameplayTagContainer Container;
	Container.AddTag(Slash);
	Container.AddTag(Slash);
	Container.AddTag(FGameplayTag());
	EXPECT_EQ(Container.Num(), 1);
}

TEST_F(GameplayTags, CasesOfASwitchAreCalledAfterTheirTags)
{
	using namespace NodeTests;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UGameplayTagsK2Node_SwitchGameplayTag* const Node = Graph.Add<UGameplayTagsK2Node_SwitchGameplayTag>();
	EXPECT_EQ(TypeOf(Node->GetSelectionPin()), "Gameplay Tag Structure");
	Node->AddPinToSwitchNode();
	Node->PinTags.Add(Tag(TEXT("State.Dead")));
	Node->PostEditChange();
	EXPECT_EQ(Names(*Node, EGPD_Output), "Default,Case_0,State.Dead");
	Node->PinTags[0] = Tag(TEXT("Ability"));
	Node->PostEditChange();
	EXPECT_EQ(Names(*Node, EGPD_Output), "Default,Ability,State.Dead");
	const FNodeHandle Print = Graph.Call(System, TEXT("PrintString"));
	ASSERT_TRUE(Connect(Node->FindPin(TEXT("State.Dead")), Print.Input(TEXT("execute"))));
	Node->RemovePinFromSwitchNode(Node->FindPin(TEXT("Ability")));
	Node->ReconstructNode();
	EXPECT_EQ(Names(*Node, EGPD_Output), "Default,State.Dead");
	EXPECT_EQ(Node->PinTags.Num(), 1);
	EXPECT_EQ(Node->FindPin(TEXT("State.Dead"))->LinkedTo.Num(), 1);
}

TEST_F(GameplayTags, SwitchesOnContainersAreReadBackFromTheirAsset)
{
	UGameplayTagsK2Node_SwitchGameplayTagContainer* const Node =
		Blueprint.EventGraph().Add<UGameplayTagsK2Node_SwitchGameplayTagContainer>();
	FGameplayTagContainer Tags;
	Tags.AddTag(Tag(TEXT("State.Dead")));
	Tags.AddTag(Tag(TEXT("Ability")));
	Node->PinContainers.Add(Tags);
	Node->PostEditChange();
	const FGuid Id = Node->NodeGuid;
	ASSERT_TRUE(Blueprint.Save());
	UBlueprint* const Read = Blueprint.Reload();
	ASSERT_NE(Read, nullptr);
	TArray<UGameplayTagsK2Node_SwitchGameplayTagContainer*> Nodes;
	Read->UbergraphPages[0]->GetNodesOfClass(Nodes);
	ASSERT_EQ(Nodes.Num(), 1);
	EXPECT_EQ(Nodes[0]->NodeGuid, Id);
	ASSERT_EQ(Nodes[0]->PinContainers.Num(), 1);
	EXPECT_EQ(ToStd(Nodes[0]->PinContainers[0].ToStringSimple()), "State.Dead, Ability");
	EXPECT_NE(Nodes[0]->FindPin(TEXT("State.Dead, Ability")), nullptr);
}
} // namespace GameplayTagsTests
