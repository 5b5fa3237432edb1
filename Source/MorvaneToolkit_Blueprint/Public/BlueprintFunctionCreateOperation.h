#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/** The older name of FBlueprintGraphCreateOperation, for siblings that know it by this one. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintFunctionCreateOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
