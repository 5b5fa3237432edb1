#include "BlueprintTypePromotion.h"

#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "WildcardTypes.h"

namespace OperatorNames
{
const FName Add(TEXT("Add"));
const FName Multiply(TEXT("Multiply"));
const FName Subtract(TEXT("Subtract"));
const FName Divide(TEXT("Divide"));
const FName Greater(TEXT("Greater"));
const FName GreaterEq(TEXT("GreaterEqual"));
const FName Less(TEXT("Less"));
const FName LessEq(TEXT("LessEqual"));
const FName NotEq(TEXT("NotEqual"));
const FName Equal(TEXT("EqualEqual"));
} // namespace OperatorNames

namespace TypePromotion
{
const FName IgnoreKey(TEXT("IgnoreTypePromotion"));
const FName ToleranceParam(TEXT("ErrorTolerance"));
/** Behind the two operands. */
constexpr int32 ResultIndex = 2;

/** The operands: inputs in order, a comparison's tolerance left out. */
static TArray<const FProperty*> OperandsOf(const UFunction& Function)
{
	TArray<const FProperty*> Operands;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bInput = It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm)
			&& (!It->HasAnyPropertyFlags(CPF_OutParm) || It->HasAnyPropertyFlags(CPF_ReferenceParm));
		if (bInput && It->GetFName() != ToleranceParam)
		{
			Operands.Add(*It);
		}
	}
	return Operands;
}

static FEdGraphPinType TypeOf(const FProperty* Property)
{
	FEdGraphPinType Type;
	UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(Property, Type);
	Type.bIsReference = false;
	Type.bIsConst = false;
	return Type;
}

/** Types of the operands and, behind them, of the result. */
struct FSignature
{
	FSignature() = default;
	explicit FSignature(const UFunction& Function)
	{
		const TArray<const FProperty*> Operands = OperandsOf(Function);
		for (int32 Index = 0; Index < ResultIndex; ++Index)
		{
			Types[Index] = TypeOf(Operands.IsValidIndex(Index) ? Operands[Index] : Function.GetReturnProperty());
		}
		Types[ResultIndex] = TypeOf(Function.GetReturnProperty());
	}

	FEdGraphPinType Types[ResultIndex + 1];
};

struct FTable
{
	TMap<FName, TArray<const UFunction*>> Overloads;
	/** Asked for with every link of every operator, so they are read once. */
	TMap<const UFunction*, FSignature> Signatures;
};

static void AddFunctionsOf(const UClass& Class, FTable& Table)
{
	for (TFieldIterator<UFunction> It(&Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (FTypePromotion::IsFunctionPromotionReady(*It))
		{
			Table.Overloads.FindOrAdd(FTypePromotion::GetOpNameFromFunction(*It)).Add(*It);
			Table.Signatures.Add(*It, FSignature(**It));
		}
	}
}

static const FTable& GetTable()
{
	static const FTable Table = []
	{
		FTable Made;
		const UClass* const Math = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"));
		if (Math)
		{
			AddFunctionsOf(*Math, Made);
		}
		TArray<UClass*> Libraries;
		if (const UClass* const Base = FindObject<UClass>(nullptr, TEXT("/Script/Engine.BlueprintFunctionLibrary")))
		{
			GetDerivedClasses(Base, Libraries);
		}
		for (const UClass* const Library : Libraries)
		{
			// Blueprint libraries come and go; operators are a native matter.
			if (Library != Math && !Library->ClassGeneratedBy)
			{
				AddFunctionsOf(*Library, Made);
			}
		}
		return Made;
	}();
	return Table;
}

/** The place of a number in the order in which numbers are promoted; -1 for anything else. */
static int32 NumberRank(const FEdGraphPinType& Type)
{
	if (Type.IsContainer())
	{
		return -1;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Byte)
	{
		return Type.PinSubCategoryObject.Get() ? -1 : 0;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Int)
	{
		return 1;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Int64)
	{
		return 2;
	}
	return Type.PinCategory == UEdGraphSchema_K2::PC_Real ? 3 : -1;
}

static bool IsSame(const FEdGraphPinType& A, const FEdGraphPinType& B)
{
	const bool bSameCategory = A.PinCategory == B.PinCategory && A.ContainerType == B.ContainerType;
	return bSameCategory && A.PinSubCategoryObject == B.PinSubCategoryObject;
}

/** How far the pin is from the operand: 0 the same, more for a promotion, -1 when it does not fit. */
static int32 Distance(const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	if (IsSame(From, To))
	{
		// Single and double precision are one kind of number here; the exact one is a little better.
		return From.PinSubCategory == To.PinSubCategory ? 0 : 1;
	}
	const int32 FromRank = NumberRank(From);
	const int32 ToRank = NumberRank(To);
	if (FromRank >= 0 && ToRank >= 0)
	{
		return FromRank < ToRank ? 2 * (ToRank - FromRank) : -1;
	}
	const UClass* const FromClass = Cast<UClass>(From.PinSubCategoryObject.Get());
	const UClass* const ToClass = Cast<UClass>(To.PinSubCategoryObject.Get());
	if (From.PinCategory == To.PinCategory && FromClass && ToClass && FromClass->IsChildOf(ToClass))
	{
		return 4;
	}
	// An entry of an enum compares as the number it is.
	return From.PinCategory == UEdGraphSchema_K2::PC_Byte && To.PinCategory == UEdGraphSchema_K2::PC_Byte
			&& !To.PinSubCategoryObject.Get()
		? 4
		: -1;
}
} // namespace TypePromotion

