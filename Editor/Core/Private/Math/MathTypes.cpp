#include "Math/Color.h"
#include "Math/IntPoint.h"
#include "Math/IntVector.h"
#include "Math/Transform.h"
#include "Math/Vector2D.h"
#include "Misc/Parse.h"

const FVector FVector::ZeroVector(0.0, 0.0, 0.0);
const FVector FVector::OneVector(1.0, 1.0, 1.0);
const FVector FVector::UpVector(0.0, 0.0, 1.0);
const FVector FVector::ForwardVector(1.0, 0.0, 0.0);
const FVector FVector::RightVector(0.0, 1.0, 0.0);
const FVector2D FVector2D::ZeroVector(0.0, 0.0);
const FVector2D FVector2D::UnitVector(1.0, 1.0);
const FIntPoint FIntPoint::ZeroValue(0, 0);

FString FVector2D::ToString() const
{
	return FString::Printf(TEXT("X=%3.3f Y=%3.3f"), X, Y);
}

bool FVector2D::InitFromString(const FString& Text)
{
	return FParse::Value(*Text, TEXT("X="), X) && FParse::Value(*Text, TEXT("Y="), Y);
}

FBox2D& FBox2D::operator+=(const FVector2D& Point)
{
	if (!bIsValid)
	{
		return *this = FBox2D(Point, Point);
	}
	Min = FVector2D(FMath::Min(Min.X, Point.X), FMath::Min(Min.Y, Point.Y));
	Max = FVector2D(FMath::Max(Max.X, Point.X), FMath::Max(Max.Y, Point.Y));
	return *this;
}

FBox2D& FBox2D::operator+=(const FBox2D& Other)
{
	if (Other.bIsValid)
	{
		*this += Other.Min;
		*this += Other.Max;
	}
	return *this;
}

FString FVector::ToString() const
{
	return FString::Printf(TEXT("X=%3.3f Y=%3.3f Z=%3.3f"), X, Y, Z);
}

bool FVector::InitFromString(const FString& Text)
{
	return FParse::Value(*Text, TEXT("X="), X) && FParse::Value(*Text, TEXT("Y="), Y)
		&& FParse::Value(*Text, TEXT("Z="), Z);
}

bool FVector::Equals(const FVector& Other, double Tolerance) const
{
	return FMath::Abs(X - Other.X) <= Tolerance && FMath::Abs(Y - Other.Y) <= Tolerance
		&& FMath::Abs(Z - Other.Z) <= Tolerance;
}

FVector FVector::GetSafeNormal(double Tolerance) const
{
	return SizeSquared() < Tolerance ? FVector() : *this / Size();
}

FString FVector4::ToString() const
{
	return FString::Printf(TEXT("X=%3.3f Y=%3.3f Z=%3.3f W=%3.3f"), X, Y, Z, W);
}

bool FVector4::InitFromString(const FString& Text)
{
	W = 1.0;
	const bool bRead = FParse::Value(*Text, TEXT("X="), X) && FParse::Value(*Text, TEXT("Y="), Y)
		&& FParse::Value(*Text, TEXT("Z="), Z);
	FParse::Value(*Text, TEXT("W="), W);
	return bRead;
}

FString FIntPoint::ToString() const
{
	return FString::Printf(TEXT("X=%d Y=%d"), X, Y);
}

bool FIntPoint::InitFromString(const FString& Text)
{
	return FParse::Value(*Text, TEXT("X="), X) && FParse::Value(*Text, TEXT("Y="), Y);
}

FString FIntVector::ToString() const
{
	return FString::Printf(TEXT("X=%d Y=%d Z=%d"), X, Y, Z);
}

bool FIntVector::InitFromString(const FString& Text)
{
	return FParse::Value(*Text, TEXT("X="), X) && FParse::Value(*Text, TEXT("Y="), Y)
		&& FParse::Value(*Text, TEXT("Z="), Z);
}
