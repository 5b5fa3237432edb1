#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/** What is said of a spawned node afterwards, as it was when it was spawned. */
struct FBPCreatedNodeRecord
{
	FString RequestId;
	/** The node's guid as text, the id by which a later call can name it. */
	FString NodeGuid;
	FString ClassName;
	FString NodeTitle;
	TWeakObjectPtr<UEdGraphNode> Node;
};

/**
 * What one populate run has done so far; it lives on the run's stack. It stores and counts, and decides nothing. Ids
 * compare ignoring case, like the guids that stand beside them in requests.
 */
class FBPGraphSession
{
public:
	using FNodeByRequestId = TMap<FString, TWeakObjectPtr<UEdGraphNode>>;

	/** The result receives the telemetry of the lookups made for the session. */
	explicit FBPGraphSession(Morvane::FToolResult& InResult)
		: Result(InResult)
	{
	}
	FBPGraphSession(const FBPGraphSession&) = delete;
	FBPGraphSession& operator=(const FBPGraphSession&) = delete;

	/** Of two nodes with one id, the later is found by it; both have a record. */
	void RecordCreatedNode(const FString& RequestId, UEdGraphNode* Node);
	/** An empty id is not kept. */
	void RecordFailedId(const FString& RequestId);
	/** Nothing happens for null and for a node of this session. */
	void RecordExistingNode(UEdGraphNode* Node);
	void AddBlockedOperation(const FString& Text) { BlockedOperations.Add(Text); }
	void CountPinDirectionFallback();

	/** Null for an unknown id, for an empty one, and for a node that is gone by now. */
	UEdGraphNode* FindNode(const FString& RequestId) const;
	/** The node was spawned, or handed back for reuse, by this run. */
	bool IsSessionNode(const UEdGraphNode* Node) const { return SessionNodes.Contains(Node); }
	bool HasCreatedNodes() const { return !CreatedRecords.IsEmpty(); }
	/** Each once, in the order of creation, without those that are gone. */
	TArray<UEdGraphNode*> GetCreatedNodes() const;
	/** In the order of their first change, without those that are gone. */
	TArray<UEdGraphNode*> GetExistingModifiedNodes() const;

	const FNodeByRequestId& GetCreatedNodesByRequestId() const { return CreatedNodesByRequestId; }
	const TArray<FBPCreatedNodeRecord>& GetCreatedRecords() const { return CreatedRecords; }
	const TSet<FString>& GetFailedRequestIds() const { return FailedRequestIds; }
	/** In the order of events. */
	const TArray<FString>& GetBlockedOperations() const { return BlockedOperations; }

private:
	Morvane::FToolResult& Result;
	FNodeByRequestId CreatedNodesByRequestId;
	TArray<FBPCreatedNodeRecord> CreatedRecords;
	/** For membership only; never followed. */
	TSet<const UEdGraphNode*> SessionNodes;
	TArray<TWeakObjectPtr<UEdGraphNode>> ExistingModifiedNodes;
	TSet<const UEdGraphNode*> ExistingModifiedSet;
	TSet<FString> FailedRequestIds;
	TArray<FString> BlockedOperations;
};
