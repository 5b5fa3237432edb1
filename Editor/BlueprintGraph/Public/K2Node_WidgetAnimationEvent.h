#pragma once

#include "CoreMinimal.h"
#include "K2Node_Event.h"

/** The moment at which an animation of a widget starts or is over. */
class UK2Node_WidgetAnimationEvent : public UK2Node_Event
{
	EDITOR_CLASS(UK2Node_WidgetAnimationEvent, UK2Node_Event)

public:
	UK2Node_WidgetAnimationEvent();
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;

	FName AnimationPropertyName;
	/** Tells runs of one animation apart; none for all. */
	FName UserTag;
};
