#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UFunction;

/** The names of the operators, as the overloads' names start. */
namespace OperatorNames
{
extern const FName Add;
extern const FName Multiply;
extern const FName Subtract;
extern const FName Divide;
extern const FName Greater;
extern const FName GreaterEq;
extern const FName Less;
extern const FName LessEq;
extern const FName NotEq;
extern const FName Equal;
} // namespace OperatorNames

/**
 * Which overload of an operator fits its operands. The table is made once from the function libraries: every pure
 * function of two operands whose name is an operator's, an underscore and the operands' types.
 */
class FTypePromotion
{
public:
	enum class ETypeComparisonResult : uint8
	{
		TypeAHigher,
		TypeBHigher,
		TypesEqual,
		InvalidComparison,
	};

	static bool IsFunctionPromotionReady(const UFunction* FuncToConsider);
	/** "Add" of Add_IntInt; none for a function that is no operator. */
	static FName GetOpNameFromFunction(const UFunction* Func);
	static bool IsComparisonOpName(FName OpName);
	static bool IsComparisonFunc(const UFunction* Func) { return IsComparisonOpName(GetOpNameFromFunction(Func)); }
	static const TArray<FName>& GetAllOpNames();
	/** All overloads, those of the math library first. */
	static const TArray<const UFunction*>& GetAllFuncsForOp(FName Operation);
	/** The overload that a new operator is bound to until its operands are known. */
	static const UFunction* GetDefaultFuncForOp(FName Operation);
	/** The overload whose operands take the pins' types with the least promotion; null when there is none. Pins of open
	 * type fit anything. */
	static const UFunction* FindBestMatchingFunc(FName Operation, const TArray<UEdGraphPin*>& PinsToConsider);
	/** The higher of two types: what both can be promoted to. */
	static ETypeComparisonResult GetHigherType(const FEdGraphPinType& A, const FEdGraphPinType& B);
	static bool IsValidPromotion(const FEdGraphPinType& From, const FEdGraphPinType& To);
	static FText GetUserFacingOperatorName(FName OpName);
	static const FText& GetKeywordsForOperator(FName OpName);
	/** The operands' types of an overload, and its result's. */
	static FEdGraphPinType GetParamType(const UFunction& Func, int32 Index);
};
