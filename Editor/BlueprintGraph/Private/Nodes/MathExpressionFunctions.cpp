#include "MathExpressionFunctions.h"

#include "BlueprintTypePromotion.h"
#include "EdGraphSchema_K2.h"
#include "UObject/UnrealType.h"

namespace MathExpressionFunctions
{
namespace
{
struct FSign
{
	const TCHAR* Sign;
	int32 NumOperands;
	std::initializer_list<const TCHAR*> Functions;
};

/** Which functions an operator stands for: all whose name is one of these, or starts with it and an underscore. */
const FSign Signs[] = {{TEXT("+"), 2, {TEXT("Add")}}, {TEXT("-"), 2, {TEXT("Subtract")}},
	{TEXT("*"), 2, {TEXT("Multiply")}}, {TEXT("/"), 2, {TEXT("Divide")}}, {TEXT("%"), 2, {TEXT("Percent")}},
	{TEXT("<"), 2, {TEXT("Less")}}, {TEXT("<="), 2, {TEXT("LessEqual")}}, {TEXT(">"), 2, {TEXT("Greater")}},
	{TEXT(">="), 2, {TEXT("GreaterEqual")}}, {TEXT("=="), 2, {TEXT("EqualEqual")}}, {TEXT("!="), 2, {TEXT("NotEqual")}},
	{TEXT("&&"), 2, {TEXT("BooleanAND")}}, {TEXT("||"), 2, {TEXT("BooleanOR")}}, {TEXT("&"), 2, {TEXT("And")}},
	{TEXT("|"), 2, {TEXT("Or")}}, {TEXT("^"), 2, {TEXT("Xor"), TEXT("BooleanXOR")}},
	{TEXT("!"), 1, {TEXT("Not_PreBool")}}, {TEXT("~"), 1, {TEXT("Not_Int"), TEXT("Not_Int64")}},
	{TEXT("-"), 1, {TEXT("NegateVector"), TEXT("Negated2D"), TEXT("NegateRotator")}}};

/** Names that authors know from elsewhere. */
struct FAlias
{
	const TCHAR* Name;
	const TCHAR* Function;
};
const FAlias Aliases[] = {{TEXT("pow"), TEXT("MultiplyMultiply_FloatFloat")},
	{TEXT("power"), TEXT("MultiplyMultiply_FloatFloat")}, {TEXT("dot"), TEXT("Dot_VectorVector")},
	{TEXT("cross"), TEXT("Cross_VectorVector")}, {TEXT("vector"), TEXT("MakeVector")},
	{TEXT("vec"), TEXT("MakeVector")}, {TEXT("vect"), TEXT("MakeVector")}, {TEXT("vec2"), TEXT("MakeVector2D")},
	{TEXT("vector2d"), TEXT("MakeVector2D")}, {TEXT("rotator"), TEXT("MakeRotator")},
	{TEXT("rot"), TEXT("MakeRotator")}, {TEXT("ln"), TEXT("Loge")}, {TEXT("rand"), TEXT("RandomFloat")},
	{TEXT("random"), TEXT("RandomFloat")}, {TEXT("mod"), TEXT("Percent_FloatFloat")}, {TEXT("ceil"), TEXT("FCeil")},
	{TEXT("floor"), TEXT("FFloor")}, {TEXT("trunc"), TEXT("FTrunc")}, {TEXT("sign"), TEXT("SignOfFloat")},
	{TEXT("normalize"), TEXT("Normal")}, {TEXT("vsize"), TEXT("VSize")}, {TEXT("length"), TEXT("VSize")}};

const UClass* Library()
{
	return FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"));
}

bool IsUsable(const UFunction& Function)
{
	return Function.HasAllFunctionFlags(FUNC_BlueprintPure) && Function.HasAnyFunctionFlags(FUNC_Static)
		&& Function.GetReturnProperty();
}

/** "Max" is the family of Max, FMax and Max_Int; the shown name, without what is in brackets, counts too. */
bool IsOfFamily(const UFunction& Function, const FString& Name)
{
	const FString Own = Function.GetName();
	if (Own == Name || Own == TEXT("F") + Name || Own.StartsWith(Name + TEXT("_")))
	{
		return true;
	}
	const FString* const Shown = Function.FindMetaData(FBlueprintMetadata::MD_DisplayName);
	FString Plain;
	FString Rest;
	return Shown && (*Shown == Name || (Shown->Split(TEXT(" ("), &Plain, &Rest) && Plain == Name));
}

/** How far the types are from the function's inputs; -1 when they do not fit. Inputs without a type need a default. */
int32 Distance(const UFunction& Function, const TArray<FEdGraphPinType>& Types)
{
	const TArray<const FProperty*> Inputs = InputsOf(Function);
	if (Inputs.Num() < Types.Num())
	{
		return -1;
	}
	int32 Total = Inputs.Num() - Types.Num();
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	for (int32 Index = 0; Index < Inputs.Num(); ++Index)
	{
		FString Default;
		if (!Types.IsValidIndex(Index))
		{
			if (!Schema->FindFunctionParameterDefaultValue(&Function, Inputs[Index], Default))
			{
				return -1;
			}
			continue;
		}
		FEdGraphPinType Param;
		UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(Inputs[Index], Param);
		Param.bIsReference = false;
		Param.bIsConst = false;
		const FEdGraphPinType& Type = Types[Index];
		const bool bSame = Type.PinCategory == Param.PinCategory
			&& Type.PinSubCategoryObject == Param.PinSubCategoryObject && !Param.IsContainer();
		if (bSame)
		{
			Total += Type.PinSubCategory == Param.PinSubCategory ? 0 : 1;
		}
		else if (FTypePromotion::IsValidPromotion(Type, Param))
		{
			Total += 10;
		}
		else
		{
			return -1;
		}
	}
	return Total;
}

const UFunction* Nearest(
	TFunctionRef<bool(const UFunction&)> IsCandidate, const TArray<FEdGraphPinType>& Types, bool& bOutAnyCandidate)
{
	const UFunction* Best = nullptr;
	int32 BestDistance = MAX_int32;
	const UClass* const Class = Library();
	bOutAnyCandidate = false;
	for (TFieldIterator<UFunction> It(Class, EFieldIteratorFlags::ExcludeSuper); Class && It; ++It)
	{
		if (!IsUsable(**It) || !IsCandidate(**It))
		{
			continue;
		}
		bOutAnyCandidate = true;
		const int32 Step = Distance(**It, Types);
		if (Step >= 0 && Step < BestDistance)
		{
			Best = *It;
			BestDistance = Step;
		}
	}
	return Best;
}

FString DescribeTypes(const TArray<FEdGraphPinType>& Types)
{
	FString Text;
	for (const FEdGraphPinType& Type : Types)
	{
		Text += (Text.IsEmpty() ? FString() : FString(TEXT(", "))) + UEdGraphSchema_K2::TypeToText(Type).ToString();
	}
	return Text;
}
} // namespace

TArray<const FProperty*> InputsOf(const UFunction& Function)
{
	TArray<const FProperty*> Inputs;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bInput = !It->HasAnyPropertyFlags(CPF_OutParm) || It->HasAnyPropertyFlags(CPF_ReferenceParm);
		if (It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm) && bInput)
		{
			Inputs.Add(*It);
		}
	}
	return Inputs;
}

