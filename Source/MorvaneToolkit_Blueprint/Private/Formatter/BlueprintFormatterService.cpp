#include "BlueprintFormatterService.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Formatter/FormatterArithmetic.h"
#include "Formatter/FormatterContext.h"

// The driver: the table of entries, what may move, what stands in the way, and the one write at the end.

void FBlueprintFormatterService::FormatGraph(UEdGraph* Graph, const TArray<UEdGraphNode*>& AllowedNodes)
{
	if (!Graph)
	{
		return;
	}
	TArray<FFormatterNodeEntry> Entries = CollectEntries(*Graph);
	if (Entries.IsEmpty())
	{
		return;
	}
	for (FFormatterNodeEntry& Entry : Entries)
	{
		Entry.Size = EstimateNodeSize(Entry.Node);
	}

	FFormatterContext Context;
	if (!PrepareContext(*Graph, AllowedNodes, Entries, FormatterNumbers::GridSize, FormatterNumbers::AlignTolerance,
			FormatterNumbers::NodePadding, FormatterNumbers::CommentPadding, Context))
	{
		return;
	}
	RunPlacementPhases(Entries, Context);
	ApplyPositions(*Graph, Entries, Context);
	Graph->NotifyGraphChanged();
}

TSet<UEdGraphNode*> FBlueprintFormatterService::CollectNeighbors(
	const TArray<UEdGraphNode*>& Nodes, const TSet<UEdGraphNode*>& Excluded)
{
	TSet<UEdGraphNode*> Neighbors;
	for (const UEdGraphNode* const Node : Nodes)
	{
		if (!Node)
		{
			continue;
		}
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			if (!Pin)
			{
				continue;
			}
			for (const UEdGraphPin* const Linked : Pin->LinkedTo)
			{
				UEdGraphNode* const Owner = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
				if (Owner && !Excluded.Contains(Owner))
				{
					Neighbors.Add(Owner);
				}
			}
		}
	}
	return Neighbors;
}

TArray<FFormatterNodeEntry> FBlueprintFormatterService::CollectEntries(const UEdGraph& Graph)
{
	TArray<FFormatterNodeEntry> Entries;
	Entries.Reserve(Graph.Nodes.Num());
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (Node)
		{
			FFormatterNodeEntry& Entry = Entries.AddDefaulted_GetRef();
			Entry.Node = Node;
			Entry.Size = FVector2D(FormatterNumbers::DefaultWidth, FormatterNumbers::DefaultHeight);
			Entry.Position = FVector2D(0.0, 0.0);
		}
	}
	return Entries;
}

FVector2D FBlueprintFormatterService::EstimateNodeSize(UEdGraphNode* Node)
{
	const float Estimate = UEdGraphSchema_K2::EstimateNodeHeight(Node);
	const double Height = Estimate > 0.0f ? Estimate : FormatterNumbers::DefaultHeight;
	const bool bWide = Node->Pins.Num() >= FormatterNumbers::WidePinCount;
	return FVector2D(bWide ? FormatterNumbers::WideWidth : FormatterNumbers::DefaultWidth, Height);
}

bool FBlueprintFormatterService::PrepareContext(const UEdGraph& Graph, const TArray<UEdGraphNode*>& AllowedNodes,
	TArray<FFormatterNodeEntry>& Entries, float GridSize, float AlignTolerance, float NodePadding, float CommentPadding,
	FFormatterContext& OutContext)
{
	OutContext.GridSize = GridSize;
	OutContext.AlignTolerance = AlignTolerance;
	for (UEdGraphNode* const Node : AllowedNodes)
	{
		if (Node)
		{
			OutContext.AllowedNodes.Add(Node);
		}
	}
	if (OutContext.AllowedNodes.IsEmpty())
	{
		return false;
	}

	OutContext.EntryByNode.Reserve(Entries.Num());
	for (FFormatterNodeEntry& Entry : Entries)
	{
		Entry.Position = FVector2D(Entry.Node->NodePosX, Entry.Node->NodePosY);
		OutContext.EntryByNode.Add(Entry.Node, &Entry);
	}
	BuildNodeObstacles(Entries, NodePadding, OutContext);
	BuildCommentObstacles(Graph, CommentPadding, OutContext);

	// Whether a box came from a node or a comment makes no difference to those who ask, so one index holds both.
	TArray<FBox2D> AllObstacles = OutContext.NodeObstacles;
	AllObstacles.Append(OutContext.CommentObstacles);
	OutContext.Obstacles = FObstacleIndex(MoveTemp(AllObstacles));
	OutContext.LinesX = FAlignmentLines(OutContext.AnchorXs, AlignTolerance);
	OutContext.LinesY = FAlignmentLines(OutContext.AnchorYs, AlignTolerance);
	return true;
}

