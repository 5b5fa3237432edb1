#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"

class UAnimGraphNode_StateMachineBase;
class UAnimStateEntryNode;

/** The states and transitions of one state machine. */
class UAnimationStateMachineGraph : public UEdGraph
{
	EDITOR_CLASS(UAnimationStateMachineGraph, UEdGraph)

public:
	TObjectPtr<UAnimStateEntryNode> EntryNode;
	TObjectPtr<UAnimGraphNode_StateMachineBase> OwnerAnimGraphNode;
};
