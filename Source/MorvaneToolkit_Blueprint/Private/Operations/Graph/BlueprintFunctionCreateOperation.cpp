#include "BlueprintFunctionCreateOperation.h"

#include "BlueprintGraphCreateOperation.h"

void FBlueprintFunctionCreateOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FBlueprintGraphCreateOperation::Execute(Args, Result);
}