const TArray<FName>& FTypePromotion::GetAllOpNames()
{
	static const TArray<FName> Names = {OperatorNames::Add, OperatorNames::Multiply, OperatorNames::Subtract,
		OperatorNames::Divide, OperatorNames::Greater, OperatorNames::GreaterEq, OperatorNames::Less,
		OperatorNames::LessEq, OperatorNames::NotEq, OperatorNames::Equal};
	return Names;
}

FName FTypePromotion::GetOpNameFromFunction(const UFunction* Func)
{
	if (!Func)
	{
		return NAME_None;
	}
	const FString Name = Func->GetName();
	const int32 Underscore = Name.Find(TEXT("_"), ESearchCase::CaseSensitive);
	const FName Candidate(Underscore == INDEX_NONE ? Name : Name.Left(Underscore));
	return GetAllOpNames().Contains(Candidate) ? Candidate : FName();
}

bool FTypePromotion::IsFunctionPromotionReady(const UFunction* FuncToConsider)
{
	if (!FuncToConsider || !FuncToConsider->HasAllFunctionFlags(FUNC_BlueprintPure)
		|| !FuncToConsider->HasAnyFunctionFlags(FUNC_Static) || GetOpNameFromFunction(FuncToConsider).IsNone()
		|| FuncToConsider->HasMetaData(TypePromotion::IgnoreKey))
	{
		return false;
	}
	return FuncToConsider->GetReturnProperty() && TypePromotion::OperandsOf(*FuncToConsider).Num() == 2;
}

bool FTypePromotion::IsComparisonOpName(FName OpName)
{
	return OpName == OperatorNames::Greater || OpName == OperatorNames::GreaterEq || OpName == OperatorNames::Less
		|| OpName == OperatorNames::LessEq || OpName == OperatorNames::NotEq || OpName == OperatorNames::Equal;
}

const TArray<const UFunction*>& FTypePromotion::GetAllFuncsForOp(FName Operation)
{
	static const TArray<const UFunction*> None;
	const TArray<const UFunction*>* const Found = TypePromotion::GetTable().Overloads.Find(Operation);
	return Found ? *Found : None;
}

FEdGraphPinType FTypePromotion::GetParamType(const UFunction& Func, int32 Index)
{
	const TypePromotion::FSignature* const Known = TypePromotion::GetTable().Signatures.Find(&Func);
	return (Known ? *Known : TypePromotion::FSignature(Func)).Types[FMath::Clamp(Index, 0, TypePromotion::ResultIndex)];
}

const UFunction* FTypePromotion::GetDefaultFuncForOp(FName Operation)
{
	const TArray<const UFunction*>& Functions = GetAllFuncsForOp(Operation);
	for (const UFunction* const Function : Functions)
	{
		if (GetParamType(*Function, 0).PinCategory == UEdGraphSchema_K2::PC_Real
			&& GetParamType(*Function, 1).PinCategory == UEdGraphSchema_K2::PC_Real)
		{
			return Function;
		}
	}
	return Functions.IsEmpty() ? nullptr : Functions[0];
}

namespace TypePromotion
{
/** Vector by vector rather than vector by number, as long as nothing tells which of them is meant. */
static bool TakesOneType(const FSignature& Signature)
{
	return IsSame(Signature.Types[0], Signature.Types[1]);
}

/** Whether a value that an author gave an operand of no type yet would be lost by this one. */
static bool LosesValue(const UEdGraphPin& Pin, const FEdGraphPinType& Param)
{
	const bool bTypedIn = Pin.Direction == EGPD_Input && Pin.LinkedTo.IsEmpty() && !Pin.DefaultValue.IsEmpty();
	return bTypedIn
		&& !GetDefault<UEdGraphSchema_K2>()->DefaultValueSimpleValidation(
			Param, Pin.PinName, Pin.DefaultValue, nullptr, FText::GetEmpty());
}

/** The overload that the operator stands for now. */
static const UFunction* BoundOverload(const TArray<UEdGraphPin*>& Pins)
{
	const UK2Node_CallFunction* const Node = Pins.IsEmpty()
		? nullptr
		: Cast<UK2Node_CallFunction>(Pins[0]->GetOwningNodeUnchecked());
	return Node ? Node->GetTargetFunction() : nullptr;
}

/** How far the pins are from the overload; -1 when one of them does not fit. */
static int32 Distance(const FSignature& Signature, const TArray<UEdGraphPin*>& Pins)
{
	int32 Total = 0;
	int32 Operand = 0;
	for (const UEdGraphPin* const Pin : Pins)
	{
		const bool bOutput = Pin->Direction == EGPD_Output;
		const int32 Index = bOutput ? ResultIndex : FMath::Min(Operand++, ResultIndex - 1);
		const FEdGraphPinType& Param = Signature.Types[Index];
		if (WildcardTypes::IsOpen(Pin->PinType))
		{
			Total += LosesValue(*Pin, Param) ? 1 : 0;
			continue;
		}
		// Operands are promoted on the way in; nothing does that to a result on its way out.
		const int32 Step = !bOutput									? Distance(Pin->PinType, Param)
			: FTypePromotion::IsValidPromotion(Param, Pin->PinType) ? -1
																	: Distance(Param, Pin->PinType);
		if (Step < 0)
		{
			return -1;
		}
		Total += Step;
	}
	return Total;
}
} // namespace TypePromotion

