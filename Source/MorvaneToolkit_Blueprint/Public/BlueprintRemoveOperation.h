#pragma once

class FJsonObject;
namespace Morvane
{
class FToolResult;
}

/** Tool: deletes a Blueprint asset. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
