#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/** The same run under the name of its most frequent use: links that were wrong. */
class FBlueprintRemoveBlueprintConnectionsOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
