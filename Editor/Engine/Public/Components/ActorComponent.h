#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class AActor;

/** A part of an actor. Only what reading and editing of templates needs; other properties come from data. */
class UActorComponent : public UObject
{
	EDITOR_CLASS(UActorComponent, UObject)

public:
	bool IsEditorOnly() const override { return bIsEditorOnly; }

	bool bAutoActivate = false;
	bool bIsEditorOnly = false;
	bool bEditableWhenInherited = true;
	bool bReplicates = false;
	TArray<FName> ComponentTags;
};
