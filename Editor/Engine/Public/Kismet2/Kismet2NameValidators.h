#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraphNode;
class UStruct;

enum class EValidatorResult
{
	Ok,
	AlreadyInUse,
	EmptyName,
	TooLong,
	ContainsInvalidCharacters,
	ExistingName,
	LocallyInUse,
};

/** Judges a name that an author wants to give. */
class INameValidatorInterface
{
public:
	virtual ~INameValidatorInterface() = default;
	virtual EValidatorResult IsValid(const FName& Name, bool bOriginal = false) = 0;
	virtual EValidatorResult IsValid(const FString& Name, bool bOriginal = false) = 0;
	/** A sentence about the result, as the editor shows it beside the name. */
	static FString GetErrorString(const FString& Name, EValidatorResult ErrorCode);
	static FText GetErrorText(const FString& Name, EValidatorResult ErrorCode)
	{
		return FText::FromString(GetErrorString(Name, ErrorCode));
	}
};

/** Names of variables, functions, graphs, components and events of one Blueprint: all share one space. */
class FKismetNameValidator : public INameValidatorInterface
{
public:
	explicit FKismetNameValidator(
		const UBlueprint* Blueprint, FName InExistingName = NAME_None, UStruct* InScope = nullptr);
	EValidatorResult IsValid(const FName& Name, bool bOriginal = false) override;
	EValidatorResult IsValid(const FString& Name, bool bOriginal = false) override;
	static int32 GetMaximumNameLength() { return 100; }

private:
	/** Parameters and local variables of the scope. */
	TSet<FName> LocalNames;
	FName ExistingName;
	const UBlueprint* BlueprintObject;
};

/** Accepts anything but nothing. */
class FDummyNameValidator : public INameValidatorInterface
{
public:
	explicit FDummyNameValidator(EValidatorResult InReturnValue)
		: ReturnValue(InReturnValue)
	{
	}
	EValidatorResult IsValid(const FName& Name, bool bOriginal = false) override { return ReturnValue; }
	EValidatorResult IsValid(const FString& Name, bool bOriginal = false) override { return ReturnValue; }

private:
	EValidatorResult ReturnValue;
};
