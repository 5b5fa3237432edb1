#pragma once

#include "Math/Quat.h"
#include "Math/Vector.h"

/** Scale, then rotation, then translation. */
struct FTransform
{
	constexpr FTransform() = default;
	constexpr FTransform(const FQuat& InRotation, const FVector& InTranslation, const FVector& InScale = FVector(1.0))
		: Rotation(InRotation)
		, Translation(InTranslation)
		, Scale3D(InScale)
	{
	}
	FTransform(const FRotator& InRotation, const FVector& InTranslation, const FVector& InScale = FVector(1.0))
		: FTransform(InRotation.Quaternion(), InTranslation, InScale)
	{
	}
	explicit constexpr FTransform(const FVector& InTranslation)
		: Translation(InTranslation)
	{
	}

	/** "tx,ty,tz|pitch,yaw,roll|sx,sy,sz", six digits after each point. */
	FString ToString() const;
	bool InitFromString(const FString& Text);
	FRotator Rotator() const { return Rotation.Rotator(); }
	void SetLocation(const FVector& Value) { Translation = Value; }
	bool Equals(const FTransform& Other, double Tolerance = UE_KINDA_SMALL_NUMBER) const
	{
		return Translation.Equals(Other.Translation, Tolerance) && Rotation.Equals(Other.Rotation, Tolerance)
			&& Scale3D.Equals(Other.Scale3D, Tolerance);
	}
	/** First A, then B. */

	// Public for the property that describes this struct.
	FQuat Rotation;
	FVector Translation;
	FVector Scale3D{1.0, 1.0, 1.0};
};
