#pragma once

#include "CoreMinimal.h"
#include "K2Node_Switch.h"
#include "NodeDependingOnEnumInterface.h"

/** Switch on an enum: a case for each entry. */
class UK2Node_SwitchEnum : public UK2Node_Switch, public INodeDependingOnEnumInterface
{
	EDITOR_CLASS(UK2Node_SwitchEnum, UK2Node_Switch)

public:
	UK2Node_SwitchEnum();
	UEnum* GetEnum() const override { return Enum; }
	void ReloadEnum(UEnum* InEnum) override;
	void SetEnum(UEnum* InEnum);
	FEdGraphPinType GetPinType() const override;
	bool SupportsAddPinButton() const override { return false; }
	void AddPinToSwitchNode() override {}
	void RemovePinFromSwitchNode(UEdGraphPin*) override {}
	bool CanRemoveExecutionPin(UEdGraphPin*) const override { return false; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	TObjectPtr<UEnum> Enum;
	TArray<FName> EnumEntries;
	TArray<FText> EnumFriendlyNames;

protected:
	void CreateSelectionPin() override;
	void CreateCasePins() override;
};
