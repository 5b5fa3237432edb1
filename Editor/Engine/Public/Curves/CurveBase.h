#pragma once

#include "CoreMinimal.h"
#include "Curves/RichCurve.h"
#include "UObject/Object.h"

class UCurveBase : public UObject
{
	EDITOR_CLASS(UCurveBase, UObject)
};

class UCurveFloat : public UCurveBase
{
	EDITOR_CLASS(UCurveFloat, UCurveBase)

public:
	FRichCurve FloatCurve;
	bool bIsEventCurve = false;
};

class UCurveVector : public UCurveBase
{
	EDITOR_CLASS(UCurveVector, UCurveBase)

public:
	UCurveVector() { FloatCurves.SetNum(3); }

	TArray<FRichCurve> FloatCurves;
};

class UCurveLinearColor : public UCurveBase
{
	EDITOR_CLASS(UCurveLinearColor, UCurveBase)

public:
	UCurveLinearColor() { FloatCurves.SetNum(4); }

	TArray<FRichCurve> FloatCurves;
};
