#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_AddPinInterface.h"

/** Runs its outputs one after the other. */
class UK2Node_ExecutionSequence : public UK2Node, public IK2Node_AddPinInterface
{
	EDITOR_CLASS(UK2Node_ExecutionSequence, UK2Node)

public:
	UEdGraphPin* GetThenPinGivenIndex(int32 Index) const;
	virtual FName GetPinNameGivenIndex(int32 Index) const;
	void RemovePinFromExecutionNode(UEdGraphPin* TargetPin);
	bool CanRemoveExecutionPin() const;

	void AddInputPin() override;
	bool CanAddPin() const override { return true; }
	bool CanRemovePin(const UEdGraphPin* Pin) const override;
	void RemoveInputPin(UEdGraphPin* Pin) override { RemovePinFromExecutionNode(Pin); }
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

protected:
	virtual FName GetUniquePinName() const;
	/** The exec outputs in order. */
	TArray<UEdGraphPin*> GetSequencePins() const;
};
