#pragma once

#include "BlueprintActionDatabase.h"
#include "BlueprintNodeSpawner.h"

/** The first actions of each node class, as they cover its shapes, and some of all the functions. */
inline TArray<const UBlueprintNodeSpawner*> ChooseActions(int32 FirstOfClass, int32 EveryFurther)
{
	TArray<const UBlueprintNodeSpawner*> Chosen;
	TMap<const UClass*, int32> Count;
	FBlueprintActionDatabase::Get().Update();
	FBlueprintActionDatabase::Get().ForEachAction(
		[&](const FBlueprintAction& Action)
		{
			const int32 Seen = Count.FindOrAdd(Action.NodeClass)++;
			if (Seen < FirstOfClass || Seen % EveryFurther == 0)
			{
				Chosen.Add(Action.Item->GetRawAction());
			}
		});
	return Chosen;
}
