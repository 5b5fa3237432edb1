#pragma once

#include "Containers/UnrealString.h"
#include "Templates/TypeHash.h"

struct FIntPoint
{
	int32 X = 0;
	int32 Y = 0;

	constexpr FIntPoint() = default;
	constexpr FIntPoint(int32 InX, int32 InY)
		: X(InX)
		, Y(InY)
	{
	}
	explicit constexpr FIntPoint(EForceInit) {}
	friend constexpr FIntPoint operator+(const FIntPoint& A, const FIntPoint& B) { return {A.X + B.X, A.Y + B.Y}; }
	friend constexpr FIntPoint operator-(const FIntPoint& A, const FIntPoint& B) { return {A.X - B.X, A.Y - B.Y}; }
	FIntPoint& operator+=(const FIntPoint& Other) { return *this = *this + Other; }
	friend constexpr bool operator==(const FIntPoint& A, const FIntPoint& B) { return A.X == B.X && A.Y == B.Y; }
	friend uint32 GetTypeHash(const FIntPoint& Point)
	{
		return HashCombine(GetTypeHash(Point.X), GetTypeHash(Point.Y));
	}
};
