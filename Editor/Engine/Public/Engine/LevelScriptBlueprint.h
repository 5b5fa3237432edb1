#pragma once

#include "CoreMinimal.h"
#include "Engine/Blueprint.h"

/** The Blueprint of a level. It lies inside the level, not at the top of a package of its own. */
class ULevelScriptBlueprint : public UBlueprint
{
	EDITOR_CLASS(ULevelScriptBlueprint, UBlueprint)

public:
	bool IsAsset() const override { return false; }

	FString FriendlyName;
};
