#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** A reroute point: passes on whatever flows through it and takes its type. */
class UK2Node_Knot : public UK2Node
{
	EDITOR_CLASS(UK2Node_Knot, UK2Node)

public:
	UEdGraphPin* GetInputPin() const { return Pins.Num() > 0 ? Pins[0] : nullptr; }
	UEdGraphPin* GetOutputPin() const { return Pins.Num() > 1 ? Pins[1] : nullptr; }

	/** On the way of a value it is pure as that is; on the way of execution it is a step like others. */
	bool IsNodePure() const override;
	bool CanSplitPin(const UEdGraphPin*) const override { return false; }
	void OnRenameNode(const FString& NewName) override { NodeComment = NewName; }
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;

private:
	/** Takes the type of what is linked on either side, through any knots in between. */
	void PropagatePinType();
};
