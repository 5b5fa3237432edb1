#pragma once

#include "Components/NamedSlotInterface.h"
#include "Components/Widget.h"
#include "CoreMinimal.h"

class UWidgetTree;

/** What stands in a place that the user widget's class leaves open. */
struct FNamedSlotBinding
{
	EDITOR_STRUCT(FNamedSlotBinding)

	FName Name;
	TObjectPtr<UWidget> Content;
};

/** A widget that a Widget Blueprint describes. */
class UUserWidget : public UWidget, public INamedSlotInterface
{
	EDITOR_CLASS(UUserWidget, UWidget)

public:
	/** Those of its Blueprint, then those of the Blueprints above. */
	void GetSlotNames(TArray<FName>& SlotNames) const override;
	UWidget* GetContentForSlot(FName SlotName) const override;
	void SetContentForSlot(FName SlotName, UWidget* Content) override;

	TArray<FNamedSlotBinding> NamedSlotBindings;
};
