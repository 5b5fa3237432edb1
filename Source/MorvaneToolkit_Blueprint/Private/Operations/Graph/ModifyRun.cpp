#include "Operations/Graph/ModifyRun.h"

#include "AnimStateTransitionNode.h"
#include "AssetOperationBase.h"
#include "BlueprintMatchingUtils.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Graph/GraphRemoval.h"
#include "Utils/Graph/NodeEditing.h"
#include "Utils/Graph/PinConnections.h"
#include "Utils/Graph/SignatureFollowing.h"

// The steps that change nodes and links.

namespace ModifyRunSteps
{
/** The id by which a run notes a node. */
static FString GetNoteId(const UEdGraphNode& Node)
{
	return Node.NodeGuid.IsValid()
		? Node.NodeGuid.ToString()
		: FString::Printf(TEXT("EmptyGUID_%s"), *Node.GetNodeTitle(ENodeTitleType::FullTitle).ToString());
}

static FString ToText(const TSharedRef<FJsonObject>& Object)
{
	return FAssetOperationBase::SerializeJson(Object);
}

static bool IsStructural(const FBPNodeModification& Record)
{
	return Record.Action != EBPNodeAction::Modify
		|| Record.Pins.ContainsByPredicate(
			[](const FBPPinModification& Pin) { return Pin.Action != EBPNodeAction::Modify; });
}

/** Why a node has to stay in its graph; empty when it may go. */
static FString FindObstacle(const UEdGraphNode& Node, const FString& Id)
{
	if (Node.IsA<UK2Node_FunctionEntry>())
	{
		return FString::Printf(
			TEXT("Cannot remove Node %s. FunctionEntry nodes cannot be removed, they can only be modified."), *Id);
	}
	return Node.CanUserDeleteNode() ? FString()
									: FString::Printf(TEXT("Cannot remove Node %s. A %s is a fixed part of its graph."),
										*Id, *Node.GetClass()->GetName());
}

/** What an author's parameters are, as far as callers can see it. */
static TArray<FUserPinInfo> CopyParameters(const UEdGraphNode& Node)
{
	TArray<FUserPinInfo> Copy;
	if (const UK2Node_EditablePinBase* const Editable = Cast<UK2Node_EditablePinBase>(&Node))
	{
		for (const TSharedPtr<FUserPinInfo>& Info : Editable->UserDefinedPins)
		{
			Copy.Add(*Info);
		}
	}
	return Copy;
}

static bool AreSameParameters(const TArray<FUserPinInfo>& A, const TArray<FUserPinInfo>& B)
{
	if (A.Num() != B.Num())
	{
		return false;
	}
	for (int32 Index = 0; Index < A.Num(); ++Index)
	{
		if (A[Index].PinName != B[Index].PinName || !(A[Index].PinType == B[Index].PinType)
			|| !A[Index].PinDefaultValue.Equals(B[Index].PinDefaultValue))
		{
			return false;
		}
	}
	return true;
}
} // namespace ModifyRunSteps

UEdGraphNode* FModifyRun::FindNode(const FString& Id)
{
	if (!Graph)
	{
		return nullptr;
	}
	if (!NodeIds)
	{
		NodeIds = MakeUnique<FNodeIdIndex>(*Graph);
	}
	UEdGraphNode* const Node = NodeIds->Find(Id);
	// A node that has gone since may have left its short id to another one.
	return Node && !IsValid(Node) ? FBlueprintMatchingUtils::FindNodeByGuid(Graph, Id) : Node;
}

void FModifyRun::Touch(UEdGraphNode& Node)
{
	FBlueprintNodesCommonOperation::ModifiedNodeIds.Add(ModifyRunSteps::GetNoteId(Node));
	Reads->TouchNode(Node);
}

void FModifyRun::RemoveNodes()
{
	for (const FBPNodeModification& Record : Request.Nodes)
	{
		if (Record.Action == EBPNodeAction::Remove)
		{
			RemoveNode(Record);
		}
	}
	if (!RemovedMembers.IsEmpty())
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
		GraphRemoval::TellUsers(MemberUsers::Find(*Blueprint, RemovedMembers), TEXT("A custom event"), Result);
	}
}

