#pragma once

#include "CoreMinimal.h"
#include "Operations/Graph/GraphModification.h"
#include "Operations/Graph/TouchedReads.h"
#include "Utils/Graph/MemberUsers.h"

class FNodeIdIndex;
class UBlueprint;
class UEdGraph;
class UEdGraphNode;
class UK2Node_EditablePinBase;

namespace Morvane
{
class FToolResult;
}

/**
 * One call that changes what is there, walked once from top to bottom. Steps that can end the run answer false, having
 * reported. An item that fails is a warning.
 */
class FModifyRun
{
public:
	using FBPGraphModification = FBlueprintNodesCommonOperation::FBPGraphModification;

	FModifyRun(const FBPGraphModification& InRequest, Morvane::FToolResult& InResult);
	~FModifyRun();

	/** Found, the one that is meant, and checked out. */
	bool LoadBlueprint();
	bool ApplyGraphAction();
	/** Not while something is saved or collected. */
	bool IsEngineReady();
	void Begin();
	void SetPurity();
	void RemoveNodes();
	void RemoveConnections();
	void ModifyNodes();
	/** What this run does not do is said, not dropped. */
	void RefuseAdditions();
	void MarkModified();
	/** Lays out the nodes whose change was structural; an edit of values alone never moves a node. */
	void FormatNodes();
	void ProcessLocalVariables();
	void TrackChanges();
	/** The last word: what was done, or that nothing was. */
	void Close();
	void Save();

private:
	bool NamesBlueprint() const;
	UEdGraph* FindGraph() const;
	void RemoveGraph();
	bool AddGraph();
	bool AddEventOverride(const class UFunction& Function, UClass* Class);

	/** Null for an id of no node that stands in the graph. */
	UEdGraphNode* FindNode(const FString& Id);
	void RemoveNode(const FBPNodeModification& Record);
	void RemoveConnection(const FBPConnectionModification& Record);
	/** A link of states is a node between them; false when there is none. */
	bool RemoveTransition(UEdGraphNode& Source, UEdGraphNode& Target);
	void ModifyNode(const FBPNodeModification& Record);
	void NoteModified(UEdGraphNode& Node, const FBPNodeModification& Record);
	/** Remembers whose callers have to follow the node's pins. */
	void NoteSignature(UK2Node_EditablePinBase& Node);
	void FollowSignatures();
	void Touch(UEdGraphNode& Node);
	void Fail() { ++NumFailed; }
	TArray<FString> DescribeChanges() const;

	const FBPGraphModification& Request;
	Morvane::FToolResult& Result;
	FString GraphName;

	// Valid once loaded; the graph may be null where it was removed or never was.
	UBlueprint* Blueprint = nullptr;
	UEdGraph* Graph = nullptr;

	/** The nodes that stood at first, made when the first id is asked for. */
	TUniquePtr<FNodeIdIndex> NodeIds;
	TUniquePtr<FTouchedReads> Reads;
	FDeclaredMembers ChangedSignatures;
	/** Declared by nodes that are gone. */
	FDeclaredMembers RemovedMembers;
	/** Where a request put a node, the node stays. */
	TSet<UEdGraphNode*> PlacedNodes;

	bool bGraphRemoved = false;
	bool bGraphAdded = false;
	bool bPuritySet = false;
	bool bChanged = false;
	int32 NumLinksRemoved = 0;
	int32 NumFailed = 0;
};
