#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/Object.h"

/** Makes assets of one class. */
class UFactory : public UObject
{
	EDITOR_CLASS(UFactory, UObject)

public:
	virtual UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags,
		UObject* Context, FFeedbackContext* Warn, FName CallingContext)
	{
		return FactoryCreateNew(InClass, InParent, InName, Flags, Context, Warn);
	}
	virtual UObject* FactoryCreateNew(
		UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn)
	{
		return nullptr;
	}

	TSubclassOf<UObject> SupportedClass;
	bool bCreateNew = true;
	bool bEditAfterNew = true;
};
