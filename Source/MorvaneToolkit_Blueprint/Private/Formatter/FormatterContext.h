#pragma once

#include "CoreMinimal.h"
#include "Formatter/FormatterIndex.h"

class UEdGraphNode;

/** One node of the graph during one layout. */
struct FFormatterNodeEntry
{
	/** Never null in the table. */
	UEdGraphNode* Node = nullptr;
	/** Estimated width and height. */
	FVector2D Size;
	/** Where the node stands, then where it will stand. */
	FVector2D Position;
	/** The position is final: the node is fixed, or was placed in this call. Fixed nodes are never in the set of placed
	 * ones. */
	bool bPlaced = false;
};

/** What a layout knows of its graph; made for one call. */
struct FFormatterContext
{
	FFormatterNodeEntry* FindEntry(const UEdGraphNode* Node) const { return EntryByNode.FindRef(Node); }
	bool IsAllowed(UEdGraphNode* Node) const { return AllowedNodes.Contains(Node); }

	TSet<UEdGraphNode*> AllowedNodes;
	/** Into the table of entries, which does not grow any more. */
	TMap<const UEdGraphNode*, FFormatterNodeEntry*> EntryByNode;
	/** Of each fixed node, in entry order. */
	TArray<float> AnchorXs;
	TArray<float> AnchorYs;
	TArray<FBox2D> NodeObstacles;
	/** Of each comment, in graph order. A fixed comment stands in both lists, with two sizes and paddings. */
	TArray<FBox2D> CommentObstacles;
	float GridSize = 20.0f;
	float AlignTolerance = 10.0f;

	/** The lists above, ready to be asked often; made when they are complete. */
	FAlignmentLines LinesX;
	FAlignmentLines LinesY;
	FObstacleIndex Obstacles;
};

/** The fixed numbers of a layout, in graph units. */
namespace FormatterNumbers
{
inline constexpr float GridSize = 20.0f;
inline constexpr float AlignTolerance = 10.0f;
inline constexpr float NodePadding = 100.0f;
inline constexpr float CommentPadding = 30.0f;

inline constexpr double DefaultWidth = 300.0;
inline constexpr double WideWidth = 450.0;
inline constexpr int32 WidePinCount = 7;
inline constexpr double DefaultHeight = 100.0;

/** From a node's right edge to the next exec column. */
inline constexpr double ColumnGap = 200.0;
/** Between exec siblings, between chains, between stacked orphans. */
inline constexpr double RowGap = 200.0;
/**
 * From the consumer's X to its data input's X. Less than any node is wide, so the two share columns: the first level is
 * kept apart by its vertical offset, deeper levels are meant to tuck in.
 */
inline constexpr double DataColumnOffset = -250.0;
inline constexpr double FirstDataRowOffset = -200.0;
inline constexpr double FirstDataRowGap = 100.0;
inline constexpr double DeeperDataRowGap = 20.0;
/** An absolute Y, not the height of the stack of orphans. */
inline constexpr float OrphanColumnLimit = 2000.0f;
} // namespace FormatterNumbers
