#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphNode.h"

namespace ECommentBoxMode
{
enum Type : uint8
{
	GroupMovement,
	NoGroupMovement,
};
}
template <>
UEnum* StaticEnum<ECommentBoxMode::Type>();

/** A titled box behind other nodes. It has no pins. */
class UEdGraphNode_Comment : public UEdGraphNode
{
	EDITOR_CLASS(UEdGraphNode_Comment, UEdGraphNode)

public:
	UEdGraphNode_Comment();

	void PostPlacedNewNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void OnRenameNode(const FString& NewName) override { NodeComment = NewName; }

	FLinearColor CommentColor = FLinearColor(1.0f, 1.0f, 1.0f, 1.0f);
	int32 FontSize = 18;
	bool bCommentBubbleVisible_InDetailsPanel = true;
	bool bColorCommentBubble = false;
	ECommentBoxMode::Type MoveMode = ECommentBoxMode::GroupMovement;
	int32 CommentDepth = -1;
};