const UFunction* FindOperator(const FString& Sign, const TArray<FEdGraphPinType>& Types, FString& OutError)
{
	for (const FSign& Row : Signs)
	{
		if (!Sign.Equals(Row.Sign) || Row.NumOperands != Types.Num())
		{
			continue;
		}
		bool bAny = false;
		const UFunction* const Found = Nearest(
			[&Row](const UFunction& Function)
			{
				const FString Name = Function.GetName();
				for (const TCHAR* const Base : Row.Functions)
				{
					if (Name == Base || Name.StartsWith(FString(Base) + TEXT("_"), ESearchCase::CaseSensitive))
					{
						return true;
					}
				}
				return false;
			},
			Types, bAny);
		if (Found)
		{
			return Found;
		}
	}
	OutError = FString::Printf(TEXT("The operator '%s' does not take %s."), *Sign, *DescribeTypes(Types));
	return nullptr;
}

const UFunction* FindFunction(const FString& Name, const TArray<FEdGraphPinType>& Types, FString& OutError)
{
	FString Wanted = Name;
	for (const FAlias& Alias : Aliases)
	{
		Wanted = Name == Alias.Name ? FString(Alias.Function) : Wanted;
	}
	bool bAny = false;
	const UFunction* const Found = Nearest([&](const UFunction& Function)
		{ return IsOfFamily(Function, Wanted) || IsOfFamily(Function, Name); },
		Types, bAny);
	if (!Found)
	{
		OutError = bAny ? FString::Printf(TEXT("The function '%s' does not take %s."), *Name, *DescribeTypes(Types))
						: FString::Printf(TEXT("There is no math function '%s'."), *Name);
	}
	return Found;
}
} // namespace MathExpressionFunctions
