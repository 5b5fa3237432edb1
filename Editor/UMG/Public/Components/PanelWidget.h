#pragma once

#include "Components/PanelSlot.h"
#include "Components/Widget.h"
#include "CoreMinimal.h"

/** A widget that holds others, in order. */
class UPanelWidget : public UWidget
{
	EDITOR_CLASS(UPanelWidget, UWidget)

public:
	int32 GetChildrenCount() const { return Slots.Num(); }
	/** Null for a place that is not there. */
	UWidget* GetChildAt(int32 Index) const;
	TArray<UWidget*> GetAllChildren() const;
	int32 GetChildIndex(const UWidget* Content) const;
	bool HasAnyChildren() const { return !Slots.IsEmpty(); }
	/** Behind the others, taken from its former panel; null when the panel is full or the widget holds this panel. */
	UPanelSlot* AddChild(UWidget* Content);
	/** At a place; a place beyond the end means the end. */
	UPanelSlot* InsertChildAt(int32 Index, UWidget* Content);
	bool RemoveChild(UWidget* Content);
	bool RemoveChildAt(int32 Index);
	/** A button or border holds one child, a box any number. */
	bool CanHaveMultipleChildren() const;
	bool CanAddMoreChildren() const { return CanHaveMultipleChildren() || Slots.IsEmpty(); }
	/** The class of the slots that this kind of panel makes. */
	UClass* GetSlotClass() const;

private:
	/** A widget cannot hold a panel that it stands in. */
	bool StandsIn(const UWidget* Content) const;

	/** Sets right what was read. */
	friend class FLoadedPanels;

	TArray<TObjectPtr<UPanelSlot>> Slots;
};
