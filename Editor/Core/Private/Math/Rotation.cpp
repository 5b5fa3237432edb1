#include "Containers/Array.h"
#include "Math/Transform.h"
#include "Misc/Parse.h"

#include <cwchar>

namespace Rotations
{
static bool ReadThree(const FString& Text, double& OutFirst, double& OutSecond, double& OutThird)
{
	TCHAR* End = nullptr;
	const TCHAR* Cursor = *Text;
	for (double* const Out : {&OutFirst, &OutSecond, &OutThird})
	{
		*Out = std::wcstod(Cursor, &End);
		if (End == Cursor || (Out != &OutThird && *End != TEXT(',')))
		{
			return false;
		}
		Cursor = End + 1;
	}
	return *End == 0;
}
}

FString FRotator::ToString() const
{
	return FString::Printf(TEXT("P=%f Y=%f R=%f"), Pitch, Yaw, Roll);
}

FQuat FRotator::Quaternion() const
{
	const double HalfPitch = FMath::DegreesToRadians(FMath::Fmod(Pitch, 360.0)) * 0.5;
	const double HalfYaw = FMath::DegreesToRadians(FMath::Fmod(Yaw, 360.0)) * 0.5;
	const double HalfRoll = FMath::DegreesToRadians(FMath::Fmod(Roll, 360.0)) * 0.5;
	const double SP = std::sin(HalfPitch), CP = std::cos(HalfPitch);
	const double SY = std::sin(HalfYaw), CY = std::cos(HalfYaw);
	const double SR = std::sin(HalfRoll), CR = std::cos(HalfRoll);
	return FQuat(CR * SP * SY - SR * CP * CY, -CR * SP * CY - SR * CP * SY, CR * CP * SY - SR * SP * CY,
		CR * CP * CY + SR * SP * SY);
}

FVector FRotator::RotateVector(const FVector& Vector) const
{
	return Quaternion().RotateVector(Vector);
}

FVector FRotator::Vector() const
{
	return RotateVector(FVector(1.0, 0.0, 0.0));
}

double FRotator::NormalizeAxis(double Angle)
{
	Angle = FMath::Fmod(Angle, 360.0);
	if (Angle < 0.0)
	{
		Angle += 360.0;
	}
	return Angle > 180.0 ? Angle - 360.0 : Angle;
}

bool FRotator::Equals(const FRotator& Other, double Tolerance) const
{
	return FMath::Abs(NormalizeAxis(Pitch - Other.Pitch)) <= Tolerance
		&& FMath::Abs(NormalizeAxis(Yaw - Other.Yaw)) <= Tolerance
		&& FMath::Abs(NormalizeAxis(Roll - Other.Roll)) <= Tolerance;
}

FRotator FQuat::Rotator() const
{
	const double SingularityTest = Z * X - W * Y;
	const double Yaw = FMath::RadiansToDegrees(std::atan2(2.0 * (W * Z + X * Y), 1.0 - 2.0 * (Y * Y + Z * Z)));
	// Straight up or down yaw and roll turn about the same axis; all of it is given to yaw and roll as a pair.
	constexpr double Threshold = 0.4999995;
	const double HalfTurn = FMath::RadiansToDegrees(2.0 * std::atan2(X, W));
	if (SingularityTest < -Threshold)
	{
		return FRotator(-90.0, Yaw, FRotator::NormalizeAxis(-Yaw - HalfTurn));
	}
	if (SingularityTest > Threshold)
	{
		return FRotator(90.0, Yaw, FRotator::NormalizeAxis(Yaw - HalfTurn));
	}
	return FRotator(FMath::RadiansToDegrees(std::asin(2.0 * SingularityTest)), Yaw,
		FMath::RadiansToDegrees(std::atan2(-2.0 * (W * X + Y * Z), 1.0 - 2.0 * (X * X + Y * Y))));
}

FVector FQuat::RotateVector(const FVector& Vector) const
{
	const FVector Axis(X, Y, Z);
	const FVector Twice = FVector::CrossProduct(Axis, Vector) * 2.0;
	return Vector + Twice * W + FVector::CrossProduct(Axis, Twice);
}

bool FQuat::Equals(const FQuat& Other, double Tolerance) const
{
	const auto IsNear = [&](double Sign)
	{
		return FMath::Abs(X - Sign * Other.X) <= Tolerance && FMath::Abs(Y - Sign * Other.Y) <= Tolerance
			&& FMath::Abs(Z - Sign * Other.Z) <= Tolerance && FMath::Abs(W - Sign * Other.W) <= Tolerance;
	};
	return IsNear(1.0) || IsNear(-1.0);
}

FQuat operator*(const FQuat& A, const FQuat& B)
{
	return FQuat(A.W * B.X + A.X * B.W + A.Y * B.Z - A.Z * B.Y, A.W * B.Y - A.X * B.Z + A.Y * B.W + A.Z * B.X,
		A.W * B.Z + A.X * B.Y - A.Y * B.X + A.Z * B.W, A.W * B.W - A.X * B.X - A.Y * B.Y - A.Z * B.Z);
}

FString FTransform::ToString() const
{
	const FRotator Turn = Rotator();
	return FString::Printf(TEXT("%f,%f,%f|%f,%f,%f|%f,%f,%f"), Translation.X, Translation.Y, Translation.Z, Turn.Pitch,
		Turn.Yaw, Turn.Roll, Scale3D.X, Scale3D.Y, Scale3D.Z);
}

bool FTransform::InitFromString(const FString& Text)
{
	TArray<FString> Parts;
	FVector NewTranslation;
	FVector NewScale;
	FRotator Turn;
	if (Text.ParseIntoArray(Parts, TEXT("|")) != 3
		|| !Rotations::ReadThree(Parts[0], NewTranslation.X, NewTranslation.Y, NewTranslation.Z)
		|| !Rotations::ReadThree(Parts[1], Turn.Pitch, Turn.Yaw, Turn.Roll)
		|| !Rotations::ReadThree(Parts[2], NewScale.X, NewScale.Y, NewScale.Z))
	{
		return false;
	}
	*this = FTransform(Turn, NewTranslation, NewScale);
	return true;
}
