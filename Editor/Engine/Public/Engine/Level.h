#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class ULevelScriptBlueprint;

/** What stands in one level of a world: its actors, which are its sub-objects, and its Blueprint. */
class ULevel : public UObject
{
	EDITOR_CLASS(ULevel, UObject)

public:
	/** Null when the level has none; this editor makes none either. */
	ULevelScriptBlueprint* GetLevelScriptBlueprint(bool bDontCreate = false);

	TObjectPtr<ULevelScriptBlueprint> LevelScriptBlueprint;
};
