#include "Utils/Report/GraphSession.h"

#include "EdGraph/EdGraphNode.h"
#include "Utils/Report/GraphTelemetry.h"

void FBPGraphSession::RecordCreatedNode(const FString& RequestId, UEdGraphNode* Node)
{
	if (!ensure(Node))
	{
		return;
	}
	CreatedNodesByRequestId.Add(RequestId, Node);
	SessionNodes.Add(Node);

	FBPCreatedNodeRecord& Record = CreatedRecords.AddDefaulted_GetRef();
	Record.RequestId = RequestId;
	Record.NodeGuid = Node->NodeGuid.ToString();
	Record.ClassName = Node->GetClass()->GetName();
	Record.NodeTitle = Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString();
	Record.Node = Node;
}

void FBPGraphSession::RecordFailedId(const FString& RequestId)
{
	if (!RequestId.IsEmpty())
	{
		FailedRequestIds.Add(RequestId);
	}
}

void FBPGraphSession::RecordExistingNode(UEdGraphNode* Node)
{
	if (!Node || IsSessionNode(Node) || ExistingModifiedSet.Contains(Node))
	{
		return;
	}
	ExistingModifiedSet.Add(Node);
	ExistingModifiedNodes.Add(Node);
}

void FBPGraphSession::CountPinDirectionFallback()
{
	GraphTelemetry::RecordPinDirectionFallback(Result);
}

UEdGraphNode* FBPGraphSession::FindNode(const FString& RequestId) const
{
	return RequestId.IsEmpty() ? nullptr : CreatedNodesByRequestId.FindRef(RequestId).Get();
}

TArray<UEdGraphNode*> FBPGraphSession::GetCreatedNodes() const
{
	TSet<UEdGraphNode*> Nodes;
	for (const FBPCreatedNodeRecord& Record : CreatedRecords)
	{
		if (UEdGraphNode* const Node = Record.Node.Get())
		{
			Nodes.Add(Node);
		}
	}
	return Nodes.Array();
}

TArray<UEdGraphNode*> FBPGraphSession::GetExistingModifiedNodes() const
{
	TArray<UEdGraphNode*> Nodes;
	for (const TWeakObjectPtr<UEdGraphNode>& Weak : ExistingModifiedNodes)
	{
		if (UEdGraphNode* const Node = Weak.Get())
		{
			Nodes.Add(Node);
		}
	}
	return Nodes;
}
