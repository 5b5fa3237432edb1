#pragma once

#include "CoreMinimal.h"
#include "Components/Widget.h"

class UWidgetTree;

/** A widget that a Widget Blueprint describes. */
class UUserWidget : public UWidget
{
	EDITOR_CLASS(UUserWidget, UWidget)
};
