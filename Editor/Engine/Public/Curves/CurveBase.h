#pragma once

#include "CoreMinimal.h"
#include "Curves/RichCurve.h"
#include "UObject/Object.h"

class UCurveBase : public UObject
{
	EDITOR_CLASS(UCurveBase, UObject)
};
