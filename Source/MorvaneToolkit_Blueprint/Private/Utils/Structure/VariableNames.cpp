#include "Utils/Structure/VariableNames.h"

#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"

namespace VariableNames
{
static FString Squeeze(const FString& Name)
{
	return Name.Replace(TEXT(" "), TEXT(""));
}
} // namespace VariableNames

FVariableNames::FVariableNames(UBlueprint& InBlueprint)
	: Blueprint(InBlueprint)
{
	FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(&Blueprint);
	for (TFieldIterator<FProperty> It(Blueprint.GeneratedClass.Get(), EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		Add(It->GetFName());
	}
	FBlueprintEditorUtils::GetFunctionNameList(&Blueprint, Taken);
	FBlueprintEditorUtils::GetAllGraphNames(&Blueprint, Taken);
	for (const FBPInterfaceDescription& Row : Blueprint.ImplementedInterfaces)
	{
		AddFunctions(Row.Interface.Get());
	}
}

FMember FVariableNames::Find(const FString& Name) const
{
	if (const int32 Index = FindOwn(FName(*Name)); Index != INDEX_NONE)
	{
		return {Blueprint.NewVariables[Index].VarName, true, nullptr};
	}
	const FName* const Known = BySqueezedName.Find(VariableNames::Squeeze(Name));
	if (!Known)
	{
		return {};
	}
	if (const int32 Index = FindOwn(*Known); Index != INDEX_NONE)
	{
		return {Blueprint.NewVariables[Index].VarName, true, nullptr};
	}
	return {*Known, false, Blueprint.GeneratedClass.Get()->FindPropertyByName(*Known)};
}

void FVariableNames::Add(FName Name)
{
	const FString Squeezed = VariableNames::Squeeze(Name.ToString());
	if (!BySqueezedName.Contains(Squeezed))
	{
		BySqueezedName.Add(Squeezed, Name);
	}
}

void FVariableNames::AddFunctions(const UClass* Interface)
{
	// Those that are events need not stand anywhere yet.
	for (TFieldIterator<UFunction> It(Interface, EFieldIteratorFlags::IncludeSuper); Interface && It; ++It)
	{
		Taken.Add(It->GetFName());
	}
}

void FVariableNames::Remove(FName Name)
{
	BySqueezedName.Remove(VariableNames::Squeeze(Name.ToString()));
}

FName FVariableNames::MakeFree(const FString& Name) const
{
	const FName Wanted(*Name);
	const bool bTaken = Taken.Contains(Wanted) || StaticFindObjectFast(nullptr, &Blueprint, Wanted);
	return bTaken ? FBlueprintEditorUtils::FindUniqueKismetName(&Blueprint, Name) : Wanted;
}

bool FVariableNames::IsFit(const FString& Name, Morvane::FToolResult& Result)
{
	if (Name.IsEmpty())
	{
		Result.AddErrorMessage(TEXT("Variable name cannot be empty"));
		return false;
	}
	const EValidatorResult Verdict = FKismetNameValidator(nullptr).IsValid(Name);
	if (Verdict != EValidatorResult::Ok)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("%s for name '%s'"), *INameValidatorInterface::GetErrorString(Name, Verdict), *Name));
	}
	return Verdict == EValidatorResult::Ok;
}

int32 FVariableNames::FindOwn(FName Name) const
{
	return FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name);
}
