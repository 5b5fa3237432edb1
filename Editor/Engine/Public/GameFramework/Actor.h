#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class UActorComponent;
class USceneComponent;

/** What stands in a level. Native components of a class are default sub-objects of its default object. */
class AActor : public UObject
{
	EDITOR_CLASS(AActor, UObject)

public:
	/** All components that are sub-objects of the actor, in order of creation. */
	void GetComponents(TArray<UActorComponent*>& OutComponents) const;
	template <class T>
	void GetComponents(TArray<T*>& OutComponents) const
	{
		TArray<UActorComponent*> All;
		GetComponents(All);
		for (UActorComponent* const Component : All)
		{
			if (T* const Typed = Cast<T>(Component))
			{
				OutComponents.Add(Typed);
			}
		}
	}
	USceneComponent* GetRootComponent() const { return RootComponent; }

	TObjectPtr<USceneComponent> RootComponent;
	bool bReplicates = false;
};
