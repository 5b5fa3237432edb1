#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphSchema.h"

/** The rules of state machines: linking two states puts a transition between them. */
class UAnimationStateMachineSchema : public UEdGraphSchema
{
	EDITOR_CLASS(UAnimationStateMachineSchema, UEdGraphSchema)

public:
	void CreateDefaultNodesForGraph(UEdGraph& Graph) const override;
	EGraphType GetGraphType(const UEdGraph* TestEdGraph) const override { return GT_StateMachine; }
	const FPinConnectionResponse CanCreateConnection(const UEdGraphPin* A, const UEdGraphPin* B) const override;
	bool TryCreateConnection(UEdGraphPin* A, UEdGraphPin* B) const override;
	bool CreateAutomaticConversionNodeAndConnections(UEdGraphPin* A, UEdGraphPin* B) const override;
};
