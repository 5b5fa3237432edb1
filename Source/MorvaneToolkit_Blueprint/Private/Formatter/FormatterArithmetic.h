#pragma once

#include "CoreMinimal.h"

/**
 * The layout's arithmetic, free of graphs. Positions and sizes are 64-bit; a coordinate that is aligned passes through
 * 32 bits, like the lines it is compared with.
 */
namespace FormatterArithmetic
{
/** Halves round up, toward positive infinity. A grid of zero or less leaves the position alone. */
FVector2D SnapToGrid(const FVector2D& Position, float GridSize);

/** The nearest line within the tolerance, the limit included; of equally near lines the last in the list. Else Value.
 */
float AlignToNearest(float Value, const TArray<float>& Lines, float Tolerance);

/** Touching edges overlap. The box's validity flag is not looked at. */
bool Overlaps(const FVector2D& Position, const FVector2D& Size, const FBox2D& Box);
/** The plain scan that FObstacleIndex must always agree with. */
bool OverlapsAny(const FVector2D& Position, const FVector2D& Size, const TArray<FBox2D>& Boxes);

/** Toward zero, and no further than an int32 reaches. */
int32 TruncateToCanvas(double Coordinate);

inline constexpr double CollisionStep = 100.0;
inline constexpr int32 MaxCollisionRounds = 8;

/**
 * Snaps, aligns, then steps down until nothing is in the way. The last step is not tested: a node under nine stacked
 * obstacles stays in one, 800 below its wish. Aligning comes after snapping, so a fixed node's line wins over the grid,
 * and is not repeated on the way down.
 */
template <typename FAlignX, typename FAlignY, typename FIsBlocked>
FVector2D Settle(
	const FVector2D& Desired, float GridSize, const FAlignX& AlignX, const FAlignY& AlignY, const FIsBlocked& IsBlocked)
{
	FVector2D Position = SnapToGrid(Desired, GridSize);
	Position.X = AlignX(static_cast<float>(Position.X));
	Position.Y = AlignY(static_cast<float>(Position.Y));
	for (int32 Round = 0; Round < MaxCollisionRounds && IsBlocked(Position); ++Round)
	{
		Position.Y += CollisionStep;
		Position = SnapToGrid(Position, GridSize);
	}
	return Position;
}
} // namespace FormatterArithmetic
