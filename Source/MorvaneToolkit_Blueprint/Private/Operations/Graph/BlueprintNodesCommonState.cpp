#include "BlueprintNodesCommonOperation.h"

#include "EdGraph/EdGraphNode.h"

TMap<FString, TWeakObjectPtr<UEdGraphNode>> FBlueprintNodesCommonOperation::CreatedNodes;
TSet<FString> FBlueprintNodesCommonOperation::ModifiedNodeIds;
TArray<TWeakObjectPtr<UEdGraphNode>> FBlueprintNodesCommonOperation::ModifiedNodes;
std::atomic<int32> FBlueprintNodesCommonOperation::NodesModified = 0;
std::atomic<int32> FBlueprintNodesCommonOperation::NodesRemoved = 0;
std::atomic<int32> FBlueprintNodesCommonOperation::ConnectionsRemoved = 0;
std::atomic<int32> FBlueprintNodesCommonOperation::LocalVariablesProcessed = 0;

void FBlueprintNodesCommonOperation::ResetRunState()
{
	CreatedNodes.Empty();
	ModifiedNodeIds.Empty();
	ModifiedNodes.Empty();
	NodesModified = 0;
	NodesRemoved = 0;
	ConnectionsRemoved = 0;
	LocalVariablesProcessed = 0;
}
