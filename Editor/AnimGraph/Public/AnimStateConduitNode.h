#pragma once

#include "AnimStateNodeBase.h"
#include "CoreMinimal.h"

/** A crossing of transitions with a rule of its own. */
class UAnimStateConduitNode : public UAnimStateNodeBase
{
	EDITOR_CLASS(UAnimStateConduitNode, UAnimStateNodeBase)

public:
	FString GetStateName() const override;
	UEdGraphPin* GetInputPin() const override { return FindPin(TEXT("In"), EGPD_Input); }
	UEdGraphPin* GetOutputPin() const override { return FindPin(TEXT("Out"), EGPD_Output); }
	UEdGraph* GetBoundGraph() const override { return BoundGraph; }
	void ClearBoundGraph() override { BoundGraph = nullptr; }
	void AllocateDefaultPins() override;
	void PostPlacedNewNode() override;
	FText GetTooltipText() const override;

	TObjectPtr<UEdGraph> BoundGraph;
};
