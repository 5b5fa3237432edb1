#pragma once

#include "RequestReader.h"

/**
 * The forms of code that requests come in. Each answers whether the text is of that form; what it says is then in the
 * readings, which may be none.
 */
namespace RequestForms
{
/** Loops, conditions, switches, returns, comments and declared functions. */
bool ReadStatement(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings);
/** "Cast<T>(x)", "(T*)x", "x as T", "cast x to T". */
bool ReadCast(const FString& Text, TArray<FRequestReading>& OutReadings);
/** Operators with their operands, and assignments. */
bool ReadExpression(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings);
/** "A.B(x)", "A::B", "new A(x)", "x[0]". */
bool ReadCall(const FString& Text, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings);
} // namespace RequestForms
