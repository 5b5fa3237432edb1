#pragma once

#include "CoreMinimal.h"
#include "K2Node_Switch.h"

/** Switch on Gameplay Tag. Cases are named; a case's tag is the name's own until an author picks another. */
class UGameplayTagsK2Node_SwitchGameplayTag : public UK2Node_Switch
{
	EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTag, UK2Node_Switch)

public:
	UGameplayTagsK2Node_SwitchGameplayTag();
	FEdGraphPinType GetPinType() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	TArray<FName> PinNames;

protected:
	void CreateSelectionPin() override;
	TArray<FName>* GetCaseNames() override { return &PinNames; }
};

/** Switch on Gameplay Tag Container. */
class UGameplayTagsK2Node_SwitchGameplayTagContainer : public UGameplayTagsK2Node_SwitchGameplayTag
{
	EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTagContainer, UGameplayTagsK2Node_SwitchGameplayTag)

public:
	UGameplayTagsK2Node_SwitchGameplayTagContainer();
	FEdGraphPinType GetPinType() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
};
