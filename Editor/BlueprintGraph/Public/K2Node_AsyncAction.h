#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseAsyncTask.h"

/** A task of a class below BlueprintAsyncActionBase. */
class UK2Node_AsyncAction : public UK2Node_BaseAsyncTask
{
	EDITOR_CLASS(UK2Node_AsyncAction, UK2Node_BaseAsyncTask)

public:
	UK2Node_AsyncAction();
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
