#include "BlueprintRemoveBlueprintConnectionsOperation.h"

#include "BlueprintNodesCommonOperation.h"

void FBlueprintRemoveBlueprintConnectionsOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FBlueprintNodesCommonOperation::Execute(Args, Result);
}
