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
/** "integer to string": answers whether the words are of that form, whether or not there is such a conversion. */
bool ReadConversion(const TArray<FString>& Words, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings);

// Of plain words, which may say something else as well.

/** What is done to a variable, a component or a dispatcher of the Blueprint. */
void ReadOwnMember(const TArray<FString>& Pieces, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings);
/** Members that are named with their class or with what they are: "set visibility on the text block". */
void ReadMemberOfClass(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings);
/** The same with other verbs, or without one that says nothing. */
void ReadVerb(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings);
/** "E key pressed". */
void ReadKey(const TArray<FString>& Pieces, TArray<FRequestReading>& OutReadings);
} // namespace RequestForms
