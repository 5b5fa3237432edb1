#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UFunction;

/** The operators whose operands take the type of what is linked, and the functions that do the work for each pair of types. */
class FTypePromotion
{
public:
	/** "Add" of "Add_IntInt"; None for a function that is no overload of an operator. */
	static FName GetOpNameFromFunction(const UFunction* Function);
	static bool IsFunctionPromotionReady(const UFunction* Function) { return !GetOpNameFromFunction(Function).IsNone(); }
	/** Operators that answer a bool whatever they compare. */
	static bool IsComparisonOpName(FName OpName);
	/** Operators that may take more than two operands. */
	static bool TakesMoreOperands(FName OpName);
	/** The operator's sign, as its node shows it. */
	static FText GetKeywordsAndSign(FName OpName);

	/**
	 * The overload whose operands take the given types in order with the least conversion; null when none does. An open type fits
	 * anything.
	 */
	static const UFunction* FindBestMatchingFunc(FName OpName, TConstArrayView<FEdGraphPinType> Operands);
	/** How far a value must be converted to be the other: 0 for none, -1 for never. */
	static int32 GetPromotionCost(const FEdGraphPinType& From, const FEdGraphPinType& To);
};
