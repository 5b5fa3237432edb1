#pragma once

#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}

/** Edits the widget tree and the animations of a Widget Blueprint, saves and compiles it. */
class MORVANETOOLKIT_BLUEPRINT_API FWidgetBlueprintModifyOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
