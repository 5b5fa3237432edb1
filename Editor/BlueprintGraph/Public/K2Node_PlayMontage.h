#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseAsyncTask.h"

/** Plays a montage on a skeletal mesh and goes on at its end, its breaks and its notifies. */
class UK2Node_PlayMontage : public UK2Node_BaseAsyncTask
{
	EDITOR_CLASS(UK2Node_PlayMontage, UK2Node_BaseAsyncTask)

public:
	UK2Node_PlayMontage();
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
