#include "Formatter/FormatterIndex.h"

#include "Formatter/FormatterArithmetic.h"

#include <algorithm>
#include <cmath>

namespace FormatterIndex
{
constexpr int32 MaxBoxesPerLeaf = 8;

static FBox2D BoundsOf(const FBox2D* Boxes, int32 Count)
{
	// Each side on its own: a comment of negative size is a box whose Max lies below its Min.
	FBox2D Bounds = Boxes[0];
	for (int32 Index = 1; Index < Count; ++Index)
	{
		Bounds.Min.X = FMath::Min(Bounds.Min.X, Boxes[Index].Min.X);
		Bounds.Min.Y = FMath::Min(Bounds.Min.Y, Boxes[Index].Min.Y);
		Bounds.Max.X = FMath::Max(Bounds.Max.X, Boxes[Index].Max.X);
		Bounds.Max.Y = FMath::Max(Bounds.Max.Y, Boxes[Index].Max.Y);
	}
	return Bounds;
}

/** Halves the boxes by their middle along the wider side of their bounds. */
static void Partition(FBox2D* Boxes, int32 Count, const FBox2D& Bounds)
{
	const bool bAlongX = Bounds.Max.X - Bounds.Min.X > Bounds.Max.Y - Bounds.Min.Y;
	const auto MiddleIsLess = [bAlongX](const FBox2D& Left, const FBox2D& Right)
	{
		return bAlongX ? Left.Min.X + Left.Max.X < Right.Min.X + Right.Max.X
					   : Left.Min.Y + Left.Max.Y < Right.Min.Y + Right.Max.Y;
	};
	std::nth_element(Boxes, Boxes + Count / 2, Boxes + Count, MiddleIsLess);
}
} // namespace FormatterIndex

FObstacleIndex::FObstacleIndex(TArray<FBox2D> InBoxes)
	: Boxes(MoveTemp(InBoxes))
{
	if (!Boxes.IsEmpty())
	{
		Grow(0, Boxes.Num());
	}
}

int32 FObstacleIndex::Grow(int32 FirstBox, int32 NumBoxes)
{
	const int32 Branch = Branches.AddDefaulted();
	const FBox2D Bounds = FormatterIndex::BoundsOf(&Boxes[FirstBox], NumBoxes);
	int32 Right = INDEX_NONE;
	if (NumBoxes > FormatterIndex::MaxBoxesPerLeaf)
	{
		FormatterIndex::Partition(&Boxes[FirstBox], NumBoxes, Bounds);
		const int32 NumLeft = NumBoxes / 2;
		Grow(FirstBox, NumLeft);
		Right = Grow(FirstBox + NumLeft, NumBoxes - NumLeft);
	}
	// Only now: growing the children may have moved the array.
	Branches[Branch] = FBranch{Bounds, FirstBox, NumBoxes, Right};
	return Branch;
}

bool FObstacleIndex::OverlapsAny(const FVector2D& Position, const FVector2D& Size) const
{
	return !Branches.IsEmpty() && OverlapsBelow(0, Position, Size);
}

bool FObstacleIndex::OverlapsBelow(int32 Branch, const FVector2D& Position, const FVector2D& Size) const
{
	const FBranch& Here = Branches[Branch];
	if (!FormatterArithmetic::Overlaps(Position, Size, Here.Bounds))
	{
		return false;
	}
	if (Here.Right != INDEX_NONE)
	{
		return OverlapsBelow(Branch + 1, Position, Size) || OverlapsBelow(Here.Right, Position, Size);
	}
	for (int32 Index = Here.FirstBox; Index < Here.FirstBox + Here.NumBoxes; ++Index)
	{
		if (FormatterArithmetic::Overlaps(Position, Size, Boxes[Index]))
		{
			return true;
		}
	}
	return false;
}

FAlignmentLines::FAlignmentLines(const TArray<float>& InLines, float InTolerance)
	: Tolerance(InTolerance)
{
	TArray<FLine> Sorted;
	Sorted.Reserve(InLines.Num());
	for (int32 Index = 0; Index < InLines.Num(); ++Index)
	{
		Sorted.Add(FLine{InLines[Index], Index});
	}
	Sorted.Sort(
		[](const FLine& Left, const FLine& Right) {
			return Left.Coordinate != Right.Coordinate ? Left.Coordinate < Right.Coordinate : Left.Index < Right.Index;
		});
	for (const FLine& Line : Sorted)
	{
		if (!Lines.IsEmpty() && Lines.Last().Coordinate == Line.Coordinate)
		{
			Lines.Last().Index = Line.Index;
		}
		else
		{
			Lines.Add(Line);
		}
	}
}

float FAlignmentLines::AlignToNearest(float Value) const
{
	// Wider than the tolerance by more than a subtraction can round, so that the window holds every line within it.
	const double Reach = static_cast<double>(Tolerance) + 1.0;
	const FLine* const End = Lines.GetData() + Lines.Num();
	const FLine* const First = std::lower_bound(Lines.GetData(), End, static_cast<double>(Value) - Reach,
		[](const FLine& Line, double Limit) { return Line.Coordinate < Limit; });

	float Best = Value;
	float BestDistance = Tolerance;
	int32 BestIndex = INDEX_NONE;
	for (const FLine* Line = First; Line != End && Line->Coordinate <= static_cast<double>(Value) + Reach; ++Line)
	{
		const float Distance = std::fabs(Value - Line->Coordinate);
		if (Distance < BestDistance || (Distance == BestDistance && Line->Index > BestIndex))
		{
			Best = Line->Coordinate;
			BestDistance = Distance;
			BestIndex = Line->Index;
		}
	}
	return Best;
}
