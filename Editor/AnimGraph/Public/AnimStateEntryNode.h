#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphNode.h"

/** Where a state machine starts: its one output leads to the first state. */
class UAnimStateEntryNode : public UEdGraphNode
{
	EDITOR_CLASS(UAnimStateEntryNode, UEdGraphNode)

public:
	UEdGraphNode* GetOutputNode() const;
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	bool CanUserDeleteNode() const override { return false; }
};
