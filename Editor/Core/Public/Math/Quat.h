#pragma once

#include "Math/Rotator.h"

struct FQuat
{
	double X = 0.0;
	double Y = 0.0;
	double Z = 0.0;
	double W = 1.0;

	constexpr FQuat() = default;
	constexpr FQuat(double InX, double InY, double InZ, double InW)
		: X(InX)
		, Y(InY)
		, Z(InZ)
		, W(InW)
	{
	}
	explicit FQuat(const FRotator& Rotator)
		: FQuat(Rotator.Quaternion())
	{
	}

	FRotator Rotator() const;
	FVector RotateVector(const FVector& Vector) const;
	/** A quaternion and its negative are the same turn. */
	bool Equals(const FQuat& Other, double Tolerance = UE_KINDA_SMALL_NUMBER) const;

	/** First B, then A. */
	friend FQuat operator*(const FQuat& A, const FQuat& B);
	friend constexpr bool operator==(const FQuat& A, const FQuat& B)
	{
		return A.X == B.X && A.Y == B.Y && A.Z == B.Z && A.W == B.W;
	}
};
