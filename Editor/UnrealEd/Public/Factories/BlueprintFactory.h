#pragma once

#include "Engine/Blueprint.h"
#include "Factories/Factory.h"

/** Makes a Blueprint of ParentClass; the kind of asset follows the class (an animation instance gives an animation
 * Blueprint). */
class UBlueprintFactory : public UFactory
{
	EDITOR_CLASS(UBlueprintFactory, UFactory)

public:
	UBlueprintFactory();
	UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context,
		FFeedbackContext* Warn, FName CallingContext) override;
	UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context,
		FFeedbackContext* Warn) override;

	EBlueprintType BlueprintType = BPTYPE_Normal;
	TSubclassOf<UObject> ParentClass;
	bool bSkipClassPicker = false;
};
