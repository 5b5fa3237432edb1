#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** A row of a data table, of the table's row struct. */
class UK2Node_GetDataTableRow : public UK2Node
{
	EDITOR_CLASS(UK2Node_GetDataTableRow, UK2Node)

public:
	UEdGraphPin* GetDataTablePin() const;
	UEdGraphPin* GetResultPin() const;
	/** The struct of the chosen table's rows; null while there is no table. */
	UScriptStruct* GetDataTableRowStructType() const;

	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PostReconstructNode() override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

private:
	void RefreshOutputType();
};
