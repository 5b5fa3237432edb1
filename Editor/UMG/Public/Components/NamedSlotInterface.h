#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

class UWidget;

class UNamedSlotInterface : public UInterface
{
	EDITOR_CLASS(UNamedSlotInterface, UInterface)
};

/** Something that is no panel and still holds widgets, each in a place of its own name and without a slot object. */
class INamedSlotInterface
{
public:
	using UClassType = UNamedSlotInterface;

	virtual ~INamedSlotInterface() = default;
	/** Adds the names of the places that may be filled. */
	virtual void GetSlotNames(TArray<FName>& SlotNames) const = 0;
	/** Null for a place that is empty or not there. */
	virtual UWidget* GetContentForSlot(FName SlotName) const = 0;
	/** Null empties the place. The widget is not taken from where it stood. */
	virtual void SetContentForSlot(FName SlotName, UWidget* Content) = 0;
	bool ContainsContent(UWidget* Content) const;
};
