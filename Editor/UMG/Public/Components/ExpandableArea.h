#pragma once

#include "Components/NamedSlotInterface.h"
#include "Components/Widget.h"
#include "CoreMinimal.h"

/** A header that shows and hides a body. */
class UExpandableArea : public UWidget, public INamedSlotInterface
{
	EDITOR_CLASS(UExpandableArea, UWidget)

public:
	void GetSlotNames(TArray<FName>& SlotNames) const override;
	UWidget* GetContentForSlot(FName SlotName) const override;
	void SetContentForSlot(FName SlotName, UWidget* Content) override;

private:
	TObjectPtr<UWidget> HeaderContent;
	TObjectPtr<UWidget> BodyContent;
};
