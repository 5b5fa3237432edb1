#pragma once

#include "CoreMinimal.h"

/**
 * Boxes in a tree of bounding boxes, so that asking whether any of them is in the way does not walk them all. The
 * answers are those of FormatterArithmetic::OverlapsAny: bounds are the boxes' own numbers and are compared in the same
 * way, so no box that the plain scan would find is ever passed over.
 */
class FObstacleIndex
{
public:
	FObstacleIndex() = default;
	explicit FObstacleIndex(TArray<FBox2D> InBoxes);

	bool OverlapsAny(const FVector2D& Position, const FVector2D& Size) const;

private:
	/** A leaf when Right is INDEX_NONE; otherwise its left child stands right behind it. */
	struct FBranch
	{
		FBox2D Bounds;
		int32 FirstBox = 0;
		int32 NumBoxes = 0;
		int32 Right = INDEX_NONE;
	};

	int32 Grow(int32 FirstBox, int32 NumBoxes);
	bool OverlapsBelow(int32 Branch, const FVector2D& Position, const FVector2D& Size) const;

	TArray<FBox2D> Boxes;
	TArray<FBranch> Branches;
};

/** The lines that coordinates join, sorted. The answers are those of FormatterArithmetic::AlignToNearest. */
class FAlignmentLines
{
public:
	FAlignmentLines() = default;
	FAlignmentLines(const TArray<float>& InLines, float InTolerance);

	float AlignToNearest(float Value) const;

private:
	struct FLine
	{
		float Coordinate;
		/** Where it last stood in the list: it decides between equally near lines. */
		int32 Index;
	};

	/** By coordinate, each once. */
	TArray<FLine> Lines;
	float Tolerance = 0.0f;
};
