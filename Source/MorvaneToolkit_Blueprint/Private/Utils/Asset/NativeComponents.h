#pragma once

#include "CoreMinimal.h"

class FObjectProperty;
class UActorComponent;
class UClass;

/**
 * The components that an actor class has by its code. Each has a name of its own ("CharacterMesh0") and mostly a member
 * that holds it ("Mesh"): authors know it by the member, saved assets by the name.
 */
namespace NativeComponents
{
/** Those of the class's default object; empty for a class that is no actor's. */
TArray<UActorComponent*> List(const UClass& Class);
/** The member of the owner's class that holds the component, or null. */
const FObjectProperty* FindMember(const UActorComponent& Component);
/** The class that brings the component in: the topmost that has one of its name. */
const UClass* FindOwner(const UActorComponent& Component);
/** By either name, ignoring case; null when the class has none of it. */
UActorComponent* Find(const UClass& Class, const FString& Name);
} // namespace NativeComponents
