#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class UPanelSlot;
class UPanelWidget;

/** What widgets and slots share. */
class UVisual : public UObject
{
	EDITOR_CLASS(UVisual, UObject)
};

/** An element of a user interface. Its look is properties that come from data. */
class UWidget : public UVisual
{
	EDITOR_CLASS(UWidget, UVisual)

public:
	/** The panel that holds it, or null for a root. */
	UPanelWidget* GetParent() const;
	/** Takes the widget out of its panel. */
	void RemoveFromParent();
	FString GetDisplayLabel() const { return DisplayLabel; }
	void SetDisplayLabel(const FString& InDisplayLabel) { DisplayLabel = InDisplayLabel; }

	/** Where it stands in its panel and how; null for a root. */
	TObjectPtr<UPanelSlot> Slot;
	/** Whether the Blueprint has a variable for it. */
	bool bIsVariable = true;

private:
	friend class FSlotHosts;

	FString DisplayLabel;
	/** Who took it into a named slot last and may have let go of it since; spares a walk over the tree. */
	TWeakObjectPtr<UObject> Host;
};