void FModifyRun::RemoveNode(const FBPNodeModification& Record)
{
	UEdGraphNode* const Node = FindNode(Record.NodeGuid);
	const FString Obstacle = Node ? ModifyRunSteps::FindObstacle(*Node, Record.NodeGuid)
								  : FString::Printf(TEXT("Node %s not found"), *Record.NodeGuid);
	if (!Obstacle.IsEmpty())
	{
		Result.AddWarningMessage(Obstacle);
		Fail();
		return;
	}
	Touch(*Node);
	if (const UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(Node))
	{
		RemovedMembers.Functions.Add(Event->GetFunctionName());
	}
	if (UK2Node_FunctionResult* const Return = Cast<UK2Node_FunctionResult>(Node))
	{
		NoteSignature(*Return); // the last one takes the results with it
	}
	// The whole run is one change of the Blueprint, which is marked at its end.
	FBlueprintEditorUtils::RemoveNode(Blueprint, Node, true);
	Result.AddSuccessMessage(FString::Printf(TEXT("Removed node: %s"), *ModifyRunSteps::GetNoteId(*Node)));
	++FBlueprintNodesCommonOperation::NodesRemoved;
	bChanged = true;
}

void FModifyRun::RemoveConnections()
{
	for (const FBPConnectionModification& Record : Request.Connections)
	{
		if (Record.Action == EBPConnectionAction::Remove)
		{
			RemoveConnection(Record);
		}
	}
}

bool FModifyRun::RemoveTransition(UEdGraphNode& Source, UEdGraphNode& Target)
{
	const UAnimStateNodeBase* const From = Cast<UAnimStateNodeBase>(&Source);
	TArray<UAnimStateTransitionNode*> Transitions;
	if (From)
	{
		From->GetTransitionList(Transitions);
	}
	for (UAnimStateTransitionNode* const Transition : Transitions)
	{
		if (Transition->GetPreviousState() == &Source && Transition->GetNextState() == &Target)
		{
			FBlueprintEditorUtils::RemoveNode(Blueprint, Transition, true);
			return true;
		}
	}
	return false;
}

void FModifyRun::RemoveConnection(const FBPConnectionModification& Record)
{
	UEdGraphNode* const Source = FindNode(Record.SourceNodeGuid);
	UEdGraphNode* const Target = Source ? FindNode(Record.TargetNodeGuid) : nullptr;
	if (!Target)
	{
		Result.AddWarningMessage(Source
				? FString::Printf(TEXT("Could not find target node for disconnection: %s"), *Record.TargetNodeGuid)
				: FString::Printf(TEXT("Could not find source node for disconnection: %s"), *Record.SourceNodeGuid));
		Fail();
		return;
	}
	Touch(*Source);
	Touch(*Target);
	const UEdGraphPin* const From = FBlueprintPinUtils::FindPinWithAliases(
		Source, Record.SourcePinName, EGPD_Output, nullptr);
	UEdGraphPin* const To = FBlueprintPinUtils::FindPinWithAliases(Target, Record.TargetPinName, EGPD_Input, nullptr);
	const bool bStood = (From && To && From->LinkedTo.Contains(To)) || RemoveTransition(*Source, *Target);
	const bool bTransition = bStood && !(From && To && From->LinkedTo.Contains(To));
	if (!bTransition
		&& !FBlueprintPinUtils::DisconnectPins(
			Graph, Source, Record.SourcePinName, Target, Record.TargetPinName, Result))
	{
		Fail();
		return;
	}
	// Also where no link stood, as the warning before says: what was asked for is the case.
	Result.AddSuccessMessage(FString::Printf(TEXT("Connection removed from %s.%s to %s.%s"), *Record.SourceNodeGuid,
		*Record.SourcePinName, *Record.TargetNodeGuid, *Record.TargetPinName));
	++FBlueprintNodesCommonOperation::ConnectionsRemoved;
	NumLinksRemoved += bStood ? 1 : 0;
	bChanged |= bStood;
}

