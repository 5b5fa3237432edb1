#pragma once

#include "Containers/UnrealString.h"
#include "Math/UnrealMathUtility.h"

struct FRotator;

struct FVector
{
	double X = 0.0;
	double Y = 0.0;
	double Z = 0.0;

	constexpr FVector() = default;
	constexpr FVector(double InX, double InY, double InZ)
		: X(InX)
		, Y(InY)
		, Z(InZ)
	{
	}
	explicit constexpr FVector(double Value)
		: X(Value)
		, Y(Value)
		, Z(Value)
	{
	}
	explicit constexpr FVector(EForceInit) {}

	/** "X=1.000 Y=2.000 Z=3.000" */
	FString ToString() const;
	/** Reads ToString's form; false, with the missing parts left alone, when a part is absent. */
	bool InitFromString(const FString& Text);
	constexpr bool IsZero() const { return X == 0.0 && Y == 0.0 && Z == 0.0; }
	bool Equals(const FVector& Other, double Tolerance = UE_KINDA_SMALL_NUMBER) const;
	static constexpr FVector CrossProduct(const FVector& A, const FVector& B)
	{
		return {A.Y * B.Z - A.Z * B.Y, A.Z * B.X - A.X * B.Z, A.X * B.Y - A.Y * B.X};
	}
	double& operator[](int32 Index) { return Index == 0 ? X : Index == 1 ? Y : Z; }
	double operator[](int32 Index) const { return Index == 0 ? X : Index == 1 ? Y : Z; }

	constexpr FVector operator-() const { return {-X, -Y, -Z}; }
	friend constexpr FVector operator+(const FVector& A, const FVector& B) { return {A.X + B.X, A.Y + B.Y, A.Z + B.Z}; }
	friend constexpr FVector operator-(const FVector& A, const FVector& B) { return {A.X - B.X, A.Y - B.Y, A.Z - B.Z}; }
	friend constexpr FVector operator*(const FVector& A, const FVector& B) { return {A.X * B.X, A.Y * B.Y, A.Z * B.Z}; }
	friend constexpr FVector operator*(const FVector& A, double Scale)
	{
		return {A.X * Scale, A.Y * Scale, A.Z * Scale};
	}
	friend constexpr FVector operator*(double Scale, const FVector& A) { return A * Scale; }
	friend constexpr FVector operator/(const FVector& A, double Scale)
	{
		return {A.X / Scale, A.Y / Scale, A.Z / Scale};
	}
	FVector& operator+=(const FVector& Other) { return *this = *this + Other; }
	FVector& operator-=(const FVector& Other) { return *this = *this - Other; }
	FVector& operator*=(double Scale) { return *this = *this * Scale; }
	friend constexpr bool operator==(const FVector& A, const FVector& B)
	{
		return A.X == B.X && A.Y == B.Y && A.Z == B.Z;
	}
};
using FVector3d = FVector;

struct FVector4
{
	double X = 0.0;
	double Y = 0.0;
	double Z = 0.0;
	double W = 0.0;

	constexpr FVector4() = default;
	constexpr FVector4(double InX, double InY, double InZ, double InW = 1.0)
		: X(InX)
		, Y(InY)
		, Z(InZ)
		, W(InW)
	{
	}
	explicit constexpr FVector4(const FVector& Other, double InW = 1.0)
		: FVector4(Other.X, Other.Y, Other.Z, InW)
	{
	}
	friend constexpr bool operator==(const FVector4& A, const FVector4& B)
	{
		return A.X == B.X && A.Y == B.Y && A.Z == B.Z && A.W == B.W;
	}
};
