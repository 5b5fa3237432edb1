#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/**
 * Gives a Blueprint function graphs and delegate signatures with their pins, deciding for each name what is really
 * needed: a new function, an override, or an event where the parent has one. Spawns no other node and makes no link.
 */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintGraphCreateOperation
{
public:
	/** A bad entry is reported and the others are made, in memory; any error at all prevents the save. */
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
