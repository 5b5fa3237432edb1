#include "Kismet2/Kismet2NameValidators.h"

#include "EdGraphSchema_K2.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/TakenNames.h"
#include "Standalone/NameSyntax.h"
#include "UObject/Class.h"

FString INameValidatorInterface::GetErrorString(const FString& Name, EValidatorResult ErrorCode)
{
	switch (ErrorCode)
	{
	case EValidatorResult::Ok:
		return FString();
	case EValidatorResult::AlreadyInUse:
		return FString::Printf(TEXT("\"%s\" is already in use."), *Name);
	case EValidatorResult::EmptyName:
		return Name.IsEmpty() ? TEXT("Names cannot be left blank")
							  : FString::Printf(TEXT("\"%s\" cannot be a name: the word stands for no name"), *Name);
	case EValidatorResult::TooLong:
		return TEXT("Names must have fewer than 100 characters!");
	case EValidatorResult::ContainsInvalidCharacters:
		return FString::Printf(TEXT("\"%s\" cannot be a name: %s"), *Name, *NameSyntax::FindFault(Name));
	case EValidatorResult::ExistingName:
		return TEXT("Name was not changed.");
	case EValidatorResult::LocallyInUse:
		return TEXT("Conflicts with another local variable or function parameter!");
	}
	return FString();
}

FKismetNameValidator::FKismetNameValidator(const UBlueprint* Blueprint, FName InExistingName, UStruct* InScope)
	: ExistingName(InExistingName)
	, BlueprintObject(Blueprint)
{
	if (InScope)
	{
		for (TFieldIterator<FProperty> It(InScope, EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			LocalNames.Add(It->GetFName());
		}
	}
}

EValidatorResult FKismetNameValidator::IsValid(const FString& Name, bool)
{
	if (Name.IsEmpty())
	{
		return EValidatorResult::EmptyName;
	}
	if (Name.Len() > GetMaximumNameLength())
	{
		return EValidatorResult::TooLong;
	}
	const bool bIsNone = Name.Equals(TEXT("None"), ESearchCase::IgnoreCase);
	if (!bIsNone && !NameSyntax::FindFault(Name).IsEmpty())
	{
		return EValidatorResult::ContainsInvalidCharacters;
	}
	return IsValid(FName(Name));
}

EValidatorResult FKismetNameValidator::IsValid(const FName& Name, bool)
{
	if (Name.IsNone())
	{
		return EValidatorResult::EmptyName;
	}
	if (Name == ExistingName)
	{
		return EValidatorResult::Ok;
	}
	if (LocalNames.Contains(Name))
	{
		return EValidatorResult::LocallyInUse;
	}
	return BlueprintObject && TakenNames::IsTaken(*BlueprintObject, Name) ? EValidatorResult::AlreadyInUse
																		  : EValidatorResult::Ok;
}
