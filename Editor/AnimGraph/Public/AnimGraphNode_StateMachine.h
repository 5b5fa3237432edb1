#pragma once

#include "AnimationStateMachineGraph.h"
#include "AnimGraphNode_Base.h"

class UAnimGraphNode_StateMachineBase : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_StateMachineBase, UAnimGraphNode_Base)

public:
	FString GetNodeCategory() const override;
	FString GetStateMachineName() const;
	TArray<UEdGraph*> GetSubGraphs() const override;
	void PostPlacedNewNode() override;
	void OnRenameNode(const FString& NewName) override;
	void DestroyNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	TObjectPtr<UAnimationStateMachineGraph> EditorStateMachineGraph;
};

/** A state machine as a node of a graph of poses. */
class UAnimGraphNode_StateMachine : public UAnimGraphNode_StateMachineBase
{
	EDITOR_CLASS(UAnimGraphNode_StateMachine, UAnimGraphNode_StateMachineBase)
};
