#pragma once

#include "CoreMinimal.h"

class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;
struct FFormatterContext;
struct FFormatterNodeEntry;

/**
 * Gives nodes their places on the canvas: exec chains run left to right, what feeds a node with data stands to its
 * left, the rest is stacked below.
 *
 * Only the nodes it is given move; all others are fixed, and the moved ones join their lines and stay clear of them. It
 * never changes a link, never reports, and never fails: what it cannot place well it places anyway. Nothing is kept
 * between calls.
 */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintFormatterService
{
public:
	/** Lays out the allowed nodes of the graph. Nulls are skipped; with no live allowed node nothing is touched or
	 * notified. */
	static void FormatGraph(UEdGraph* Graph, const TArray<UEdGraphNode*>& AllowedNodes);

	/**
	 * The owners of all pins linked to the nodes, one hop away, over exec and data pins alike. A given node that is
	 * linked to another given node is an answer too, unless it is excluded.
	 */
	static TSet<UEdGraphNode*> CollectNeighbors(
		const TArray<UEdGraphNode*>& Nodes, const TSet<UEdGraphNode*>& Excluded);

	/** 32-bit height as the schema estimates it, and one of two widths by the number of pins. Stored sizes play no
	 * part. */
	static FVector2D EstimateNodeSize(UEdGraphNode* Node);

	static bool IsExecPin(const UEdGraphPin* Pin);
	static TArray<UEdGraphPin*> GetExecInputPins(const UEdGraphNode* Node);
	static TArray<UEdGraphPin*> GetExecOutputPins(const UEdGraphNode* Node);
	/** False for null, too. */
	static bool HasNoExecPins(const UEdGraphNode* Node);

private:
	static TArray<FFormatterNodeEntry> CollectEntries(const UEdGraph& Graph);
	static bool PrepareContext(const UEdGraph& Graph, const TArray<UEdGraphNode*>& AllowedNodes,
		TArray<FFormatterNodeEntry>& Entries, float GridSize, float AlignTolerance, float NodePadding,
		float CommentPadding, FFormatterContext& OutContext);
	static void BuildNodeObstacles(TArray<FFormatterNodeEntry>& Entries, float Padding, FFormatterContext& Context);
	static void BuildCommentObstacles(const UEdGraph& Graph, float Padding, FFormatterContext& Context);
	static void RunPlacementPhases(TArray<FFormatterNodeEntry>& Entries, FFormatterContext& Context);
	static void ApplyPositions(
		UEdGraph& Graph, const TArray<FFormatterNodeEntry>& Entries, const FFormatterContext& Context);

	static TArray<UEdGraphNode*> FindChainRoots(
		const TArray<FFormatterNodeEntry>& Entries, const FFormatterContext& Context);
	static TOptional<FVector2D> FindAnchorSeed(const UEdGraphNode& Root, const FFormatterContext& Context);
	static float PlaceExecChain(
		UEdGraphNode* Root, float X, float Y, TSet<UEdGraphNode*>& Placed, FFormatterContext& Context);
	static float PlaceDataInputs(UEdGraphNode* Node, const FVector2D& Position, TSet<UEdGraphNode*>& Placed,
		FFormatterContext& Context, int32 Depth);
	static float ComputeBottom(const TArray<FFormatterNodeEntry>& Entries);
	static void PlaceOrphans(
		TArray<FFormatterNodeEntry>& Entries, TSet<UEdGraphNode*>& Placed, float Bottom, FFormatterContext& Context);
	static FVector2D ResolvePlacement(
		const FVector2D& Desired, const FVector2D& Size, const FFormatterContext& Context);
};
