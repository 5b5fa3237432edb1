#pragma once

#include "Curves/CurveBase.h"

class UCurveFloat : public UCurveBase
{
	EDITOR_CLASS(UCurveFloat, UCurveBase)

public:
	FRichCurve FloatCurve;
	bool bIsEventCurve = false;
};
