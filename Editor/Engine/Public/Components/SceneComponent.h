#pragma once

#include "Components/ActorComponent.h"
#include "CoreMinimal.h"
#include "Engine/EngineTypes.h"

/** A component with a place, attached to another one. */
class USceneComponent : public UActorComponent
{
	EDITOR_CLASS(USceneComponent, UActorComponent)

public:
	USceneComponent* GetAttachParent() const { return AttachParent; }
	FName GetAttachSocketName() const { return AttachSocketName; }
	void SetRelativeRotation(FRotator NewRotation) { RelativeRotation = NewRotation; }
	void SetRelativeLocationAndRotation(FVector NewLocation, FRotator NewRotation);
	void SetRelativeScale3D(FVector NewScale3D) { RelativeScale3D = NewScale3D; }
	FVector GetRelativeLocation() const { return RelativeLocation; }
	FRotator GetRelativeRotation() const { return RelativeRotation; }
	FVector GetRelativeScale3D() const { return RelativeScale3D; }
	void SetMobility(EComponentMobility::Type NewMobility) { Mobility = NewMobility; }

	FVector RelativeLocation = FVector(0.0, 0.0, 0.0);
	FRotator RelativeRotation = FRotator(0.0, 0.0, 0.0);
	FVector RelativeScale3D = FVector(1.0, 1.0, 1.0);
	EComponentMobility::Type Mobility = EComponentMobility::Movable;
	bool bVisible = true;
	bool bHiddenInGame = false;

private:
	TObjectPtr<USceneComponent> AttachParent;
	FName AttachSocketName;
};
