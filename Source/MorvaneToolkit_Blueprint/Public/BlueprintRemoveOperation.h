#pragma once

class FJsonObject;
namespace Morvane
{
class FToolResult;
}

/** Tool: deletes a Blueprint asset. */
class FBlueprintRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
