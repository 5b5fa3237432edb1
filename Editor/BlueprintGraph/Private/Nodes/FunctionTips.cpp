#include "FunctionTips.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "FunctionPins.h"
#include "UObject/UnrealType.h"

namespace FunctionTips
{
namespace
{
/** "Duration (Float)"; empty for a parameter that no pin shows. */
FString DescribeParameter(const UFunction& Function, const FProperty& Param)
{
	const FFunctionPinFacts& Facts = FunctionPins::Get(Function);
	FEdGraphPinType Type;
	if (Facts.HiddenByMetaData.Contains(Param.GetFName()) || Facts.WorldContext == Param.GetFName()
		|| !UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(&Param, Type))
	{
		return FString();
	}
	return FString::Printf(
		TEXT("%s (%s)"), *Param.GetDisplayNameText().ToString(), *UEdGraphSchema_K2::TypeToText(Type).ToString());
}

/** A line of parameters behind a word; empty without any. */
FString DescribeSide(const UFunction& Function, const TCHAR* Word, bool bInputs)
{
	TArray<FString> Parts;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bIsInput = !It->HasAnyPropertyFlags(CPF_OutParm | CPF_ReturnParm)
			|| It->HasAnyPropertyFlags(CPF_ReferenceParm);
		const bool bWanted = It->HasAnyPropertyFlags(CPF_Parm) && bIsInput == bInputs;
		const FString Part = bWanted ? DescribeParameter(Function, **It) : FString();
		if (!Part.IsEmpty())
		{
			Parts.Add(Part);
		}
	}
	return Parts.IsEmpty() ? FString() : FString(TEXT("\n")) + Word + FString::Join(Parts, TEXT(", "));
}
/** The text that the declaration itself brings; empty without one. */
FString OwnText(const UFunction& Function)
{
	const FString* const Own = Function.FindMetaData(FBlueprintMetadata::MD_ToolTip);
	return Own && !Own->IsEmpty() ? Function.GetToolTipText().ToString() : FString();
}

FString WorkOut(const UFunction& Function)
{
	const FString Own = OwnText(Function);
	return Own.IsEmpty()
		? UEdGraphSchema_K2::GetFriendlySignatureName(&Function).ToString() + DescribeParameters(Function)
		: Own;
}
} // namespace

FString DescribeParameters(const UFunction& Function)
{
	return DescribeSide(Function, TEXT("Inputs: "), true) + DescribeSide(Function, TEXT("Outputs: "), false);
}

FString Describe(const UFunction& Function)
{
	// Reads of whole graphs ask for each call's tooltip.
	const FFunctionPinFacts& Facts = FunctionPins::Get(Function);
	if (!Facts.Description.IsSet())
	{
		FString Worded = WorkOut(Function);
		Facts.Description = MoveTemp(Worded);
	}
	return Facts.Description.GetValue();
}

FString DescribeFactory(const UFunction& Function, const FString& Name)
{
	const FString Own = OwnText(Function);
	return Own.IsEmpty() ? Name + DescribeSide(Function, TEXT("Inputs: "), true) : Own;
}

FString WhereItRuns(const UFunction& Function)
{
	if (Function.HasAllFunctionFlags(FUNC_BlueprintAuthorityOnly))
	{
		return TEXT("\n\nAuthority Only: runs on the server alone");
	}
	return Function.HasAllFunctionFlags(FUNC_BlueprintCosmetic)
		? FString(TEXT("\n\nCosmetic: does not run on a dedicated server"))
		: FString();
}
} // namespace FunctionTips
