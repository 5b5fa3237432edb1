#pragma once

#include "Containers/UnrealString.h"
#include "Math/UnrealMathUtility.h"

struct FLinearColor;

/** Eight bits a channel, sRGB, in the engine's channel order. */
struct FColor
{
	uint8 B = 0;
	uint8 G = 0;
	uint8 R = 0;
	uint8 A = 0;

	constexpr FColor() = default;
	constexpr FColor(uint8 InR, uint8 InG, uint8 InB, uint8 InA = 255)
		: B(InB)
		, G(InG)
		, R(InR)
		, A(InA)
	{
	}
	explicit constexpr FColor(EForceInit) {}

	/** "(R=1,G=2,B=3,A=255)" */
	FString ToString() const;
	/** "RRGGBBAA" */
	FString ToHex() const;
	/** Takes RGB, RGBA, RRGGBB and RRGGBBAA, with or without #; transparent black when it is none of them. */
	static FColor FromHex(const FString& Text);
	constexpr uint32 ToPackedARGB() const
	{
		return (static_cast<uint32>(A) << 24) | (static_cast<uint32>(R) << 16) | (static_cast<uint32>(G) << 8) | B;
	}
	friend constexpr bool operator==(const FColor& Left, const FColor& Right)
	{
		return Left.ToPackedARGB() == Right.ToPackedARGB();
	}
	friend uint32 GetTypeHash(const FColor& Color) { return Color.ToPackedARGB(); }
};

struct FLinearColor
{
	float R = 0.0f;
	float G = 0.0f;
	float B = 0.0f;
	float A = 0.0f;

	constexpr FLinearColor() = default;
	constexpr FLinearColor(float InR, float InG, float InB, float InA = 1.0f)
		: R(InR)
		, G(InG)
		, B(InB)
		, A(InA)
	{
	}
	explicit constexpr FLinearColor(EForceInit) {}
	/** From sRGB. */
	FLinearColor(const FColor& Color);

	/** "(R=1.000000,G=0.500000,B=0.000000,A=1.000000)" */
	FString ToString() const;
	/** A may be absent and is 1 then. */
	bool InitFromString(const FString& Text);
	FColor ToFColor(bool bSRGB) const;
	friend constexpr bool operator==(const FLinearColor& Left, const FLinearColor& Right)
	{
		return Left.R == Right.R && Left.G == Right.G && Left.B == Right.B && Left.A == Right.A;
	}
	friend constexpr FLinearColor operator*(const FLinearColor& Color, float Scale)
	{
		return {Color.R * Scale, Color.G * Scale, Color.B * Scale, Color.A * Scale};
	}
};