void FBlueprintFormatterService::BuildNodeObstacles(
	TArray<FFormatterNodeEntry>& Entries, float Padding, FFormatterContext& Context)
{
	const FVector2D Margin(Padding, Padding);
	for (FFormatterNodeEntry& Entry : Entries)
	{
		if (!Context.IsAllowed(Entry.Node))
		{
			Entry.bPlaced = true;
			Context.AnchorXs.Add(static_cast<float>(Entry.Position.X));
			Context.AnchorYs.Add(static_cast<float>(Entry.Position.Y));
			Context.NodeObstacles.Add(FBox2D(Entry.Position - Margin, Entry.Position + Entry.Size + Margin));
		}
	}
}

void FBlueprintFormatterService::BuildCommentObstacles(const UEdGraph& Graph, float Padding, FFormatterContext& Context)
{
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		const UEdGraphNode_Comment* const Comment = Cast<UEdGraphNode_Comment>(Node);
		if (!Comment)
		{
			continue;
		}
		// An allowed comment counts as well: it moves, and yet its old place is kept free.
		const int64 Right = static_cast<int64>(Comment->NodePosX) + Comment->NodeWidth;
		const int64 Bottom = static_cast<int64>(Comment->NodePosY) + Comment->NodeHeight;
		const float MinX = static_cast<float>(Comment->NodePosX) - Padding;
		const float MinY = static_cast<float>(Comment->NodePosY) - Padding;
		const float MaxX = static_cast<float>(Right) + Padding;
		const float MaxY = static_cast<float>(Bottom) + Padding;
		Context.CommentObstacles.Add(FBox2D(FVector2D(MinX, MinY), FVector2D(MaxX, MaxY)));
	}
}

void FBlueprintFormatterService::RunPlacementPhases(TArray<FFormatterNodeEntry>& Entries, FFormatterContext& Context)
{
	TSet<UEdGraphNode*> Placed;
	float Cursor = 0.0f;
	for (UEdGraphNode* const Root : FindChainRoots(Entries, Context))
	{
		if (!Placed.Contains(Root))
		{
			const FVector2D Seed = FindAnchorSeed(*Root, Context).Get(FVector2D(0.0, Cursor));
			const float Bottom = PlaceExecChain(
				Root, static_cast<float>(Seed.X), static_cast<float>(Seed.Y), Placed, Context);
			// Replaced on purpose: an anchored chain high up pulls the next one back up, below itself.
			// Held by FormatterChains.AnAnchoredChainPullsTheCursorBackUp.
			Cursor = static_cast<float>(Bottom + FormatterNumbers::RowGap);
		}
	}
	PlaceOrphans(Entries, Placed, ComputeBottom(Entries), Context);
}

void FBlueprintFormatterService::ApplyPositions(
	UEdGraph& Graph, const TArray<FFormatterNodeEntry>& Entries, const FFormatterContext& Context)
{
	Graph.Modify();
	for (const FFormatterNodeEntry& Entry : Entries)
	{
		if (Entry.bPlaced && Context.IsAllowed(Entry.Node))
		{
			Entry.Node->Modify();
			Entry.Node->NodePosX = FormatterArithmetic::TruncateToCanvas(Entry.Position.X);
			Entry.Node->NodePosY = FormatterArithmetic::TruncateToCanvas(Entry.Position.Y);
		}
	}
}
