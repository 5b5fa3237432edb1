#pragma once

#include "Curves/CurveBase.h"

class UCurveLinearColor : public UCurveBase
{
	EDITOR_CLASS(UCurveLinearColor, UCurveBase)

public:
	UCurveLinearColor() { FloatCurves.SetNum(4); }

	TArray<FRichCurve> FloatCurves;
};
