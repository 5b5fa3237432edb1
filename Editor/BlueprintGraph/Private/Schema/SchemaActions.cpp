// What the schema itself offers in a graph's menu, beside the nodes of the action database.

#include "EdGraphSchema_K2.h"

#include "UObject/WeakObjectPtr.h"

namespace SchemaActions
{
/** The comment that new ones are copies of. One for all menus; null in a process without the editor module. */
static UEdGraphNode* CommentTemplate()
{
	static TWeakObjectPtr<UEdGraphNode> Template;
	if (!Template.Get())
	{
		const UClass* const Class = FindObject<UClass>(nullptr, TEXT("/Script/UnrealEd.EdGraphNode_Comment"));
		Template = Class
			? NewObject<UEdGraphNode>(GetTransientPackageAsObject(), Class, NAME_None, RF_Transient | RF_Transactional)
			: nullptr;
	}
	return Template.Get();
}

static TSharedPtr<FEdGraphSchemaAction> MakeCommentAction(bool bFromSelection)
{
	UEdGraphNode* const Template = CommentTemplate();
	if (!Template)
	{
		return nullptr;
	}
	const TSharedPtr<FEdGraphSchemaAction_NewNode> Action = MakeShared<FEdGraphSchemaAction_NewNode>(FText::GetEmpty(),
		FText::FromString(bFromSelection ? TEXT("Create Comment from Selection") : TEXT("Add Comment")),
		FText::FromString(TEXT("A resizable box that groups nodes under a title")), 0);
	Action->NodeTemplate = Template;
	return Action;
}
} // namespace SchemaActions

void UEdGraphSchema_K2::GetGraphContextActions(FGraphContextMenuBuilder& ContextMenuBuilder) const
{
	if (ContextMenuBuilder.FromPin)
	{
		return;
	}
	const bool bFromSelection = !ContextMenuBuilder.SelectedObjects.IsEmpty();
	if (const TSharedPtr<FEdGraphSchemaAction> Action = SchemaActions::MakeCommentAction(bFromSelection))
	{
		ContextMenuBuilder.AddAction(Action);
	}
}
