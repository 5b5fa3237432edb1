#pragma once

#include "Curves/CurveBase.h"

class UCurveVector : public UCurveBase
{
	EDITOR_CLASS(UCurveVector, UCurveBase)

public:
	UCurveVector() { FloatCurves.SetNum(3); }

	TArray<FRichCurve> FloatCurves;
};
