#include "Formatter/FormatterArithmetic.h"

#include <cmath>

namespace FormatterArithmetic
{
FVector2D SnapToGrid(const FVector2D& Position, float GridSize)
{
	if (!(GridSize > 0.0f))
	{
		return Position;
	}
	const double Grid = GridSize;
	const auto Snap = [Grid](double Value) { return std::floor((Value + Grid / 2.0) / Grid) * Grid; };
	return FVector2D(Snap(Position.X), Snap(Position.Y));
}

float AlignToNearest(float Value, const TArray<float>& Lines, float Tolerance)
{
	float Best = Value;
	float BestDistance = Tolerance;
	for (const float Line : Lines)
	{
		const float Distance = std::fabs(Value - Line);
		if (Distance <= BestDistance)
		{
			Best = Line;
			BestDistance = Distance;
		}
	}
	return Best;
}

bool Overlaps(const FVector2D& Position, const FVector2D& Size, const FBox2D& Box)
{
	return Position.X + Size.X >= Box.Min.X && Position.X <= Box.Max.X && Position.Y + Size.Y >= Box.Min.Y
		&& Position.Y <= Box.Max.Y;
}

bool OverlapsAny(const FVector2D& Position, const FVector2D& Size, const TArray<FBox2D>& Boxes)
{
	for (const FBox2D& Box : Boxes)
	{
		if (Overlaps(Position, Size, Box))
		{
			return true;
		}
	}
	return false;
}

int32 TruncateToCanvas(double Coordinate)
{
	const double Limited = FMath::Clamp(Coordinate, static_cast<double>(MIN_int32), static_cast<double>(MAX_int32));
	return static_cast<int32>(Limited);
}
} // namespace FormatterArithmetic
