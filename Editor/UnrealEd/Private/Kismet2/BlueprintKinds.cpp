#include "Standalone/BlueprintKinds.h"

#include "Engine/Blueprint.h"
#include "UObject/Class.h"

namespace BlueprintKinds
{
namespace
{
struct FKind
{
	FString ParentClassPath;
	UClass* BlueprintClass;
};

struct FKindFinisher
{
	const UClass* BlueprintClass;
	FFinisher Finisher;
};

TArray<FKind>& Kinds()
{
	static TArray<FKind> All;
	return All;
}

TArray<FKindFinisher>& Finishers()
{
	static TArray<FKindFinisher> All;
	return All;
}

/** In the order in which they stand in the graph, nearest classes first. */
const FDefaultEvent DefaultEvents[] = {
	{TEXT("/Script/Engine.Actor"), TEXT("ReceiveBeginPlay")},
	{TEXT("/Script/Engine.Actor"), TEXT("ReceiveActorBeginOverlap")},
	{TEXT("/Script/Engine.Actor"), TEXT("ReceiveTick")},
	{TEXT("/Script/Engine.ActorComponent"), TEXT("ReceiveBeginPlay")},
	{TEXT("/Script/Engine.ActorComponent"), TEXT("ReceiveTick")},
	{TEXT("/Script/UMG.UserWidget"), TEXT("PreConstruct")},
	{TEXT("/Script/UMG.UserWidget"), TEXT("Construct")},
	{TEXT("/Script/UMG.UserWidget"), TEXT("Tick")},
	{TEXT("/Script/Engine.AnimInstance"), TEXT("BlueprintUpdateAnimation")},
	{TEXT("/Script/GameplayAbilities.GameplayAbility"), TEXT("K2_ActivateAbility")},
	{TEXT("/Script/GameplayAbilities.GameplayAbility"), TEXT("K2_OnEndAbility")},
};

bool IsBelow(const UClass* Class, const TCHAR* Path)
{
	for (; Class; Class = Class->GetSuperClass())
	{
		if (Class->GetPathName() == Path)
		{
			return true;
		}
	}
	return false;
}
} // namespace

UClass* GetBlueprintClass(const UClass* ParentClass)
{
	for (const FKind& Kind : Kinds())
	{
		if (IsBelow(ParentClass, *Kind.ParentClassPath))
		{
			return Kind.BlueprintClass;
		}
	}
	return UBlueprint::StaticClass();
}

TArray<FDefaultEvent> GetDefaultEvents(const UClass* ParentClass)
{
	TArray<FDefaultEvent> Events;
	for (const FDefaultEvent& Row : DefaultEvents)
	{
		if (IsBelow(ParentClass, Row.BaseClass))
		{
			Events.Add(FDefaultEvent{Row.BaseClass, Row.Name, FindObject<UClass>(nullptr, Row.BaseClass)});
		}
	}
	return Events;
}

void RegisterFinisher(const UClass* BlueprintClass, FFinisher Finisher)
{
	Finishers().Add(FKindFinisher{BlueprintClass, Finisher});
}

void RegisterBlueprintClass(const TCHAR* ParentClassPath, UClass* BlueprintClass)
{
	Kinds().Add(FKind{ParentClassPath, BlueprintClass});
}

void FinishCreation(UBlueprint& Blueprint)
{
	for (const FKindFinisher& Row : Finishers())
	{
		if (Blueprint.IsA(Row.BlueprintClass))
		{
			Row.Finisher(Blueprint);
		}
	}
}
} // namespace BlueprintKinds
