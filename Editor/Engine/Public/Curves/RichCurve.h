#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

enum ERichCurveInterpMode : uint8
{
	RCIM_Linear,
	RCIM_Constant,
	RCIM_Cubic,
	RCIM_None,
};
enum ERichCurveTangentMode : uint8
{
	RCTM_Auto,
	RCTM_User,
	RCTM_Break,
	RCTM_None,
	RCTM_SmartAuto,
};
enum ERichCurveTangentWeightMode : uint8
{
	RCTWM_WeightedNone,
	RCTWM_WeightedArrive,
	RCTWM_WeightedLeave,
	RCTWM_WeightedBoth,
};
template <>
UEnum* StaticEnum<ERichCurveInterpMode>();
template <>
UEnum* StaticEnum<ERichCurveTangentMode>();
template <>
UEnum* StaticEnum<ERichCurveTangentWeightMode>();

struct FRichCurveKey
{
	EDITOR_STRUCT(FRichCurveKey)

	FRichCurveKey() = default;
	FRichCurveKey(float InTime, float InValue)
		: Time(InTime)
		, Value(InValue)
	{
	}
	bool operator==(const FRichCurveKey& Other) const = default;

	ERichCurveInterpMode InterpMode = RCIM_Linear;
	ERichCurveTangentMode TangentMode = RCTM_Auto;
	ERichCurveTangentWeightMode TangentWeightMode = RCTWM_WeightedNone;
	float Time = 0.0f;
	float Value = 0.0f;
	float ArriveTangent = 0.0f;
	float ArriveTangentWeight = 0.0f;
	float LeaveTangent = 0.0f;
	float LeaveTangentWeight = 0.0f;
};

/** Position of a key in its curve. */
struct FKeyHandle
{
	int32 Index = INDEX_NONE;
};

/** Keys in order of time. */
struct FRichCurve
{
	EDITOR_STRUCT(FRichCurve)

	/** Behind keys of the same time. bUnwindRotation means nothing here. */
	FKeyHandle AddKey(float InTime, float InValue, bool bUnwindRotation = false);
	int32 GetNumKeys() const { return Keys.Num(); }
	bool IsEmpty() const { return Keys.IsEmpty(); }
	void Reset() { Keys.Empty(); }
	const TArray<FRichCurveKey>& GetConstRefOfKeys() const { return Keys; }
	TArray<FRichCurveKey> GetCopyOfKeys() const { return Keys; }
	float Eval(float InTime, float InDefaultValue = 0.0f) const;

	TArray<FRichCurveKey> Keys;
};
