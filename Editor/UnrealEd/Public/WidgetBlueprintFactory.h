#pragma once

#include "Engine/Blueprint.h"
#include "Factories/Factory.h"

/** Makes a Widget Blueprint of ParentClass with an empty tree. */
class UWidgetBlueprintFactory : public UFactory
{
	EDITOR_CLASS(UWidgetBlueprintFactory, UFactory)

public:
	UWidgetBlueprintFactory();
	UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context,
		FFeedbackContext* Warn, FName CallingContext) override;
	UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context,
		FFeedbackContext* Warn) override;

	EBlueprintType BlueprintType = BPTYPE_Normal;
	TSubclassOf<UObject> ParentClass;
};
