#pragma once

#include "Components/ActorComponent.h"
#include "CoreMinimal.h"
#include "Engine/EngineTypes.h"

/** A component with a place, attached to another one. */
class USceneComponent : public UActorComponent
{
	EDITOR_CLASS(USceneComponent, UActorComponent)

public:
	void SetupAttachment(USceneComponent* InParent, FName InSocketName = NAME_None);
	USceneComponent* GetAttachParent() const { return AttachParent; }
	FName GetAttachSocketName() const { return AttachSocketName; }
	/** The components attached to this one, among those of the same owner. */
	const TArray<TObjectPtr<USceneComponent>>& GetAttachChildren() const;
	void SetRelativeLocation(FVector NewLocation) { RelativeLocation = NewLocation; }
	void SetRelativeRotation(FRotator NewRotation) { RelativeRotation = NewRotation; }
	void SetRelativeLocationAndRotation(FVector NewLocation, FRotator NewRotation);
	void SetRelativeScale3D(FVector NewScale3D) { RelativeScale3D = NewScale3D; }
	FVector GetRelativeLocation() const { return RelativeLocation; }
	FRotator GetRelativeRotation() const { return RelativeRotation; }
	FVector GetRelativeScale3D() const { return RelativeScale3D; }
	void SetMobility(EComponentMobility::Type NewMobility) { Mobility = NewMobility; }
	FTransform GetRelativeTransform() const { return FTransform(RelativeRotation, RelativeLocation, RelativeScale3D); }

	FVector RelativeLocation = FVector(0.0, 0.0, 0.0);
	FRotator RelativeRotation = FRotator(0.0, 0.0, 0.0);
	FVector RelativeScale3D = FVector(1.0, 1.0, 1.0);
	EComponentMobility::Type Mobility = EComponentMobility::Movable;
	bool bVisible = true;
	bool bHiddenInGame = false;

private:
	TObjectPtr<USceneComponent> AttachParent;
	FName AttachSocketName;
	/** Gathered anew by each GetAttachChildren: attachment is kept at the child's end alone. */
	mutable TArray<TObjectPtr<USceneComponent>> AttachChildren;
};
