#include "Utils/Request/NewNames.h"

#include "Kismet2/Kismet2NameValidators.h"

FString NewNames::FindFault(const FString& Name)
{
	FKismetNameValidator Syntax(nullptr);
	const EValidatorResult Answer = Syntax.IsValid(Name);
	// How long a name may be is the matter of who makes it; beyond this it is none at all.
	const bool bTolerated = Answer == EValidatorResult::TooLong && Name.Len() < NAME_SIZE / 2;
	return Answer == EValidatorResult::Ok || bTolerated ? FString()
														: INameValidatorInterface::GetErrorString(Name, Answer);
}
