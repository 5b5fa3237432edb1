#include "EdGraphNode_Comment.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UEdGraphNode_Comment, "/Script/UnrealEd", CLASS_None)

template <>
UEnum* StaticEnum<ECommentBoxMode::Type>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ECommentBoxMode"), TEXT("/Script/UnrealEd"),
		UEnum::ECppForm::Namespaced, {{TEXT("GroupMovement"), 0}, {TEXT("NoGroupMovement"), 1}});
	return Enum;
}

void UEdGraphNode_Comment::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("CommentColor"), &UEdGraphNode_Comment::CommentColor, CPF_Edit);
	Class.Property(TEXT("FontSize"), &UEdGraphNode_Comment::FontSize, CPF_Edit);
	Class.Property(TEXT("bCommentBubbleVisible_InDetailsPanel"),
		&UEdGraphNode_Comment::bCommentBubbleVisible_InDetailsPanel, CPF_Edit);
	Class.Property(TEXT("bColorCommentBubble"), &UEdGraphNode_Comment::bColorCommentBubble, CPF_Edit);
	Class.Property(TEXT("MoveMode"), &UEdGraphNode_Comment::MoveMode, CPF_Edit);
	Class.Property(TEXT("CommentDepth"), &UEdGraphNode_Comment::CommentDepth, CPF_Edit);
}

UEdGraphNode_Comment::UEdGraphNode_Comment()
{
	NodeWidth = 400;
	NodeHeight = 100;
	bCanResizeNode = true;
	bCanRenameNode = true;
}

void UEdGraphNode_Comment::PostPlacedNewNode()
{
	if (NodeComment.IsEmpty())
	{
		NodeComment = TEXT("Comment");
	}
}

FText UEdGraphNode_Comment::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::MenuTitle)
	{
		return NSLOCTEXT("K2Node", "NewComment_ListTitle", "Add Comment...");
	}
	return FText::FromString(NodeComment);
}

FText UEdGraphNode_Comment::GetTooltipText() const
{
	return NodeComment.IsEmpty() ? FText::FromString(TEXT("Comment")) : FText::FromString(NodeComment);
}
