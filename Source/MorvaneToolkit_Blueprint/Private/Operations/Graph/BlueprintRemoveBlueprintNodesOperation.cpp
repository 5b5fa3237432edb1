#include "BlueprintRemoveBlueprintNodesOperation.h"

#include "BlueprintNodesCommonOperation.h"

void FBlueprintRemoveBlueprintNodesOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FBlueprintNodesCommonOperation::Execute(Args, Result);
}
