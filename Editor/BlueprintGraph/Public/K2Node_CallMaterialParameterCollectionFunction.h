#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** A call of a function of the material library. */
class UK2Node_CallMaterialParameterCollectionFunction : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_CallMaterialParameterCollectionFunction, UK2Node_CallFunction)
};
