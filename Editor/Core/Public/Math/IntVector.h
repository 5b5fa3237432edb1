#pragma once

#include "Containers/UnrealString.h"
#include "Templates/TypeHash.h"

struct FIntVector
{
	int32 X = 0;
	int32 Y = 0;
	int32 Z = 0;

	constexpr FIntVector() = default;
	constexpr FIntVector(int32 InX, int32 InY, int32 InZ)
		: X(InX)
		, Y(InY)
		, Z(InZ)
	{
	}
	friend constexpr bool operator==(const FIntVector& A, const FIntVector& B)
	{
		return A.X == B.X && A.Y == B.Y && A.Z == B.Z;
	}
	friend uint32 GetTypeHash(const FIntVector& Point)
	{
		return HashCombine(HashCombine(GetTypeHash(Point.X), GetTypeHash(Point.Y)), GetTypeHash(Point.Z));
	}
};
