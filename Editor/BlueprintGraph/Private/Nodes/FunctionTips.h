#pragma once

#include "CoreMinimal.h"

class UFunction;

/** What tooltips say of functions and events. */
namespace FunctionTips
{
/** The declaration's own text; where it has none, the name for people and what goes in and comes out. */
FString Describe(const UFunction& Function);
/** The same of a function that makes a task, whose result its node keeps to itself. */
FString DescribeFactory(const UFunction& Function, const FString& Name);
/** A line each for what goes in and what comes out, as pins show it. */
FString DescribeParameters(const UFunction& Function);
/** On which side of a network game alone the function runs, as a paragraph; empty when on all. */
FString WhereItRuns(const UFunction& Function);
} // namespace FunctionTips
