#include "Utils/Asset/NativeComponents.h"

#include "Components/ActorComponent.h"
#include "GameFramework/Actor.h"
#include "UObject/UnrealType.h"

namespace NativeComponents
{
static UObject* GetHeld(const FObjectProperty& Member, const UObject& Holder)
{
	return Member.GetObjectPropertyValue_InContainer(&Holder);
}

TArray<UActorComponent*> List(const UClass& Class)
{
	TArray<UActorComponent*> Components;
	if (const AActor* const Default = Cast<AActor>(Class.GetDefaultObject()))
	{
		Default->GetComponents(Components);
	}
	return Components;
}

const FObjectProperty* FindMember(const UActorComponent& Component)
{
	static const FName Root(TEXT("RootComponent"));
	const UObject* const Owner = Component.GetOuter();
	if (!Owner)
	{
		return nullptr;
	}
	for (TFieldIterator<FProperty> It(Owner->GetClass(), EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		// The root is held once more for being the root, which is no name of it.
		const FObjectProperty* const Member = CastField<FObjectProperty>(*It);
		if (Member && Member->GetFName() != Root && GetHeld(*Member, *Owner) == &Component)
		{
			return Member;
		}
	}
	return nullptr;
}

const UClass* FindOwner(const UActorComponent& Component)
{
	const UClass* Owner = Component.GetOuter() ? Component.GetOuter()->GetClass() : nullptr;
	const auto HasIt = [&Component](const UClass& Class)
	{
		return List(Class).ContainsByPredicate(
			[&Component](const UActorComponent* Each) { return Each->GetFName() == Component.GetFName(); });
	};
	while (Owner && Owner->GetSuperClass() && HasIt(*Owner->GetSuperClass()))
	{
		Owner = Owner->GetSuperClass();
	}
	return Owner;
}

UActorComponent* Find(const UClass& Class, const FString& Name)
{
	const FName Wanted(*Name);
	const TArray<UActorComponent*> Components = List(Class);
	for (UActorComponent* const Component : Components)
	{
		if (Component->GetFName() == Wanted)
		{
			return Component;
		}
	}
	const FObjectProperty* const Member = CastField<FObjectProperty>(Class.FindPropertyByName(Wanted));
	UObject* const Held = Member && !Components.IsEmpty() ? GetHeld(*Member, *Class.GetDefaultObject()) : nullptr;
	UActorComponent* const Component = Cast<UActorComponent>(Held);
	return Components.Contains(Component) ? Component : nullptr;
}
} // namespace NativeComponents
