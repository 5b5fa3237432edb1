#pragma once

#include "AnimStateNodeBase.h"
#include "CoreMinimal.h"

/** A way from one state to another, with a rule graph. */
class UAnimStateTransitionNode : public UAnimStateNodeBase
{
	EDITOR_CLASS(UAnimStateTransitionNode, UAnimStateNodeBase)

public:
	FString GetStateName() const override;
	UAnimStateNodeBase* GetPreviousState() const;
	UAnimStateNodeBase* GetNextState() const;
	/** Links the transition between two states. */
	void CreateConnections(UAnimStateNodeBase* PreviousState, UAnimStateNodeBase* NextState);
	UEdGraphPin* GetInputPin() const override { return Pins.IsEmpty() ? nullptr : Pins[0]; }
	UEdGraphPin* GetOutputPin() const override { return Pins.Num() > 1 ? Pins[1] : nullptr; }
	UEdGraph* GetBoundGraph() const override { return BoundGraph; }
	void ClearBoundGraph() override { BoundGraph = nullptr; }
	void AllocateDefaultPins() override;
	void PostPlacedNewNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	TObjectPtr<UEdGraph> BoundGraph;
	int32 PriorityOrder = 1;
	float CrossfadeDuration = 0.2f;
	bool Bidirectional = false;
	bool bAutomaticRuleBasedOnSequencePlayerInState = false;
};
