// Copied and pasted, a node is what it was, whatever its class: the text tells all that its pins follow from.

#include "BlueprintActionDatabase.h"
#include "BlueprintBuilder.h"
#include "BlueprintNodeSpawner.h"
#include "ClipboardText.h"
#include "GraphText.h"
#include "K2Node_Composite.h"
#include "K2Node_Event.h"
#include "K2Node_Timeline.h"

#include <gtest/gtest.h>

namespace ClipboardEveryNodeTests
{
using namespace ClipboardTests;

/** The first actions of each node class, as they cover its shapes, and some of all the functions. */
static TArray<const UBlueprintNodeSpawner*> ChooseActions()
{
	constexpr int32 FirstOfClass = 3;
	constexpr int32 EveryFurther = 151;
	TArray<const UBlueprintNodeSpawner*> Chosen;
	TMap<const UClass*, int32> Count;
	FBlueprintActionDatabase::Get().Update();
	FBlueprintActionDatabase::Get().ForEachAction(
		[&](const FBlueprintAction& Action)
		{
			const int32 Seen = Count.FindOrAdd(Action.NodeClass)++;
			if (Seen < FirstOfClass || Seen % EveryFurther == 0)
			{
				Chosen.Add(Action.Item->GetRawAction());
			}
		});
	return Chosen;
}

/** Events, timelines and collapsed graphs have names that are there once, so a copy has others. */
static bool IsOneOfAKind(const UEdGraphNode& Node)
{
	return Node.IsA<UK2Node_Event>() || Node.IsA<UK2Node_Timeline>() || Node.IsA<UK2Node_Composite>();
}
} // namespace ClipboardEveryNodeTests

using namespace ClipboardEveryNodeTests;

TEST(Clipboard, EveryKindOfNodeIsCopiedAsItIs)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	TSet<const UClass*> Classes;
	int32 NumCompared = 0;
	for (const UBlueprintNodeSpawner* const Spawner : ChooseActions())
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
