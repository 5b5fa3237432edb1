#include "BlueprintRemoveOperation.h"

#include "AssetOperationBase.h"

void FBlueprintRemoveOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FAssetOperationBase::ExecuteDeleteOperation(Args, Result, TEXT("Blueprint"));
}
