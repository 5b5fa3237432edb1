#include "Utils/Structure/InheritedComponents.h"

#include "Components/ActorComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/InheritableComponentHandler.h"
#include "Engine/SCS_Node.h"
#include "UObject/UnrealType.h"
#include "UObject/UObjectIterator.h"

FInheritedComponent::FInheritedComponent(UBlueprint& InBlueprint, const USCS_Node& InNode)
	: Blueprint(InBlueprint)
	, Node(InNode)
{
	bMadeHandler = !Blueprint.GetInheritableComponentHandler(false);
	UInheritableComponentHandler* const Handler = Blueprint.GetInheritableComponentHandler(true);
	if (Handler)
	{
		bMadeTemplate = !Handler->GetOverridenComponentTemplate(FComponentKey(&Node));
		Template = Handler->CreateOverridenComponentTemplate(FComponentKey(&Node));
	}
}

void FInheritedComponent::Forget()
{
	UInheritableComponentHandler* const Handler = Blueprint.GetInheritableComponentHandler(false);
	if (Handler && bMadeTemplate)
	{
		Handler->RemoveOverridenComponentTemplate(FComponentKey(&Node));
		Template = nullptr;
	}
	UBlueprintGeneratedClass* const Class = Cast<UBlueprintGeneratedClass>(Blueprint.GeneratedClass.Get());
	if (Handler && bMadeHandler && Class)
	{
		Blueprint.InheritableComponentHandler = nullptr;
		Class->InheritableComponentHandler = nullptr;
		Handler->MarkAsGarbage();
	}
}

FInheritingTemplates::FInheritingTemplates()
{
	for (TObjectIterator<UInheritableComponentHandler> It; It; ++It)
	{
		TArray<UActorComponent*> OfClass;
		if (IsValid(*It))
		{
			It->GetAllTemplates(OfClass);
		}
		Templates.Append(OfClass);
	}
}

void FInheritingTemplates::PassOn(
	const UActorComponent& Changed, const FProperty& Property, const void* ValueBefore) const
{
	for (UActorComponent* const Below : Templates)
	{
		void* const Value = Property.ContainerPtrToValuePtr<void>(Below);
		if (IsValid(Below) && Below->GetArchetype() == &Changed && Property.Identical(Value, ValueBefore))
		{
			Property.CopyCompleteValue(Value, Property.ContainerPtrToValuePtr<void>(&Changed));
			PassOn(*Below, Property, ValueBefore);
		}
	}
}
