#pragma once

#include "CoreMinimal.h"

/** A formula as a tree. */
struct FMathExpression
{
	enum class EKind : uint8
	{
		Integer,
		Real,
		Boolean,
		Variable,
		/** Text is the operator's sign. */
		Unary,
		Binary,
		/** Text is the function's name. */
		Call,
	};

	EKind Kind = EKind::Integer;
	FString Text;
	TArray<TSharedPtr<FMathExpression>> Operands;
};

/**
 * Reads formulas: numbers, true and false, variables, calls "name(a, b)", brackets, unary - + ! ~ and, from loose to
 * tight, || && | ^ & == != < <= > >= << >> + - * / %.
 */
namespace MathExpressionParser
{
/** Null with a sentence in OutError that names the place. */
TSharedPtr<FMathExpression> Parse(const FString& Formula, FString& OutError);
/** Variables in the order in which they first appear. */
void CollectVariables(const FMathExpression& Expression, TArray<FString>& OutNames);
} // namespace MathExpressionParser
