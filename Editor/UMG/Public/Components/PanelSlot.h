#pragma once

#include "Components/Widget.h"
#include "CoreMinimal.h"

/** The place of one widget in one panel. Layout is properties that come from data. */
class UPanelSlot : public UVisual
{
	EDITOR_CLASS(UPanelSlot, UVisual)

public:
	TObjectPtr<UPanelWidget> Parent;
	TObjectPtr<UWidget> Content;
};
