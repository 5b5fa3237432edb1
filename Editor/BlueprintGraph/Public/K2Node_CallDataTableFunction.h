#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** A call of a function of data tables. */
class UK2Node_CallDataTableFunction : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_CallDataTableFunction, UK2Node_CallFunction)
};
