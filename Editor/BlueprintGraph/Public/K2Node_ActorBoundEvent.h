#pragma once

#include "CoreMinimal.h"
#include "GameFramework/Actor.h"
#include "K2Node_Event.h"

/** An event of an actor of the level. */
class UK2Node_ActorBoundEvent : public UK2Node_Event
{
	EDITOR_CLASS(UK2Node_ActorBoundEvent, UK2Node_Event)

public:
	FMulticastDelegateProperty* GetTargetDelegateProperty() const;
	FText GetTargetDelegateDisplayName() const;

	void ReconstructNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FName DelegatePropertyName;
	TSubclassOf<UObject> DelegateOwnerClass;
	TObjectPtr<AActor> EventOwner;
};
