#pragma once

#include "Containers/UnrealString.h"
#include "Math/UnrealMathUtility.h"

struct FIntPoint;

struct FVector2D
{
	double X = 0.0;
	double Y = 0.0;

	constexpr FVector2D() = default;
	constexpr FVector2D(double InX, double InY)
		: X(InX)
		, Y(InY)
	{
	}
	explicit constexpr FVector2D(double Value)
		: X(Value)
		, Y(Value)
	{
	}
	explicit constexpr FVector2D(EForceInit) {}

	double Size() const { return std::sqrt(SizeSquared()); }
	constexpr double SizeSquared() const { return X * X + Y * Y; }
	constexpr bool IsZero() const { return X == 0.0 && Y == 0.0; }
	bool Equals(const FVector2D& Other, double Tolerance = UE_KINDA_SMALL_NUMBER) const
	{
		return FMath::Abs(X - Other.X) <= Tolerance && FMath::Abs(Y - Other.Y) <= Tolerance;
	}
	static double Distance(const FVector2D& A, const FVector2D& B) { return (A - B).Size(); }

	constexpr FVector2D operator-() const { return {-X, -Y}; }
	friend constexpr FVector2D operator+(const FVector2D& A, const FVector2D& B) { return {A.X + B.X, A.Y + B.Y}; }
	friend constexpr FVector2D operator-(const FVector2D& A, const FVector2D& B) { return {A.X - B.X, A.Y - B.Y}; }
	friend constexpr FVector2D operator*(const FVector2D& A, const FVector2D& B) { return {A.X * B.X, A.Y * B.Y}; }
	friend constexpr FVector2D operator*(const FVector2D& A, double Scale) { return {A.X * Scale, A.Y * Scale}; }
	friend constexpr FVector2D operator*(double Scale, const FVector2D& A) { return A * Scale; }
	friend constexpr FVector2D operator/(const FVector2D& A, double Scale) { return {A.X / Scale, A.Y / Scale}; }
	FVector2D& operator+=(const FVector2D& Other) { return *this = *this + Other; }
	FVector2D& operator-=(const FVector2D& Other) { return *this = *this - Other; }
	FVector2D& operator*=(double Scale) { return *this = *this * Scale; }
	friend constexpr bool operator==(const FVector2D& A, const FVector2D& B) { return A.X == B.X && A.Y == B.Y; }
};

struct FVector2f
{
	float X = 0.0f;
	float Y = 0.0f;

	constexpr FVector2f() = default;
	constexpr FVector2f(float InX, float InY)
		: X(InX)
		, Y(InY)
	{
	}
	explicit constexpr FVector2f(const FVector2D& Other)
		: X(static_cast<float>(Other.X))
		, Y(static_cast<float>(Other.Y))
	{
	}
	explicit constexpr operator FVector2D() const { return {static_cast<double>(X), static_cast<double>(Y)}; }
	friend constexpr bool operator==(const FVector2f& A, const FVector2f& B) { return A.X == B.X && A.Y == B.Y; }
};
using FDeprecateSlateVector2D = FVector2f;

/** A rectangle of two corners; meaningless until a point was added. */
struct FBox2D
{
	FVector2D Min;
	FVector2D Max;
	bool bIsValid = false;

	constexpr FBox2D() = default;
	explicit constexpr FBox2D(EForceInit) {}
	constexpr FBox2D(const FVector2D& InMin, const FVector2D& InMax)
		: Min(InMin)
		, Max(InMax)
		, bIsValid(true)
	{
	}
	/** Touching is intersecting. */
	bool Intersect(const FBox2D& Other) const
	{
		return Min.X <= Other.Max.X && Other.Min.X <= Max.X && Min.Y <= Other.Max.Y && Other.Min.Y <= Max.Y;
	}
	bool IsInside(const FVector2D& Point) const
	{
		return Point.X > Min.X && Point.X < Max.X && Point.Y > Min.Y && Point.Y < Max.Y;
	}
	friend bool operator==(const FBox2D& A, const FBox2D& B) { return A.Min == B.Min && A.Max == B.Max; }
};
