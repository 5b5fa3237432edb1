#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Values that a class starts with. */
class UK2Node_GetClassDefaults : public UK2Node
{
	EDITOR_CLASS(UK2Node_GetClassDefaults, UK2Node)

public:
	UEdGraphPin* FindClassPin() const;
	UClass* GetInputClass() const;

	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PostPlacedNewNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	TArray<FOptionalPinFromProperty> ShowPinForProperties;
	bool bExcludeObjectContainers = false;

private:
	void CreateOutputPins(UClass* InClass);
};
