#pragma once

#include "Containers/UnrealString.h"

enum class EGuidFormats : uint8
{
	Digits,
	DigitsLower,
	DigitsWithHyphens,
	DigitsWithHyphensLower,
	DigitsWithHyphensInBraces,
	DigitsWithHyphensInParentheses,
	HexValuesInBraces,
	UniqueObjectGuid
};

struct FGuid
{
	uint32 A = 0;
	uint32 B = 0;
	uint32 C = 0;
	uint32 D = 0;

	constexpr FGuid() = default;
	constexpr FGuid(uint32 InA, uint32 InB, uint32 InC, uint32 InD)
		: A(InA)
		, B(InB)
		, C(InC)
		, D(InD)
	{
	}
	/** Invalid when the text is no guid. */
	explicit FGuid(const FString& Text) { Parse(Text, *this); }

	/** A random one, or the next of the sequence that FGuidGenerator was seeded with. */
	static FGuid NewGuid();
	/** Takes every format that ToString writes, any case. OutGuid is left alone when it answers false. */
	static bool Parse(const FString& Text, FGuid& OutGuid);
	static bool ParseExact(const FString& Text, EGuidFormats Format, FGuid& OutGuid);

	FString ToString(EGuidFormats Format = EGuidFormats::Digits) const;
	constexpr bool IsValid() const { return (A | B | C | D) != 0; }
	void Invalidate() { *this = FGuid(); }
	uint32& operator[](int32 Index) { return Index == 0 ? A : Index == 1 ? B : Index == 2 ? C : D; }
	uint32 operator[](int32 Index) const { return const_cast<FGuid&>(*this)[Index]; }

	friend constexpr bool operator==(const FGuid& Left, const FGuid& Right)
	{
		return Left.A == Right.A && Left.B == Right.B && Left.C == Right.C && Left.D == Right.D;
	}
	friend constexpr bool operator<(const FGuid& Left, const FGuid& Right)
	{
		return Left.A != Right.A ? Left.A < Right.A
			: Left.B != Right.B	 ? Left.B < Right.B
			: Left.C != Right.C	 ? Left.C < Right.C
								 : Left.D < Right.D;
	}
	friend uint32 GetTypeHash(const FGuid& Guid)
	{
		return HashCombine(HashCombine(Guid.A, Guid.B), HashCombine(Guid.C, Guid.D));
	}
};

inline FString LexToString(const FGuid& Guid)
{
	return Guid.ToString();
}
