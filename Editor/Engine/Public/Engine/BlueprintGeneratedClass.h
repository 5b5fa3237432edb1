#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

class UActorComponent;
class UInheritableComponentHandler;
class USimpleConstructionScript;
class UTimelineTemplate;

/** The class that a Blueprint's compile makes: rebuilt from the asset whenever that changes, never edited. */
class UBlueprintGeneratedClass : public UClass
{
	EDITOR_CLASS(UBlueprintGeneratedClass, UClass)

public:
	UClass* GetAuthoritativeClass() override;

	TObjectPtr<USimpleConstructionScript> SimpleConstructionScript;
	TObjectPtr<UInheritableComponentHandler> InheritableComponentHandler;
	TArray<TObjectPtr<UTimelineTemplate>> Timelines;
	TArray<TObjectPtr<UActorComponent>> ComponentTemplates;
	/** Name of a property to the guid of the Blueprint variable that it stands for. */
	TMap<FName, FGuid> PropertyGuids;
};

class UWidgetBlueprintGeneratedClass : public UBlueprintGeneratedClass
{
	EDITOR_CLASS(UWidgetBlueprintGeneratedClass, UBlueprintGeneratedClass)
};

class UAnimBlueprintGeneratedClass : public UBlueprintGeneratedClass
{
	EDITOR_CLASS(UAnimBlueprintGeneratedClass, UBlueprintGeneratedClass)
};
