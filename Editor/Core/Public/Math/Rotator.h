#pragma once

#include "Math/Vector.h"

struct FQuat;

/** Degrees; pitch about Y, yaw about Z, roll about X. */
struct FRotator
{
	double Pitch = 0.0;
	double Yaw = 0.0;
	double Roll = 0.0;

	constexpr FRotator() = default;
	constexpr FRotator(double InPitch, double InYaw, double InRoll)
		: Pitch(InPitch)
		, Yaw(InYaw)
		, Roll(InRoll)
	{
	}
	explicit constexpr FRotator(EForceInit) {}

	/** "P=0.000000 Y=90.000000 R=0.000000" */
	FString ToString() const;
	FQuat Quaternion() const;
	FVector RotateVector(const FVector& Vector) const;
	FVector Vector() const;
	bool IsZero() const { return Equals(FRotator(), 0.0); }
	/** Whole turns make no difference. */
	bool Equals(const FRotator& Other, double Tolerance = UE_KINDA_SMALL_NUMBER) const;
	/** Into (-180, 180]. */
	static double NormalizeAxis(double Angle);

	constexpr FRotator operator-() const { return {-Pitch, -Yaw, -Roll}; }
	friend constexpr FRotator operator+(const FRotator& A, const FRotator& B)
	{
		return {A.Pitch + B.Pitch, A.Yaw + B.Yaw, A.Roll + B.Roll};
	}
	friend constexpr FRotator operator-(const FRotator& A, const FRotator& B)
	{
		return {A.Pitch - B.Pitch, A.Yaw - B.Yaw, A.Roll - B.Roll};
	}
	friend constexpr bool operator==(const FRotator& A, const FRotator& B)
	{
		return A.Pitch == B.Pitch && A.Yaw == B.Yaw && A.Roll == B.Roll;
	}
};
