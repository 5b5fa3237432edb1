#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/** The same run under the name of its most frequent use: links that were wrong. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintRemoveBlueprintConnectionsOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
