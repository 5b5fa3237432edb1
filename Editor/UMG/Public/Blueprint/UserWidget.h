#pragma once

#include "Components/Widget.h"
#include "CoreMinimal.h"

class UWidgetTree;

/** A widget that a Widget Blueprint describes. */
class UUserWidget : public UWidget
{
	EDITOR_CLASS(UUserWidget, UWidget)
};
