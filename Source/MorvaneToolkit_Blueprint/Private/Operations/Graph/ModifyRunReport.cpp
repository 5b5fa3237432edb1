#include "Operations/Graph/ModifyRun.h"

#include "AssetOperationBase.h"
#include "BlueprintFormatterService.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Graph/LocalVariableEdits.h"

// The steps that come after the nodes: layout, local variables, what is told, the save.

void FModifyRun::MarkModified()
{
	if (bChanged)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

void FModifyRun::FormatNodes()
{
	TArray<UEdGraphNode*> Changed;
	for (const TWeakObjectPtr<UEdGraphNode>& Weak : FBlueprintNodesCommonOperation::ModifiedNodes)
	{
		if (UEdGraphNode* const Node = Weak.Get())
		{
			Changed.Add(Node);
		}
	}
	if (Changed.IsEmpty())
	{
		return;
	}
	TSet<UEdGraphNode*> Allowed;
	Allowed.Append(Changed);
	Allowed.Append(FBlueprintFormatterService::CollectNeighbors(Changed, {}));
	TArray<UEdGraphNode*> ToFormat;
	for (UEdGraphNode* const Node : Allowed)
	{
		// Whoever says where a node stands wants it there.
		if (!PlacedNodes.Contains(Node))
		{
			ToFormat.Add(Node);
		}
	}
	FBlueprintFormatterService::FormatGraph(Graph, ToFormat);
}

void FModifyRun::ProcessLocalVariables()
{
	if (Request.LocalVariables.IsEmpty())
	{
		return;
	}
	const LocalVariableEdits::FOutcome Outcome = LocalVariableEdits::Apply(
		*Blueprint, Graph, Request.LocalVariables, Result);
	FBlueprintNodesCommonOperation::LocalVariablesProcessed += Outcome.Processed;
	NumFailed += Outcome.Failed;
	if (Outcome.Entry)
	{
		// Its pins are as they were, so it is not laid out for it.
		FBlueprintNodesCommonOperation::ModifiedNodes.AddUnique(Outcome.Entry);
		Reads->TouchGraph();
		bChanged = true;
	}
}

void FModifyRun::TrackChanges()
{
	if (bChanged && Reads)
	{
		Reads->Track(Blueprint->GetOutermost()->GetName(), Result);
	}
}

void FModifyRun::Close()
{
	using FState = FBlueprintNodesCommonOperation;
	Result.SetData(TEXT("nodes_modified"), FString::FromInt(FState::NodesModified));
	Result.SetData(TEXT("nodes_removed"), FString::FromInt(FState::NodesRemoved));
	Result.SetData(TEXT("connections_removed"), FString::FromInt(NumLinksRemoved));
	Result.SetData(TEXT("local_variables_processed"), FString::FromInt(FState::LocalVariablesProcessed));
	Result.SetData(TEXT("items_failed"), FString::FromInt(NumFailed));
	if (!bChanged)
	{
		Result.AddSuccessMessage(NumFailed > 0
				? FString::Printf(TEXT("Nothing was modified in graph '%s': all %d item(s) failed, see the warnings"),
					*GraphName, NumFailed)
				: FString::Printf(TEXT("Nothing was modified in graph '%s': there was nothing to do"), *GraphName));
		return;
	}
	Result.AddSuccessMessage(
		FString::Printf(TEXT("Modified graph '%s': %s"), *GraphName, *FString::Join(DescribeChanges(), TEXT(", "))));
}

TArray<FString> FModifyRun::DescribeChanges() const
{
	using FState = FBlueprintNodesCommonOperation;
	TArray<FString> Parts;
	const auto AddIf = [&Parts](bool bHappened, const TCHAR* Text)
	{
		if (bHappened)
		{
			Parts.Add(Text);
		}
	};
	const auto AddCount = [&Parts](int32 Count, const TCHAR* Text)
	{
		if (Count > 0)
		{
			Parts.Add(FString::FromInt(Count) + Text);
		}
	};
	AddIf(bGraphAdded, TEXT("graph added"));
	AddIf(bGraphRemoved, TEXT("graph removed"));
	AddIf(bPuritySet && *Request.bIsPure, TEXT("function is pure"));
	AddIf(bPuritySet && !*Request.bIsPure, TEXT("function is not pure"));
	AddCount(FState::NodesModified, TEXT(" node(s) modified"));
	AddCount(FState::NodesRemoved, TEXT(" node(s) removed"));
	AddCount(NumLinksRemoved, TEXT(" connection(s) removed"));
	AddCount(FState::LocalVariablesProcessed, TEXT(" local variable(s) processed"));
	AddCount(NumFailed, TEXT(" item(s) failed, see the warnings"));
	return Parts;
}

void FModifyRun::Save()
{
	if (!bChanged)
	{
		return;
	}
	Blueprint->MarkPackageDirty();
	Blueprint->PostEditChange();
	if (FAssetOperationBase::SaveAsset(Blueprint, Result))
	{
		Result.FinalizeModifications();
	}
}
