#pragma once

#include "CoreMinimal.h"
#include "K2Node_EditablePinBase.h"

/** One side of a passage between graphs: the inputs or outputs of a macro or a collapsed graph. */
class UK2Node_Tunnel : public UK2Node_EditablePinBase
{
	EDITOR_CLASS(UK2Node_Tunnel, UK2Node_EditablePinBase)

public:
	bool CanCreateUserDefinedPin(
		const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage) override;
	void AllocateDefaultPins() override;
	UEdGraphPin* CreatePinFromUserDefinition(const TSharedPtr<FUserPinInfo> NewPinInfo) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	bool CanUserDeleteNode() const override { return false; }
	bool DrawNodeAsEntry() const override { return bCanHaveOutputs; }
	bool DrawNodeAsExit() const override { return bCanHaveInputs; }

	/** The node outside that this side's outputs come from, and the one its inputs go to. */
	TObjectPtr<UK2Node_Tunnel> OutputSourceNode;
	TObjectPtr<UK2Node_Tunnel> InputSinkNode;
	bool bCanHaveInputs = false;
	bool bCanHaveOutputs = false;
	FKismetUserDeclaredFunctionMetadata MetaData;
};
