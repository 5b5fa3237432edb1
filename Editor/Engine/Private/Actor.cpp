#include "GameFramework/Actor.h"

#include "Components/SceneComponent.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(AActor, "/Script/Engine", CLASS_None)

void AActor::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("RootComponent"), &AActor::RootComponent, CPF_BlueprintVisible | CPF_BlueprintReadOnly);
	Class.Property(
		TEXT("bReplicates"), &AActor::bReplicates, CPF_Edit | CPF_BlueprintVisible | CPF_BlueprintReadOnly | CPF_Net);
}

void AActor::GetComponents(TArray<UActorComponent*>& OutComponents) const
{
	for (UObject* Inner = GetFirstInner(); Inner; Inner = Inner->GetNextInner())
	{
		if (UActorComponent* const Component = Cast<UActorComponent>(Inner))
		{
			OutComponents.Add(Component);
		}
	}
}
