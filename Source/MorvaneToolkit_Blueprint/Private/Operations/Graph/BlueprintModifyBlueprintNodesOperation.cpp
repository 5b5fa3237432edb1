#include "BlueprintModifyBlueprintNodesOperation.h"

#include "BlueprintNodesCommonOperation.h"

void FBlueprintModifyBlueprintNodesOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FBlueprintNodesCommonOperation::Execute(Args, Result);
}
