#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseAsyncTask.h"

/** A gameplay task. */
class UK2Node_LatentGameplayTaskCall : public UK2Node_BaseAsyncTask
{
	EDITOR_CLASS(UK2Node_LatentGameplayTaskCall, UK2Node_BaseAsyncTask)

public:
	UK2Node_LatentGameplayTaskCall();
	void AllocateDefaultPins() override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

protected:
	/** The class whose tasks the node makes. */
	virtual UClass* GetTaskBaseClass() const;
};

/** An ability task. */
class UK2Node_LatentAbilityCall : public UK2Node_LatentGameplayTaskCall
{
	EDITOR_CLASS(UK2Node_LatentAbilityCall, UK2Node_LatentGameplayTaskCall)

public:
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;

protected:
	UClass* GetTaskBaseClass() const override;
};
