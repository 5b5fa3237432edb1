#include "Factories/BlueprintFactory.h"
#include "WidgetBlueprintFactory.h"

#include "Engine/BlueprintGeneratedClass.h"
#include "GameFramework/Actor.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/FeedbackContext.h"
#include "Standalone/BlueprintKinds.h"
#include "Standalone/NativeClass.h"
#include "WidgetBlueprint.h"

IMPLEMENT_EDITOR_CLASS(UFactory, "/Script/UnrealEd", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UBlueprintFactory, "/Script/UnrealEd", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UWidgetBlueprintFactory, "/Script/UMGEditor", CLASS_None)

void UFactory::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("SupportedClass"), &UFactory::SupportedClass);
}

void UBlueprintFactory::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("BlueprintType"), &UBlueprintFactory::BlueprintType, CPF_Edit);
	Class.Property(TEXT("ParentClass"), &UBlueprintFactory::ParentClass, CPF_Edit);
}

void UWidgetBlueprintFactory::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("BlueprintType"), &UWidgetBlueprintFactory::BlueprintType, CPF_Edit);
	Class.Property(TEXT("ParentClass"), &UWidgetBlueprintFactory::ParentClass, CPF_Edit);
}

UBlueprintFactory::UBlueprintFactory()
{
	SupportedClass = UBlueprint::StaticClass();
	ParentClass = AActor::StaticClass();
}

UWidgetBlueprintFactory::UWidgetBlueprintFactory()
{
	SupportedClass = UWidgetBlueprint::StaticClass();
}

namespace BlueprintFactories
{
/** Tells why a class cannot be a parent; the caller gets null. */
static UObject* Refuse(const UClass* ParentClass, FFeedbackContext* Warn)
{
	if (Warn)
	{
		Warn->Logf(TEXT("Cannot create a Blueprint based on the class '%s'."),
			ParentClass ? *ParentClass->GetName() : TEXT("None"));
	}
	return nullptr;
}
} // namespace BlueprintFactories

UObject* UBlueprintFactory::FactoryCreateNew(
	UClass*, UObject* InParent, FName InName, EObjectFlags, UObject*, FFeedbackContext* Warn, FName CallingContext)
{
	UClass* const Parent = ParentClass.Get();
	if (!FKismetEditorUtilities::CanCreateBlueprintOfClass(Parent))
	{
		return BlueprintFactories::Refuse(Parent, Warn);
	}
	return FKismetEditorUtilities::CreateBlueprint(Parent, InParent, InName, BlueprintType, CallingContext);
}

UObject* UBlueprintFactory::FactoryCreateNew(
	UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn)
{
	return FactoryCreateNew(InClass, InParent, InName, Flags, Context, Warn, NAME_None);
}

UObject* UWidgetBlueprintFactory::FactoryCreateNew(
	UClass*, UObject* InParent, FName InName, EObjectFlags, UObject*, FFeedbackContext* Warn, FName CallingContext)
{
	UClass* const Parent = ParentClass.Get();
	if (!FKismetEditorUtilities::CanCreateBlueprintOfClass(Parent)
		|| BlueprintKinds::GetBlueprintClass(Parent) != UWidgetBlueprint::StaticClass())
	{
		return BlueprintFactories::Refuse(Parent, Warn);
	}
	return FKismetEditorUtilities::CreateBlueprint(Parent, InParent, InName, BlueprintType,
		UWidgetBlueprint::StaticClass(), UWidgetBlueprintGeneratedClass::StaticClass(), CallingContext);
}

UObject* UWidgetBlueprintFactory::FactoryCreateNew(
	UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn)
{
	return FactoryCreateNew(InClass, InParent, InName, Flags, Context, Warn, NAME_None);
}
