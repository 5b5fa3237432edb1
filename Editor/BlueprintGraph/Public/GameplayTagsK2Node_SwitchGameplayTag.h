#pragma once

#include "CoreMinimal.h"
#include "GameplayTagContainer.h"
#include "K2Node_Switch.h"

/** Switch on Gameplay Tag: a case for each tag of the list, called after its tag once it has one. */
class UGameplayTagsK2Node_SwitchGameplayTag : public UK2Node_Switch
{
	EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTag, UK2Node_Switch)

public:
	UGameplayTagsK2Node_SwitchGameplayTag();
	FEdGraphPinType GetPinType() const override;
	void AllocateDefaultPins() override;
	void AddPinToSwitchNode() override;
	void RemovePinFromSwitchNode(UEdGraphPin* TargetPin) override;
	void PostEditChangeProperty(FPropertyChangedEvent& Event) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	/** What the cases are told by. The names of the pins follow it when the pins are made. */
	TArray<FGameplayTag> PinTags;
	TArray<FName> PinNames;

protected:
	void CreateSelectionPin() override;
	TArray<FName>* GetCaseNames() override { return &PinNames; }
};

/** Switch on Gameplay Tag Container: the same by sets of tags. */
class UGameplayTagsK2Node_SwitchGameplayTagContainer : public UK2Node_Switch
{
	EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTagContainer, UK2Node_Switch)

public:
	UGameplayTagsK2Node_SwitchGameplayTagContainer();
	FEdGraphPinType GetPinType() const override;
	void AllocateDefaultPins() override;
	void AddPinToSwitchNode() override;
	void RemovePinFromSwitchNode(UEdGraphPin* TargetPin) override;
	void PostEditChangeProperty(FPropertyChangedEvent& Event) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	TArray<FGameplayTagContainer> PinContainers;
	TArray<FName> PinNames;

protected:
	void CreateSelectionPin() override;
	TArray<FName>* GetCaseNames() override { return &PinNames; }
};
