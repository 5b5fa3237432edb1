#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/** The same run for siblings that take nodes away. It has no tool of its own. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintRemoveBlueprintNodesOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
