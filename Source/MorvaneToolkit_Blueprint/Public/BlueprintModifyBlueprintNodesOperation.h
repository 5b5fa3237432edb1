#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/** Changes what a graph holds: nodes, pins, links, local variables, the graph itself. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintModifyBlueprintNodesOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
