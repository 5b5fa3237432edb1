#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UCurveBase, "/Script/Engine", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UCurveFloat, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UCurveVector, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UCurveLinearColor, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_STRUCT(FRichCurveKey, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FRichCurve, "/Script/Engine")

template <>
UEnum* StaticEnum<ERichCurveInterpMode>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ERichCurveInterpMode"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Regular,
		{{TEXT("RCIM_Linear"), 0}, {TEXT("RCIM_Constant"), 1}, {TEXT("RCIM_Cubic"), 2}, {TEXT("RCIM_None"), 3}});
	return Enum;
}

template <>
UEnum* StaticEnum<ERichCurveTangentMode>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ERichCurveTangentMode"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Regular,
		{{TEXT("RCTM_Auto"), 0}, {TEXT("RCTM_User"), 1}, {TEXT("RCTM_Break"), 2}, {TEXT("RCTM_None"), 3},
			{TEXT("RCTM_SmartAuto"), 4}});
	return Enum;
}

template <>
UEnum* StaticEnum<ERichCurveTangentWeightMode>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ERichCurveTangentWeightMode"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Regular,
		{{TEXT("RCTWM_WeightedNone"), 0}, {TEXT("RCTWM_WeightedArrive"), 1}, {TEXT("RCTWM_WeightedLeave"), 2},
			{TEXT("RCTWM_WeightedBoth"), 3}});
	return Enum;
}

void FRichCurveKey::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("InterpMode"), &FRichCurveKey::InterpMode);
	Struct.Property(TEXT("TangentMode"), &FRichCurveKey::TangentMode);
	Struct.Property(TEXT("TangentWeightMode"), &FRichCurveKey::TangentWeightMode);
	Struct.Property(TEXT("Time"), &FRichCurveKey::Time);
	Struct.Property(TEXT("Value"), &FRichCurveKey::Value);
	Struct.Property(TEXT("ArriveTangent"), &FRichCurveKey::ArriveTangent);
	Struct.Property(TEXT("ArriveTangentWeight"), &FRichCurveKey::ArriveTangentWeight);
	Struct.Property(TEXT("LeaveTangent"), &FRichCurveKey::LeaveTangent);
	Struct.Property(TEXT("LeaveTangentWeight"), &FRichCurveKey::LeaveTangentWeight);
}

void FRichCurve::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("Keys"), &FRichCurve::Keys);
}

FKeyHandle FRichCurve::AddKey(float InTime, float InValue, bool)
{
	int32 Index = Keys.Num();
	while (Index > 0 && Keys[Index - 1].Time > InTime)
	{
		--Index;
	}
	Keys.Insert(FRichCurveKey(InTime, InValue), Index);
	return FKeyHandle{Index};
}

float FRichCurve::Eval(float InTime, float InDefaultValue) const
{
	if (Keys.IsEmpty())
	{
		return InDefaultValue;
	}
	if (InTime <= Keys[0].Time)
	{
		return Keys[0].Value;
	}
	for (int32 Index = 1; Index < Keys.Num(); ++Index)
	{
		const FRichCurveKey& Left = Keys[Index - 1];
		const FRichCurveKey& Right = Keys[Index];
		if (InTime < Right.Time)
		{
			const float Alpha = (InTime - Left.Time) / (Right.Time - Left.Time);
			return Left.InterpMode == RCIM_Constant ? Left.Value : Left.Value + Alpha * (Right.Value - Left.Value);
		}
	}
	return Keys.Last().Value;
}

void UCurveBase::DescribeClass(FClassDescriber&) {}

void UCurveFloat::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("FloatCurve"), &UCurveFloat::FloatCurve);
	Class.Property(TEXT("bIsEventCurve"), &UCurveFloat::bIsEventCurve);
}

void UCurveVector::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("FloatCurves"), &UCurveVector::FloatCurves);
}

void UCurveLinearColor::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("FloatCurves"), &UCurveLinearColor::FloatCurves);
}
