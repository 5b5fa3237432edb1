// Copied and pasted, a node is what it was, whatever its class: the text tells all that its pins follow from.

#include "BlueprintBuilder.h"
#include "BlueprintConsistency.h"
#include "BlueprintNodeSpawner.h"
#include "ClipboardText.h"
#include "EdGraphSchema_K2.h"
#include "GraphText.h"
#include "K2Node_Composite.h"
#include "K2Node_Event.h"
#include "K2Node_Timeline.h"
#include "MenuActions.h"
#include "NodeDifference.h"

#include <gtest/gtest.h>

namespace ClipboardEveryNodeTests
{
using namespace ClipboardTests;

/** Events, timelines and collapsed graphs have names that are there once, so a copy has others. */
static bool IsOneOfAKind(const UEdGraphNode& Node)
{
	return Node.IsA<UK2Node_Event>() || Node.IsA<UK2Node_Timeline>() || Node.IsA<UK2Node_Composite>();
}

/** A link from an earlier node to each input that takes one, so that types that follow links are in the text too. */
static void LinkInRow(const TArray<UEdGraphNode*>& Nodes)
{
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	constexpr int32 Reach = 12;
	for (int32 Index = 1; Index < Nodes.Num(); ++Index)
	{
		for (UEdGraphPin* const Input : TArray<UEdGraphPin*>(Nodes[Index]->Pins))
		{
			bool bLinked = Input->Direction != EGPD_Input || Input->bHidden || Input->bNotConnectable;
			for (int32 Before = Index - 1; !bLinked && Before >= FMath::Max(0, Index - Reach); --Before)
			{
				UEdGraphPin* const* const Output = Nodes[Before]->Pins.FindByPredicate(
					[&](const UEdGraphPin* Pin)
					{
						return Pin->Direction == EGPD_Output && !Pin->bHidden
							&& Schema->CanCreateConnection(Pin, Input).Response == CONNECT_RESPONSE_MAKE;
					});
				bLinked = Output && Schema->TryCreateConnection(*Output, Input);
			}
		}
	}
}

/** A Blueprint whose event graph has every kind of node, linked with one another. */
class FEveryNode
{
public:
	explicit FEveryNode(const FBlueprintBuilder& Blueprint)
	{
		UEdGraph* const Graph = Blueprint.EventGraph().Get();
		TArray<UEdGraphNode*> Nodes;
		for (const UBlueprintNodeSpawner* const Spawner : ChooseActions(3, 151))
		{
			UEdGraphNode* const Node = Spawner->Invoke(Graph, IBlueprintNodeBinder::FBindingSet(), FVector2D(32, 64));
			const UK2Node* const K2Node = Cast<UK2Node>(Node);
			if (Node && Graph->Nodes.Contains(Node) && (!K2Node || K2Node->CanPasteHere(Graph)))
			{
				Nodes.Add(Node);
			}
		}
		LinkInRow(Nodes);
		Text = Copy(Nodes);
		Before = ReadGraphText(Text);
	}

	/** From a Blueprint that is gone by now. */
	static FEveryNode Make()
	{
		const FBlueprintBuilder Blueprint;
		return FEveryNode(Blueprint);
	}

	std::string Text;
	std::vector<FGraphTextNode> Before;
};

/** What differs of all nodes once they were pasted. */
static std::vector<FNodeDifference> PasteInto(
	const FEveryNode& From, const FBlueprintBuilder& Into, FWarnings& Warnings)
{
	const std::vector<FGraphTextNode> After = ReadGraphText(Copy(Paste(Into.EventGraph().Get(), From.Text, &Warnings)));
	std::vector<FNodeDifference> Differences;
	for (std::size_t Index = 0; Index < From.Before.size(); ++Index)
	{
		for (FNodeDifference& Difference : FindNodeDifferences(From.Before, After, Index))
		{
			Differences.push_back(std::move(Difference));
		}
	}
	return Differences;
}
} // namespace ClipboardEveryNodeTests

using namespace ClipboardEveryNodeTests;

TEST(Clipboard, EveryKindOfNodeIsCopiedAsItIs)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	TSet<const UClass*> Classes;
	int32 NumCompared = 0;
	for (const UBlueprintNodeSpawner* const Spawner : ChooseActions(3, 151))
	{
		UEdGraphNode* const Node = Spawner->Invoke(Graph, IBlueprintNodeBinder::FBindingSet(), FVector2D(32, 64));
		if (!Node)
		{
			continue;
		}
		const UK2Node* const K2Node = Cast<UK2Node>(Node);
		if (IsOneOfAKind(*Node) || (K2Node && !K2Node->CanPasteHere(Graph)))
		{
			Node->DestroyNode();
			continue;
		}
		const std::string Text = Copy({Node});
		FWarnings Warnings;
		const TArray<UEdGraphNode*> Nodes = Paste(Graph, Text, &Warnings);
		const std::string Label = ToStd(Node->GetClass()->GetName()) + ": "
			+ ToStd(Node->GetNodeTitle(ENodeTitleType::ListView).ToString());
		ASSERT_EQ(Nodes.Num(), 1) << Label;
		EXPECT_EQ(FindDifference(ReadGraphText(Text), ReadGraphText(Copy(Nodes))), "") << Label;
		EXPECT_TRUE(Warnings.Lines.empty()) << Label << ": " << Warnings.Lines.front();
		Classes.Add(Node->GetClass());
		++NumCompared;
		Node->DestroyNode();
		Nodes[0]->DestroyNode();
	}
	EXPECT_GT(Classes.Num(), 60);
	EXPECT_GT(NumCompared, 200);
}

TEST(Clipboard, AGraphOfEveryKindOfNodeGoesIntoAFreshBlueprint)
{
	const FEveryNode Every = FEveryNode::Make();
	const FBlueprintBuilder Fresh;
	FWarnings Warnings;
	for (const FNodeDifference& Difference : PasteInto(Every, Fresh, Warnings))
	{
		ADD_FAILURE() << Difference.ToString();
	}
	EXPECT_TRUE(Warnings.Lines.empty()) << Warnings.Lines.front();
	EXPECT_GT(Every.Before.size(), 200u);
}

TEST(Clipboard, AGraphOfEveryKindOfNodeKeepsItsPinsAndLinksInABlueprintOfAnotherParent)
{
	const FEveryNode Every = FEveryNode::Make();
	for (const TCHAR* const Parent : {TEXT("/Script/Engine.Character"), TEXT("/Script/CoreUObject.Object")})
	{
		const FBlueprintBuilder Other(Parent);
		FWarnings Warnings;
		for (const FNodeDifference& Difference : PasteInto(Every, Other, Warnings))
		{
			// A member of its own that it does not have is looked for in the class that it is.
			EXPECT_EQ(Difference.What + " " + Difference.Pin, "type in \"self\"")
				<< ToStd(FString(Parent)) << " " << Difference.ToString();
		}
		EXPECT_FALSE(Warnings.Lines.empty()) << "there is no root component";
		EXPECT_TRUE(Other.Save());
	}
}

TEST(Clipboard, AGraphOfEveryKindOfNodeGoesIntoItsOwnBlueprintAgain)
{
	FBlueprintBuilder Blueprint;
	const FEveryNode Every(Blueprint);
	FWarnings Warnings;
	for (const FNodeDifference& Difference : PasteInto(Every, Blueprint, Warnings))
	{
		ADD_FAILURE() << Difference.ToString();
	}
	EXPECT_TRUE(Blueprint.Save());
	EXPECT_NE(Blueprint.Reload(), nullptr);
}
