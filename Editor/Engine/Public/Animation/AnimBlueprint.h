#pragma once

#include "Engine/Blueprint.h"

class UAnimBlueprint : public UBlueprint
{
	EDITOR_CLASS(UAnimBlueprint, UBlueprint)

public:
	UClass* GetBlueprintClass() const override;

	TObjectPtr<UObject> TargetSkeleton;
};