void FModifyRun::ModifyNodes()
{
	for (const FBPNodeModification& Record : Request.Nodes)
	{
		if (Record.Action == EBPNodeAction::Modify)
		{
			ModifyNode(Record);
		}
	}
	FollowSignatures();
}

void FModifyRun::ModifyNode(const FBPNodeModification& Record)
{
	UEdGraphNode* const Node = FindNode(Record.NodeGuid);
	const TSharedRef<FJsonObject> Failure = MakeShared<FJsonObject>();
	if (!Node)
	{
		Failure->SetStringField(TEXT("message"), FString::Printf(TEXT("Node %s not found"), *Record.NodeGuid));
		Result.AddWarningMessage(ModifyRunSteps::ToText(Failure));
		Fail();
		return;
	}
	Reads->TouchNode(*Node);
	const int32 NumWarnings = Result.GetWarningMessages().Num();
	const TArray<FUserPinInfo> Before = ModifyRunSteps::CopyParameters(*Node);
	if (!FBlueprintNodeEditing::ModifyNode(Node, Record, Result))
	{
		TArray<FString> Words = Result.GetWarningMessages();
		Words.RemoveAt(0, NumWarnings);
		Failure->SetStringField(TEXT("message"), FString::Printf(TEXT("Failed to modify node: %s"), *Record.NodeGuid));
		Failure->SetStringField(TEXT("type"), TEXT("node_modification_failure"));
		Failure->SetStringField(TEXT("details"), FString::Join(Words, TEXT(" ")));
		Result.AddWarningMessage(ModifyRunSteps::ToText(Failure));
		Fail();
		return;
	}
	if (!ModifyRunSteps::AreSameParameters(Before, ModifyRunSteps::CopyParameters(*Node)))
	{
		NoteSignature(*CastChecked<UK2Node_EditablePinBase>(Node));
	}
	NoteModified(*Node, Record);
}

void FModifyRun::NoteModified(UEdGraphNode& Node, const FBPNodeModification& Record)
{
	using FState = FBlueprintNodesCommonOperation;
	FState::ModifiedNodeIds.Add(ModifyRunSteps::GetNoteId(Node));
	if (ModifyRunSteps::IsStructural(Record))
	{
		FState::ModifiedNodes.AddUnique(&Node);
	}
	if (Record.PositionX || Record.PositionY)
	{
		PlacedNodes.Add(&Node);
	}
	Result.AddSuccessMessage(FString::Printf(TEXT("Node modified %s"), *Record.NodeGuid));
	++FState::NodesModified;
	bChanged = true;
}

void FModifyRun::NoteSignature(UK2Node_EditablePinBase& Node)
{
	ChangedSignatures.Append(SignatureFollowing::GetMembersOf(*Blueprint, Node));
}

void FModifyRun::FollowSignatures()
{
	if (!ChangedSignatures.IsEmpty())
	{
		SignatureFollowing::RefreshOwner(*Graph, Result);
		SignatureFollowing::Refresh(*Blueprint, ChangedSignatures, Result);
	}
}

void FModifyRun::RefuseAdditions()
{
	for (const FBPNodeModification& Record : Request.Nodes)
	{
		if (Record.Action == EBPNodeAction::Add)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("ProcessModification : We should not use ENodeAction::Add with this tool: %s"), *Record.NodeGuid));
			Fail();
		}
	}
	for (const FBPConnectionModification& Record : Request.Connections)
	{
		if (Record.Action == EBPConnectionAction::Add)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("ProcessModification : We should not use EConnectionAction::Add with this tool: %s.%s to %s.%s"),
				*Record.SourceNodeGuid, *Record.SourcePinName, *Record.TargetNodeGuid, *Record.TargetPinName));
			Fail();
		}
	}
}
