#include "Utils/Graph/NodeEditing.h"

#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphNode_Comment.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_MathExpression.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolResult.h"
#include "Utils/Graph/CallRetargeting.h"
#include "Utils/Graph/NodePins.h"
#include "Utils/Request/GraphRecords.h"

namespace NodeEditing
{
static bool HasOwnTitle(const UEdGraphNode& Node)
{
	return Node.IsA<UK2Node_MathExpression>() || Node.IsA<UK2Node_CustomEvent>();
}

/** One record on one node. */
class FEdit
{
public:
	FEdit(UEdGraphNode& InNode, const FBPNodeModification& InRecord, Morvane::FToolResult& InResult)
		: Node(InNode)
		, Record(InRecord)
		, Result(InResult)
	{
	}

	void Move()
	{
		if (!Record.PositionX && !Record.PositionY)
		{
			return;
		}
		Node.Modify();
		Node.NodePosX = Record.PositionX.Get(Node.NodePosX);
		Node.NodePosY = Record.PositionY.Get(Node.NodePosY);
		Note(true);
	}

	void Comment()
	{
		if (!Record.Comment)
		{
			return;
		}
		Node.Modify();
		Node.NodeComment = *Record.Comment;
		if (!Node.IsA<UEdGraphNode_Comment>())
		{
			// As when an author types it: the bubble shows, and goes with its text.
			Node.bCommentBubbleVisible = !Node.NodeComment.IsEmpty();
			Node.bCommentBubblePinned = Node.bCommentBubbleVisible;
		}
		Note(true);
	}

	void Rename()
	{
		if (Record.MenuTitle.IsEmpty())
		{
			return;
		}
		Note(FBlueprintNodeEditing::IsTitleOf(Node, Record.MenuTitle) || TakeTitle());
	}

	void Retarget()
	{
		if (CallRetargeting::IsAskedFor(Record))
		{
			Note(CallRetargeting::Apply(Node, Record, Result));
		}
	}

	void EditPins()
	{
		for (const FBPPinModification& Pin : Record.Pins)
		{
			switch (Pin.Action)
			{
			case EBPNodeAction::Add:
				Note(NodePins::Add(Node, Pin, Result));
				break;
			case EBPNodeAction::Modify:
				Note(NodePins::Modify(Node, Pin, Result));
				break;
			case EBPNodeAction::Remove:
				Note(NodePins::Remove(Node, Pin, Result));
				break;
			}
		}
	}

	bool Finish()
	{
		if (!bAsked)
		{
			Result.AddWarningMessage(
				TEXT("The entry asks for no change: give position, comment, menu_title, metadata or pins"));
		}
		return bApplied;
	}

private:
	void Note(bool bDone)
	{
		bAsked = true;
		bApplied |= bDone;
	}

	bool TakeTitle()
	{
		if (!HasOwnTitle(Node))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"Cannot rename node title for node type '%s'. Only Math Expression and Custom Event nodes support title renaming."),
				*Node.GetClass()->GetName()));
			return false;
		}
		const TSharedPtr<INameValidatorInterface> Validator = Node.MakeNameValidator();
		const EValidatorResult Verdict = Validator ? Validator->IsValid(Record.MenuTitle) : EValidatorResult::Ok;
		if (Verdict != EValidatorResult::Ok)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Failed to rename node '%s', validation result: %s"),
				*FBlueprintNodeUtils::GetFullTitle(&Node),
				*INameValidatorInterface::GetErrorString(Record.MenuTitle, Verdict)));
			return false;
		}
		Node.Modify();
		Node.OnRenameNode(Record.MenuTitle);
		TellFaultOfFormula();
		return true;
	}

	/** The node takes any formula and keeps what is wrong with it to itself until it is compiled. */
	void TellFaultOfFormula()
	{
		const UK2Node_MathExpression* const Formula = Cast<UK2Node_MathExpression>(&Node);
		if (Formula && Formula->bHasCompilerMessage && !Formula->ErrorMsg.IsEmpty())
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Math expression '%s' makes no graph: %s"), *Record.MenuTitle, *Formula->ErrorMsg));
		}
	}

	UEdGraphNode& Node;
	const FBPNodeModification& Record;
	Morvane::FToolResult& Result;
	bool bAsked = false;
	bool bApplied = false;
};
} // namespace NodeEditing

bool FBlueprintNodeEditing::IsTitleOf(const UEdGraphNode& Node, const FString& Title)
{
	// Where a title can be given, a change of case is a change.
	const ESearchCase::Type Case = NodeEditing::HasOwnTitle(Node) ? ESearchCase::CaseSensitive
																  : ESearchCase::IgnoreCase;
	for (const ENodeTitleType::Type Form :
		{ENodeTitleType::FullTitle, ENodeTitleType::ListView, ENodeTitleType::EditableTitle, ENodeTitleType::MenuTitle})
	{
		if (Node.GetNodeTitle(Form).ToString().Equals(Title, Case))
		{
			return true;
		}
	}
	return false;
}

bool FBlueprintNodeEditing::ModifyNode(
	UEdGraphNode* Node, const FBPNodeModification& Record, Morvane::FToolResult& Result)
{
	if (!Node)
	{
		Result.AddWarningMessage(TEXT("Node is null"));
		return false;
	}
	NodeEditing::FEdit Edit(*Node, Record, Result);
	Edit.Move();
	Edit.Comment();
	Edit.Rename();
	// Before the pins: values of the same entry are meant for the function that is called from now on.
	Edit.Retarget();
	Edit.EditPins();
	return Edit.Finish();
}
