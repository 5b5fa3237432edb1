#pragma once

#include "CoreMinimal.h"
#include "K2Node_Event.h"

/** Answers a gameplay cue, whose tag is the name of the event. */
class UK2Node_GameplayCueEvent : public UK2Node_Event
{
	EDITOR_CLASS(UK2Node_GameplayCueEvent, UK2Node_Event)

public:
	UK2Node_GameplayCueEvent();
	FText GetMenuCategory() const override;
};
