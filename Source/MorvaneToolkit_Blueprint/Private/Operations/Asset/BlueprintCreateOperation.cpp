#include "BlueprintCreateOperation.h"

#include "BlueprintCreateModifyRemoveUtils.h"
#include "HAL/PlatformTime.h"
#include "ToolResult.h"

void FBlueprintCreateOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	const double StartTime = FPlatformTime::Seconds();
	if (FBlueprintCreateModifyRemoveUtils::CreateBlueprint(Args, Result))
	{
		Result.SetData(TEXT("duration_seconds"), FString::Printf(TEXT("%.6f"), FPlatformTime::Seconds() - StartTime));
	}
}