const UFunction* FTypePromotion::FindBestMatchingFunc(FName Operation, const TArray<UEdGraphPin*>& PinsToConsider)
{
	// Among overloads that fit alike, the one that was asked for stays: a vector times a number is no vector times a
	// vector only because the number has no link.
	constexpr int32 WeightOfDistance = 3;
	const UFunction* const Bound = TypePromotion::BoundOverload(PinsToConsider);
	const UFunction* Best = nullptr;
	int32 BestDistance = MAX_int32;
	for (const UFunction* const Function : GetAllFuncsForOp(Operation))
	{
		const TypePromotion::FSignature& Signature = *TypePromotion::GetTable().Signatures.Find(Function);
		const int32 Distance = TypePromotion::Distance(Signature, PinsToConsider);
		if (Distance < 0 || WeightOfDistance * Distance >= BestDistance)
		{
			continue;
		}
		const int32 Rank = Function == Bound ? 0 : TypePromotion::TakesOneType(Signature) ? 1 : 2;
		const int32 Weighed = WeightOfDistance * Distance + Rank;
		if (Weighed < BestDistance)
		{
			Best = Function;
			BestDistance = Weighed;
		}
	}
	return Best;
}

bool FTypePromotion::IsValidPromotion(const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	const int32 FromRank = TypePromotion::NumberRank(From);
	return FromRank >= 0 && FromRank < TypePromotion::NumberRank(To);
}

FTypePromotion::ETypeComparisonResult FTypePromotion::GetHigherType(const FEdGraphPinType& A, const FEdGraphPinType& B)
{
	if (TypePromotion::IsSame(A, B))
	{
		return ETypeComparisonResult::TypesEqual;
	}
	if (IsValidPromotion(A, B))
	{
		return ETypeComparisonResult::TypeBHigher;
	}
	return IsValidPromotion(B, A) ? ETypeComparisonResult::TypeAHigher : ETypeComparisonResult::InvalidComparison;
}

FText FTypePromotion::GetUserFacingOperatorName(FName OpName)
{
	struct FRow
	{
		FName Op;
		const TCHAR* Shown;
	};
	static const FRow Rows[] = {{OperatorNames::Add, TEXT("Add")}, {OperatorNames::Multiply, TEXT("Multiply")},
		{OperatorNames::Subtract, TEXT("Subtract")}, {OperatorNames::Divide, TEXT("Divide")},
		{OperatorNames::Greater, TEXT("Greater (>)")}, {OperatorNames::GreaterEq, TEXT("Greater Equal (>=)")},
		{OperatorNames::Less, TEXT("Less (<)")}, {OperatorNames::LessEq, TEXT("Less Equal (<=)")},
		{OperatorNames::NotEq, TEXT("Not Equal (!=)")}, {OperatorNames::Equal, TEXT("Equal (==)")}};
	for (const FRow& Row : Rows)
	{
		if (Row.Op == OpName)
		{
			return FText::FromString(Row.Shown);
		}
	}
	return FText::FromName(OpName);
}

const FText& FTypePromotion::GetKeywordsForOperator(FName OpName)
{
	static const TMap<FName, FText> Keywords = []
	{
		TMap<FName, FText> Made;
		const auto Put = [&Made](FName Op, const TCHAR* Words) { Made.Add(Op, FText::FromString(Words)); };
		Put(OperatorNames::Add, TEXT("+ add plus sum"));
		Put(OperatorNames::Multiply, TEXT("* multiply times product"));
		Put(OperatorNames::Subtract, TEXT("- subtract minus"));
		Put(OperatorNames::Divide, TEXT("/ divide division"));
		Put(OperatorNames::Greater, TEXT("> greater"));
		Put(OperatorNames::GreaterEq, TEXT(">= greater equal"));
		Put(OperatorNames::Less, TEXT("< less"));
		Put(OperatorNames::LessEq, TEXT("<= less equal"));
		Put(OperatorNames::NotEq, TEXT("!= not equal"));
		Put(OperatorNames::Equal, TEXT("== equal"));
		return Made;
	}();
	static const FText None;
	const FText* const Found = Keywords.Find(OpName);
	return Found ? *Found : None;
}
