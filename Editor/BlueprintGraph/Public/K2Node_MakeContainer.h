#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_AddPinInterface.h"

/** The base of Make Array, Make Set and Make Map: one element type, taken from what is linked. */
class UK2Node_MakeContainer : public UK2Node, public IK2Node_AddPinInterface
{
	EDITOR_CLASS(UK2Node_MakeContainer, UK2Node)

public:
	UEdGraphPin* GetOutputPin() const;
	virtual FName GetOutputPinName() const { return NAME_None; }
	virtual FName GetPinName(int32 PinIndex) const { return NAME_None; }
	/** Input pins of one element, the key first. */
	virtual void GetKeyAndValuePins(TArray<UEdGraphPin*>& KeyPins, TArray<UEdGraphPin*>& ValuePins) const;

	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void AddInputPin() override;
	bool CanAddPin() const override { return true; }
	bool CanRemovePin(const UEdGraphPin* Pin) const override;
	void RemoveInputPin(UEdGraphPin* Pin) override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	int32 NumInputs = 1;
	EPinContainerType ContainerType = EPinContainerType::None;

protected:
	virtual void CreateElementPins(int32 Index);
	/** Takes the element's types from links, or lets go of them when nothing is linked or typed in. */
	void ConformTypes();
};
