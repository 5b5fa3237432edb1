#pragma once

#include "Components/PanelWidget.h"
#include "CoreMinimal.h"

/** A panel for one child. */
class UContentWidget : public UPanelWidget
{
	EDITOR_CLASS(UContentWidget, UPanelWidget)

public:
};
