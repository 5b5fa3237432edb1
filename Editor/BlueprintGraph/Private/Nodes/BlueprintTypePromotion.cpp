#include "BlueprintTypePromotion.h"

#include "EdGraphSchema_K2.h"
#include "Nodes/WildcardTypes.h"
#include "UObject/UnrealType.h"

namespace TypePromotion
{
using FSchema = UEdGraphSchema_K2;

struct FOperator
{
	FName Name;
	const TCHAR* Sign;
	bool bCompares;
	bool bTakesMore;
};

const TArray<FOperator>& Operators()
{
	static const TArray<FOperator> All = {{TEXT("Add"), TEXT("+"), false, true},
		{TEXT("Subtract"), TEXT("-"), false, false}, {TEXT("Multiply"), TEXT("*"), false, true},
		{TEXT("Divide"), TEXT("/"), false, false}, {TEXT("Greater"), TEXT(">"), true, false},
		{TEXT("GreaterEqual"), TEXT(">="), true, false}, {TEXT("Less"), TEXT("<"), true, false},
		{TEXT("LessEqual"), TEXT("<="), true, false}, {TEXT("EqualEqual"), TEXT("=="), true, false},
		{TEXT("NotEqual"), TEXT("!="), true, false}};
	return All;
}

const FOperator* Find(FName Name)
{
	return Operators().FindByPredicate([Name](const FOperator& Row) { return Row.Name == Name; });
}

/** One function, with its operands' types at hand. */
struct FOverload
{
	const UFunction* Function;
	TArray<FEdGraphPinType> Operands;
};

FOverload Describe(const UFunction& Function)
{
	FOverload Overload{&Function, {}};
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		FEdGraphPinType Type;
		const bool bIsOperand = It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm)
			&& It->GetFName() != TEXT("ErrorTolerance");
		if (bIsOperand && FSchema::ConvertPropertyToPinTypeStatic(*It, Type))
		{
			Overload.Operands.Add(Type);
		}
	}
	return Overload;
}

using FTable = TMap<FName, TArray<FOverload>>;

/** The overloads of each operator, in the library's order. Built on first use: the library's functions never change. */
const FTable& Table()
{
	static const FTable Built = []
	{
		FTable Made;
		const UClass* const Library = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"));
		for (TFieldIterator<UFunction> It(Library, EFieldIteratorFlags::ExcludeSuper); It; ++It)
		{
			const FName Name = FTypePromotion::GetOpNameFromFunction(*It);
			if (!Name.IsNone())
			{
				Made.FindOrAdd(Name).Add(Describe(**It));
			}
		}
		return Made;
	}();
	return Built;
}

/** Place of a number in the order in which one becomes the next without loss. */
int32 NumericRank(const FEdGraphPinType& Type)
{
	if (Type.IsContainer())
	{
		return INDEX_NONE;
	}
	if (Type.PinCategory == FSchema::PC_Byte)
	{
		return Type.PinSubCategoryObject.IsValid() ? INDEX_NONE : 0;
	}
	if (Type.PinCategory == FSchema::PC_Int)
	{
		return 1;
	}
	if (Type.PinCategory == FSchema::PC_Int64)
	{
		return 2;
	}
	if (Type.PinCategory == FSchema::PC_Real)
	{
		return Type.PinSubCategory == FSchema::PC_Float ? 3 : 4;
	}
	return INDEX_NONE;
}
} // namespace TypePromotion

FName FTypePromotion::GetOpNameFromFunction(const UFunction* Function)
{
	if (!Function || !Function->HasAnyFunctionFlags(FUNC_BlueprintPure) || !Function->HasAnyFunctionFlags(FUNC_Static))
	{
		return NAME_None;
	}
	FString Operation;
	FString Types;
	if (!Function->GetName().Split(TEXT("_"), &Operation, &Types))
	{
		return NAME_None;
	}
	const FName Name(Operation);
	return TypePromotion::Find(Name) ? Name : FName();
}

bool FTypePromotion::IsComparisonOpName(FName OpName)
{
	const TypePromotion::FOperator* const Operator = TypePromotion::Find(OpName);
	return Operator && Operator->bCompares;
}

bool FTypePromotion::TakesMoreOperands(FName OpName)
{
	const TypePromotion::FOperator* const Operator = TypePromotion::Find(OpName);
	return Operator && Operator->bTakesMore;
}

FText FTypePromotion::GetKeywordsAndSign(FName OpName)
{
	const TypePromotion::FOperator* const Operator = TypePromotion::Find(OpName);
	return Operator ? FText::FromString(Operator->Sign) : FText::GetEmpty();
}

int32 FTypePromotion::GetPromotionCost(const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	if (WildcardTypes::IsOpen(From) || WildcardTypes::IsOpen(To))
	{
		return 0;
	}
	if (From.ContainerType != To.ContainerType)
	{
		return -1;
	}
	const int32 FromRank = TypePromotion::NumericRank(From);
	const int32 ToRank = TypePromotion::NumericRank(To);
	if (FromRank != INDEX_NONE && ToRank != INDEX_NONE)
	{
		return FromRank <= ToRank ? ToRank - FromRank : -1;
	}
	if (From.PinCategory != To.PinCategory)
	{
		return -1;
	}
	const UStruct* const FromStruct = Cast<UStruct>(From.PinSubCategoryObject.Get());
	const UStruct* const ToStruct = Cast<UStruct>(To.PinSubCategoryObject.Get());
	if (FromStruct == ToStruct)
	{
		return 0;
	}
	return FromStruct && ToStruct && FromStruct->IsChildOf(ToStruct) ? 1 : -1;
}

const UFunction* FTypePromotion::FindBestMatchingFunc(FName OpName, TConstArrayView<FEdGraphPinType> Operands)
{
	const TArray<TypePromotion::FOverload>* const Overloads = TypePromotion::Table().Find(OpName);
	if (!Overloads)
	{
		return nullptr;
	}
	const UFunction* Best = nullptr;
	int32 BestCost = MAX_int32;
	for (const TypePromotion::FOverload& Overload : *Overloads)
	{
		int32 Cost = Overload.Operands.IsEmpty() ? -1 : 0;
		for (int32 Index = 0; Index < Operands.Num() && Cost >= 0; ++Index)
		{
			const int32 Place = FMath::Min(Index, Overload.Operands.Num() - 1);
			const int32 Step = GetPromotionCost(Operands[Index], Overload.Operands[Place]);
			Cost = Step < 0 ? -1 : Cost + Step;
		}
		if (Cost >= 0 && Cost < BestCost)
		{
			Best = Overload.Function;
			BestCost = Cost;
		}
	}
	return Best;
}
