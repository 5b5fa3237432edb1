#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UFunction;

/** The functions that formulas call: those of the math library, by operator sign and by name. */
namespace MathExpressionFunctions
{
/** The overload of an operator or a function that takes the types; null with a sentence in OutError. */
const UFunction* FindOperator(const FString& Sign, const TArray<FEdGraphPinType>& Types, FString& OutError);
const UFunction* FindFunction(const FString& Name, const TArray<FEdGraphPinType>& Types, FString& OutError);
/** The inputs of a function, in order. */
TArray<const FProperty*> InputsOf(const UFunction& Function);
} // namespace MathExpressionFunctions
