#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseAsyncTask.h"

/** Sends a pawn to a place or an actor and goes on when it is there, or cannot be. */
class UK2Node_AIMoveTo : public UK2Node_BaseAsyncTask
{
	EDITOR_CLASS(UK2Node_AIMoveTo, UK2Node_BaseAsyncTask)

public:
	UK2Node_AIMoveTo();
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
